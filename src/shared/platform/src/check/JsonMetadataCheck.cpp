#include <algorithm>
#include <set>

#include "check/ArchiveMembers.h"
#include "check/JsonCheck.h"
#include "check/MetadataCheck.h"
#include "check/MetadataRules.h"
#include "hardware/HardwareKeys.h"
#include "labels/LabelKeys.h"
#include "readers/EmulationKeys.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
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

/// No value if the key is missing or its value is not a number, which is another finding.
std::optional<long long> numberAt(Node object, const char* key) {
    const std::string text = stringAt(object, key);
    return JsonCheck::isNumber(text) ? std::optional(HSTStringUtils::toNumber(text)) : std::nullopt;
}

/// Adds a finding at a key if its value has a fault.
void expectValue(JsonCheck& check, const char* name, Node object, const Path& path, const char* key,
                 std::string (*faultOf)(const std::string& value)) {
    const Node value = object.find(key);
    if (value.text().empty()) return;
    if (std::string fault = faultOf(value.data()); !fault.empty())
        check.add(name, value, {&path, key}, std::move(fault));
}

void checkMemoryList(JsonCheck& check, Node document) {
    std::vector<Memory> memories;
    forEachItem(document, "memories", [&](Node memory, const Path&) {
        const auto lowest = numberAt(memory, "lowAddress"), highest = numberAt(memory, "highAddress");
        const bool hasRange = lowest && highest;
        // A misspelled key is one finding, whatever the size.
        const std::string size = JsonCheck::isMisspelled(memory, "size") ? "1GB" : stringAt(memory, "size");
        memories.push_back({stringAt(memory, "name"), stringAt(memory, "type"), size, hasRange ? *lowest : 0,
                            hasRange ? *highest : 0});
    });
    if (!memories.empty()) checkMemories(memories, reportIn(check, document, "memories"));
}

void checkClockList(JsonCheck& check, Node document) {
    std::vector<Clock> clocks;
    long long defaultId = 0;
    forEachItem(document, "systemClocks", [&](Node clock, const Path&) {
        const bool isDefault = HSTStringUtils::iequals(stringAt(clock, "default"), "true");
        const std::string id = stringAt(clock, "id");  // a clock without an id is written as -1
        const bool isKnown = (id.empty() || JsonCheck::isNumber(id)) && !JsonCheck::isMisspelled(clock, "id") &&
                             !JsonCheck::isMisspelled(clock, "default");
        clocks.push_back({isKnown ? HSTStringUtils::toNumber(id) : -1, isDefault, stringAt(clock, "name"),
                          stringAt(clock, "frequency"), stringAt(clock, "status"), isKnown});
        if (isDefault) defaultId = clocks.back().id;
    });
    if (clocks.empty()) return;
    checkClocks(clocks, defaultId, reportIn(check, document, "systemClocks"),
                [&](const char* name, std::string text) {
                    addAt(check, name, document, {}, "systemClocks", std::move(text));
                });
}

/// A null is read as a text.
std::string nullFault(const std::string& text) {
    return text == "null" ? "null is not a text; it is read as \"null\"" : "";
}

/// An SLR that a device with a number of SLRs does not have.
std::string slrFault(const std::string& name, long long numSlrs) {
    if (numSlrs <= 0 || !name.starts_with("SLR") || !JsonCheck::isNumber(name.substr(3)) ||
        HSTStringUtils::toNumber(name.substr(3)) < numSlrs)
        return {};
    return "there is no SLR \"" + HSTStringUtils::excerpt(name) + "\"; the device has " + std::to_string(numSlrs);
}

/// Checks names and clocks of the devices; returns the SLRs.
std::set<std::string> checkDevices(JsonCheck& check, Node document) {
    std::vector<std::string> names;
    std::set<std::string> slrs;
    forEachItem(document, "devices", [&](Node device, const Path& path) {
        names.push_back(stringAt(device, "name"));
        const long long numSlrs = numberAt(device, "numSLRs").value_or(0);
        addSlrs(numSlrs, slrs);
        expectValue(check, kUnknownValue, device, path, "fpgaPart", partFault);
        forEachItemIn(device, path, "scalableSystemClocks", [&](Node clock, const Path& at) {
            if (std::string fault = frequencyFault(stringAt(clock, "frequency")); !fault.empty())
                check.add(kBadFrequency, clock, at, std::move(fault));
        });
        const Path core{&path, "core"}, available{&core, "availableResources"};
        forEachItemIn(device.find("core").find("availableResources"), available, "pBlocks",
                      [&](Node pblock, const Path& at) {
                          forEachItemIn(pblock, at, "validSlrs", [&](Node slr, const Path& place) {
                              slrs.insert(slr.data());
                              if (std::string fault = slrFault(slr.data(), numSlrs); !fault.empty())
                                  check.add(kUnknownReference, slr, place, std::move(fault));
                          });
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

/// The devices of the parts.
std::set<std::string> devicesOf(Node document) {
    std::set<std::string> devices;
    forEachItem(document, "devices", [&](Node device, const Path&) {
        const auto fields = text::firstPieces(stringAt(device, "fpgaPart"), ':', 5);
        if (fields.size() > 3 && !fields[1].empty()) devices.insert(fields[1]);
    });
    return devices;
}

/// The frequencies of the clocks by id; no value if the ids are faulty, which is another finding.
std::optional<std::map<long long, std::string>> frequenciesOf(Node document) {
    std::map<long long, std::string> frequencies;
    std::size_t count = 0;
    bool hasDefault = false;
    forEachItem(document, "systemClocks", [&](Node clock, const Path&) {
        const long long id = numberAt(clock, "id").value_or(0);
        hasDefault |= id == 0 || HSTStringUtils::iequals(stringAt(clock, "default"), "true");
        frequencies[id] = stringAt(clock, "frequency");
        ++count;
    });
    const bool isFaulty = frequencies.size() != count || (count > 0 && !hasDefault);
    if (JsonCheck::isMisspelled(document, "systemClocks") || isFaulty) return std::nullopt;
    return frequencies;
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
        std::set<std::string_view> names;
        forEachItemIn(object, parent, "busInterfaces", [&](Node interface, const Path& path) {
            const std::string_view name = interface.find("name").text();
            if (!name.empty() && !names.insert(name).second)
                check_.add(kRepeatedName, interface, path,
                           "an earlier bus interface also has the name \"" + HSTStringUtils::excerpt(name) + "\"");
            expectValue(check_, kUnknownValue, interface, path, "mode", modeFault);
            expectValue(check_, kUnknownValue, interface, path, "memPort", memoryPortFault);
            expectKnown_("clock", interface, path, "clockRef", known_.clocks);
            expectKnown_("SLR", interface, path, "slr", known_.slrs);
            forEachItemIn(interface, path, "addressSegments", [&](Node segment, const Path& at) {
                expectKnown_("SLR", segment, at, "slr", known_.slrs);
                expectValue(check_, kUnknownValue, segment, at, "auto", assignmentFault);
            });
        });
    }
    void expectKnown_(const char* what, Node object, const Path& path, const char* key,
                      const std::set<std::string>& known) {
        if (known.empty()) return;
        const std::string name = stringAt(object, key);
        if (!name.empty() && !known.contains(name))
            addAt(check_, kUnknownReference, object, path, key,
                  check_.isFull() ? "" : referenceFault(what, name, known));
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
            const std::string type = stringAt(file, "type");
            // A misspelled key is one finding; the file then has neither name nor type.
            const bool isFound = JsonCheck::isMisspelled(file, "name") || JsonCheck::isMisspelled(file, "type");
            if (!isFound || isEmulationList(type)) use(type, stringAt(file, "name"), reportAt_(file, path));
        });
    }

private:
    JsonCheck& check_;
    const Node document_;
};

/// The files of emulation targets are members, or stand beside the list.
void checkEmulations(JsonCheck& check, const Source& source, const ArchiveMembers* members) {
    check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
    const std::string folder = source.member.substr(0, source.member.rfind('/') + 1);
    forEachItem(check.document(), "emulations", [&](Node target, const Path& path) {
        forEachItemIn(target, path, "files", [&](Node file, const Path& at) {
            const std::string name = stringAt(file, "name"), type = stringAt(file, "type");
            if (const std::string fault = emulationTypeFault(type); !type.empty() && !fault.empty())
                addAt(check, kUnknownFileType, file, at, "type", fault);
            if (members && !name.empty() && !members->lists(name) && !members->lists(folder + name))
                addAt(check, kMissingMember, file, at, "name",
                      "the archive has no member \"" + HSTStringUtils::excerpt(name, kMaxPathText) + "\"");
        });
    });
}

/// The listed files are checked first: they decide which keys of the document are read.
void checkMetadataIn(JsonCheck& check, const MetadataContext& context) {
    const Node document = check.document();
    if (document.empty() && JsonCheck::isList(document))
        return check.add(kEmptyDocument, document, {}, "the document has no keys; expected at least \"name\"");
    ArchiveMembers* const members = context.members;
    const KnownNames known{checkDevices(check, document), clockNames(document), devicesOf(document),
                           frequenciesOf(document)};
    if (members) members->setKnown(known);
    JsonMetadata metadata(check, document);
    checkMetadata(metadata, members, context.directory);
    const bool hasHpfm = members && context.directory.empty() && members->hasValidHpfm();
    check.checkShapes(hardware::documentShapes(hasHpfm));
    checkMemoryList(check, document);
    checkClockList(check, document);
    if (!hasHpfm) References(check, document, known).checkAll();
    expectValue(check, kUnknownHost, document, {}, "hostArchitecture", hostFault);
    expectValue(check, kUnknownValue, document, {}, "hostInterface", hostInterfaceFault);
    expectValue(check, kUnknownValue, document, {}, "platformState", stateFault);
    forEachItem(document, "resources", [&](Node resource, const Path& path) {
        expectValue(check, kUnknownValue, resource, path, "type", resourceFault);
    });
    for (const char* key : {"vendor", "boardId", "name"})
        expectValue(check, kUnknownValue, document, {}, key, nullFault);
    const std::string major = stringAt(document, "versionMajor"), minor = stringAt(document, "versionMinor");
    const bool hasVersion = !major.empty() && !JsonCheck::isMisspelled(document, "versionMinor");
    checkIdentity(context.descriptor, stringAt(document, "vendor"), hasVersion ? major + "." + minor : "",
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

/// Whether the document has a key of emulation metadata, perhaps misspelled.
bool isEmulation(Node document) {
    return std::ranges::any_of(json::shapesOfRecord<HTEQEmulations>(), [&](const json::Shape& shape) {
        return document.find(shape.name) || JsonCheck::isMisspelled(document, shape.name);
    });
}

/// Whether it is a document whose keys are not checked here: what `labels` makes, or a board.
bool isOfOthers(Node document) {
    constexpr const char* kKeys[] = {"partition_metadata", "rovapk", "lumiprobe_debug", "connectors"};
    return std::ranges::any_of(kKeys, [&](const char* key) { return bool(document.find(key)); });
}

/// Whether an object has keys, none of which is one of hardware metadata or resembles one.
bool isUnknown(Node document) {
    const std::vector<json::Shape> shapes = hardware::documentShapes(false);
    return !document.empty() && std::none_of(document.begin(), document.end(), [&](Node child) {
        return child.name().empty() || std::ranges::any_of(shapes, [&](const json::Shape& shape) {
                   return text::isSlip(child.name(), shape.name);
               });
    });
}

}  // namespace

void checkJsonMetadata(const Source& source, const MetadataContext& context, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) checkMetadataIn(check, context);
    check.report(findings);
}

void checkEmulationJson(const Source& source, const ArchiveMembers* members, Findings& findings) {
    JsonCheck check(source);
    if (check.document()) checkEmulations(check, source, members);
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
        if (name == "hw_emu.json" || isEmulation(document))
            checkEmulations(check, source, nullptr);
        else if (name == "rqa.json")
            check.checkShapes(indexShapes());
        else if (document.find("featureRoms") && !(++document.begin() != document.end()))
            check.checkShapes(json::shapesOfRecord<HTEQEmuFeatureRom>());
        else if (isLabels)
            check.checkEach(labels::shapesOf);
        else if (isOfOthers(document))
            check.checkDuplicates();
        else if (isUnknown(document))
            check.add(kUnknownKey, document, {}, "the file is read as hardware metadata, of which it has no key");
        else
            checkMetadataIn(check, {});
    }
    check.report(findings);
}

}  // namespace check
