#pragma once
#include "util/HUTFile.h"

/// The path questions of the readers.
class HUTPathUtils {
public:
    static bool exists(const std::string& path) { return HUTFile::exists(path); }
};
