#pragma once
#include <memory>
#include <string>

#include "hwdb/HHDFHwDef.h"
#include "text/ZrApi.h"

/// Reads hardware definition files: zip archives with a member "sysdef.xml" or "hwdef.xml".
class ZR_API HHDFHwDefUtils {
public:
    /// Null if the file cannot be read as an archive, or does not name a top module. Never throws for an invalid
    /// file.
    static std::unique_ptr<HHDFHwDef> getHDF(const std::string& file);
};
