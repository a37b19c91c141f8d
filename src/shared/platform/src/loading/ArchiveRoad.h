#pragma once
#include <string>

#include "platform/HwMetadataMode.h"

class HPLPlatform;

namespace loading {

/// Which members of the archive may fill the platform. Callers differ deliberately.
enum class Route {
    askFirst,        ///< the JSON member that the mode allows, else the XML member
    jsonOnly,        ///< the JSON member that the mode allows
    xmlOnly,         ///< the XML member
    emulationChild,  ///< the JSON member of the archive's emulation directory
};

/// The only way from an archive to the model. Throws `HEXFileFault`, after the reader's message, if the metadata is
/// missing or cannot be read; `platform` is then partly filled.
void fillFromArchive(HPLPlatform& platform, const std::string& archive, teq_platform::HwMetadataMode mode,
                     Route route);

}  // namespace loading
