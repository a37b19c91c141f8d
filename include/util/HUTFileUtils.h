#pragma once
#include <string>

#include "text/ZrApi.h"

/// Names for new files and directories.
class ZR_API HUTFileUtils {
public:
    /// `path`, or, if it exists, `path` with the first of "_1", "_2", ... that does not exist. Nothing is created:
    /// two callers must not use one directory at the same time.
    static std::string uniquifyFilenameInDir(const std::string& path);
    /// `path` below the working directory unless it is already absolute; links are not resolved.
    static std::string makeAbsolutePath(const std::string& path);
};
