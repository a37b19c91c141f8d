#include "repository/DirectoryWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "util/Descriptor.h"

namespace repository {
namespace {

std::string joined(const std::string& directory, const std::string& name) {
    return directory.ends_with('/') ? directory + name : directory + "/" + name;
}

[[noreturn]] void fail(const std::string& path) {
    throw HEXUserException("directory '" + path + "' cannot be read: " + std::generic_category().message(errno));
}

struct Named {
    std::string name;
    unsigned char type;  ///< DT_...
};

/// A directory that is being walked: all its entries were read when it was entered, so that only one is open at a time.
struct Level {
    std::string path;
    bool isLinked;  ///< whether the way to it follows a link
    std::optional<std::pair<dev_t, ino_t>> identity = {};
    std::vector<Named> entries = {};
    std::size_t next = 0;

    /// Asked for only where a link has been followed: without one no way leads back.
    const std::pair<dev_t, ino_t>& identify() {
        struct stat status {};
        if (!identity && ::stat(path.c_str(), &status) != 0) fail(path);
        if (!identity) identity.emplace(status.st_dev, status.st_ino);
        return *identity;
    }
};

class Walk {
public:
    Walk(const WalkRules& rules, const Visitor& visitor) : rules_(rules), visitor_(visitor) {}

    void run(const std::string& directory) {
        enter(directory, false);
        while (!levels_.empty()) {
            Level& level = levels_.back();
            if (level.next == level.entries.size())
                levels_.pop_back();
            else
                visit(level.path, level.entries[level.next++]);
        }
    }

private:
    /// Runs `step`; its failure is reported for `path`.
    template <class Step>
    void reporting(const std::string& path, const Step& step) {
        try {
            step();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& e) {
            visitor_.failed(path, e);
        }
    }

    void enter(const std::string& path, bool isLink) {
        if (levels_.size() == rules_.maxLevels) return visitor_.skipped(path, Skip::tooDeep);
        reporting(path, [&] {
            const int links = rules_.followsLinks || levels_.empty() ? 0 : O_NOFOLLOW;
            const util::Descriptor opened(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | links));
            if (!opened.isOpen()) fail(path);
            Level level{path, isLink || (!levels_.empty() && levels_.back().isLinked)};
            if (level.isLinked && std::any_of(levels_.begin(), levels_.end(),
                                              [&](Level& passed) { return passed.identify() == level.identify(); }))
                return visitor_.skipped(path, Skip::loop);
            read(opened.get(), level);
            levels_.push_back(std::move(level));
        });
    }

    void read(int directory, Level& level) {
        for (;;) {
            const ssize_t size = ::getdents64(directory, buffer_, sizeof buffer_);
            if (size < 0) fail(level.path);
            if (size == 0) return;
            for (ssize_t at = 0; at < size;) {
                const auto* const entry = reinterpret_cast<const dirent64*>(buffer_ + at);
                at += entry->d_reclen;
                if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
                if (++count_ > kMaxEntries) {
                    levels_.clear();
                    throw HEXUserException("directory '" + level.path + "': the search has met more than " +
                                           std::to_string(kMaxEntries) + " entries");
                }
                level.entries.push_back({entry->d_name, entry->d_type});
            }
        }
    }

    /// `level` and `named` are gone after `enter`.
    void visit(const std::string& directory, const Named& named) {
        unsigned char type = named.type;
        bool isLink = type == DT_LNK;
        if (type == DT_UNKNOWN || type == DT_LNK) {
            const std::string path = joined(directory, named.name);
            struct stat status {};
            if (type == DT_UNKNOWN && ::lstat(path.c_str(), &status) != 0) return;  // gone
            isLink = isLink || S_ISLNK(status.st_mode);
            if (isLink && ::stat(path.c_str(), &status) != 0) return visitor_.skipped(path, Skip::brokenLink);
            type = IFTODT(status.st_mode);
            if (isLink && type == DT_DIR && !rules_.followsLinks) return;
        }
        if (type == DT_DIR) return enter(joined(directory, named.name), isLink);
        const Entry entry{directory, named.name, type == DT_REG};
        reporting(directory, [&] { visitor_.file(entry); });
    }

    const WalkRules& rules_;
    const Visitor& visitor_;
    std::vector<Level> levels_;
    std::size_t count_ = 0;
    alignas(dirent64) char buffer_[32 * 1024];
};

}  // namespace

std::string Entry::path() const { return joined(directory, name); }

std::string Entry::descriptorPath() const {
    constexpr std::string_view kExtension = ".zdf";
    if (name.size() <= kExtension.size() || !name.ends_with(kExtension)) return {};
    std::string text = path();
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

void walk(const std::string& directory, const WalkRules& rules, const Visitor& visitor) {
    std::make_unique<Walk>(rules, visitor)->run(directory);
}

}  // namespace repository
