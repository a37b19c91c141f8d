#include "platform/HTEQSoftwarePlatform.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "kit/Script.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSystemConfig.h"

namespace {

using P = HTEQSoftwarePlatform;
using script::Arguments;

std::string add(P& platform, const Arguments& arguments) {
    HTEQSystemConfig& config = *platform.addSystemConfig();
    const auto list = [&](std::size_t at) {
        return arguments.size() > at && !arguments[at].empty() ? HSTStringUtils::split(arguments[at], ',')
                                                               : HSTVector<std::string>();
    };
    config.setName(arguments.at(0));
    if (arguments.size() > 1) config.setPrettyName(arguments[1]);
    for (const std::string& runtime : list(2)) config.addRuntime(runtime);
    for (const std::string& system : list(3)) config.addProcessorGroup()->setOSName(system);
    return "";
}

std::string nameOf(const HTEQSystemConfig* config) { return config ? config->getName() : "null"; }

}  // namespace

TEST(HTEQSoftwarePlatform, Calls) {
    const script::Calls<P> others = {
        {"add", add},
        {"default", [](P& p, auto&) { return nameOf(p.getDefaultSystemConfig()); }},
        {"document", [](P& p, auto&) { return documentOf(p); }},
        {"named", [](P& p, auto& a) { return nameOf(p.getSystemConfigByName(a.at(0))); }},
        {"prettyNamed", [](P& p, auto& a) { return nameOf(p.getSystemConfigByPrettyName(a.at(0))); }},
        {"getSupportedRuntimes", script::listing(&P::getSupportedRuntimes)},
        {"getSupportedRuntimesByPrettyName", script::listing(&P::getSupportedRuntimesByPrettyName)},
        {"getSystemConfigNames",
         [](P& p, auto& a) {
             HSTVector<std::string> names = {"before"};
             const std::size_t count = p.getSystemConfigNames(names, a.at(0));
             return std::to_string(count) + ": " + script::shown(names);
         }},
    };
    script::expectCalls<P>(
        ZR_SOURCE_DIR "/tests/cases/software/platform.case",
        script::calls<P, &P::getDefaultConfigName, &P::getNumRuntimes, &P::isRuntimeSupported,
                      &P::isSystemConfigSupported, &P::setDefaultConfigName, &P::setLinuxRootFileSystemPath>(others));
}
