#include <set>

#include "check/ArchiveMembers.h"
#include "check/JsonCheck.h"
#include "check/MemorySizes.h"
#include "check/MetadataCheck.h"
#include "check/ParameterPaths.h"
#include "hardware/HardwareKeys.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlException.h"

namespace check {

namespace {

using json::Form;
using json::ptree;
using json::textAt;

json::Shapes emulationShapes() {
    static const json::Shape ofFile[] = {
        {"type", Form::text, true}, {"name", Form::text, true}, {"inst_path", Form::text}};
    static const json::Shape ofEmulation[] = {{"name", Form::text},
                                              {"files", Form::list, true, []() -> json::Shapes { return ofFile; }}};
    static const json::Shape shapes[] = {
        {"pfm_metadata_version", Form::text},
        {"emulations", Form::list, true, []() -> json::Shapes { return ofEmulation; }}};
    return shapes;
}

json::Shapes extendedShapes() {
    static const json::Shape ofBitMap[] = {
        {"value", Form::text}, {"boardScheduler", Form::text}, {"peerToPeer", Form::text}};
    static const json::Shape ofRom[] = {{"vbnvName", Form::text},
                                        {"cdmaBaseAddress0", Form::text},
                                        {"cdmaBaseAddress1", Form::text},
                                        {"cdmaBaseAddress2", Form::text},
                                        {"cdmaBaseAddress3", Form::text},
                                        {"featureBitMap", Form::list, true, []() -> json::Shapes { return ofBitMap; }}};
    static const json::Shape shapes[] = {{"featureRoms", Form::list, true, []() -> json::Shapes { return ofRom; }}};
    return shapes;
}

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
        if (id < 0 || ids.insert(id).second) return;  // -1 is how a clock without an id is written
        check.add(kRepeatedClockId, clock, path,
                  "a clock before has the id " + std::to_string(id) + " too; the last one answers");
    });
}

void checkMemories(JsonCheck& check, const ptree& document) {
    forEachItem(document, "memories", [&](const ptree& memory, const Path& path) {
        const std::string& size = textAt(memory, "size");
        if (const std::string fault = sizeFault(size); !fault.empty())
            check.add(kUncountedMemory, memory, path, fault);
    });
}

void checkParameters(JsonCheck& check, const ptree& document) {
    forEachItem(document, "designIpInstances", [&](const ptree& ip, const Path& path) {
        const auto configuration = ip.find("configuration");
        if (configuration == ip.not_found()) return;
        std::map<std::string, std::string> parameters;
        for (const auto& [name, value] : configuration->second) parameters.emplace(name, value.data());
        const Path at{&path, "configuration"};
        for (const auto& [name, value] : configuration->second)
            if (const std::string fault = pathFault(name, parameters); !fault.empty())
                check.add(kClashingParameter, value, at, fault);
    });
}

void checkFiles(JsonCheck& check, const ptree& document, ArchiveMembers& members, const std::string& directory) {
    forEachItem(document, "files", [&](const ptree& file, const Path& path) {
        if (const auto fault = members.checkListed(textAt(file, "type"), textAt(file, "name"), directory))
            check.add(fault->name, file, path, fault->text);
    });
}

/// Of an archive with a valid hpfm the document's own interfaces are not read.
std::vector<json::Shape> shapesOfMetadata(bool hasHpfm) {
    std::vector<json::Shape> shapes = hardware::documentShapes();
    if (hasHpfm)
        std::erase_if(shapes, [](const json::Shape& shape) {
            const std::string_view name = shape.name;
            return name == "busInterfaces" || name == "nocConnectivity";
        });
    return shapes;
}

void checkAs(const Source& source, json::Shapes shapes, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) check.checkShapes(shapes);
    check.report(findings);
}

}  // namespace

void checkJsonMetadata(const Source& source, ArchiveMembers* members, const std::string& directory,
                       Findings& findings) {
    JsonCheck check(source);
    if (const ptree* document = check.document()) {
        if (members) checkFiles(check, *document, *members, directory);
        check.checkShapes(shapesOfMetadata(members && directory.empty() && members->hasValidHpfm()));
        checkClocks(check, *document);
        checkMemories(check, *document);
        checkParameters(check, *document);
    }
    check.report(findings);
}

void checkEmulationJson(const Source& source, Findings& findings) { checkAs(source, emulationShapes(), findings); }

void checkAnyJson(const Source& source, Findings& findings) { JsonCheck(source).report(findings); }

void checkJsonFile(const Source& source, Findings& findings) {
    JsonCheck check(source);
    const ptree* document = check.document();
    const std::string name = source.file.substr(source.file.rfind('/') + 1);
    const auto has = [&](const char* key) { return document->find(key) != document->not_found(); };
    if (!document)
        check.report(findings);
    else if (name == "hw_emu.json" || has("emulations"))
        checkAs(source, emulationShapes(), findings);
    else if (document->size() == 1 && has("featureRoms"))
        checkAs(source, extendedShapes(), findings);
    else
        checkJsonMetadata(source, nullptr, "", findings);
}

}  // namespace check
