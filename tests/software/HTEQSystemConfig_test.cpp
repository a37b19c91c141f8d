#include "platform/HTEQSystemConfig.h"

#include <gtest/gtest.h>

#include "kit/Script.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"

TEST(HTEQSystemConfig, Calls) {
    using C = HTEQSystemConfig;
    const auto group = [](C& c, auto& a) {
        HTEQProcessorGroup& added = *c.addProcessorGroup();
        added.setName(a.at(0)), added.setArch(a.at(1));
        return "";
    };
    const auto image = [](C& c, auto& a) {
        HTEQBootImg& added = *c.addBootImg();
        added.setName(a.at(0)), added.setType(a.at(1));
        return "";
    };
    const script::Calls<C> others = {
        {"group", group},
        {"image", image},
        {"groupNamed",
         [](C& c, auto& a) {
             const auto* const found = c.getProcGrpByName(a.at(0));
             return found ? found->getArch() : "null";
         }},
        {"imageNamed",
         [](C& c, auto& a) {
             const auto* const found = c.getBootImgByName(a.at(0));
             return found ? found->getType() : "null";
         }},
        {"addProcessorGroup", script::call<C, void, const std::string&>(&C::addProcessorGroup)},
        {"getProcessorGroups", script::listing<C, HSTVector<std::string>>(&C::getProcessorGroups)},
        {"getRuntimes", script::listing(&C::getRuntimes)},
        {"getRuntimesByPrettyName", script::listing(&C::getRuntimesByPrettyName)},
    };
    script::expectCalls<C>(ZR_SOURCE_DIR "/tests/cases/software/configuration.case",
                           script::calls<C, &C::addRuntime, &C::getDefaultBootImgName, &C::getDefaultProcGrpName,
                                         &C::setDefaultBootImgName, &C::setDefaultProcGrpName>(others));
}
