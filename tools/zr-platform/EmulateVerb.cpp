#include <iostream>

#include <platform/PlatformEmulation.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Output.h"

namespace requests = teq_platform::requests;

int runEmulate(const Call& call) {
    Console& console = Console::take();
    const auto limit = call.has("time-limit") ? HSTStringUtils::toNumber(call.get("time-limit")) : 600;
    if (limit < 0 || limit > 1'000'000)
        throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse,
                                         {.text = "--time-limit is not a number of seconds from 0 to 1000000"});
    expectPlaceForRecords(call, call["OUT"]);
    HSTVector<requests::EmulationMember> members;
    writeTo(call["OUT"], call.has("force"), "cfa", [&](const std::string& path, bool mayReplace) {
        members = requests::emulate({.archive = call["IN"],
                                     .name = call.get("name"),
                                     .destination = path,
                                     .installation = call.get("tool"),
                                     .keep = call.get("keep"),
                                     .isDynamic = call.has("dynamic"),
                                     .mayReplace = mayReplace,
                                     .mayRunPrograms = call.has("allow-programs"),
                                     .dryRun = call.has("dry-run"),
                                     .timeLimit = std::chrono::seconds(limit),
                                     .report = [&](const std::string& step) { console.note(step); },
                                     .output = [](std::string_view text) { std::cout << text; }});
    });
    if (isStandardOutput(call["OUT"])) return 0;
    Records records("emulation-member");
    for (const auto& [name, size] : members) records.add({{"name", name}, {"size", size}});
    records.print(call, {">size", "name"});
    return 0;
}
