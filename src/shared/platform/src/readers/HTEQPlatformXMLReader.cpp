#include "platform/HTEQPlatformXMLReader.h"

#include <fmt/core.h>

#include <memory>

#include "msg/HEXAll.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "readers/Printed.h"
#include "readers/Reading.h"
#include "readers/Saturated.h"
#include "records/TEQPlatformLMX.h"
#include "util/HUTFile.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

HTEQPlatformXMLReader::HTEQPlatformXMLReader(const std::string& file, HTEQPlatform* platform)
    : file_(file), platform_(platform) {
    if (file.empty() || !HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

bool HTEQPlatformXMLReader::parseFile() {
    return readers::succeeds([this] { readFile(); });
}

void HTEQPlatformXMLReader::readFile() {
    errorMsg_.clear();
    try {
        parsePlatform_(xml::readFile(TEQPlatform::kDocument, file_));
    } catch (const xml::Exception& e) {
        errorMsg_ = fmt::format("Error parsing platform file: {}\nLine number:{}. {}\n", file_, e.line(), e.what());
        readers::print(errorMsg_);
        readers::fail(ComMsgMgr::make("@74-9@%s", file_, e.line()), e.diagnostic());
    }
}

void HTEQPlatformXMLReader::parsePlatform_(const TEQPlatform::Platform& record) {
    platform_->setVendor(record.vendor.get());
    platform_->setLibrary(record.library.get());
    platform_->setName(record.name.get());
    platform_->setVersion(record.version.get().text);
    platform_->setDescription(record.description);
    parseHardwarePlatforms_(record.hardwarePlatforms);
    platform_->setSoftwarePlatformFile(pathOf_(record.softwarePlatforms.softwarePlatform));
    platform_->setPlatformFile(file_);
}

void HTEQPlatformXMLReader::parseHardwarePlatforms_(const TEQPlatform::HardwarePlatforms& record) {
    if (const auto* direct = std::get_if<TEQPlatform::AnonHardwarePlatform>(&record.content)) {
        platform_->setHardwarePlatformFile(canonicalPathOf_(direct->hardwarePlatform));
        if (direct->hwEmuPlatform) platform_->setHardwareEmuPlatformFile(canonicalPathOf_(*direct->hwEmuPlatform));
    } else if (const auto* emulation = std::get_if<TEQPlatform::HwEmuOnly>(&record.content)) {
        const std::string file = canonicalPathOf_(emulation->hwEmuPlatform);
        platform_->setHardwareEmuPlatformFile(file);
        platform_->setHardwarePlatformFile(file);  // one file serves both
    } else {
        for (const auto& partition : std::get<TEQPlatform::Partitioned>(record.content).reconfigurablePartitions)
            parseReconfigurablePartition_(partition);
        if (record.defaultRP.isSet()) platform_->setDefaultRPId(saturated<unsigned>(record.defaultRP.get().value()));
    }
}

void HTEQPlatformXMLReader::parseReconfigurablePartition_(const TEQPlatform::ReconfigurablePartition& record) {
    auto partition = std::make_unique<HTEQReconfigurablePartition>(saturated<unsigned>(record.id.get().value()));
    if (const auto* direct = std::get_if<TEQPlatform::ReconfigurablePartitionAnonHardwarePlatform>(&record.content)) {
        partition->setHardwarePlatformFile(canonicalPathOf_(direct->hardwarePlatform));
        if (direct->hwEmuPlatform) partition->setHardwareEmuPlatformFile(canonicalPathOf_(*direct->hwEmuPlatform));
    } else {
        const auto& emulation = std::get<TEQPlatform::ReconfigurablePartitionHwEmu>(record.content);
        partition->setHardwareEmuPlatformFile(canonicalPathOf_(emulation.hwEmuPlatform));
    }
    platform_->addReconfigurablePartition(partition.release());
}

template <class Record>
std::string HTEQPlatformXMLReader::pathOf_(const Record& record) const {
    const std::string separator = HUTFile::getDirSeparator();
    return HUTFile::getParent(file_) + separator + record.path.get() + separator + record.name.get();
}

template <class Record>
std::string HTEQPlatformXMLReader::canonicalPathOf_(const Record& record) const {
    return HUTFile::getCanonicalName(pathOf_(record));
}
