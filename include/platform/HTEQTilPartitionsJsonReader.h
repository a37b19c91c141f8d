#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>

#include "text/ZrApi.h"

class HTEQHardwarePlatform;

/// Reads the partitions file of a tile-array project into a platform.
///
///     {"TIL": {"ai_engine_0": {"startColumn": "0", "numColumns": "50", "uuid": "...", "til_pl_intf_id": "...",
///                              "partitions": {"a": {"startColumn": "0", "numColumns": "10"}}}}}
class ZR_API HTEQTilPartitionsJsonReader {
public:
    explicit HTEQTilPartitionsJsonReader(HTEQHardwarePlatform& platform) : platform_(platform) {}

    /// Adds the partitions of the file at `path`; a path that is no file is ignored. A node without "numColumns" is
    /// skipped. Throws HEXAlgException when the text is no JSON; the platform is then as it was.
    void parse(const std::string& path);

private:
    void parseTil_(const boost::property_tree::ptree& document);

    HTEQHardwarePlatform& platform_;
};
