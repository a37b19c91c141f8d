#include "hardware/PlatformText.h"

#include "json/JsonProblem.h"
#include "json/JsonText.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/JSONWriter.h"

namespace hardware {

std::string textOf(const teq_platform::JSONSerializable& object, const HTEQHardwarePlatform* hardware,
                   const std::string& file, const char* without) {
    try {
        teq_platform::JSONObjectWriter writer;
        writer.writeObject(object);
        if (without) writer.getTree().erase(without);
        return json::write(writer.getTree());
    } catch (const boost::property_tree::json_parser_error& e) {
        // Only a member of the archive is read this late.
        const bool isRead = hardware && !e.filename().empty();
        throw HEXFileFault(json::problemOf(e, isRead ? hardware->getPlatformFile() : file));
    }
}

}  // namespace hardware
