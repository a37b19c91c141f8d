#include "platform/HTEQPlatform.h"

#include <algorithm>
#include <filesystem>

#include "json/JsonKeys.h"
#include "msg/Budget.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "util/HUTFile.h"

namespace {

using teq_platform::JSONObjectWriter;

HSTVector<std::string> targetCategories(const HTEQPlatform& platform) {
    HSTVector<std::string> categories;
    platform.getTargetCategories(categories);
    return categories;
}

using K = json::Keys<HTEQPlatform>;
constexpr json::Key<HTEQPlatform> kKeys[] = {
    K::text<&HTEQPlatform::getVendor>("vendor"),
    K::text<&HTEQPlatform::getName>("name"),
    K::text<&HTEQPlatform::getDescription>("description"),
    K::text<&HTEQPlatform::getUniqueName>("uniqueName"),
    K::text<&HTEQPlatform::getVersion>("version"),
    K::text<&HTEQPlatform::getTypePrettyString>("type"),
    K::flag<&HTEQPlatform::isUnified>("unified"),
    K::flag<&HTEQPlatform::isZdf>("zdf"),
    K::flag<&HTEQPlatform::supportsHardware>("hardware"),
    K::flag<&HTEQPlatform::supportsSWEmulation>("softwareEmulation"),
    K::flag<&HTEQPlatform::supportsHWEmulation>("hardwareEmulation"),
    K::flag<&HTEQPlatform::isHWEmuPlatform>("hardwareEmuPlatform"),
    K::flag<&HTEQPlatform::isHidden>("hidden"),
    K::text<&HTEQPlatform::getPlatformFile>("file"),
    K::text<&HTEQPlatform::getHardwarePlatformFile>("hwFile"),
    K::text<&HTEQPlatform::getHardwareEmuPlatformFile>("hwEmuFile"),
    K::text<&HTEQPlatform::getSoftwarePlatformFile>("swFile"),
    K::text<&HTEQPlatform::getPlatformDir>("directory"),
    K::texts<&targetCategories>("targetCategories"),
};

}  // namespace

HTEQPlatform::HTEQPlatform() = default;

HTEQPlatform::~HTEQPlatform() {
    delete hardware_;
    delete hardwareEmu_;
}

void HTEQPlatform::shortToJSON(JSONObjectWriter& writer) const {
    writer.addKey("uniqueName", getUniqueName());
    writer.addKey("file", platformFile_);
    writer.addKey("description", description_);
}

void HTEQPlatform::toJSON(JSONObjectWriter& writer) const {
    const Budget budget;
    json::writeKeys(writer, kKeys, *this);
    writePlatforms(writer);
}

void HTEQPlatform::writePlatforms(JSONObjectWriter& writer) const {
    if (hasReconfigurablePartitions()) writer.addKey("defaultRPId", defaultRPId_);
    json::ObjectIn hardware(writer, "hardwarePlatforms");
    hardware->addKey("hardwarePlatform", hardware_);
    if (hasDistinctHardwareEmulationPlatform()) hardware->addKey("hwEmuPlatform", hardwareEmu_);
    json::addList(*hardware, "reconfigurablePartitions", partitions_);
    hardware.add();
    writer.addKey("softwarePlatform", getSoftwarePlatform());
}

std::string HTEQPlatform::getPlatformDir() const { return HUTFile::getParent(platformFile_); }

std::string HTEQPlatform::getPlatformBaseName() const { return std::filesystem::path(platformFile_).stem().string(); }

std::string HTEQPlatform::getDeviceName() const {
    return partial_ && hardware_ ? hardware_->getDeviceName() : getPlatformBaseName();
}

HTEQHardwarePlatform* HTEQPlatform::getHardwarePlatform() const { return hardware_ ? hardware_ : defaultHardware_; }

HTEQHardwarePlatform* HTEQPlatform::getHardwareEmulationPlatform() const {
    return hardwareEmu_ ? hardwareEmu_ : defaultHardwareEmu_;
}

void HTEQPlatform::addReconfigurablePartition(HTEQReconfigurablePartition* partition) {
    if (partition) partitions_.take(std::unique_ptr<HTEQReconfigurablePartition>(partition));
}

bool HTEQPlatform::hasRPHardwareEmulationPlatform() const {
    return std::any_of(partitions_.begin(), partitions_.end(),
                       [](const auto* partition) { return partition->hasHardwareEmulationPlatform(); });
}

HTEQReconfigurablePartition* HTEQPlatform::getReconfigurablePartition(unsigned int id) const {
    return partitions_.last([id](const auto& partition) { return partition.getID() == id; });
}

HTEQHardwarePlatform* HTEQPlatform::getRPHardwarePlatform(unsigned int id) const {
    const auto* partition = getReconfigurablePartition(id);
    return partition ? partition->getHardwarePlatform() : nullptr;
}

HTEQHardwarePlatform* HTEQPlatform::getRPHardwareEmulationPlatform(unsigned int id) const {
    const auto* partition = getReconfigurablePartition(id);
    return partition ? partition->getHardwareEmulationPlatform() : nullptr;
}

void HTEQPlatform::addSoftwarePlatform(HTEQSoftwarePlatform* platform) {
    if (platform) software_.take(std::unique_ptr<HTEQSoftwarePlatform>(platform));
}

HTEQSoftwarePlatform* HTEQPlatform::getSoftwarePlatform() const {
    return software_.empty() ? nullptr : software_.items().front();
}

bool HTEQPlatform::ask(bool (HTEQHardwarePlatform::*question)() const) const {
    const HTEQHardwarePlatform* platform = getHardwarePlatform();
    return platform && (platform->*question)();
}

bool HTEQPlatform::askDirect(bool (HTEQHardwarePlatform::*question)() const) const {
    return hardware_ && (hardware_->*question)();
}

bool HTEQPlatform::intends(bool (HTEQDesignIntentStorage::*intent)() const) const {
    const HTEQHardwarePlatform* platform = getHardwarePlatform();
    return platform && (platform->getDesignIntent().*intent)();
}

bool HTEQPlatform::supportsHardware() const { return ask(&HTEQHardwarePlatform::supportsHardware); }
bool HTEQPlatform::supportsSWEmulation() const { return ask(&HTEQHardwarePlatform::supportsSWEmulation); }
bool HTEQPlatform::hasSimContent() const { return ask(&HTEQHardwarePlatform::hasSimContent); }
bool HTEQPlatform::isExpandable() const { return ask(&HTEQHardwarePlatform::isExpandable); }
bool HTEQPlatform::isUnified() const { return ask(&HTEQHardwarePlatform::isUnifiedPlatform); }
bool HTEQPlatform::getDesignIntentDataCenter() const { return intends(&HTEQDesignIntentStorage::getDataCenter); }
bool HTEQPlatform::getDesignIntentEmbedded() const { return intends(&HTEQDesignIntentStorage::getEmbedded); }
bool HTEQPlatform::getDesignIntentExternalHost() const { return intends(&HTEQDesignIntentStorage::getExternalHost); }
bool HTEQPlatform::getDesignIntentServerManaged() const {
    return intends(&HTEQDesignIntentStorage::getServerManaged);
}
bool HTEQPlatform::supportsTwoHwEmuBd() const { return askDirect(&HTEQHardwarePlatform::supportsTwoHwEmuBd); }
bool HTEQPlatform::hasDimmConnectors() const { return askDirect(&HTEQHardwarePlatform::hasDimmConnectors); }
bool HTEQPlatform::isHWEmuPlatform() const { return askDirect(&HTEQHardwarePlatform::isHWEmuPlatform); }

bool HTEQPlatform::supportsHWEmulation() const {
    if (hasHWEmulationPlatform()) return true;
    if (hasReconfigurablePartitions()) return hasRPHardwareEmulationPlatform();
    return askDirect(&HTEQHardwarePlatform::supportsHWEmulation);
}

void HTEQPlatform::getDimmConnectors(HSTVector<std::string>& out) const {
    if (hardware_) hardware_->getDimmConnectors(out);
}

void HTEQPlatform::getTargetCategories(HSTVector<std::string>& out) const {
    for (const HTEQHardwarePlatform* platform : {hardware_, defaultHardware_})
        if (platform) platform->getTargetCategories(out);
}

bool HTEQPlatform::isHidden() const { return getUniqueName() == "torvane:rq118:linux-uart:1.0"; }

std::string HTEQPlatform::getTypeString() const {
    if (!dynamic_cast<const HPLPlatform*>(getHardwarePlatform())) return "";
    const bool embedded = getDesignIntentEmbedded();
    if (getDesignIntentDataCenter() || getDesignIntentExternalHost() || getDesignIntentServerManaged())
        return embedded ? "acceleration" : "fennick";
    return embedded ? "lorimar" : "undefined";
}

std::string HTEQPlatform::getTypePrettyString() const {
    const std::string type = getTypeString();
    for (const char* pretty : {"Fennick", "Lorimar", "Acceleration"})
        if (HSTStringUtils::toLower(pretty) == type) return pretty;
    return "Undefined";
}
