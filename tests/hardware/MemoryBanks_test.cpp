#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

#include "kit/Script.h"
#include "msg/ComMsgMgr.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"

namespace {

using P = HPLPlatform;
using script::Arguments;

std::string addBus(P& platform, Arguments arguments) {
    arguments.resize(5);
    HTEQHardwareBusInterface* bus = platform.addBusInterface();
    bus->setMemPort(arguments[0]);
    bus->setSPTag(arguments[1]);
    bus->setSize(arguments[3]);
    bus->setSLR(arguments[4]);
    if (arguments[2].empty()) return "";
    for (const std::string& each : HSTStringUtils::split(arguments[2], ',')) {
        HTEQHardwareAddressSegment* segment = bus->addAddressSegment();
        segment->setIndex(static_cast<unsigned>(each[0] - '0'));
        segment->setSlr(each.substr(2));
    }
    return "";
}

std::string bankOf(P& platform, const Arguments& arguments) {
    const std::string& type = arguments.at(0);
    const auto bank = static_cast<unsigned>(std::stoul(arguments.at(1)));
    return std::to_string(platform.getMemoryTypeCount(type)) + ": " +
           std::to_string(platform.getMemoryIndex(type, bank)) + " " + platform.getMemorySize(type, bank) + " " +
           platform.getMemorySLR(type, bank);
}

std::string typesOf(P& platform, const Arguments&) {
    HSTVector<std::string> types;
    const unsigned count = platform.getUniqueMemoryTypeStrings(types);
    EXPECT_EQ(count, types.size());
    // The list of all banks is what the queries give for each.
    auto bank = platform.getMemoryBanks();
    std::ranges::reverse(bank);
    for (const std::string& type : types)
        for (unsigned n = 0; n < platform.getMemoryTypeCount(type); ++n, bank.pop_back()) {
            if (bank.empty()) return "too few banks";
            EXPECT_EQ(std::tie(bank.back().type, bank.back().number), std::tie(type, n));
            EXPECT_EQ(bank.back().size, platform.getMemorySize(type, n));
            EXPECT_EQ(bank.back().slr, platform.getMemorySLR(type, n));
        }
    EXPECT_TRUE(bank.empty());
    return script::shown(types);
}

std::string memoryInterfaces(P& platform, const Arguments&) {
    HSTVector<HTEQHardwareBusInterface*> buses;
    platform.getMemoryBusInterfaces(buses);
    HSTVector<std::string> tags;
    for (const auto* bus : buses) tags.push_back(bus->getSPTag());
    return script::shown(tags);
}

}  // namespace

TEST(MemoryBanks, Calls) {
    std::string sent;
    ComMsgMgr::setSink([&](const ComMsgMgrInstance& message) {
        sent += message.id;
        EXPECT_EQ(message.mask, MsgMask::error);
    });
    const script::Calls<P> others = {
        {"bank", bankOf},
        {"bus", addBus},
        {"memoryInterfaces", memoryInterfaces},
        {"message",
         [](P& p, auto&) {
             std::ostringstream out;
             p.issueNormalizeMemoryBanksMessage(out);
             return out.str();
         }},
        {"sent", [&](P&, auto&) { return sent; }},
        {"types", typesOf},
    };
    script::expectCalls<P>(ZR_SOURCE_DIR "/tests/cases/hardware/banks.case",
                           script::calls<P, &P::getHBMBankCount, &P::getHBMDefaultBankCount, &P::getHBMInstanceName,
                                         &P::getMemoryIndex, &P::getMemorySize, &P::getMemoryTypeCount,
                                         &P::getUniqueMemoryTypeCount, &P::isMemoryResourceIndexed, &P::setHBMPresent,
                                         &P::supportsMemoryResourceIndex, &P::updateHBMBankInfo>(others));
    ComMsgMgr::setSink({});
}
