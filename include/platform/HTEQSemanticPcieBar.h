#pragma once
#include <cstdint>
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"

/// A base address register, from the label "pcie_bar". A label that lacks a key, or has a number that cannot be read, is
/// reported with message "@74-85@", and the object holds what was read before.
class ZR_API HTEQSemanticPcieBar : public teq_platform::JSONSerializable {
public:
    enum class BarType { axiBridgeMaster, dma, unknown };

    HTEQSemanticPcieBar() = default;
    explicit HTEQSemanticPcieBar(const teq_platform::ptree& label);

    BarType getBarType() const { return type_; }
    int getPhysicalFunction() const { return physicalFunction_; }
    int getBar() const { return bar_; }
    std::uint64_t getOffset() const { return offset_; }  ///< 0 if the label has none
    std::uint64_t getRange() const { return range_; }    ///< in bytes; 16 if the label has none
    /// Only of the type `dma`; otherwise "INVALID".
    const std::string& getDmaType() const { return dmaType_; }
    /// The type is written as "AXI_Bridge_Master", "DMA" or "UNKNOWN", numbers in decimal.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    BarType type_ = BarType::unknown;
    int physicalFunction_ = 0, bar_ = 0;
    std::uint64_t offset_ = 0, range_ = 0;
    std::string dmaType_ = "INVALID";
};
