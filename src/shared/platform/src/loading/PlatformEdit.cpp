#include "platform/PlatformEdit.h"

#include "archive/PlatformArchive.h"
#include "hardware/HardwareKeys.h"
#include "hardware/PlatformText.h"
#include "json/JsonChanges.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/PlatformLoader.h"
#include "zip/Request.h"

namespace teq_platform {

namespace {

/// What writing the platform's document would lose or change in the current metadata of `archive`.
HSTVector<std::string> lossesOf(const HPLPlatform& platform, const std::string& archive) {
    const archive::PlatformArchive opened(archive);
    const std::string member = platform.getJsonFileName();
    const auto metadata = opened.metadata(HwMetadataMode::Default);
    if (!metadata || metadata->isXml())
        return {"the metadata is XML only: a new member " + member + " would be read instead of " +
                platform.getXmlFileName()};
    if (metadata->member != member)
        return {"the member " + metadata->member + " is not changed, and takes precedence over " + member};
    const char* const left = platform.writesPlatformFile() ? "" : "platformFile";
    return json::lostOrChanged(opened.text(member).value_or(""), hardware::textOf(platform, archive, left),
                               "platformFile", hardware::documentShapes(false));
}

}  // namespace

PlatformEdit::PlatformEdit(const std::string& archive, HwMetadataMode mode, bool stripPaths) {
    const zip::Request request;
    loaded_ = PlatformLoader::open(archive, mode);
    platform_ = dynamic_cast<HPLPlatform*>(loaded_->getHardwarePlatform());
    if (!platform_ || loaded_->isZdf()) throw HEXFileFault({.file = archive, .text = "not a hardware archive"});
    platform_->setWritesPlatformFile(!stripPaths);
    lost_ = lossesOf(*platform_, archive);
}

PlatformEdit::~PlatformEdit() = default;

void PlatformEdit::setFile(const std::string& type, const std::string& member, const std::string& source) {
    platform_->archiveFile(type, member, source);
}

}  // namespace teq_platform
