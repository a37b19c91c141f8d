#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "util/Descriptor.h"

namespace util {

/// Atomic replacement of a file: the new file is written beside the old one, which does not change until the new one
/// takes its name. The temporary name is ".zr-edit-" and numbers, with the target's extension. The file is locked
/// (flock) while its writer runs, so that leftovers of a killed process are recognised and removed by the next run.
/// Throws `HEXUserException`.
class Successor {
public:
    /// `target`: the final path; an existing file or link is replaced. `mode` as for `open`.
    Successor(std::string target, mode_t mode);
    /// Removes the file if it has not taken the target's name.
    ~Successor();
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;

    std::string path() const;
    void write(std::uint64_t offset, std::string_view bytes);
    /// Also open for reading; owned by this object.
    int descriptor() const { return file_.get(); }
    /// If that is not permitted, the owner does not change.
    void takeModeAndOwner(const struct stat& of);
    /// Waits until the bytes are on the disk.
    void sync();
    /// Waits until the name is on the disk too. Removes leftovers of killed processes in the directory.
    void takePlace(bool mayReplace = true);

private:
    void make(mode_t mode);
    [[noreturn]] void fail(int error) const;

    std::string target_, name_;
    Descriptor directory_, file_;
    std::uint64_t begun_ = 0;  ///< writing the bytes before it has been started
    bool isMade_ = false;
};

}  // namespace util
