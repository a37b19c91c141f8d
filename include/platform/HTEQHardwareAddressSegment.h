#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One memory bank of a bus interface, as the hpfm member lists it. All texts are as in the file. For the segments of
/// a core's port see `HPLAddressSegment`.
class ZR_API HTEQHardwareAddressSegment : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    /// "true", "false" or "preferred": whether a linker may assign the bank automatically.
    const std::string& getAuto() const { return auto_; }
    void setAuto(std::string value) { auto_ = std::move(value); }
    const std::string& getBaseName() const { return baseName_; }
    void setBaseName(std::string value) { baseName_ = std::move(value); }
    /// The memory index of the bank, not its position in the interface's list.
    unsigned getIndex() const { return index_; }
    void setIndex(unsigned value) { index_ = value; }
    unsigned getMaxMasters() const { return maxMasters_; }
    void setMaxMasters(unsigned value) { maxMasters_ = value; }
    const std::string& getMemoryInstance() const { return memoryInstance_; }
    void setMemoryInstance(std::string value) { memoryInstance_ = std::move(value); }
    const std::string& getSpTag() const { return spTag_; }
    void setSpTag(std::string value) { spTag_ = std::move(value); }
    const std::string& getSlr() const { return slr_; }
    void setSlr(std::string value) { slr_ = std::move(value); }
    const std::string& getInstanceRef() const { return instanceRef_; }
    void setInstanceRef(std::string value) { instanceRef_ = std::move(value); }
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getRegion() const { return region_; }
    void setRegion(std::string value) { region_ = std::move(value); }
    int getReadBwUsed() const { return readBwUsed_; }
    void setReadBwUsed(int value) { readBwUsed_ = value; }
    int getWriteBwUsed() const { return writeBwUsed_; }
    void setWriteBwUsed(int value) { writeBwUsed_ = value; }
    unsigned getInterleave() const { return interleave_; }
    void setInterleave(unsigned value) { interleave_ = value; }

private:
    std::string auto_, baseName_;
    unsigned index_ = 0, maxMasters_ = 0;
    std::string memoryInstance_, spTag_, slr_, instanceRef_, name_, region_;
    int readBwUsed_ = 0, writeBwUsed_ = 0;
    unsigned interleave_ = 0;
};
