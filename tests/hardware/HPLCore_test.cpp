#include "platform/HPLCore.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "platform/HPLAddressSegment.h"
#include "platform/HPLPort.h"

namespace {

HPLPort* addPort(HPLCore& core, const char* type, const char* name, const char* frequency) {
    HPLPort* port = core.addPort();
    port->setType(type);
    port->setName(name);
    port->setFrequency(frequency);
    return port;
}

}  // namespace

TEST(Core, ClockFrequencyOfTheFirstClockPort) {
    HPLCore core;
    addPort(core, "clk", "OTHER_CLK", "100");
    addPort(core, "axi", "ACLK", "200");
    EXPECT_EQ(core.getClockFreq(), "");
    addPort(core, "CLK", "kernel_clk", "300");
    addPort(core, "clk", "ACLK", "400");
    EXPECT_EQ(core.getClockFreq(), "300");
    core.setClockFreq("500");
    EXPECT_EQ(core.getClockFreq(), "500");
}

TEST(Core, WidestPort) {
    HPLCore core;
    EXPECT_EQ(core.getMaxDataWidth(), 0);
    HPLPort* wide = core.addPort();
    wide->setDataWidth("512");
    core.addPort()->setDataWidth("64 bits");
    core.addPort()->setDataWidth("wide");
    core.addPort()->setAddrWidth("-1");
    EXPECT_EQ(core.getMaxDataWidth(), 512);
    EXPECT_EQ(core.getMaxAddrWidth(), 0);
    core.removePort(wide);
    EXPECT_EQ(core.getMaxDataWidth(), 64);
    HPLPort other;
    core.removePort(&other);
    EXPECT_EQ(core.getMaxDataWidth(), 64);
}

TEST(Core, ResourceCounts) {
    HPLCore core;
    core.addResourceInfo("pb", "DSPs", "12");
    core.addResourceInfo("pb", "DSPs_used", "3");
    core.addResourceInfo("pb", "LUT_used", "5 of 9");
    core.addResourceInfo("PB", "LUT", "7");
    const struct {
        const char *type, *pblock, *variant;
        int count;
    } kCases[] = {
        {"DSP", "pb", "", 12},    {"dsp", "pb", "", 0},  // the key itself has its case
        {"DSP", "pb", "used", 3}, {"LUT", "pb", "used", 5},
        {"LUT", "Pb", "", 7},  // of two pblocks, the one with the key
        {"LUT", "other", "", 0},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(core.getResCount(c.type, c.pblock, c.variant), c.count) << c.type << c.pblock << c.variant;
}

TEST(Core, CountsOfTheDynamicRegion) {
    HPLCore core;
    EXPECT_FALSE(core.hasResourceInfo());
    core.addResourceInfo("any", "BRAM", "10");
    core.addResourceInfo("any", "REG", "0");
    EXPECT_TRUE(core.hasResourceInfo());
    EXPECT_EQ(core.getBRAMCount(), "10");  // the only pblock
    EXPECT_EQ(core.getRegisterCount(), "");
    core.addResourceInfo("second", "BRAM", "20");
    EXPECT_EQ(core.getBRAMCount(), "");  // two, and none is the dynamic region
    core.addResourceInfo("PBLOCK_DYNAMIC_REGION", "BRAM", "30");
    EXPECT_EQ(core.getBRAMCount(), "30");
    core.setBRAMCount("0");
    EXPECT_EQ(core.getBRAMCount(), "0");  // a fixed count, whatever it says
}

TEST(Core, SlrNames) {
    HPLCore core;
    core.addSLRInfo("pb", "SLR1,SLR0,SLR1");
    core.addSLRInfo("pb", HSTVector<std::string>{"SLR9"});    // the first call counts
    core.addSLRInfo("none", HSTVector<std::string>{});        // nothing
    core.addSLRInfo("alone", std::set<std::string>{"SLR5"});  // without resources
    std::set<std::string> names{"before"};
    core.getSLRNames("none", names);
    EXPECT_EQ(names, (std::set<std::string>{"before"}));
    core.getSLRNames("PB", names);
    EXPECT_EQ(names, (std::set<std::string>{"SLR0", "SLR1"}));
    core.addResourceInfo("Pb", "", "");
    core.addResourceInfo("pB", "LUT", "1");
    HSTVector<std::string> valid{"SLR1"};
    core.getValidSLRNames(valid);
    EXPECT_EQ(valid, (HSTVector<std::string>{"SLR1", "SLR0"}));
    // Of spellings that differ in case only, the last in order answers for all.
    core.addSLRInfo("pB", "SLR7");
    core.addSLRInfo("PB", "SLR6");
    names.clear();
    core.getSLRNames("pb", names);
    EXPECT_EQ(names, (std::set<std::string>{"SLR0", "SLR1"}));
}

TEST(Core, Document) {
    HPLCore core;
    EXPECT_EQ(documentOf(core), R"({"numComputeUnits": "0"})");
    core.addResourceInfo("bare", "", "");
    core.addSLRInfo("BARE", "SLR0");
    core.addConfigParam("b", "2");
    core.addConfigParam("a", "1");
    core.addPort()->addAddressSegment(new HPLAddressSegment);
    HPLPort* port = core.addPort();
    port->setDirection("out");
    port->setName("S_AXI");
    port->setMaxBurstLength("256");
    EXPECT_EQ(
        documentOf(core),
        R"({"numComputeUnits": "0","availableResources": {"pBlocks": [{"name": "bare","validSlrs": ["SLR0"]}]},)"
        R"("configParams": [{"name": "a","value": "1"},{"name": "b","value": "2"}],)"
        R"("ports": [{"name": "S_AXI","maxBurstLength": "256","direction": "out"}]})");
}
