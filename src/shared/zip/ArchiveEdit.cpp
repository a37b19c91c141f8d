#include "zip/ArchiveEdit.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"
#include "util/AtomicFile.h"
#include "util/HUTFile.h"
#include "zip/ArchiveCheck.h"
#include "zip/Digest.h"
#include "zip/MemberName.h"
#include "zip/MemoryBytes.h"

namespace zip {
namespace {

std::string_view viewOf(const Hash& hash) { return {hash.data(), hash.size()}; }

struct stat statusOf(int descriptor) {
    struct stat status {};
    ::fstat(descriptor, &status);
    return status;
}

}  // namespace

ArchiveEdit::ArchiveEdit(const std::string& path, std::chrono::milliseconds patience)
    : path_(HUTFile::getCanonicalName(path)), locked_(path_, patience) {
    if (::faccessat(AT_FDCWD, HUTFile::getParent(path_).c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        refuse("its directory: " + std::generic_category().message(errno));
}

void ArchiveEdit::refuse(const std::string& text) const {
    throw HEXUserException("archive '" + path_ + "' cannot be changed: " + text);
}

void ArchiveEdit::put(const std::string& member, SourceFile source) {
    const FileStamp& from = source.bytes().stamp();
    if (from.device == stamp().device && from.inode == stamp().inode) source.refuse("is the archive itself");
    stage(member, {nullptr, std::move(source), {}});
}

void ArchiveEdit::put(const std::string& member, std::string bytes) {
    put(member, std::make_unique<MemoryBytes>(std::move(bytes)));
}

void ArchiveEdit::put(const std::string& member, std::unique_ptr<const ByteSource> bytes) {
    stage(member, {std::move(bytes), {}, {}});
}

void ArchiveEdit::stage(const std::string& member, Change change) {
    if (const auto fault = memberNameFault(member, true); !fault.empty())
        refuse("the member name '" + HSTStringUtils::printable(member) + "' " + std::string(fault));
    changes_.insert_or_assign(member, std::move(change));
    removed_.erase(member);
}

bool ArchiveEdit::remove(const std::string& member) {
    const bool wasStaged = changes_.erase(member) > 0;
    if (!archive().find(member)) return wasStaged;
    return removed_.insert(member).second;
}

bool ArchiveEdit::isKept(const Member& member) const {
    return !removed_.contains(member.name) && !changes_.contains(std::string(member.name));
}

FileStamp ArchiveEdit::commit(Digest digest) {
    const bool isValid = isDigestValid(archive()) && (digest != Digest::renew || isDigestTrue());
    if (changes_.empty() && removed_.empty() && (digest == Digest::keep || isValid)) return stamp();
    if (changes_.empty() && removed_.size() == archive().members().size()) refuse("no member would be left in it");
    const Stamp fields = digest != Digest::keep || isValid ? makeStamp(isValid) : Stamp();

    util::AtomicFile made(path_, 0600);
    write(fields, [&made](std::uint64_t offset, std::string_view bytes) { made.write(offset, bytes); });
    checkSources();
    checkResult(made.descriptor(), !fields.comment.empty());
    made.takeAttributes(locked_.file().descriptor());
    made.sync();
    checkArchive();
    made.commit();
    return FileStamp(statusOf(made.descriptor()));
}

/// Whether a digest whose comment agrees with its fields also agrees with the bytes.
bool ArchiveEdit::isDigestTrue() const {
    archive().checkUnpackedSize();
    return std::ranges::all_of(archive().members(), [this](const Member& member) {
        return zip::hashOf(archive(), member) == digestField(member);
    });
}

ArchiveEdit::Stamp ArchiveEdit::makeStamp(bool isValid) {
    if (!isValid) archive().checkUnpackedSize();
    Stamp stamp;
    std::vector<DigestRow> rows;
    for (const Member& member : archive().members()) {
        if (!isKept(member)) continue;
        if (isValid) checkUnread(member);
        rows.push_back({member.name, member.size, isValid ? *digestField(member) : zip::hashOf(archive(), member)});
        if (!isValid) stamp.fields.emplace(member.name, rows.back().hash);
    }
    for (auto& [name, change] : changes_) {
        rows.push_back({name, change.bytes().size(), hashOf(change)});
        stamp.fields.emplace(name, rows.back().hash);
    }
    stamp.comment = withDigest(digestLine(rows), archive());
    return stamp;
}

/// Of a member whose digest is believed, what another reader could take for something else.
void ArchiveEdit::checkUnread(const Member& member) const {
    archive().checkHeader(member);
    if (member.method == Method::stored && member.hasDescriptor()) zip::hashOf(archive(), member);
}

Hash ArchiveEdit::hashOf(Change& change) const {
    const auto sums = checksumsOf(change.bytes());
    if (!sums) change.refuseToRead();
    change.crc = sums->crc;
    return sums->hash;
}

void ArchiveEdit::Change::refuseToRead() const { file.value().refuse("it cannot be read, or was truncated"); }

ZipWriter::Bytes ArchiveEdit::Change::toPack() const {
    return {bytes().size(), [this](std::uint64_t offset, char* target, std::size_t count) {
                if (!bytes().read(offset, target, count)) refuseToRead();
            }};
}

void ArchiveEdit::write(const Stamp& stamp, const ZipWriter::Write& to) const {
    const ByteSource& old = archive().bytes();
    ZipWriter writer(path_,
                     {old.size(),
                      [&](std::uint64_t offset, char* target, std::size_t count) {
                          if (!old.read(offset, target, count)) refuse("it cannot be read, or was truncated");
                      }},
                     to);
    const auto setField = [&](std::uint64_t number, std::string_view name) {
        if (const auto field = stamp.fields.find(name); field != stamp.fields.end())
            writer.setField(number, kDigestField, viewOf(field->second));
    };
    std::uint64_t number = 0;
    for (const Member& member : archive().members()) {
        const auto change = changes_.find(std::string(member.name));
        if (removed_.contains(member.name)) {
            writer.remove(number);
        } else {
            if (change != changes_.end()) writer.replace(number, change->second.toPack());
            setField(number, member.name);
        }
        ++number;
    }
    for (const auto& [name, change] : changes_)
        if (!archive().find(name)) setField(writer.add(name, change.toPack()), name);
    if (!stamp.comment.empty()) writer.setComment(stamp.comment);
    writer.close();
}

void ArchiveEdit::checkSources() const {
    for (const auto& [name, change] : changes_)
        if (change.file) change.file->checkUnchanged();
}

void ArchiveEdit::checkArchive() const {
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0 || !(FileStamp(status) == stamp()) || !locked_.file().isAsOpened())
        refuse("it was changed by somebody else since it was read");
}

/// The writer looks for the old central directory in its own way, and bytes in the data may look like the end of
/// another archive to it.
void ArchiveEdit::checkKept(const Archive& made) const {
    std::size_t count = changes_.size();
    for (const Member& member : archive().members()) {
        if (!isKept(member)) continue;
        const Member* const kept = made.find(member.name);
        if (!kept || kept->size != member.size || kept->crc != member.crc)
            refuse("the member '" + HSTStringUtils::printable(member.name) +
                   "' would be lost: something in the archive looks like the end of another one");
        ++count;
    }
    if (made.members().size() != count) refuse("it would have members that were not added");
}

/// A new archive that cannot be read again, or differs from what was hashed, does not replace the old one.
void ArchiveEdit::checkResult(int descriptor, bool hasStamp) const {
    util::Descriptor own(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    if (!own.isOpen()) refuse(std::generic_category().message(errno));
    const Archive made(std::make_unique<FileBytes>(std::move(own)), path_ + " (changed)");
    for (const Member& member : made.members()) {
        made.checkHeader(member);
        if (!hasStamp) continue;
        if (const auto fault = nameFault(made, member, true); !fault.empty())
            throw ArchiveError(path_, std::string(member.name), fault);
    }
    checkKept(made);
    for (const auto& [name, change] : changes_) {
        const Member* const member = made.find(name);
        if (member && member->size == change.bytes().size() && member->crc == change.crc.value_or(member->crc))
            continue;
        if (change.file) change.file->refuse("it was changed while it was read");
        refuse("the member '" + HSTStringUtils::printable(name) + "' was not written correctly");
    }
}

}  // namespace zip
