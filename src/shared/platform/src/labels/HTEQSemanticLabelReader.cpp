#include "platform/HTEQSemanticLabelReader.h"

#include <fmt/core.h>

#include <algorithm>
#include <boost/property_tree/json_parser/error.hpp>
#include <new>
#include <ostream>

#include "env/VendorDomain.h"
#include "json/JsonFile.h"
#include "msg/ComMsgMgr.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace {

using Reader = HTEQSemanticLabelReader;
using json::ptree;

std::string small(int number) { return fmt::format("0x{:X}", static_cast<unsigned>(number)); }
std::string index(int number) { return fmt::format("0x{:02X}", static_cast<unsigned>(number)); }
std::string address(std::uint64_t number) { return fmt::format("0x{:016X}", number); }

/// Appends a child under `key`, in which dots do not separate levels.
ptree& append(ptree& to, const std::string& key, const std::string& value = {}) {
    return to.push_back({key, ptree(value)})->second;
}
void appendUnlessEmpty(ptree& to, const std::string& key, ptree& child) {
    if (!child.empty()) append(to, key).swap(child);
}

void appendSchemaVersion(ptree& to) {
    ptree& version = append(to, "schema_version");
    append(version, "minor", small(0));
    append(version, "major", small(1));
}

void appendFirmware(ptree& to, const HTEQSemanticEndpoint& endpoint) {
    append(to, "firmware_product_name", endpoint.getFirmwareProduct());
    append(to, "firmware_branch_name", endpoint.getFirmwareBranch());
    if (!endpoint.firmwareVersionValid()) return;
    const auto parts = text::firstPieces(endpoint.getFirmwareVersion(), '.', 4);
    constexpr const char* kParts[] = {"firmware_version_major", "firmware_version_minor",
                                      "firmware_version_revision"};
    for (std::size_t i = 0; i < std::min(parts.size(), std::size(kParts)); ++i) append(to, kParts[i], parts[i]);
}

void fillEndpoint(ptree& to, const HTEQSemanticPcieEndpoint& endpoint) {
    append(to, "pcie_physical_function", small(endpoint.getPhysicalFunction()));
    append(to, "pcie_base_address_register", small(endpoint.getBar()));
    append(to, "offset", address(endpoint.getAddr()));
    append(to, "range", address(endpoint.getAddrRange()));
    append(to, "register_abstraction_type", endpoint.getRegisterAbstraction());
    if (endpoint.interruptValid()) {
        append(to, "msix_interrupt_start_index", index(endpoint.getInterruptLeft()));
        append(to, "msix_interrupt_end_index", index(endpoint.getInterruptRight()));
    }
    if (endpoint.firmwareValid()) appendFirmware(append(to, "firmware"), endpoint);
}

ptree barOf(const HTEQSemanticPcieBar& bar) {
    ptree made;
    append(made, "pcie_physical_function", small(bar.getPhysicalFunction()));
    append(made, "pcie_base_address_register", small(bar.getBar()));
    append(made, "offset", address(bar.getOffset()));
    append(made, "range", address(bar.getRange()));
    return made;
}

/// An endpoint for the register's DMA engine.
void appendDmaEndpoint(ptree& endpoints, const HTEQSemanticPcieBar& bar) {
    ptree& endpoint = append(endpoints, "ep_" + bar.getDmaType() + "_00");
    endpoint = barOf(bar);
    append(endpoint, "register_abstraction_type",
           std::string(kVendorDomain) + ":reg_abs:" + bar.getDmaType() + ":1.0");
}

ptree interfacesOf(const Reader& labels) {
    ptree interfaces;
    for (const HTEQSemanticUuid& uuid : labels.getUuids())
        if (uuid.getUuidType() == HTEQSemanticUuid::UuidType::interface)
            append(append(interfaces, ""), "interface_uuid", uuid.getUuid());
    return interfaces;
}

std::string logicUuidOf(const Reader& labels) {
    std::string logic = "UNDEFINED";
    for (const HTEQSemanticUuid& uuid : labels.getUuids())
        if (uuid.getUuidType() == HTEQSemanticUuid::UuidType::logic) logic = uuid.getUuid();
    return logic;
}

void appendNetwork(ptree& networks, const HTEQSemanticDebugNetwork& network) {
    const int function = network.getPhysicalFunction();
    const std::string number = std::to_string(function);
    ptree& made = append(networks, function == 0 ? "mgmt" : function == 1 ? "user" : "pf" + number);
    append(made, "is_user_visible", function == 0 ? "false" : "true");
    append(made, "name",
           function == 0   ? "Management Debug Network"
           : function == 1 ? "User Debug Network"
                           : "Debug network for physical function " + number);
    append(made, "pcie_pf", number);
    append(made, "bar_number", std::to_string(network.getBar()));
    append(made, "axi_baseaddr", address(network.getSystemAddress()));
    append(made, "supports_corvex_debug", network.supportsCorvexDebug() ? "true" : "false");
    append(made, "supports_jtag_fallback", network.supportsJtagFallback() ? "true" : "false");
}

void writeTo(std::ostream& out, const ptree& document) {
    out << json::write(document) << std::flush;
    if (!out.good())
        BOOST_PROPERTY_TREE_THROW(boost::property_tree::json_parser::json_parser_error("write error", "", 0));
}

template <class Label>
void writeList(teq_platform::JSONObjectWriter& writer, const char* key, const HSTVector<Label>& labels) {
    teq_platform::JSONListWriter list;
    for (const Label& label : labels) list.addItem(&label);
    writer.addKey(key, std::move(list));
}

}  // namespace

bool Reader::parseFile(const std::string& file) {
    clear();
    if (!HUTFile::exists(file)) {
        ComMsgMgr::sendMsg("@74-87@%s", file);
        return false;
    }
    try {
        ptree root;
        json::parseFile(file, root);
        parseRoot(root);
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& e) {
        ComMsgMgr::sendMsg("@74-86@%s%s", file, std::string(e.what()));
        return false;
    }
}

void Reader::parseRoot(const ptree& root) {
    clear();
    for (const auto& [key, label] : root) {
        if (key == "uuid")
            uuids_.emplace_back(label);
        else if (key == "pcie_bar")
            pcieBars_.emplace_back(label);
        else if (key == "pcie_endpoint")
            pcieEndpoints_.emplace_back(label);
        else if (key == "cpu_endpoint")
            cpuEndpoints_.emplace_back(label);
        else if (key == "debug_network")
            debugNetworks_.emplace_back(label);
        else
            ComMsgMgr::sendMsg("@74-88@%s", key);
    }
}

void Reader::clear() {
    uuids_.clear();
    pcieBars_.clear();
    pcieEndpoints_.clear();
    cpuEndpoints_.clear();
    debugNetworks_.clear();
}

void Reader::generateAddressableEndpoints(const std::string& partitionPath, ptree& endpoints) const {
    for (const HTEQSemanticPcieEndpoint& endpoint : pcieEndpoints_)
        if (partitionPath.ends_with(endpoint.getPartitionPath()))
            fillEndpoint(append(endpoints, endpoint.getEndpointName()), endpoint);
}

void Reader::generatePartitionMetadata(ptree& metadata) const {
    ptree interfaces = interfacesOf(*this), bars, endpoints;
    for (const HTEQSemanticPcieBar& bar : pcieBars_) {
        append(bars, "") = barOf(bar);
        if (bar.getBarType() == HTEQSemanticPcieBar::BarType::dma) appendDmaEndpoint(endpoints, bar);
    }
    generateAddressableEndpoints("/", endpoints);

    ptree& made = append(metadata, "partition_metadata");
    appendUnlessEmpty(made, "interfaces", interfaces);
    if (!bars.empty()) append(append(made, "pcie"), "bars").swap(bars);
    appendUnlessEmpty(made, "addressable_endpoints", endpoints);
    appendSchemaVersion(made);
    append(made, "logic_uuid", logicUuidOf(*this));
}

void Reader::generateExtMetadata(const std::string& partitionPath, ptree& metadata) const {
    ptree interfaces = interfacesOf(*this), endpoints, networks;
    generateAddressableEndpoints(partitionPath, endpoints);
    for (const HTEQSemanticDebugNetwork& network : debugNetworks_) appendNetwork(networks, network);

    ptree& made = append(append(append(metadata, "rovapk"), "append_sections"), "partition_metadata");
    appendUnlessEmpty(made, "interfaces", interfaces);
    appendUnlessEmpty(made, "addressable_endpoints", endpoints);
    appendSchemaVersion(made);
    if (!networks.empty()) append(append(metadata, "lumiprobe_debug"), "debug_networks").swap(networks);
}

void Reader::generatePartitionMetadata(const std::string& file) const {
    ptree metadata;
    generatePartitionMetadata(metadata);
    wholefile::replace(file, json::write(metadata));
}

void Reader::generatePartitionMetadata(std::ostream& out) const {
    ptree metadata;
    generatePartitionMetadata(metadata);
    writeTo(out, metadata);
}

void Reader::generateExtMetadata(const std::string& partitionPath, const std::string& file) const {
    ptree metadata;
    generateExtMetadata(partitionPath, metadata);
    wholefile::replace(file, json::write(metadata));
}

void Reader::generateExtMetadata(const std::string& partitionPath, std::ostream& out) const {
    ptree metadata;
    generateExtMetadata(partitionPath, metadata);
    writeTo(out, metadata);
}

void Reader::toJSON(teq_platform::JSONObjectWriter& writer) const {
    writeList(writer, "uuid", uuids_);
    writeList(writer, "pcie_bar", pcieBars_);
    writeList(writer, "pcie_endpoint", pcieEndpoints_);
    writeList(writer, "cpu_endpoint", cpuEndpoints_);
    writeList(writer, "debug_network", debugNetworks_);
}
