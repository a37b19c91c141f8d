#pragma once
#include <cstdint>

#include "platform/JSONSerializable.h"

/// The numeric ids of a reconfigurable partition. 0 is an unknown id, which is omitted from the document. For
/// the hardware of a descriptor's partition see `HTEQReconfigurablePartition`.
class ZR_API HTEQReconfigPartition : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    std::uint32_t getDesignID() const { return designID_; }
    void setDesignID(std::uint32_t value) { designID_ = value; }
    std::uint32_t getParentID() const { return parentID_; }
    void setParentID(std::uint32_t value) { parentID_ = value; }
    std::uint32_t getNodeID() const { return nodeID_; }
    void setNodeID(std::uint32_t value) { nodeID_ = value; }
    std::uint32_t getFunctionID() const { return functionID_; }
    void setFunctionID(std::uint32_t value) { functionID_ = value; }
    std::uint32_t getTILPlInterfaceID() const { return tilPlInterfaceID_; }
    void setTILPlInterfaceID(std::uint32_t value) { tilPlInterfaceID_ = value; }
    std::uint32_t getTILNodeID() const { return tilNodeID_; }
    void setTILNodeID(std::uint32_t value) { tilNodeID_ = value; }
    std::uint32_t getTILUniqueID() const { return tilUniqueID_; }
    void setTILUniqueID(std::uint32_t value) { tilUniqueID_ = value; }
    std::uint32_t getTILPuID() const { return tilPuID_; }
    void setTILPuID(std::uint32_t value) { tilPuID_ = value; }

private:
    std::uint32_t designID_ = 0, parentID_ = 0, nodeID_ = 0, functionID_ = 0, tilPlInterfaceID_ = 0, tilNodeID_ = 0,
                  tilUniqueID_ = 0, tilPuID_ = 0;
};
