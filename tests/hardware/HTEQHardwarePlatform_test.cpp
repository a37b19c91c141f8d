#include "platform/HTEQHardwarePlatform.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "platform/HPLDevice.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSystemClock.h"

namespace {

void addClock(HPLPlatform& platform, const char* name, int id, const char* frequency, const char* status = "") {
    HTEQSystemClock* clock = platform.addSystemClock();
    clock->setName(name);
    clock->setId(id);
    clock->setFrequency(frequency);
    clock->setStatus(status);
}

void addBus(HPLPlatform& platform, const char* name, const char* type, const char* mode, int width) {
    HTEQHardwareBusInterface* bus = platform.addBusInterface();
    bus->setName(name);
    bus->setBusTypeRef(type);
    bus->setMode(mode);
    bus->setDataWidth(width);
}

}  // namespace

TEST(Clocks, OfEqualNamesAndIdsTheLastAnswers) {
    HPLPlatform platform;
    EXPECT_EQ(platform.getDefaultClockId(), "0");
    EXPECT_EQ(platform.getDefaultClockName(), "");
    platform.addSystemClock();
    EXPECT_EQ(platform.getDefaultClock(), nullptr) << "without an id none is the default";
    addClock(platform, "a", 0, "100");
    addClock(platform, "b", 1, "200");
    addClock(platform, "a", 2, "300");
    addClock(platform, "c", 0, "400");
    EXPECT_EQ(platform.getDefaultClockName(), "c");
    EXPECT_EQ(platform.getDefaultClockFrequency(), "400");
    EXPECT_EQ(platform.getClockFrequency("a"), "300");
    EXPECT_EQ(platform.getClockId("a"), "2");
    EXPECT_EQ(platform.getClockId("A"), "");
    EXPECT_EQ(platform.getPlatformFrequency(0), "400");
    EXPECT_EQ(platform.getPlatformFrequency(9), "");
    platform.setDefaultClkId(7);
    EXPECT_EQ(platform.getDefaultClock(), nullptr);
    EXPECT_EQ(platform.getDefaultClockId(), "7");
    EXPECT_EQ(platform.getDefaultClkId(), 7);
    HSTVector<std::string> names, frequencies;
    platform.getAllClockFrequencies(names, frequencies);
    EXPECT_EQ(names, (HSTVector<std::string>{"", "a", "b", "a", "c"}));
    EXPECT_EQ(frequencies, (HSTVector<std::string>{"", "100", "200", "300", "400"}));
}

namespace {

/// Of a host: its iterators find nothing.
struct Filtered : HPLPlatform {
    Owned<HTEQSystemClock> clocks;
    Owned<HTEQHardwareIPParam> params;
    Owned<HTEQHardwareBusInterface> buses;
    Owned<HTEQHardwareFeatureRom> roms;
    HSTFwdIter<HTEQSystemClock*>* createSystemClockIter() const override { return clocks.makeIter(); }
    HSTFwdIter<HTEQHardwareIPParam*>* createIPParamIter() const override { return params.makeIter(); }
    HSTFwdIter<HTEQHardwareBusInterface*>* createBusInterfaceIter() const override { return buses.makeIter(); }
    HSTFwdIter<HTEQHardwareFeatureRom*>* createFeatureRomIter() const override { return roms.makeIter(); }
};

template <class T>
std::size_t filled(const HPLPlatform& platform, void (HTEQHardwarePlatform::*get)(HSTVector<T*>&) const) {
    HSTVector<T*> out;
    (platform.*get)(out);
    return out.size();
}

std::size_t filled(const HPLPlatform& platform) {
    using P = HTEQHardwarePlatform;
    return filled(platform, &P::getSystemClocks) + filled(platform, &P::getHardwareIPParams) +
           filled(platform, &P::getBusInterfaces) + filled(platform, &P::getFeatureRoms);
}

}  // namespace

TEST(Lists, VectorsAreFilledByTheIterators) {
    HPLPlatform platform;
    Filtered filtered;
    for (HPLPlatform* p : {&platform, static_cast<HPLPlatform*>(&filtered)}) {
        p->addSystemClock();
        p->addHardwareIPParam();
        p->addBusInterface();
        p->addFeatureRom();
    }
    EXPECT_EQ(filled(platform), 4U);
    EXPECT_EQ(filled(filtered), 0U);
}

TEST(Clocks, OfTheUserAreScalable) {
    HPLPlatform user;
    HPLDevice* device = user.addDevice();
    device->addSystemClock("mine", "250");
    EXPECT_FALSE(user.hasScalableClocks());  // of another device than fpga0
    device->setName("fpga0");
    EXPECT_TRUE(user.hasScalableClocks());
}

TEST(BusInterfaces, CountsByTypeAndMode) {
    HPLPlatform platform;
    EXPECT_EQ(platform.getBusInterfaceMaxDataWidth(), 0);
    addBus(platform, "a", "AXIMM", "Master", -8);
    EXPECT_EQ(platform.getBusInterfaceMaxDataWidth(), 0);
    addBus(platform, "b", "aximm", "slave", 64);
    addBus(platform, "b", "aximm", "master", 512);
    addBus(platform, "c", "Interrupt", "any", 1);
    addBus(platform, "d", "aximm", "", 32);
    platform.addNocConnectivity()->addBusInterface()->setName("noc");
    EXPECT_EQ(platform.getMaxAXIMMManagers(), 2u);
    EXPECT_EQ(platform.getMaxAXIMMSubordinates(), 1u);
    EXPECT_EQ(platform.getMaxInterrupts(), 1u);
    EXPECT_EQ(platform.getBusInterfaceMaxDataWidth(), 512);
    ASSERT_NE(platform.getBusInterfaceByName("b"), nullptr);
    EXPECT_EQ(platform.getBusInterfaceByName("b")->getMode(), "slave");  // the first of two
    EXPECT_EQ(platform.getBusInterfaceByName("noc"), nullptr);
}

TEST(MemberNames, OfTwoExtensions) {
    EXPECT_TRUE(HTEQHardwarePlatform::isValidPlatformExt(".lfa"));
    EXPECT_FALSE(HTEQHardwarePlatform::isValidPlatformExt("lfa"));
    EXPECT_FALSE(HTEQHardwarePlatform::isValidPlatformExt(".LFA"));
}

TEST(ReconfigPartitions, FoundByNodeId) {
    HPLPlatform platform;
    HTEQReconfigPartition* first = platform.addReconfigPartition();
    first->setNodeID(5);
    platform.addReconfigPartition()->setNodeID(5);
    EXPECT_EQ(platform.findReconfigPartition(5), first);
    EXPECT_EQ(platform.findReconfigPartition(6), nullptr);
    EXPECT_EQ(platform.getReconfigModuleName(), "");
    HPLDevice* device = platform.addDevice();
    device->setName("fpga0");
    device->getCore().setReconfigModuleName("rm");
    EXPECT_EQ(platform.getReconfigModuleName(), "rm");
}

TEST(ReconfigurablePartition, TheEmulationPlatformNeedsAFileOfItsOwn) {
    HTEQReconfigurablePartition partition(3);
    EXPECT_EQ(documentOf(partition), R"({"id": "3"})");
    HPLPlatform emulation;
    partition.setHardwareEmulationPlatform(&emulation);
    EXPECT_TRUE(partition.hasHardwareEmulationPlatform());
    EXPECT_EQ(documentOf(partition), R"({"id": "3"})");
    partition.setHardwareEmuPlatformFile("emu.lfa");
    EXPECT_EQ(documentOf(partition), R"({"id": "3","hwEmuPlatform": )" + documentOf(emulation) + "}");
}

TEST(DesignIPInstance, AKeyIsTakenOnce) {
    HTEQDesignIPInstance ip;
    ip.addConfigParam("b", "2");
    ip.addConfigParam("a.x", "1");
    EXPECT_EQ(refusalOf<HEXAlgException>([&] { ip.addConfigParam("b", "2"); }),
              "Attempt to readd Design IP Instance Config Param key: 'b' is not allowed!");
    ip.setVLNV("v:l:n:1");
    ip.setInstanceName("i");
    EXPECT_EQ(documentOf(ip), R"({"vlnv": "v:l:n:1","instance": "i","configuration": {"a": {"x": "1"},"b": "2"}})");
}
