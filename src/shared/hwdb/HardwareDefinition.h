#pragma once
#include <memory>
#include <string>

#include "hwdb/HHDFHwDef.h"

namespace hwdb {

/// Like `HHDFHwDefUtils::getHDF`, but stricter, and with a reason: throws `zip::ArchiveError` if the file is not a valid
/// archive, and `HEXFileFault` if it has no hardware definition, or its members are not well-formed or name no top module
/// or different ones.
std::unique_ptr<HHDFHwDef> readDefinition(const std::string& file);

}  // namespace hwdb
