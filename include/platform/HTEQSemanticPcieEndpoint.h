#pragma once
#include "platform/HTEQSemanticEndpoint.h"

/// An endpoint that the host reaches through a base address register, from the label "pcie_endpoint". A label that lacks
/// one of its own keys, or has a number that cannot be read, is reported with message "@74-83@", and the object holds
/// what was read before.
class ZR_API HTEQSemanticPcieEndpoint : public HTEQSemanticEndpoint {
public:
    HTEQSemanticPcieEndpoint() = default;
    explicit HTEQSemanticPcieEndpoint(const teq_platform::ptree& label);

    int getPhysicalFunction() const { return physicalFunction_; }
    int getBar() const { return bar_; }
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    int physicalFunction_ = 0, bar_ = 0;
};
