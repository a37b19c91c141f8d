#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HTEQHardwarePlatform;
class HTEQTilPartition;

/// Reads the partitions file of a tile-array project into a platform.
///
///     {"TIL": {"til_0": {"startColumn": "0", "numColumns": "50", "uuid": "...", "til_pl_intf_id": "...",
///                        "partitions": {"a": {"startColumn": "0", "numColumns": "10"}}}}}
class ZR_API HTEQTilPartitionsJsonReader {
public:
    explicit HTEQTilPartitionsJsonReader(HTEQHardwarePlatform& platform) : platform_(platform) {}

    /// Adds the partitions of the file at `path`; a path that is not a file is ignored. A node without "numColumns"
    /// is skipped. Throws HEXAlgException if the text is not JSON; the platform is then unchanged.
    void parse(const std::string& path);
    /// The partitions of the file, without a platform.
    static HSTVector<HTEQTilPartition> read(const std::string& path);
    /// The partitions of a file's text; its name is used in the exception.
    static HSTVector<HTEQTilPartition> readText(const std::string& text, const std::string& name);

private:
    HTEQHardwarePlatform& platform_;
};
