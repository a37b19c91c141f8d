#include <algorithm>
#include <set>

#include "check/ArchiveMembers.h"
#include "check/JsonCheck.h"
#include "check/MetadataCheck.h"
#include "check/MetadataRules.h"
#include "hardware/HardwareKeys.h"
#include "labels/LabelKeys.h"
#include "readers/EmulationKeys.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlException.h"

namespace check {

namespace {

using json::ptree;
using json::textAt;

/// Calls `use(item, path)` for each object of a list in the document.
template <class Use>
void forEachItem(const ptree& document, const char* key, Use use) {
    const auto at = document.find(key);
    if (at == document.not_found()) return;
    const Path root, list{&root, key};
    std::size_t index = 0;
    for (const auto& [none, item] : at->second) use(item, Path{&list, nullptr, index++});
}

void checkClocks(JsonCheck& check, const ptree& document) {
    std::set<long long> ids;
    forEachItem(document, "systemClocks", [&](const ptree& clock, const Path& path) {
        const long long id = HSTStringUtils::toNumber(textAt(clock, "id"));
        if (id < 0 || ids.insert(id).second) return;  // a clock without an id is written as -1
        check.add(kRepeatedClockId, clock, path,
                  "an earlier clock also has the id " + std::to_string(id) + "; queries by id give the last one");
    });
}

class JsonMetadata {
public:
    JsonMetadata(JsonCheck& check, const ptree& document) : check_(check), document_(document) {}

    template <class Use>
    void eachMemory(Use use) {
        forEachItem(document_, "memories", [&](const ptree& memory, const Path& path) {
            use(textAt(memory, "size"), reportAt_(memory, path));
        });
    }
    template <class Use>
    void eachParameter(Use use) {
        forEachItem(document_, "designIpInstances", [&](const ptree& ip, const Path& path) {
            const auto configuration = ip.find("configuration");
            if (configuration == ip.not_found()) return;
            std::map<std::string, std::string> parameters;
            for (const auto& [name, value] : configuration->second) parameters.emplace(name, value.data());
            const Path at{&path, "configuration"};
            for (const auto& [name, value] : configuration->second) use(name, parameters, reportAt_(value, at));
        });
    }
    template <class Use>
    void eachFile(Use use) {
        forEachItem(document_, "files", [&](const ptree& file, const Path& path) {
            use(textAt(file, "type"), textAt(file, "name"), reportAt_(file, path));
        });
    }

private:
    auto reportAt_(const ptree& value, const Path& path) {
        return [this, &value, &path](const char* name, std::string text) {
            check_.add(name, value, path, std::move(text));
        };
    }

    JsonCheck& check_;
    const ptree& document_;
};

/// The listed files are checked first: they decide which keys of the document are read.
void checkMetadataIn(JsonCheck& check, ArchiveMembers* members, const std::string& directory) {
    const ptree& document = *check.document();
    checkMetadata(JsonMetadata(check, document), members, directory);
    check.checkShapes(hardware::documentShapes(members && directory.empty() && members->hasValidHpfm()));
    checkClocks(check, document);
}

}  // namespace

void checkJsonMetadata(const Source& source, ArchiveMembers* members, const std::string& directory,
                       Findings& findings) {
    JsonCheck check(source);
    if (check.document()) checkMetadataIn(check, members, directory);
    check.report(findings);
}

void checkEmulationJson(const Source& source, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
    check.report(findings);
}

void checkAnyJson(const Source& source, Findings& findings) { JsonCheck(source).report(findings); }

void checkJsonFile(const Source& source, Findings& findings) {
    JsonCheck check(source);
    if (const ptree* document = check.document()) {
        const std::string name = source.file.substr(source.file.rfind('/') + 1);
        const bool isLabels = std::ranges::any_of(
            *document, [](const auto& child) { return labels::shapesOf(child.first, child.second) != nullptr; });
        const auto has = [&](const char* key) { return document->find(key) != document->not_found(); };
        if (name == "hw_emu.json" || has("emulations"))
            check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
        else if (document->size() == 1 && has("featureRoms"))
            check.checkShapes(json::shapesOfRecord<HTEQEmuFeatureRom>());
        else if (isLabels)
            check.checkEach(labels::shapesOf);
        else
            checkMetadataIn(check, nullptr, "");
    }
    check.report(findings);
}

}  // namespace check
