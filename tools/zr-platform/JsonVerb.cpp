#include <sstream>

#include <platform/JSONWriter.h>

#include "Console.h"
#include "Load.h"

int runJson(const Call& call) {
    const auto platform = loaded(call["FILE"], call);
    teq_platform::JSONObjectWriter writer;
    if (call.has("short")) {
        platform->shortToJSON(writer);
    } else {
        writer.writeObject(*platform);
    }
    std::ostringstream text;
    writer.write(text);
    Console::take().data(text.str());
    return 0;
}
