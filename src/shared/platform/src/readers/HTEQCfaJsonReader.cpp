#include "platform/HTEQCfaJsonReader.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "archive/Request.h"
#include "hardware/HardwareKeys.h"
#include "json/JsonFile.h"
#include "msg/Capture.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQHpfmReader.h"
#include "readers/Problem.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"

namespace {

using hardware::Turn;
using json::ptree;
using Mode = HTEQCfaJsonReader::HwMetadataMode;

/// The archive at `path`; null when it is none.
std::shared_ptr<const archive::MemberSource> opened(const std::string& path) {
    try {
        return archive::open(path);
    } catch (const zip::ArchiveError&) {
        return nullptr;
    }
}

/// The member of the two that the mode allows; empty when the archive has none.
std::string chosen(const archive::MemberSource& source, Mode mode, const std::string& primary,
                   const std::string& alternative) {
    if (mode == Mode::XmlOnly) return "";
    if (mode == Mode::Default && source.contains(alternative)) return alternative;
    return source.contains(primary) ? primary : "";
}

/// What the emulation targets of a listed file say of the platform.
void takeEmulations(const HTEQEmulations& emulations, HPLPlatform& platform) {
    for (const HTEQEmulation* emulation : emulations.getEmulations())
        for (const HTEQEmulationFile* file : emulation->getFiles()) {
            if (file->getType() == "EMU_HPFM") platform.setSupportsHWEmulation(true);
            if (file->getType() == "TOP_BD") platform.setSupportsTwoHwEmuBd(true);
        }
}

void readEmulationFiles(const std::string& archive, HPLPlatform& platform) {
    const auto [begin, end] = platform.getFileVecRange();
    std::set<std::pair<bool, std::string>> seen;  // a stranger may list one file a hundred thousand times
    for (auto it = begin; it != end; ++it) {
        const bool isXml = HSTStringUtils::iequals((*it)->getType(), "EMU_XML");
        const bool isJson = HSTStringUtils::iequals((*it)->getType(), "EMU_JSON");
        if ((!isXml && !isJson) || !seen.emplace(isXml, (*it)->getName()).second) continue;
        HTEQEmulations emulations;
        if (isXml)
            HTEQEmulationXMLReader::parseFromCfa(archive, (*it)->getName(), &emulations);
        else
            HTEQEmulationJsonReader::parseFromCfa(archive, (*it)->getName(), &emulations);
        takeEmulations(emulations, platform);
    }
}

}  // namespace

HTEQCfaJsonReader::HTEQCfaJsonReader(HPLPlatform* platform) : platform_(platform) {}
HTEQCfaJsonReader::~HTEQCfaJsonReader() = default;

bool HTEQCfaJsonReader::open(const std::string& archive) {
    if (source_ && archive == archive_) return true;  // the loader asks first and parses then
    if (archive.empty() || !HUTFile::exists(archive)) {
        ComMsgMgr::sendMsg("@74-66@%s", archive);
        return false;
    }
    archive_ = archive;
    platform_->setPlatformFile(HUTFile::getCanonicalName(archive));
    source_ = opened(archive);
    return source_ != nullptr;
}

bool HTEQCfaJsonReader::canParse(const std::string& archive, Mode mode, std::string& member) {
    if (!open(archive)) return false;
    member = chosen(*source_, mode, platform_->getJsonFileName(), platform_->getAltJsonFileName());
    return !member.empty();
}

bool HTEQCfaJsonReader::canParseHwEmu(const std::string& archive, Mode mode, std::string& member) {
    if (!canParse(archive, mode, member)) return false;
    // Here the main member comes first: the alternative one only takes its place when it is missing.
    member = platform_->getHwEmuJsonFileName();
    if (!source_->contains(member)) member = mode == Mode::Default ? platform_->getAltHwEmuJsonFileName() : "";
    return source_->contains(member);
}

bool HTEQCfaJsonReader::parseCFA(const std::string& archive, Mode mode) {
    std::string member;
    return canParse(archive, mode, member) && parseMember(member);
}

bool HTEQCfaJsonReader::parseHwEmuLFA(const std::string& archive, Mode mode) {
    std::string member;
    if (!canParseHwEmu(archive, mode, member) || !parseMember(member)) return false;
    platform_->setIsChildHardwareEmuPlatform(true);
    return true;
}

bool HTEQCfaJsonReader::parseMember(const std::string& member) {
    member_ = member;
    try {
        return parseJsonString(source_->read(member).value_or(""));
    } catch (const std::exception& e) {
        msg::Capture::send(ComMsgMgr::make("@74-64@%s%s%s", member, archive_, e.what()),
                           readers::problemOf(e, archive_, member));
    } catch (...) {
        ComMsgMgr::sendMsg("@74-63@%s%s", member, archive_);
    }
    return false;
}

bool HTEQCfaJsonReader::parseFile(const std::string& file) {
    if (!HUTFile::isFile(file)) return false;
    ptree document;
    json::parseFile(file, document);
    parseRoot_(document);
    return true;
}

bool HTEQCfaJsonReader::parseJsonString(const std::string& text) {
    if (text.empty()) return false;
    ptree document;
    json::parse(text, member_, document);
    parseRoot_(document);
    return true;
}

void HTEQCfaJsonReader::parseRoot_(const ptree& document) {
    hardware::readDocument(document, *platform_);
    readEmulationFiles(archive_, *platform_);
    std::optional<HTEQHpfmReader> hpfm;  // one for both, so that the text is parsed once
    if (std::string text = getHpfmStr(); !text.empty()) hpfm.emplace(std::move(text), platform_);
    if (!hpfm || !hpfm->parseBusInterfaces()) hardware::readKeys(document, Turn::busInterfaces, *platform_);
    if (!hpfm || !hpfm->parseNocConnectivity()) hardware::readKeys(document, Turn::nocConnectivity, *platform_);
    hardware::readKeys(document, Turn::parameters, *platform_);
}

std::string HTEQCfaJsonReader::getHpfmFile() const {
    const auto [begin, end] = platform_->getFileVecRange();
    const auto file =
        std::find_if(begin, end, [](const HPLFile* f) { return HSTStringUtils::iequals(f->getType(), "HPFM"); });
    return file != end && source_ && source_->contains((*file)->getName()) ? (*file)->getName() : "";
}

std::string HTEQCfaJsonReader::getHpfmStr() const {
    const std::string member = getHpfmFile();
    return member.empty() ? "" : source_->read(member).value_or("");
}

bool HTEQCfaJsonReader::readHpfmBusInterfaces(const std::string& hpfm) {
    return !hpfm.empty() && HTEQHpfmReader(hpfm, platform_).parseBusInterfaces();
}

bool HTEQCfaJsonReader::readHpfmNocConnectivity(const std::string& hpfm) {
    return !hpfm.empty() && HTEQHpfmReader(hpfm, platform_).parseNocConnectivity();
}
