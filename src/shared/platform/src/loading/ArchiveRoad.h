#pragma once
#include <string>

#include "platform/HwMetadataMode.h"

class HPLPlatform;

namespace loading {

/// Which members of the archive may fill the platform; callers differ on purpose.
enum class Route {
    askFirst,        ///< the JSON member that the mode allows, else the XML member
    jsonOnly,        ///< the JSON member that the mode allows
    emulationChild,  ///< the JSON member of the archive's emulation directory
};

/// The one road from an archive to the model. False when the metadata is missing or cannot be read; what is wrong has
/// then been sent as a message, and `platform` is half filled.
bool fillFromArchive(HPLPlatform& platform, const std::string& archive, teq_platform::HwMetadataMode mode,
                     Route route);

}  // namespace loading
