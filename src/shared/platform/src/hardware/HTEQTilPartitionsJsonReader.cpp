#include "platform/HTEQTilPartitionsJsonReader.h"

#include <boost/property_tree/json_parser.hpp>
#include <utility>

#include "hardware/HardwareKeys.h"
#include "json/JsonFile.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTFile.h"

namespace {

using json::ptree;

bool hasColumns(const ptree& node) { return node.find("numColumns") != node.not_found(); }

void populatePartition(const ptree& node, bool root, const std::string& instance, HTEQTilPartition& partition) {
    json::readKeys(node, json::keysOf<HTEQTilPartition>(), partition);
    partition.isRoot(root);
    partition.tilInst(instance);  // a part bears the name of its root
}

void addSubPartitions(const ptree& node, const std::string& instance, HTEQTilPartition& root) {
    const auto children = node.find("partitions");
    if (children == node.not_found()) return;
    for (const auto& [none, child] : children->second)
        if (hasColumns(child)) populatePartition(child, false, instance, root.addPartition());
}

HSTVector<HTEQTilPartition> parseTil(const ptree& document) {
    HSTVector<HTEQTilPartition> partitions;
    const auto til = document.find("TIL");
    if (til == document.not_found()) return partitions;
    for (const auto& [instance, node] : til->second) {
        if (!hasColumns(node)) continue;
        HTEQTilPartition& root = partitions.emplace_back();
        populatePartition(node, true, instance, root);
        if (root.isPartition()) addSubPartitions(node, instance, root);
    }
    return partitions;
}

}  // namespace

HSTVector<HTEQTilPartition> HTEQTilPartitionsJsonReader::read(const std::string& path) {
    if (!HUTFile::isFile(path)) return {};
    try {
        ptree document;
        json::parseFile(path, document);
        return parseTil(document);
    } catch (const boost::property_tree::json_parser_error&) {
        throw HEXAlgException("An error occurred while parsing the til partitions json file: " + path);
    }
}

void HTEQTilPartitionsJsonReader::parse(const std::string& path) {
    for (HTEQTilPartition& partition : read(path)) platform_.addTilPartition() = std::move(partition);
}
