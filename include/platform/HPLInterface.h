#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One host interface of a platform, such as the name "PCIe" and the type "gen3x16".
class ZR_API HPLInterface : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getId() const { return id_; }
    void setId(std::string value) { id_ = std::move(value); }
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }

private:
    std::string id_, name_, type_;
};
