#include "platform/HPLPlatform.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "kit/Script.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQReconfigPartition.h"
#include "platform/HTEQSystemClock.h"

using Key = HTEQDesignIntentStorage::Key;

namespace {

using P = HPLPlatform;
using S = std::string;
using script::Arguments;

std::string addClock(P& platform, const Arguments& arguments) {
    HTEQSystemClock* const clock = platform.addSystemClock();
    clock->setName(arguments.at(0));
    clock->setId(std::stoi(arguments.at(1)));
    clock->setFrequency(arguments.at(2));
    return "";
}

std::string addBus(P& platform, const Arguments& arguments) {
    HTEQHardwareBusInterface* const bus = platform.addBusInterface();
    bus->setName(arguments.at(0));
    bus->setBusTypeRef(arguments.at(1));
    bus->setMode(arguments.at(2));
    bus->setDataWidth(std::stoi(arguments.at(3)));
    return "";
}

/// The device is the first of that name, or a new one.
HPLDevice& deviceOf(P& platform, const std::string& name) {
    HPLDevice* const found = platform.getDevice(name);
    HPLDevice& device = found ? *found : *platform.addDevice();
    device.setName(name);
    return device;
}

std::string addDevice(P& platform, const Arguments& arguments) {
    HPLDevice& device = *platform.addDevice();
    device.setName(arguments.at(0));
    if (arguments.size() == 1) return "";
    device.getCore().setRegisterCount(arguments.at(1));
    device.getCore().setInstPath(arguments.at(2));
    device.getCore().setNumComputeUnits(static_cast<unsigned>(std::stoul(arguments.at(3))));
    return "";
}

std::string addPartition(P& platform, const Arguments& arguments) {
    HTEQReconfigPartition* const partition = platform.addReconfigPartition();
    partition->setNodeID(static_cast<std::uint32_t>(std::stoul(arguments.at(0))));
    partition->setDesignID(static_cast<std::uint32_t>(std::stoul(arguments.at(1))));
    return "";
}

}  // namespace

TEST(HplPlatform, Calls) {
    using script::call;
    HPLFile other;
    const script::Calls<P> others = {
        {"bus", addBus},
        {"clock", addClock},
        {"device", addDevice},
        {"addSystemClock", [](P& p, auto&) { return p.addSystemClock(), ""; }},
        {"deviceClock", [](P& p, auto& a) { return deviceOf(p, a.at(0)).addSystemClock("mine", a.at(1)), ""; }},
        {"embedded", [](P& p, auto&) { return p.setComputedDesignIntent(Key::embedded, true), ""; }},
        {"memory", [](P& p, auto& a) { return p.addMemory()->setSize(a.at(0)), ""; }},
        {"modeOfBus",
         [](P& p, auto& a) {
             const auto* const bus = p.getBusInterfaceByName(a.at(0));
             return bus ? bus->getMode() : "null";
         }},
        {"nocBus", [](P& p, auto& a) { return p.addNocConnectivity()->addBusInterface()->setName(a.at(0)), ""; }},
        {"partition", addPartition},
        {"designOfPartition",
         [](P& p, auto& a) {
             const auto* const found = p.findReconfigPartition(static_cast<std::uint32_t>(std::stoul(a.at(0))));
             return found ? std::to_string(found->getDesignID()) : "null";
         }},
        {"parentRm", [](P& p, auto& a) { return deviceOf(p, "fpga0").getCore().setParentRMInstPath(a.at(0)), ""; }},
        {"reconfigModule",
         [](P& p, auto& a) { return deviceOf(p, "fpga0").getCore().setReconfigModuleName(a.at(0)), ""; }},
        {"addFile", [](P& p, auto& a) { return p.addFile(a.at(0), a.at(1)), ""; }},
        {"findFile",
         [](P& p, auto& a) {
             const HPLFile* const file = p.findFile(a.at(0));
             return file ? file->getName() : "null";
         }},
        {"getFileOfTypeDcp", [](P& p, auto&) { return p.getFile(HTEQPfmFileTypes::FileType::DCP); }},
        {"removeFileOfAnother", [&](P& p, auto&) { return p.removeFile(&other), ""; }},
        {"getFile", call<P, S, const S&>(&P::getFile)},
        {"hasFile", call<P, bool, const S&>(&P::hasFile)},
        {"getAllClockFrequencies", script::twoLists(&P::getAllClockFrequencies)}};
    script::expectCalls<P>(
        ZR_SOURCE_DIR "/tests/cases/hardware/platform.case",
        script::calls<P, &P::getBusInterfaceMaxDataWidth, &P::getClockFrequency, &P::getClockId, &P::getDefaultClkId,
                      &P::getDefaultClock, &P::getDefaultClockFrequency, &P::getDefaultClockId,
                      &P::getDefaultClockName, &P::getDeviceName, &P::getHostArch, &P::getHostArchAsEnum,
                      &P::getHostInterfaceAsEnum, &P::getMaxAXIMMManagers, &P::getMaxAXIMMSubordinates,
                      &P::getMaxInterrupts, &P::getMemSize, &P::getMemSizeInGb, &P::getMemType,
                      &P::getNumComputeUnits, &P::getNumFiles, &P::getOCLRegionCount, &P::getOclInstPath,
                      &P::getPartName, &P::getPlatformFrequency, &P::getPrettyName, &P::getReconfigModuleName,
                      &P::getRegisterCount, &P::getTotalMemSizeInGb, &P::getUniqueName, &P::getVBNV, &P::getVersion,
                      &P::hasScalableClocks, &P::removeFileType, &P::setBoardId, &P::setDefaultClkId, &P::setHostArch,
                      &P::setHostInterface, &P::setName, &P::setVendor, &P::setVersionMajor, &P::setVersionMinor,
                      &P::usesExpandedPR>(others));
    EXPECT_EQ(HPLPlatform().getHostArchAsStr(static_cast<HostArchType>(9)), "unknown");
    EXPECT_EQ(HPLPlatform::getHostArchTypesAsStr(),
              (HSTVector<std::string>{"x86_64", "armv7l", "ppc64le", "aarch64"}));
}

TEST(HplPlatform, InterfaceDescription) {
    const struct {
        const char* what;
        bool intended;
        const char *device, *name, *type, *description;
    } kCases[] = {
        {"no intent", false, "tzq9kp", "PCIe", "gen4x8", ""},
        {"a part", true, "vu9p", "", "", "PCIe gen3x8"},
        {"the wide part", true, "TZQ9KP", "PCIe", "", "PCIe gen3x16"},
        {"an interface", true, "TZQ9KP", "PCIe", "gen4x8", "PCIe gen4x8"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        HPLPlatform platform;
        platform.addDevice()->setPartDevice(c.device);
        HPLInterface* interface = platform.addInterface();
        interface->setName(c.name);
        interface->setType(c.type);
        for (const Key key : {Key::externalHost, Key::serverManaged}) {
            platform.setComputedDesignIntent(Key::externalHost, false);
            platform.setComputedDesignIntent(key, c.intended);
            EXPECT_EQ(platform.getInterfaceDesc(), c.description);
        }
    }
}
