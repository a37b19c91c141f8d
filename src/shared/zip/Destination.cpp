#include "zip/Destination.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <memory>
#include <optional>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/AtomicFile.h"
#include "util/HUTFile.h"
#include "util/WriteAll.h"
#include "zip/SourceFile.h"

namespace {

constexpr std::uint64_t kBlock = 256UL * 1024;

using Fill = std::function<void(const std::function<void(std::string_view)>&)>;

[[noreturn]] void fail(const std::string& path, int error) {
    throw HEXUserException("file '" + path + "' could not be written: " + std::generic_category().message(error));
}

/// The number in "/proc/self/fd/1"; no value for other texts.
std::optional<int> numberOf(std::string_view path) {
    for (const std::string_view folder : {"/proc/self/fd/", "/dev/fd/"}) {
        if (!path.starts_with(folder)) continue;
        path.remove_prefix(folder.size());
        int number = -1;
        const auto [end, error] = std::from_chars(path.data(), path.data() + path.size(), number);
        if (error == std::errc() && end == path.data() + path.size() && number >= 0) return number;
    }
    return std::nullopt;
}

/// A name in an open directory, which later steps use, whatever becomes of the path.
class Target {
public:
    Target(const std::string& path, bool mayReplace) : Target(path, mayReplace, AT_FDCWD, HUTFile::getParent(path)) {}
    /// `parent` is the directory of the path, relative to an open one.
    Target(const std::string& path, bool mayReplace, int directory, const std::string& parent)
        : path_(path),
          parent_(::openat(directory, parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          name_(path.substr(path.rfind('/') + 1)) {
        if (path.empty() || path.find('\0') != path.npos) fail(path, EINVAL);
        if (path.back() == '/') fail(path, EISDIR);
        if (!parent_.isOpen()) fail(path, errno);
        exists_ = ::fstatat(parent_.get(), name_.c_str(), &status_, AT_SYMLINK_NOFOLLOW) == 0;
        if (!exists_ && errno != ENOENT) fail(path, errno);
        if (exists_ && S_ISDIR(status_.st_mode)) fail(path, EISDIR);
        if (exists_ && !mayReplace) fail(path, EEXIST);  // even a pipe: somebody else may have made it just now
    }

    /// One of the process's own descriptors that it names, itself or by a link.
    std::optional<int> descriptor() const {
        if (const auto number = numberOf(path_)) return number;
        std::array<char, 64> text;
        const ssize_t size = ::readlinkat(parent_.get(), name_.c_str(), text.data(), text.size());
        return size < 0 ? std::nullopt : numberOf({text.data(), static_cast<std::size_t>(size)});
    }
    bool isStream() const {
        const bool isFileOrLink = !exists_ || S_ISREG(status_.st_mode) || S_ISLNK(status_.st_mode);
        return !isFileOrLink || descriptor();
    }

    /// The file, which is not committed yet; it must not outlive this object.
    std::unique_ptr<util::AtomicFile> makeFile(const Fill& fill) const {
        auto file = std::make_unique<util::AtomicFile>(parent_.get(), name_, path_, 0666);
        fill([&file](std::string_view bytes) { file->append(bytes); });
        return file;
    }

    /// Gives a file this name, and waits until the disk has it, as it has the bytes of what was edited. False if that
    /// cannot be done without copying the file.
    bool take(const std::string& from, bool mayReplace) const {
        if (isStream()) return false;
        const unsigned flags = mayReplace ? 0 : RENAME_NOREPLACE;
        if (::renameat2(AT_FDCWD, from.c_str(), parent_.get(), name_.c_str(), flags) != 0) return false;
        if (const int error = util::syncDirectory(parent_.get())) fail(path_, error);
        return true;
    }

    void writeStream(const Fill& fill) const {
        const auto own = descriptor();
        util::Descriptor stream(
            own ? ::fcntl(*own, F_DUPFD_CLOEXEC, 0)
                : ::openat(parent_.get(), name_.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY));
        struct stat opened {};
        if (!stream.isOpen() || ::fstat(stream.get(), &opened) != 0) fail(path_, errno);
        if (!own && S_ISREG(opened.st_mode)) fail(path_, EEXIST);  // it has taken the place of a device
        fill([&](std::string_view bytes) {
            if (const int error = util::writeAll(stream.get(), bytes)) fail(path_, error);
        });
        if (!stream.close()) fail(path_, errno);
    }

private:
    const std::string& path_;
    util::Descriptor parent_;
    std::string name_;
    bool exists_ = false;
    struct stat status_ {};
};

/// `file` must outlive it.
Fill filledFrom(const zip::SourceFile& file) {
    return [&file](const std::function<void(std::string_view)>& take) {
        std::string block;
        for (std::uint64_t at = 0; at < file.bytes().size(); at += block.size()) {
            block.resize(static_cast<std::size_t>(std::min(kBlock, file.bytes().size() - at)));
            if (!file.bytes().read(at, block.data(), block.size())) file.refuse("it cannot be read");
            take(block);
        }
    };
}

}  // namespace

void zip::writeDestination(const std::string& path, const Fill& fill, bool mayReplace) {
    const Target target(path, mayReplace);
    if (target.isStream()) return target.writeStream(fill);
    target.makeFile(fill)->commit(mayReplace);
}

void zip::writeDestinations(const DestinationText& first, const DestinationText& second, bool mayReplace) {
    const Target targets[] = {Target(first.path, mayReplace), Target(second.path, mayReplace)};
    const std::string_view texts[] = {first.bytes, second.bytes};
    std::unique_ptr<util::AtomicFile> files[2];
    const auto fill = [&texts](int i) { return [bytes = texts[i]](const auto& take) { take(bytes); }; };
    for (const int i : {0, 1})
        if (!targets[i].isStream()) files[i] = targets[i].makeFile(fill(i));
    for (const int i : {0, 1})
        if (!files[i]) targets[i].writeStream(fill(i));
    if (files[0] && files[1]) return files[0]->commitWith(*files[1], mayReplace);
    for (const auto& file : files)
        if (file) file->commit(mayReplace);
}

void zip::copyToDestination(const std::string& from, const std::string& path, bool mayReplace) {
    const SourceFile file(from);
    writeDestination(path, filledFrom(file), mayReplace);
}

void zip::copyIntoDirectory(const std::string& from, int directory, const std::string& path) {
    const SourceFile file(from);
    Target(path, false, directory, ".").makeFile(filledFrom(file))->commit(false);
}

void zip::moveToDestination(const std::string& from, const std::string& path, bool mayReplace) {
    if (!Target(path, mayReplace).take(from, mayReplace)) copyToDestination(from, path, mayReplace);
}

bool zip::isStream(const std::string& path) { return Target(path, true).isStream(); }
