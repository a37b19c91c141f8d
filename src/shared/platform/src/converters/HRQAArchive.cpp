#include "platform/HRQAArchive.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

#include "json/JsonKeys.h"
#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"
#include "util/Descriptor.h"
#include "util/HUTFile.h"
#include "zip/ArchiveEdit.h"
#include "zip/ArchiveError.h"
#include "zip/HUTZip.h"
#include "zip/LateFile.h"
#include "zip/MemberName.h"
#include "zip/NewArchive.h"
#include "zip/Request.h"

namespace {

using json::ptree;
using zip::ArchiveEdit;

constexpr const char* kBlockDesign = "DR_BD";
constexpr const char* kBlockDesignDirectory = "bd";
constexpr const char* kDirectoryTypes[] = {kBlockDesign, "BOARD_REPO_PATH", "IP_REPO_PATH"};

/// The result of `open`; its exceptions are nested in one with the given text.
template <class Open>
auto openOr(const std::string& text, Open open) {
    try {
        return open();
    } catch (const HEXAll&) {
        std::throw_with_nested(HEXUserException(text));
    }
}

std::unique_ptr<ArchiveEdit> openArchive(const std::string& operation, const std::string& file) {
    return openOr("HRQAArchive::" + operation + "() - Could not open file for streaming: " + file,
                  [&] { return std::make_unique<ArchiveEdit>(file); });
}

zip::LateFile::Open openerOf(const HRQAArchive::Source& source) {
    return [source] {
        return source.directory ? zip::SourceFile(source.directory->get(), source.inside, source.path)
                                : zip::SourceFile(source.path);
    };
}

std::unique_ptr<const zip::LateFile> openSource(const HRQAArchive::Source& source) {
    return openOr("HRQAArchive::archiveFile() - Could not open file for reading: " + source.path,
                  [&] { return std::make_unique<const zip::LateFile>(openerOf(source)); });
}

void checkName(const std::string& archive, const std::string& name) {
    if (const auto fault = zip::memberNameFault(name, false); !fault.empty())
        throw HEXUserException("archive '" + archive + "': the member name '" + HSTStringUtils::printable(name) +
                               "' in rqa.json " + std::string(fault));
}

std::string extractDirectory(const std::string& archive, const std::string& name, const std::string& destination) {
    HUTZip::uncompressDir(archive, name, destination, true);
    std::string path = destination + "/" + name;
    if (!HUTFile::isDir(path))
        throw HEXUserException("HRQAArchive::_extractDir() - dir was not extracted to the expected location: " +
                               path);
    return path;
}

std::string extractFile(const std::string& archive, const std::string& name, const std::string& destination) {
    if (!HUTZip::uncompress(archive, name, destination, true))
        throw HEXUserException("archive '" + archive + "' has no member '" + HSTStringUtils::printable(name) +
                               "', which rqa.json lists");
    return destination + "/" + name;
}

}  // namespace

const std::string& HRQAArchive::getJsonFileName() {
    static const std::string name = "rqa.json";
    return name;
}

bool HRQAArchive::parse() {
    const zip::Request request;
    return parseJsonString(readJsonFile());
}

std::string HRQAArchive::readJsonFile() const {
    if (!HUTFile::isFile(file_)) {
        ComMsgMgr::sendMsg("@74-89@%s", file_);
        return {};
    }
    try {
        const auto opened = zip::openShared(file_);
        if (const zip::Member* const index = opened->find(getJsonFileName())) return opened->read(*index);
    } catch (const zip::ArchiveError&) {  // reported below
    }
    ComMsgMgr::sendMsg("@74-67@%s%s", getJsonFileName(), file_);
    return {};
}

bool HRQAArchive::parseJsonString(const std::string& text) {
    if (text.empty()) return false;
    ptree index;
    json::parse(text, file_ + "!" + getJsonFileName(), {.file = file_, .member = getJsonFileName()}, index);
    parseRoot(index);
    return true;
}

void HRQAArchive::parseRoot(const ptree& index) {
    instPath_ = json::textAt(index, "instPath");
    drBdInstName_ = json::textAt(index, "drBdInstName");
    pfmName_ = json::textAt(index, "pfmName");
    hierName_ = json::textAt(index, "hierName");
    files_.clear();
    files_.parse(index);
}

std::string HRQAArchive::extract(const std::string& type, const std::string& destination) const {
    if (destination.empty()) throw HEXUserException("HRQAArchive::extract() - destDir argument must not be empty");
    HUTFile::mkDirRecursive(destination);
    std::string name = files_.get(type);
    if (name.empty()) return {};
    if (type == kBlockDesign) name = kBlockDesignDirectory;
    checkName(file_, name);
    const bool isDirectory = std::ranges::find(kDirectoryTypes, type) != std::end(kDirectoryTypes);
    return isDirectory ? extractDirectory(file_, name, destination) : extractFile(file_, name, destination);
}

void HRQAArchive::archive(const std::string& type, const std::string& name, const std::string& source) {
    archive({{type, name, source}});
}

void HRQAArchive::archive(const HSTVector<Source>& sources) {
    if (file_.empty()) throw HEXAlgException("HRQAArchive::archive() - rqaFile is not set");
    if (!HUTFile::isFile(file_)) throw HEXAlgException("HRQAArchive::archive() - rqaFile does not exist");
    const HRQAFiles before = files_;
    try {
        std::vector<std::unique_ptr<const zip::LateFile>> opened;
        opened.reserve(sources.size());
        for (const Source& source : sources) opened.push_back(openSource(source));
        const auto edit = openArchive("archiveFile", file_);
        for (std::size_t i = 0; i < sources.size(); ++i) {
            if (opened[i]->stamp() == edit->stamp())
                throw HEXUserException("'" + sources[i].path + "' cannot be put into itself");
            edit->put(sources[i].name, std::move(opened[i]));
            files_.add(sources[i].type, sources[i].name);
        }
        edit->put(getJsonFileName(), indexText());
        edit->commit(ArchiveEdit::Digest::attach);
    } catch (...) {
        files_ = before;
        throw;
    }
}

void HRQAArchive::create(const HSTVector<Source>& sources, bool mayReplace) {
    if (file_.empty()) throw HEXAlgException("HRQAArchive::archive() - rqaFile is not set");
    const HRQAFiles before = files_;
    try {
        zip::NewArchive made(file_);
        for (const Source& source : sources) {
            made.addFile(source.name, openerOf(source));
            files_.add(source.type, source.name);
        }
        made.addText(getJsonFileName(), indexText());
        made.commit(file_, mayReplace);
    } catch (...) {
        files_ = before;
        throw;
    }
}

void HRQAArchive::writeJSON() const {
    if (file_.empty()) return;
    const auto edit = openArchive("writeJSON", file_);
    edit->put(getJsonFileName(), indexText());
    edit->commit();
}

void HRQAArchive::attachDigest() const { HUTZip::attachDigestEn(file_); }

/// Ends in two line ends: the document's and the member's.
std::string HRQAArchive::indexText() const {
    teq_platform::JSONObjectWriter writer;
    toJSON(writer);
    return writer.text() + "\n";
}

void HRQAArchive::toJSON(teq_platform::JSONObjectWriter& writer) const {
    teq_platform::JSONObjectWriter version;
    version.addKey("major", "1");
    version.addKey("minor", "0");
    writer.addKey("version", std::move(version));
    writer.addKey("instPath", instPath_);
    writer.addKey("drBdInstName", drBdInstName_);
    writer.addKey("pfmName", pfmName_);
    writer.addKey("hierName", hierName_);
    files_.toJSON(writer);
}
