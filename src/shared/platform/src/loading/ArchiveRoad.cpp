#include "loading/ArchiveRoad.h"

#include "platform/HTEQCfaJsonReader.h"
#include "platform/HTEQCfaXmlReader.h"

namespace loading {

void fillFromArchive(HPLPlatform& platform, const std::string& archive, teq_platform::HwMetadataMode mode,
                     Route route) {
    HTEQCfaJsonReader reader(&platform);
    switch (route) {
        case Route::askFirst: {
            std::string member;
            if (reader.canParse(archive, mode, member)) return reader.readCFA(archive, mode);
            return HTEQCfaXmlReader(archive, &platform).readCFA(mode);
        }
        case Route::jsonOnly: return reader.readCFA(archive, mode);
        case Route::xmlOnly: return HTEQCfaXmlReader(archive, &platform).readCFA(mode);
        case Route::emulationChild: return reader.readHwEmuLFA(archive, mode);
    }
}

}  // namespace loading
