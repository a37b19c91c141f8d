#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Fills emulation metadata from its JSON form, "hw_emu.json". What is no JSON, or cannot be read, gives the property
/// tree's `json_parser_error`, a missing required key its `ptree_bad_path`; after the latter the model holds what
/// stood in front of it.
class ZR_API HTEQEmulationJsonReader {
public:
    /// Throws `HEXFileNotFoundException` when the file is not there. `emulations` stays the caller's.
    HTEQEmulationJsonReader(const std::string& file, HTEQEmulations* emulations);
    /// For `parseRoot_` only.
    explicit HTEQEmulationJsonReader(HTEQEmulations* emulations);

    /// Whether the file has the key "emulations".
    bool isJsonValid() const;
    void parseJson();
    /// Fills the model from a ready tree.
    void parseRoot_(const boost::property_tree::ptree& root);

    /// The same from a member of an archive; one character and the slashes behind it at the begin of the member's
    /// name, as in "./hw_emu.json", do not count. Throws `HEXError` ("@74-34@%s%s") when the member cannot be opened.
    static void parseFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);

private:
    std::string file_;
    HTEQEmulations* emulations_;
};
