#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// A memory controller of the platform.
class ZR_API HPLMemory : public teq_platform::JSONSerializable {
public:
    using ConfigParamMap = std::map<std::string, std::string>;

    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    /// For instance "ddr4". Must be set before the parameters, whose permitted names depend on it.
    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }
    /// Free text, such as "16GB".
    const std::string& getSize() const { return size_; }
    void setSize(std::string value) { size_ = std::move(value); }
    std::uint64_t getLowestAddress() const { return lowestAddress_; }
    void setLowestAddress(std::uint64_t value) { lowestAddress_ = value; }
    std::uint64_t getHighestAddress() const { return highestAddress_; }
    void setHighestAddress(std::uint64_t value) { highestAddress_ = value; }

    ConfigParamMap& getConfigParamMap() { return configParams_; }
    const ConfigParamMap& getReadOnlyConfigParamMap() const { return configParams_; }
    /// Stores one of the permitted DDR parameters, replacing an earlier value. Other names are silently ignored: of
    /// the names that begin with "C0.DDR", only those of DDR3 are stored for the type "ddr3", and only those of DDR4
    /// for every other type.
    void addConfigParam(const std::string& name, const std::string& value);

    /// Whether both addresses are 0: the document then has neither.
    bool areLowAndHighAddrsAtDefault_() const { return lowestAddress_ == 0 && highestAddress_ == 0; }

private:
    std::string name_, type_, size_;
    std::uint64_t lowestAddress_ = 0, highestAddress_ = 0;
    ConfigParamMap configParams_;
};
