#pragma once
#include <cstdint>
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"

/// What the endpoints of both kinds have in common. A label that lacks a key, or has a number that cannot be read, is
/// reported with message "@74-84@", and the object holds what was read before.
class ZR_API HTEQSemanticEndpoint : public teq_platform::JSONSerializable {
public:
    HTEQSemanticEndpoint() = default;
    explicit HTEQSemanticEndpoint(const teq_platform::ptree& label);

    const std::string& getEndpointName() const { return name_; }
    const std::string& getVlnv() const { return vlnv_; }
    const std::string& getCellPath() const { return cell_; }
    const std::string& getInterfacePath() const { return interface_; }
    const std::string& getAddressSegment() const { return addressSegment_; }
    const std::string& getRegisterAbstraction() const { return registerAbstraction_; }
    const std::string& getPartition() const { return partition_; }
    const std::string& getPartitionPath() const { return partitionPath_; }
    std::uint64_t getAddr() const { return addr_; }
    std::uint64_t getAddrRange() const { return addrRange_; }  ///< in bytes

    /// @name Optional: empty, or 0, if the label has no such key
    /// @{
    const std::string& getInterruptSource() const { return interruptSource_; }
    const std::string& getInterruptSink() const { return interruptSink_; }
    const std::string& getInterruptSinkCell() const { return interruptSinkCell_; }
    const std::string& getInterruptSinkVlnv() const { return interruptSinkVlnv_; }
    int getInterruptLeft() const { return interruptLeft_; }    ///< index of the first interrupt
    int getInterruptRight() const { return interruptRight_; }  ///< index of the last one
    const std::string& getFirmwareProduct() const { return firmwareProduct_; }
    const std::string& getFirmwareBranch() const { return firmwareBranch_; }
    const std::string& getFirmwareVersion() const { return firmwareVersion_; }  ///< as "1.2.3"
    /// @}
    bool interruptValid() const { return !interruptSource_.empty(); }
    bool firmwareValid() const { return !firmwareProduct_.empty(); }
    bool firmwareVersionValid() const { return !firmwareVersion_.empty(); }

    /// Address and range are written in decimal, as "addr_offset" and "addr_range". "has_interrupt", "has_firmware" and
    /// "firmware_has_version" state whether the keys that follow each of them are written.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    struct Keys;

private:
    std::string name_, vlnv_, cell_, interface_, addressSegment_, registerAbstraction_, partition_, partitionPath_;
    std::uint64_t addr_ = 0, addrRange_ = 0;
    std::string interruptSource_, interruptSink_, interruptSinkCell_, interruptSinkVlnv_;
    int interruptLeft_ = 0, interruptRight_ = 0;
    std::string firmwareProduct_, firmwareBranch_, firmwareVersion_;
};
