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

/// Calls `use(item, path)` for each item of a list that `object`, at `parent`, has.
template <class Use>
void forEachItemIn(const ptree& object, const Path& parent, const char* key, Use use) {
    const auto at = object.find(key);
    if (at == object.not_found() || !JsonCheck::isList(at->second)) return;
    const Path list{&parent, key};
    std::size_t index = 0;
    for (const auto& [none, item] : at->second) use(item, Path{&list, nullptr, index++});
}

/// The same for a list of the document.
template <class Use>
void forEachItem(const ptree& document, const char* key, Use use) {
    forEachItemIn(document, Path{}, key, use);
}

/// Adds findings at the items of a list of the document.
ReportAt reportIn(JsonCheck& check, const ptree& document, const char* key) {
    std::vector<const ptree*> items;
    forEachItem(document, key, [&](const ptree& item, const Path&) { items.push_back(&item); });
    return [&check, key, items = std::move(items)](std::size_t i, const char* name, std::string text) {
        const Path root, list{&root, key};
        check.add(name, *items[i], {&list, nullptr, i}, std::move(text));
    };
}

/// Adds a finding at a key of `object`, or at the object if it lacks the key.
void addAt(JsonCheck& check, const char* name, const ptree& object, const Path& path, const char* key,
           std::string text) {
    const auto at = object.find(key);
    if (at == object.not_found())
        check.add(name, object, path, std::move(text));
    else
        check.add(name, at->second, {&path, key}, std::move(text));
}

long long numberAt(const ptree& object, const char* key) { return HSTStringUtils::toNumber(textAt(object, key)); }

void checkMemoryList(JsonCheck& check, const ptree& document) {
    std::vector<Memory> memories;
    forEachItem(document, "memories", [&](const ptree& memory, const Path&) {
        memories.push_back({textAt(memory, "name"), textAt(memory, "type"), textAt(memory, "size"),
                            numberAt(memory, "lowAddress"), numberAt(memory, "highAddress")});
    });
    if (!memories.empty()) checkMemories(memories, reportIn(check, document, "memories"));
}

void checkClockList(JsonCheck& check, const ptree& document) {
    std::vector<Clock> clocks;
    long long defaultId = 0;
    forEachItem(document, "systemClocks", [&](const ptree& clock, const Path&) {
        const bool isDefault = HSTStringUtils::iequals(textAt(clock, "default"), "true");
        const long long id = numberAt(clock, "id");  // a clock without an id is written as -1
        if (isDefault) defaultId = id;
        clocks.push_back({id, isDefault, textAt(clock, "frequency"), textAt(clock, "status")});
    });
    if (clocks.empty()) return;
    checkClocks(clocks, defaultId, reportIn(check, document, "systemClocks"),
                [&](const char* name, std::string text) {
                    addAt(check, name, document, {}, "systemClocks", std::move(text));
                });
}

/// Checks names and clocks of the devices; returns the SLRs.
std::set<std::string> checkDevices(JsonCheck& check, const ptree& document) {
    std::vector<std::string> names;
    std::set<std::string> slrs;
    forEachItem(document, "devices", [&](const ptree& device, const Path& path) {
        names.push_back(textAt(device, "name"));
        addSlrs(numberAt(device, "numSLRs"), slrs);
        forEachItemIn(device, path, "scalableSystemClocks", [&](const ptree& clock, const Path& at) {
            if (std::string fault = frequencyFault(textAt(clock, "frequency")); !fault.empty())
                check.add(kBadFrequency, clock, at, std::move(fault));
        });
        const auto resources = device.get_child_optional("core.availableResources");
        if (!resources) return;
        forEachItemIn(*resources, path, "pBlocks", [&](const ptree& pblock, const Path& at) {
            forEachItemIn(pblock, at, "validSlrs", [&](const ptree& slr, const Path&) { slrs.insert(slr.data()); });
        });
    });
    checkNames(names, "device", reportIn(check, document, "devices"));
    slrs.erase("");
    return slrs;
}

std::set<std::string> clockNames(const ptree& document) {
    std::set<std::string> names;
    forEachItem(document, "systemClocks", [&](const ptree& clock, const Path&) {
        for (const char* key : {"name", "origName"}) names.insert(textAt(clock, key));
    });
    names.erase("");
    return names;
}

class References {
public:
    References(JsonCheck& check, const ptree& document, const KnownNames& known)
        : check_(check), document_(document), known_(known) {}
    void checkAll() {
        checkInterfaces_(document_, {});
        forEachItem(document_, "nocConnectivity",
                    [&](const ptree& noc, const Path& path) { checkInterfaces_(noc, path); });
    }

private:
    void checkInterfaces_(const ptree& object, const Path& parent) {
        forEachItemIn(object, parent, "busInterfaces", [&](const ptree& interface, const Path& path) {
            expectKnown_("clock", interface, path, "clockRef", known_.clocks);
            expectKnown_("SLR", interface, path, "slr", known_.slrs);
            forEachItemIn(interface, path, "addressSegments", [&](const ptree& segment, const Path& at) {
                expectKnown_("SLR", segment, at, "slr", known_.slrs);
            });
        });
    }
    void expectKnown_(const char* what, const ptree& object, const Path& path, const char* key,
                      const std::set<std::string>& known) {
        if (std::string fault = referenceFault(what, textAt(object, key), known); !fault.empty())
            addAt(check_, kUnknownReference, object, path, key, std::move(fault));
    }

    JsonCheck& check_;
    const ptree& document_;
    const KnownNames& known_;
};

class JsonMetadata {
    // Before its uses, as clang demands of a deduced type.
    auto reportAt_(const ptree& value, const Path& path) {
        return [this, &value, &path](const char* name, std::string text) {
            check_.add(name, value, path, std::move(text));
        };
    }

public:
    JsonMetadata(JsonCheck& check, const ptree& document) : check_(check), document_(document) {}

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
    JsonCheck& check_;
    const ptree& document_;
};

/// The listed files are checked first: they decide which keys of the document are read.
void checkMetadataIn(JsonCheck& check, const MetadataContext& context) {
    const ptree& document = *check.document();
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
    if (std::string fault = hostFault(textAt(document, "hostArchitecture")); !fault.empty())
        addAt(check, kUnknownHost, document, {}, "hostArchitecture", std::move(fault));
    checkIdentity(context.descriptor, textAt(document, "vendor"),
                  textAt(document, "versionMajor") + "." + textAt(document, "versionMinor"),
                  [&](bool isVendor, std::string text) {
                      addAt(check, kDifferentIdentity, document, {}, isVendor ? "vendor" : "versionMajor",
                            std::move(text));
                  });
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
            checkMetadataIn(check, {});
    }
    check.report(findings);
}

}  // namespace check
