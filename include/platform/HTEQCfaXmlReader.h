#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/ZrApi.h"

class HPLBoard;
class HPLCore;
class HPLDevice;
class HPLPlatform;
class HPLPort;
struct ComMsgMgrInstance;
namespace archive {
class PlatformArchive;
}
namespace BasePlatform {
struct AvailableResources;
struct Board;
struct Build;
struct CFA;
struct Core;
struct DesignIPs;
struct Device;
struct Devices;
struct FeatureRom;
struct Files;
struct GenAppInfo;
struct Host;
struct Images;
struct Interfaces;
struct Memories;
struct Connectors;
struct Port;
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
    HTEQCfaXmlReader(const HTEQCfaXmlReader&) = delete;
    HTEQCfaXmlReader& operator=(const HTEQCfaXmlReader&) = delete;
    ~HTEQCfaXmlReader();

    /// Reads the archive's metadata. False, with a message, when it
    /// - is missing or not valid: "@74-62@%s%s%d" (what is wrong, "archive/member", line);
    /// - has a newer schema: "@74-52@%s" (a sentence). A platform of the state "pre_synth" is read whatever its
    /// schema;
    /// - has a value that the model refuses, or an emulation member that cannot be read: "@74-65@%s%s%s" (member,
    ///   archive, what is wrong).
    /// The platform is half filled then.
    bool parseCFA();
    /// The same, but throws `HEXFileFault`, with the reason, in place of answering false. `asked` is what the caller
    /// was ready to read: the reason names the members that the archive lacks.
    void readCFA(teq_platform::HwMetadataMode asked = teq_platform::HwMetadataMode::XmlOnly);
    /// The version of the schema that the document tells; nothing else is read into the platform. Fails as `parseCFA`
    /// does when the document is missing or not valid, and leaves both numbers then.
    bool getRootVersion(int& major, int& minor);

private:
    void readRoot_(teq_platform::HwMetadataMode asked, const std::function<void(const BasePlatform::Root&)>& use);
    std::string textOf_(teq_platform::HwMetadataMode asked);
    ComMsgMgrInstance invalid_(const std::string& text, std::uint64_t line) const;
    std::string newerSchema_(const BasePlatform::Root& root) const;

    void parseRoot_(const BasePlatform::Root& record);
    void parseGenAppData_(const BasePlatform::GenAppInfo& record);
    void parseCFA_(const BasePlatform::CFA& record);
    void parseHost_(const BasePlatform::Host& record);
    void parseBuild_(const BasePlatform::Build& record);
    void parseBoard_(HPLBoard& board, const BasePlatform::Board& record);
    void parseInterfaces_(const BasePlatform::Interfaces& record);
    void parseMemories_(const BasePlatform::Memories& record);
    void parseConnectors_(HPLBoard& board, const BasePlatform::Connectors& record);
    void parseImages_(HPLBoard& board, const BasePlatform::Images& record);
    void parseDevices_(const BasePlatform::Devices& record);
    void parseDevice_(HPLDevice& device, const BasePlatform::Device& record);
    void parseCore_(HPLCore& core, const BasePlatform::Core& record);
    void parseResources_(HPLCore& core, const BasePlatform::AvailableResources& record);
    void parsePort_(HPLPort& port, const BasePlatform::Port& record);
    void parseFiles_(const BasePlatform::Files& record);
    void parseHpfm_(const std::string& member);
    void parseEmulations_(const std::string& member);
    void parseFeatureRom_(const BasePlatform::FeatureRom& record);
    void parseDesignIPs_(const BasePlatform::DesignIPs& record);

    std::string archive_;
    std::string member_;  ///< the metadata
    HPLPlatform* platform_;
    std::unique_ptr<const archive::PlatformArchive> opened_;  ///< `archive_`
    std::uint64_t hpfmBytes_ = 0;           ///< of all that were read
    std::set<std::string> emulationsRead_;  ///< members
};
