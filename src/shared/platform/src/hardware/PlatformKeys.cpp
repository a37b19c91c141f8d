#include <algorithm>
#include <span>
#include <string_view>

#include "hardware/HardwareKeys.h"
#include "msg/CountedPieces.h"
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
using json::ListIn;
using json::Node;
using json::ObjectIn;
using teq_platform::JSONObjectWriter;
using B = json::Keys<Base>;
using P = json::Keys<Platform>;

using hardware::Turn;

/// The same row, read in its turn.
template <Turn turn, class T>
constexpr json::Key<T> at(json::Key<T> key) {
    key.turn = static_cast<unsigned char>(turn);
    return key;
}

// What the rows of HTEQHardwarePlatform need.

/// A count that only an expandable platform has.
template <auto Get>
constexpr json::Key<Base> whenExpandable(const char* name) {
    return json::when<&Base::isExpandable>(B::number<Get>(name));
}

constexpr json::Key<Base> kFlashKeys[] = {
    B::text<&Base::getFlashInterfaceType, &Base::setFlashInterfaceType>("interfaceType"),
    B::text<&Base::getFlashOffsetAddress, &Base::setFlashOffsetAddress>("offsetAddress"),
    B::text<&Base::getFlashSize, &Base::setFlashSize>("size"),
};

/// The platform's own ids as they are read; written by their record.
constexpr json::Key<Base> kTilIdKeys[] = {
    B::text<&Base::getTILPlInterfaceIDAsString>("plInterfaceID"),
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

void writeDesignIDs(JSONObjectWriter& writer, const char* name, const Base& platform) {
    writer.addKey(name, &platform.getDesignIDs());
}

void readDesignIDs(Base& platform, const Node& node) { json::readKeys(node, kIdKeys, platform); }

constexpr HTEQTilHardware& (Base::*kTilHardware)() = &Base::getTilHardware;
constexpr const HTEQTilHardware& (Base::*kReadOnlyTilHardware)() const = &Base::getTilHardware;

void writeTilPartitions(JSONObjectWriter& writer, const char*, const Base& platform) {
    if (platform.isExpandable()) platform.writeTilPartitions(writer);
}

void readTilPartitions(Base& platform, const Node& list) {
    for (const Node item : list) {
        HTEQTilPartition& partition = platform.addTilPartition();
        partition.isRoot(true);
        json::readKeys(item, json::keysOf<HTEQTilPartition>(), partition);
    }
}

void writeResources(JSONObjectWriter& writer, const char* name, const Base& platform) {
    HSTVector<std::string> types, counts;
    platform.getAllResources(types, counts);
    ListIn list(writer, name);
    for (std::size_t i = 0; i < types.size(); ++i) {
        ObjectIn item(*list);
        item->addKey("type", types[i]);
        item->addKey("count", counts[i]);
        item.add();
    }
    list.add();
}

void readResources(Base& platform, const Node& list) {
    constexpr std::pair<const char*, void (Base::*)(int)> kSetters[] = {{"BRAM", &Base::setBRAMCount},
                                                                        {"DSP", &Base::setDSPCount},
                                                                        {"LUT", &Base::setLUTCount},
                                                                        {"FF", &Base::setFFCount}};
    for (const Node item : list) {
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
    ListIn list(writer, name);
    while (it->hasNext()) {
        const HTEQSystemClock& clock = *it->next();
        ObjectIn item(*list);
        item->addKey("default", defaultClock && defaultClock->getName() == clock.getName());
        item->writeObject(clock);
        item.add();
    }
    list.add();
}

void readClocks(Base& platform, const Node& list) {
    for (const Node item : list) {
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
    orElse(B::flag<&Base::isExpandable, &Base::setExpandable>("expandablePlatform"), "true"),
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
    B::custom<&writeDesignIDs, &readDesignIDs>("designIDs", Form::object, &json::shapesOfRows<Base, kIdKeys>),
    B::objects<&Base::getReconfigPartitions, &Base::addReconfigPartition>("reconfigPartitionIDs"),
    at<Turn::tiles>(B::object<kReadOnlyTilHardware, kTilHardware>("tilHardware")),
    at<Turn::tiles>(B::custom<&writeTilPartitions, &readTilPartitions>("tilPartitions", Form::list,
                                                                       &json::shapesOfRecord<HTEQTilPartition>)),
    at<Turn::designIPs>(
        B::objects<&Base::createDesignIPInstanceIter, &Base::addDesignIPInstance>("designIpInstances")),
    B::custom<&writeResources, &readResources>("resources", Form::list, &resourceShapes),
    B::custom<&writeClocks, &readClocks>("systemClocks", Form::list, &clockShapes),
    at<Turn::parameters>(B::objects<&Base::createIPParamIter, &Base::addHardwareIPParam>("ipParameters")),
    at<Turn::busInterfaces>(B::objects<&Base::createBusInterfaceIter, &Base::addBusInterface>("busInterfaces")),
    at<Turn::nocConnectivity>(
        B::objects<&Base::createNocConnectivityIter, &Base::addNocConnectivity>("nocConnectivity")),
    at<Turn::roms>(B::objects<&Base::createFeatureRomIter, &Base::addFeatureRom>("featureRoms")),
};

// What the rows of HPLPlatform need.

/// The host is written only for platforms with partial reconfiguration.
template <auto Get, auto Set>
constexpr json::Key<Platform> whenPR(const char* name) {
    return json::when<&Platform::usesPR>(P::text<Get, Set>(name));
}

void readBinaryContentValues(Platform& platform, const std::string& text) {
    if (text.empty()) return;
    for (const std::string& value : msg::countedPieces(text, ',')) platform.addValidBinaryContentValue(value);
}

void writeExtensions(JSONObjectWriter& writer, const char* name, const Platform& platform) {
    JSONObjectWriter extensions;
    platform.getExtMetaJsonAsPtree(extensions.getTree());
    writer.addKey(name, std::move(extensions));
}

HPLFile* addFile(Platform& platform) { return platform.addFile("", ""); }

// An intent that the document does not declare follows from the use of partial reconfiguration, or from its absence.
constexpr struct {
    const char* name;
    HTEQDesignIntentStorage::Key key;
    bool computed;  ///< with partial reconfiguration
} kIntents[] = {
    {"dataCenter", HTEQDesignIntentStorage::Key::dataCenter, true},
    {"embedded", HTEQDesignIntentStorage::Key::embedded, false},
    {"externalHost", HTEQDesignIntentStorage::Key::externalHost, true},
    {"serverManaged", HTEQDesignIntentStorage::Key::serverManaged, true},
};

void writeIntent(JSONObjectWriter& writer, const char*, const Platform& platform) {
    writer.writeObject(platform.getDesignIntent());
}

void readIntent(Platform& platform, const Node& object) {
    for (const auto& [name, key, computed] : kIntents) {
        const Node intent = object.find(name), value = intent.find("value");
        if (value && HSTStringUtils::iequals(json::textAt(intent, "explicit"), "true"))
            platform.setExplicitDesignIntent(key, HSTStringUtils::iequals(value.text(), "true"));
        else
            platform.setComputedDesignIntent(key, computed == platform.usesPR());
    }
}

json::Shapes intentShapes() {
    static const json::Shape ofOne[] = {{"value", Form::flag}, {"explicit", Form::flag}};
    static const std::vector<json::Shape> shapes = [] {
        std::vector<json::Shape> all;
        for (const auto& intent : kIntents)
            all.push_back({intent.name, Form::object, false, []() -> json::Shapes { return ofOne; }});
        return all;
    }();
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
    at<Turn::intent>(evenMissing(P::custom<&writeIntent, &readIntent>("designIntent", Form::object, &intentShapes))),
    P::object<&Platform::getReadOnlyBoard, &Platform::getBoard>("board"),
    at<Turn::devices>(P::objects<&Platform::createDeviceIter, &Platform::addDevice>("devices")),
    P::objects<&Platform::createInterfaceIter, &Platform::addInterface>("interfaces"),
    P::objects<&Platform::createMemoryIter, &Platform::addMemory>("memories"),
    P::objects<&Platform::createFileVecIter, &addFile>("files"),
    P::custom<&writeExtensions>("extensions"),
};

bool isOf(const json::Row& row, Turn turn) { return row.turn == static_cast<unsigned char>(turn); }

void readTurn(const Node& document, const json::Rows& rows, Turn turn, void* record) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (isOf(rows[i], turn)) json::readRow(document, rows[i], record);
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

void readKeys(const Node& document, Turn turn, Platform& platform) {
    readTurn(document, std::span<const json::Key<Base>>(kBaseKeys), turn, static_cast<Base*>(&platform));
    readTurn(document, std::span<const json::Key<Platform>>(kPlatformKeys), turn, &platform);
}

void readDocument(const Node& document, Platform& platform) {
    for (const Turn turn : {Turn::values, Turn::intent, Turn::designIPs, Turn::tiles, Turn::devices, Turn::roms})
        readKeys(document, turn, platform);
}

std::vector<json::Shape> documentShapes(bool hasHpfm) {
    std::vector<json::Shape> shapes = json::shapesOf(std::span<const json::Key<Base>>(kBaseKeys));
    for (json::Shape& shape : json::shapesOf(std::span<const json::Key<Platform>>(kPlatformKeys)))
        shapes.push_back(std::move(shape));
    for (json::Shape& shape : shapes)  // the hpfm replaces what the document says
        if (hasHpfm && std::ranges::any_of(kBaseKeys, [&](const json::Row& row) {
                return row.name == shape.name && (isOf(row, Turn::busInterfaces) || isOf(row, Turn::nocConnectivity));
            }))
            shape.isRead = false;
    return shapes;
}

}  // namespace hardware
