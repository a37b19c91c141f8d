#include "hardware/ArchiveChanges.h"

#include <sys/stat.h>

#include <exception>
#include <utility>

#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "platform/HPLPlatform.h"
#include "platform/JSONWriter.h"
#include "util/HUTFile.h"
#include "zip/ArchiveEdit.h"
#include "zip/SourceFile.h"

namespace hardware {

namespace {

using zip::ArchiveEdit;

/// The text of an operation's exceptions, which callers compare.
std::string messageOf(const char* operation, const std::string& text) {
    return std::string("HTEQHardwarePlatform::") + operation + "() - " + text;
}

/// The result of `open`; its exceptions are nested in one with the given text.
template <class Open>
auto openOr(const std::string& text, Open open) {
    try {
        return open();
    } catch (const HEXAll&) {
        std::throw_with_nested(HEXUserException(text));
    }
}

zip::SourceFile openSource(const std::string& source) {
    return openOr(messageOf("archiveFile", "Could not open file for reading: " + source),
                  [&] { return zip::SourceFile(source); });
}

/// `shown`: the name in the text.
std::unique_ptr<ArchiveEdit> openArchive(const char* operation, const HTEQHardwarePlatform& platform,
                                         const std::string& shown) {
    return openOr(messageOf(operation, "Could not open file for streaming: " + shown),
                  [&] { return std::make_unique<ArchiveEdit>(platform.getPlatformFile()); });
}

template <class Platform>
auto& concrete(Platform& platform, const char* operation) {
    using Concrete = std::conditional_t<std::is_const_v<Platform>, const HPLPlatform, HPLPlatform>;
    if (auto* const found = dynamic_cast<Concrete*>(&platform)) return *found;
    throw HEXAlgException(messageOf(operation, "Could not cast this to HPLPlatform"));
}

/// Queries ignore extension metadata that cannot be read; a document to be written must not lose it.
void checkExtensions(const HPLPlatform& platform, const json::ptree& document, const zip::Archive& archive) {
    const std::string listed = platform.getFile("META_JSON");
    const std::string name = listed.empty() ? platform.getFile("EXT_META_JSON") : listed;
    const zip::Member* const member = name.empty() ? nullptr : archive.find(name);
    if (!member || document.count("extensions") > 0) return;
    json::ptree extensions;
    const std::string text = archive.read(*member);
    if (!text.empty())
        json::parse(text, archive.name() + "!" + name, {.file = archive.name(), .member = name}, extensions);
    if (!extensions.empty())
        throw HEXUserException("member '" + name + "' of archive '" + archive.name() + "' could not be read");
}

/// Ends in two line ends: the document's and the member's.
std::string memberText(const HPLPlatform& platform, const zip::Archive& archive) {
    teq_platform::JSONObjectWriter writer;
    platform.toJSON(writer);
    checkExtensions(platform, writer.getTree(), archive);
    if (!platform.writesPlatformFile()) writer.getTree().erase("platformFile");
    return writer.text() + "\n";
}

}  // namespace

void ArchiveChanges::follow(const std::string& file) {
    struct stat status {};
    known_.reset();
    if (::stat(file.c_str(), &status) == 0) known_.emplace(status);
}

void ArchiveChanges::checkKnown(const ArchiveEdit& edit) const {
    if (known_ && !(*known_ == edit.stamp()))
        throw HEXUserException("archive '" + edit.archive().name() +
                               "' cannot be changed: it was changed by somebody else since the platform was read");
}

void ArchiveChanges::writeDocument(const HTEQHardwarePlatform& platform) {
    const std::string member = platform.getJsonFileName();
    if (platform.getPlatformFile().empty() || member.empty()) return;
    const HPLPlatform& written = concrete(platform, "writeToJSON");
    const auto edit = openArchive("writeToJSON", platform, member);
    checkKnown(*edit);
    edit->put(member, memberText(written, edit->archive()));
    known_ = edit->commit();
}

void ArchiveChanges::archiveFile(HTEQHardwarePlatform& platform, const std::string& type, const std::string& member,
                                 const std::string& source) {
    const std::string& file = platform.getPlatformFile();
    const std::string document = platform.getJsonFileName();
    if (file.empty()) throw HEXAlgException(messageOf("archiveFile", "lfaFile is not set"));
    if (document.empty()) throw HEXAlgException(messageOf("archiveFile", "jsonFile is not set"));
    if (!HUTFile::isFile(file)) throw HEXAlgException(messageOf("archiveFile", "lfaFile does not exist"));
    HPLPlatform& written = concrete(platform, "archiveFile");
    written.removeFileType(type);
    written.addFile(type, member);

    zip::SourceFile opened = openSource(source);
    const auto edit = openArchive("archiveFile", platform, file);
    checkKnown(*edit);
    edit->put(member, std::move(opened));
    edit->put(document, memberText(written, edit->archive()));
    known_ = edit->commit(ArchiveEdit::Digest::attach);
}

void ArchiveChanges::addMember(const HTEQHardwarePlatform& platform, const std::string& member,
                               const std::string& source) {
    const std::string& file = platform.getPlatformFile();
    if (file.empty()) return;
    zip::SourceFile opened = openSource(source);
    const auto edit = openArchive("archiveFile", platform, file);
    checkKnown(*edit);
    edit->put(member, std::move(opened));
    known_ = edit->commit();
}

void ArchiveChanges::attachDigest(const HTEQHardwarePlatform& platform) {
    if (platform.getPlatformFile().empty()) return;
    ArchiveEdit edit(platform.getPlatformFile());
    const bool isKnown = !known_ || *known_ == edit.stamp();
    const zip::FileStamp stamp = edit.commit(ArchiveEdit::Digest::renew);
    if (isKnown) known_ = stamp;  // otherwise a change by somebody else is still pending
}

}  // namespace hardware
