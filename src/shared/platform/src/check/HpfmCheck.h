#pragma once
#include "check/XmlCheck.h"

namespace check {

/// Checks an hpfm; true if a reader accepts it. `known`: of the archive.
bool checkHpfm(const Source& source, const ReadXml& document, const KnownNames& known, Findings& findings);
inline bool checkHpfm(const Source& source, const KnownNames& known, Findings& findings) {
    return checkHpfm(source, readXml(source, "hpfm"), known, findings);
}

}  // namespace check
