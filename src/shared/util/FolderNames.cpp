#include "util/FolderNames.h"

#include <dirent.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>

#include "msg/HEXAll.h"

std::vector<std::string> folderNames(const std::string& folder) {
    const auto fail = [&folder](int error) {
        throw HEXUserException("folder '" + folder +
                               "' could not be read: " + std::generic_category().message(error));
    };
    const std::unique_ptr<DIR, int (*)(DIR*)> list(::opendir(folder.c_str()), ::closedir);
    if (!list) fail(errno);
    std::vector<std::string> names;
    for (errno = 0; const dirent* const entry = ::readdir(list.get()); errno = 0) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    if (errno != 0) fail(errno);
    return names;
}
