#pragma once
#include <boost/property_tree/ptree_fwd.hpp>
#include <functional>
#include <memory>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/ZrApi.h"

class HPLPlatform;
namespace archive {
class PlatformArchive;
}

/// Fills one hardware platform from a JSON member of a `.cfa` or `.lfa` archive. A missing key gives an empty or zero
/// value, an unknown key is passed over; only a device without "core" is a failure. Bus interfaces and NoC
/// connectivity come from the archive's hpfm member when it has one that can be read, else from the document.
class ZR_API HTEQCfaJsonReader {
public:
    using HwMetadataMode = teq_platform::HwMetadataMode;

    /// `platform` stays the caller's and is filled; a fresh one is expected.
    explicit HTEQCfaJsonReader(HPLPlatform* platform);
    ~HTEQCfaJsonReader();
    HTEQCfaJsonReader(const HTEQCfaJsonReader&) = delete;
    HTEQCfaJsonReader& operator=(const HTEQCfaJsonReader&) = delete;

    /// Whether `archive` holds a JSON member that the mode allows, and its name in `member`. Sets the platform's file
    /// to the archive's canonical name. Sends "@74-66@%s" when the path is empty or does not exist. False too for a
    /// file that is no archive.
    bool canParse(const std::string& archive, HwMetadataMode mode, std::string& member);
    /// The same for the member of the emulation directory "hw_emu".
    bool canParseHwEmu(const std::string& archive, HwMetadataMode mode, std::string& member);

    /// Reads the archive's metadata. False when there is none, or, with message "@74-64@%s%s%s" (member, archive,
    /// what is wrong) when it cannot be read.
    bool parseCFA(const std::string& archive, HwMetadataMode mode);
    /// The same from the emulation directory; the platform is then marked as the child of another.
    bool parseHwEmuLFA(const std::string& archive, HwMetadataMode mode);

    /// The same as `parseCFA` and `parseHwEmuLFA`, but they throw `HEXFileFault`, with the reason, in place of
    /// answering false.
    void readCFA(const std::string& archive, HwMetadataMode mode);
    void readHwEmuLFA(const std::string& archive, HwMetadataMode mode);

    /// Reads a JSON file that lies in no archive. False when it is no file; lets the exceptions of the parser, of the
    /// property tree and of the model pass.
    bool parseFile(const std::string& file);
    /// Reads a document; false for an empty text. Exceptions as `parseFile`.
    bool parseJsonString(const std::string& text);

    /// Member name of the first file of type "HPFM" that the archive really holds, and its text; else empty.
    std::string getHpfmFile() const;
    std::string getHpfmStr() const;

    /// Adds the hpfm's bus interfaces, or NoC connectivity, to the platform. False when the text is empty or not
    /// valid.
    bool readHpfmBusInterfaces(const std::string& hpfm);
    bool readHpfmNocConnectivity(const std::string& hpfm);

private:
    void parseRoot_(const boost::property_tree::ptree& document);
    void open(const std::string& archive);
    std::string memberFor(const std::string& archive, HwMetadataMode mode, bool ofChild);
    void readMember(const std::string& member, const std::function<std::string()>& textOf);

    HPLPlatform* platform_;
    std::string archive_;
    std::unique_ptr<const archive::PlatformArchive> opened_;  ///< `archive_`
};
