#pragma once
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"

/// An identifier of the design, from the label "uuid". A label that lacks a key is reported with message "@74-82@", and
/// the object holds what was read before.
class ZR_API HTEQSemanticUuid : public teq_platform::JSONSerializable {
public:
    enum class UuidType { logic, interface, unknown };

    HTEQSemanticUuid() = default;
    explicit HTEQSemanticUuid(const teq_platform::ptree& label);

    UuidType getUuidType() const { return type_; }
    const std::string& getDesignComponent() const { return designComponent_; }
    const std::string& getUuid() const { return uuid_; }
    /// The type is written as "logic", "interface" or "UNKNOWN".
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    UuidType type_ = UuidType::unknown;
    std::string designComponent_, uuid_;
};
