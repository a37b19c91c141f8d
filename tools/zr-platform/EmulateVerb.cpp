#include <iostream>

#include <platform/PlatformEmulation.h>
#include <text/HSTStringUtils.h>

#include "Console.h"

namespace requests = teq_platform::requests;

int runEmulate(const Call& call) {
    Console& console = Console::take();
    const auto limit = call.has("time-limit") ? HSTStringUtils::toNumber(call.get("time-limit")) : 600;
    if (limit < 0 || limit > 1'000'000)
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "--time-limit is not a number of seconds from 0 to 1000000"});
    const auto members = requests::emulate({.archive = call["IN"],
                                            .name = call.get("name"),
                                            .destination = call["OUT"],
                                            .installation = call.get("tool"),
                                            .keep = call.get("keep"),
                                            .isDynamic = call.has("dynamic"),
                                            .mayReplace = call.has("force"),
                                            .mayRunPrograms = call.has("allow-programs"),
                                            .dryRun = call.has("dry-run"),
                                            .timeLimit = std::chrono::seconds(limit),
                                            .report = [&](const std::string& step) { console.note(step); },
                                            .output = [](std::string_view text) { std::cout << text; }});
    Records records("emulation-member");
    for (const auto& [name, size] : members) records.add({{"name", name}, {"size", size}});
    records.print(call, {">size", "name"});
    return 0;
}
