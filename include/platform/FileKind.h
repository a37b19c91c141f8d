#pragma once
#include <string>

#include "text/ZrApi.h"

namespace teq_platform {

/// What a platform's file is, by its name alone.
enum class FileKind {
    descriptor,  ///< any name that is none of the others
    hardware,    ///< a hardware archive: ".cfa", ".lfa"
    software,    ///< ".spfm"
};

/// Extensions are compared with their case.
ZR_API FileKind fileKindOf(const std::string& file);

}  // namespace teq_platform
