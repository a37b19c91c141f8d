#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HTEQHardwareAddressSegment;

/// A port of the shell that a linker can attach kernels to, with the memory banks that it reaches. Texts are as in
/// the hpfm member or the metadata; comparisons of type, mode and memory port ignore case.
class ZR_API HTEQHardwareBusInterface : public teq_platform::JSONSerializable {
public:
    HTEQHardwareBusInterface();
    ~HTEQHardwareBusInterface() override;
    /// Size, peak memory bandwidth and maximum number of masters are not part of the document.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    /// For instance "master" or "slave".
    const std::string& getMode() const { return mode_; }
    void setMode(std::string value) { mode_ = std::move(value); }
    /// For instance "aximm" or "interrupt".
    const std::string& getBusTypeRef() const { return busTypeRef_; }
    void setBusTypeRef(std::string value) { busTypeRef_ = std::move(value); }
    const std::string& getBusInterfaceRef() const { return busInterfaceRef_; }
    void setBusInterfaceRef(std::string value) { busInterfaceRef_ = std::move(value); }
    const std::string& getCompRef() const { return compRef_; }
    void setCompRef(std::string value) { compRef_ = std::move(value); }
    const std::string& getInstRef() const { return instRef_; }
    void setInstRef(std::string value) { instRef_ = std::move(value); }
    const std::string& getClockRef() const { return clockRef_; }
    void setClockRef(std::string value) { clockRef_ = std::move(value); }
    const std::string& getResetRef() const { return resetRef_; }
    void setResetRef(std::string value) { resetRef_ = std::move(value); }
    /// "memss" on platforms whose memory is addressed by type and bank number.
    const std::string& getMemPort() const { return memPort_; }
    void setMemPort(std::string value) { memPort_ = std::move(value); }
    /// The tag by which users refer to the memory, such as "HBM" or "bank0".
    const std::string& getSPTag() const { return spTag_; }
    void setSPTag(std::string value) { spTag_ = std::move(value); }
    const std::string& getDirection() const { return direction_; }
    void setDirection(std::string value) { direction_ = std::move(value); }
    const std::string& getAddressSegment() const { return addressSegment_; }
    void setAddressSegment(std::string value) { addressSegment_ = std::move(value); }
    const std::string& getMemoryInstance() const { return memoryInstance_; }
    void setMemoryInstance(std::string value) { memoryInstance_ = std::move(value); }
    const std::string& getSLR() const { return slr_; }
    void setSLR(std::string value) { slr_ = std::move(value); }
    const std::string& getSize() const { return size_; }
    void setSize(std::string value) { size_ = std::move(value); }
    const std::string& getPeakMemoryBandwidth() const { return peakMemoryBandwidth_; }
    void setPeakMemoryBandwidth(std::string value) { peakMemoryBandwidth_ = std::move(value); }
    const std::string& getCategory() const { return category_; }
    void setCategory(std::string value) { category_ = std::move(value); }
    /// In bits.
    int getDataWidth() const { return dataWidth_; }
    void setDataWidth(int value) { dataWidth_ = value; }
    int getNumIdBits() const { return numIdBits_; }
    void setNumIdBits(int value) { numIdBits_ = value; }
    int getMaxMasters() const { return maxMasters_; }
    void setMaxMasters(int value) { maxMasters_ = value; }
    int getISRId() const { return isrId_; }
    void setISRId(int value) { isrId_ = value; }

    /// Appends a new segment, owned by this interface.
    HTEQHardwareAddressSegment* addAddressSegment();
    unsigned getNumAddressSegments() const { return static_cast<unsigned>(segments_.size()); }
    /// Replaces the contents of `out`.
    void getAddressSegments(HSTVector<HTEQHardwareAddressSegment*>& out) const { out = segments_.items(); }
    /// Memory index or SLR of segment number `n`; 0 or empty if there is none.
    unsigned getMemoryIndex(unsigned n) const;
    std::string getMemorySLR(unsigned n) const;

private:
    std::string name_, mode_, busTypeRef_, busInterfaceRef_, compRef_, instRef_, clockRef_, resetRef_, memPort_,
        spTag_, direction_, addressSegment_, memoryInstance_, slr_, size_, peakMemoryBandwidth_, category_;
    Owned<HTEQHardwareAddressSegment> segments_;
    int dataWidth_ = 0, numIdBits_ = 0, maxMasters_ = 0, isrId_ = 0;
};
