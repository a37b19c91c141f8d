#pragma once
#include <string>

#include "kit/Files.h"

/// One document for each format that holds every element and attribute, in the writer's form.
namespace documents {

inline std::string of(const std::string& file) { return contentOf(ZR_SOURCE_DIR "/tests/cases/" + file); }

inline const std::string kDescriptor = of("zdf/whole.zdf");
inline const std::string kSoftware = of("spfm/whole.spfm");
inline const std::string kHpfm = of("hpfm/whole.hpfm");
inline const std::string kEmulation = of("emu/whole.xml");

}  // namespace documents
