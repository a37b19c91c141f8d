#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "util/Descriptor.h"

namespace util {

/// The file that is going to take another's place: it is made beside it, and until it takes its name nothing of
/// the other changes. Its own name is ".zr-edit-" and numbers, with the other's extension, and it is locked
/// (flock) while its maker lives, so that what a killed one leaves can be told, and is removed by the next. Throws
/// `HEXUserException`.
class Successor {
public:
    /// `target` is the path that it will have; what is there, a link too, is replaced. `mode` as `open` takes it.
    Successor(std::string target, mode_t mode);
    /// Removes what did not take its place.
    ~Successor();
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    std::string path() const;
    void write(std::uint64_t offset, std::string_view bytes);
    /// Open to be read too; stays this object's.
    int descriptor() const { return file_.get(); }
    /// Where that is not permitted the file stays its maker's.
    void takeModeAndOwner(const struct stat& of);
    /// Waits until the disk has the bytes.
    void sync();
    /// Waits until the disk has the name too. Removes what killed ones have left in the directory.
    void takePlace(bool mayReplace = true);

private:
    void make(mode_t mode);
    [[noreturn]] void fail(int error) const;

    std::string target_, name_;
    Descriptor directory_, file_;
    std::uint64_t begun_ = 0;  ///< what lies before has been handed to the disk
    bool isMade_ = false;
};

}  // namespace util
