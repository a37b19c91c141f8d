#pragma once
#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "json/JsonText.h"
#include "tcl/TclWord.h"

namespace emulation {

/// A value of a property file. A key has the same origin.
struct Property {
    std::string value;
    bool isTrusted = false;

    tcl::Text text() const { return {value, isTrusted}; }
};
/// By key.
using PropertyMap = std::map<std::string, Property>;

/// What the property files of a build say, without the parameters that never reach a script.
struct Properties {
    std::map<std::uint32_t, PropertyMap> banks;    ///< "DdrBanks", by number
    std::map<std::string, PropertyMap> instances;  ///< "DesignIpInstances", by "SP_TAG"; "VLNV" is among the pairs
    PropertyMap clocks;                            ///< "SystemClocks"
    PropertyMap general;                           ///< every other key of the document with a text
};

/// A property file: whose it is, and what it is called in errors.
struct PropertySource {
    std::string path;
    bool isTrusted = false;    ///< it is part of the tool's installation
    HEXDiagnostic shown = {};  ///< unless empty, where the file comes from
};

/// Adds a file to `properties`, where it overrides the same keys. A file that does not exist is skipped. Throws
/// `HEXFileFault` if it is not JSON of the expected shape; `properties` may then have a part of it.
void addProperties(const PropertySource& source, Properties& properties);
/// The same for a document that has been parsed.
void addProperties(const json::ptree& document, const HEXDiagnostic& shown, bool isTrusted, Properties& properties);

using Names = std::set<std::string, std::less<>>;
const Names& unusedDdrParameters();
const Names& unusedMemoryParameters();
const Names& unusedClockSettings();

}  // namespace emulation
