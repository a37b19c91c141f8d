#include "util/WholeFile.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "msg/SharedBudget.h"
#include "util/AtomicFile.h"
#include "util/Descriptor.h"
#include "util/HUTFile.h"
#include "util/SystemFault.h"

namespace wholefile {

namespace {

constexpr std::size_t kBlock = 64 * 1024;  ///< read at a time from a file that is larger than it said

[[noreturn]] void fail(const std::string& path, const char* action) {
    const int error = errno;
    util::noteSystemFault(path, error, action);
    const std::string reason = std::generic_category().message(error);
    throw HEXUserException(fmt::format("file '{}' cannot be {}: {}", path, action, reason));
}

}  // namespace

namespace {

std::string readFile(const std::string& path, std::size_t most, bool isCounted) {
    const util::Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat what {};
    if (!file.isOpen() || ::fstat(file.get(), &what) != 0) fail(path, "read");
    if (!S_ISREG(what.st_mode)) throw HEXUserException(fmt::format("'{}' is not a regular file", path));
    SharedBudget::addFile(what.st_dev, what.st_ino, static_cast<std::uint64_t>(what.st_size));
    if (const char* const why =
            isCounted ? Budget::refusal(Cost::bytes, static_cast<std::uint64_t>(what.st_size)) : nullptr)
        throw HEXUserException(fmt::format("file '{}' cannot be read: {}", path, why));
    // One byte more than the file's size, so that the end shows without another block.
    std::string bytes(std::min(static_cast<std::size_t>(what.st_size), most) + 1, '\0');
    for (std::size_t have = 0;;) {
        if (have == bytes.size()) bytes.resize(have + kBlock);
        const ssize_t n = ::read(file.get(), &bytes[have], bytes.size() - have);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) fail(path, "read");
        have += static_cast<std::size_t>(n);
        if (have > most) throw TooLarge(fmt::format("file '{}' is larger than {} bytes", path, most));
        if (n > 0) continue;
        bytes.resize(have);
        return bytes;
    }
}

}  // namespace

std::string read(const std::string& path, std::size_t most) { return readFile(path, most, false); }
std::string readCounted(const std::string& path, std::size_t most) { return readFile(path, most, true); }

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
