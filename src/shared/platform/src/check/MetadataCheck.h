#pragma once
#include <string>

#include "check/XmlCheck.h"

namespace check {

class ArchiveMembers;

/// What metadata belongs to.
struct MetadataContext {
    ArchiveMembers* members = nullptr;     ///< of the archive that contains it; null for a stand-alone file
    std::string directory = {};            ///< the folder of its files in the archive
    const Identity* descriptor = nullptr;  ///< of the descriptor that names the archive; null without one
};

/// The JSON metadata of a hardware archive.
void checkJsonMetadata(const Source& source, const MetadataContext& context, Findings& findings);
/// The XML metadata of an older hardware archive.
void checkXmlMetadata(const Source& source, const ReadXml& document, const MetadataContext& context,
                      Findings& findings);
inline void checkXmlMetadata(const Source& source, const MetadataContext& context, Findings& findings) {
    checkXmlMetadata(source, readXml(source, "cfa"), context, findings);
}
/// A software file.
void checkSoftware(const Source& source, const ReadXml& document, const Identity* descriptor, Findings& findings);
/// A list of emulation targets in JSON. `members`: of the archive that contains it; null for a stand-alone file.
void checkEmulationJson(const Source& source, const ArchiveMembers* members, Findings& findings);
/// Any JSON document.
void checkAnyJson(const Source& source, Findings& findings);
/// The index of a metadata archive, and whether the files that it lists are there.
void checkIndex(const Source& source, ArchiveMembers& members, Findings& findings);
/// A JSON file that is not in an archive: metadata, emulation targets, extended metadata, semantic labels or an index, by
/// name and content. Of any other document, only the syntax is checked.
void checkJsonFile(const Source& source, Findings& findings);

}  // namespace check
