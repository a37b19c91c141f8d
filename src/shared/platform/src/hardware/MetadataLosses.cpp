#include "platform/MetadataLosses.h"

#include "archive/Request.h"
#include "hardware/PlatformText.h"
#include "json/JsonChanges.h"
#include "platform/HPLPlatform.h"

namespace teq_platform {

HSTVector<std::string> MetadataLosses::find(const HPLPlatform& platform, const std::string& archive) {
    const std::string member = platform.getJsonFileName(), alternative = platform.getAltJsonFileName();
    const auto source = archive::open(archive);
    if (source->contains(alternative))
        return {"the member " + alternative + " stays as it is, and is read before " + member};
    const auto before = source->read(member);
    if (!before)
        return {"the metadata is XML only: a new member " + member + " would be read in the place of " +
                platform.getXmlFileName()};
    const bool writesFile = platform.writesPlatformFile();
    HSTVector<std::string> found = json::lostOrChanged(
        *before, hardware::textOf(platform, &platform, archive, writesFile ? "" : "platformFile"));
    if (!writesFile)
        std::erase_if(found, [](const std::string& change) { return change.starts_with("platformFile: "); });
    return found;
}

}  // namespace teq_platform
