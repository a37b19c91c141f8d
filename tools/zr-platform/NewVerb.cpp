#include <platform/NewPlatform.h>
#include <text/HSTStringUtils.h>

#include "Console.h"

int runNew(const Call& call) {
    const std::string kind = call.has("kind") ? call.get("kind") : "card";
    Records records("new-file");
    for (const std::string& file : teq_platform::requests::newPlatform(
             {.folder = call["DIR"], .kind = kind, .mayReplace = call.has("force")})) {
        const std::string path = call["DIR"] + "/" + file;
        records.add({{"file", path}});
        if (!Records::areAsked(call)) Console::take().data(HSTStringUtils::printable(path) + "\n");
    }
    if (Records::areAsked(call)) records.print(call, {});
    return 0;
}
