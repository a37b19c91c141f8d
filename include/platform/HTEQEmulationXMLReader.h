#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Fills emulation metadata from its XML form, "hw_emu.xml". The version attributes are checked, but not stored
/// in the model. If the document is not valid, the model is not changed.
class ZR_API HTEQEmulationXMLReader {
public:
    /// Throws `HEXFileNotFoundException` if the file does not exist. The caller keeps ownership of `emulations`.
    HTEQEmulationXMLReader(const std::string& file, HTEQEmulations* emulations);

    /// If the file cannot be read or is not valid, sends a message with file, line and reason and throws
    /// `HXMLException`.
    void parseXml();

    /// The same from a member of an archive. A leading character followed by slashes, as in "./hw_emu.xml", is
    /// ignored in the member's name. Throws `HEXError` ("@74-34@%s%s") if the member cannot be opened, and
    /// `HXMLException` like `parseXml`.
    static void parseFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);
    /// The same, but throws `HEXFileFault` in place of `HXMLException`.
    static void readFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);

private:
    std::string file_;
    HTEQEmulations* emulations_;
};
