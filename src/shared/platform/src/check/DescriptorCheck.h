#pragma once
#include <string>
#include <vector>

#include "check/XmlCheck.h"

namespace check {

/// A file that a descriptor names.
struct NamedFile {
    enum class Kind { hardware, emulation, software };
    Kind kind;
    std::string path;
    bool isOfPartition = false;  ///< whose archives must have JSON metadata
    std::size_t timesMore = 0;   ///< that the descriptor names it
};

/// What a descriptor says.
struct Named {
    Identity identity;
    std::vector<NamedFile> files;
};

/// Checks a descriptor. Returns the existing files that it names, each once, also if it is not valid; missing files of a
/// valid one are findings.
Named checkDescriptor(const Source& source, const ReadXml& document, Findings& findings);

}  // namespace check
