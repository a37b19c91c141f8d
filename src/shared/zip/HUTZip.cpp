#include "zip/HUTZip.h"

#include <algorithm>
#include <array>

#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "zip/Archive.h"
#include "zip/ArchiveCheck.h"
#include "zip/ArchiveEdit.h"
#include "zip/ArchiveError.h"
#include "zip/ExtractionDirectory.h"
#include "zip/FolderPacker.h"
#include "zip/NewArchive.h"
#include "zip/Request.h"

bool HUTZip::containsFile(const std::string& archive, const std::string& member) {
    try {
        return zip::openShared(archive)->find(member) != nullptr;
    } catch (const zip::ArchiveError&) {
        return false;
    }
}

HSTVector<HUTZip::Member> HUTZip::members(const std::string& archive) {
    const auto opened = zip::openShared(archive);
    HSTVector<Member> members;
    members.reserve(opened->members().size());
    for (const zip::Member& member : opened->members())
        members.push_back({std::string(member.name), member.size, member.packedSize});
    std::sort(members.begin(), members.end(), [](const Member& a, const Member& b) { return a.name < b.name; });
    return members;
}

void HUTZip::getFiles(const std::string& archive, HSTVector<std::string>& files) {
    const auto opened = zip::openShared(archive);
    files.clear();
    files.reserve(opened->members().size());
    for (const zip::Member& member : opened->members()) files.emplace_back(member.name);
}

bool HUTZip::uncompressDir(const std::string& archive, const std::string& directory, const std::string& destination,
                           bool overwrite) {
    const zip::Request request;
    const auto opened = zip::openShared(archive);
    const std::string below = directory.empty() || directory.ends_with('/') ? directory : directory + "/";
    return zip::ExtractionDirectory(destination).extractAll(*opened, below, overwrite, *zip::Request::budget());
}

bool HUTZip::uncompress(const std::string& archive, const std::string& member, const std::string& destination,
                        bool overwrite) {
    const zip::Request request;
    const auto opened = zip::openShared(archive);
    const zip::Member* const found = opened->find(member);
    if (found) zip::ExtractionDirectory(destination).extract(*opened, *found, overwrite, *zip::Request::budget());
    return found != nullptr;
}

void HUTZip::compress(const std::string& file, const std::string& archive, Step step, const std::string& member) {
    const std::string name = member.empty() ? file.substr(file.rfind('/') + 1) : member;
    if (step == Step::append) {
        zip::ArchiveEdit edit(archive);
        edit.put(name, zip::SourceFile(file));
        edit.commit();
        return;
    }
    zip::NewArchive made(archive);
    made.addFile(name, file);
    made.commit(archive, true);
}

std::size_t HUTZip::deleteFilesFromZip(const std::string& archive, const HSTVector<std::string>& members) {
    zip::ArchiveEdit edit(archive);
    const auto count = std::ranges::count_if(members, [&](const std::string& name) { return edit.remove(name); });
    edit.commit();
    return static_cast<std::size_t>(count);
}

void HUTZip::compressDir(const std::string& folder, const std::string& archive, bool overwrite,
                         const std::function<void(const std::string&)>& accept) {
    if (!overwrite && HUTFile::exists(archive)) throw HEXUserException("'" + archive + "' already exists");
    packFolder(folder, archive, overwrite, accept);
}

void HUTZip::attachDigestEn(const std::string& archive) {
    zip::ArchiveEdit(archive).commit(zip::ArchiveEdit::Digest::renew);
}

const char* HUTZip::reasonText(Reason reason) {
    static constexpr std::array kTexts{"crc", "size", "damaged", "hash", "field", "extra", "missing"};
    static_assert(kTexts.size() == static_cast<std::size_t>(Reason::count_));
    return kTexts.at(static_cast<std::size_t>(reason));
}

HUTZip::Verification HUTZip::verify(const std::string& archive) {
    return zip::checkArchive(*zip::openShared(archive));
}
