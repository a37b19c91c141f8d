#include "platform/PlatformLoader.h"

#include <filesystem>

#include "archive/Request.h"
#include "hardware/PlatformText.h"
#include "loading/ArchiveRoad.h"
#include "loading/LoadFault.h"
#include "msg/Capture.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQPlatformXMLReader.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformXMLReader.h"
#include "util/HUTFile.h"

namespace teq_platform {

using loading::fillFromArchive;
using loading::Route;

namespace {

std::string extensionOf(const std::string& file) {
    const std::string extension = HUTFile::getExt(file);
    return extension.empty() ? "" : "." + extension;
}

/// A hardware platform filled from `file`; null when that fails.
std::unique_ptr<HPLPlatform> hardwareFrom(const std::string& file, HwMetadataMode mode, Route route) {
    auto hardware = std::make_unique<HPLPlatform>();
    if (!fillFromArchive(*hardware, file, mode, route)) hardware.reset();
    return hardware;
}

std::unique_ptr<HPLPlatform> partitionHardware(const std::string& file, HwMetadataMode mode, const char* failure) {
    auto hardware = hardwareFrom(file, mode, Route::jsonOnly);
    if (!hardware) throw PlatformParseException(failure);
    return hardware;
}

}  // namespace

PlatformLoader::PlatformLoader(const std::string& file, HwMetadataMode mode)
    : platform_(std::make_shared<HTEQPlatform>()), file_(file), mode_(mode) {
    if (file.empty()) return;
    const std::string extension = extensionOf(file);
    if (HTEQHardwarePlatform::isValidPlatformExt(extension)) {
        kind_ = FileKind::hardware;
    } else if (extension == ".spfm") {
        kind_ = FileKind::software;
    }
    platform_->setZdf(kind_ == FileKind::descriptor);
    platform_->setPartial(kind_ != FileKind::descriptor);
    if (kind_ == FileKind::descriptor && !HTEQPlatformXMLReader(file, platform_.get()).parseFile())
        throw PlatformParseException("failed to parse the ZDF file");
}

PlatformLoader::~PlatformLoader() = default;

std::shared_ptr<HTEQPlatform> PlatformLoader::load() {
    if (loaded_) return platform_;
    const archive::Request request;
    try {
        attachAll();
    } catch (const PlatformParseException& e) {
        msg::Capture::send(ComMsgMgr::make("@74-60@%s", e.what()), {.text = e.what()});
        platform_.reset();
        return nullptr;
    }
    loaded_ = true;
    return platform_;
}

std::shared_ptr<HTEQPlatform> PlatformLoader::open(const std::string& file, HwMetadataMode mode) {
    if (file.empty()) throw HEXFileNotFoundException(file);
    const archive::Request request;
    const msg::Capture said(msg::Capture::Words::print);
    std::string hardwareFile;
    try {
        PlatformLoader loader(file, mode);
        hardwareFile = loader.getHardwarePlatformFile();
        if (auto platform = loader.load()) return platform;
    } catch (const PlatformParseException& e) {
        throw HEXFileFault(loading::readFault(file, said, e.what()));
    }
    throw HEXFileFault(loading::loadFault(file, hardwareFile, mode, said));
}

std::string PlatformLoader::document(const HTEQPlatform& platform, const std::string& file) {
    return hardware::textOf(platform, platform.getHardwarePlatform(), file);
}

void PlatformLoader::attachAll() {
    if (platform_->hasReconfigurablePartitions()) {
        for (HTEQReconfigurablePartition* partition : platform_->getReconfigurablePartitions())
            attachPartition(*partition);
    } else {
        attachHardwarePlatform();
        attachHardwareEmulationPlatform();
    }
    attachSoftwarePlatform();
}

void PlatformLoader::attachHardwarePlatform() {
    if (platform_->getHardwarePlatform()) return;
    const bool partial = platform_->isPartial();
    if (partial && kind_ == FileKind::software) return;
    const std::string file = partial ? file_ : platform_->getHardwarePlatformFile();
    if (!HUTFile::exists(file)) throw PlatformParseException("hardware platform file '" + file + "' does not exist");
    if (!HTEQHardwarePlatform::isValidPlatformExt(extensionOf(file)))
        throw PlatformParseException("incorrect file extension - only CFA and LFA files are supported");
    auto hardware = hardwareFrom(file, mode_, Route::askFirst);
    if (!hardware) throw PlatformParseException("Failed to parse Hardware Platform metadata file");
    if (partial) platform_->setPlatformFile(hardware->getPlatformFile());
    platform_->setHardwarePlatform(hardware.release());
}

void PlatformLoader::attachHardwareEmulationPlatform() {
    if (platform_->getHardwareEmulationPlatform()) return;
    const std::string& own = platform_->getHardwareEmuPlatformFile();
    if (!own.empty()) {
        platform_->setHardwareEmulationPlatform(hardwareFrom(own, mode_, Route::jsonOnly).release());
        return;
    }
    const HTEQHardwarePlatform* parent = platform_->getHardwarePlatform();
    if (!parent || parent->getPlatformFile().empty()) return;
    auto child = hardwareFrom(parent->getPlatformFile(), mode_, Route::emulationChild);
    if (!child) return;
    child->setIsChildHardwareEmuPlatform(true);
    platform_->setHardwareEmulationPlatform(child.release());
}

void PlatformLoader::attachPartition(HTEQReconfigurablePartition& partition) {
    const bool isDefault = partition.getID() == platform_->getDefaultRPId();
    if (!partition.getHardwarePlatform()) {
        auto hardware = partitionHardware(partition.getHardwarePlatformFile(), mode_,
                                          "Failed to parse Hardware Platform metadata file");
        partition.setHardwarePlatform(hardware.release());
        if (isDefault) platform_->setDefaultRPHardwarePlatform(partition.getHardwarePlatform());
    }
    if (!partition.getHardwareEmulationPlatform() && !partition.getHardwareEmulationPlatformFile().empty()) {
        auto emulation = partitionHardware(partition.getHardwareEmulationPlatformFile(), mode_,
                                           "Failed to parse Hardware Emulation Platform metadata file");
        partition.setHardwareEmulationPlatform(emulation.release());
        if (isDefault) platform_->setDefaultRPHardwareEmulationPlatform(partition.getHardwareEmulationPlatform());
    }
}

void PlatformLoader::attachSoftwarePlatform() {
    if (platform_->getSoftwarePlatform()) return;
    const bool partial = platform_->isPartial();
    if (partial && kind_ == FileKind::hardware) return;
    const std::string file = partial ? file_ : platform_->getSoftwarePlatformFile();
    if (file.empty()) return;
    if (!HUTFile::exists(file)) throw PlatformParseException("the software platform file does not exist");
    auto software = std::make_unique<HTEQSoftwarePlatform>();
    if (!HTEQSoftwarePlatformXMLReader(file, software.get()).parseFile())
        throw PlatformParseException("software platform file does not exist");
    platform_->addSoftwarePlatform(software.release());
}

}  // namespace teq_platform
