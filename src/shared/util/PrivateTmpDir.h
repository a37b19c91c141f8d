#pragma once
#include <optional>
#include <string>

/// Directories for temporary files. Functions that make one throw `HEXUserException`.
namespace util {

/// The host's directory, if it has set one, otherwise one for the calling thread only, in the private directory of the
/// process. Each call checks that both are still the directories that this process made, with mode 0700; otherwise
/// they are made anew.
std::string tmpDir();
/// The same, if there is one already.
std::optional<std::string> madeTmpDir();
/// An empty text means none.
void setHostTmpDir(std::string directory);

/// A directory for the temporary files of one call, with mode 0700, which is removed with its contents: in the host's
/// directory, if it has set one, otherwise in `TMPDIR` or /tmp. Nothing is kept for the next call, so that a process
/// that ends by `_exit` leaves nothing.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace util
