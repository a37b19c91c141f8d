#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQEmulations;

/// Fills one feature ROM of the emulation metadata from the extended metadata. Throws the property tree's
/// `json_parser_error` if the text is not JSON or cannot be read, and its `ptree_bad_path` if a required key is
/// missing; the model then holds what came before it.
class ZR_API HTEQEmulationExtMetaJsonReader {
public:
    /// Throws `HEXFileNotFoundException` if the file does not exist. The caller keeps ownership of `emulations`.
    HTEQEmulationExtMetaJsonReader(const std::string& file, HTEQEmulations* emulations);
    /// Only for `parseExtMetaRoot_`.
    explicit HTEQEmulationExtMetaJsonReader(HTEQEmulations* emulations);

    /// True for any JSON; no key is examined.
    bool isJsonValid() const;
    void parseJson();
    /// Fills the model from a parsed tree. All elements of "featureRoms" fill one feature ROM, with the last value of
    /// each key.
    void parseExtMetaRoot_(const boost::property_tree::ptree& root);

private:
    std::string file_;
    HTEQEmulations* emulations_;
};
