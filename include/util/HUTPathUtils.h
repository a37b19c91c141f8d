#pragma once
#include "util/HUTFile.h"

/// Path queries for readers.
class HUTPathUtils {
public:
    static bool exists(const std::string& path) { return HUTFile::exists(path); }
};
