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

constexpr auto kGenAppInfoAttributes =
    xml::attributes<GenAppInfo>(required<&GenAppInfo::Name>("Name"), required<&GenAppInfo::Version>("Version"),
                                required<&GenAppInfo::CL>("CL"), optional<&GenAppInfo::TimeStamp>("TimeStamp"));
constexpr auto kGenAppInfo = xml::element(kGenAppInfoAttributes);

constexpr auto kHostAttributes =
    xml::attributes<Host>(required<&Host::Architecture>("Architecture"), optional<&Host::Interface>("Interface"));
constexpr auto kHost = xml::element(kHostAttributes);

constexpr auto kZuncCompileSwitchAttributes = xml::attributes<ZuncCompileSwitch>(
    required<&ZuncCompileSwitch::Name>("Name"), required<&ZuncCompileSwitch::Value>("Value"));
constexpr auto kZuncCompileSwitch = xml::element(kZuncCompileSwitchAttributes);

constexpr auto kZuncCompileSwitchesChildren =
    xml::children<ZuncCompileSwitches>(many<&ZuncCompileSwitches::switches>("ZuncCompileSwitch", kZuncCompileSwitch));
constexpr auto kZuncCompileSwitches = xml::element(kZuncCompileSwitchesChildren);

constexpr auto kZuncLinkSwitchAttributes = xml::attributes<ZuncLinkSwitch>(required<&ZuncLinkSwitch::Name>("Name"),
                                                                           required<&ZuncLinkSwitch::Value>("Value"));
constexpr auto kZuncLinkSwitch = xml::element(kZuncLinkSwitchAttributes);

constexpr auto kZuncLinkSwitchesChildren =
    xml::children<ZuncLinkSwitches>(many<&ZuncLinkSwitches::switches>("ZuncLinkSwitch", kZuncLinkSwitch));
constexpr auto kZuncLinkSwitches = xml::element(kZuncLinkSwitchesChildren);

constexpr auto kBuildAttributes = xml::attributes<Build>(
    optional<&Build::Flow>("Flow"), optional<&Build::UsesPR>("UsesPR"), optional<&Build::UsesDCP>("UsesDCP"),
    optional<&Build::StaticSynthCheckpoint>("StaticSynthCheckpoint"),
    optional<&Build::PlatformState>("PlatformState"),
    optional<&Build::AcceleratorBinaryFormat>("AcceleratorBinaryFormat"),
    optional<&Build::AcceleratorBinaryContent>("AcceleratorBinaryContent"),
    optional<&Build::ValidBinaryContentValues>("ValidBinaryContentValues"),
    optional<&Build::TopModuleName>("TopModuleName"));
constexpr auto kBuildChildren =
    xml::children<Build>(atMostOne<&Build::compileSwitches>("ZuncCompileSwitches", kZuncCompileSwitches),
                         atMostOne<&Build::linkSwitches>("ZuncLinkSwitches", kZuncLinkSwitches));
constexpr auto kBuild = xml::element(kBuildAttributes, kBuildChildren);

constexpr auto kParameterAttributes =
    xml::attributes<Parameter>(required<&Parameter::Name>("Name"), required<&Parameter::Value>("Value"));
constexpr auto kParameter = xml::element(kParameterAttributes);

constexpr auto kConfigurationChildren =
    xml::children<Configuration>(many<&Configuration::parameters>("Parameter", kParameter));
constexpr auto kConfiguration = xml::element(kConfigurationChildren);

constexpr auto kIPAttributes =
    xml::attributes<IP>(required<&IP::InstanceName>("InstanceName"), required<&IP::VLNV>("VLNV"));
constexpr auto kIPChildren = xml::children<IP>(atMostOne<&IP::configuration>("Configuration", kConfiguration));
constexpr auto kIP = xml::element(kIPAttributes, kIPChildren);

constexpr auto kDesignIPsChildren = xml::children<DesignIPs>(many<&DesignIPs::ips>("IP", kIP));
constexpr auto kDesignIPs = xml::element(kDesignIPsChildren);

constexpr auto kInterfaceAttributes = xml::attributes<Interface>(
    required<&Interface::Id>("Id"), required<&Interface::Name>("Name"), required<&Interface::Type>("Type"));
constexpr auto kInterface = xml::element(kInterfaceAttributes);

constexpr auto kInterfacesChildren =
    xml::children<Interfaces>(oneWhenWritten<&Interfaces::interface>("Interface", kInterface));
constexpr auto kInterfaces = xml::element(kInterfacesChildren);

constexpr auto kParamAttributes =
    xml::attributes<Param>(required<&Param::Name>("Name"), required<&Param::Value>("Value"));
constexpr auto kParam = xml::element(kParamAttributes);

constexpr auto kConfigChildren = xml::children<Config>(many<&Config::params>("Param", kParam));
constexpr auto kConfig = xml::element(kConfigChildren);

constexpr auto kMemoryAttributes = xml::attributes<Memory>(
    required<&Memory::Name>("Name"), required<&Memory::Type>("Type"), required<&Memory::Size>("Size"),
    optional<&Memory::LowestAddress>("LowestAddress"), optional<&Memory::HighestAddress>("HighestAddress"));
constexpr auto kMemoryChildren = xml::children<Memory>(atMostOne<&Memory::config>("Config", kConfig));
constexpr auto kMemory = xml::element(kMemoryAttributes, kMemoryChildren);

constexpr auto kMemoriesChildren = xml::children<Memories>(many<&Memories::memories>("Memory", kMemory));
constexpr auto kMemories = xml::element(kMemoriesChildren);

constexpr auto kConnectorAttributes = xml::attributes<Connector>(
    required<&Connector::Name>("Name"), required<&Connector::DisplayName>("DisplayName"),
    required<&Connector::Type>("Type"), optional<&Connector::ConnectedConnector>("ConnectedConnector"),
    optional<&Connector::ConnectedConnectorDisplayName>("ConnectedConnectorDisplayName"),
    optional<&Connector::IsLocked>("IsLocked"));
constexpr auto kConnector = xml::element(kConnectorAttributes);

constexpr auto kConnectorsChildren =
    xml::children<Connectors>(many<&Connectors::connectors>("Connector", kConnector));
constexpr auto kConnectors = xml::element(kConnectorsChildren);

constexpr auto kImgAttributes = xml::attributes<Img>(required<&Img::Type>("Type"), required<&Img::File>("File"));
constexpr auto kImg = xml::element(kImgAttributes);

constexpr auto kImagesChildren = xml::children<Images>(many<&Images::imgs>("Img", kImg));
constexpr auto kImages = xml::element(kImagesChildren);

constexpr auto kDriverAttributes = xml::attributes<Driver>(
    required<&Driver::Name>("Name"), required<&Driver::Vendor>("Vendor"), required<&Driver::Version>("Version"),
    optional<&Driver::Platform>("Platform"), required<&Driver::File>("File"));
constexpr auto kDriver = xml::element(kDriverAttributes);

constexpr auto kDriversChildren = xml::children<Drivers>(many<&Drivers::drivers>("Driver", kDriver));
constexpr auto kDrivers = xml::element(kDriversChildren);

constexpr auto kPCIeIdAttributes =
    xml::attributes<PCIeId>(required<&PCIeId::Vendor>("Vendor"), required<&PCIeId::Device>("Device"),
                            required<&PCIeId::Subsystem>("Subsystem"), optional<&PCIeId::FeatureId>("FeatureId"));
constexpr auto kPCIeId = xml::element(kPCIeIdAttributes);

constexpr auto kBoardAttributes =
    xml::attributes<Board>(required<&Board::Name>("Name"), required<&Board::Vendor>("Vendor"),
                           required<&Board::Part>("Part"), optional<&Board::BoardPart>("BoardPart"));
constexpr auto kBoardChildren = xml::children<Board>(
    atMostOne<&Board::interfaces>("Interfaces", kInterfaces), atMostOne<&Board::memories>("Memories", kMemories),
    atMostOne<&Board::connectors>("Connectors", kConnectors), one<&Board::images>("Images", kImages),
    atMostOne<&Board::drivers>("Drivers", kDrivers), atMostOne<&Board::pcieId>("PCIeId", kPCIeId));
constexpr auto kBoard = xml::element(kBoardAttributes, kBoardChildren);

constexpr auto kSystemClockAttributes = xml::attributes<SystemClock>(required<&SystemClock::Name>("Name"),
                                                                     required<&SystemClock::Frequency>("Frequency"));
constexpr auto kSystemClock = xml::element(kSystemClockAttributes);

constexpr auto kSystemClocksChildren =
    xml::children<SystemClocks>(many<&SystemClocks::clocks>("SystemClock", kSystemClock));
constexpr auto kSystemClocks = xml::element(kSystemClocksChildren);

constexpr auto kInnerCoreConfigParamAttributes = xml::attributes<InnerCoreConfigParam>(
    required<&InnerCoreConfigParam::Name>("Name"), required<&InnerCoreConfigParam::Value>("Value"));
constexpr auto kInnerCoreConfigParam = xml::element(kInnerCoreConfigParamAttributes);

constexpr auto kInnerCoreConfigChildren =
    xml::children<InnerCoreConfig>(many<&InnerCoreConfig::params>("Param", kInnerCoreConfigParam));
constexpr auto kInnerCoreConfig = xml::element(kInnerCoreConfigChildren);

constexpr auto kAddressSegmentAttributes = xml::attributes<AddressSegment>(
    required<&AddressSegment::Name>("Name"), required<&AddressSegment::Base>("Base"),
    required<&AddressSegment::Range>("Range"), required<&AddressSegment::Slave>("Slave"));
constexpr auto kAddressSegment = xml::element(kAddressSegmentAttributes);

constexpr auto kAddressSegmentsChildren =
    xml::children<AddressSegments>(many<&AddressSegments::segments>("AddressSegment", kAddressSegment));
constexpr auto kAddressSegments = xml::element(kAddressSegmentsChildren);

constexpr auto kPortAttributes = xml::attributes<Port>(
    required<&Port::Name>("Name"), required<&Port::Type>("Type"), optional<&Port::Mode>("Mode"),
    optional<&Port::Protocol>("Protocol"), optional<&Port::Base>("Base"), optional<&Port::Range>("Range"),
    optional<&Port::DataWidth>("DataWidth"), optional<&Port::IdWidth>("IdWidth"),
    optional<&Port::UserWidth>("UserWidth"), optional<&Port::AddressWidth>("AddressWidth"),
    optional<&Port::AddressOffset>("AddressOffset"), optional<&Port::AddressRange>("AddressRange"),
    optional<&Port::MaxBurstLength>("MaxBurstLength"), optional<&Port::Frequency>("Frequency"),
    optional<&Port::Direction>("Direction"), optional<&Port::Polarity>("Polarity"));
constexpr auto kPortChildren =
    xml::children<Port>(atMostOne<&Port::addressSegments>("AddressSegments", kAddressSegments));
constexpr auto kPort = xml::element(kPortAttributes, kPortChildren);

constexpr auto kResourceAttributes =
    xml::attributes<Resource>(required<&Resource::Name>("Name"), required<&Resource::Val>("Val"));
constexpr auto kResource = xml::element(kResourceAttributes);

constexpr auto kPBlockAttributes =
    xml::attributes<PBlock>(required<&PBlock::Name>("Name"), optional<&PBlock::ValidSLRs>("ValidSLRs"));
constexpr auto kPBlockChildren = xml::children<PBlock>(many<&PBlock::resources>("Resource", kResource));
constexpr auto kPBlock = xml::element(kPBlockAttributes, kPBlockChildren);

constexpr auto kAvailableResourcesAttributes = xml::attributes<AvailableResources>(
    required<&AvailableResources::LUT>("LUT"), required<&AvailableResources::REG>("REG"),
    required<&AvailableResources::BRAM>("BRAM"), required<&AvailableResources::DSP>("DSP"));
constexpr auto kAvailableResourcesChildren =
    xml::children<AvailableResources>(many<&AvailableResources::pblocks>("PBlock", kPBlock));
constexpr auto kAvailableResources = xml::element(kAvailableResourcesAttributes, kAvailableResourcesChildren);

constexpr auto kInnerCoreChildren = xml::children<InnerCore>(
    atMostOne<&InnerCore::config>("Config", kInnerCoreConfig), many<&InnerCore::ports>("Port", kPort),
    atMostOne<&InnerCore::availableResources>("AvailableResources", kAvailableResources));
constexpr auto kInnerCore = xml::element(kInnerCoreChildren);

constexpr auto kCoreAttributes = xml::attributes<Core>(
    required<&Core::Name>("Name"), required<&Core::Type>("Type"), required<&Core::ComputeUnits>("ComputeUnits"),
    optional<&Core::VLNV>("VLNV"), optional<&Core::InstancePath>("InstancePath"),
    optional<&Core::ParentRMInstancePath>("ParentRMInstancePath"), optional<&Core::ClockFreq>("ClockFreq"),
    optional<&Core::DRBaseAddress>("DRBaseAddress"), optional<&Core::DRBDName>("DRBDName"));
constexpr auto kCoreChildren = xml::children<Core>(atMostOne<&Core::innerCore>("Core", kInnerCore));
constexpr auto kCore = xml::element(kCoreAttributes, kCoreChildren);

constexpr auto kDeviceAttributes = xml::attributes<Device>(
    required<&Device::Name>("Name"), required<&Device::Type>("Type"), optional<&Device::FpgaDevice>("FpgaDevice"));
constexpr auto kDeviceChildren = xml::children<Device>(
    atMostOne<&Device::systemClocks>("SystemClocks", kSystemClocks), one<&Device::core>("Core", kCore));
constexpr auto kDevice = xml::element(kDeviceAttributes, kDeviceChildren);

constexpr auto kDevicesChildren = xml::children<Devices>(atLeastOne<&Devices::devices>("Device", kDevice));
constexpr auto kDevices = xml::element(kDevicesChildren);

constexpr auto kFileAttributes =
    xml::attributes<File>(required<&File::Type>("Type"), required<&File::Name>("Name"),
                          optional<&File::UsedIn>("UsedIn"), optional<&File::ProcessingOrder>("ProcessingOrder"));
constexpr auto kFile = xml::element(kFileAttributes);

constexpr auto kFilesChildren = xml::children<Files>(many<&Files::files>("File", kFile));
constexpr auto kFiles = xml::element(kFilesChildren);

constexpr auto kFeatureRomAttributes = xml::attributes<FeatureRom>(
    required<&FeatureRom::MajorVersion>("MajorVersion"), required<&FeatureRom::MinorVersion>("MinorVersion"),
    required<&FeatureRom::MorwenBuildID>("MorwenBuildID"), required<&FeatureRom::IPBuildID>("IPBuildID"),
    required<&FeatureRom::TimeSinceEpoch>("TimeSinceEpoch"), required<&FeatureRom::FPGAPartName>("FPGAPartName"),
    required<&FeatureRom::VBNVName>("VBNVName"), required<&FeatureRom::DDRChannelCount>("DDRChannelCount"),
    required<&FeatureRom::DDRChannelSize>("DDRChannelSize"), required<&FeatureRom::DRBaseAddress>("DRBaseAddress"),
    required<&FeatureRom::FeatureBitMap>("FeatureBitMap"), optional<&FeatureRom::UUID>("UUID"),
    optional<&FeatureRom::CDMABaseAddress0>("CDMABaseAddress0"),
    optional<&FeatureRom::CDMABaseAddress1>("CDMABaseAddress1"),
    optional<&FeatureRom::CDMABaseAddress2>("CDMABaseAddress2"),
    optional<&FeatureRom::CDMABaseAddress3>("CDMABaseAddress3"), optional<&FeatureRom::MaxTempLimit>("MaxTempLimit"),
    optional<&FeatureRom::MaxPowerLimit>("MaxPowerLimit"));
constexpr auto kFeatureRom = xml::element(kFeatureRomAttributes);

constexpr auto kCFAAttributes = xml::attributes<CFA>(
    required<&CFA::Vendor>("Vendor"), required<&CFA::BoardId>("BoardId"), required<&CFA::Name>("Name"),
    required<&CFA::VersionMajor>("VersionMajor"), required<&CFA::VersionMinor>("VersionMinor"),
    required<&CFA::Description>("Description"), optional<&CFA::FeatureRomTimestamp>("FeatureRomTimestamp"),
    optional<&CFA::DcpLogicFunctionStripped>("DcpLogicFunctionStripped"), optional<&CFA::DcpEncrypt>("DcpEncrypt"),
    optional<&CFA::Unified>("Unified"), optional<&CFA::Fixed>("Fixed"),
    optional<&CFA::DefaultOutputType>("DefaultOutputType"));
constexpr auto kCFAChildren =
    xml::children<CFA>(atMostOne<&CFA::host>("Host", kHost), one<&CFA::build>("Build", kBuild),
                       atMostOne<&CFA::designIPs>("DesignIPs", kDesignIPs), one<&CFA::board>("Board", kBoard),
                       one<&CFA::devices>("Devices", kDevices), one<&CFA::files>("Files", kFiles),
                       atMostOne<&CFA::featureRom>("FeatureRom", kFeatureRom));
constexpr auto kCFA = xml::element(kCFAAttributes, kCFAChildren);

constexpr auto kRootAttributes = xml::attributes<Root>(required<&Root::VersionMajor>("VersionMajor"),
                                                       required<&Root::VersionMinor>("VersionMinor"));
constexpr auto kRootChildren =
    xml::children<Root>(atMostOne<&Root::genAppInfo>("GenAppInfo", kGenAppInfo), one<&Root::cfa>("CFA", kCFA));
constexpr auto kRoot = xml::element(kRootAttributes, kRootChildren);

}  // namespace

constexpr xml::Document<Root> kDocument = xml::document("", "", "Root", kRoot);

}  // namespace BasePlatform
