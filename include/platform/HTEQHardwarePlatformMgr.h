#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;
class HTEQHardwarePlatform;

/// Finds and reads hardware archives. Platforms are read from the JSON member, else from the XML member.
class ZR_API HTEQHardwarePlatformMgr {
public:
    /// The platform of an archive, which the caller deletes; null, after the readers' messages, if it cannot be read.
    static HPLPlatform* addPlatform(const std::string& file);
    /// Appends the platforms of all archives in the directories and below them, except those that a descriptor
    /// `../NAME.zdf` names by the archive's own name. The caller deletes them. Links to directories are not followed.
    /// Of platforms with the same VBNV the first is used, and each later one is reported: "@74-17@%s%s%s", or with
    /// `flag` "@74-23@%s". A platform already in `out` with the unique name of a new one is taken out of it, and
    /// stays its owner's to delete.
    static void addPlatformsFromDirs(const HSTVector<std::string>& dirs, HSTVector<HTEQHardwarePlatform*>& out,
                                     bool flag);
};
