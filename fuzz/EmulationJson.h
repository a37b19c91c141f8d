#pragma once
#include <boost/property_tree/json_parser.hpp>

#include "ReadFile.h"
#include "platform/HTEQEmulations.h"

/// The bytes as a document for `Reader`: it is read, or refused by an exception of the property tree.
template <class Reader>
void readEmulation(const std::uint8_t* data, std::size_t size) {
    HTEQEmulations emulations;
    Reader reader(fileOf(data, size), &emulations);
    try {
        reader.isJsonValid();
        reader.parseJson();
    } catch (const boost::property_tree::json_parser_error&) {
        require(emulations.getEmulations().empty() && emulations.getFeatureRoms().empty(),
                "invalid JSON gives nothing");
    } catch (const boost::property_tree::ptree_error&) {  // a key is missing
    }
}
