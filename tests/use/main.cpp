#include <cstdio>

#include <platform/HTEQHardwarePlatform.h>
#include <platform/PlatformLoader.h>

int main(int, char** arguments) {
    using teq_platform::PlatformLoader;
    const auto platform = PlatformLoader(arguments[1], PlatformLoader::HwMetadataMode::Default).load();
    if (!platform) return 1;
    std::printf("%s %s\n", platform->getName().c_str(), platform->getHardwarePlatform()->getPartName().c_str());
    return 0;
}
