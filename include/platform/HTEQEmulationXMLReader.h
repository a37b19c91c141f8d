#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;
namespace TEQEmulation {
struct Root;
}  // namespace TEQEmulation

/// Fills emulation metadata from its XML form, "hw_emu.xml". The version attributes are checked and not carried into
/// the model. Nothing reaches the model from a document that is not valid as a whole.
class ZR_API HTEQEmulationXMLReader {
public:
    /// Throws `HEXFileNotFoundException` when the file is not there. `emulations` stays the caller's.
    HTEQEmulationXMLReader(const std::string& file, HTEQEmulations* emulations);

    /// Sends a message with file, line and reason and throws `HXMLException` when the file cannot be read or is not
    /// valid.
    void parseXml();

    /// The same from a member of an archive; one character and the slashes behind it at the begin of the member's
    /// name, as in "./hw_emu.xml", do not count. Throws `HEXError` ("@74-34@%s%s") when the member cannot be opened,
    /// and `HXMLException` as `parseXml` does.
    static void parseFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);
    /// The same, but throws `HEXFileFault` in place of `HXMLException`.
    static void readFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);

private:
    explicit HTEQEmulationXMLReader(HTEQEmulations* emulations) : emulations_(emulations) {}
    void parseRoot_(const TEQEmulation::Root& record);

    std::string file_;
    HTEQEmulations* emulations_;
};
