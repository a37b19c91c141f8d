#include "loading/ArchiveRoad.h"

#include "platform/HTEQCfaJsonReader.h"
#include "platform/HTEQCfaXmlReader.h"

namespace loading {

bool fillFromArchive(HPLPlatform& platform, const std::string& archive, teq_platform::HwMetadataMode mode,
                     Route route) {
    HTEQCfaJsonReader reader(&platform);
    switch (route) {
        case Route::askFirst: {
            std::string member;
            if (reader.canParse(archive, mode, member)) return reader.parseCFA(archive, mode);
            return HTEQCfaXmlReader(archive, &platform).parseCFA();
        }
        case Route::jsonOnly: return reader.parseCFA(archive, mode);
        case Route::emulationChild: return reader.parseHwEmuLFA(archive, mode);
    }
    return false;
}

}  // namespace loading
