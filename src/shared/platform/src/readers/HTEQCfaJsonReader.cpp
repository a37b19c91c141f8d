#include "platform/HTEQCfaJsonReader.h"

#include <algorithm>
#include <boost/property_tree/exceptions.hpp>
#include <exception>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "archive/PlatformArchive.h"
#include "hardware/HardwareKeys.h"
#include "json/JsonFile.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQHpfmReader.h"
#include "readers/Reading.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"
#include "zip/Request.h"

namespace {

using archive::PlatformArchive;
using hardware::Turn;
using json::Document;
using Mode = HTEQCfaJsonReader::HwMetadataMode;

/// What the emulation targets in a listed file imply for the platform.
void takeEmulations(const HTEQEmulations& emulations, HPLPlatform& platform) {
    for (const HTEQEmulation* emulation : emulations.getEmulations())
        for (const HTEQEmulationFile* file : emulation->getFiles()) {
            if (file->getType() == "EMU_HPFM") platform.setSupportsHWEmulation(true);
            if (file->getType() == "TOP_BD") platform.setSupportsTwoHwEmuBd(true);
        }
}

/// A key that is missing is one of this member, not of the metadata that lists it.
void readJsonTargets(const std::string& archive, const std::string& member, HTEQEmulations& emulations) {
    try {
        HTEQEmulationJsonReader::parseFromCfa(archive, member, &emulations);
    } catch (const boost::property_tree::ptree_bad_path& e) {
        throw HEXFileFault({.file = archive, .member = member, .text = e.what()});
    }
}

void readEmulationFiles(const std::string& archive, HPLPlatform& platform) {
    const auto [begin, end] = platform.getFileVecRange();
    std::set<std::pair<bool, std::string>> seen;  // the same file may be listed a hundred thousand times
    for (auto it = begin; it != end; ++it) {
        const bool isXml = HSTStringUtils::iequals((*it)->getType(), "EMU_XML");
        const bool isJson = HSTStringUtils::iequals((*it)->getType(), "EMU_JSON");
        if ((!isXml && !isJson) || !seen.emplace(isXml, (*it)->getName()).second) continue;
        HTEQEmulations emulations;
        const std::string& member = (*it)->getName();
        if (isXml)
            HTEQEmulationXMLReader::readFromCfa(archive, member, &emulations);
        else
            readJsonTargets(archive, member, emulations);
        takeEmulations(emulations, platform);
    }
}

}  // namespace

HTEQCfaJsonReader::HTEQCfaJsonReader(HPLPlatform* platform) : platform_(platform) {}
HTEQCfaJsonReader::~HTEQCfaJsonReader() = default;

void HTEQCfaJsonReader::open(const std::string& archive) {
    if (opened_ && archive == archive_) return;  // the loader queries first and then parses
    opened_.reset();
    if (archive.empty() || !HUTFile::exists(archive))
        readers::fail(ComMsgMgr::make("@74-66@%s", archive), {.file = archive, .text = "no such file"});
    archive_ = archive;
    const std::string canonical = HUTFile::getCanonicalName(archive);
    platform_->setPlatformFile(canonical);
    opened_ = std::make_unique<PlatformArchive>(archive, canonical);
}

std::string HTEQCfaJsonReader::memberFor(const std::string& archive, Mode mode, bool ofChild) {
    open(archive);
    const auto own = opened_->metadata(mode);
    if (!own || own->isXml()) throw HEXFileFault(opened_->missingMetadata(mode));
    if (!ofChild) return own->member;
    const auto child = opened_->childMetadata(mode);
    if (!child) throw HEXFileFault({.file = archive, .text = "the archive has no emulation metadata"});
    return child->member;
}

bool HTEQCfaJsonReader::canParse(const std::string& archive, Mode mode, std::string& member) {
    return readers::succeeds([&] { member = memberFor(archive, mode, false); });
}

bool HTEQCfaJsonReader::canParseHwEmu(const std::string& archive, Mode mode, std::string& member) {
    return readers::succeeds([&] { member = memberFor(archive, mode, true); });
}

bool HTEQCfaJsonReader::parseCFA(const std::string& archive, Mode mode) {
    return readers::succeedsReported([&] { readCFA(archive, mode); });
}

void HTEQCfaJsonReader::readCFA(const std::string& archive, Mode mode) {
    const zip::Request request;
    const std::string member = memberFor(archive, mode, false);
    readMember(member, [&] { return opened_->text(member).value_or(""); });
}

bool HTEQCfaJsonReader::parseHwEmuLFA(const std::string& archive, Mode mode) {
    return readers::succeedsReported([&] { readHwEmuLFA(archive, mode); });
}

void HTEQCfaJsonReader::readHwEmuLFA(const std::string& archive, Mode mode) {
    const zip::Request request;
    const std::string member = memberFor(archive, mode, true);
    std::optional<std::string> text;
    try {
        text = opened_->text(member);
    } catch (const zip::ArchiveError& e) {
        readers::fail(ComMsgMgr::make("@74-67@%s%s", member, archive), e.diagnostic());
    }
    readMember(member, [&] { return std::move(*text); });
    platform_->setIsChildHardwareEmuPlatform(true);
}

void HTEQCfaJsonReader::readMember(const std::string& member, const std::function<std::string()>& textOf) {
    std::string text;
    const auto parse = [&] {
        Document document;
        document.parse(std::move(text), member, {.file = archive_, .member = member});
        parseRoot_(document);
    };
    const auto messageOf = [&](const std::exception& e) {
        return ComMsgMgr::make("@74-64@%s%s%s", member, archive_, e.what());
    };
    readers::reading(
        archive_, member, [&] { text = textOf(); }, messageOf);
    if (text.empty())
        throw HEXFileFault({.file = archive_, .member = member, .id = "74-64", .text = "the metadata is empty"});
    try {
        readers::reading(archive_, member, parse, messageOf);
    } catch (const std::exception&) {
        throw;
    } catch (...) {
        readers::fail(ComMsgMgr::make("@74-63@%s%s", member, archive_),
                      {.file = archive_, .member = member, .text = "unknown exception"});
    }
}

bool HTEQCfaJsonReader::parseFile(const std::string& file) {
    if (!HUTFile::isFile(file)) return false;
    const zip::Request request;
    Document document;
    json::parseFile(file, document);
    parseRoot_(document);
    return true;
}

bool HTEQCfaJsonReader::parseJsonString(const std::string& text) {
    if (text.empty()) return false;
    const zip::Request request;
    Document document;
    document.parse(text, "");
    parseRoot_(document);
    return true;
}

void HTEQCfaJsonReader::parseRoot_(const Document& whole) {
    const json::Node document = whole.root();
    hardware::readDocument(document, *platform_);
    readEmulationFiles(archive_, *platform_);
    std::optional<HTEQHpfmReader> hpfm;  // one for both, so that the text is parsed once
    if (const std::string member = getHpfmFile(); !member.empty())
        if (auto text = opened_->textOrWarning(member)) hpfm.emplace(std::move(*text), platform_);
    if (hpfm && !hpfm->parseBusInterfaces()) hpfm.reset();
    if (!hpfm) hardware::readKeys(document, Turn::busInterfaces, *platform_);
    if (!hpfm || !hpfm->parseNocConnectivity()) hardware::readKeys(document, Turn::nocConnectivity, *platform_);
    hardware::readKeys(document, Turn::parameters, *platform_);
}

std::string HTEQCfaJsonReader::getHpfmFile() const {
    const auto [begin, end] = platform_->getFileVecRange();
    const auto file =
        std::find_if(begin, end, [](const HPLFile* f) { return HSTStringUtils::iequals(f->getType(), "HPFM"); });
    return file != end && opened_ && opened_->contains((*file)->getName()) ? (*file)->getName() : "";
}

std::string HTEQCfaJsonReader::getHpfmStr() const {
    const std::string member = getHpfmFile();
    return member.empty() ? "" : opened_->textOrWarning(member).value_or("");
}

bool HTEQCfaJsonReader::readHpfmBusInterfaces(const std::string& hpfm) {
    return !hpfm.empty() && HTEQHpfmReader(hpfm, platform_).parseBusInterfaces();
}

bool HTEQCfaJsonReader::readHpfmNocConnectivity(const std::string& hpfm) {
    return !hpfm.empty() && HTEQHpfmReader(hpfm, platform_).parseNocConnectivity();
}
