#include "platform/HTEQEmulationExtMetaJsonReader.h"

#include "json/JsonFile.h"
#include "msg/HEXAll.h"
#include "readers/EmulationKeys.h"
#include "util/HUTPathUtils.h"

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
    json::readKeys(root, json::keysOf<HTEQEmuFeatureRom>(), *emulations_->createFeatureRom());
}
