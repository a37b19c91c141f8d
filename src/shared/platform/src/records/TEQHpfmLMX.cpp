#include "records/TEQHpfmLMX.h"

#include "xml/XmlRecord.h"

namespace WELHardwarePlatform {

namespace {

using xml::atMostOne;
using xml::kText;
using xml::many;
using xml::one;
using xml::optional;
using xml::required;

constexpr auto kDeviceInfoAttributes = xml::attributes<DeviceInfo>(
    optional<&DeviceInfo::name>("name", "Name of the device."),
    required<&DeviceInfo::architecture>(
        "architecture", "Family of the device. Not read into a platform, as the other values of this element."),
    required<&DeviceInfo::device>("device", "Device in the family."),
    required<&DeviceInfo::package>("package", "Package of the device."),
    required<&DeviceInfo::speedGrade>("speedGrade", "Speed grade, with its dash, such as -2L."));
constexpr auto kDeviceInfo = xml::element(kDeviceInfoAttributes);

constexpr auto kRegisteredDevicesAttributes = xml::attributes<RegisteredDevices>(
    required<&RegisteredDevices::kio>("kio", "A number of registered devices, 0 to 65535. Not read into a platform."),
    required<&RegisteredDevices::uio>("uio",
                                      "A number of registered devices, 0 to 65535. Not read into a platform."));
constexpr auto kRegisteredDevices = xml::element(kRegisteredDevicesAttributes);

constexpr auto kClockAttributes = xml::attributes<Clock>(
    required<&Clock::name>("name",
                           "Name of the clock in the design. A clock with an id is called \"PL \" and the id, and "
                           "keeps this as its original name."),
    required<&Clock::instanceRef>("instanceRef", "Instance that makes the clock."),
    required<&Clock::componentRef>("componentRef", "Component that the instance is of."),
    required<&Clock::frequency>("frequency", "Frequency, a decimal number without a unit; stored unchanged."),
    required<&Clock::period>("period", "Period, a decimal number without a unit; stored unchanged."),
    required<&Clock::status>("status", "fixed, scalable, changeable or reserved, in any letter case."),
    optional<&Clock::id>("id",
                         "Number of the clock, 0 to 65535. Of several clocks with one number the last answers; "
                         "without it a clock is never the default one."),
    optional<&Clock::normalizedPeriod>("normalizedPeriod",
                                       "The normalised period, a decimal number; stored unchanged."),
    optional<&Clock::clkDomain>("clkDomain", "Clock domain. Not read into a platform."));
constexpr auto kClock = xml::element(kClockAttributes);

constexpr auto kSystemClocksAttributes = xml::attributes<SystemClocks>(
    required<&SystemClocks::defaultClock>("defaultClock", "Id of the default clock of kernels, 0 to 65535."));
constexpr auto kSystemClocksChildren =
    xml::children<SystemClocks>(many<&SystemClocks::clocks>("clock", kClock, "A clock that the platform offers."));
constexpr auto kSystemClocks = xml::element(kSystemClocksAttributes, kSystemClocksChildren);

constexpr auto kPlatformInfoChildren = xml::children<PlatformInfo>(
    one<&PlatformInfo::deviceInfo>("deviceInfo", kDeviceInfo, "The device that the platform is for."),
    atMostOne<&PlatformInfo::registeredDevices>("registeredDevices", kRegisteredDevices,
                                                "Numbers of registered devices."),
    one<&PlatformInfo::description>(
        "description", kText,
        "Text for people: what the platform is. It takes the place of what the archive's metadata says."),
    one<&PlatformInfo::systemClocks>("systemClocks", kSystemClocks, "The clocks of the platform."));
constexpr auto kPlatformInfo = xml::element(kPlatformInfoChildren);

constexpr auto kParameterAttributes = xml::attributes<Parameter>(
    required<&Parameter::name>("name", "Name of the parameter."),
    required<&Parameter::instanceRef>("instanceRef", "Instance that the parameter is of."),
    required<&Parameter::componentRef>("componentRef", "Component that the instance is of."),
    required<&Parameter::isValid>("isValid", "Whether the value is valid: true or false. Kept as text."),
    required<&Parameter::value>("value", "Value of the parameter."));
constexpr auto kParameter = xml::element(kParameterAttributes);

constexpr auto kBusInterfaceAddressSegmentAttributes = xml::attributes<BusInterfaceAddressSegment>(
    optional<&BusInterfaceAddressSegment::baseName>("baseName", "Name of the segment without its number."),
    optional<&BusInterfaceAddressSegment::index>("index",
                                                 "Index of the memory bank that the segment represents, 0 to 65535."),
    optional<&BusInterfaceAddressSegment::memoryInstance>("memoryInstance", "Instance of the segment's memory."),
    optional<&BusInterfaceAddressSegment::auto_>(
        "auto",
        "Whether a linker may assign the bank by itself: true, preferred (it is a default bank too), or false. "
        "Exactly so, in small letters."),
    optional<&BusInterfaceAddressSegment::sptag>("sptag", "Tag of the memory, such as HBM or bank0."),
    optional<&BusInterfaceAddressSegment::slr>("slr", "Region of the device that the bank is in, such as SLR0."),
    optional<&BusInterfaceAddressSegment::maxMasters>("maxMasters",
                                                      "How many masters may use the segment, 0 to 65535."),
    optional<&BusInterfaceAddressSegment::name>("name", "Name of the segment."),
    optional<&BusInterfaceAddressSegment::instanceRef>("instanceRef", "Instance that the segment is of."),
    optional<&BusInterfaceAddressSegment::region>("region", "Region of the memory."),
    optional<&BusInterfaceAddressSegment::readBwUsed>("readBwUsed",
                                                      "Read bandwidth that is in use already, a whole number."),
    optional<&BusInterfaceAddressSegment::writeBwUsed>("writeBwUsed",
                                                       "Write bandwidth that is in use already, a whole number."),
    optional<&BusInterfaceAddressSegment::interleave>("interleave", "Size of interleaving, 0 to 4294967295."));
constexpr auto kBusInterfaceAddressSegment = xml::element(kBusInterfaceAddressSegmentAttributes);

constexpr auto kBusInterfaceAttributes = xml::attributes<BusInterface>(
    optional<&BusInterface::busTypeRef>("busTypeRef", "Type of the bus, such as aximm."),
    required<&BusInterface::name>("name", "Name of the interface."),
    optional<&BusInterface::instanceRef>("instanceRef", "Instance that the interface is of."),
    optional<&BusInterface::componentRef>(
        "componentRef",
        "Component that the instance is of; hbm_memory_subsystem makes the address segments HBM banks."),
    optional<&BusInterface::mode>("mode", "Side of the bus: master or slave."),
    optional<&BusInterface::category>("category", "Category of the interface, such as noc."),
    optional<&BusInterface::dataWidth>("dataWidth", "Width of the data in bits, -32768 to 32767."),
    optional<&BusInterface::clockRef>("clockRef", "Clock of the interface."),
    optional<&BusInterface::resetRef>("resetRef", "Reset of the interface. Not read into a platform."),
    optional<&BusInterface::busInterfaceRef>("busInterfaceRef", "Interface that this one refers to."),
    optional<&BusInterface::memport>("memport",
                                     "Memory port: MEMSS for a memory whose banks are indexed, M_AXI_GP and S_AXI_GP "
                                     "for no memory, in any letter case."),
    optional<&BusInterface::sptag>("sptag", "Tag of the interface's memory, such as DDR or HBM."),
    optional<&BusInterface::cacheCoherent>("cacheCoherent",
                                           "Whether the interface is cache coherent. Not read into a platform."),
    optional<&BusInterface::direction>("direction", "Direction of the interface."),
    optional<&BusInterface::irq>("irq", "Number of the interrupt, 0 to 65535. Not read into a platform."),
    optional<&BusInterface::addressSegment>("addressSegment", "Name of the address segment."),
    optional<&BusInterface::memoryInstance>("memoryInstance", "Instance of the interface's memory."),
    optional<&BusInterface::clkDomain>("clkDomain", "Clock domain. Not read into a platform."),
    optional<&BusInterface::hasTlast>("hasTlast", "Whether a stream marks its ends. Not read into a platform."),
    optional<&BusInterface::idBits>("idBits", "Bits of the bus's ids, 0 to 4294967295."),
    optional<&BusInterface::cardinality>("cardinality",
                                         "Cardinality of the interface, 0 to 65535. Not read into a platform."),
    optional<&BusInterface::size>("size", "Size of the interface's memory, such as 16GB."),
    optional<&BusInterface::slr>("slr", "Region of the device that the interface is in, such as SLR0."),
    optional<&BusInterface::peakMemoryBandwidth>("peakMemoryBandwidth",
                                                 "Peak bandwidth of the interface's memory; stored unchanged."),
    optional<&BusInterface::maxMasters>("maxMasters", "How many masters may use the interface, 0 to 65535."),
    optional<&BusInterface::isrId>("isrId", "Number of the interrupt service routine, 0 to 65535."),
    optional<&BusInterface::auto_>("auto",
                                   "Whether a linker may assign the interface by itself. Not read into a platform."));
constexpr auto kBusInterfaceChildren = xml::children<BusInterface>(many<&BusInterface::addressSegments>(
    "addressSegment", kBusInterfaceAddressSegment, "A memory bank of the interface."));
constexpr auto kBusInterface = xml::element(kBusInterfaceAttributes, kBusInterfaceChildren);

constexpr auto kNocConnectivityAttributes = xml::attributes<NocConnectivity>(
    required<&NocConnectivity::instanceRef>("instanceRef", "Instance on the network on chip."));
constexpr auto kNocConnectivityChildren = xml::children<NocConnectivity>(
    many<&NocConnectivity::busInterfaces>("busInterface", kBusInterface, "An interface of the instance."));
constexpr auto kNocConnectivity = xml::element(kNocConnectivityAttributes, kNocConnectivityChildren);

constexpr auto kResourceEstimatesAttributes = xml::attributes<ResourceEstimates>(
    required<&ResourceEstimates::BRAM>(
        "BRAM", "Block RAMs, 0 to 4294967295. Not read into a platform, as the other values of this element."),
    required<&ResourceEstimates::DSP>("DSP", "DSP slices."), required<&ResourceEstimates::FF>("FF", "Flip-flops."),
    required<&ResourceEstimates::LUT>("LUT", "Look-up tables."),
    optional<&ResourceEstimates::nocChannelMaxBw>("nocChannelMaxBw",
                                                  "Greatest bandwidth of a channel of the network on chip."),
    optional<&ResourceEstimates::nocPlNsu>("nocPlNsu", "Slave units of the network on chip in programmable logic."),
    optional<&ResourceEstimates::nocPlNmu>("nocPlNmu", "Master units of the network on chip in programmable logic."),
    optional<&ResourceEstimates::nocTilNsu>("nocTilNsu", "Slave units of the network on chip at the tile array."),
    optional<&ResourceEstimates::nocTilNmu>("nocTilNmu", "Master units of the network on chip at the tile array."));
constexpr auto kResourceEstimates = xml::element(kResourceEstimatesAttributes);

constexpr auto kComponentAttributes = xml::attributes<Component>(
    required<&Component::name>("name", "Name of the component; a platform without a name or a board id takes it."),
    required<&Component::library>("library", "Library that the component belongs to."),
    required<&Component::version>("version", "Version of the component, a decimal number."),
    required<&Component::vendor>("vendor", "Who makes the component; a platform without a vendor takes it."),
    required<&Component::type>("type", "Kind of component."),
    required<&Component::BRAM>("BRAM", "Block RAMs that are free for kernels, 0 to 4294967295."),
    required<&Component::DSP>("DSP", "DSP slices that are free for kernels, 0 to 4294967295."),
    required<&Component::FF>("FF", "Flip-flops that are free for kernels, 0 to 4294967295."),
    required<&Component::LUT>("LUT", "Look-up tables that are free for kernels, 0 to 4294967295."));
constexpr auto kComponentChildren = xml::children<Component>(
    one<&Component::platformInfo>("platformInfo", kPlatformInfo, "Device, clocks and description."),
    many<&Component::parameters>("parameter", kParameter, "A configured value of an instance."),
    many<&Component::busInterfaces>("busInterface", kBusInterface,
                                    "A port of the platform that a linker can attach kernels to."),
    many<&Component::nocConnectivity>("nocConnectivity", kNocConnectivity,
                                      "Interfaces of an instance on the network on chip."),
    atMostOne<&Component::resourceEstimates>("resourceEstimates", kResourceEstimates,
                                             "What the platform itself takes up."));
constexpr auto kComponent = xml::element(kComponentAttributes, kComponentChildren);

constexpr auto kRepositoryAttributes = xml::attributes<Repository>(
    required<&Repository::name>("name", "Name of the repository."),
    required<&Repository::library>("library", "Library that it belongs to."),
    required<&Repository::version>("version", "Version of the repository, a decimal number."),
    required<&Repository::vendor>("vendor", "Who makes it."));
constexpr auto kRepositoryChildren =
    xml::children<Repository>(one<&Repository::component>("component", kComponent, "The hardware of the platform."));
constexpr auto kRepository = xml::element(kRepositoryAttributes, kRepositoryChildren);

}  // namespace

constexpr xml::Document<Repository> kDocument =
    xml::document("urn:torvane:kp:hpfm:1.0", "kp", "repository", kRepository,
                  "The hardware as the generator of the platform sees it.");

}  // namespace WELHardwarePlatform
