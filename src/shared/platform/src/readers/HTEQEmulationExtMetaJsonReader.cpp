#include "platform/HTEQEmulationExtMetaJsonReader.h"

#include "json/JsonFile.h"
#include "msg/Budget.h"
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
    json::Document document;
    json::parseFile(file_, document);
    return true;
}

void HTEQEmulationExtMetaJsonReader::parseJson() {
    const Budget budget;
    json::Document document;
    json::parseFile(file_, document);
    json::readKeys(document.root(), json::keysOf<HTEQEmuFeatureRom>(), *emulations_->createFeatureRom());
}

void HTEQEmulationExtMetaJsonReader::parseExtMetaRoot_(const boost::property_tree::ptree& root) {
    json::readKeys(root, json::keysOf<HTEQEmuFeatureRom>(), *emulations_->createFeatureRom());
}
