#include "platform/HTEQHardwarePlatform.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/HTEQSystemClock.h"

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

TEST(MemberNames, OfTwoExtensions) {
    EXPECT_TRUE(HTEQHardwarePlatform::isValidPlatformExt(".lfa"));
    EXPECT_FALSE(HTEQHardwarePlatform::isValidPlatformExt("lfa"));
    EXPECT_FALSE(HTEQHardwarePlatform::isValidPlatformExt(".LFA"));
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
