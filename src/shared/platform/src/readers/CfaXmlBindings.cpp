#include "hardware/RomNames.h"
#include "platform/HPLAddressSegment.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPCIeId.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "readers/Bindings.h"

namespace binding {

using namespace BasePlatform;

using A = Fields<GenAppInfo, HPLPlatform>;
constexpr auto kGenAppInfo =
    A::rows(A::both<&A::R::Name, &A::M::getGeneratedName, &A::M::setGeneratedName>(),
            A::both<&A::R::Version, &A::M::getGeneratedVersion, &A::M::setGeneratedVersion>(),
            A::cut<&A::R::CL, &A::M::getGeneratedChangeList, &A::M::setGeneratedChangeList>(),
            A::both<&A::R::TimeStamp, &A::M::getGeneratedTimestamp, &A::M::setGeneratedTimestamp>());

using C = Fields<CFA, HPLPlatform>;
constexpr auto kCFA = C::rows(
    C::both<&C::R::Vendor, &C::M::getVendor, &C::M::setVendor>(),
    C::both<&C::R::BoardId, &C::M::getBoardId, &C::M::setBoardId>(),
    C::both<&C::R::Name, &C::M::getName, &C::M::setName>(),
    C::both<&C::R::VersionMajor, &C::M::getVersionMajor, &C::M::setVersionMajor>(),
    C::both<&C::R::VersionMinor, &C::M::getVersionMinor, &C::M::setVersionMinor>(),
    C::both<&C::R::Description, &C::M::getDescription, &C::M::setDescription>(),
    C::both<&C::R::FeatureRomTimestamp, &C::M::getOldFeatureRomTime, &C::M::setOldFeatureRomTime>(),
    C::onlySet(C::flag<&C::R::DcpLogicFunctionStripped, &C::M::isDcpFuncStripped, &C::M::setDcpFuncStripped>()),
    C::onlySet(C::flag<&C::R::DcpEncrypt, &C::M::isDcpEncrypt, &C::M::setDcpEncrypt>()),
    C::onlySet(C::flag<&C::R::Unified, &C::M::isUnifiedPlatform, &C::M::setUnifiedPlatform>()),
    C::optional(C::both<&C::R::DefaultOutputType, &C::M::getDefaultOutputType, &C::M::setDefaultOutputType>()));

using H = Fields<Host, HPLPlatform>;
constexpr auto kHost =
    H::rows(H::both<&H::R::Architecture, &H::M::getHostArch, &H::M::setHostArch>(),
            H::optional(H::both<&H::R::Interface, &H::M::getHostInterface, &H::M::setHostInterface>()));

// The writer omits the default format, which is not the empty one.
using B = Fields<Build, HPLPlatform>;
constexpr auto kBuild =
    B::rows(B::optional(B::both<&B::R::PlatformState, &B::M::getPlatformState, &B::M::setPlatformState>()),
            B::onlySet(B::flag<&B::R::UsesPR, &B::M::usesPR, &B::M::setUsesPR>()),
            B::optional(B::both<&B::R::TopModuleName, &B::M::getTopModuleName, &B::M::setTopModuleName>()),
            B::onlySet(B::readOnly<&B::R::AcceleratorBinaryFormat, &B::M::setAcceleratorBinaryFormat>()),
            B::onlySet(B::both<&B::R::AcceleratorBinaryContent, &B::M::getAcceleratorBinaryContent,
                               &B::M::setAcceleratorBinaryContent>()));

using D = Fields<IP, HTEQDesignIPInstance>;
constexpr auto kIP = D::rows(D::both<&D::R::VLNV, &D::M::getVLNV, &D::M::setVLNV>(),
                             D::both<&D::R::InstanceName, &D::M::getInstanceName, &D::M::setInstanceName>());

using Bo = Fields<Board, HPLBoard>;
constexpr auto kBoard =
    Bo::rows(Bo::both<&Bo::R::Name, &Bo::M::getName, &Bo::M::setName>(),
             Bo::both<&Bo::R::Vendor, &Bo::M::getVendor, &Bo::M::setVendor>(),
             Bo::both<&Bo::R::Part, &Bo::M::getPart, &Bo::M::setPart>(),
             Bo::optional(Bo::both<&Bo::R::BoardPart, &Bo::M::getBoardPart, &Bo::M::setBoardPart>()));

using I = Fields<Interface, HPLInterface>;
constexpr auto kInterface =
    I::rows(I::both<&I::R::Id, &I::M::getId, &I::M::setId>(), I::both<&I::R::Name, &I::M::getName, &I::M::setName>(),
            I::both<&I::R::Type, &I::M::getType, &I::M::setType>());

// The addresses are unsigned in the model, and signed in the document.
using M = Fields<Memory, HPLMemory>;
constexpr auto kMemory = M::rows(M::both<&M::R::Name, &M::M::getName, &M::M::setName>(),
                                 M::both<&M::R::Type, &M::M::getType, &M::M::setType>(),
                                 M::both<&M::R::Size, &M::M::getSize, &M::M::setSize>(),
                                 M::cut<&M::R::HighestAddress, &M::M::getHighestAddress, &M::M::setHighestAddress>(),
                                 M::cut<&M::R::LowestAddress, &M::M::getLowestAddress, &M::M::setLowestAddress>());

using Cn = Fields<Connector, HPLBoard::DimmConnector>;
constexpr auto kConnector =
    Cn::rows(Cn::both<&Cn::R::Name, &Cn::M::getName, &Cn::M::setName>(),
             Cn::both<&Cn::R::DisplayName, &Cn::M::getDisplayName, &Cn::M::setDisplayName>(),
             Cn::both<&Cn::R::Type, &Cn::M::getType, &Cn::M::setType>(),
             Cn::optional(Cn::both<&Cn::R::ConnectedConnector, &Cn::M::getConnectedName, &Cn::M::setConnectedName>()),
             Cn::optional(Cn::both<&Cn::R::ConnectedConnectorDisplayName, &Cn::M::getConnectedDisplayName,
                                   &Cn::M::setConnectedDisplayName>()),
             Cn::unlessEmpty(Cn::flag<&Cn::R::IsLocked, &Cn::M::isLocked, &Cn::M::setLocked>()));

using Pc = Fields<PCIeId, HPLPCIeId>;
constexpr auto kPCIeId =
    Pc::rows(Pc::both<&Pc::R::Vendor, &Pc::M::getVendor, &Pc::M::setVendor>(),
             Pc::both<&Pc::R::Device, &Pc::M::getDevice, &Pc::M::setDevice>(),
             Pc::both<&Pc::R::Subsystem, &Pc::M::getSubsystem, &Pc::M::setSubsystem>(),
             Pc::optional(Pc::both<&Pc::R::FeatureId, &Pc::M::getFeatureId, &Pc::M::setFeatureId>()));

using De = Fields<Device, HPLDevice>;
constexpr auto kDevice =
    De::rows(De::both<&De::R::Name, &De::M::getName, &De::M::setName>(),
             De::both<&De::R::Type, &De::M::getType, &De::M::setType>(),
             De::optional(De::both<&De::R::FpgaDevice, &De::M::getFpgaPart, &De::M::setFpgaPart>()));

using Co = Fields<Core, HPLCore>;
constexpr auto kCore = Co::rows(
    Co::both<&Co::R::Name, &Co::M::getName, &Co::M::setName>(),
    Co::both<&Co::R::Type, &Co::M::getType, &Co::M::setType>(),
    Co::saturated<&Co::R::ComputeUnits, &Co::M::getNumComputeUnits, &Co::M::setNumComputeUnits>(),
    Co::optional(Co::both<&Co::R::ClockFreq, &Co::M::getClockFreq, &Co::M::setClockFreq>()),
    Co::optional(Co::both<&Co::R::InstancePath, &Co::M::getInstPath, &Co::M::setInstPath>()),
    Co::optional(Co::both<&Co::R::ParentRMInstancePath, &Co::M::getParentRMInstPath, &Co::M::setParentRMInstPath>()),
    Co::optional(Co::both<&Co::R::VLNV, &Co::M::getVlnv, &Co::M::setVlnv>()),
    Co::unlessEmpty(Co::writeOnly<&Co::R::DRBaseAddress, &Co::M::getDRBaseAddress>()),
    Co::optional(Co::both<&Co::R::DRBDName, &Co::M::getDRBDName, &Co::M::setDRBDName>()));

using Re = Fields<AvailableResources, HPLCore>;
constexpr auto kAvailableResources =
    Re::rows(Re::both<&Re::R::LUT, &Re::M::getLUTCount, &Re::M::setLUTCount>(),
             Re::both<&Re::R::REG, &Re::M::getRegisterCount, &Re::M::setRegisterCount>(),
             Re::both<&Re::R::BRAM, &Re::M::getBRAMCount, &Re::M::setBRAMCount>(),
             Re::both<&Re::R::DSP, &Re::M::getDSPCount, &Re::M::setDSPCount>());

// A port without name or type cannot be written: both are required, and an empty value counts as missing.
using Po = Fields<Port, HPLPort>;
constexpr auto kPort =
    Po::rows(Po::optional(Po::both<&Po::R::Name, &Po::M::getName, &Po::M::setName>()),
             Po::optional(Po::both<&Po::R::Type, &Po::M::getType, &Po::M::setType>()),
             Po::optional(Po::both<&Po::R::Mode, &Po::M::getMode, &Po::M::setMode>()),
             Po::optional(Po::both<&Po::R::Protocol, &Po::M::getProtocol, &Po::M::setProtocol>()),
             Po::optional(Po::both<&Po::R::Base, &Po::M::getBase, &Po::M::setBase>()),
             Po::optional(Po::both<&Po::R::Range, &Po::M::getRange, &Po::M::setRange>()),
             Po::optional(Po::both<&Po::R::DataWidth, &Po::M::getDataWidth, &Po::M::setDataWidth>()),
             Po::optional(Po::both<&Po::R::IdWidth, &Po::M::getIdWidth, &Po::M::setIdWidth>()),
             Po::optional(Po::both<&Po::R::UserWidth, &Po::M::getUserWidth, &Po::M::setUserWidth>()),
             Po::optional(Po::both<&Po::R::AddressWidth, &Po::M::getAddrWidth, &Po::M::setAddrWidth>()),
             Po::optional(Po::both<&Po::R::AddressOffset, &Po::M::getAddrOffset, &Po::M::setAddrOffset>()),
             Po::optional(Po::both<&Po::R::AddressRange, &Po::M::getAddrRange, &Po::M::setAddrRange>()),
             Po::optional(Po::both<&Po::R::MaxBurstLength, &Po::M::getMaxBurstLength, &Po::M::setMaxBurstLength>()),
             Po::optional(Po::both<&Po::R::Frequency, &Po::M::getFrequency, &Po::M::setFrequency>()),
             Po::optional(Po::both<&Po::R::Direction, &Po::M::getDirection, &Po::M::setDirection>()),
             Po::optional(Po::both<&Po::R::Polarity, &Po::M::getPolarity, &Po::M::setPolarity>()));

using Se = Fields<AddressSegment, HPLAddressSegment>;
constexpr auto kAddressSegment = Se::rows(Se::both<&Se::R::Name, &Se::M::getName, &Se::M::setName>(),
                                          Se::both<&Se::R::Base, &Se::M::getBase, &Se::M::setBase>(),
                                          Se::both<&Se::R::Range, &Se::M::getRange, &Se::M::setRange>(),
                                          Se::both<&Se::R::Slave, &Se::M::getSlaveName, &Se::M::setSlaveName>());

using Fi = Fields<File, HPLFile>;
constexpr auto kFile = Fi::rows(
    Fi::both<&Fi::R::Type, &Fi::M::getType, &Fi::M::setType>(),
    Fi::both<&Fi::R::Name, &Fi::M::getName, &Fi::M::setName>(),
    Fi::optional(Fi::both<&Fi::R::UsedIn, &Fi::M::getUsedIn, &Fi::M::setUsedIn>()),
    Fi::optional(Fi::both<&Fi::R::ProcessingOrder, &Fi::M::getProcessingOrder, &Fi::M::setProcessingOrder>()));

using Rom = HTEQHardwareFeatureRom;

std::string partName(const Rom& rom) { return hardware::romNameText(rom.getFPGAPartName()); }
void setPartName(Rom& rom, const std::string& text) { rom.setFPGAPartName(hardware::romName(text).bytes); }
std::string vbnvName(const Rom& rom) { return hardware::romNameText(rom.getVBNVName()); }
void setVbnvName(Rom& rom, const std::string& text) { rom.setVBNVName(hardware::romName(text).bytes); }
void setUuid(Rom& rom, const std::string& text) { rom.setUUID(text); }
template <unsigned I>
std::uint32_t cdmaAddress(const Rom& rom) {
    return rom.getCDMABaseAddress(I);
}
template <unsigned I>
void setCdmaAddress(Rom& rom, std::uint32_t value) {
    rom.setCDMABaseAddress(I, value);
}

using F = Fields<FeatureRom, Rom>;
constexpr auto kFeatureRom = F::rows(
    F::both<&F::R::MajorVersion, &Rom::getMajorVersion, &Rom::setMajorVersion>(),
    F::both<&F::R::MinorVersion, &Rom::getMinorVersion, &Rom::setMinorVersion>(),
    F::both<&F::R::MorwenBuildID, &Rom::getMorwenBuildID, &Rom::setMorwenBuildID>(),
    F::both<&F::R::IPBuildID, &Rom::getIPBuildID, &Rom::setIPBuildID>(),
    F::both<&F::R::TimeSinceEpoch, &Rom::getTimeSinceEpoch, &Rom::setTimeSinceEpoch>(),
    F::both<&F::R::FPGAPartName, &partName, &setPartName>(), F::both<&F::R::VBNVName, &vbnvName, &setVbnvName>(),
    F::both<&F::R::DDRChannelCount, &Rom::getDDRChannelCount, &Rom::setDDRChannelCount>(),
    F::both<&F::R::DDRChannelSize, &Rom::getDDRChannelSize, &Rom::setDDRChannelSize>(),
    F::both<&F::R::DRBaseAddress, &Rom::getDRBaseAddress, &Rom::setDRBaseAddress>(),
    F::both<&F::R::FeatureBitMap, &Rom::getFeatureBitMap, &Rom::setFeatureBitMap>(),
    F::both<&F::R::UUID, &Rom::getUUIDAsString, &setUuid>(),
    F::both<&F::R::CDMABaseAddress0, &cdmaAddress<0>, &setCdmaAddress<0>>(),
    F::both<&F::R::CDMABaseAddress1, &cdmaAddress<1>, &setCdmaAddress<1>>(),
    F::both<&F::R::CDMABaseAddress2, &cdmaAddress<2>, &setCdmaAddress<2>>(),
    F::both<&F::R::CDMABaseAddress3, &cdmaAddress<3>, &setCdmaAddress<3>>(),
    // The ROM has a byte for each limit.
    F::optional(F::cut<&F::R::MaxTempLimit, &Rom::getMaxTempLimit, &Rom::setMaxTempLimit>()),
    F::optional(F::cut<&F::R::MaxPowerLimit, &Rom::getMaxPowerLimit, &Rom::setMaxPowerLimit>()));

std::span<const Row> rowsOf(A) { return kGenAppInfo; }
std::span<const Row> rowsOf(C) { return kCFA; }
std::span<const Row> rowsOf(H) { return kHost; }
std::span<const Row> rowsOf(B) { return kBuild; }
std::span<const Row> rowsOf(D) { return kIP; }
std::span<const Row> rowsOf(Bo) { return kBoard; }
std::span<const Row> rowsOf(I) { return kInterface; }
std::span<const Row> rowsOf(M) { return kMemory; }
std::span<const Row> rowsOf(Cn) { return kConnector; }
std::span<const Row> rowsOf(Pc) { return kPCIeId; }
std::span<const Row> rowsOf(De) { return kDevice; }
std::span<const Row> rowsOf(Co) { return kCore; }
std::span<const Row> rowsOf(Re) { return kAvailableResources; }
std::span<const Row> rowsOf(Po) { return kPort; }
std::span<const Row> rowsOf(Se) { return kAddressSegment; }
std::span<const Row> rowsOf(Fi) { return kFile; }
std::span<const Row> rowsOf(F) { return kFeatureRom; }

}  // namespace binding
