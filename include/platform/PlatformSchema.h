#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform {

/// The XML formats of a platform's files as W3C XML Schemas 1.0, for editors and validators. They are generated from
/// the tables of the readers: a document is valid if its reader accepts it, with the exceptions listed in
/// docs/schemas.md.
class ZR_API PlatformSchema {
public:
    /// "zdf" (descriptor), "spfm" (software file), "hpfm", "cfa" (XML metadata of an archive),
    /// "emu" (emulation targets).
    static HSTVector<std::string> formats();
    /// The schema document of a format; empty for a name that is not in `formats`.
    static std::string text(const std::string& format);
};

}  // namespace teq_platform
