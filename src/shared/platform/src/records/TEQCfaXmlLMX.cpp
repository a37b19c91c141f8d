#include "records/TEQCfaXmlLMX.h"

namespace BasePlatform {

namespace {

using xml::atLeastOne;
using xml::atMostOne;
using xml::many;
using xml::one;
using xml::oneWhenWritten;
using xml::optional;
using xml::required;

constexpr auto kGenAppInfoAttributes = xml::attributes<GenAppInfo>(
    required<&GenAppInfo::Name>("Name", "Name of the tool that made the document."),
    required<&GenAppInfo::Version>("Version", "Version of the tool."),
    required<&GenAppInfo::CL>("CL", "Change list that the tool was built from; its low 32 bits are kept."),
    optional<&GenAppInfo::TimeStamp>("TimeStamp", "When the document was made, as text."));
constexpr auto kGenAppInfo = xml::element(kGenAppInfoAttributes);

constexpr auto kHostAttributes = xml::attributes<Host>(
    required<&Host::Architecture>("Architecture",
                                  "Architecture of the host: x86_64, armv7l, ppc64le or aarch64, in any letter case; "
                                  "anything else is unknown."),
    optional<&Host::Interface>(
        "Interface",
        "How the card is attached to the host: pcie or axi, in any letter case; anything else is unknown."));
constexpr auto kHost = xml::element(kHostAttributes);

constexpr auto kZuncCompileSwitchAttributes = xml::attributes<ZuncCompileSwitch>(
    required<&ZuncCompileSwitch::Name>("Name", "Name of the switch. Not read into a platform."),
    required<&ZuncCompileSwitch::Value>("Value", "The switch as the compiler gets it."));
constexpr auto kZuncCompileSwitch = xml::element(kZuncCompileSwitchAttributes);

constexpr auto kZuncCompileSwitchesChildren = xml::children<ZuncCompileSwitches>(
    many<&ZuncCompileSwitches::switches>("ZuncCompileSwitch", kZuncCompileSwitch, "A switch for compiling."));
constexpr auto kZuncCompileSwitches = xml::element(kZuncCompileSwitchesChildren);

constexpr auto kZuncLinkSwitchAttributes = xml::attributes<ZuncLinkSwitch>(
    required<&ZuncLinkSwitch::Name>("Name", "Name of the switch. Not read into a platform."),
    required<&ZuncLinkSwitch::Value>("Value", "The switch as the linker gets it."));
constexpr auto kZuncLinkSwitch = xml::element(kZuncLinkSwitchAttributes);

constexpr auto kZuncLinkSwitchesChildren = xml::children<ZuncLinkSwitches>(
    many<&ZuncLinkSwitches::switches>("ZuncLinkSwitch", kZuncLinkSwitch, "A switch for linking."));
constexpr auto kZuncLinkSwitches = xml::element(kZuncLinkSwitchesChildren);

constexpr auto kBuildAttributes = xml::attributes<Build>(
    optional<&Build::Flow>("Flow", "Flow of the build. Not read into a platform."),
    optional<&Build::UsesPR>("UsesPR",
                             "Whether the platform uses partial reconfiguration: true, in any letter case; anything "
                             "else means no. The design intent follows from it."),
    optional<&Build::UsesDCP>("UsesDCP",
                              "Whether the platform uses checkpoints: true or false. Not read into a platform."),
    optional<&Build::StaticSynthCheckpoint>(
        "StaticSynthCheckpoint",
        "The checkpoint of the static part. When it is there, even empty, the state of the platform is synth."),
    optional<&Build::PlatformState>(
        "PlatformState",
        "synth, impl or pre_synth. A platform that is pre_synth is read whatever its schema version."),
    optional<&Build::AcceleratorBinaryFormat>("AcceleratorBinaryFormat", "Format of the binary that a link makes."),
    optional<&Build::AcceleratorBinaryContent>("AcceleratorBinaryContent",
                                               "What the binary holds, such as bitstream or dcp."),
    optional<&Build::ValidBinaryContentValues>(
        "ValidBinaryContentValues", "What the binary may hold, separated by commas; default: dcp and bitstream."),
    optional<&Build::TopModuleName>("TopModuleName", "Name of the design's top module."));
constexpr auto kBuildChildren = xml::children<Build>(
    atMostOne<&Build::compileSwitches>("ZuncCompileSwitches", kZuncCompileSwitches,
                                       "Switches for compiling kernels."),
    atMostOne<&Build::linkSwitches>("ZuncLinkSwitches", kZuncLinkSwitches, "Switches for linking kernels."));
constexpr auto kBuild = xml::element(kBuildAttributes, kBuildChildren);

constexpr auto kParameterAttributes = xml::attributes<Parameter>(
    required<&Parameter::Name>("Name", "Name of the parameter; no two of one instance may have the same."),
    required<&Parameter::Value>("Value", "Value of the parameter."));
constexpr auto kParameter = xml::element(kParameterAttributes);

constexpr auto kConfigurationChildren =
    xml::children<Configuration>(many<&Configuration::parameters>("Parameter", kParameter, "A configured value."));
constexpr auto kConfiguration = xml::element(kConfigurationChildren);

constexpr auto kIPAttributes = xml::attributes<IP>(
    required<&IP::InstanceName>("InstanceName", "Path of the instance in the design."),
    required<&IP::VLNV>("VLNV", "Vendor, library, name and version of the IP, separated by colons."));
constexpr auto kIPChildren = xml::children<IP>(
    atMostOne<&IP::configuration>("Configuration", kConfiguration, "The configured values of the instance."));
constexpr auto kIP = xml::element(kIPAttributes, kIPChildren);

constexpr auto kDesignIPsChildren =
    xml::children<DesignIPs>(many<&DesignIPs::ips>("IP", kIP, "An instance of an IP in the design."));
constexpr auto kDesignIPs = xml::element(kDesignIPsChildren);

constexpr auto kInterfaceAttributes =
    xml::attributes<Interface>(required<&Interface::Id>("Id", "Id of the interface."),
                               required<&Interface::Name>("Name", "Name of the interface."),
                               required<&Interface::Type>("Type", "Type of the interface, such as gen3x16."));
constexpr auto kInterface = xml::element(kInterfaceAttributes);

constexpr auto kInterfacesChildren = xml::children<Interfaces>(
    oneWhenWritten<&Interfaces::interface>("Interface", kInterface, "The interface of the board to its host."));
constexpr auto kInterfaces = xml::element(kInterfacesChildren);

constexpr auto kParamAttributes = xml::attributes<Param>(
    required<&Param::Name>("Name", "Name of the parameter; only names of memory controllers are kept."),
    required<&Param::Value>("Value", "Value of the parameter."));
constexpr auto kParam = xml::element(kParamAttributes);

constexpr auto kConfigChildren =
    xml::children<Config>(many<&Config::params>("Param", kParam, "A configured value of the memory controller."));
constexpr auto kConfig = xml::element(kConfigChildren);

constexpr auto kMemoryAttributes = xml::attributes<Memory>(
    required<&Memory::Name>("Name", "Name of the memory."),
    required<&Memory::Type>(
        "Type", "Type of the memory, such as ddr3 or ddr4. ddr3, exactly so, decides which parameters are kept."),
    required<&Memory::Size>("Size", "Size as a number and GB, such as 16GB; any other unit is read as 0."),
    optional<&Memory::LowestAddress>("LowestAddress", "First address, as a signed decimal number of 64 bits."),
    optional<&Memory::HighestAddress>("HighestAddress", "Last address, as a signed decimal number of 64 bits."));
constexpr auto kMemoryChildren =
    xml::children<Memory>(atMostOne<&Memory::config>("Config", kConfig, "Parameters of the memory controller."));
constexpr auto kMemory = xml::element(kMemoryAttributes, kMemoryChildren);

constexpr auto kMemoriesChildren =
    xml::children<Memories>(many<&Memories::memories>("Memory", kMemory, "A memory on the board."));
constexpr auto kMemories = xml::element(kMemoriesChildren);

constexpr auto kConnectorAttributes = xml::attributes<Connector>(
    required<&Connector::Name>("Name", "Name of the connector."),
    required<&Connector::DisplayName>("DisplayName", "Name for people."),
    required<&Connector::Type>("Type", "Type of the connector, such as DIMM."),
    optional<&Connector::ConnectedConnector>("ConnectedConnector",
                                             "Name of what is plugged in; empty or missing if nothing is."),
    optional<&Connector::ConnectedConnectorDisplayName>("ConnectedConnectorDisplayName",
                                                        "Name for people of what is plugged in."),
    optional<&Connector::IsLocked>(
        "IsLocked", "Whether what is plugged in must stay: true, in any letter case; anything else means no."));
constexpr auto kConnector = xml::element(kConnectorAttributes);

constexpr auto kConnectorsChildren = xml::children<Connectors>(
    many<&Connectors::connectors>("Connector", kConnector, "A connector that modules can be plugged into."));
constexpr auto kConnectors = xml::element(kConnectorsChildren);

constexpr auto kImgAttributes = xml::attributes<Img>(
    required<&Img::Type>("Type", "Resolution of the picture: HDPI, MDPI or LDPI, in upper case; others are ignored."),
    required<&Img::File>("File", "Name of the picture, a member of the archive."));
constexpr auto kImg = xml::element(kImgAttributes);

constexpr auto kImagesChildren = xml::children<Images>(many<&Images::imgs>("Img", kImg, "A picture of the board."));
constexpr auto kImages = xml::element(kImagesChildren);

constexpr auto kDriverAttributes =
    xml::attributes<Driver>(required<&Driver::Name>("Name", "Name of the driver."),
                            required<&Driver::Vendor>("Vendor", "Who makes the driver."),
                            required<&Driver::Version>("Version", "Version of the driver."),
                            optional<&Driver::Platform>("Platform", "Operating system that the driver is for."),
                            required<&Driver::File>("File", "Name of the driver's file, a member of the archive."));
constexpr auto kDriver = xml::element(kDriverAttributes);

constexpr auto kDriversChildren = xml::children<Drivers>(
    many<&Drivers::drivers>("Driver", kDriver, "A driver for the host. Not read into a platform."));
constexpr auto kDrivers = xml::element(kDriversChildren);

constexpr auto kPCIeIdAttributes = xml::attributes<PCIeId>(
    required<&PCIeId::Vendor>("Vendor", "Vendor id, such as 0x1fab; kept as text, as the other ids."),
    required<&PCIeId::Device>("Device", "Device id."), required<&PCIeId::Subsystem>("Subsystem", "Subsystem id."),
    optional<&PCIeId::FeatureId>("FeatureId", "Feature id."));
constexpr auto kPCIeId = xml::element(kPCIeIdAttributes);

constexpr auto kBoardAttributes = xml::attributes<Board>(
    required<&Board::Name>("Name", "Name of the board."), required<&Board::Vendor>("Vendor", "Who makes the board."),
    required<&Board::Part>("Part", "Part of the device on the board."),
    optional<&Board::BoardPart>("BoardPart", "Part name of the board."));
constexpr auto kBoardChildren =
    xml::children<Board>(atMostOne<&Board::interfaces>("Interfaces", kInterfaces, "How the board is attached."),
                         atMostOne<&Board::memories>("Memories", kMemories, "The memories on the board."),
                         atMostOne<&Board::connectors>("Connectors", kConnectors, "The connectors of the board."),
                         one<&Board::images>("Images", kImages, "Pictures of the board; may be empty."),
                         atMostOne<&Board::drivers>("Drivers", kDrivers, "Drivers for the host."),
                         atMostOne<&Board::pcieId>("PCIeId", kPCIeId, "The ids that the card shows on the bus."));
constexpr auto kBoard = xml::element(kBoardAttributes, kBoardChildren);

constexpr auto kSystemClockAttributes = xml::attributes<SystemClock>(
    required<&SystemClock::Name>("Name", "Name of the clock."),
    required<&SystemClock::Frequency>("Frequency", "Frequency, without a unit; stored unchanged."));
constexpr auto kSystemClock = xml::element(kSystemClockAttributes);

constexpr auto kSystemClocksChildren = xml::children<SystemClocks>(
    many<&SystemClocks::clocks>("SystemClock", kSystemClock, "A clock that users can scale."));
constexpr auto kSystemClocks = xml::element(kSystemClocksChildren);

constexpr auto kInnerCoreConfigParamAttributes =
    xml::attributes<InnerCoreConfigParam>(required<&InnerCoreConfigParam::Name>("Name", "Name of the parameter."),
                                          required<&InnerCoreConfigParam::Value>("Value", "Value of the parameter."));
constexpr auto kInnerCoreConfigParam = xml::element(kInnerCoreConfigParamAttributes);

constexpr auto kInnerCoreConfigChildren = xml::children<InnerCoreConfig>(
    many<&InnerCoreConfig::params>("Param", kInnerCoreConfigParam, "A configured value of the core."));
constexpr auto kInnerCoreConfig = xml::element(kInnerCoreConfigChildren);

constexpr auto kAddressSegmentAttributes = xml::attributes<AddressSegment>(
    required<&AddressSegment::Name>("Name", "Name of the segment."),
    required<&AddressSegment::Base>("Base", "Base address; stored unchanged."),
    required<&AddressSegment::Range>("Range", "Size of the segment; stored unchanged."),
    required<&AddressSegment::Slave>("Slave", "Name of the segment's slave."));
constexpr auto kAddressSegment = xml::element(kAddressSegmentAttributes);

constexpr auto kAddressSegmentsChildren = xml::children<AddressSegments>(many<&AddressSegments::segments>(
    "AddressSegment", kAddressSegment, "A range of addresses that the port reaches."));
constexpr auto kAddressSegments = xml::element(kAddressSegmentsChildren);

constexpr auto kPortAttributes = xml::attributes<Port>(
    required<&Port::Name>("Name", "Name of the port."), required<&Port::Type>("Type", "Type of the port."),
    optional<&Port::Mode>("Mode", "Side of the bus: master or slave."),
    optional<&Port::Protocol>("Protocol", "Protocol of the bus."),
    optional<&Port::Base>("Base", "Base address; stored unchanged."),
    optional<&Port::Range>("Range", "Size of the address range; stored unchanged."),
    optional<&Port::DataWidth>("DataWidth", "Width of the data in bits; stored unchanged."),
    optional<&Port::IdWidth>("IdWidth", "Width of the ids in bits; stored unchanged."),
    optional<&Port::UserWidth>("UserWidth", "Width of the user signals in bits; stored unchanged."),
    optional<&Port::AddressWidth>("AddressWidth", "Width of the addresses in bits; stored unchanged."),
    optional<&Port::AddressOffset>("AddressOffset", "Offset of the addresses; stored unchanged."),
    optional<&Port::AddressRange>("AddressRange", "Range of the addresses; stored unchanged."),
    optional<&Port::MaxBurstLength>("MaxBurstLength", "Longest burst; stored unchanged."),
    optional<&Port::Frequency>("Frequency", "Frequency of a clock port; stored unchanged."),
    optional<&Port::Direction>("Direction", "Direction of the port."),
    optional<&Port::Polarity>("Polarity", "Polarity of a reset or an interrupt."));
constexpr auto kPortChildren = xml::children<Port>(atMostOne<&Port::addressSegments>(
    "AddressSegments", kAddressSegments, "The ranges of addresses that the port reaches."));
constexpr auto kPort = xml::element(kPortAttributes, kPortChildren);

constexpr auto kResourceAttributes = xml::attributes<Resource>(
    required<&Resource::Name>("Name", "Kind of resource."), required<&Resource::Val>("Val", "How many there are."));
constexpr auto kResource = xml::element(kResourceAttributes);

constexpr auto kPBlockAttributes = xml::attributes<PBlock>(
    required<&PBlock::Name>("Name", "Name of the block."),
    optional<&PBlock::ValidSLRs>("ValidSLRs",
                                 "Regions of the device that the block may use, such as SLR0, separated by commas."));
constexpr auto kPBlockChildren =
    xml::children<PBlock>(many<&PBlock::resources>("Resource", kResource, "What the block has of one kind."));
constexpr auto kPBlock = xml::element(kPBlockAttributes, kPBlockChildren);

constexpr auto kAvailableResourcesAttributes = xml::attributes<AvailableResources>(
    required<&AvailableResources::LUT>(
        "LUT", "Look-up tables; a decimal number as text, which may be empty, like the other counts."),
    required<&AvailableResources::REG>("REG", "Registers."),
    required<&AvailableResources::BRAM>("BRAM", "Block RAMs."),
    required<&AvailableResources::DSP>("DSP", "DSP slices."));
constexpr auto kAvailableResourcesChildren = xml::children<AvailableResources>(
    many<&AvailableResources::pblocks>("PBlock", kPBlock, "A block of the device that kernels may use."));
constexpr auto kAvailableResources = xml::element(kAvailableResourcesAttributes, kAvailableResourcesChildren);

constexpr auto kInnerCoreChildren = xml::children<InnerCore>(
    atMostOne<&InnerCore::config>("Config", kInnerCoreConfig, "Configured values of the core."),
    many<&InnerCore::ports>("Port", kPort, "A port that kernels can be attached to."),
    atMostOne<&InnerCore::availableResources>("AvailableResources", kAvailableResources,
                                              "What is free for kernels."));
constexpr auto kInnerCore = xml::element(kInnerCoreChildren);

constexpr auto kCoreAttributes = xml::attributes<Core>(
    required<&Core::Name>("Name", "Name of the core."),
    required<&Core::Type>("Type", "Type of the core, such as clc_region."),
    required<&Core::ComputeUnits>("ComputeUnits", "How many kernels fit, 0 to 255."),
    optional<&Core::VLNV>("VLNV", "Vendor, library, name and version of the core, separated by colons."),
    optional<&Core::InstancePath>("InstancePath", "Path of the core's instance in the design."),
    optional<&Core::ParentRMInstancePath>("ParentRMInstancePath",
                                          "Path of the reconfigurable module that the core is in."),
    optional<&Core::ClockFreq>("ClockFreq", "Frequency of the core's clock; stored unchanged."),
    optional<&Core::DRBaseAddress>("DRBaseAddress", "Base address of the dynamic region. Not read into a platform."),
    optional<&Core::DRBDName>("DRBDName", "Name of the dynamic region's block design."));
constexpr auto kCoreChildren =
    xml::children<Core>(atMostOne<&Core::innerCore>("Core", kInnerCore, "Ports, configuration and resources."));
constexpr auto kCore = xml::element(kCoreAttributes, kCoreChildren);

constexpr auto kDeviceAttributes = xml::attributes<Device>(
    required<&Device::Name>("Name", "Name of the device, such as fpga0."),
    required<&Device::Type>("Type", "Type of the device, such as fpga."),
    optional<&Device::FpgaDevice>(
        "FpgaDevice", "Architecture, device, package and speed, and up to three fields more, separated by colons."));
constexpr auto kDeviceChildren = xml::children<Device>(
    atMostOne<&Device::systemClocks>("SystemClocks", kSystemClocks, "The clocks that users can scale."),
    one<&Device::core>("Core", kCore, "The part of the device that kernels go into."));
constexpr auto kDevice = xml::element(kDeviceAttributes, kDeviceChildren);

constexpr auto kDevicesChildren =
    xml::children<Devices>(atLeastOne<&Devices::devices>("Device", kDevice, "A device on the board."));
constexpr auto kDevices = xml::element(kDevicesChildren);

constexpr auto kFileAttributes = xml::attributes<File>(
    required<&File::Type>("Type", "Type of the file, such as HPFM, DCP or EMU_XML."),
    required<&File::Name>("Name", "Name of the file, a member of the archive."),
    optional<&File::UsedIn>("UsedIn", "What the file is used in, such as synthesis."),
    optional<&File::ProcessingOrder>("ProcessingOrder", "When the file is processed, such as early or late."));
constexpr auto kFile = xml::element(kFileAttributes);

constexpr auto kFilesChildren = xml::children<Files>(many<&Files::files>("File", kFile, "A file in the archive."));
constexpr auto kFiles = xml::element(kFilesChildren);

constexpr auto kFeatureRomAttributes = xml::attributes<FeatureRom>(
    required<&FeatureRom::MajorVersion>("MajorVersion", "Version of the ROM before the point, 0 to 255."),
    required<&FeatureRom::MinorVersion>("MinorVersion", "Version of the ROM after the point, 0 to 255."),
    required<&FeatureRom::MorwenBuildID>("MorwenBuildID", "Build of the tool that made the platform."),
    required<&FeatureRom::IPBuildID>("IPBuildID", "Build of the tool's IP."),
    required<&FeatureRom::TimeSinceEpoch>("TimeSinceEpoch", "When the platform was made, in seconds since 1970."),
    required<&FeatureRom::FPGAPartName>("FPGAPartName", "Part of the device; at most 63 bytes are kept."),
    required<&FeatureRom::VBNVName>(
        "VBNVName", "Vendor, board, name and version of the platform, joined by colons; at most 63 bytes are kept."),
    required<&FeatureRom::DDRChannelCount>("DDRChannelCount", "Memory channels, 0 to 255."),
    required<&FeatureRom::DDRChannelSize>("DDRChannelSize", "Size of a memory channel, 0 to 255."),
    required<&FeatureRom::DRBaseAddress>("DRBaseAddress", "Base address of the dynamic region, a decimal number."),
    required<&FeatureRom::FeatureBitMap>("FeatureBitMap", "The features as a bit map, a decimal number."),
    optional<&FeatureRom::UUID>(
        "UUID", "UUID of the platform: hexadecimal digits in groups of 8, 4, 4, 4 and 12, joined by dashes."),
    optional<&FeatureRom::CDMABaseAddress0>("CDMABaseAddress0",
                                            "Base address of the first DMA controller, a decimal number."),
    optional<&FeatureRom::CDMABaseAddress1>("CDMABaseAddress1",
                                            "Base address of the second DMA controller, a decimal number."),
    optional<&FeatureRom::CDMABaseAddress2>("CDMABaseAddress2",
                                            "Base address of the third DMA controller, a decimal number."),
    optional<&FeatureRom::CDMABaseAddress3>("CDMABaseAddress3",
                                            "Base address of the fourth DMA controller, a decimal number."),
    optional<&FeatureRom::MaxTempLimit>("MaxTempLimit", "Highest temperature; its low eight bits are kept."),
    optional<&FeatureRom::MaxPowerLimit>("MaxPowerLimit", "Highest power; its low eight bits are kept."));
constexpr auto kFeatureRom = xml::element(kFeatureRomAttributes);

constexpr auto kCFAAttributes = xml::attributes<CFA>(
    required<&CFA::Vendor>("Vendor", "Who makes the platform."),
    required<&CFA::BoardId>("BoardId", "Id of the board in the platform's name."),
    required<&CFA::Name>("Name", "Name of the platform."),
    required<&CFA::VersionMajor>("VersionMajor", "Version of the platform before the point."),
    required<&CFA::VersionMinor>("VersionMinor", "Version of the platform after the point."),
    required<&CFA::Description>("Description", "Text for people: what the platform is."),
    optional<&CFA::FeatureRomTimestamp>(
        "FeatureRomTimestamp",
        "When the platform was made, in seconds since 1970; of platforms that are older than the ROM's own time."),
    optional<&CFA::DcpLogicFunctionStripped>("DcpLogicFunctionStripped",
                                             "Whether the checkpoints are stripped of their logic functions: true, "
                                             "in any letter case; anything else means no."),
    optional<&CFA::DcpEncrypt>(
        "DcpEncrypt", "Whether the checkpoints are encrypted: true, in any letter case; anything else means no."),
    optional<&CFA::Unified>("Unified",
                            "Whether the platform is a unified one: true, in any letter case; anything else means "
                            "no. A file of type HPFM makes it one in any case."),
    optional<&CFA::Fixed>(
        "Fixed",
        "Whether nothing can be linked into the platform: true, in any letter case. Left out, an archive with a "
        "hardware definition is fixed. A file of type HPFM makes it expandable in any case."),
    optional<&CFA::DefaultOutputType>("DefaultOutputType", "What a link makes by default."));
constexpr auto kCFAChildren =
    xml::children<CFA>(atMostOne<&CFA::host>("Host", kHost, "The host that the platform is for."),
                       one<&CFA::build>("Build", kBuild, "How the platform was built and what can be built with it."),
                       atMostOne<&CFA::designIPs>("DesignIPs", kDesignIPs, "The IP in the design."),
                       one<&CFA::board>("Board", kBoard, "The board."),
                       one<&CFA::devices>("Devices", kDevices, "The devices on the board."),
                       one<&CFA::files>("Files", kFiles, "The files in the archive; may be empty."),
                       atMostOne<&CFA::featureRom>("FeatureRom", kFeatureRom, "What the ROM on the card says."));
constexpr auto kCFA = xml::element(kCFAAttributes, kCFAChildren);

constexpr auto kRootAttributes = xml::attributes<Root>(
    required<&Root::VersionMajor>("VersionMajor",
                                  "Version of this format before the point; a document with a number above 1 is "
                                  "refused unless its platform is pre_synth."),
    required<&Root::VersionMinor>("VersionMinor", "Version of this format after the point; never compared."));
constexpr auto kRootChildren =
    xml::children<Root>(atMostOne<&Root::genAppInfo>("GenAppInfo", kGenAppInfo, "The tool that made the document."),
                        one<&Root::cfa>("CFA", kCFA, "The hardware platform."));
constexpr auto kRoot = xml::element(kRootAttributes, kRootChildren);

}  // namespace

constexpr xml::Document<Root> kDocument =
    xml::document("", "", "Root", kRoot, "The metadata of an older hardware archive.");

}  // namespace BasePlatform
