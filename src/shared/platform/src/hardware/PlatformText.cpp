#include "hardware/PlatformText.h"

#include "json/JsonText.h"
#include "msg/HEXFileFault.h"
#include "platform/JSONWriter.h"

namespace hardware {

std::string textOf(const teq_platform::JSONSerializable& object, const std::string& file,
                   const std::string& without) {
    try {
        teq_platform::JSONObjectWriter writer;
        writer.writeObject(object);
        if (!without.empty()) writer.getTree().erase(without);
        return writer.text();
    } catch (const boost::property_tree::json_parser::json_parser_error& e) {
        if (const HEXDiagnostic* read = json::diagnosticOf(e)) throw HEXFileFault(*read);
        throw HEXFileFault({.file = file, .text = e.message()});
    }
}

}  // namespace hardware
