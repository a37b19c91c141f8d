#pragma once
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "xml/XmlRecord.h"

/// Records of a platform descriptor, a `.zdf` file: which hardware, emulation and software files a platform consists
/// of. A record is named after its element, a member after its attribute or child element.
namespace TEQPlatform {

using xml::Attr;

struct HardwarePlatform {
    Attr<std::string> path;  ///< a directory, relative to the descriptor's
    Attr<std::string> name;  ///< a file in it
    bool operator==(const HardwarePlatform&) const = default;
};

struct HwEmuPlatform {
    Attr<std::string> path;
    Attr<std::string> name;
    bool operator==(const HwEmuPlatform&) const = default;
};

struct SoftwarePlatform {
    Attr<std::string> path;
    Attr<std::string> name;
    bool operator==(const SoftwarePlatform&) const = default;
};

struct SoftwarePlatforms {
    SoftwarePlatform softwarePlatform;
    bool operator==(const SoftwarePlatforms&) const = default;
};

/// Content of a partition with a hardware file.
struct ReconfigurablePartitionAnonHardwarePlatform {
    HardwarePlatform hardwarePlatform;
    std::optional<HwEmuPlatform> hwEmuPlatform;
    bool operator==(const ReconfigurablePartitionAnonHardwarePlatform&) const = default;
};

/// Content of a partition with an emulation file only.
struct ReconfigurablePartitionHwEmu {
    HwEmuPlatform hwEmuPlatform;
    bool operator==(const ReconfigurablePartitionHwEmu&) const = default;
};

struct ReconfigurablePartition {
    Attr<xml::Integer> id;
    std::variant<ReconfigurablePartitionAnonHardwarePlatform, ReconfigurablePartitionHwEmu> content;
    bool operator==(const ReconfigurablePartition&) const = default;
};

/// Content of a platform with one hardware file.
struct AnonHardwarePlatform {
    HardwarePlatform hardwarePlatform;
    std::optional<HwEmuPlatform> hwEmuPlatform;
    bool operator==(const AnonHardwarePlatform&) const = default;
};

/// Content of a platform with an emulation file only.
struct HwEmuOnly {
    HwEmuPlatform hwEmuPlatform;
    bool operator==(const HwEmuOnly&) const = default;
};

/// Limited because each opens its own files.
inline constexpr std::size_t kMaxPartitions = 1024;

/// Content of a platform with several hardware files.
struct Partitioned {
    std::vector<ReconfigurablePartition> reconfigurablePartitions;
    bool operator==(const Partitioned&) const = default;
};

struct HardwarePlatforms {
    Attr<xml::Integer> defaultRP;  ///< id of a partition
    std::variant<AnonHardwarePlatform, HwEmuOnly, Partitioned> content;
    bool operator==(const HardwarePlatforms&) const = default;
};

struct Platform {
    Attr<std::string> vendor;
    Attr<std::string> library;
    Attr<std::string> name;
    Attr<xml::Decimal> version;
    Attr<xml::Decimal> schemaVersion;
    std::string description;
    HardwarePlatforms hardwarePlatforms;
    SoftwarePlatforms softwarePlatforms;
    bool operator==(const Platform&) const = default;
};

/// The whole format, for `xml::read` and `xml::write`.
extern const xml::Document<Platform> kDocument;

}  // namespace TEQPlatform
