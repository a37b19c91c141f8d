#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// The read-only memory that describes the hardware to host software: exactly 224 bytes, little-endian, with an
/// accessor for each field. Bytes without an accessor are reserved and stay 0.
class ZR_API HTEQHardwareFeatureRom : public teq_platform::JSONSerializable {
public:
    static constexpr std::size_t kHeaderSize = 224;
    static constexpr std::size_t kNameSize = 64;

    HTEQHardwareFeatureRom();
    ~HTEQHardwareFeatureRom() override;
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    /// The 224 bytes, owned by this object.
    unsigned char* getRomHeader() { return header_.get(); }
    const unsigned char* getRomHeader() const { return header_.get(); }

    /// The property by which the ROM is found in the design: "TEQ_FEATURE_ROM" unless set.
    const std::string& getSearchPropertyName() const { return searchPropertyName_; }
    void setSearchPropertyName(std::string name) { searchPropertyName_ = std::move(name); }

    std::uint8_t getMajorVersion() const;
    void setMajorVersion(std::uint8_t value);
    std::uint8_t getMinorVersion() const;
    void setMinorVersion(std::uint8_t value);
    std::uint32_t getMorwenBuildID() const;
    void setMorwenBuildID(std::uint32_t value);
    std::uint32_t getIPBuildID() const;
    void setIPBuildID(std::uint32_t value);
    std::uint64_t getTimeSinceEpoch() const;
    void setTimeSinceEpoch(std::uint64_t seconds);

    /// Pointer to 64 bytes in the header, terminated by NUL unless the raw header was modified.
    const unsigned char* getFPGAPartName() const;
    const unsigned char* getVBNVName() const;
    /// Throw HEXDataException and change nothing if the 64 bytes do not contain NUL.
    void setFPGAPartName(const unsigned char (&bytes)[kNameSize]);
    void setVBNVName(const unsigned char (&bytes)[kNameSize]);

    std::uint8_t getDDRChannelCount() const;
    void setDDRChannelCount(std::uint8_t value);
    std::uint8_t getDDRChannelSize() const;
    void setDDRChannelSize(std::uint8_t value);
    std::uint64_t getDRBaseAddress() const;
    void setDRBaseAddress(std::uint64_t value);
    /// Bit 0 unified, 1 Aurora link, 2 board management, 3 board scheduler, 4-6 PROM type, 8-15 debug type,
    /// 16 peer to peer, 17 UUID, 21 clock throttling, 22 pass-through.
    std::uint64_t getFeatureBitMap() const;
    void setFeatureBitMap(std::uint64_t value);

    void setUUID(const unsigned char (&bytes)[16]);
    /// Text of the form 8-4-4-4-12; an empty one changes nothing. Throws HEXAlgException if it is not a UUID.
    void setUUID(const std::string& text);
    /// 36 characters, lower case; zeros if none was set.
    std::string getUUIDAsString() const;

    static constexpr unsigned getCDMABaseAddressSize() { return 4; }
    /// Both throw HEXAlgException for an index above 3.
    void setCDMABaseAddress(unsigned index, std::uint32_t value);
    std::uint32_t getCDMABaseAddress(unsigned index) const;

    std::uint8_t getMaxTempLimit() const;
    void setMaxTempLimit(std::uint8_t value);
    std::uint8_t getMaxPowerLimit() const;
    void setMaxPowerLimit(std::uint8_t value);

private:
    std::unique_ptr<unsigned char[]> header_;
    std::string searchPropertyName_;
};
