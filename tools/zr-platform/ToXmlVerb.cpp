#include <platform/PlatformRequests.h>

#include <utility>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;

int runToXml(const Call& call) {
    const std::string destination = call.get("[OUT]", "-");
    if (destination != "-") requests::checkDestination(destination, call.has("force"));
    const std::string file = platformFile(call["FILE"], call);
    std::string xml = requests::document(*loaded(file, call), file, requests::Form::xml);
    if (destination != "-")
        requests::writeFile(destination, xml, call.has("force"));
    else if (!Records::areAsked(call))
        Console::take().document(xml);
    if (!Records::areAsked(call)) return 0;
    boost::json::object record{{"file", file}, {"destination", destination}};
    if (destination == "-") record["text"] = std::exchange(xml, {});
    Records::printOne(call, "xml-metadata", std::move(record));
    return 0;
}
