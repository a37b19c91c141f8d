#include "util/WholeFile.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/AtomicFile.h"
#include "util/Descriptor.h"
#include "util/HUTFile.h"
#include "util/SystemFault.h"

namespace wholefile {

namespace {

[[noreturn]] void fail(const std::string& path, const char* action) {
    const int error = errno;
    util::noteSystemFault(path, error, action);
    const std::string reason = std::generic_category().message(error);
    throw HEXUserException(fmt::format("file '{}' cannot be {}: {}", path, action, reason));
}

}  // namespace

std::string read(const std::string& path, std::size_t most) {
    const util::Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat what {};
    if (!file.isOpen() || ::fstat(file.get(), &what) != 0) fail(path, "read");
    if (!S_ISREG(what.st_mode)) throw HEXUserException(fmt::format("'{}' is not a regular file", path));
    std::string bytes;
    char block[64 * 1024];
    for (;;) {
        const ssize_t n = ::read(file.get(), block, sizeof block);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) fail(path, "read");
        if (n == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(n));
        if (bytes.size() > most) throw HEXUserException(fmt::format("file '{}' is larger than {} bytes", path, most));
    }
}

void replace(const std::string& path, std::string_view bytes) {
    const std::string target = HUTFile::getCanonicalName(path);
    const util::Descriptor old(::open(target.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY));
    if (!old.isOpen() && errno != ENOENT) fail(path, "written");
    util::AtomicFile made(target, 0600);
    made.write(0, bytes);
    if (old.isOpen())
        made.takeAttributes(old.get());
    else if (::fchmod(made.descriptor(), 0644) != 0)
        fail(path, "written");
    made.sync();
    made.commit();
}

}  // namespace wholefile
