#pragma once
#include <string>

#include "kit/Files.h"
#include "kit/Replace.h"

/// XML metadata in the form that the library writes; written of the platform that it describes it is the same again.
inline const std::string kCfaXml = contentOf(ZR_SOURCE_DIR "/tests/cases/cfa/platform.xml");
