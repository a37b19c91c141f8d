#pragma once
#include <functional>
#include <optional>

#include "zip/SourceFile.h"

namespace zip {

/// A file that is open only while it is read: more files can become members than can be open at once.
class LateFile final : public ByteSource {
public:
    using Open = std::function<SourceFile()>;

    /// Calls `open` to see the file's size, and again to read it.
    explicit LateFile(Open open);

    std::uint64_t size() const override { return static_cast<std::uint64_t>(stamp_.size); }
    /// Throws `HEXUserException` if the file cannot be read, or was changed since it was opened first.
    bool read(std::uint64_t offset, char* target, std::size_t count) const override;
    const FileStamp& stamp() const { return stamp_; }

private:
    Open open_;
    FileStamp stamp_;
    mutable std::optional<SourceFile> file_;
};

}  // namespace zip
