#include "zip/Destination.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/AtomicFile.h"
#include "util/HUTFile.h"

namespace {

using Fill = std::function<void(const std::function<void(std::string_view)>&)>;

[[noreturn]] void fail(const std::string& path, int error) {
    throw HEXUserException("file '" + path + "' could not be written: " + std::generic_category().message(error));
}

void writeStream(const std::string& path, const Fill& fill) {
    util::Descriptor stream(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (!stream.isOpen()) fail(path, errno);
    fill([&](std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t put = ::write(stream.get(), bytes.data(), bytes.size());
            if (put < 0 && errno != EINTR) fail(path, errno);
            if (put > 0) bytes.remove_prefix(static_cast<std::size_t>(put));
        }
    });
    if (!stream.close()) fail(path, errno);
}

void writeFile(const std::string& path, const Fill& fill, bool mayReplace) {
    const std::string target = HUTFile::getCanonicalName(path);  // for a link, its target is replaced
    const std::string directory = HUTFile::getParent(target);
    const util::Descriptor parent(::open(directory.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!parent.isOpen()) fail(path, errno);
    util::AtomicFile file(parent.get(), target.substr(target.rfind('/') + 1), path, 0666);
    fill([&file](std::string_view bytes) { file.append(bytes); });
    file.commit(mayReplace);
}

}  // namespace

void zip::writeDestination(const std::string& path, const Fill& fill, bool mayReplace) {
    if (path.empty() || path.find('\0') != std::string::npos) fail(path, EINVAL);
    struct stat status {};
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if ((exists && S_ISDIR(status.st_mode)) || path.back() == '/') fail(path, EISDIR);
    if (exists && S_ISREG(status.st_mode) && !mayReplace) fail(path, EEXIST);
    if (exists && !S_ISREG(status.st_mode))
        writeStream(path, fill);
    else
        writeFile(path, fill, mayReplace);
}
