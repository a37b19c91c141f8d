#pragma once
#include <span>

#include "text/ZrApi.h"

namespace teq_platform::requests {

/// A type of files that the metadata of an archive can list.
struct FileTypeRow {
    const char* type;     ///< the text of `HTEQPfmFileTypes`; letter case does not matter
    const char* meaning;  ///< what the file is
    const char* reader;   ///< who reads it
};
/// One row for each type, in the order of `HTEQPfmFileTypes::FileType`.
ZR_API std::span<const FileTypeRow> fileTypes();

}  // namespace teq_platform::requests
