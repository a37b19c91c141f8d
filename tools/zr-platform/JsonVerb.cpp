#include <sstream>

#include <platform/JSONWriter.h>
#include <platform/PlatformLoader.h>

#include "Console.h"
#include "Load.h"

int runJson(const Call& call) {
    const auto platform = loaded(call["FILE"], call);
    if (!call.has("short")) {
        Console::take().data(teq_platform::PlatformLoader::document(*platform, call["FILE"]));
        return 0;
    }
    teq_platform::JSONObjectWriter writer;
    platform->shortToJSON(writer);
    std::ostringstream text;
    writer.write(text);
    Console::take().data(text.str());
    return 0;
}
