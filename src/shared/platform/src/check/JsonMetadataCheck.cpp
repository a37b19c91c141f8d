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

using json::Node;

std::string stringAt(Node object, const char* key) { return object.find(key).data(); }

/// Calls `use(item, path)` for each item of a list that `object`, at `parent`, has.
template <class Use>
void forEachItemIn(Node object, const Path& parent, const char* key, Use use) {
    const Node items = object.find(key);
    if (!items || !JsonCheck::isList(items)) return;
    const Path list{&parent, key};
    std::size_t index = 0;
    for (const Node item : items) use(item, Path{&list, {}, index++});
}

/// The same for a list of the document.
template <class Use>
void forEachItem(Node document, const char* key, Use use) {
    forEachItemIn(document, Path{}, key, use);
}

/// Adds findings at the items of a list of the document.
ReportAt reportIn(JsonCheck& check, Node document, const char* key) {
    std::vector<Node> items;
    forEachItem(document, key, [&](Node item, const Path&) { items.push_back(item); });
    return [&check, key, items = std::move(items)](std::size_t i, const char* name, std::string text) {
        const Path root, list{&root, key};
        check.add(name, items[i], {&list, {}, i}, std::move(text));
    };
}

/// Adds a finding at a key of `object`, or at the object if it lacks the key.
void addAt(JsonCheck& check, const char* name, Node object, const Path& path, const char* key, std::string text) {
    if (const Node value = object.find(key))
        check.add(name, value, {&path, key}, std::move(text));
    else
        check.add(name, object, path, std::move(text));
}

long long numberAt(Node object, const char* key) { return HSTStringUtils::toNumber(stringAt(object, key)); }

void checkMemoryList(JsonCheck& check, Node document) {
    std::vector<Memory> memories;
    forEachItem(document, "memories", [&](Node memory, const Path&) {
        memories.push_back({stringAt(memory, "name"), stringAt(memory, "type"), stringAt(memory, "size"),
                            numberAt(memory, "lowAddress"), numberAt(memory, "highAddress")});
    });
    if (!memories.empty()) checkMemories(memories, reportIn(check, document, "memories"));
}

void checkClockList(JsonCheck& check, Node document) {
    std::vector<Clock> clocks;
    long long defaultId = 0;
    forEachItem(document, "systemClocks", [&](Node clock, const Path&) {
        const bool isDefault = HSTStringUtils::iequals(stringAt(clock, "default"), "true");
        const long long id = numberAt(clock, "id");  // a clock without an id is written as -1
        if (isDefault) defaultId = id;
        clocks.push_back({id, isDefault, stringAt(clock, "frequency"), stringAt(clock, "status")});
    });
    if (clocks.empty()) return;
    checkClocks(clocks, defaultId, reportIn(check, document, "systemClocks"),
                [&](const char* name, std::string text) {
                    addAt(check, name, document, {}, "systemClocks", std::move(text));
                });
}

/// Checks names and clocks of the devices; returns the SLRs.
std::set<std::string> checkDevices(JsonCheck& check, Node document) {
    std::vector<std::string> names;
    std::set<std::string> slrs;
    forEachItem(document, "devices", [&](Node device, const Path& path) {
        names.push_back(stringAt(device, "name"));
        addSlrs(numberAt(device, "numSLRs"), slrs);
        forEachItemIn(device, path, "scalableSystemClocks", [&](Node clock, const Path& at) {
            if (std::string fault = frequencyFault(stringAt(clock, "frequency")); !fault.empty())
                check.add(kBadFrequency, clock, at, std::move(fault));
        });
        forEachItemIn(
            device.find("core").find("availableResources"), path, "pBlocks", [&](Node pblock, const Path& at) {
                forEachItemIn(pblock, at, "validSlrs", [&](Node slr, const Path&) { slrs.insert(slr.data()); });
            });
    });
    checkNames(names, "device", reportIn(check, document, "devices"));
    slrs.erase("");
    return slrs;
}

std::set<std::string> clockNames(Node document) {
    std::set<std::string> names;
    forEachItem(document, "systemClocks", [&](Node clock, const Path&) {
        for (const char* key : {"name", "origName"}) names.insert(stringAt(clock, key));
    });
    names.erase("");
    return names;
}

class References {
public:
    References(JsonCheck& check, Node document, const KnownNames& known)
        : check_(check), document_(document), known_(known) {}
    void checkAll() {
        checkInterfaces_(document_, {});
        forEachItem(document_, "nocConnectivity", [&](Node noc, const Path& path) { checkInterfaces_(noc, path); });
    }

private:
    void checkInterfaces_(Node object, const Path& parent) {
        forEachItemIn(object, parent, "busInterfaces", [&](Node interface, const Path& path) {
            expectKnown_("clock", interface, path, "clockRef", known_.clocks);
            expectKnown_("SLR", interface, path, "slr", known_.slrs);
            forEachItemIn(interface, path, "addressSegments", [&](Node segment, const Path& at) {
                expectKnown_("SLR", segment, at, "slr", known_.slrs);
            });
        });
    }
    void expectKnown_(const char* what, Node object, const Path& path, const char* key,
                      const std::set<std::string>& known) {
        if (std::string fault = referenceFault(what, stringAt(object, key), known); !fault.empty())
            addAt(check_, kUnknownReference, object, path, key, std::move(fault));
    }

    JsonCheck& check_;
    const Node document_;
    const KnownNames& known_;
};

class JsonMetadata {
    // Before its uses, as clang demands of a deduced type.
    auto reportAt_(Node value, const Path& path) {
        return [this, value, &path](const char* name, std::string text) {
            check_.add(name, value, path, std::move(text));
        };
    }

public:
    JsonMetadata(JsonCheck& check, Node document) : check_(check), document_(document) {}

    template <class Use>
    void eachParameter(Use use) {
        forEachItem(document_, "designIpInstances", [&](Node ip, const Path& path) {
            const Node configuration = ip.find("configuration");
            std::map<std::string, std::string> parameters;
            for (const Node value : configuration) parameters.emplace(value.name(), value.data());
            const Path at{&path, "configuration"};
            for (const Node value : configuration) use(std::string(value.name()), parameters, reportAt_(value, at));
        });
    }
    template <class Use>
    void eachFile(Use use) {
        forEachItem(document_, "files", [&](Node file, const Path& path) {
            use(stringAt(file, "type"), stringAt(file, "name"), reportAt_(file, path));
        });
    }

private:
    JsonCheck& check_;
    const Node document_;
};

/// The listed files are checked first: they decide which keys of the document are read.
void checkMetadataIn(JsonCheck& check, const MetadataContext& context) {
    const Node document = check.document();
    if (document.empty() && JsonCheck::isList(document))
        return check.add(kEmptyDocument, document, {}, "the document has no keys; expected at least \"name\"");
    ArchiveMembers* const members = context.members;
    const KnownNames known{checkDevices(check, document), clockNames(document)};
    if (members) members->setKnown(known);
    JsonMetadata metadata(check, document);
    checkMetadata(metadata, members, context.directory);
    const bool hasHpfm = members && context.directory.empty() && members->hasValidHpfm();
    check.checkShapes(hardware::documentShapes(hasHpfm));
    checkMemoryList(check, document);
    checkClockList(check, document);
    if (!hasHpfm) References(check, document, known).checkAll();
    if (std::string fault = hostFault(stringAt(document, "hostArchitecture")); !fault.empty())
        addAt(check, kUnknownHost, document, {}, "hostArchitecture", std::move(fault));
    checkIdentity(context.descriptor, stringAt(document, "vendor"),
                  stringAt(document, "versionMajor") + "." + stringAt(document, "versionMinor"),
                  [&](bool isVendor, std::string text) {
                      addAt(check, kDifferentIdentity, document, {}, isVendor ? "vendor" : "versionMajor",
                            std::move(text));
                  });
}

/// The keys of the index "rqa.json" of a metadata archive.
json::Shapes indexShapes() {
    using enum json::Form;
    static const json::Shape version[] = {{"major", text}, {"minor", text}},
                             file[] = {{"name", text}, {"type", text}};
    static const json::Shape index[] = {{"version", object, false, [] { return json::Shapes(version); }},
                                        {"instPath", text},
                                        {"drBdInstName", text},
                                        {"pfmName", text},
                                        {"hierName", text},
                                        {"files", list, false, [] { return json::Shapes(file); }}};
    return index;
}

/// Whether it is a document whose keys are not checked here: what `labels` makes, or a board.
bool isOfOthers(Node document) {
    constexpr const char* kKeys[] = {"partition_metadata", "rovapk", "lumiprobe_debug", "connectors"};
    return std::ranges::any_of(kKeys, [&](const char* key) { return bool(document.find(key)); });
}

}  // namespace

void checkJsonMetadata(const Source& source, const MetadataContext& context, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) checkMetadataIn(check, context);
    check.report(findings);
}

void checkEmulationJson(const Source& source, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
    check.report(findings);
}

void checkAnyJson(const Source& source, Findings& findings) { JsonCheck(source).report(findings); }

void checkIndex(const Source& source, ArchiveMembers& members, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) check.checkShapes(indexShapes());
    std::set<std::string> types;
    forEachItem(check.document(), "files", [&](Node file, const Path& path) {
        const std::string type = stringAt(file, "type");
        if (const auto fault = members.checkListed(type, stringAt(file, "name"), ""))
            addAt(check, fault->name, file, path, "name", fault->text);
        if (!types.insert(type).second)
            addAt(check, kRepeatedName, file, path, "type", "the type occurs twice; the last file of a type is read");
    });
    check.report(findings);
    findings.append(members.takeFindings());
}

void checkJsonFile(const Source& source, Findings& findings) {
    JsonCheck check(source);
    if (const Node document = check.document()) {
        const std::string name = source.file.substr(source.file.rfind('/') + 1);
        const bool isLabels = std::any_of(document.begin(), document.end(), [](Node child) {
            return labels::shapesOf(child.name(), child) != nullptr;
        });
        if (name == "hw_emu.json" || document.find("emulations"))
            check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
        else if (name == "rqa.json")
            check.checkShapes(indexShapes());
        else if (document.find("featureRoms") && !(++document.begin() != document.end()))
            check.checkShapes(json::shapesOfRecord<HTEQEmuFeatureRom>());
        else if (isLabels)
            check.checkEach(labels::shapesOf);
        else if (isOfOthers(document))
            check.checkDuplicates();
        else
            checkMetadataIn(check, {});
    }
    check.report(findings);
}

}  // namespace check
