#include "util/OpenBelow.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>

#include "msg/Budget.h"

util::Descriptor util::openBelow(int directory, std::string_view path, int flags) {
    constexpr int kNever = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor at;
    for (;;) {
        const int from = at.isOpen() ? at.get() : directory;
        const auto end = path.find('/');
        const std::string part(path.empty() ? "." : path.substr(0, end));
        if (end == path.npos) return Descriptor(::openat(from, part.c_str(), flags | kNever));
        at = Descriptor(::openat(from, part.c_str(), O_PATH | O_DIRECTORY | kNever));
        if (!at.isOpen()) return at;
        path.remove_prefix(end + 1);
    }
}

util::Descriptor util::makeBelow(int directory, std::string_view path, mode_t mode) {
    constexpr int kDirectory = O_PATH | O_DIRECTORY | O_CLOEXEC;
    Descriptor at(::openat(directory, ".", kDirectory));
    while (at.isOpen() && !path.empty()) {
        const auto end = path.find('/');
        const std::string part(path.substr(0, end));
        const auto open = [&] { return Descriptor(::openat(at.get(), part.c_str(), kDirectory | O_NOFOLLOW)); };
        // Opened first: of the hundreds of levels that a path may have, most are there.
        Descriptor next = open();
        if (!next.isOpen() && errno == ENOENT) {
            const bool isMade = ::mkdirat(at.get(), part.c_str(), mode) == 0;
            if (isMade) Budget::spend(Cost::inodes);
            if (isMade || errno == EEXIST) next = open();
        }
        at = std::move(next);
        path.remove_prefix(end == path.npos ? path.size() : end + 1);
    }
    return at;
}
