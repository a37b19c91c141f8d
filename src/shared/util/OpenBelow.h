#pragma once
#include <sys/types.h>

#include <string_view>

#include "util/Descriptor.h"

namespace util {

/// Opens what has the relative path `path`, of parts between single "/", below an open directory. No link is followed
/// on the way, and it does not block, as on a pipe. An empty path is the directory itself. Closed on errors, see
/// `errno`.
Descriptor openBelow(int directory, std::string_view path, int flags);
/// The same for a directory (O_PATH), which is made if it is missing, as are those on the way.
Descriptor makeBelow(int directory, std::string_view path, mode_t mode);

}  // namespace util
