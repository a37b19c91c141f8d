#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Fills one feature ROM of the emulation metadata from the extended metadata. What is no JSON, or cannot be read,
/// gives the property tree's `json_parser_error`, a missing required key its `ptree_bad_path`; after the latter the
/// model holds what stood in front of it.
class ZR_API HTEQEmulationExtMetaJsonReader {
public:
    /// Throws `HEXFileNotFoundException` when the file is not there. `emulations` stays the caller's.
    HTEQEmulationExtMetaJsonReader(const std::string& file, HTEQEmulations* emulations);
    /// For `parseExtMetaRoot_` only.
    explicit HTEQEmulationExtMetaJsonReader(HTEQEmulations* emulations);

    /// True for any JSON; no key is looked at.
    bool isJsonValid() const;
    void parseJson();
    /// Fills the model from a ready tree. However many elements "featureRoms" has, they make one feature ROM, in
    /// which the last value of each key stands.
    void parseExtMetaRoot_(const boost::property_tree::ptree& root);

private:
    std::string file_;
    HTEQEmulations* emulations_;
};
