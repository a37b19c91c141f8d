#pragma once
#include <sys/stat.h>

#include <memory>
#include <string>

#include "util/Descriptor.h"
#include "zip/ByteSource.h"

namespace zip {

/// What tells one state of a file from another.
struct FileStamp {
    dev_t device{};
    ino_t inode{};
    off_t size{};
    timespec changed{};

    explicit FileStamp(const struct stat& status);
    bool operator==(const FileStamp& other) const;
};

/// A regular file, opened once: whatever its path comes to name later, these are the bytes of the file that was
/// opened.
class FileBytes final : public ByteSource {
public:
    /// Throws `ArchiveError`: missing, not permitted, or not a regular file. Never waits, as on a pipe.
    explicit FileBytes(const std::string& path);
    /// The same for a file that is going to be replaced, whose own permission to be written counts then.
    static std::unique_ptr<FileBytes> openForChange(const std::string& path);
    /// Of a file that is open already.
    explicit FileBytes(util::Descriptor descriptor);
    /// A new file without a name, in the thread's temporary directory; `write` fills it. Throws `HEXUserException`.
    static std::unique_ptr<FileBytes> makeTemporary();
    std::uint64_t size() const override { return static_cast<std::uint64_t>(stamp_.size); }
    bool read(std::uint64_t offset, char* target, std::size_t count) const override;
    const FileStamp& stamp() const { return stamp_; }
    int descriptor() const { return descriptor_.get(); }
    /// Whether the file is still in the state in which it was opened.
    bool isAsOpened() const;

    /// Appends to a file that `makeTemporary` made. Throws `HEXUserException`.
    void append(const char* bytes, std::size_t count);

private:
    util::Descriptor descriptor_;
    FileStamp stamp_;
};

}  // namespace zip
