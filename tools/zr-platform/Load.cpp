#include "Load.h"

#include <msg/HEXFileFault.h>
#include <platform/PlatformLoader.h>

using teq_platform::HwMetadataMode;

HwMetadataMode modeOf(const Call& call) {
    const std::string mode = call.get("metadata");
    if (mode == "primary") return HwMetadataMode::PrimaryJsonOnly;
    if (mode == "xml") return HwMetadataMode::XmlOnly;
    return HwMetadataMode::Default;
}

std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call) {
    return teq_platform::PlatformLoader::open(file, modeOf(call));
}

std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, Problem& problem) {
    try {
        return loaded(file, call);
    } catch (const HEXFileNotFoundException&) {
        problem = Problem::of(Exit::input, file, "no such file");
    } catch (const HEXFileFault& e) {
        problem = Problem::of(e.problem());
    }
    return nullptr;
}
