#include "Load.h"

#include <platform/PlatformRequests.h>

using teq_platform::HwMetadataMode;

HwMetadataMode modeOf(const Call& call) {
    const std::string mode = call.get("metadata");
    if (mode == "primary") return HwMetadataMode::PrimaryJsonOnly;
    if (mode == "xml") return HwMetadataMode::XmlOnly;
    return HwMetadataMode::Default;
}

teq_platform::requests::Repositories repositoriesOf(const Call& call) {
    return {.dirs = call.values("repo"), .withDefaults = !call.has("no-defaults")};
}

std::string platformFile(const std::string& fileOrName, const Call& call) {
    return teq_platform::requests::resolve(fileOrName, repositoriesOf(call));
}

std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call) {
    return teq_platform::requests::load(file, modeOf(call));
}

std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, teq_platform::Failure& failure) {
    try {
        return loaded(file, call);
    } catch (const HEXAll&) {
        failure = teq_platform::currentFailure();
        return nullptr;
    }
}
