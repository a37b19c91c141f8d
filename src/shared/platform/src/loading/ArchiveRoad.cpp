#include "loading/ArchiveRoad.h"

#include "platform/HTEQCfaJsonReader.h"

namespace loading {

bool fillFromArchive(HPLPlatform& platform, const std::string& archive, teq_platform::HwMetadataMode mode,
                     Route route) {
    HTEQCfaJsonReader reader(&platform);
    switch (route) {
        case Route::askFirst: {
            std::string member;
            return reader.canParse(archive, mode, member) && reader.parseCFA(archive, mode);
        }
        case Route::jsonOnly: return reader.parseCFA(archive, mode);
        case Route::emulationChild: return reader.parseHwEmuLFA(archive, mode);
    }
    return false;
}

}  // namespace loading
