#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/HwMetadataMode.h"
#include "text/ZrApi.h"

class HPLPlatform;
namespace archive {
class PlatformArchive;
}
namespace json {
class Document;
}

/// Fills one hardware platform from a JSON member of a `.cfa` or `.lfa` archive. A missing key gives an empty or zero
/// value, an unknown key is ignored; only a device without "core" is an error. Bus interfaces and NoC connectivity
/// come from the archive's hpfm member if it has a readable one, else from the document.
class ZR_API HTEQCfaJsonReader {
public:
    using HwMetadataMode = teq_platform::HwMetadataMode;

    /// Fills `platform`, which must be new and stays owned by the caller.
    explicit HTEQCfaJsonReader(HPLPlatform* platform);
    ~HTEQCfaJsonReader();
    HTEQCfaJsonReader(const HTEQCfaJsonReader&) = delete;
    HTEQCfaJsonReader& operator=(const HTEQCfaJsonReader&) = delete;

    /// Whether `archive` holds a JSON member that the mode allows; its name goes to `member`. Sets the platform's
    /// file to the archive's canonical name. Sends "@74-66@%s" if the path is empty or does not exist. Also false if
    /// the file is not an archive.
    bool canParse(const std::string& archive, HwMetadataMode mode, std::string& member);
    /// The same for the member in the emulation directory "hw_emu".
    bool canParseHwEmu(const std::string& archive, HwMetadataMode mode, std::string& member);

    /// Reads the archive's metadata. False if there is none or, with message "@74-64@%s%s%s" (member, archive,
    /// error), if it cannot be read.
    bool parseCFA(const std::string& archive, HwMetadataMode mode);
    /// The same from the emulation directory; the platform is then marked as the child of another.
    bool parseHwEmuLFA(const std::string& archive, HwMetadataMode mode);

    /// The same as `parseCFA` and `parseHwEmuLFA`, but they throw `HEXFileFault`, with the reason, in place of
    /// answering false.
    void readCFA(const std::string& archive, HwMetadataMode mode);
    void readHwEmuLFA(const std::string& archive, HwMetadataMode mode);

    /// Reads a JSON file outside of an archive. False if it is not a file. Exceptions of the parser, the property
    /// tree and the model are passed on.
    bool parseFile(const std::string& file);
    /// Reads a document; false for an empty text. Exceptions as `parseFile`.
    bool parseJsonString(const std::string& text);

    /// Member name of the first listed file of type "HPFM" that the archive contains, and its text; else empty.
    std::string getHpfmFile() const;
    std::string getHpfmStr() const;

    /// Adds the hpfm's bus interfaces, or NoC connectivity, to the platform. False if the text is empty or not
    /// valid.
    bool readHpfmBusInterfaces(const std::string& hpfm);
    bool readHpfmNocConnectivity(const std::string& hpfm);

private:
    void parseRoot_(const json::Document& document);
    void open(const std::string& archive);
    std::string memberFor(const std::string& archive, HwMetadataMode mode, bool ofChild);
    void readMember(const std::string& member, const std::function<std::string()>& textOf);

    HPLPlatform* platform_;
    std::string archive_;
    std::unique_ptr<const archive::PlatformArchive> opened_;  ///< `archive_`
};
