#pragma once
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {

/// The kind of a platform's file, by its name alone.
enum class FileKind {
    descriptor,  ///< any other name
    hardware,    ///< a hardware archive: ".cfa", ".lfa"
    software,    ///< ".spfm"
};

/// Extensions are case-sensitive.
ZR_API FileKind fileKindOf(const std::string& file);

}  // namespace teq_platform
