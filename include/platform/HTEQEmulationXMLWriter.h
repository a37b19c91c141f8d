#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Writes emulation metadata in its XML form, "hw_emu.xml". This form has no place for the metadata version, install
/// paths and feature ROMs.
class ZR_API HTEQEmulationXMLWriter {
public:
    /// The caller keeps ownership of `emulations`.
    HTEQEmulationXMLWriter(HTEQEmulations* emulations, std::string file);

    /// Replaces the file. If that fails, it is unchanged, and a `HEXAll` is thrown: "@74-10@%s" if it cannot be
    /// written, "@74-15@%s%s%s%s" if a text cannot be expressed in XML.
    void writeXml();

    /// The document. Throws like `writeXml` if a text cannot be expressed in XML.
    std::string getText() const;

private:
    HTEQEmulations* emulations_;
    std::string file_;
};
