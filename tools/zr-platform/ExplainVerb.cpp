#include <platform/PlatformExplanation.h>

#include "Console.h"
#include "Nearest.h"

using teq_platform::PlatformExplanation;

int runExplain(const Call& call) {
    const std::string& name = call["NAME"];
    const std::string text = PlatformExplanation::text(name);
    if (text.empty())
        throw Problem::of(
            Exit::no, "",
            "there is no finding or message '" + name + "'" + nearest(name, PlatformExplanation::names()));
    Console::take().data(text);
    return 0;
}
