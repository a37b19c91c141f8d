#include "platform/HTEQPlatformXMLReader.h"

#include <fmt/core.h>

#include <memory>

#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "msg/Printed.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "readers/Bindings.h"
#include "readers/DescriptorRules.h"
#include "readers/Reading.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

namespace {

using readers::archiveOf;
using readers::partitionId;

void readPartition(const TEQPlatform::ReconfigurablePartition& record, const std::string& file,
                   HTEQPlatform& platform) {
    auto partition = std::make_unique<HTEQReconfigurablePartition>(partitionId(record.id));
    if (const auto* direct = std::get_if<TEQPlatform::ReconfigurablePartitionAnonHardwarePlatform>(&record.content)) {
        partition->setHardwarePlatformFile(archiveOf(direct->hardwarePlatform, file));
        if (direct->hwEmuPlatform) partition->setHardwareEmuPlatformFile(archiveOf(*direct->hwEmuPlatform, file));
    } else {
        const auto& emulation = std::get<TEQPlatform::ReconfigurablePartitionHwEmu>(record.content);
        partition->setHardwareEmuPlatformFile(archiveOf(emulation.hwEmuPlatform, file));
    }
    platform.addReconfigurablePartition(partition.release());
}

void readHardware(const TEQPlatform::HardwarePlatforms& record, const std::string& file, HTEQPlatform& platform) {
    if (const auto* direct = std::get_if<TEQPlatform::AnonHardwarePlatform>(&record.content)) {
        platform.setHardwarePlatformFile(archiveOf(direct->hardwarePlatform, file));
        if (direct->hwEmuPlatform) platform.setHardwareEmuPlatformFile(archiveOf(*direct->hwEmuPlatform, file));
    } else if (const auto* emulation = std::get_if<TEQPlatform::HwEmuOnly>(&record.content)) {
        const std::string archive = archiveOf(emulation->hwEmuPlatform, file);
        platform.setHardwareEmuPlatformFile(archive);
        platform.setHardwarePlatformFile(archive);  // one file is both
    } else {
        for (const auto& partition : std::get<TEQPlatform::Partitioned>(record.content).reconfigurablePartitions)
            readPartition(partition, file, platform);
        if (record.defaultRP.isSet()) platform.setDefaultRPId(partitionId(record.defaultRP));
    }
}

void fill(const TEQPlatform::Platform& record, const std::string& file, HTEQPlatform& platform) {
    binding::read(record, platform);
    readHardware(record.hardwarePlatforms, file, platform);
    platform.setSoftwarePlatformFile(readers::pathOf(record.softwarePlatforms.softwarePlatform, file));
    platform.setPlatformFile(file);
}

}  // namespace

HTEQPlatformXMLReader::HTEQPlatformXMLReader(const std::string& file, HTEQPlatform* platform)
    : file_(file), platform_(platform) {
    if (file.empty() || !HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

bool HTEQPlatformXMLReader::parseFile() {
    return readers::succeeds([this] { readFile(); });
}

void HTEQPlatformXMLReader::readFile() {
    const Budget budget;  // a host reads descriptors outside of a request, too
    errorMsg_.clear();
    try {
        fill(xml::readFile(TEQPlatform::kDocument, file_), file_, *platform_);
    } catch (const xml::Exception& e) {
        errorMsg_ = fmt::format("Error parsing platform file: {}\nLine number:{}. {}\n", file_, e.line(), e.what());
        msg::print(errorMsg_);
        readers::fail(ComMsgMgr::make("@74-9@%s", file_, e.line()), e.diagnostic());
    }
}
