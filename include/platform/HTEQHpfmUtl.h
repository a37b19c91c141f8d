#pragma once
#include <string>

#include "records/TEQHpfmLMX.h"
#include "text/ZrApi.h"

/// The one repair of hpfm files: when some, but not all, of the memory banks that a linker may assign by itself are
/// marked as default banks ("preferred"), all of them become it.
class ZR_API HTEQHpfmUtl {
public:
    /// Component reference of the bus interfaces of high-bandwidth memory.
    static constexpr const char* HBM_MEMORY_SUBSYSTEM = "hbm_memory_subsystem";

    /// Repairs the high-bandwidth memory of the file, and replaces the file only when there was something to repair.
    /// The new file is written beside it and renamed. Leaves it alone, and sends a message, when it is not there
    /// ("@74-12@"), is not valid ("@74-260@%s%s%s"), or a further high-bandwidth memory follows the one that needs
    /// the repair ("@74-261@"). Throws `HXMLException` when the file cannot be written ("@74-10@%s",
    /// "@74-15@%s%s%s%s").
    static void ChangeAndWriteHpfmIfNeeded(const std::string& file);

    /// Both consider only the address segments of the interface whose `auto_` is set and is not "false". Whether at
    /// least one, but not all of them are "preferred".
    static bool areSomeButNotAllAddressSegmentsPreferred(const WELHardwarePlatform::BusInterface& interface);
    /// Makes all of them "preferred".
    static void markAllTrueAddressSegmentsPreferred(WELHardwarePlatform::BusInterface& interface);
};
