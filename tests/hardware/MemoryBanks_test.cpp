#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

#include "msg/ComMsgMgr.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"

namespace {

struct Segment {
    unsigned index;
    const char* slr;
};
struct Bus {
    const char *memPort, *tag;
    std::vector<Segment> segments = {};
    const char *size = "", *slr = "";
};

void add(HPLPlatform& platform, const std::vector<Bus>& buses) {
    for (const Bus& row : buses) {
        HTEQHardwareBusInterface* bus = platform.addBusInterface();
        bus->setMemPort(row.memPort);
        bus->setSPTag(row.tag);
        bus->setSize(row.size);
        bus->setSLR(row.slr);
        for (const Segment& s : row.segments) {
            HTEQHardwareAddressSegment* segment = bus->addAddressSegment();
            segment->setIndex(s.index);
            segment->setSlr(s.slr);
        }
    }
}

HSTVector<std::string> typesOf(const HPLPlatform& platform) {
    HSTVector<std::string> types;
    const unsigned count = platform.getUniqueMemoryTypeStrings(types);
    EXPECT_EQ(count, types.size());
    // The list of all banks is what the queries give for each.
    auto bank = platform.getMemoryBanks();
    std::ranges::reverse(bank);
    for (const std::string& type : types)
        for (unsigned n = 0; n < platform.getMemoryTypeCount(type); ++n, bank.pop_back()) {
            if (bank.empty()) return {};
            EXPECT_EQ(std::tie(bank.back().type, bank.back().number), std::tie(type, n));
            EXPECT_EQ(bank.back().size, platform.getMemorySize(type, n));
            EXPECT_EQ(bank.back().slr, platform.getMemorySLR(type, n));
        }
    EXPECT_TRUE(bank.empty());
    return types;
}

}  // namespace

TEST(MemoryBanks, TheFirstMemoryInterfaceDecidesTheIndex) {
    const struct {
        const char* what;
        std::vector<Bus> buses;
        bool indexed;
    } kCases[] = {
        {"no interfaces", {}, false},
        {"only general ports", {{"m_axi_gp", "x"}, {"S_AXI_GP", "y"}}, false},
        {"memss in capitals", {{"MEMSS", "HBM"}, {"bank0", "DDR"}}, true},
        {"a bank first", {{"bank0", "DDR"}, {"memss", "HBM"}}, false},
        {"a default bank is skipped", {{"bank0", "DEFAULT"}, {"memss", "HBM"}}, true},
        {"an empty tag counts", {{"bank0", ""}, {"memss", "HBM"}}, false},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        HPLPlatform platform;
        add(platform, c.buses);
        EXPECT_FALSE(platform.supportsMemoryResourceIndex());  // nobody has asked
        EXPECT_EQ(platform.isMemoryResourceIndexed(), c.indexed);
        EXPECT_EQ(platform.supportsMemoryResourceIndex(), c.indexed);
    }
}

TEST(MemoryBanks, TheIndexStaysOpenUntilAMemoryInterfaceIsSeen) {
    HPLPlatform platform;
    add(platform, {{"m_axi_gp", "x"}});
    EXPECT_FALSE(platform.isMemoryResourceIndexed());
    add(platform, {{"memss", "HBM"}});
    EXPECT_TRUE(platform.isMemoryResourceIndexed());
    HPLPlatform decided;
    add(decided, {{"bank0", "DDR"}});
    EXPECT_FALSE(decided.isMemoryResourceIndexed());
    add(decided, {{"memss", "HBM"}});
    EXPECT_FALSE(decided.isMemoryResourceIndexed());
}

TEST(MemoryBanks, IndexedQueries) {
    HPLPlatform platform;
    add(platform, {{"memss", "hbm", {{4, "SLR0"}, {5, "SLR1"}}, "1GB", "SLR9"},
                   {"memss", "HBM", {{7, "SLR2"}}},
                   {"memss", "DDR", {}},
                   {"bank0", "PLRAM", {{9, "SLR3"}}}});
    EXPECT_EQ(typesOf(platform), (HSTVector<std::string>{"DDR", "HBM"}));
    EXPECT_EQ(platform.getUniqueMemoryTypeCount(), 2u);
    const struct {
        const char* type;
        unsigned bank, count, index;
        const char *size, *slr;
    } kCases[] = {
        {"HBM", 0, 2, 7, "16GB", "SLR2"},  // counted in the first interface, answered by the last that has the bank
        {"HBM", 1, 2, 5, "16GB", "SLR1"}, {"HBM", 2, 2, 0, "", ""},   {"hbm", 0, 0, 0, "", ""},
        {"DDR", 0, 0, 0, "", ""},         {"PLRAM", 0, 0, 0, "", ""},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(std::string(c.type) + std::to_string(c.bank));
        EXPECT_EQ(platform.getMemoryTypeCount(c.type), c.count);
        EXPECT_EQ(platform.getMemoryIndex(c.type, c.bank), c.index);
        EXPECT_EQ(platform.getMemorySize(c.type, c.bank), c.size);
        EXPECT_EQ(platform.getMemorySLR(c.type, c.bank), c.slr);
    }
    HSTVector<HTEQHardwareBusInterface*> buses;
    platform.getMemoryBusInterfaces(buses);
    ASSERT_EQ(buses.size(), 4u);
    EXPECT_EQ(buses.back()->getSPTag(), "PLRAM");
}

TEST(MemoryBanks, NonIndexedQueries) {
    HPLPlatform platform;
    add(platform, {{"bank0", "DDR", {{4, "SLR7"}}, "1GB", "SLR0"},
                   {"bank1", "ddr", {}, "2GB", "SLR1"},
                   {"bank2", "Default", {}, "4GB", "SLR2"},
                   {"m_axi_gp", "GP", {}, "8GB", "SLR3"}});
    EXPECT_EQ(typesOf(platform), (HSTVector<std::string>{"DDR", "ddr"}));
    EXPECT_EQ(platform.getMemoryTypeCount("DDR"), 1u);
    EXPECT_EQ(platform.getMemoryIndex("DDR", 0), 0u);
    // Once a type is known, its interfaces are taken without regard to case, and the last one answers.
    EXPECT_EQ(platform.getMemorySize("DDR", 5), "2GB");
    EXPECT_EQ(platform.getMemorySLR("DDR", 5), "SLR1");
    for (const char* type : {"Ddr", "GP", "Default"}) {
        EXPECT_EQ(platform.getMemoryTypeCount(type), 0u) << type;
        EXPECT_EQ(platform.getMemorySize(type, 0), "") << type;
    }
}

TEST(HbmBanks, TextForPartlyDefaultBanks) {
    const struct {
        std::vector<bool> banks;  // whether each is a default one
        bool written;
    } kCases[] = {{{true, true, false}, true}, {{true, true}, false}, {{false, false}, false}, {{}, false}};
    for (const auto& c : kCases) {
        HPLPlatform platform;
        platform.setHBMPresent();
        for (const bool isDefault : c.banks) platform.updateHBMBankInfo("hbm_0", isDefault);
        EXPECT_EQ(platform.getHBMBankCount(), c.banks.size());
        std::ostringstream out;
        platform.issueNormalizeMemoryBanksMessage(out);
        EXPECT_EQ(out.str(), c.written
                                 ? "\n\nThe HBM instance 'hbm_0' has only a subset of its auto-assignable memory "
                                   "banks tagged as 'default'. To attain better HBM bandwidth, use mirac "
                                   "parameter '--advanced.param compiler.normalizeDefaultMemoryBanks=true' to "
                                   "change all HBM memory banks to 'default'.\n\n"
                                 : "");
    }
}

TEST(HbmBanks, OnlyTheFirstInstanceIsTracked) {
    std::vector<ComMsgMgrInstance> messages;
    ComMsgMgr::setSink([&](const ComMsgMgrInstance& message) { messages.push_back(message); });
    HPLPlatform platform;
    platform.updateHBMBankInfo("hbm_0", true);
    platform.updateHBMBankInfo("hbm_1", true);
    platform.updateHBMBankInfo("hbm_0", false);
    ComMsgMgr::setSink({});
    EXPECT_EQ(platform.getHBMInstanceName(), "hbm_0");
    EXPECT_EQ(platform.getHBMBankCount(), 2u);
    EXPECT_EQ(platform.getHBMDefaultBankCount(), 1u);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].id, "@74-261@");
    EXPECT_EQ(messages[0].mask, MsgMask::error);
}
