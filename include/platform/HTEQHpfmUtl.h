#pragma once
#include <string>

#include "records/TEQHpfmLMX.h"
#include "text/ZrApi.h"

/// The repair of hpfm files: if some, but not all, of the memory banks that a linker may assign automatically are
/// marked as default banks ("preferred"), all of them are.
class ZR_API HTEQHpfmUtl {
public:
    /// Component reference of the bus interfaces of high-bandwidth memory.
    static constexpr const char* HBM_MEMORY_SUBSYSTEM = "hbm_memory_subsystem";

    /// Repairs the high-bandwidth memory of the file, which is replaced atomically, and only if a repair is needed.
    /// Leaves it unchanged and sends a message if it does not exist ("@74-12@"), is not valid ("@74-260@%s%s%s"), or
    /// another high-bandwidth memory follows the one that needs the repair ("@74-261@"). Throws `HXMLException` if
    /// the file cannot be written ("@74-10@%s", "@74-15@%s%s%s%s").
    static void ChangeAndWriteHpfmIfNeeded(const std::string& file);

    /// Considers only address segments whose `auto_` is set and not "false": whether at least one, but not all of
    /// them are "preferred".
    static bool areSomeButNotAllAddressSegmentsPreferred(const WELHardwarePlatform::BusInterface& interface);
    /// Marks all of these segments as "preferred".
    static void markAllTrueAddressSegmentsPreferred(WELHardwarePlatform::BusInterface& interface);
};
