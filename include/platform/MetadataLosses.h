#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;

namespace teq_platform {

/// The library writes metadata anew when it changes an archive, and does not hold all that other makers' documents
/// may say.
class ZR_API MetadataLosses {
public:
    /// What writing the platform's document would lose or change of the metadata that stands in `archive` now: a line
    /// for each, "devices[0].core.key: lost" or "key: old -> new"; empty when nothing is lost. Throws `HEXFileFault`
    /// when the archive cannot be read, `HEXDataException` when its member is no JSON.
    static HSTVector<std::string> find(const HPLPlatform& platform, const std::string& archive);
};

}  // namespace teq_platform
