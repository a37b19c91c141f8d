#include "platform/HTEQSoftwarePlatformXMLReader.h"

#include <fmt/core.h>

#include "msg/HEXAll.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"
#include "readers/Printed.h"
#include "readers/Reading.h"
#include "records/TEQSoftwarePlatformLMX.h"
#include "text/HSTStringUtils.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"

HTEQSoftwarePlatformXMLReader::HTEQSoftwarePlatformXMLReader(const std::string& file, HTEQSoftwarePlatform* platform)
    : file_(file), platform_(platform) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

bool HTEQSoftwarePlatformXMLReader::parseFile() {
    return readers::succeeds([this] { readFile(); });
}

void HTEQSoftwarePlatformXMLReader::readFile() {
    errorMsg_.clear();
    try {
        parsePlatform_(xml::readFile(TEQSoftwarePlatform::kDocument, file_));
    } catch (const xml::Exception& e) {
        errorMsg_ =
            fmt::format("Error parsing software platform file: {}\nLine number:{}. {}", file_, e.line(), e.what());
        readers::print(errorMsg_ + "\n");
        readers::fail(ComMsgMgr::make("@74-51@%s%d", file_, e.line()), e.diagnostic());
    }
}

void HTEQSoftwarePlatformXMLReader::parsePlatform_(const TEQSoftwarePlatform::Platform& record) {
    parseSystemConfigurations_(record.systemConfigurations);
}

void HTEQSoftwarePlatformXMLReader::parseSystemConfigurations_(
    const TEQSoftwarePlatform::SystemConfigurations& record) {
    platform_->setDefaultConfigName(record.defaultConfiguration.get());
    for (const auto& configuration : record.configurations) parseConfiguration_(configuration);
}

void HTEQSoftwarePlatformXMLReader::parseConfiguration_(const TEQSoftwarePlatform::Configuration& record) {
    HTEQSystemConfig& config = *platform_->addSystemConfig();
    config.setName(record.name.get());
    config.setPrettyName(record.displayName.get());
    config.setDesc(record.description);
    if (record.prebuilt) config.setPrebuiltData(record.prebuilt->data.get());
    config.setDefaultProcGrpName(record.defaultProcessorGroup.get());
    if (record.runtimes.isSet())
        for (const std::string& runtime : HSTStringUtils::split(record.runtimes.get(), ','))
            config.addRuntime(runtime);
    for (const auto& group : record.processorGroups) parseProcessorGroup_(group, config);
    if (record.bootImages) parseBootImages_(*record.bootImages, config);
}

// An attribute that the file leaves out reads as the empty text, which is also what the model begins with: the
// setters need no question whether it is there.

void HTEQSoftwarePlatformXMLReader::parseProcessorGroup_(const TEQSoftwarePlatform::ProcessorGroup& record,
                                                         HTEQSystemConfig& config) {
    HTEQProcessorGroup& group = *config.addProcessorGroup();
    group.setName(record.name.get());
    group.setPrettyName(record.displayName.get());
    group.setCpuType(record.cpuType.get());
    group.setArch(record.architecture.get());
    group.setCpuInstance(record.cpuInstance.get());
    const TEQSoftwarePlatform::Os& os = record.os;
    group.setOSName(os.name.get());
    group.setOSPrettyName(os.displayName.get());
    group.setIncludePaths(os.includePaths.get());
    group.setLibraryPaths(os.libraryPaths.get());
    group.setSysRoot(os.sysRoot.get());
    group.setBSPLibraryPaths(os.bspLibraryPaths.get());
    group.setBSPIncludePaths(os.bspIncludePaths.get());
    group.setCompilerOptions(os.compilerOptions.get());
    group.setLinkerOptions(os.linkerOptions.get());
    group.setHypervisorGuest(HSTStringUtils::iequals(os.hypervisorGuest.get(), "yes"));
}

void HTEQSoftwarePlatformXMLReader::parseBootImages_(const TEQSoftwarePlatform::BootImages& record,
                                                     HTEQSystemConfig& config) {
    config.setDefaultBootImgName(record.default_.get());
    HTEQBootImg& image = *config.addBootImg();
    const TEQSoftwarePlatform::Image& from = record.image;
    image.setName(from.name.get());
    image.setType(from.type.get());
    image.setBif(from.bif.get());
    image.setImgData(from.imageData.get());
    image.setBootMode(from.bootmode.get());
    image.setRootFS(from.rootfs.get());
    image.setMountPath(from.mountPath.get());
    image.setReadMe(from.readme.get());
    image.setQemuDevTree(from.qemuDevicetree.get());
    image.setQemuBoot(from.qemuBoot.get());
    image.setQemuArguments(from.qemuArguments.get());
    image.setHwBootBin(from.hwBootBin.get());
    if (from.qemuArguments.isSet() || from.qemuBoot.isSet() || from.qemuDevicetree.isSet())
        config.setSupportsQemu(true);
}
