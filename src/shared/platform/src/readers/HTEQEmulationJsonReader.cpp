#include "platform/HTEQEmulationJsonReader.h"

#include "json/JsonFile.h"
#include "msg/HEXAll.h"
#include "readers/ArchiveMember.h"
#include "readers/EmulationKeys.h"
#include "util/HUTPathUtils.h"

HTEQEmulationJsonReader::HTEQEmulationJsonReader(const std::string& file, HTEQEmulations* emulations)
    : file_(file), emulations_(emulations) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

HTEQEmulationJsonReader::HTEQEmulationJsonReader(HTEQEmulations* emulations) : emulations_(emulations) {}

bool HTEQEmulationJsonReader::isJsonValid() const {
    json::ptree root;
    json::parseFile(file_, root);
    return root.find("emulations") != root.not_found();
}

void HTEQEmulationJsonReader::parseJson() {
    json::ptree root;
    json::parseFile(file_, root);
    parseRoot_(root);
}

void HTEQEmulationJsonReader::parseFromCfa(const std::string& archive, const std::string& member,
                                           HTEQEmulations* emulations) {
    json::ptree root;
    json::parse(readers::textOfMember(archive, member), archive + "!" + member, {.file = archive, .member = member},
                root);
    HTEQEmulationJsonReader(emulations).parseRoot_(root);
}

void HTEQEmulationJsonReader::parseRoot_(const json::ptree& root) {
    json::readKeys(root, json::keysOf<HTEQEmulations>(), *emulations_);
}
