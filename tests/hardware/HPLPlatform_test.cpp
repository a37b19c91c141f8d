#include "platform/HPLPlatform.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"

using Key = HTEQDesignIntentStorage::Key;

TEST(HplPlatform, NamesOfANewPlatform) {
    const HPLPlatform platform;
    EXPECT_EQ(platform.getVersion(), "0.0");
    EXPECT_EQ(platform.getUniqueName(), ":::0.0");
    EXPECT_EQ(platform.getDeviceName(), "___0_0");
    EXPECT_EQ(platform.getPrettyName(), " ()");
    EXPECT_EQ(platform.getPartName(), "");
    EXPECT_EQ(platform.getNumComputeUnits(), 10u);
}

TEST(HplPlatform, NamesFromTheirParts) {
    HPLPlatform platform;
    platform.setVendor("torvane");
    platform.setBoardId("rq200");
    platform.setName("base");
    platform.setVersionMajor(4294967295u);
    platform.setVersionMinor(1);
    EXPECT_EQ(platform.getVBNV(), "torvane:rq200:base:4294967295.1");
    EXPECT_EQ(platform.getDeviceName(), "torvane_rq200_base_4294967295_1");
    EXPECT_EQ(platform.getPrettyName(), "RQ200 (base)");
    platform.setComputedDesignIntent(Key::embedded, true);
    EXPECT_EQ(platform.getPrettyName(), "base");
}

TEST(HplPlatform, HostTexts) {
    HPLPlatform platform;
    EXPECT_EQ(platform.getHostArch(), "unknown");
    platform.setHostArch("X86_64");
    EXPECT_EQ(platform.getHostArchAsEnum(), HostArchType::x86_64);
    EXPECT_EQ(platform.getHostArch(), "x86_64");
    platform.setHostArch("sparc");
    EXPECT_EQ(platform.getHostArchAsEnum(), HostArchType::unknown);
    platform.setHostInterface("AXI");
    EXPECT_EQ(platform.getHostInterfaceAsEnum(), HostInterfaceType::axi);
    EXPECT_EQ(platform.getHostArchAsStr(static_cast<HostArchType>(9)), "unknown");
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

TEST(HplPlatform, MemorySizes) {
    HPLPlatform platform;
    EXPECT_EQ(platform.getMemSize(), "8 GB");
    EXPECT_EQ(platform.getMemType(), "ddr4");
    EXPECT_EQ(platform.getMemSizeInGb(5), 0);
    platform.addMemory()->setSize("16GB");
    platform.addMemory()->setSize("512MB");
    EXPECT_EQ(platform.getMemSize(), "16 GB");
    EXPECT_EQ(platform.getMemType(), "");  // the first one's, whatever it is
    EXPECT_EQ(platform.getMemSizeInGb(1), 0);
    EXPECT_THROW(platform.getMemSizeInGb(2), std::out_of_range);
    for (int i = 0; i < 2; ++i) platform.addMemory()->setSize("2147483647GB");
    EXPECT_EQ(platform.getTotalMemSizeInGb(), 4294967310);
}

TEST(HplPlatform, FilesByType) {
    HPLPlatform platform;
    HPLFile* first = platform.addFile("DCP", "first.dcp");
    platform.addFile("dcp", "second.dcp");
    platform.addFile("PDI", "");
    EXPECT_EQ(platform.getFile("Dcp"), "second.dcp");
    EXPECT_EQ(platform.getFile(HTEQPfmFileTypes::FileType::DCP), "second.dcp");
    EXPECT_EQ(platform.findFile("DCP"), first);
    EXPECT_EQ(platform.findFile("Dcp"), nullptr);
    EXPECT_FALSE(platform.hasFile("PDI"));  // its name is empty
    platform.addFile("DCP", "third.dcp");
    HPLFile other;
    platform.removeFile(&other);
    EXPECT_EQ(platform.getNumFiles(), 4u);
    platform.removeFileType("DCP");
    EXPECT_EQ(platform.getNumFiles(), 2u);
    EXPECT_EQ(platform.getFile("DCP"), "second.dcp");
}

TEST(HplPlatform, DevicesAndCores) {
    HPLPlatform platform;
    platform.addDevice()->setName("fpga1");
    EXPECT_EQ(platform.getRegisterCount(), 0);
    EXPECT_EQ(platform.getNumComputeUnits(), 0u);
    HPLDevice* device = platform.addDevice();
    device->setName("fpga0");
    device->getCore().setRegisterCount("1234x");
    device->getCore().setInstPath("top/dr");
    device->getCore().setNumComputeUnits(3);
    platform.addDevice()->setName("fpga0");
    EXPECT_EQ(platform.getDevice("fpga0"), device);
    EXPECT_EQ(platform.getRegisterCount(), 1234);
    EXPECT_EQ(platform.getOclInstPath(), "top/dr");
    EXPECT_FALSE(platform.usesExpandedPR());
    device->getCore().setParentRMInstPath("top");
    EXPECT_TRUE(platform.usesExpandedPR());
    EXPECT_EQ(platform.getNumComputeUnits(), 0u);  // of the last device
    EXPECT_EQ(platform.getOCLRegionCount(), 3u);
}
