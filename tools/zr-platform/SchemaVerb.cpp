#include <platform/PlatformSchema.h>
#include <text/HSTStringUtils.h>

#include "Console.h"

using teq_platform::PlatformSchema;

int runSchema(const Call& call) {
    const std::string text = PlatformSchema::text(call["FORMAT"]);
    if (text.empty())
        throw Problem::of(Exit::usage, "",
                          "there is no format '" + call["FORMAT"] + "'; there are " +
                              HSTStringUtils::join(PlatformSchema::formats(), ", "));
    Console::take().data(text);
    return 0;
}
