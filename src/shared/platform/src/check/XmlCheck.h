#pragma once
#include <string_view>

#include "check/Findings.h"
#include "records/Formats.h"

namespace check {

/// A file that a descriptor names.
struct NamedFile {
    enum class Kind { hardware, emulation, software };
    Kind kind;
    std::string path;
};

/// Checks a document of the format; true when it is valid. A valid descriptor's files are added to `files`, those that
/// do not exist are findings.
bool checkXml(const Source& source, const records::FormatRow& format, Findings& findings,
              std::vector<NamedFile>* files = nullptr);

/// The format of a document by its file's name, or else the one that it follows furthest.
const records::FormatRow& formatOf(const Source& source);

}  // namespace check
