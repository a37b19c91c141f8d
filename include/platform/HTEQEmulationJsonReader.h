#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Fills emulation metadata from its JSON form, "hw_emu.json". Throws the property tree's `json_parser_error`
/// if the text is not JSON or cannot be read, and its `ptree_bad_path` if a required key is missing; the model then
/// holds what came before it.
class ZR_API HTEQEmulationJsonReader {
public:
    /// Throws `HEXFileNotFoundException` if the file does not exist. The caller keeps ownership of `emulations`.
    HTEQEmulationJsonReader(const std::string& file, HTEQEmulations* emulations);
    /// Only for `parseRoot_`.
    explicit HTEQEmulationJsonReader(HTEQEmulations* emulations);

    /// Whether the file has the key "emulations".
    bool isJsonValid() const;
    void parseJson();
    /// Fills the model from a parsed tree.
    void parseRoot_(const boost::property_tree::ptree& root);

    /// The same from a member of an archive. A leading character followed by slashes, as in "./hw_emu.json", is
    /// ignored in the member's name. Throws `HEXError` ("@74-34@%s%s") if the member cannot be opened.
    static void parseFromCfa(const std::string& archive, const std::string& member, HTEQEmulations* emulations);

private:
    std::string file_;
    HTEQEmulations* emulations_;
};
