#include "util/WriteAll.h"

#include <unistd.h>

#include <cerrno>

#include "util/BlockedSignals.h"

namespace util {
namespace {

template <class Write>
int writeEach(std::string_view bytes, Write write) {
    const BlockedSignals blocked;
    while (!bytes.empty()) {
        const ssize_t put = write(bytes);
        const int error = errno;
        if (put < 0 && error == EINTR) continue;
        if (put < 0) {
            blocked.takeBack();
            return error;
        }
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return 0;
}

}  // namespace

int writeAll(int file, std::string_view bytes) {
    return writeEach(bytes, [file](std::string_view left) { return ::write(file, left.data(), left.size()); });
}

int writeAllAt(int file, std::uint64_t offset, std::string_view bytes) {
    const std::uint64_t end = offset + bytes.size();
    return writeEach(bytes, [file, end](std::string_view left) {
        return ::pwrite(file, left.data(), left.size(), static_cast<off_t>(end - left.size()));
    });
}

}  // namespace util
