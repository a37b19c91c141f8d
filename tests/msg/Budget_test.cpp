#include "msg/Budget.h"

#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "msg/HEXFileFault.h"
#include "msg/OwnBudget.h"
#include "msg/SharedBudget.h"

TEST(Budget, RefusesMoreThanEachLimit) {
    const struct {
        Cost cost;
        std::uint64_t limit;
    } kCases[] = {{Cost::bytes, 64U << 20},   {Cost::values, 500'000}, {Cost::content, 16U << 20},
                  {Cost::records, 64U << 20}, {Cost::nodes, 500'000},  {Cost::text, 32U << 20},
                  {Cost::inodes, 10'000},     {Cost::names, 2'000'000}};
    for (const auto& c : kCases) {
        const Budget budget;
        Budget::spend(c.cost, c.limit - 1);
        {
            const Budget inner;  // counts for the outer one
            EXPECT_EQ(Budget::refusal(c.cost), nullptr);
            EXPECT_NO_THROW(Budget::expectKept("x.lfa"));
            EXPECT_NE(Budget::refusal(c.cost), nullptr) << c.limit;
        }
        EXPECT_THROW(Budget::spend(c.cost), HEXFileFault) << "what is refused stays refused";
        EXPECT_THROW(Budget::spend(c.cost, ~0UL), HEXFileFault);
        EXPECT_THROW(Budget::expectKept("x.lfa"), HEXFileFault);
    }
    EXPECT_EQ(Budget::refusal(Cost::nodes, ~0UL), nullptr) << "outside of a request nothing is counted";
}

TEST(Budget, IsSharedByTheRequestsOfACall) {
    const SharedBudget shared;
    const auto spend = [](std::uint64_t amount) {
        const Budget budget;
        return Budget::refusal(Cost::values, amount) == nullptr;
    };
    EXPECT_TRUE(spend(400'000));
    EXPECT_FALSE(spend(100'001));
    EXPECT_TRUE(spend(100'000)) << "a costly file hides no other";
    EXPECT_FALSE(spend(1));
    for (int i = 0; i < 2; ++i) SharedBudget::addFile(1, 2, 2001);  // one file
    EXPECT_FALSE(spend(1001));
    {
        const Budget budget;
        const OwnBudget second;
        EXPECT_EQ(Budget::refusal(Cost::values, 500'000), nullptr) << "second readings have a share of their own";
    }
    const Budget budget;
    Budget::spend(Cost::values, 400);
    EXPECT_NE(Budget::refusalOfRepeating({}, 2), nullptr);
    EXPECT_EQ(Budget::refusalOfRepeating({}, 1), nullptr);
    Budget::spend(Cost::values, 200);
    EXPECT_NE(Budget::refusal(Cost::values), nullptr);
    EXPECT_EQ(Budget::refusal(Cost::data, (256U << 20) + 200'000), nullptr) << "100 bytes for each of the file";
    EXPECT_NE(Budget::refusal(Cost::data, 101), nullptr);
    SharedBudget::addFile(1, 3, ~0UL);
    EXPECT_EQ(Budget::refusal(Cost::text, 32U << 20), nullptr);
}

TEST(Budget, SendsAHundredMessagesOfAKind) {
    const auto sent = [] {
        const Capture capture;
        for (int i = 0; i < 300; ++i) {
            ComMsgMgr::sendMsg("@74-60@%s", std::to_string(i));
            ComMsgMgr::send({"platform", "", MsgMask::warning, {}, "a text", std::source_location::current()});
        }
        return capture.taken.size();
    };
    EXPECT_EQ(sent(), 600U);
    const Budget budget;
    EXPECT_EQ(sent(), 202U) << "100 of each kind, and that there were more";
}
