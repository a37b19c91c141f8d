#include "platform/PlatformFileExtractor.h"

#include "hardware/PlatformFiles.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQHpfmUtl.h"
#include "util/HUTFile.h"

// Defined here and not with the model, because repairing an hpfm file needs its reader.

bool PlatformFileExtractor::extract(const std::string& member, const std::string& destination) const {
    return extract(member, platform_.getPlatformFile(), destination);
}

bool PlatformFileExtractor::extract(const std::string& member, const std::string& archive,
                                    const std::string& destination) const {
    if (!hardware::copyMember(archive, hardware::memberOf(platform_, member), destination)) return false;
    if (repairHpfm_ && HUTFile::getExt(destination) == "hpfm") HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(destination);
    return true;
}

bool HTEQHardwarePlatform::extractHPFMFile(const std::string& destination, bool repair) const {
    const std::string member = getFile("HPFM");
    return !member.empty() && PlatformFileExtractor(*this, repair).extract(member, destination);
}
