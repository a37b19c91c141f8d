#include <platform/PlatformRequests.h>

#include "Console.h"

int runSchema(const Call& call) {
    const std::string text = teq_platform::requests::schema(call["FORMAT"]);
    if (!Records::areAsked(call)) Console::take().data(text);
    Records::printOne(call, "schema", {{"format", call["FORMAT"]}, {"text", text}});
    return 0;
}
