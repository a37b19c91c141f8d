#include "platform/HTEQTilPartitionsJsonReader.h"

#include <boost/property_tree/json_parser.hpp>
#include <utility>

#include "hardware/HardwareKeys.h"
#include "json/JsonFile.h"
#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "util/HUTFile.h"

namespace {

using json::Document;
using json::Node;

bool hasColumns(const Node& node) { return static_cast<bool>(node.find("numColumns")); }

void populatePartition(const Node& node, bool root, const std::string& instance, HTEQTilPartition& partition) {
    Budget::spend(Cost::records, sizeof partition + instance.size());
    json::readKeys(node, json::keysOf<HTEQTilPartition>(), partition);
    partition.isRoot(root);
    partition.tilInst(instance);  // a part has the name of its root
}

void addSubPartitions(const Node& node, const std::string& instance, HTEQTilPartition& root) {
    for (const Node child : node.find("partitions"))
        if (hasColumns(child)) populatePartition(child, false, instance, root.addPartition());
}

HSTVector<HTEQTilPartition> parseTil(const Document& document) {
    const Budget budget;  // each part repeats the name of its root
    HSTVector<HTEQTilPartition> partitions;
    for (const Node node : document.root().find("TIL")) {
        if (!hasColumns(node)) continue;
        const std::string instance(node.name());
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
    Document document;
    try {
        document.parse(text, name);
    } catch (const boost::property_tree::json_parser_error&) {
        refuse(name);
    }
    return parseTil(document);
}

HSTVector<HTEQTilPartition> HTEQTilPartitionsJsonReader::read(const std::string& path) {
    if (!HUTFile::isFile(path)) return {};
    Document document;
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
