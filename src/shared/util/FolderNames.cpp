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

std::vector<std::string> folderNames(int folder, const std::string& shown, std::size_t most) {
    util::Descriptor own(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> list(own.isOpen() ? ::fdopendir(own.get()) : nullptr, ::closedir);
    if (!list) fail(shown, errno);
    own.release();
    std::vector<std::string> names;
    while (names.size() < most) {
        errno = 0;
        const dirent* const entry = ::readdir(list.get());
        if (!entry && errno != 0) fail(shown, errno);
        if (!entry) break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

std::vector<std::string> folderNames(const std::string& folder, std::size_t most) {
    const util::Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen()) fail(folder, errno);
    return folderNames(opened.get(), folder, most);
}
