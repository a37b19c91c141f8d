#include "platform/HTEQHardwareFeatureRom.h"

#include <algorithm>
#include <array>
#include <bit>
#include <boost/lexical_cast.hpp>
#include <boost/uuid/uuid.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <cstring>
#include <vector>

#include "hardware/HardwareKeys.h"
#include "hardware/RomNames.h"
#include "hardware/RomNumbers.h"
#include "msg/HEXAll.h"

namespace {

using Rom = HTEQHardwareFeatureRom;
using K = json::Keys<Rom>;
using teq_platform::JSONObjectWriter;

static_assert(std::endian::native == std::endian::little, "the header's numbers are copied as they lie in memory");

/// Offsets of the fields in the header.
enum Offset : std::size_t {
    kMajorVersion = 4,
    kMinorVersion = 5,
    kMorwenBuildID = 8,
    kIPBuildID = 12,
    kTimeSinceEpoch = 24,
    kFPGAPartName = 32,
    kVBNVName = 96,
    kDDRChannelCount = 160,
    kDDRChannelSize = 161,
    kDRBaseAddress = 168,
    kFeatureBitMap = 176,
    kUUID = 184,
    kCDMABaseAddress = 204,
    kMaxTempLimit = 220,
    kMaxPowerLimit = 221,
};

template <class Number>
Number load(const unsigned char* header, std::size_t offset) {
    Number value;
    std::memcpy(&value, header + offset, sizeof value);
    return value;
}

template <class Number>
void store(unsigned char* header, std::size_t offset, Number value) {
    std::memcpy(header + offset, &value, sizeof value);
}

void storeName(unsigned char* field, const unsigned char (&bytes)[Rom::kNameSize], const char* what) {
    if (std::find(bytes, std::end(bytes), '\0') == std::end(bytes))
        throw HEXDataException("The " + std::string(what) +
                               " specified for the Feature ROM is not a 64 char null terminated string: '" +
                               std::string(bytes, std::end(bytes)) + "'");
    std::strncpy(reinterpret_cast<char*>(field), reinterpret_cast<const char*>(bytes), Rom::kNameSize);
}

template <auto Set>
void setName(Rom& rom, const std::string& text) {
    std::invoke(Set, rom, hardware::romName(text).bytes);
}

struct Feature {
    const char* name;
    unsigned firstBit;
    unsigned bits;  ///< 1: written as "enabled" or "disabled"; more: a number
};

constexpr Feature kFeatures[] = {
    {"unifiedPlatform", 0, 1},  {"auroraLink", 1, 1},     {"boardMgmt", 2, 1},   {"boardScheduler", 3, 1},
    {"promType", 4, 3},         {"debugType", 8, 8},      {"peerToPeer", 16, 1}, {"uuid", 17, 1},
    {"clockThrottling", 21, 1}, {"passthruTrans", 22, 1},
};

void writeFeatures(JSONObjectWriter& writer, const char* name, const Rom& rom) {
    const std::uint64_t map = rom.getFeatureBitMap();
    JSONObjectWriter object;
    object.addKey("value", hardware::romHex(map));
    for (const Feature& f : kFeatures) {
        const std::uint64_t value = map >> f.firstBit & ((1u << f.bits) - 1);
        object.addKey(f.name, f.bits > 1 ? hardware::romHex(value) : value ? "enabled" : "disabled");
    }
    writer.addKey(name, std::move(object));
}

void readFeatures(Rom& rom, const json::Node& node) {
    rom.setFeatureBitMap(hardware::romNumber(node.find("value").data()));
}

template <unsigned Index>
constexpr json::Key<Rom> cdmaAddress(const char* name) {
    return K::text<[](const Rom& rom) { return hardware::romHex(rom.getCDMABaseAddress(Index)); },
                   [](Rom& rom, const std::string& text) {
                       rom.setCDMABaseAddress(Index, static_cast<std::uint32_t>(hardware::romNumber(text)));
                   }>(name);
}

json::Shapes bitMapShapes() {
    static const std::vector<json::Shape> shapes = [] {
        std::vector<json::Shape> all{{"value", json::Form::text}};
        for (const Feature& feature : kFeatures)
            all.push_back({.name = feature.name, .form = json::Form::unknown, .isRead = false});
        return all;
    }();
    return shapes;
}

constexpr json::Key<Rom> kKeys[] = {
    K::number<&Rom::getMajorVersion, &Rom::setMajorVersion>("majorVersion"),
    K::number<&Rom::getMinorVersion, &Rom::setMinorVersion>("minorVersion"),
    K::number<&Rom::getMorwenBuildID, &Rom::setMorwenBuildID>("morwenBuildID"),
    K::number<&Rom::getIPBuildID, &Rom::setIPBuildID>("ipBuildID"),
    K::number<&Rom::getTimeSinceEpoch, &Rom::setTimeSinceEpoch>("timeSinceEpoch"),
    K::text<[](const Rom& rom) { return hardware::romNameText(rom.getFPGAPartName()); },
            &setName<&Rom::setFPGAPartName>>("fpgaPartName"),
    K::text<[](const Rom& rom) { return hardware::romNameText(rom.getVBNVName()); }, &setName<&Rom::setVBNVName>>(
        "vbnvName"),
    K::number<&Rom::getDDRChannelCount, &Rom::setDDRChannelCount>("ddrChannelCount"),
    K::number<&Rom::getDDRChannelSize, &Rom::setDDRChannelSize>("ddrChannelSize"),
    // Written as hexadecimal but read as decimal: a written value is read as 0.
    K::text<[](const Rom& rom) { return hardware::romHex(rom.getDRBaseAddress()); },
            [](Rom& rom, const std::string& text) {
                rom.setDRBaseAddress(static_cast<std::uint64_t>(HSTStringUtils::toNumber(text)));
            }>("drBaseAddress"),
    K::custom<&writeFeatures, &readFeatures>("featureBitMap", json::Form::object, &bitMapShapes),
    refusing(K::text<&Rom::getUUIDAsString, [](Rom& rom, const std::string& text) { rom.setUUID(text); }>("uuid")),
    cdmaAddress<0>("cdmaBaseAddress0"),
    cdmaAddress<1>("cdmaBaseAddress1"),
    cdmaAddress<2>("cdmaBaseAddress2"),
    cdmaAddress<3>("cdmaBaseAddress3"),
    ifPresent(K::number<&Rom::getMaxTempLimit, &Rom::setMaxTempLimit>("maxTempLimit")),
    ifPresent(K::number<&Rom::getMaxPowerLimit, &Rom::setMaxPowerLimit>("maxPowerLimit")),
};

std::size_t cdmaOffset(unsigned index) {
    constexpr unsigned kLast = Rom::getCDMABaseAddressSize() - 1;
    if (index > kLast)  // also for reading, with the same text
        throw HEXAlgException("Attempt to set the CDMA Base Address on the CFA XML DOM object using index '" +
                              std::to_string(index) + "' which is out of bounds (max is: '" + std::to_string(kLast) +
                              "')");
    return kCDMABaseAddress + index * sizeof(std::uint32_t);
}

}  // namespace

template <>
std::span<const json::Key<Rom>> json::keysOf<Rom>() {
    return kKeys;
}

HTEQHardwareFeatureRom::HTEQHardwareFeatureRom()
    : header_(std::make_unique<unsigned char[]>(kHeaderSize)), searchPropertyName_("TEQ_FEATURE_ROM") {}
HTEQHardwareFeatureRom::~HTEQHardwareFeatureRom() = default;

void HTEQHardwareFeatureRom::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

std::uint8_t HTEQHardwareFeatureRom::getMajorVersion() const { return header_[kMajorVersion]; }
void HTEQHardwareFeatureRom::setMajorVersion(std::uint8_t value) { header_[kMajorVersion] = value; }
std::uint8_t HTEQHardwareFeatureRom::getMinorVersion() const { return header_[kMinorVersion]; }
void HTEQHardwareFeatureRom::setMinorVersion(std::uint8_t value) { header_[kMinorVersion] = value; }
std::uint32_t HTEQHardwareFeatureRom::getMorwenBuildID() const {
    return load<std::uint32_t>(header_.get(), kMorwenBuildID);
}
void HTEQHardwareFeatureRom::setMorwenBuildID(std::uint32_t value) { store(header_.get(), kMorwenBuildID, value); }
std::uint32_t HTEQHardwareFeatureRom::getIPBuildID() const { return load<std::uint32_t>(header_.get(), kIPBuildID); }
void HTEQHardwareFeatureRom::setIPBuildID(std::uint32_t value) { store(header_.get(), kIPBuildID, value); }
std::uint64_t HTEQHardwareFeatureRom::getTimeSinceEpoch() const {
    return load<std::uint64_t>(header_.get(), kTimeSinceEpoch);
}
void HTEQHardwareFeatureRom::setTimeSinceEpoch(std::uint64_t seconds) {
    store(header_.get(), kTimeSinceEpoch, seconds);
}
std::uint8_t HTEQHardwareFeatureRom::getDDRChannelCount() const { return header_[kDDRChannelCount]; }
void HTEQHardwareFeatureRom::setDDRChannelCount(std::uint8_t value) { header_[kDDRChannelCount] = value; }
std::uint8_t HTEQHardwareFeatureRom::getDDRChannelSize() const { return header_[kDDRChannelSize]; }
void HTEQHardwareFeatureRom::setDDRChannelSize(std::uint8_t value) { header_[kDDRChannelSize] = value; }
std::uint64_t HTEQHardwareFeatureRom::getDRBaseAddress() const {
    return load<std::uint64_t>(header_.get(), kDRBaseAddress);
}
void HTEQHardwareFeatureRom::setDRBaseAddress(std::uint64_t value) { store(header_.get(), kDRBaseAddress, value); }
std::uint64_t HTEQHardwareFeatureRom::getFeatureBitMap() const {
    return load<std::uint64_t>(header_.get(), kFeatureBitMap);
}
void HTEQHardwareFeatureRom::setFeatureBitMap(std::uint64_t value) { store(header_.get(), kFeatureBitMap, value); }
std::uint8_t HTEQHardwareFeatureRom::getMaxTempLimit() const { return header_[kMaxTempLimit]; }
void HTEQHardwareFeatureRom::setMaxTempLimit(std::uint8_t value) { header_[kMaxTempLimit] = value; }
std::uint8_t HTEQHardwareFeatureRom::getMaxPowerLimit() const { return header_[kMaxPowerLimit]; }
void HTEQHardwareFeatureRom::setMaxPowerLimit(std::uint8_t value) { header_[kMaxPowerLimit] = value; }

const unsigned char* HTEQHardwareFeatureRom::getFPGAPartName() const { return &header_[kFPGAPartName]; }
const unsigned char* HTEQHardwareFeatureRom::getVBNVName() const { return &header_[kVBNVName]; }
void HTEQHardwareFeatureRom::setFPGAPartName(const unsigned char (&bytes)[kNameSize]) {
    storeName(&header_[kFPGAPartName], bytes, "FPGAPartName");
}
void HTEQHardwareFeatureRom::setVBNVName(const unsigned char (&bytes)[kNameSize]) {
    storeName(&header_[kVBNVName], bytes, "VBNVName");
}

void HTEQHardwareFeatureRom::setUUID(const unsigned char (&bytes)[16]) {
    std::copy(bytes, std::end(bytes), &header_[kUUID]);
}

void HTEQHardwareFeatureRom::setUUID(const std::string& text) {
    if (text.empty()) return;
    try {
        const auto uuid = boost::lexical_cast<boost::uuids::uuid>(text);
        std::copy(uuid.begin(), uuid.end(), &header_[kUUID]);
    } catch (const boost::bad_lexical_cast&) {
        throw HEXAlgException("Unable to convert string to Feature ROM UUID: '" + text + "'");
    }
}

std::string HTEQHardwareFeatureRom::getUUIDAsString() const {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (unsigned i = 0; i < 16; ++i) {
        const unsigned char byte = header_[kUUID + i];
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
        if (i == 3 || i == 5 || i == 7 || i == 9) text += '-';
    }
    return text;
}

void HTEQHardwareFeatureRom::setCDMABaseAddress(unsigned index, std::uint32_t value) {
    store(header_.get(), cdmaOffset(index), value);
}
std::uint32_t HTEQHardwareFeatureRom::getCDMABaseAddress(unsigned index) const {
    return load<std::uint32_t>(header_.get(), cdmaOffset(index));
}
