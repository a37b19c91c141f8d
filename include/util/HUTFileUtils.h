#pragma once
#include <string>

#include "text/ZrApi.h"

/// Names for new files and directories.
class ZR_API HUTFileUtils {
public:
    /// `path`, or, when something of that name is there, `path` with the first of "_1", "_2", ... that is free.
    /// Nothing is made: two callers of one directory must not ask at the same time.
    static std::string uniquifyFilenameInDir(const std::string& path);
    /// `path` below the working directory unless it is absolute already; links stay as they are.
    static std::string makeAbsolutePath(const std::string& path);
};
