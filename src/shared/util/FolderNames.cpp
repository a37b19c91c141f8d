#include "util/FolderNames.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>

#include "msg/HEXAll.h"
#include "util/Descriptor.h"

namespace {

[[noreturn]] void fail(const std::string& folder, int error) {
    throw HEXUserException("folder '" + folder + "' could not be read: " + std::generic_category().message(error));
}

}  // namespace

std::vector<std::string> folderNames(int folder, const std::string& shown) {
    util::Descriptor own(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> list(own.isOpen() ? ::fdopendir(own.get()) : nullptr, ::closedir);
    if (!list) fail(shown, errno);
    own.release();
    std::vector<std::string> names;
    for (errno = 0; const dirent* const entry = ::readdir(list.get()); errno = 0) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    if (errno != 0) fail(shown, errno);
    return names;
}

std::vector<std::string> folderNames(const std::string& folder) {
    const util::Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen()) fail(folder, errno);
    return folderNames(opened.get(), folder);
}
