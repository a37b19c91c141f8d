#pragma once
#include <cstdint>
#include <string>

#include "text/ZrApi.h"

/// Feature ROM values of an emulated platform. Texts are as in the extended metadata.
class ZR_API HTEQEmuFeatureRom {
public:
    const std::string& getVBNV() const { return vbnv_; }
    const std::string& getCdmaBaseAddress0() const { return cdmaBaseAddress_[0]; }
    const std::string& getCdmaBaseAddress1() const { return cdmaBaseAddress_[1]; }
    const std::string& getCdmaBaseAddress2() const { return cdmaBaseAddress_[2]; }
    const std::string& getCdmaBaseAddress3() const { return cdmaBaseAddress_[3]; }
    const std::string& getBitMapValue() const { return bitMapValue_; }
    const std::string& getBitMapUnifiedPlatform() const { return bitMapUnifiedPlatform_; }
    const std::string& getBitMapBoardSchedular() const { return bitMapBoardSchedular_; }
    const std::string& getBitMapPeerToPeer() const { return bitMapPeerToPeer_; }

    void setVBNV(const std::string& value) { vbnv_ = value; }
    void setCdmaBaseAddress0(const std::string& value) { cdmaBaseAddress_[0] = value; }
    void setCdmaBaseAddress1(const std::string& value) { cdmaBaseAddress_[1] = value; }
    void setCdmaBaseAddress2(const std::string& value) { cdmaBaseAddress_[2] = value; }
    void setCdmaBaseAddress3(const std::string& value) { cdmaBaseAddress_[3] = value; }
    void setBitMapValue(const std::string& value) { bitMapValue_ = value; }
    void setBitMapUnifiedPlatform(const std::string& value) { bitMapUnifiedPlatform_ = value; }
    void setBitMapBoardSchedular(const std::string& value) { bitMapBoardSchedular_ = value; }
    void setBitMapPeerToPeer(const std::string& value) { bitMapPeerToPeer_ = value; }

    /// The bit map derived from the feature texts: bit 0 always, bit 3 if the board scheduler is exactly "enabled",
    /// bit 16 if peer to peer is. The value and the unified-platform text are not used.
    std::uint32_t getFeatureBitMap() const;

private:
    std::string vbnv_, cdmaBaseAddress_[4], bitMapValue_, bitMapUnifiedPlatform_, bitMapBoardSchedular_,
        bitMapPeerToPeer_;
};
