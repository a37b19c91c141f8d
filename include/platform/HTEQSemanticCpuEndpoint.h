#pragma once
#include "platform/HTEQSemanticEndpoint.h"

/// An endpoint of a processor in the design, from the label "cpu_endpoint". A label without "cpu_type" is reported with
/// message "@74-80@".
class ZR_API HTEQSemanticCpuEndpoint : public HTEQSemanticEndpoint {
public:
    HTEQSemanticCpuEndpoint() = default;
    explicit HTEQSemanticCpuEndpoint(const teq_platform::ptree& label);

    const std::string& getCpuType() const { return cpuType_; }
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    std::string cpuType_;
};
