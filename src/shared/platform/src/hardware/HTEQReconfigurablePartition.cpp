#include "platform/HTEQReconfigurablePartition.h"

#include "platform/HTEQHardwarePlatform.h"
#include "platform/JSONWriter.h"

void HTEQReconfigurablePartition::toJSON(teq_platform::JSONObjectWriter& writer) const {
    writer.addKey("id", id_);
    writer.addKey("hardwarePlatform", hardwarePlatform_);
    if (hasDistinctHardwareEmulationPlatform()) writer.addKey("hwEmuPlatform", hardwareEmulationPlatform_);
}
