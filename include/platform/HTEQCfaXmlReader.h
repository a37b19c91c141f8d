#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/ZrApi.h"

class HPLPlatform;
struct ComMsgMgrInstance;
namespace archive {
class PlatformArchive;
}
namespace BasePlatform {
struct Root;
}  // namespace BasePlatform

/// Fills one hardware platform from the XML member of an archive, "cfa.xml" or "lfa.xml", the metadata of older
/// archives. The file of type "HPFM" adds clocks, bus interfaces and resources, and makes the platform unified and
/// expandable; one that is missing or not valid is skipped (the latter with a line on standard output). The file of
/// type "EMU_XML" must exist and be valid.
class ZR_API HTEQCfaXmlReader {
public:
    /// Fills `platform`, which must be new and stays owned by the caller. Throws `HEXFileNotFoundException` if the
    /// path is empty or does not exist.
    HTEQCfaXmlReader(const std::string& archive, HPLPlatform* platform);
    HTEQCfaXmlReader(const HTEQCfaXmlReader&) = delete;
    HTEQCfaXmlReader& operator=(const HTEQCfaXmlReader&) = delete;
    ~HTEQCfaXmlReader();

    /// Reads the archive's metadata. False, with a message, if it
    /// - is missing or not valid: "@74-62@%s%s%d" (error, "archive/member", line);
    /// - has a newer schema: "@74-52@%s" (a sentence). A platform of the state "pre_synth" is read with any
    ///   schema;
    /// - has a value that the model refuses, or an emulation member that cannot be read: "@74-65@%s%s%s" (member,
    ///   archive, error).
    /// In these cases the platform may be partly filled.
    bool parseCFA();
    /// The same, but throws `HEXFileFault` with the reason instead of returning false. `asked` is the caller's mode:
    /// the reason names the members that the archive lacks.
    void readCFA(teq_platform::HwMetadataMode asked = teq_platform::HwMetadataMode::XmlOnly);
    /// The schema version of the document; nothing is read into the platform. Fails like `parseCFA` if the document
    /// is missing or not valid, and then leaves both numbers unchanged.
    bool getRootVersion(int& major, int& minor);

private:
    void readRoot_(teq_platform::HwMetadataMode asked, const std::function<void(const BasePlatform::Root&)>& use);
    std::string textOf_(teq_platform::HwMetadataMode asked);
    ComMsgMgrInstance invalid_(const std::string& text, std::uint64_t line) const;
    std::string newerSchema_(const BasePlatform::Root& root) const;

    std::string archive_;
    std::string member_;  ///< the metadata
    HPLPlatform* platform_;
    std::unique_ptr<const archive::PlatformArchive> opened_;  ///< `archive_`
};
