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

constexpr auto kPrebuiltAttributes =
    xml::attributes<Prebuilt>(required<&Prebuilt::data>("data", "Directory of the files that are built already."));
constexpr auto kPrebuilt = xml::element(kPrebuiltAttributes);

constexpr auto kImageAttributes = xml::attributes<Image>(
    required<&Image::name>("name", "Name of the image."), optional<&Image::type>("type", "Kind of image."),
    required<&Image::bif>("bif", "File that describes the composition of the boot image."),
    optional<&Image::imageData>("imageData", "Data of the image."),
    optional<&Image::bootmode>("bootmode", "What the device boots from, such as sd."),
    optional<&Image::rootfs>("rootfs", "File of the root file system."),
    optional<&Image::mountPath>("mountPath", "Where the image is mounted on the target."),
    required<&Image::readme>("readme", "Text file for users of the image."),
    optional<&Image::qemuDevicetree>(
        "qemuDevicetree",
        "Device tree for QEMU. With this, qemuBoot or qemuArguments the configuration supports QEMU."),
    optional<&Image::qemuBoot>("qemuBoot", "Boot file for QEMU."),
    optional<&Image::qemuArguments>("qemuArguments", "Arguments for QEMU."),
    optional<&Image::hwBootBin>("hwBootBin", "Boot file for the hardware."));
constexpr auto kImage = xml::element(kImageAttributes);

constexpr auto kBootImagesAttributes =
    xml::attributes<BootImages>(required<&BootImages::default_>("default", "Name of the image used by default."));
constexpr auto kBootImagesChildren =
    xml::children<BootImages>(one<&BootImages::image>("image", kImage, "The boot image."));
constexpr auto kBootImages = xml::element(kBootImagesAttributes, kBootImagesChildren);

constexpr auto kOsAttributes = xml::attributes<Os>(
    required<&Os::name>("name", "Name of the operating system, such as linux or standalone."),
    required<&Os::displayName>("displayName", "Name for people."),
    optional<&Os::hypervisorGuest>("hypervisorGuest",
                                   "yes, in any letter case, for a guest of a hypervisor; anything else means no."),
    optional<&Os::includePaths>("includePaths", "Directories of headers for the compiler."),
    optional<&Os::libraryPaths>("libraryPaths", "Directories of libraries for the linker."),
    optional<&Os::libraryNames>("libraryNames", "Libraries to link. Read, but not used."),
    optional<&Os::ldscript>("ldscript", "Script for the linker. Read, but not used."),
    optional<&Os::sysRoot>("sysRoot", "Directory that represents the target's root when compiling."),
    optional<&Os::bspConfig>("bspConfig", "Configuration of the board support package. Read, but not used."),
    optional<&Os::bspLibraryPaths>("bspLibraryPaths", "Directories of the board support package's libraries."),
    optional<&Os::bspIncludePaths>("bspIncludePaths", "Directories of the board support package's headers."),
    optional<&Os::bspRepo>("bspRepo", "Repository of the board support package. Read, but not used."),
    optional<&Os::compilerOptions>("compilerOptions", "Options for the compiler."),
    optional<&Os::linkerOptions>("linkerOptions", "Options for the linker."),
    optional<&Os::osDependency>("osDependency", "Operating system that this one depends on. Read, but not used."),
    optional<&Os::crossCompilerType>("crossCompilerType", "Kind of cross compiler. Read, but not used."),
    optional<&Os::toolConfig>("toolConfig", "Configuration of the tool. Read, but not used."));
constexpr auto kOs = xml::element(kOsAttributes);

constexpr auto kProcessorGroupAttributes = xml::attributes<ProcessorGroup>(
    required<&ProcessorGroup::name>("name", "Name of the group."),
    required<&ProcessorGroup::displayName>("displayName", "Name for people."),
    required<&ProcessorGroup::cpuType>("cpuType", "Type of the group's processors, such as x86 or cortex-a72."),
    optional<&ProcessorGroup::architecture>("architecture", "Architecture of the processors."),
    optional<&ProcessorGroup::cpuInstance>("cpuInstance", "Instance of the processor."));
constexpr auto kProcessorGroupChildren = xml::children<ProcessorGroup>(
    one<&ProcessorGroup::os>("os", kOs, "The operating system and its build settings."));
constexpr auto kProcessorGroup = xml::element(kProcessorGroupAttributes, kProcessorGroupChildren);

constexpr auto kConfigurationAttributes = xml::attributes<Configuration>(
    required<&Configuration::name>("name",
                                   "Name of the configuration; of several with the same name the last is used."),
    required<&Configuration::displayName>("displayName", "Name for people."),
    optional<&Configuration::defaultProcessorGroup>(
        "defaultProcessorGroup",
        "Name of the default processor group, taken as given and not checked; left out, that of the first group."),
    optional<&Configuration::runtimes>("runtimes",
                                       "Runtimes that the configuration supports, such as ocl or cpp, separated by "
                                       "commas. Left empty it is one runtime without a name."));
constexpr auto kConfigurationChildren = xml::children<Configuration>(
    one<&Configuration::description>("description", kText, "Text for people: what the configuration is for."),
    atMostOne<&Configuration::prebuilt>("prebuilt", kPrebuilt, "What is built already."),
    atMostOne<&Configuration::bootImages>("bootImages", kBootImages, "What the target boots."),
    many<&Configuration::processorGroups>("processorGroup", kProcessorGroup,
                                          "Processors that run one operating system."));
constexpr auto kConfiguration = xml::element(kConfigurationAttributes, kConfigurationChildren);

constexpr auto kSystemConfigurationsAttributes =
    xml::attributes<SystemConfigurations>(optional<&SystemConfigurations::defaultConfiguration>(
        "defaultConfiguration",
        "Name of the configuration used by default; the first one if no configuration has it."));
constexpr auto kSystemConfigurationsChildren =
    xml::children<SystemConfigurations>(atLeastOne<&SystemConfigurations::configurations>(
        "configuration", kConfiguration, "One way of setting up the system."));
constexpr auto kSystemConfigurations = xml::element(kSystemConfigurationsAttributes, kSystemConfigurationsChildren);

constexpr auto kPlatformAttributes = xml::attributes<Platform>(
    required<&Platform::vendor>("vendor", "Who makes the platform."),
    required<&Platform::library>("library", "Library that the platform belongs to."),
    required<&Platform::name>("name", "Name of the platform."),
    required<&Platform::version>("version", "Version of the platform, a decimal number such as 1.0."),
    optional<&Platform::schemaVersion>("schemaVersion",
                                       "Version of this format, a decimal number; nothing depends on it."));
constexpr auto kPlatformChildren = xml::children<Platform>(
    one<&Platform::description>("description", kText, "Text for people: what the software platform is."),
    one<&Platform::systemConfigurations>("systemConfigurations", kSystemConfigurations,
                                         "The configurations to choose from."));
constexpr auto kPlatform = xml::element(kPlatformAttributes, kPlatformChildren);

}  // namespace

constexpr xml::Document<Platform> kDocument = xml::document(
    "urn:torvane:teq:platform:1.0", "teq", "platform", kPlatform,
    "A software platform: system configurations with their processors, operating systems and boot images.");

}  // namespace TEQSoftwarePlatform
