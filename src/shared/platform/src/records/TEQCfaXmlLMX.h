#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "xml/XmlRecord.h"

/// Records of the XML metadata of an archive, "cfa.xml" or "lfa.xml": a hardware platform as older tools describe it.
/// A record is named after its element, an attribute's member after the attribute. "Core", "Config" and "Param" occur
/// in two places with different content: below the outer `Core` they are an `InnerCore`, with its `InnerCoreConfig`
/// and `InnerCoreConfigParam`. Flags are texts, true if they are "true" in any letter case; numbers that are texts
/// here are not checked.
namespace BasePlatform {

using xml::Attr;

struct GenAppInfo {
    Attr<std::string> Name;
    Attr<std::string> Version;
    Attr<std::uint64_t> CL;
    Attr<std::string> TimeStamp;
    bool operator==(const GenAppInfo&) const = default;
};

struct Host {
    Attr<std::string> Architecture;
    Attr<std::string> Interface;
    bool operator==(const Host&) const = default;
};

struct ZuncCompileSwitch {
    Attr<std::string> Name;
    Attr<std::string> Value;
    bool operator==(const ZuncCompileSwitch&) const = default;
};

struct ZuncCompileSwitches {
    std::vector<ZuncCompileSwitch> switches;
    bool operator==(const ZuncCompileSwitches&) const = default;
};

struct ZuncLinkSwitch {
    Attr<std::string> Name;
    Attr<std::string> Value;
    bool operator==(const ZuncLinkSwitch&) const = default;
};

struct ZuncLinkSwitches {
    std::vector<ZuncLinkSwitch> switches;
    bool operator==(const ZuncLinkSwitches&) const = default;
};

struct Build {
    Attr<std::string> Flow;
    Attr<std::string> UsesPR;
    Attr<std::string> UsesDCP;
    Attr<std::string> StaticSynthCheckpoint;
    Attr<std::string> PlatformState;
    Attr<std::string> AcceleratorBinaryFormat;
    Attr<std::string> AcceleratorBinaryContent;
    Attr<std::string> ValidBinaryContentValues;  ///< separated by commas
    Attr<std::string> TopModuleName;
    std::optional<ZuncCompileSwitches> compileSwitches;
    std::optional<ZuncLinkSwitches> linkSwitches;
    bool operator==(const Build&) const = default;
};

struct Parameter {
    Attr<std::string> Name;
    Attr<std::string> Value;
    bool operator==(const Parameter&) const = default;
};

struct Configuration {
    std::vector<Parameter> parameters;
    bool operator==(const Configuration&) const = default;
};

struct IP {
    Attr<std::string> InstanceName;
    Attr<std::string> VLNV;
    std::optional<Configuration> configuration;
    bool operator==(const IP&) const = default;
};

struct DesignIPs {
    std::vector<IP> ips;
    bool operator==(const DesignIPs&) const = default;
};

struct Interface {
    Attr<std::string> Id;
    Attr<std::string> Name;
    Attr<std::string> Type;
    bool operator==(const Interface&) const = default;
};

struct Interfaces {
    std::optional<Interface> interface;
    bool operator==(const Interfaces&) const = default;
};

struct Param {
    Attr<std::string> Name;
    Attr<std::string> Value;
    bool operator==(const Param&) const = default;
};

struct Config {
    std::vector<Param> params;
    bool operator==(const Config&) const = default;
};

struct Memory {
    Attr<std::string> Name;
    Attr<std::string> Type;
    Attr<std::string> Size;
    Attr<std::int64_t> LowestAddress;
    Attr<std::int64_t> HighestAddress;
    std::optional<Config> config;
    bool operator==(const Memory&) const = default;
};

struct Memories {
    std::vector<Memory> memories;
    bool operator==(const Memories&) const = default;
};

struct Connector {
    Attr<std::string> Name;
    Attr<std::string> DisplayName;
    Attr<std::string> Type;
    Attr<std::string> ConnectedConnector;
    Attr<std::string> ConnectedConnectorDisplayName;
    Attr<std::string> IsLocked;
    bool operator==(const Connector&) const = default;
};

struct Connectors {
    std::vector<Connector> connectors;
    bool operator==(const Connectors&) const = default;
};

struct Img {
    Attr<std::string> Type;
    Attr<std::string> File;
    bool operator==(const Img&) const = default;
};

struct Images {
    std::vector<Img> imgs;
    bool operator==(const Images&) const = default;
};

struct Driver {
    Attr<std::string> Name;
    Attr<std::string> Vendor;
    Attr<std::string> Version;
    Attr<std::string> Platform;
    Attr<std::string> File;
    bool operator==(const Driver&) const = default;
};

struct Drivers {
    std::vector<Driver> drivers;
    bool operator==(const Drivers&) const = default;
};

struct PCIeId {
    Attr<std::string> Vendor;
    Attr<std::string> Device;
    Attr<std::string> Subsystem;
    Attr<std::string> FeatureId;
    bool operator==(const PCIeId&) const = default;
};

struct Board {
    Attr<std::string> Name;
    Attr<std::string> Vendor;
    Attr<std::string> Part;
    Attr<std::string> BoardPart;
    std::optional<Interfaces> interfaces;
    std::optional<Memories> memories;
    std::optional<Connectors> connectors;
    Images images;
    std::optional<Drivers> drivers;
    std::optional<PCIeId> pcieId;
    bool operator==(const Board&) const = default;
};

struct SystemClock {
    Attr<std::string> Name;
    Attr<std::string> Frequency;
    bool operator==(const SystemClock&) const = default;
};

struct SystemClocks {
    std::vector<SystemClock> clocks;
    bool operator==(const SystemClocks&) const = default;
};

struct InnerCoreConfigParam {
    Attr<std::string> Name;
    Attr<std::string> Value;
    bool operator==(const InnerCoreConfigParam&) const = default;
};

struct InnerCoreConfig {
    std::vector<InnerCoreConfigParam> params;
    bool operator==(const InnerCoreConfig&) const = default;
};

struct AddressSegment {
    Attr<std::string> Name;
    Attr<std::string> Base;
    Attr<std::string> Range;
    Attr<std::string> Slave;
    bool operator==(const AddressSegment&) const = default;
};

struct AddressSegments {
    std::vector<AddressSegment> segments;
    bool operator==(const AddressSegments&) const = default;
};

struct Port {
    Attr<std::string> Name;
    Attr<std::string> Type;
    Attr<std::string> Mode;
    Attr<std::string> Protocol;
    Attr<std::string> Base;
    Attr<std::string> Range;
    Attr<std::string> DataWidth;
    Attr<std::string> IdWidth;
    Attr<std::string> UserWidth;
    Attr<std::string> AddressWidth;
    Attr<std::string> AddressOffset;
    Attr<std::string> AddressRange;
    Attr<std::string> MaxBurstLength;
    Attr<std::string> Frequency;
    Attr<std::string> Direction;
    Attr<std::string> Polarity;
    std::optional<AddressSegments> addressSegments;
    bool operator==(const Port&) const = default;
};

struct Resource {
    Attr<std::string> Name;
    Attr<std::string> Val;
    bool operator==(const Resource&) const = default;
};

struct PBlock {
    Attr<std::string> Name;
    Attr<std::string> ValidSLRs;  ///< separated by commas
    std::vector<Resource> resources;
    bool operator==(const PBlock&) const = default;
};

struct AvailableResources {
    Attr<std::string> LUT;
    Attr<std::string> REG;
    Attr<std::string> BRAM;
    Attr<std::string> DSP;
    std::vector<PBlock> pblocks;
    bool operator==(const AvailableResources&) const = default;
};

struct InnerCore {
    std::optional<InnerCoreConfig> config;
    std::vector<Port> ports;
    std::optional<AvailableResources> availableResources;
    bool operator==(const InnerCore&) const = default;
};

struct Core {
    Attr<std::string> Name;
    Attr<std::string> Type;
    Attr<std::uint8_t> ComputeUnits;
    Attr<std::string> VLNV;
    Attr<std::string> InstancePath;
    Attr<std::string> ParentRMInstancePath;
    Attr<std::string> ClockFreq;
    Attr<std::string> DRBaseAddress;
    Attr<std::string> DRBDName;
    std::optional<InnerCore> innerCore;
    bool operator==(const Core&) const = default;
};

struct Device {
    Attr<std::string> Name;
    Attr<std::string> Type;
    Attr<std::string> FpgaDevice;  ///< "architecture:device:package:speed" and up to three more fields
    std::optional<SystemClocks> systemClocks;
    Core core;
    bool operator==(const Device&) const = default;
};

struct Devices {
    std::vector<Device> devices;
    bool operator==(const Devices&) const = default;
};

struct File {
    Attr<std::string> Type;
    Attr<std::string> Name;
    Attr<std::string> UsedIn;
    Attr<std::string> ProcessingOrder;
    bool operator==(const File&) const = default;
};

struct Files {
    std::vector<File> files;
    bool operator==(const Files&) const = default;
};

struct FeatureRom {
    Attr<std::uint8_t> MajorVersion;
    Attr<std::uint8_t> MinorVersion;
    Attr<std::uint32_t> MorwenBuildID;
    Attr<std::uint32_t> IPBuildID;
    Attr<std::uint64_t> TimeSinceEpoch;
    Attr<std::string> FPGAPartName;
    Attr<std::string> VBNVName;
    Attr<std::uint8_t> DDRChannelCount;
    Attr<std::uint8_t> DDRChannelSize;
    Attr<std::uint64_t> DRBaseAddress;
    Attr<std::uint64_t> FeatureBitMap;
    Attr<std::string> UUID;
    Attr<std::uint32_t> CDMABaseAddress0;
    Attr<std::uint32_t> CDMABaseAddress1;
    Attr<std::uint32_t> CDMABaseAddress2;
    Attr<std::uint32_t> CDMABaseAddress3;
    Attr<std::uint32_t> MaxTempLimit;
    Attr<std::uint32_t> MaxPowerLimit;
    bool operator==(const FeatureRom&) const = default;
};

struct CFA {
    Attr<std::string> Vendor;
    Attr<std::string> BoardId;
    Attr<std::string> Name;
    Attr<std::uint32_t> VersionMajor;  ///< of the platform
    Attr<std::uint32_t> VersionMinor;
    Attr<std::string> Description;
    Attr<std::uint64_t> FeatureRomTimestamp;
    Attr<std::string> DcpLogicFunctionStripped;
    Attr<std::string> DcpEncrypt;
    Attr<std::string> Unified;
    Attr<std::string> Fixed;
    Attr<std::string> DefaultOutputType;
    std::optional<Host> host;
    Build build;
    std::optional<DesignIPs> designIPs;
    Board board;
    Devices devices;
    Files files;
    std::optional<FeatureRom> featureRom;
    bool operator==(const CFA&) const = default;
};

struct Root {
    Attr<std::uint32_t> VersionMajor{1};  ///< of the schema: a document with a greater one is newer than this library
    Attr<std::uint32_t> VersionMinor{15};
    std::optional<GenAppInfo> genAppInfo;
    CFA cfa;
    bool operator==(const Root&) const = default;
};

/// The whole format, for `xml::read` and `xml::write`.
extern const xml::Document<Root> kDocument;

}  // namespace BasePlatform
