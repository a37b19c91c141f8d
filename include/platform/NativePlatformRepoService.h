#pragma once
#include "platform/PlatformRepoService.h"

namespace teq::platform {

/// The repositories on disk. It keeps no state: each call reads the directories again.
class ZR_API NativePlatformRepoService : public PlatformRepoService {
public:
    void getDefaultPlatformLookupDirs(std::vector<std::string>& dirs) const override;
    std::string getPlatformRepoPath(const std::vector<std::string>& dirs, bool withDefaults) const override;
    void getZdfFiles(const std::string& name, const std::string& path,
                     std::vector<std::string>& files) const override;
    void getZdfFiles(const std::string& name, const std::vector<std::string>& dirs, bool withDefaults,
                     std::vector<std::string>& files) const override;

private:
    static void addIfExists_(const std::string& dir, std::vector<std::string>& dirs);
    static void splitToFullDirs_(const std::string& path, std::vector<std::string>& dirs);
};

}  // namespace teq::platform
