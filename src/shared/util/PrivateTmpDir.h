#pragma once
#include <optional>
#include <string>

#include "util/MadeDirectory.h"

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

/// A directory for the temporary files of one call: in the host's directory, if it has set one, otherwise in
/// `TMPDIR` or /tmp. Nothing is kept for the next call, so that a process that ends by `_exit` leaves nothing.
class ScratchDirectory : public MadeDirectory {
public:
    ScratchDirectory();
};

}  // namespace util
