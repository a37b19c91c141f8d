#pragma once
#include <map>
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One IP of the design with its configuration.
class ZR_API HTEQDesignIPInstance : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getInstanceName() const { return instanceName_; }
    void setInstanceName(std::string value) { instanceName_ = std::move(value); }
    /// "vendor:library:name:version".
    const std::string& getVLNV() const { return vlnv_; }
    void setVLNV(std::string value) { vlnv_ = std::move(value); }
    /// Replaces the contents of `out`.
    void getConfigParamMap(std::map<std::string, std::string>& out) const { out = configParams_; }
    /// Throws HEXAlgException and changes nothing if the key already exists or has more than 64 levels.
    void addConfigParam(const std::string& key, const std::string& value);

private:
    std::string instanceName_, vlnv_;
    std::map<std::string, std::string> configParams_;
};
