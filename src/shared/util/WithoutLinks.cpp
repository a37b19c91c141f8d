#include "util/WithoutLinks.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <string_view>

namespace util {
namespace {

constexpr std::uint64_t kOfCall = 5;  ///< what a call costs beside its lookups
constexpr int kMaxLinks = 40;         ///< as the system has it

/// The next component of a path that is neither empty nor "."; an empty text at the end.
std::string_view nextOf(std::string_view path, std::size_t& at) {
    std::string_view component = ".";
    while (at < path.size() && (component.empty() || component == ".")) {
        component = path.substr(at, path.find('/', at) - at);
        at = std::min(path.size(), at + component.size() + 1);
    }
    return component == "." ? std::string_view() : component;
}

/// A name without links that grows by components.
class Name {
public:
    void add(std::string_view component) {
        text_.append("/").append(component);
        ++depth_;
    }
    void removeLast() {
        if (depth_ == 0) return;
        text_.resize(text_.rfind('/'));
        --depth_;
    }
    void follow(std::string_view path, std::size_t at = 0) {
        for (auto component = nextOf(path, at); !component.empty(); component = nextOf(path, at))
            component == ".." ? removeLast() : add(component);
    }
    void clear() {
        text_.clear();
        depth_ = 0;
    }
    std::uint64_t depth() const { return depth_; }
    const char* c_str() const { return text_.c_str(); }
    std::string text() const { return text_.empty() ? "/" : text_; }

private:
    std::string text_;
    std::uint64_t depth_ = 0;
};

}  // namespace

std::string withoutDots(const std::string& path) {
    Name name;
    std::size_t at = 0;
    for (auto component = nextOf(path, at); !component.empty(); component = nextOf(path, at)) name.add(component);
    return name.text();
}

std::string withoutParents(const std::string& path) {
    Name name;
    name.follow(path);
    return name.text();
}

bool mayFollowLinks(const std::string& path) {
    open_how how{};
    how.flags = O_PATH | O_CLOEXEC;
    how.resolve = RESOLVE_NO_SYMLINKS;
    const long opened = ::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
    if (opened >= 0) return ::close(static_cast<int>(opened)), false;
    return errno != ENOENT && errno != ENOTDIR && errno != EACCES && errno != ENAMETOOLONG;
}

std::string withoutLinks(const std::string& path, const Lookups& lookups) {
    Name name;
    std::string rest = path;
    std::size_t at = 0;
    int links = 0;
    std::array<char, PATH_MAX> target;
    while (true) {
        const std::string component(nextOf(rest, at));
        if (component.empty()) return name.text();
        if (component == "..") {
            name.removeLast();
            continue;
        }
        name.add(component);
        lookups(name.depth() + kOfCall);
        const ssize_t size = ::readlink(name.c_str(), target.data(), target.size());
        if (size < 0 && errno == EINVAL) continue;
        if (size < 0 && (errno == ENOENT || errno == ENOTDIR)) {
            name.follow(rest, at);
            return name.text();
        }
        if (size < 0 || ++links > kMaxLinks) break;
        rest = std::string(target.data(), static_cast<std::size_t>(size)) + "/" + rest.substr(at);
        at = 0;
        rest.starts_with('/') ? name.clear() : name.removeLast();
    }
    return withoutParents(path);
}

}  // namespace util
