#include "records/TEQHpfmLMX.h"

namespace WELHardwarePlatform {

namespace {

using xml::atMostOne;
using xml::kText;
using xml::many;
using xml::one;
using xml::optional;
using xml::required;

constexpr auto kDeviceInfoAttributes = xml::attributes<DeviceInfo>(
    optional<&DeviceInfo::name>("name"), required<&DeviceInfo::architecture>("architecture"),
    required<&DeviceInfo::device>("device"), required<&DeviceInfo::package>("package"),
    required<&DeviceInfo::speedGrade>("speedGrade"));
constexpr auto kDeviceInfo = xml::element(kDeviceInfoAttributes);

constexpr auto kRegisteredDevicesAttributes = xml::attributes<RegisteredDevices>(
    required<&RegisteredDevices::kio>("kio"), required<&RegisteredDevices::uio>("uio"));
constexpr auto kRegisteredDevices = xml::element(kRegisteredDevicesAttributes);

constexpr auto kClockAttributes = xml::attributes<Clock>(
    required<&Clock::name>("name"), required<&Clock::instanceRef>("instanceRef"),
    required<&Clock::componentRef>("componentRef"), required<&Clock::frequency>("frequency"),
    required<&Clock::period>("period"), required<&Clock::status>("status"), optional<&Clock::id>("id"),
    optional<&Clock::normalizedPeriod>("normalizedPeriod"), optional<&Clock::clkDomain>("clkDomain"));
constexpr auto kClock = xml::element(kClockAttributes);

constexpr auto kSystemClocksAttributes =
    xml::attributes<SystemClocks>(required<&SystemClocks::defaultClock>("defaultClock"));
constexpr auto kSystemClocksChildren = xml::children<SystemClocks>(many<&SystemClocks::clocks>("clock", kClock));
constexpr auto kSystemClocks = xml::element(kSystemClocksAttributes, kSystemClocksChildren);

constexpr auto kPlatformInfoChildren =
    xml::children<PlatformInfo>(one<&PlatformInfo::deviceInfo>("deviceInfo", kDeviceInfo),
                                atMostOne<&PlatformInfo::registeredDevices>("registeredDevices", kRegisteredDevices),
                                one<&PlatformInfo::description>("description", kText),
                                one<&PlatformInfo::systemClocks>("systemClocks", kSystemClocks));
constexpr auto kPlatformInfo = xml::element(kPlatformInfoChildren);

constexpr auto kParameterAttributes =
    xml::attributes<Parameter>(required<&Parameter::name>("name"), required<&Parameter::instanceRef>("instanceRef"),
                               required<&Parameter::componentRef>("componentRef"),
                               required<&Parameter::isValid>("isValid"), required<&Parameter::value>("value"));
constexpr auto kParameter = xml::element(kParameterAttributes);

constexpr auto kBusInterfaceAddressSegmentAttributes = xml::attributes<BusInterfaceAddressSegment>(
    optional<&BusInterfaceAddressSegment::baseName>("baseName"),
    optional<&BusInterfaceAddressSegment::index>("index"),
    optional<&BusInterfaceAddressSegment::memoryInstance>("memoryInstance"),
    optional<&BusInterfaceAddressSegment::auto_>("auto"), optional<&BusInterfaceAddressSegment::sptag>("sptag"),
    optional<&BusInterfaceAddressSegment::slr>("slr"),
    optional<&BusInterfaceAddressSegment::maxMasters>("maxMasters"),
    optional<&BusInterfaceAddressSegment::name>("name"),
    optional<&BusInterfaceAddressSegment::instanceRef>("instanceRef"),
    optional<&BusInterfaceAddressSegment::region>("region"),
    optional<&BusInterfaceAddressSegment::readBwUsed>("readBwUsed"),
    optional<&BusInterfaceAddressSegment::writeBwUsed>("writeBwUsed"),
    optional<&BusInterfaceAddressSegment::interleave>("interleave"));
constexpr auto kBusInterfaceAddressSegment = xml::element(kBusInterfaceAddressSegmentAttributes);

constexpr auto kBusInterfaceAttributes = xml::attributes<BusInterface>(
    optional<&BusInterface::busTypeRef>("busTypeRef"), required<&BusInterface::name>("name"),
    optional<&BusInterface::instanceRef>("instanceRef"), optional<&BusInterface::componentRef>("componentRef"),
    optional<&BusInterface::mode>("mode"), optional<&BusInterface::category>("category"),
    optional<&BusInterface::dataWidth>("dataWidth"), optional<&BusInterface::clockRef>("clockRef"),
    optional<&BusInterface::resetRef>("resetRef"), optional<&BusInterface::busInterfaceRef>("busInterfaceRef"),
    optional<&BusInterface::memport>("memport"), optional<&BusInterface::sptag>("sptag"),
    optional<&BusInterface::cacheCoherent>("cacheCoherent"), optional<&BusInterface::direction>("direction"),
    optional<&BusInterface::irq>("irq"), optional<&BusInterface::addressSegment>("addressSegment"),
    optional<&BusInterface::memoryInstance>("memoryInstance"), optional<&BusInterface::clkDomain>("clkDomain"),
    optional<&BusInterface::hasTlast>("hasTlast"), optional<&BusInterface::idBits>("idBits"),
    optional<&BusInterface::cardinality>("cardinality"), optional<&BusInterface::size>("size"),
    optional<&BusInterface::slr>("slr"), optional<&BusInterface::peakMemoryBandwidth>("peakMemoryBandwidth"),
    optional<&BusInterface::maxMasters>("maxMasters"), optional<&BusInterface::isrId>("isrId"),
    optional<&BusInterface::auto_>("auto"));
constexpr auto kBusInterfaceChildren =
    xml::children<BusInterface>(many<&BusInterface::addressSegments>("addressSegment", kBusInterfaceAddressSegment));
constexpr auto kBusInterface = xml::element(kBusInterfaceAttributes, kBusInterfaceChildren);

constexpr auto kNocConnectivityAttributes =
    xml::attributes<NocConnectivity>(required<&NocConnectivity::instanceRef>("instanceRef"));
constexpr auto kNocConnectivityChildren =
    xml::children<NocConnectivity>(many<&NocConnectivity::busInterfaces>("busInterface", kBusInterface));
constexpr auto kNocConnectivity = xml::element(kNocConnectivityAttributes, kNocConnectivityChildren);

constexpr auto kResourceEstimatesAttributes = xml::attributes<ResourceEstimates>(
    required<&ResourceEstimates::BRAM>("BRAM"), required<&ResourceEstimates::DSP>("DSP"),
    required<&ResourceEstimates::FF>("FF"), required<&ResourceEstimates::LUT>("LUT"),
    optional<&ResourceEstimates::nocChannelMaxBw>("nocChannelMaxBw"),
    optional<&ResourceEstimates::nocPlNsu>("nocPlNsu"), optional<&ResourceEstimates::nocPlNmu>("nocPlNmu"),
    optional<&ResourceEstimates::nocTilNsu>("nocTilNsu"), optional<&ResourceEstimates::nocTilNmu>("nocTilNmu"));
constexpr auto kResourceEstimates = xml::element(kResourceEstimatesAttributes);

constexpr auto kComponentAttributes = xml::attributes<Component>(
    required<&Component::name>("name"), required<&Component::library>("library"),
    required<&Component::version>("version"), required<&Component::vendor>("vendor"),
    required<&Component::type>("type"), required<&Component::BRAM>("BRAM"), required<&Component::DSP>("DSP"),
    required<&Component::FF>("FF"), required<&Component::LUT>("LUT"));
constexpr auto kComponentChildren =
    xml::children<Component>(one<&Component::platformInfo>("platformInfo", kPlatformInfo),
                             many<&Component::parameters>("parameter", kParameter),
                             many<&Component::busInterfaces>("busInterface", kBusInterface),
                             many<&Component::nocConnectivity>("nocConnectivity", kNocConnectivity),
                             atMostOne<&Component::resourceEstimates>("resourceEstimates", kResourceEstimates));
constexpr auto kComponent = xml::element(kComponentAttributes, kComponentChildren);

constexpr auto kRepositoryAttributes =
    xml::attributes<Repository>(required<&Repository::name>("name"), required<&Repository::library>("library"),
                                required<&Repository::version>("version"), required<&Repository::vendor>("vendor"));
constexpr auto kRepositoryChildren = xml::children<Repository>(one<&Repository::component>("component", kComponent));
constexpr auto kRepository = xml::element(kRepositoryAttributes, kRepositoryChildren);

}  // namespace

constexpr xml::Document<Repository> kDocument =
    xml::document("urn:torvane:kp:hpfm:1.0", "kp", "repository", kRepository);

}  // namespace WELHardwarePlatform
