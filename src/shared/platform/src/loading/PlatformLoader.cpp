#include "platform/PlatformLoader.h"

#include <functional>
#include <new>

#include "hardware/PlatformText.h"
#include "loading/ArchiveRoad.h"
#include "loading/WrongExtension.h"
#include "msg/Budget.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQPlatformXMLReader.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformXMLReader.h"
#include "readers/DescriptorRules.h"
#include "util/HUTFile.h"
#include "zip/ArchiveSignature.h"
#include "zip/Request.h"

namespace teq_platform {

using loading::fillFromArchive;
using loading::Route;

namespace {

constexpr std::string_view kNotLoaded = shortMessageId("@74-60@%s");

constexpr const char* kHardwareFailed = "Failed to parse Hardware Platform metadata file";
constexpr const char* kTooLarge = "The platform exceeds a limit";
constexpr const char* kEmulationFailed = "Failed to parse Hardware Emulation Platform metadata file";

/// Runs a step of loading. A failure becomes a `PlatformParseException` with the text of the step and the cause.
void step(const char* text, const std::function<void()>& run) {
    try {
        run();
    } catch (const HEXFileFault&) {
        throw PlatformParseException(text, std::current_exception());
    }
}

std::unique_ptr<HPLPlatform> hardwareFrom(const std::string& file, HwMetadataMode mode, Route route,
                                          const char* failure) {
    auto hardware = std::make_unique<HPLPlatform>();
    try {
        step(failure, [&] { fillFromArchive(*hardware, file, mode, route); });
    } catch (const std::bad_alloc&) {  // which the readers of archives report
        throw PlatformParseException(failure, std::current_exception());
    }
    return hardware;
}

/// The emulation platform of `file`, or null if there is none or it cannot be read.
std::unique_ptr<HPLPlatform> emulationFrom(const std::string& file, HwMetadataMode mode, Route route) {
    auto hardware = std::make_unique<HPLPlatform>();
    try {
        fillFromArchive(*hardware, file, mode, route);
    } catch (const HEXFileFault&) {
        return nullptr;
    }
    return hardware;
}

/// Throws the cause of a failed load.
[[noreturn]] void throwCause(const PlatformParseException& e, const std::string& file) {
    if (fileKindOf(file) != FileKind::hardware && zip::looksLikeArchive(file))
        throw HEXFileFault({.file = file, .id = "74-9", .text = loading::wrongExtensionOf(file)});
    if (!e.cause()) throw HEXFileFault({.file = file, .id = std::string(kNotLoaded), .text = e.what()});
    try {
        std::rethrow_exception(e.cause());
    } catch (const HEXFileFault& fault) {
        HEXDiagnostic diagnostic = fault.diagnostic();
        if (!diagnostic.id.empty()) throw;
        diagnostic.id = kNotLoaded;
        throw HEXFileFault(diagnostic);
    }
}

}  // namespace

PlatformLoader::PlatformLoader(const std::string& file, HwMetadataMode mode)
    : platform_(std::make_shared<HTEQPlatform>()), file_(file), kind_(fileKindOf(file)), mode_(mode) {
    if (file.empty()) return;
    platform_->setZdf(kind_ == FileKind::descriptor);
    platform_->setPartial(kind_ != FileKind::descriptor);
    if (kind_ == FileKind::descriptor)
        step("failed to parse the ZDF file", [&] { HTEQPlatformXMLReader(file, platform_.get()).readFile(); });
}

PlatformLoader::~PlatformLoader() = default;

std::shared_ptr<HTEQPlatform> PlatformLoader::load() {
    try {
        return loadOrThrow();
    } catch (const PlatformParseException&) {
        return nullptr;
    }
}

std::shared_ptr<HTEQPlatform> PlatformLoader::loadOrThrow() {
    if (loaded_) return platform_;
    const zip::Request request;
    try {
        attachAll();
        step(kTooLarge, [&] { Budget::expectKept(file_); });
    } catch (const PlatformParseException& e) {
        ComMsgMgr::sendMsg("@74-60@%s", e.what());
        platform_.reset();
        throw;
    }
    loaded_ = true;
    return platform_;
}

std::shared_ptr<HTEQPlatform> PlatformLoader::open(const std::string& file, HwMetadataMode mode) {
    if (file.empty()) throw HEXFileNotFoundException(file);
    const zip::Request request;
    try {
        return PlatformLoader(file, mode).loadOrThrow();
    } catch (const PlatformParseException& e) {
        throwCause(e, file);
    }
}

std::string PlatformLoader::document(const HTEQPlatform& platform, const std::string& file) {
    return hardware::textOf(platform, file);
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
    if (fileKindOf(file) != FileKind::hardware)
        throw PlatformParseException("incorrect file extension - only CFA and LFA files are supported");
    auto hardware = hardwareFrom(file, mode_, Route::askFirst, kHardwareFailed);
    if (partial) platform_->setPlatformFile(hardware->getPlatformFile());
    platform_->setHardwarePlatform(hardware.release());
}

void PlatformLoader::attachHardwareEmulationPlatform() {
    if (platform_->getHardwareEmulationPlatform()) return;
    const std::string& own = platform_->getHardwareEmuPlatformFile();
    if (!own.empty()) {
        platform_->setHardwareEmulationPlatform(emulationFrom(own, mode_, Route::jsonOnly).release());
        return;
    }
    const HTEQHardwarePlatform* parent = platform_->getHardwarePlatform();
    if (!parent || parent->getPlatformFile().empty()) return;
    auto child = emulationFrom(parent->getPlatformFile(), mode_, Route::emulationChild);
    if (!child) return;
    child->setIsChildHardwareEmuPlatform(true);
    platform_->setHardwareEmulationPlatform(child.release());
}

void PlatformLoader::attachPartition(HTEQReconfigurablePartition& partition) {
    const bool isDefault = partition.getID() == platform_->getDefaultRPId();
    if (!partition.getHardwarePlatform()) {
        if (partition.getHardwarePlatformFile().empty())
            throw PlatformParseException(readers::kNoHardwareOfPartition);
        auto hardware = hardwareFrom(partition.getHardwarePlatformFile(), mode_, Route::jsonOnly, kHardwareFailed);
        partition.setHardwarePlatform(hardware.release());
        if (isDefault) platform_->setDefaultRPHardwarePlatform(partition.getHardwarePlatform());
    }
    if (!partition.getHardwareEmulationPlatform() && !partition.getHardwareEmulationPlatformFile().empty()) {
        auto emulation =
            hardwareFrom(partition.getHardwareEmulationPlatformFile(), mode_, Route::jsonOnly, kEmulationFailed);
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
    step("software platform file does not exist",
         [&] { HTEQSoftwarePlatformXMLReader(file, software.get()).readFile(); });
    platform_->addSoftwarePlatform(software.release());
}

}  // namespace teq_platform
