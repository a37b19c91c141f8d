#pragma once
#include <map>
#include <string>
#include <utility>

#include "platform/HPLCore.h"
#include "platform/HTEQDevice.h"
#include "platform/JSONSerializable.h"

/// A device of an archive's metadata, with its core and its scalable clocks.
class ZR_API HPLDevice : public HTEQDevice, public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }
    HPLCore& getCore() { return core_; }
    const HPLCore& getReadOnlyCore() const { return core_; }
    /// Clock name to frequency text (MHz).
    const std::map<std::string, std::string>& getSystemClockMap() const { return systemClocks_; }
    void addSystemClock(const std::string& name, const std::string& frequency) { systemClocks_[name] = frequency; }
    int getAddrWidth() const { return core_.getMaxAddrWidth(); }

    /// The composed part name, empty without a device string: "name" of the document's "part".
    const std::string& getComposedPartName() const { return composedPartName_(); }

private:
    std::string type_;
    HPLCore core_;
    std::map<std::string, std::string> systemClocks_;
};
