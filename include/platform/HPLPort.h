#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"
#include "text/HSTFwdIter.h"
#include "text/Owned.h"

class HPLAddressSegment;

/// A port of a core. Every attribute, numbers included, is the text of the XML metadata.
class ZR_API HPLPort : public teq_platform::JSONSerializable {
public:
    HPLPort();
    ~HPLPort() override;
    /// Address segments are not part of the document.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }
    const std::string& getMode() const { return mode_; }
    void setMode(std::string value) { mode_ = std::move(value); }
    const std::string& getBase() const { return base_; }
    void setBase(std::string value) { base_ = std::move(value); }
    const std::string& getRange() const { return range_; }
    void setRange(std::string value) { range_ = std::move(value); }
    const std::string& getDataWidth() const { return dataWidth_; }
    void setDataWidth(std::string value) { dataWidth_ = std::move(value); }
    const std::string& getProtocol() const { return protocol_; }
    void setProtocol(std::string value) { protocol_ = std::move(value); }
    const std::string& getIdWidth() const { return idWidth_; }
    void setIdWidth(std::string value) { idWidth_ = std::move(value); }
    const std::string& getAddrWidth() const { return addrWidth_; }
    void setAddrWidth(std::string value) { addrWidth_ = std::move(value); }
    const std::string& getUserWidth() const { return userWidth_; }
    void setUserWidth(std::string value) { userWidth_ = std::move(value); }
    const std::string& getAddrOffset() const { return addrOffset_; }
    void setAddrOffset(std::string value) { addrOffset_ = std::move(value); }
    const std::string& getAddrRange() const { return addrRange_; }
    void setAddrRange(std::string value) { addrRange_ = std::move(value); }
    const std::string& getMaxBurstLength() const { return maxBurstLength_; }
    void setMaxBurstLength(std::string value) { maxBurstLength_ = std::move(value); }
    const std::string& getFrequency() const { return frequency_; }
    void setFrequency(std::string value) { frequency_ = std::move(value); }
    const std::string& getPolarity() const { return polarity_; }
    void setPolarity(std::string value) { polarity_ = std::move(value); }
    const std::string& getDirection() const { return direction_; }
    void setDirection(std::string value) { direction_ = std::move(value); }

    /// Takes ownership of `segment`, which must have been allocated with `new`; null is ignored.
    void addAddressSegment(HPLAddressSegment* segment);
    /// The caller deletes the iterator.
    HSTFwdIter<HPLAddressSegment*>* createAddressSegmentIter() const;

private:
    std::string name_, type_, mode_, base_, range_, dataWidth_, protocol_, idWidth_, addrWidth_, userWidth_,
        addrOffset_, addrRange_, maxBurstLength_, frequency_, polarity_, direction_;
    Owned<HPLAddressSegment> segments_;
};
