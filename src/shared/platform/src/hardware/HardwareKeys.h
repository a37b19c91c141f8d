#pragma once
#include "json/JsonKeys.h"

class HPLBoard;
class HPLCore;
class HPLDevice;
class HPLFile;
class HPLInterface;
class HPLMemory;
class HPLPCIeId;
class HPLPlatform;
class HPLPort;
class HTEQDesignIPInstance;
class HTEQHardwareAddressSegment;
class HTEQHardwareBusInterface;
class HTEQHardwareFeatureRom;
class HTEQHardwareIPParam;
class HTEQHardwareNocConnectivity;
class HTEQHardwarePlatform;
class HTEQReconfigPartition;
class HTEQSystemClock;
class HTEQTilHardware;
class HTEQTilPartition;

/// The keys of the hardware records, each table defined beside its class's `toJSON`; those of the two platform
/// classes are in PlatformKeys.cpp.
namespace json {

template <>
std::span<const Key<HPLBoard>> keysOf<HPLBoard>();
template <>
std::span<const Key<HPLCore>> keysOf<HPLCore>();
template <>
std::span<const Key<HPLDevice>> keysOf<HPLDevice>();
template <>
std::span<const Key<HPLFile>> keysOf<HPLFile>();
template <>
std::span<const Key<HPLInterface>> keysOf<HPLInterface>();
template <>
std::span<const Key<HPLMemory>> keysOf<HPLMemory>();
template <>
std::span<const Key<HPLPCIeId>> keysOf<HPLPCIeId>();
template <>
std::span<const Key<HPLPlatform>> keysOf<HPLPlatform>();
template <>
std::span<const Key<HPLPort>> keysOf<HPLPort>();
template <>
std::span<const Key<HTEQDesignIPInstance>> keysOf<HTEQDesignIPInstance>();
template <>
std::span<const Key<HTEQHardwareAddressSegment>> keysOf<HTEQHardwareAddressSegment>();
template <>
std::span<const Key<HTEQHardwareBusInterface>> keysOf<HTEQHardwareBusInterface>();
template <>
std::span<const Key<HTEQHardwareFeatureRom>> keysOf<HTEQHardwareFeatureRom>();
template <>
std::span<const Key<HTEQHardwareIPParam>> keysOf<HTEQHardwareIPParam>();
template <>
std::span<const Key<HTEQHardwareNocConnectivity>> keysOf<HTEQHardwareNocConnectivity>();
template <>
std::span<const Key<HTEQHardwarePlatform>> keysOf<HTEQHardwarePlatform>();
template <>
std::span<const Key<HTEQReconfigPartition>> keysOf<HTEQReconfigPartition>();
template <>
std::span<const Key<HTEQSystemClock>> keysOf<HTEQSystemClock>();
template <>
std::span<const Key<HTEQTilHardware>> keysOf<HTEQTilHardware>();
template <>
std::span<const Key<HTEQTilPartition>> keysOf<HTEQTilPartition>();

}  // namespace json

/// Reads the platform's document.
namespace hardware {

/// The order in which keys are read, which differs from that of writing and decides which of several errors is
/// reported. The rows of a turn are read in the order of their tables.
enum class Turn : unsigned char {
    values,  ///< and everything else that no setter refuses
    intent,  ///< needs the use of partial reconfiguration
    designIPs,
    tiles,
    devices,
    roms,
    // An hpfm takes the place of the first two; the parameters are read last.
    busInterfaces,
    nocConnectivity,
    parameters,
};

/// Reads the document's keys of one turn; unknown keys are ignored. Throws the property tree's exceptions for a device
/// without a core, and HEXAlgException for what a setter refuses (device string, tile architecture, UUID, a
/// configuration key twice).
void readKeys(const json::Node& document, Turn turn, HPLPlatform& platform);
/// Reads the turns from `values` to `roms`.
void readDocument(const json::Node& document, HPLPlatform& platform);

/// What is read of the document, for those who check one; with an hpfm, without what that takes the place of.
std::vector<json::Shape> documentShapes(bool hasHpfm = false);

}  // namespace hardware
