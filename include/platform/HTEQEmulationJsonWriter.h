#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQEmulation;
class HTEQEmulations;

/// Writes emulation metadata in its JSON form, "hw_emu.json", for HTEQEmulationJsonReader to read. An empty list is
/// written as an empty text, which the reader takes as a list.
class ZR_API HTEQEmulationJsonWriter {
public:
    /// The caller keeps ownership of `emulations`.
    HTEQEmulationJsonWriter(HTEQEmulations* emulations, std::string file);

    /// Replaces the file atomically. Throws the property tree's `json_parser_error` with the file's name if it cannot be
    /// written.
    void writeJson() const;
    /// What `writeJson` writes.
    std::string getText() const;

private:
    static void writeEmulation_(const HTEQEmulation* emulation, boost::property_tree::ptree& tree);

    HTEQEmulations* emulations_;
    std::string file_;
};
