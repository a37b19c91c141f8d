#include "platform/HTEQEmulationExtMetaJsonReader.h"

#include <span>

#include "json/JsonFile.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulations.h"
#include "util/HUTPathUtils.h"

namespace {

struct TextKey {
    const char* name;
    void (HTEQEmuFeatureRom::*set)(const std::string&);
};

constexpr TextKey kRomKeys[] = {
    {"vbnvName", &HTEQEmuFeatureRom::setVBNV},
    {"cdmaBaseAddress0", &HTEQEmuFeatureRom::setCdmaBaseAddress0},
    {"cdmaBaseAddress1", &HTEQEmuFeatureRom::setCdmaBaseAddress1},
    {"cdmaBaseAddress2", &HTEQEmuFeatureRom::setCdmaBaseAddress2},
    {"cdmaBaseAddress3", &HTEQEmuFeatureRom::setCdmaBaseAddress3},
};

constexpr TextKey kBitMapKeys[] = {
    {"value", &HTEQEmuFeatureRom::setBitMapValue},
    {"boardScheduler", &HTEQEmuFeatureRom::setBitMapBoardSchedular},
    {"peerToPeer", &HTEQEmuFeatureRom::setBitMapPeerToPeer},
};

void readPresent(const json::ptree& node, std::span<const TextKey> keys, HTEQEmuFeatureRom& rom) {
    for (const TextKey& key : keys)
        if (const auto text = node.get_optional<std::string>(key.name)) (rom.*key.set)(*text);
}

}  // namespace

HTEQEmulationExtMetaJsonReader::HTEQEmulationExtMetaJsonReader(const std::string& file, HTEQEmulations* emulations)
    : file_(file), emulations_(emulations) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

HTEQEmulationExtMetaJsonReader::HTEQEmulationExtMetaJsonReader(HTEQEmulations* emulations)
    : emulations_(emulations) {}

bool HTEQEmulationExtMetaJsonReader::isJsonValid() const {
    json::ptree root;
    json::parseFile(file_, root);
    return true;
}

void HTEQEmulationExtMetaJsonReader::parseJson() {
    json::ptree root;
    json::parseFile(file_, root);
    parseExtMetaRoot_(root);
}

void HTEQEmulationExtMetaJsonReader::parseExtMetaRoot_(const json::ptree& root) {
    HTEQEmuFeatureRom& rom = *emulations_->createFeatureRom();
    for (const auto& [romKey, from] : root.get_child("featureRoms")) {
        readPresent(from, kRomKeys, rom);
        for (const auto& [bitMapKey, bitMap] : from.get_child("featureBitMap")) readPresent(bitMap, kBitMapKeys, rom);
    }
}
