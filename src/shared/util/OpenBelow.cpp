#include "util/OpenBelow.h"

#include <fcntl.h>

#include <string>

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
