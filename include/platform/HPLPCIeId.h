#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// The PCIe ids of a board, hexadecimal texts such as "0x5020".
class ZR_API HPLPCIeId : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getVendor() const { return vendor_; }
    void setVendor(std::string value) { vendor_ = std::move(value); }
    const std::string& getDevice() const { return device_; }
    void setDevice(std::string value) { device_ = std::move(value); }
    const std::string& getSubsystem() const { return subsystem_; }
    void setSubsystem(std::string value) { subsystem_ = std::move(value); }
    const std::string& getFeatureId() const { return featureId_; }
    void setFeatureId(std::string value) { featureId_ = std::move(value); }

private:
    std::string vendor_, device_, subsystem_, featureId_;
};
