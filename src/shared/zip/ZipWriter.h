#pragma once
#include <memory>
#include <string>

/// Makes one new archive from files. Members have the attributes 0644 (directories 0755), the time 1980-01-01 00:00
/// and deflate level 6, so that equal files under equal names give equal bytes. Stands outside of the namespace
/// `zip`, which the writing library's own header does not bear. Throws `HEXUserException`.
class ZipWriter {
public:
    /// Nothing may be at `path`.
    explicit ZipWriter(std::string path);
    /// Leaves nothing at the path unless `close` has come to its end.
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    /// The file's bytes are read in `close`.
    void addFile(const std::string& member, const std::string& file);
    /// `member` ends in "/".
    void addDirectory(const std::string& member);
    /// Writes the archive, and waits until the disk has it.
    void close();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};
