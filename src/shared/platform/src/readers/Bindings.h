#pragma once
#include "platform/HPLBoard.h"
#include "readers/Binding.h"
#include "records/TEQCfaXmlLMX.h"
#include "records/TEQHpfmLMX.h"
#include "records/TEQPlatformLMX.h"
#include "records/TEQSoftwarePlatformLMX.h"

class HPLAddressSegment;
class HPLCore;
class HPLDevice;
class HPLFile;
class HPLInterface;
class HPLMemory;
class HPLPCIeId;
class HPLPlatform;
class HPLPort;
class HTEQBootImg;
class HTEQDesignIPInstance;
class HTEQHardwareAddressSegment;
class HTEQHardwareBusInterface;
class HTEQHardwareFeatureRom;
class HTEQHardwareIPParam;
class HTEQHardwareNocConnectivity;
class HTEQHardwarePlatform;
class HTEQPlatform;
class HTEQProcessorGroup;
class HTEQSoftwarePlatform;
class HTEQSystemClock;
class HTEQSystemConfig;

/// The tables of all XML formats. Lists, and anything derived from several values, are code in the format's reader and
/// writer.
namespace binding {

// The descriptor: DescriptorBindings.cpp.
std::span<const Row> rowsOf(Fields<TEQPlatform::Platform, HTEQPlatform>);

// The software file: SoftwareBindings.cpp.
std::span<const Row> rowsOf(Fields<TEQSoftwarePlatform::SystemConfigurations, HTEQSoftwarePlatform>);
std::span<const Row> rowsOf(Fields<TEQSoftwarePlatform::Configuration, HTEQSystemConfig>);
std::span<const Row> rowsOf(Fields<TEQSoftwarePlatform::ProcessorGroup, HTEQProcessorGroup>);
std::span<const Row> rowsOf(Fields<TEQSoftwarePlatform::Os, HTEQProcessorGroup>);
std::span<const Row> rowsOf(Fields<TEQSoftwarePlatform::Image, HTEQBootImg>);

// The hpfm: HpfmBindings.cpp.
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::Component, HTEQHardwarePlatform>);
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::Clock, HTEQSystemClock>);
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::Parameter, HTEQHardwareIPParam>);
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::NocConnectivity, HTEQHardwareNocConnectivity>);
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::BusInterface, HTEQHardwareBusInterface>);
std::span<const Row> rowsOf(Fields<WELHardwarePlatform::BusInterfaceAddressSegment, HTEQHardwareAddressSegment>);

// The metadata of older archives: CfaXmlBindings.cpp.
std::span<const Row> rowsOf(Fields<BasePlatform::GenAppInfo, HPLPlatform>);
std::span<const Row> rowsOf(Fields<BasePlatform::CFA, HPLPlatform>);
std::span<const Row> rowsOf(Fields<BasePlatform::Host, HPLPlatform>);
std::span<const Row> rowsOf(Fields<BasePlatform::Build, HPLPlatform>);
std::span<const Row> rowsOf(Fields<BasePlatform::IP, HTEQDesignIPInstance>);
std::span<const Row> rowsOf(Fields<BasePlatform::Board, HPLBoard>);
std::span<const Row> rowsOf(Fields<BasePlatform::Interface, HPLInterface>);
std::span<const Row> rowsOf(Fields<BasePlatform::Memory, HPLMemory>);
std::span<const Row> rowsOf(Fields<BasePlatform::Connector, HPLBoard::DimmConnector>);
std::span<const Row> rowsOf(Fields<BasePlatform::PCIeId, HPLPCIeId>);
std::span<const Row> rowsOf(Fields<BasePlatform::Device, HPLDevice>);
std::span<const Row> rowsOf(Fields<BasePlatform::Core, HPLCore>);
std::span<const Row> rowsOf(Fields<BasePlatform::AvailableResources, HPLCore>);
std::span<const Row> rowsOf(Fields<BasePlatform::Port, HPLPort>);
std::span<const Row> rowsOf(Fields<BasePlatform::AddressSegment, HPLAddressSegment>);
std::span<const Row> rowsOf(Fields<BasePlatform::File, HPLFile>);
std::span<const Row> rowsOf(Fields<BasePlatform::FeatureRom, HTEQHardwareFeatureRom>);

}  // namespace binding
