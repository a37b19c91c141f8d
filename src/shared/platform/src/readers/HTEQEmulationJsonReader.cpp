#include "platform/HTEQEmulationJsonReader.h"

#include "json/JsonFile.h"
#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "readers/ArchiveMember.h"
#include "readers/EmulationKeys.h"
#include "util/HUTPathUtils.h"
#include "zip/Request.h"

namespace {

void fill(HTEQEmulations& emulations, const json::Document& document) {
    json::readKeys(document.root(), json::keysOf<HTEQEmulations>(), emulations);
}

}  // namespace

HTEQEmulationJsonReader::HTEQEmulationJsonReader(const std::string& file, HTEQEmulations* emulations)
    : file_(file), emulations_(emulations) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

HTEQEmulationJsonReader::HTEQEmulationJsonReader(HTEQEmulations* emulations) : emulations_(emulations) {}

bool HTEQEmulationJsonReader::isJsonValid() const {
    json::Document document;
    json::parseFile(file_, document);
    return static_cast<bool>(document.root().find("emulations"));
}

void HTEQEmulationJsonReader::parseJson() {
    const Budget budget;
    json::Document document;
    json::parseFile(file_, document);
    fill(*emulations_, document);
}

void HTEQEmulationJsonReader::parseFromCfa(const std::string& archive, const std::string& member,
                                           HTEQEmulations* emulations) {
    const zip::Request request;
    json::Document document;
    document.parse(readers::textOfMember(archive, member), archive + "!" + member,
                   {.file = archive, .member = member});
    fill(*emulations, document);
}

void HTEQEmulationJsonReader::parseRoot_(const boost::property_tree::ptree& root) {
    json::readKeys(root, json::keysOf<HTEQEmulations>(), *emulations_);
}
