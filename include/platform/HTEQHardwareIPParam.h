#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One configured value of an instance in the shell.
class ZR_API HTEQHardwareIPParam : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getValue() const { return value_; }
    void setValue(std::string value) { value_ = std::move(value); }
    const std::string& getCompRef() const { return compRef_; }
    void setCompRef(std::string value) { compRef_ = std::move(value); }
    const std::string& getInstRef() const { return instRef_; }
    void setInstRef(std::string value) { instRef_ = std::move(value); }
    /// The text in the file; usually "true" or "false".
    const std::string& getIsValid() const { return isValid_; }
    void setIsValid(std::string value) { isValid_ = std::move(value); }

private:
    std::string name_, value_, compRef_, instRef_, isValid_;
};
