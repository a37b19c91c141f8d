#pragma once
#include <string>
#include <utility>

#include "text/ZrApi.h"

/// One segment that a port of a core reaches. Not part of the document. For the memory banks of a bus interface see
/// `HTEQHardwareAddressSegment`.
class ZR_API HPLAddressSegment {
public:
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getBase() const { return base_; }
    void setBase(std::string value) { base_ = std::move(value); }
    const std::string& getRange() const { return range_; }
    void setRange(std::string value) { range_ = std::move(value); }
    const std::string& getSlaveName() const { return slaveName_; }
    void setSlaveName(std::string value) { slaveName_ = std::move(value); }

private:
    std::string name_, base_, range_, slaveName_;
};
