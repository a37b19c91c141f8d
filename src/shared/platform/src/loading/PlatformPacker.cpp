#include "platform/PlatformPacker.h"

#include <memory>
#include <vector>

#include "archive/PlatformArchive.h"
#include "loading/ArchiveRoad.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "text/HSTStringUtils.h"
#include "zip/HUTZip.h"
#include "zip/Request.h"

namespace teq_platform {
namespace {

/// The files that the archive's metadata lists but the archive lacks.
std::vector<std::string> missingFiles(const std::string& archive) {
    const archive::PlatformArchive packed(archive);
    if (!packed.metadata(HwMetadataMode::Default)) return {};
    HPLPlatform platform;
    loading::fillFromArchive(platform, archive, HwMetadataMode::Default, loading::Route::askFirst);
    std::vector<std::string> missing;
    const std::unique_ptr<HSTFwdIter<HPLFile*>> files(platform.createFileVecIter());
    while (files->hasNext())
        if (const std::string& name = files->next()->getName(); !packed.lists(name)) missing.push_back(name);
    return missing;
}

void checkComplete(const std::string& archive, const std::string& folder) {
    const zip::Request request;
    std::vector<std::string> missing;
    try {
        missing = missingFiles(archive);
    } catch (const HEXFileFault& e) {
        HEXDiagnostic diagnostic = e.diagnostic();
        diagnostic.file = folder;  // the archive is not kept
        throw HEXFileFault(diagnostic);
    }
    if (!missing.empty())
        throw HEXFileFault(
            {.file = folder, .text = "the metadata lists missing files: " + HSTStringUtils::join(missing, ", ")});
}

}  // namespace

void PlatformPacker::pack(const std::string& folder, const std::string& archive, bool overwrite, bool mayLack) {
    HUTZip::compressDir(folder, archive, overwrite, [&](const std::string& made) {
        if (!mayLack) checkComplete(made, folder);
    });
}

}  // namespace teq_platform
