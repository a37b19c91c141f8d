#include "readers/CfaXmlTexts.h"

#include <functional>
#include <type_traits>

namespace cfaxml {

namespace {

using namespace BasePlatform;

/// Makers of rows.
template <class R, class M>
struct Texts {
    template <auto Attr, auto Get, auto Set = nullptr>
    static constexpr Text<R, M> always() {
        return {Attr, [](const M& object) { return std::string(std::invoke(Get, object)); }, setter<Set>(), true};
    }
    template <auto Attr, auto Get, auto Set = nullptr>
    static constexpr Text<R, M> unlessEmpty() {
        Text<R, M> text = always<Attr, Get, Set>();
        text.whenEmpty = false;
        return text;
    }

private:
    template <auto Set>
    static constexpr auto setter() -> void (*)(M&, const std::string&) {
        if constexpr (std::is_same_v<decltype(Set), std::nullptr_t>)
            return nullptr;
        else
            return [](M& object, const std::string& text) { std::invoke(Set, object, text); };
    }
};

using P = HPLPlatform;

using G = Texts<GenAppInfo, P>;
constexpr Text<GenAppInfo, P> kGenAppInfo[] = {
    G::always<&GenAppInfo::Name, &P::getGeneratedName, &P::setGeneratedName>(),
    G::always<&GenAppInfo::Version, &P::getGeneratedVersion, &P::setGeneratedVersion>(),
    G::always<&GenAppInfo::TimeStamp, &P::getGeneratedTimestamp, &P::setGeneratedTimestamp>(),
};

using C = Texts<CFA, P>;
constexpr Text<CFA, P> kCFA[] = {
    C::always<&CFA::Vendor, &P::getVendor, &P::setVendor>(),
    C::always<&CFA::BoardId, &P::getBoardId, &P::setBoardId>(),
    C::always<&CFA::Name, &P::getName, &P::setName>(),
    C::always<&CFA::Description, &P::getDescription, &P::setDescription>(),
    C::unlessEmpty<&CFA::DefaultOutputType, &P::getDefaultOutputType, &P::setDefaultOutputType>(),
};

using H = Texts<Host, P>;
constexpr Text<Host, P> kHost[] = {
    H::always<&Host::Architecture, &P::getHostArch, &P::setHostArch>(),
    H::unlessEmpty<&Host::Interface, &P::getHostInterface, &P::setHostInterface>(),
};

using Bu = Texts<Build, P>;
constexpr Text<Build, P> kBuild[] = {
    Bu::unlessEmpty<&Build::PlatformState, &P::getPlatformState, &P::setPlatformState>(),
    Bu::unlessEmpty<&Build::TopModuleName, &P::getTopModuleName, &P::setTopModuleName>(),
    Bu::always<&Build::AcceleratorBinaryContent, &P::getAcceleratorBinaryContent, &P::setAcceleratorBinaryContent>(),
};

using D = Texts<IP, HTEQDesignIPInstance>;
constexpr Text<IP, HTEQDesignIPInstance> kIP[] = {
    D::always<&IP::VLNV, &HTEQDesignIPInstance::getVLNV, &HTEQDesignIPInstance::setVLNV>(),
    D::always<&IP::InstanceName, &HTEQDesignIPInstance::getInstanceName, &HTEQDesignIPInstance::setInstanceName>(),
};

using Bo = Texts<Board, HPLBoard>;
constexpr Text<Board, HPLBoard> kBoard[] = {
    Bo::always<&Board::Name, &HPLBoard::getName, &HPLBoard::setName>(),
    Bo::always<&Board::Vendor, &HPLBoard::getVendor, &HPLBoard::setVendor>(),
    Bo::always<&Board::Part, &HPLBoard::getPart, &HPLBoard::setPart>(),
    Bo::unlessEmpty<&Board::BoardPart, &HPLBoard::getBoardPart, &HPLBoard::setBoardPart>(),
};

using I = Texts<Interface, HPLInterface>;
constexpr Text<Interface, HPLInterface> kInterface[] = {
    I::always<&Interface::Id, &HPLInterface::getId, &HPLInterface::setId>(),
    I::always<&Interface::Name, &HPLInterface::getName, &HPLInterface::setName>(),
    I::always<&Interface::Type, &HPLInterface::getType, &HPLInterface::setType>(),
};

using M = Texts<Memory, HPLMemory>;
constexpr Text<Memory, HPLMemory> kMemory[] = {
    M::always<&Memory::Name, &HPLMemory::getName, &HPLMemory::setName>(),
    M::always<&Memory::Type, &HPLMemory::getType, &HPLMemory::setType>(),
    M::always<&Memory::Size, &HPLMemory::getSize, &HPLMemory::setSize>(),
};

using Dimm = HPLBoard::DimmConnector;
using Co = Texts<Connector, Dimm>;
constexpr Text<Connector, Dimm> kConnector[] = {
    Co::always<&Connector::Name, &Dimm::getName, &Dimm::setName>(),
    Co::always<&Connector::DisplayName, &Dimm::getDisplayName, &Dimm::setDisplayName>(),
    Co::always<&Connector::Type, &Dimm::getType, &Dimm::setType>(),
    Co::unlessEmpty<&Connector::ConnectedConnector, &Dimm::getConnectedName, &Dimm::setConnectedName>(),
    Co::unlessEmpty<&Connector::ConnectedConnectorDisplayName, &Dimm::getConnectedDisplayName,
                    &Dimm::setConnectedDisplayName>(),
};

using Pc = Texts<PCIeId, HPLPCIeId>;
constexpr Text<PCIeId, HPLPCIeId> kPCIeId[] = {
    Pc::always<&PCIeId::Vendor, &HPLPCIeId::getVendor, &HPLPCIeId::setVendor>(),
    Pc::always<&PCIeId::Device, &HPLPCIeId::getDevice, &HPLPCIeId::setDevice>(),
    Pc::always<&PCIeId::Subsystem, &HPLPCIeId::getSubsystem, &HPLPCIeId::setSubsystem>(),
    Pc::unlessEmpty<&PCIeId::FeatureId, &HPLPCIeId::getFeatureId, &HPLPCIeId::setFeatureId>(),
};

using De = Texts<Device, HPLDevice>;
constexpr Text<Device, HPLDevice> kDevice[] = {
    De::always<&Device::Name, &HPLDevice::getName, &HPLDevice::setName>(),
    De::always<&Device::Type, &HPLDevice::getType, &HPLDevice::setType>(),
    De::unlessEmpty<&Device::FpgaDevice, &HPLDevice::getFpgaPart, &HPLDevice::setFpgaPart>(),
};

using Cr = Texts<Core, HPLCore>;
constexpr Text<Core, HPLCore> kCore[] = {
    Cr::always<&Core::Name, &HPLCore::getName, &HPLCore::setName>(),
    Cr::always<&Core::Type, &HPLCore::getType, &HPLCore::setType>(),
    Cr::unlessEmpty<&Core::ClockFreq, &HPLCore::getClockFreq, &HPLCore::setClockFreq>(),
    Cr::unlessEmpty<&Core::VLNV, &HPLCore::getVlnv, &HPLCore::setVlnv>(),
    Cr::unlessEmpty<&Core::InstancePath, &HPLCore::getInstPath, &HPLCore::setInstPath>(),
    Cr::unlessEmpty<&Core::ParentRMInstancePath, &HPLCore::getParentRMInstPath, &HPLCore::setParentRMInstPath>(),
    Cr::unlessEmpty<&Core::DRBaseAddress, &HPLCore::getDRBaseAddress>(),
    Cr::unlessEmpty<&Core::DRBDName, &HPLCore::getDRBDName, &HPLCore::setDRBDName>(),
};

using Re = Texts<AvailableResources, HPLCore>;
constexpr Text<AvailableResources, HPLCore> kAvailableResources[] = {
    Re::always<&AvailableResources::LUT, &HPLCore::getLUTCount, &HPLCore::setLUTCount>(),
    Re::always<&AvailableResources::REG, &HPLCore::getRegisterCount, &HPLCore::setRegisterCount>(),
    Re::always<&AvailableResources::BRAM, &HPLCore::getBRAMCount, &HPLCore::setBRAMCount>(),
    Re::always<&AvailableResources::DSP, &HPLCore::getDSPCount, &HPLCore::setDSPCount>(),
};

// A port without name or type cannot be written: the texts are required, and an empty one counts as none.
using Po = Texts<Port, HPLPort>;
constexpr Text<Port, HPLPort> kPort[] = {
    Po::unlessEmpty<&Port::Name, &HPLPort::getName, &HPLPort::setName>(),
    Po::unlessEmpty<&Port::Type, &HPLPort::getType, &HPLPort::setType>(),
    Po::unlessEmpty<&Port::Mode, &HPLPort::getMode, &HPLPort::setMode>(),
    Po::unlessEmpty<&Port::Protocol, &HPLPort::getProtocol, &HPLPort::setProtocol>(),
    Po::unlessEmpty<&Port::Base, &HPLPort::getBase, &HPLPort::setBase>(),
    Po::unlessEmpty<&Port::Range, &HPLPort::getRange, &HPLPort::setRange>(),
    Po::unlessEmpty<&Port::DataWidth, &HPLPort::getDataWidth, &HPLPort::setDataWidth>(),
    Po::unlessEmpty<&Port::IdWidth, &HPLPort::getIdWidth, &HPLPort::setIdWidth>(),
    Po::unlessEmpty<&Port::UserWidth, &HPLPort::getUserWidth, &HPLPort::setUserWidth>(),
    Po::unlessEmpty<&Port::AddressWidth, &HPLPort::getAddrWidth, &HPLPort::setAddrWidth>(),
    Po::unlessEmpty<&Port::AddressOffset, &HPLPort::getAddrOffset, &HPLPort::setAddrOffset>(),
    Po::unlessEmpty<&Port::AddressRange, &HPLPort::getAddrRange, &HPLPort::setAddrRange>(),
    Po::unlessEmpty<&Port::MaxBurstLength, &HPLPort::getMaxBurstLength, &HPLPort::setMaxBurstLength>(),
    Po::unlessEmpty<&Port::Frequency, &HPLPort::getFrequency, &HPLPort::setFrequency>(),
    Po::unlessEmpty<&Port::Direction, &HPLPort::getDirection, &HPLPort::setDirection>(),
    Po::unlessEmpty<&Port::Polarity, &HPLPort::getPolarity, &HPLPort::setPolarity>(),
};

using Se = Texts<AddressSegment, HPLAddressSegment>;
constexpr Text<AddressSegment, HPLAddressSegment> kAddressSegment[] = {
    Se::always<&AddressSegment::Name, &HPLAddressSegment::getName, &HPLAddressSegment::setName>(),
    Se::always<&AddressSegment::Base, &HPLAddressSegment::getBase, &HPLAddressSegment::setBase>(),
    Se::always<&AddressSegment::Range, &HPLAddressSegment::getRange, &HPLAddressSegment::setRange>(),
    Se::always<&AddressSegment::Slave, &HPLAddressSegment::getSlaveName, &HPLAddressSegment::setSlaveName>(),
};

using Fi = Texts<File, HPLFile>;
constexpr Text<File, HPLFile> kFile[] = {
    Fi::always<&File::Type, &HPLFile::getType, &HPLFile::setType>(),
    Fi::always<&File::Name, &HPLFile::getName, &HPLFile::setName>(),
    Fi::unlessEmpty<&File::UsedIn, &HPLFile::getUsedIn, &HPLFile::setUsedIn>(),
    Fi::unlessEmpty<&File::ProcessingOrder, &HPLFile::getProcessingOrder, &HPLFile::setProcessingOrder>(),
};

}  // namespace

template <>
std::span<const Text<GenAppInfo, HPLPlatform>> textsOf() {
    return kGenAppInfo;
}
template <>
std::span<const Text<CFA, HPLPlatform>> textsOf() {
    return kCFA;
}
template <>
std::span<const Text<Host, HPLPlatform>> textsOf() {
    return kHost;
}
template <>
std::span<const Text<Build, HPLPlatform>> textsOf() {
    return kBuild;
}
template <>
std::span<const Text<IP, HTEQDesignIPInstance>> textsOf() {
    return kIP;
}
template <>
std::span<const Text<Board, HPLBoard>> textsOf() {
    return kBoard;
}
template <>
std::span<const Text<Interface, HPLInterface>> textsOf() {
    return kInterface;
}
template <>
std::span<const Text<Memory, HPLMemory>> textsOf() {
    return kMemory;
}
template <>
std::span<const Text<Connector, HPLBoard::DimmConnector>> textsOf() {
    return kConnector;
}
template <>
std::span<const Text<PCIeId, HPLPCIeId>> textsOf() {
    return kPCIeId;
}
template <>
std::span<const Text<Device, HPLDevice>> textsOf() {
    return kDevice;
}
template <>
std::span<const Text<Core, HPLCore>> textsOf() {
    return kCore;
}
template <>
std::span<const Text<AvailableResources, HPLCore>> textsOf() {
    return kAvailableResources;
}
template <>
std::span<const Text<Port, HPLPort>> textsOf() {
    return kPort;
}
template <>
std::span<const Text<AddressSegment, HPLAddressSegment>> textsOf() {
    return kAddressSegment;
}
template <>
std::span<const Text<File, HPLFile>> textsOf() {
    return kFile;
}

}  // namespace cfaxml
