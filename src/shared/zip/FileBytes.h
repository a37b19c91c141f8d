#pragma once
#include <sys/stat.h>

#include <memory>
#include <string>

#include "util/Descriptor.h"
#include "zip/ByteSource.h"

namespace zip {

/// Distinguishes the states of a file.
struct FileStamp {
    dev_t device{};
    ino_t inode{};
    off_t size{};
    timespec changed{};

    explicit FileStamp(const struct stat& status);
    bool operator==(const FileStamp& other) const;
};

/// A regular file, opened once: these are the bytes of the file that was opened, even if its path is replaced later.
class FileBytes final : public ByteSource {
public:
    /// Throws `ArchiveError`: missing, not permitted, or not a regular file. Never blocks, as on a pipe.
    explicit FileBytes(const std::string& path);
    /// Opens a file that will be replaced; requires write permission on it.
    static std::unique_ptr<FileBytes> openForChange(const std::string& path);
    /// For an open file.
    explicit FileBytes(util::Descriptor descriptor);
    /// A new file without a name; `append` fills it. Throws `HEXUserException`.
    static std::unique_ptr<FileBytes> makeTemporary();
    std::uint64_t size() const override { return static_cast<std::uint64_t>(stamp_.size); }
    bool read(std::uint64_t offset, char* target, std::size_t count) const override;
    const FileStamp& stamp() const { return stamp_; }
    int descriptor() const { return descriptor_.get(); }
    /// Whether the file is unchanged since it was opened.
    bool isAsOpened() const;

    /// Appends to a file made by `makeTemporary`. Throws `HEXUserException`.
    void append(const char* bytes, std::size_t count);

private:
    util::Descriptor descriptor_;
    FileStamp stamp_;
};

}  // namespace zip
