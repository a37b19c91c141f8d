#include <sstream>

#include <platform/JSONWriter.h>

#include "Console.h"
#include "Load.h"

int runJson(const Call& call) {
    const auto platform = loaded(call["FILE"], call);
    teq_platform::JSONObjectWriter writer;
    if (call.has("short")) {
        writer.addKey("uniqueName", platform->getUniqueName());
        writer.addKey("file", platform->getPlatformFile());
        writer.addKey("description", platform->getDescription());
    } else {
        writer.writeObject(*platform);
    }
    std::ostringstream text;
    writer.write(text);
    Console::take().data(text.str());
    return 0;
}
