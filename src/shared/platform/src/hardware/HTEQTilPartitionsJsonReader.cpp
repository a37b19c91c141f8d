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
    partition.tilInst(instance);  // a part has the name of its root
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

[[noreturn]] void refuse(const std::string& name) {
    throw HEXAlgException("An error occurred while parsing the til partitions json file: " + name);
}

}  // namespace

HSTVector<HTEQTilPartition> HTEQTilPartitionsJsonReader::readText(const std::string& text, const std::string& name) {
    ptree document;
    try {
        json::parse(text, name, document);
    } catch (const boost::property_tree::json_parser_error&) {
        refuse(name);
    }
    return parseTil(document);
}

HSTVector<HTEQTilPartition> HTEQTilPartitionsJsonReader::read(const std::string& path) {
    if (!HUTFile::isFile(path)) return {};
    ptree document;
    try {
        json::parseFile(path, document);
    } catch (const boost::property_tree::json_parser_error&) {
        refuse(path);
    }
    return parseTil(document);
}

void HTEQTilPartitionsJsonReader::parse(const std::string& path) {
    for (HTEQTilPartition& partition : read(path)) platform_.addTilPartition() = std::move(partition);
}
