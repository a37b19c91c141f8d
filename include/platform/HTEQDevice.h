#pragma once
#include <string>
#include <utility>

#include "text/ZrApi.h"

/// An FPGA of the platform, with the fields of its part.
class ZR_API HTEQDevice {
public:
    /// For instance "fpga0".
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }

    /// The device string as set: "architecture:device:package:speed[:grade[[:static power]:revision]]".
    const std::string& getFpgaPart() const { return fpgaPart_; }
    /// Stores `text` and splits it into the part fields; an empty text leaves them. Throws HEXAlgException if it
    /// has fewer than four or more than seven fields, or more than 4,096 bytes; the text is stored anyway, the fields are
    /// unchanged.
    void setFpgaPart(const std::string& text);

    /// The composed part name, such as "xa7-flgb2104-2-e"; the device's name if no device string was set.
    const std::string& getPartName() const { return partName_.empty() ? name_ : partName_; }
    void setPartName(std::string value) { partName_ = std::move(value); }
    const std::string& getPartArch() const { return partArch_; }
    void setPartArch(std::string value) { partArch_ = std::move(value); }
    const std::string& getPartDevice() const { return partDevice_; }
    void setPartDevice(std::string value) { partDevice_ = std::move(value); }
    const std::string& getPartPackage() const { return partPackage_; }
    void setPartPackage(std::string value) { partPackage_ = std::move(value); }
    const std::string& getPartSpeed() const { return partSpeed_; }
    void setPartSpeed(std::string value) { partSpeed_ = std::move(value); }
    const std::string& getPartTempGrade() const { return partTempGrade_; }
    void setPartTempGrade(std::string value) { partTempGrade_ = std::move(value); }
    const std::string& getPartStaPower() const { return partStaPower_; }
    void setPartStaPower(std::string value) { partStaPower_ = std::move(value); }
    const std::string& getPartRevision() const { return partRevision_; }
    void setPartRevision(std::string value) { partRevision_ = std::move(value); }
    unsigned getNumSLRs() const { return numSLRs_; }
    void setNumSLRs(unsigned value) { numSLRs_ = value; }

protected:
    /// The part name, without the device's name as a substitute.
    const std::string& composedPartName_() const { return partName_; }

private:
    std::string convertFpgaDeviceToPartData_(const std::string& text);

    std::string name_, fpgaPart_, partName_, partArch_, partDevice_, partPackage_, partSpeed_, partTempGrade_,
        partStaPower_, partRevision_;
    unsigned numSLRs_ = 0;
};
