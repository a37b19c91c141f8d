#include "platform/HTEQSoftwarePlatformXMLReader.h"

#include <fmt/core.h>

#include "msg/Budget.h"
#include "msg/CountedPieces.h"
#include "msg/HEXAll.h"
#include "msg/Printed.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"
#include "readers/Bindings.h"
#include "readers/Reading.h"
#include "text/HSTStringUtils.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

namespace {

using binding::read;

/// An image runs in the emulator if it has settings for it.
void readBootImages(const TEQSoftwarePlatform::BootImages& record, HTEQSystemConfig& config) {
    config.setDefaultBootImgName(record.default_.get());
    const TEQSoftwarePlatform::Image& image = record.image;
    read(image, *config.addBootImg());
    if (image.qemuArguments.isSet() || image.qemuBoot.isSet() || image.qemuDevicetree.isSet())
        config.setSupportsQemu(true);
}

void readConfiguration(const TEQSoftwarePlatform::Configuration& record, HTEQSystemConfig& config) {
    read(record, config);
    if (record.prebuilt) config.setPrebuiltData(record.prebuilt->data.get());
    if (record.runtimes.isSet())
        for (const std::string& runtime : msg::countedPieces(record.runtimes.get(), ',')) config.addRuntime(runtime);
    for (const auto& from : record.processorGroups) {
        HTEQProcessorGroup& group = *config.addProcessorGroup();
        read(from, group);
        read(from.os, group);
    }
    if (record.bootImages) readBootImages(*record.bootImages, config);
}

void fill(const TEQSoftwarePlatform::Platform& record, HTEQSoftwarePlatform& platform) {
    read(record.systemConfigurations, platform);
    for (const auto& configuration : record.systemConfigurations.configurations)
        readConfiguration(configuration, *platform.addSystemConfig());
}

}  // namespace

HTEQSoftwarePlatformXMLReader::HTEQSoftwarePlatformXMLReader(const std::string& file, HTEQSoftwarePlatform* platform)
    : file_(file), platform_(platform) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

bool HTEQSoftwarePlatformXMLReader::parseFile() {
    return readers::succeeds([this] { readFile(); });
}

void HTEQSoftwarePlatformXMLReader::readFile() {
    const Budget budget;  // a host reads these files outside of a request, too
    errorMsg_.clear();
    try {
        fill(xml::readFile(TEQSoftwarePlatform::kDocument, file_), *platform_);
    } catch (const xml::Exception& e) {
        errorMsg_ =
            fmt::format("Error parsing software platform file: {}\nLine number:{}. {}", file_, e.line(), e.what());
        msg::print(errorMsg_ + "\n");
        readers::fail(ComMsgMgr::make("@74-51@%s%d", file_, e.line()), e.diagnostic());
    }
}
