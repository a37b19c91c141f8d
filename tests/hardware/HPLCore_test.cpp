#include "platform/HPLCore.h"

#include <gtest/gtest.h>

#include <set>

#include "hardware/Documents.h"
#include "kit/Script.h"
#include "platform/HPLAddressSegment.h"
#include "platform/HPLPort.h"

namespace {

using script::Arguments;

HPLPort* addPort(HPLCore& core, const Arguments& arguments) {
    HPLPort& port = *core.addPort();
    port.setType(arguments.at(0));
    port.setName(arguments.at(1));
    port.setFrequency(arguments.at(2));
    port.setDataWidth(arguments.at(3));
    port.setAddrWidth(arguments.at(4));
    return &port;
}

template <class List>
std::string addSlrs(HPLCore& core, const Arguments& arguments) {
    core.addSLRInfo(arguments.at(0), List(arguments.begin() + 1, arguments.end()));
    return "";
}

std::string slrNames(HPLCore& core, const Arguments& arguments) {
    std::set<std::string> names{"before"};
    core.getSLRNames(arguments.at(0), names);
    return script::shown(names);
}

}  // namespace

TEST(Core, Calls) {
    using C = HPLCore;
    using Slrs = void (C::*)(const std::string&, const std::string&);
    HPLPort other;
    script::expectCalls<C>(
        ZR_SOURCE_DIR "/tests/cases/hardware/core.case",
        script::calls<C, &C::addConfigParam, &C::addResourceInfo, &C::getBRAMCount, &C::getClockFreq,
                      &C::getMaxAddrWidth, &C::getMaxDataWidth, &C::getRegisterCount, &C::hasResourceInfo,
                      &C::setBRAMCount, &C::setClockFreq>(
            {{"port", [](C& c, const Arguments& a) { return addPort(c, a), ""; }},
             {"portWithSegment",
              [](C& c, auto&) { return c.addPort()->addAddressSegment(new HPLAddressSegment), ""; }},
             {"removeFirstPort",
              [](C& c, auto&) {
                  HPLPort* const first = std::unique_ptr<HSTFwdIter<HPLPort*>>(c.createPortIter())->next();
                  return c.removePort(first), "";
              }},
             {"removePortOfAnother", [&](C& c, auto&) { return c.removePort(&other), ""; }},
             {"document", [](C& c, auto&) { return documentOf(c); }},
             {"addSLRInfo", script::call(static_cast<Slrs>(&C::addSLRInfo))},
             {"addSLRList", addSlrs<HSTVector<std::string>>},
             {"addSLRSet", addSlrs<std::set<std::string>>},
             {"getSLRNames", slrNames},
             {"getValidSLRNames",
              [](C& c, Arguments names) { return c.getValidSLRNames(names), script::shown(names); }},
             {"getResCount",
              [](C& c, const Arguments& a) { return std::to_string(c.getResCount(a.at(0), a.at(1), a.at(2))); }}}));
}
