#pragma once
#include "check/XmlCheck.h"

namespace check {

/// Checks an hpfm; true if a reader accepts it.
bool checkHpfm(const Source& source, const ReadXml& document, Findings& findings);
inline bool checkHpfm(const Source& source, Findings& findings) {
    return checkHpfm(source, readXml(source, "hpfm"), findings);
}

}  // namespace check
