#pragma once
#include <iosfwd>
#include <string>

#include "platform/HTEQSemanticCpuEndpoint.h"
#include "platform/HTEQSemanticDebugNetwork.h"
#include "platform/HTEQSemanticPcieBar.h"
#include "platform/HTEQSemanticPcieEndpoint.h"
#include "platform/HTEQSemanticUuid.h"
#include "text/HSTVector.h"

/// Reads semantic labels, a JSON document that names what a host can address in a design, and makes two JSON documents
/// for a run-time consumer from them. In these documents all values are texts; names from the labels are keys as they
/// stand, dots included.
class ZR_API HTEQSemanticLabelReader : public teq_platform::JSONSerializable {
public:
    using ptree = teq_platform::ptree;

    /// Reads a file of at most 32 MiB, in place of what was read before. False after message "@74-87@%s" if it does
    /// not exist, or "@74-86@%s%s" if it cannot be read or is not JSON. Faulty labels are reported by their classes
    /// and read as far as possible.
    bool parseFile(const std::string& file);
    /// The same from a parsed document. A key may occur any number of times. An unknown one is skipped after message
    /// "@74-88@%s".
    void parseRoot(const ptree& root);
    void clear();

    // In the order of the document.

    const HSTVector<HTEQSemanticUuid>& getUuids() const { return uuids_; }
    const HSTVector<HTEQSemanticPcieBar>& getPcieBars() const { return pcieBars_; }
    const HSTVector<HTEQSemanticPcieEndpoint>& getPcieEndpoints() const { return pcieEndpoints_; }
    const HSTVector<HTEQSemanticCpuEndpoint>& getCpuEndpoints() const { return cpuEndpoints_; }
    const HSTVector<HTEQSemanticDebugNetwork>& getDebugNetworks() const { return debugNetworks_; }

    /// The partition metadata: identifiers, base address registers, and the endpoints of the partition "/". Adds
    /// "partition_metadata" to the tree.
    void generatePartitionMetadata(ptree& metadata) const;
    /// The extended metadata: identifiers of interfaces, endpoints of the partition at `partitionPath`, and debug
    /// networks. Adds "rovapk" and, if there is a debug network, "lumiprobe_debug" to the tree.
    void generateExtMetadata(const std::string& partitionPath, ptree& metadata) const;

    // The same as pretty-printed JSON. A file is replaced atomically; throws `HEXUserException` if it cannot be
    // written. A stream that fails throws the property tree's `json_parser_error`.

    void generatePartitionMetadata(const std::string& file) const;
    void generatePartitionMetadata(std::ostream& out) const;
    void generateExtMetadata(const std::string& partitionPath, const std::string& file) const;
    void generateExtMetadata(const std::string& partitionPath, std::ostream& out) const;

    /// The labels as lists by kind: "uuid", "pcie_bar", "pcie_endpoint", "cpu_endpoint", "debug_network".
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

private:
    void generateAddressableEndpoints(const std::string& partitionPath, ptree& endpoints) const;

    HSTVector<HTEQSemanticUuid> uuids_;
    HSTVector<HTEQSemanticPcieBar> pcieBars_;
    HSTVector<HTEQSemanticPcieEndpoint> pcieEndpoints_;
    HSTVector<HTEQSemanticCpuEndpoint> cpuEndpoints_;
    HSTVector<HTEQSemanticDebugNetwork> debugNetworks_;
};
