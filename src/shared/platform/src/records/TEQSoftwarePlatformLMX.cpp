#include "records/TEQSoftwarePlatformLMX.h"

namespace TEQSoftwarePlatform {

namespace {

using xml::atLeastOne;
using xml::atMostOne;
using xml::kText;
using xml::many;
using xml::one;
using xml::optional;
using xml::required;

constexpr auto kPrebuiltAttributes = xml::attributes<Prebuilt>(required<&Prebuilt::data>("data"));
constexpr auto kPrebuilt = xml::element(kPrebuiltAttributes);

constexpr auto kImageAttributes = xml::attributes<Image>(
    required<&Image::name>("name"), optional<&Image::type>("type"), required<&Image::bif>("bif"),
    optional<&Image::imageData>("imageData"), optional<&Image::bootmode>("bootmode"),
    optional<&Image::rootfs>("rootfs"), optional<&Image::mountPath>("mountPath"), required<&Image::readme>("readme"),
    optional<&Image::qemuDevicetree>("qemuDevicetree"), optional<&Image::qemuBoot>("qemuBoot"),
    optional<&Image::qemuArguments>("qemuArguments"), optional<&Image::hwBootBin>("hwBootBin"));
constexpr auto kImage = xml::element(kImageAttributes);

constexpr auto kBootImagesAttributes = xml::attributes<BootImages>(required<&BootImages::default_>("default"));
constexpr auto kBootImagesChildren = xml::children<BootImages>(one<&BootImages::image>("image", kImage));
constexpr auto kBootImages = xml::element(kBootImagesAttributes, kBootImagesChildren);

constexpr auto kOsAttributes = xml::attributes<Os>(
    required<&Os::name>("name"), required<&Os::displayName>("displayName"),
    optional<&Os::hypervisorGuest>("hypervisorGuest"), optional<&Os::includePaths>("includePaths"),
    optional<&Os::libraryPaths>("libraryPaths"), optional<&Os::libraryNames>("libraryNames"),
    optional<&Os::ldscript>("ldscript"), optional<&Os::sysRoot>("sysRoot"), optional<&Os::bspConfig>("bspConfig"),
    optional<&Os::bspLibraryPaths>("bspLibraryPaths"), optional<&Os::bspIncludePaths>("bspIncludePaths"),
    optional<&Os::bspRepo>("bspRepo"), optional<&Os::compilerOptions>("compilerOptions"),
    optional<&Os::linkerOptions>("linkerOptions"), optional<&Os::osDependency>("osDependency"),
    optional<&Os::crossCompilerType>("crossCompilerType"), optional<&Os::toolConfig>("toolConfig"));
constexpr auto kOs = xml::element(kOsAttributes);

constexpr auto kProcessorGroupAttributes = xml::attributes<ProcessorGroup>(
    required<&ProcessorGroup::name>("name"), required<&ProcessorGroup::displayName>("displayName"),
    required<&ProcessorGroup::cpuType>("cpuType"), optional<&ProcessorGroup::architecture>("architecture"),
    optional<&ProcessorGroup::cpuInstance>("cpuInstance"));
constexpr auto kProcessorGroupChildren = xml::children<ProcessorGroup>(one<&ProcessorGroup::os>("os", kOs));
constexpr auto kProcessorGroup = xml::element(kProcessorGroupAttributes, kProcessorGroupChildren);

constexpr auto kConfigurationAttributes = xml::attributes<Configuration>(
    required<&Configuration::name>("name"), required<&Configuration::displayName>("displayName"),
    optional<&Configuration::defaultProcessorGroup>("defaultProcessorGroup"),
    optional<&Configuration::runtimes>("runtimes"));
constexpr auto kConfigurationChildren =
    xml::children<Configuration>(one<&Configuration::description>("description", kText),
                                 atMostOne<&Configuration::prebuilt>("prebuilt", kPrebuilt),
                                 atMostOne<&Configuration::bootImages>("bootImages", kBootImages),
                                 many<&Configuration::processorGroups>("processorGroup", kProcessorGroup));
constexpr auto kConfiguration = xml::element(kConfigurationAttributes, kConfigurationChildren);

constexpr auto kSystemConfigurationsAttributes = xml::attributes<SystemConfigurations>(
    optional<&SystemConfigurations::defaultConfiguration>("defaultConfiguration"));
constexpr auto kSystemConfigurationsChildren = xml::children<SystemConfigurations>(
    atLeastOne<&SystemConfigurations::configurations>("configuration", kConfiguration));
constexpr auto kSystemConfigurations = xml::element(kSystemConfigurationsAttributes, kSystemConfigurationsChildren);

constexpr auto kPlatformAttributes = xml::attributes<Platform>(
    required<&Platform::vendor>("vendor"), required<&Platform::library>("library"), required<&Platform::name>("name"),
    required<&Platform::version>("version"), optional<&Platform::schemaVersion>("schemaVersion"));
constexpr auto kPlatformChildren =
    xml::children<Platform>(one<&Platform::description>("description", kText),
                            one<&Platform::systemConfigurations>("systemConfigurations", kSystemConfigurations));
constexpr auto kPlatform = xml::element(kPlatformAttributes, kPlatformChildren);

}  // namespace

constexpr xml::Document<Platform> kDocument =
    xml::document("urn:torvane:teq:platform:1.0", "teq", "platform", kPlatform);

}  // namespace TEQSoftwarePlatform
