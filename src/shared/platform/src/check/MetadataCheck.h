#pragma once
#include <string>

#include "check/XmlCheck.h"

namespace check {

class ArchiveMembers;

/// The JSON metadata of a hardware archive. `members`: of the archive that contains it, null for a stand-alone file.
/// `directory`: the folder of its files in the archive.
void checkJsonMetadata(const Source& source, ArchiveMembers* members, const std::string& directory,
                       Findings& findings);
/// The XML metadata of an older hardware archive.
void checkXmlMetadata(const Source& source, const ReadXml& document, ArchiveMembers* members, Findings& findings);
inline void checkXmlMetadata(const Source& source, ArchiveMembers* members, Findings& findings) {
    checkXmlMetadata(source, readXml(source, "cfa"), members, findings);
}
/// A list of emulation targets in JSON.
void checkEmulationJson(const Source& source, Findings& findings);
/// Any JSON document.
void checkAnyJson(const Source& source, Findings& findings);
/// A JSON file that is not in an archive: metadata, emulation targets, extended metadata or semantic labels,
/// by name and content.
void checkJsonFile(const Source& source, Findings& findings);

}  // namespace check
