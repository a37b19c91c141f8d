#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "util/Descriptor.h"

namespace util {

/// A file that appears whole or not at all: it is written under a temporary name in the directory of its target, and
/// nothing at the target changes before `commit`. The temporary name is ".zr-edit-" and numbers, with a short
/// extension of the target, and the file is locked (flock) as long as its writer lives, so that leftovers of a killed
/// process are recognised and removed by the next synced commit. Throws `HEXUserException`.
class AtomicFile {
public:
    /// An existing file or link at `target` is replaced. `mode` as for `open`.
    AtomicFile(std::string target, mode_t mode);
    /// The same for `name`, which has no separator, in an open directory, which the caller still owns; `shown` is its
    /// path in messages.
    AtomicFile(int directory, std::string name, std::string shown, mode_t mode);
    /// Removes the file unless it was committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// The temporary path, of a file that was made by its path.
    std::string path() const;
    void write(std::uint64_t offset, std::string_view bytes);
    void append(std::string_view bytes) { write(size_, bytes); }
    /// Open to be read too; stays this object's.
    int descriptor() const { return file_.get(); }
    /// Takes owner, mode, access control list and extended attributes of an open file (`util::copyAttributes`).
    void takeAttributes(int of);
    /// Waits until the disk has the bytes; `commit` then waits until it has the name.
    void sync();
    /// Puts the file at its target. Without `mayReplace`, anything that has the name is an error; with it, anything
    /// except a regular file or a link, which is replaced itself.
    void commit(bool mayReplace = true);
    /// Commits this file and `other`, which are not synced. If the second fails, the first is taken back; what it has
    /// replaced returns if the file system can exchange two files.
    void commitWith(AtomicFile& other, bool mayReplace);

private:
    void close();
    void checkTarget(bool mayReplace) const;
    void make(mode_t mode, const std::string& extension);
    int rename(bool mayReplace) const;
    bool exchange() const;
    [[noreturn]] void fail(int error) const;
    [[noreturn]] void fail(const std::string& reason) const;

    Descriptor parent_;  ///< of a target that was given by its path
    int directory_;
    std::string name_, shown_, temporary_;
    Descriptor file_;
    std::uint64_t size_ = 0;     ///< end of what was written
    std::uint64_t flushed_ = 0;  ///< what lies before has been handed to the disk
    bool isMade_ = false, isSynced_ = false;
};

/// Waits until the disk has the names in an open directory; the descriptor may be one with O_PATH. Returns 0 or the error
/// number; 0 as well for a directory that one may write to and not read, which cannot be waited for.
int syncDirectory(int directory);

}  // namespace util
