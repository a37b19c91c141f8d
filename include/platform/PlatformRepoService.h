#pragma once
#include <string>
#include <vector>

#include "text/ZrApi.h"

namespace teq::platform {

/// Where platforms are found: the default repositories, the search path, and the descriptors that answer to a name. A
/// repository is a directory; a search path is a text of directories separated by ":".
class ZR_API PlatformRepoService {
public:
    virtual ~PlatformRepoService() = default;

    /// Appends the default repositories that exist, as canonical names: the system's, then `platforms` below each
    /// application root (`HUTEnv::getKELAppRootList`).
    virtual void getDefaultPlatformLookupDirs(std::vector<std::string>& dirs) const = 0;
    /// The search path of `dirs` and, after them, the default repositories: canonical names of those that are
    /// directories, each once.
    virtual std::string getPlatformRepoPath(const std::vector<std::string>& dirs, bool withDefaults) const = 0;
    /// The next operation for the directories of a search path, without the default repositories.
    virtual void getZdfFiles(const std::string& name, const std::string& path,
                             std::vector<std::string>& files) const = 0;
    /// Appends the paths of the descriptors whose name without ".zdf" is `name`, ignoring case; of all descriptors
    /// if `name` is empty. Searched are `dirs`, then the default repositories, each down to two levels of
    /// subdirectories, in the order of the file system; links to directories are followed. The extension must be in
    /// lower case. Each path begins with the directory as given and is appended once. If `name` is itself the path of
    /// an existing file with that extension in any case, only its canonical name is appended. What cannot be read is
    /// skipped, with a line "Exception: ..." on standard error.
    virtual void getZdfFiles(const std::string& name, const std::vector<std::string>& dirs, bool withDefaults,
                             std::vector<std::string>& files) const = 0;
};

}  // namespace teq::platform
