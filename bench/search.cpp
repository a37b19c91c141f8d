// A repository by the library: find DIR | registry DIR | loads DIR (each platform alone, as the registry's yardstick).
#include <platform/HTEQPlatformMgr.h>
#include <platform/NativePlatformRepoService.h>
#include <platform/PlatformLoader.h>
#include <platform/PlatformSearch.h>

#include <cstdio>
#include <string>

int main(int, char** arguments) {
    const std::string way = arguments[1], directory = arguments[2];
    std::size_t found = 0;
    if (way == "find") {
        found =
            teq_platform::requests::find({.where = {.dirs = {directory}, .withDefaults = false}}).platforms.size();
    } else if (way == "registry") {
        HTEQPlatformMgr manager;
        manager.addPlatformsFromDirs({directory});
        found = manager.getNumPlatforms();
    } else {
        std::vector<std::string> files;
        teq::platform::NativePlatformRepoService().getZdfFiles("", {directory}, false, files);
        std::vector<std::shared_ptr<HTEQPlatform>> kept;
        for (const std::string& file : files)
            kept.push_back(teq_platform::PlatformLoader(file, teq_platform::HwMetadataMode::Default).load());
        found = kept.size();
    }
    std::printf("%zu\n", found);
}
