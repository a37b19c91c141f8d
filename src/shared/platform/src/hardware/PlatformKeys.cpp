#include <algorithm>
#include <span>
#include <string_view>

#include "hardware/HardwareKeys.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQSystemClock.h"

namespace {

using Base = HTEQHardwarePlatform;
using Platform = HPLPlatform;
using json::Form;
using json::ptree;
using teq_platform::JSONListWriter;
using teq_platform::JSONObjectWriter;
using B = json::Keys<Base>;
using P = json::Keys<Platform>;

// What the rows of HTEQHardwarePlatform need.

/// A count that only an expandable platform has.
template <auto Get>
constexpr json::Key<Base> whenExpandable(const char* name) {
    return {name, [](JSONObjectWriter& w, const char* n, const Base& p) {
                if (p.isExpandable()) w.addKey(n, std::invoke(Get, p));
            }};
}

constexpr json::Key<Base> kFlashKeys[] = {
    B::text<&Base::getFlashInterfaceType, &Base::setFlashInterfaceType>("interfaceType"),
    B::text<&Base::getFlashOffsetAddress, &Base::setFlashOffsetAddress>("offsetAddress"),
    B::text<&Base::getFlashSize, &Base::setFlashSize>("size"),
};

/// The platform's own ids as they are read; written by their record. "plInterfaceID" is not read.
constexpr json::Key<Base> kTilIdKeys[] = {
    B::number<&Base::getTILNodeID, &Base::setTILNodeID>("nodeID"),
    B::number<&Base::getTILUniqueID, &Base::setTILUniqueID>("uniqueID"),
    B::number<&Base::getTILPuID, &Base::setTILPuID>("puID"),
};
constexpr json::Key<Base> kIdKeys[] = {
    B::number<&Base::getDesignID, &Base::setDesignID>("designID"),
    B::number<&Base::getParentID, &Base::setParentID>("parentID"),
    B::number<&Base::getNodeID, &Base::setNodeID>("nodeID"),
    B::number<&Base::getFunctionID, &Base::setFunctionID>("functionID"),
    B::group<kTilIdKeys>("tilngineIDs"),
};

constexpr json::Key<Base> designIDs(const char* name) {
    json::Key<Base> key = B::object<&Base::getDesignIDs>(name);
    key.readNode = [](Base& p, const ptree& node) { json::readKeys(node, kIdKeys, p); };
    return shaped(key, Form::object, &json::shapesOfRows<Base, kIdKeys>);
}

constexpr HTEQTilHardware& (Base::*kTilHardware)() = &Base::getTilHardware;
constexpr const HTEQTilHardware& (Base::*kReadOnlyTilHardware)() const = &Base::getTilHardware;

void writeTilPartitions(JSONObjectWriter& writer, const char*, const Base& platform) {
    if (platform.isExpandable()) platform.writeTilPartitions(writer);
}

void readTilPartitions(Base& platform, const ptree& list) {
    for (const auto& [none, item] : list) platform.addTilPartition().fromJSON(item);
}

void writeResources(JSONObjectWriter& writer, const char* name, const Base& platform) {
    HSTVector<std::string> types, counts;
    platform.getAllResources(types, counts);
    JSONListWriter list;
    for (std::size_t i = 0; i < types.size(); ++i) {
        JSONObjectWriter item;
        item.addKey("type", types[i]);
        item.addKey("count", counts[i]);
        list.addItem(std::move(item));
    }
    writer.addKey(name, std::move(list));
}

void readResources(Base& platform, const ptree& list) {
    constexpr std::pair<const char*, void (Base::*)(int)> kSetters[] = {{"BRAM", &Base::setBRAMCount},
                                                                        {"DSP", &Base::setDSPCount},
                                                                        {"LUT", &Base::setLUTCount},
                                                                        {"FF", &Base::setFFCount}};
    for (const auto& [none, item] : list) {
        const int count = static_cast<int>(HSTStringUtils::toNumber(json::textAt(item, "count")));
        for (const auto& [type, set] : kSetters)
            if (HSTStringUtils::iequals(json::textAt(item, "type"), type)) (platform.*set)(count);
    }
}

json::Shapes resourceShapes() {
    static const json::Shape shapes[] = {{"type", Form::text}, {"count", Form::number}};
    return shapes;
}

void writeClocks(JSONObjectWriter& writer, const char* name, const Base& platform) {
    const HTEQSystemClock* defaultClock = platform.getDefaultClock();
    const std::unique_ptr<HSTFwdIter<HTEQSystemClock*>> it(platform.createSystemClockIter());
    JSONListWriter list;
    while (it->hasNext()) {
        const HTEQSystemClock& clock = *it->next();
        JSONObjectWriter item;
        item.addKey("default", defaultClock && defaultClock->getName() == clock.getName());
        item.writeObject(clock);
        list.addItem(std::move(item));
    }
    writer.addKey(name, std::move(list));
}

void readClocks(Base& platform, const ptree& list) {
    for (const auto& [none, item] : list) {
        HTEQSystemClock* clock = platform.addSystemClock();
        json::readKeys(item, json::keysOf<HTEQSystemClock>(), *clock);
        if (HSTStringUtils::iequals(json::textAt(item, "default"), "true")) platform.setDefaultClkId(clock->getId());
    }
}

/// A clock's own keys and the one that the platform reads of it.
json::Shapes clockShapes() {
    static const std::vector<json::Shape> shapes = [] {
        std::vector<json::Shape> all = json::shapesOf(json::keysOf<HTEQSystemClock>());
        all.push_back({"default", Form::flag});
        return all;
    }();
    return shapes;
}

constexpr json::Key<Base> kBaseKeys[] = {
    B::text<&Base::getVendor, &Base::setVendor>("vendor"),
    B::text<&Base::getBoardId, &Base::setBoardId>("boardId"),
    B::text<&Base::getName, &Base::setName>("name"),
    B::text<&Base::getDescription>("description"),
    B::text<&Base::getDetailedDescription>("detailedDescription"),
    B::text<&Base::getUniqueName>("uniqueName"),
    B::text<&Base::getFpgaPart>("fpgaPart"),
    B::text<&Base::getFpgaDevice>("fpgaDevice"),
    B::text<&Base::getInterfaceDesc>("interfaceDescription"),
    B::text<&Base::getPlatformFile>("platformFile"),
    B::flag<&Base::isUnifiedPlatform, &Base::setUnifiedPlatform>("unifiedPlatform"),
    ifPresent(B::flag<&Base::isExpandable, &Base::setExpandable>("expandablePlatform")),
    ifPresent(B::flag<&Base::supportsHardware, &Base::setSupportsHardware>("hardware")),
    ifPresent(B::flag<&Base::supportsSWEmulation, &Base::setSupportsSWEmulation>("softwareEmulation")),
    B::flag<&Base::supportsHWEmulation, &Base::setSupportsHWEmulation>("hardwareEmulation"),
    B::flag<&Base::isHWEmuPlatform, &Base::setIsHWEmuPlatform>("hardwareEmuPlatform"),
    whenExpandable<&Base::getMaxAXIMMManagers>("maxAXIMMManagers"),
    whenExpandable<&Base::getMaxAXIMMSubordinates>("maxAXIMMSubordinates"),
    whenExpandable<&Base::getMaxInterrupts>("maxInterrupts"),
    B::flag<&Base::usesNIFD, &Base::setUsesNIFD>("usesNIFD"),
    ifPresent(B::flagWhenTrue<&Base::isStatic, &Base::setStatic>("static")),
    ifPresent(B::flagWhenTrue<&Base::isRM, &Base::setRM>("rm")),
    ifPresent(B::text<&Base::getDrBdInstName, &Base::setDrBdInstName>("drBdInstName")),
    B::text<&Base::getGeneratedName, &Base::setGeneratedName>("generatedName"),
    B::text<&Base::getGeneratedVersion, &Base::setGeneratedVersion>("generatedVersion"),
    B::number<&Base::getGeneratedChangeList, &Base::setGeneratedChangeList>("generatedChangeList"),
    B::text<&Base::getGeneratedIpChangeList>("generatedIpChangeList"),
    B::text<&Base::getGeneratedSharedDataChangeList>("generatedSharedDataChangeList"),
    B::text<&Base::getGeneratedTimestamp, &Base::setGeneratedTimestamp>("generatedTimestamp"),
    ifPresent(B::flagWhenTrue<&Base::hasExternalSources, &Base::setHasExternalSources>("hasExternalSources")),
    ifPresent(B::flagWhenTrue<&Base::hasRQAContent, &Base::setHasRQAContent>("hasRQAContent")),
    ifPresent(B::flagWhenTrue<&Base::isGeneratedByLink, &Base::setGeneratedByLink>("genLink")),
    ifPresent(B::flagWhenTrue<&Base::isGeneratedBySwEmuLink, &Base::setGeneratedBySwEmuLink>("genSwEmuLink")),
    ifPresent(B::text<&Base::getIdCode, &Base::setIdCode>("idCode")),
    ifPresent(B::text<&Base::getExtendedIdCode, &Base::setExtendedIdCode>("extendedIdCode")),
    B::group<kFlashKeys>("flash"),
    designIDs("designIDs"),
    B::objects<&Base::getReconfigPartitions, &Base::addReconfigPartition>("reconfigPartitionIDs"),
    B::object<kReadOnlyTilHardware, kTilHardware>("tilHardware"),
    shaped<Base>({"tilPartitions", &writeTilPartitions, nullptr, &readTilPartitions}, Form::list,
                 &json::shapesOfRecord<HTEQTilPartition>),
    B::objects<&Base::createDesignIPInstanceIter, &Base::addDesignIPInstance>("designIpInstances"),
    shaped<Base>({"resources", &writeResources, nullptr, &readResources}, Form::list, &resourceShapes),
    shaped<Base>({"systemClocks", &writeClocks, nullptr, &readClocks}, Form::list, &clockShapes),
    B::objects<&Base::createIPParamIter, &Base::addHardwareIPParam>("ipParameters"),
    B::objects<&Base::createBusInterfaceIter, &Base::addBusInterface>("busInterfaces"),
    B::objects<&Base::createNocConnectivityIter, &Base::addNocConnectivity>("nocConnectivity"),
    B::objects<&Base::createFeatureRomIter, &Base::addFeatureRom>("featureRoms"),
};

// What the rows of HPLPlatform need.

/// The host is told of platforms with partial reconfiguration only.
template <auto Get, auto Set>
constexpr json::Key<Platform> whenPR(const char* name) {
    json::Key<Platform> key = P::text<Get, Set>(name);
    key.write = [](JSONObjectWriter& w, const char* n, const Platform& p) {
        if (p.usesPR()) w.addKey(n, std::invoke(Get, p));
    };
    return key;
}

void readBinaryContentValues(Platform& platform, const std::string& text) {
    if (text.empty()) return;
    for (const std::string& value : HSTStringUtils::split(text, ',')) platform.addValidBinaryContentValue(value);
}

void writeExtensions(JSONObjectWriter& writer, const char* name, const Platform& platform) {
    JSONObjectWriter extensions;
    platform.getExtMetaJsonAsPtree(extensions.getTree());
    writer.addKey(name, std::move(extensions));
}

HPLFile* addFile(Platform& platform) { return platform.addFile("", ""); }

json::Shapes intentShapes() {
    static const json::Shape ofOne[] = {{"value", Form::flag}, {"explicit", Form::flag}};
    constexpr auto inner = []() -> json::Shapes { return ofOne; };
    static const json::Shape shapes[] = {{"dataCenter", Form::object, false, inner},
                                         {"embedded", Form::object, false, inner},
                                         {"externalHost", Form::object, false, inner},
                                         {"serverManaged", Form::object, false, inner}};
    return shapes;
}

constexpr json::Key<Platform> kPlatformKeys[] = {
    P::number<&Platform::getVersionMajor, &Platform::setVersionMajor>("versionMajor"),
    P::number<&Platform::getVersionMinor, &Platform::setVersionMinor>("versionMinor"),
    whenPR<&Platform::getHostArch, &Platform::setHostArch>("hostArchitecture"),
    whenPR<&Platform::getHostInterface, &Platform::setHostInterface>("hostInterface"),
    P::flag<&Platform::usesPR, &Platform::setUsesPR>("usesPR"),
    P::text<&Platform::getPlatformState, &Platform::setPlatformState>("platformState"),
    P::text<&Platform::getTopModuleName, &Platform::setTopModuleName>("topModuleName"),
    P::text<&Platform::getAcceleratorBinaryFormat, &Platform::setAcceleratorBinaryFormat>("acceleratorBinaryFormat"),
    P::text<&Platform::getAcceleratorBinaryContent, &Platform::setAcceleratorBinaryContent>(
        "acceleratorBinaryContent"),
    P::text<&Platform::getValidBinaryContentValuesAsStr, &readBinaryContentValues>(
        "validAcceleratorBinaryContentValues"),
    P::texts<&Platform::getZuncCompileXpSwitches, &Platform::addZuncCompileXpSwitch>("zuncCompileXPSwitches"),
    P::texts<&Platform::getZuncLinkXpSwitches, &Platform::addZuncLinkXpSwitch>("zuncLinkXPSwitches"),
    P::flag<&Platform::isDcpFuncStripped, &Platform::setDcpFuncStripped>("dcpFunctionStripped"),
    P::flag<&Platform::isDcpEncrypt, &Platform::setDcpEncrypt>("dcpEncrypted"),
    ifPresent(P::text<&Platform::getDefaultOutputType, &Platform::setDefaultOutputType>("defaultOutputType")),
    shaped<Platform>({"designIntent", [](JSONObjectWriter& w, const char*,
                                         const Platform& p) { w.writeObject(p.getDesignIntent()); }},
                     Form::object, &intentShapes),
    P::object<&Platform::getReadOnlyBoard, &Platform::getBoard>("board"),
    P::objects<&Platform::createDeviceIter, &Platform::addDevice>("devices"),
    P::objects<&Platform::createInterfaceIter, &Platform::addInterface>("interfaces"),
    P::objects<&Platform::createMemoryIter, &Platform::addMemory>("memories"),
    P::objects<&Platform::createFileVecIter, &addFile>("files"),
    {"extensions", &writeExtensions},
};

// Reading. The order differs from that of writing, and shows in which of several faults is reported.

/// A row of one of the two tables.
struct Step {
    const json::Key<Base>* base = nullptr;
    const json::Key<Platform>* own = nullptr;
};

consteval Step step(std::string_view name) {
    for (const json::Key<Base>& key : kBaseKeys)
        if (key.name == name) return {&key, nullptr};
    for (const json::Key<Platform>& key : kPlatformKeys)
        if (key.name == name) return {nullptr, &key};
    throw "no such key";
}

constexpr Step kBeforeIntent[] = {
    step("generatedChangeList"),
    step("generatedName"),
    step("generatedVersion"),
    step("generatedTimestamp"),
    step("hasExternalSources"),
    step("hasRQAContent"),
    step("genLink"),
    step("genSwEmuLink"),
    step("idCode"),
    step("extendedIdCode"),
    step("vendor"),
    step("boardId"),
    step("name"),
    step("versionMajor"),
    step("versionMinor"),
    step("hostArchitecture"),
    step("hostInterface"),
    step("platformState"),
    step("acceleratorBinaryContent"),
    step("acceleratorBinaryFormat"),
    step("unifiedPlatform"),
    step("dcpFunctionStripped"),
    step("dcpEncrypted"),
    step("topModuleName"),
    step("usesNIFD"),
    step("hardware"),
    step("softwareEmulation"),
    step("hardwareEmulation"),
    step("hardwareEmuPlatform"),
    step("defaultOutputType"),
    step("validAcceleratorBinaryContentValues"),
    step("usesPR"),
    step("expandablePlatform"),
};
constexpr Step kBehindIntent[] = {
    step("zuncCompileXPSwitches"),
    step("zuncLinkXPSwitches"),
    step("designIpInstances"),
    step("flash"),
    step("designIDs"),
    step("reconfigPartitionIDs"),
    step("tilHardware"),
    step("tilPartitions"),
    step("static"),
    step("drBdInstName"),
    step("rm"),
    step("resources"),
    step("board"),
    step("devices"),
    step("interfaces"),
    step("memories"),
    step("files"),
    step("featureRoms"),
    step("systemClocks"),
};

/// Read apart, since those of an hpfm count for more.
constexpr std::string_view kReadBehindHpfm[] = {"busInterfaces", "nocConnectivity", "ipParameters"};

consteval bool isStep(std::string_view name) {
    for (std::span<const Step> steps : {std::span<const Step>(kBeforeIntent), std::span<const Step>(kBehindIntent)})
        for (const Step& step : steps)
            if (name == (step.base ? step.base->name : step.own->name)) return true;
    return std::ranges::find(kReadBehindHpfm, name) != std::end(kReadBehindHpfm);
}

template <class Rows>
consteval bool areSteps(const Rows& rows) {
    for (const auto& key : rows)
        if ((key.readText || key.readNode) && !isStep(key.name)) return false;
    return true;
}
static_assert(areSteps(kBaseKeys) && areSteps(kPlatformKeys), "a key that is read needs its place among the steps");

void readSteps(const ptree& document, std::span<const Step> steps, Platform& platform) {
    for (const Step& step : steps) {
        if (step.base) json::readKey(document, *step.base, platform);
        if (step.own) json::readKey(document, *step.own, platform);
    }
}

/// The intents that the document does not declare follow from the use of partial reconfiguration.
void readDesignIntent(const ptree& document, Platform& platform) {
    using Key = HTEQDesignIntentStorage::Key;
    const bool pr = platform.usesPR();
    const struct {
        const char* name;
        Key key;
        bool computed;
    } intents[] = {{"dataCenter", Key::dataCenter, pr},
                   {"embedded", Key::embedded, !pr},
                   {"externalHost", Key::externalHost, pr},
                   {"serverManaged", Key::serverManaged, pr}};
    const auto object = document.find("designIntent");
    for (const auto& [name, key, computed] : intents) {
        const ptree* node = nullptr;
        if (object != document.not_found())
            if (const auto at = object->second.find(name); at != object->second.not_found()) node = &at->second;
        if (node && node->count("value") && HSTStringUtils::iequals(json::textAt(*node, "explicit"), "true"))
            platform.setExplicitDesignIntent(key, HSTStringUtils::iequals(json::textAt(*node, "value"), "true"));
        else
            platform.setComputedDesignIntent(key, computed);
    }
}

}  // namespace

template <>
std::span<const json::Key<Base>> json::keysOf<Base>() {
    return kBaseKeys;
}

template <>
std::span<const json::Key<Platform>> json::keysOf<Platform>() {
    return kPlatformKeys;
}

namespace hardware {

void readDocument(const ptree& document, Platform& platform) {
    readSteps(document, kBeforeIntent, platform);
    readDesignIntent(document, platform);
    readSteps(document, kBehindIntent, platform);
}

void readBusInterfaces(const ptree& list, Base& platform) { step("busInterfaces").base->readNode(platform, list); }
void readNocConnectivity(const ptree& list, Base& platform) {
    step("nocConnectivity").base->readNode(platform, list);
}
std::vector<json::Shape> documentShapes() {
    std::vector<json::Shape> shapes = json::shapesOf<Base>(kBaseKeys);
    for (json::Shape& shape : json::shapesOf<Platform>(kPlatformKeys)) shapes.push_back(std::move(shape));
    return shapes;
}

void readIPParams(const ptree& list, Base& platform) { step("ipParameters").base->readNode(platform, list); }

}  // namespace hardware
