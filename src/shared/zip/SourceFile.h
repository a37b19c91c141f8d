#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "zip/FileBytes.h"

namespace zip {

/// A file whose bytes will become a member: opened once, so that the file that was checked is the one that is read.
/// Never blocks, as on a pipe. Throws `HEXUserException`.
class SourceFile {
public:
    /// Only a regular file can be opened.
    explicit SourceFile(std::string path);
    /// The same for a file below an open folder; no link on the way is followed. `shown` is its path in messages.
    SourceFile(int folder, std::string_view path, std::string shown);

    const std::string& path() const { return path_; }
    const FileBytes& bytes() const { return *bytes_; }
    [[noreturn]] void refuse(const std::string& text) const;
    /// Throws if the file has been changed since it was opened.
    void checkUnchanged() const;

private:
    std::string path_;
    std::unique_ptr<FileBytes> bytes_;
};

}  // namespace zip
