#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "xml/XmlAttr.h"

namespace xml {
template <class R>
struct Document;
}

/// Records of an hpfm file: the hardware as the generator of the platform sees it. A record has the name of its
/// element, except `BusInterfaceAddressSegment`, which is the child element `addressSegment` of a bus interface: that
/// element also has an attribute of this name. A member has the name of its attribute or child element; frequencies
/// and periods are texts without a unit.
namespace WELHardwarePlatform {

using xml::Attr;

struct DeviceInfo {
    Attr<std::string> name;
    Attr<std::string> architecture;
    Attr<std::string> device;
    Attr<std::string> package;
    Attr<std::string> speedGrade;
    bool operator==(const DeviceInfo&) const = default;
};

struct RegisteredDevices {
    Attr<std::uint16_t> kio;
    Attr<std::uint16_t> uio;
    bool operator==(const RegisteredDevices&) const = default;
};

struct Clock {
    Attr<std::string> name;
    Attr<std::string> instanceRef;
    Attr<std::string> componentRef;
    Attr<xml::Decimal> frequency;
    Attr<xml::Decimal> period;
    Attr<std::string> status;
    Attr<std::uint16_t> id;
    Attr<xml::Decimal> normalizedPeriod;
    Attr<std::string> clkDomain;
    bool operator==(const Clock&) const = default;
};

struct SystemClocks {
    Attr<std::uint16_t> defaultClock;  ///< id of a clock
    std::vector<Clock> clocks;
    bool operator==(const SystemClocks&) const = default;
};

struct PlatformInfo {
    DeviceInfo deviceInfo;
    std::optional<RegisteredDevices> registeredDevices;
    std::string description;
    SystemClocks systemClocks;
    bool operator==(const PlatformInfo&) const = default;
};

struct Parameter {
    Attr<std::string> name;
    Attr<std::string> instanceRef;
    Attr<std::string> componentRef;
    Attr<std::string> isValid;
    Attr<std::string> value;
    bool operator==(const Parameter&) const = default;
};

struct BusInterfaceAddressSegment {
    Attr<std::string> baseName;
    Attr<std::uint16_t> index;
    Attr<std::string> memoryInstance;
    Attr<std::string> auto_;  ///< "true", "preferred" or "false"
    Attr<std::string> sptag;
    Attr<std::string> slr;
    Attr<std::uint16_t> maxMasters;
    Attr<std::string> name;
    Attr<std::string> instanceRef;
    Attr<std::string> region;
    Attr<xml::Integer> readBwUsed;
    Attr<xml::Integer> writeBwUsed;
    Attr<std::uint32_t> interleave;
    bool operator==(const BusInterfaceAddressSegment&) const = default;
};

struct BusInterface {
    Attr<std::string> busTypeRef;
    Attr<std::string> name;
    Attr<std::string> instanceRef;
    Attr<std::string> componentRef;
    Attr<std::string> mode;
    Attr<std::string> category;
    Attr<std::int16_t> dataWidth;
    Attr<std::string> clockRef;
    Attr<std::string> resetRef;
    Attr<std::string> busInterfaceRef;
    Attr<std::string> memport;
    Attr<std::string> sptag;
    Attr<bool> cacheCoherent;
    Attr<std::string> direction;
    Attr<std::uint16_t> irq;
    Attr<std::string> addressSegment;
    Attr<std::string> memoryInstance;
    Attr<std::string> clkDomain;
    Attr<bool> hasTlast;
    Attr<std::uint32_t> idBits;
    Attr<std::uint16_t> cardinality;
    Attr<std::string> size;
    Attr<std::string> slr;
    Attr<std::string> peakMemoryBandwidth;
    Attr<std::uint16_t> maxMasters;
    Attr<std::uint16_t> isrId;
    Attr<std::string> auto_;
    std::vector<BusInterfaceAddressSegment> addressSegments;
    bool operator==(const BusInterface&) const = default;
};

struct NocConnectivity {
    Attr<std::string> instanceRef;
    std::vector<BusInterface> busInterfaces;
    bool operator==(const NocConnectivity&) const = default;
};

struct ResourceEstimates {
    Attr<std::uint32_t> BRAM;
    Attr<std::uint32_t> DSP;
    Attr<std::uint32_t> FF;
    Attr<std::uint32_t> LUT;
    Attr<std::uint32_t> nocChannelMaxBw;
    Attr<std::uint32_t> nocPlNsu;
    Attr<std::uint32_t> nocPlNmu;
    Attr<std::uint32_t> nocTilNsu;
    Attr<std::uint32_t> nocTilNmu;
    bool operator==(const ResourceEstimates&) const = default;
};

struct Component {
    Attr<std::string> name;
    Attr<std::string> library;
    Attr<xml::Decimal> version;
    Attr<std::string> vendor;
    Attr<std::string> type;
    Attr<std::uint32_t> BRAM;
    Attr<std::uint32_t> DSP;
    Attr<std::uint32_t> FF;
    Attr<std::uint32_t> LUT;
    PlatformInfo platformInfo;
    std::vector<Parameter> parameters;
    std::vector<BusInterface> busInterfaces;
    std::vector<NocConnectivity> nocConnectivity;
    std::optional<ResourceEstimates> resourceEstimates;
    bool operator==(const Component&) const = default;
};

struct Repository {
    Attr<std::string> name;
    Attr<std::string> library;
    Attr<xml::Decimal> version;
    Attr<std::string> vendor;
    Component component;
    bool operator==(const Repository&) const = default;
};
/// What the schema allows as a document element; a hardware archive holds a `Repository` only.
using Kp = std::variant<Repository, BusInterface>;

/// The whole format. For the library's own readers and writers; not exported.
extern const xml::Document<Repository> kDocument;

}  // namespace WELHardwarePlatform
