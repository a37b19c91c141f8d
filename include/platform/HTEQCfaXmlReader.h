#pragma once
#include <string>

#include "text/ZrApi.h"

class HPLPlatform;
namespace BasePlatform {
struct Root;
}  // namespace BasePlatform

/// Fills one hardware platform from the XML member of an archive, "cfa.xml" or "lfa.xml", the metadata of older
/// archives. The file of type "HPFM" adds clocks, bus interfaces and resources, and makes the platform unified and
/// expandable; one that is missing or not valid is passed over (of the latter a line on standard output). The file of
/// type "EMU_XML" must be there and valid.
class ZR_API HTEQCfaXmlReader {
public:
    /// `platform` stays the caller's and is filled; a fresh one is expected. Throws `HEXFileNotFoundException` when
    /// the path is empty or does not exist.
    HTEQCfaXmlReader(const std::string& archive, HPLPlatform* platform);

    /// Reads the archive's metadata. False, with a message, when it
    /// - is missing or not valid: "@74-62@%s%s%d" (what is wrong, "archive/member", line);
    /// - has a newer schema: "@74-52@%s" (a sentence). A platform of the state "pre_synth" is read whatever its
    /// schema;
    /// - has a value that the model refuses, or an emulation member that cannot be read: "@74-65@%s%s%s" (member,
    ///   archive, what is wrong).
    /// The platform is half filled then.
    bool parseCFA();
    /// The version of the schema that the document tells; nothing else is read into the platform. Fails as `parseCFA`
    /// does when the document is missing or not valid, and leaves both numbers then.
    bool getRootVersion(int& major, int& minor);

private:
    template <class Use>
    bool withRoot_(Use use);
    std::string textOf_(const std::string& member) const;
    bool canCfaBeOpened_(const BasePlatform::Root& root, std::string& error) const;

    std::string archive_;
    HPLPlatform* platform_;
};
