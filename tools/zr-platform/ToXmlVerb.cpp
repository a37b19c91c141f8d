#include <platform/PlatformRequests.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;

int runToXml(const Call& call) {
    const std::string destination = call.get("[OUT]", "-");
    if (destination != "-") requests::checkDestination(destination, call.has("force"));
    const std::string xml = requests::document(*loaded(call["FILE"], call), call["FILE"], requests::Form::xml);
    if (destination == "-")
        Console::take().data(xml);
    else
        requests::writeFile(destination, xml, call.has("force"));
    return 0;
}
