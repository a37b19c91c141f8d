#include "util/RemoveTree.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <cstring>

namespace util {

void removeAt(int directory, const char* name) {
    if (::unlinkat(directory, name, 0) == 0 || errno == ENOENT) return;
    if (::unlinkat(directory, name, AT_REMOVEDIR) == 0) return;  // needs no descriptor, of which there may be none
    removeContents(Descriptor(::openat(directory, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
    ::unlinkat(directory, name, AT_REMOVEDIR);
}

void removeContents(Descriptor directory) {
    DIR* const list = directory.isOpen() ? ::fdopendir(directory.get()) : nullptr;
    if (!list) return;
    const int opened = directory.release();
    while (const dirent* const entry = ::readdir(list))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            removeAt(opened, entry->d_name);
    ::closedir(list);
}

}  // namespace util
