#pragma once
#include <memory>
#include <string>

#include "zip/FileBytes.h"

namespace zip {

/// A file whose bytes are going to be a member: opened once, so that what was looked at is what is read. Never waits,
/// as on a pipe. Throws `HEXUserException`.
class SourceFile {
public:
    /// Only a regular file can be opened.
    explicit SourceFile(std::string path);

    const std::string& path() const { return path_; }
    const FileBytes& bytes() const { return *bytes_; }
    [[noreturn]] void refuse(const std::string& text) const;
    /// Throws when the file was written to since it was opened.
    void checkUnchanged() const;

private:
    std::string path_;
    std::unique_ptr<FileBytes> bytes_;
};

}  // namespace zip
