#include <msg/HEXAll.h>
#include <platform/HPLPlatform.h>
#include <platform/HTEQCfaXmlWriter.h>

#include "Console.h"
#include "Load.h"
#include "Output.h"

int runToXml(const Call& call) {
    const std::string& file = call["FILE"];
    const auto platform = loaded(file, call);
    auto* hardware = dynamic_cast<HPLPlatform*>(platform->getHardwarePlatform());
    if (!hardware) throw Problem::of(Exit::input, file, "there is no hardware platform in it");
    OutputFile output(call.get("[OUT]", "-"), call.has("force"));
    try {
        HTEQCfaXmlWriter(hardware, output.path()).writeCFA();
    } catch (const HXMLException& e) {
        const auto& args = e.message().args;
        const bool hasReason = args.size() > 1;  // the file, and why the platform has no such form
        throw Problem::of(hasReason ? Exit::input : Exit::environment, hardware->getPlatformFile(),
                          hasReason ? "there is no XML form of it: " + args[1] : e.what());
    }
    output.commit();
    return 0;
}
