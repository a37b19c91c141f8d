#pragma once
#include <cstdint>
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"

/// A debug network, from the label "debug_network". A label that lacks a key, or has a number that cannot be read, is
/// reported with message "@74-81@", and the object holds what was read before.
class ZR_API HTEQSemanticDebugNetwork : public teq_platform::JSONSerializable {
public:
    HTEQSemanticDebugNetwork() = default;
    explicit HTEQSemanticDebugNetwork(const teq_platform::ptree& label);

    int getPhysicalFunction() const { return physicalFunction_; }
    int getBar() const { return bar_; }
    std::uint64_t getBarAddress() const { return barAddress_; }
    std::uint64_t getSystemAddress() const { return systemAddress_; }
    const std::string& getPartition() const { return partition_; }
    const std::string& getPartitionPath() const { return partitionPath_; }
    /// True only for the text "true", in lower case.
    bool supportsCorvexDebug() const { return supportsCorvexDebug_; }
    bool supportsJtagFallback() const { return supportsJtagFallback_; }
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    int physicalFunction_ = 0, bar_ = 0;
    std::uint64_t barAddress_ = 0, systemAddress_ = 0;
    std::string partition_, partitionPath_;
    bool supportsCorvexDebug_ = false, supportsJtagFallback_ = false;
};
