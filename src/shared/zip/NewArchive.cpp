#include "zip/NewArchive.h"

#include <algorithm>
#include <memory>

#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"
#include "util/AtomicFile.h"
#include "util/HUTFile.h"
#include "util/PrivateTmpDir.h"
#include "zip/Destination.h"
#include "zip/MemberName.h"
#include "zip/MemoryBytes.h"
#include "zip/ZipWriter.h"

namespace zip {
void NewArchive::addFile(std::string member, LateFile::Open open) {
    add({std::move(member), std::move(open), {}}, true);
}

void NewArchive::addFile(std::string member, const std::string& path) {
    addFile(std::move(member), [path] { return SourceFile(path); });
}

void NewArchive::addText(std::string member, std::string bytes) {
    add({std::move(member), {}, std::move(bytes)}, true);
}

void NewArchive::addDirectory(std::string member) { add({std::move(member), {}, {}}, false); }

void NewArchive::add(Member member, bool hasData) {
    if (const auto fault = digestNameFault(member.name, hasData); !fault.empty())
        throw HEXUserException("archive '" + shown_ + "' cannot be made: the member name '" +
                               HSTStringUtils::printable(member.name) + "' " + std::string(fault));
    members_.push_back(std::move(member));
}

void NewArchive::commit(const std::string& archive, bool mayReplace,
                        const std::function<void(const std::string&)>& accept) {
    if (isStream(archive)) {
        const util::ScratchDirectory scratch;
        const std::string extension = HUTFile::getExt(archive);
        const std::string copy = scratch.path() + "/packed" + (extension.empty() ? "" : "." + extension);
        commit(copy, false, accept);
        return copyToDestination(copy, archive, mayReplace);
    }
    sort();
    util::AtomicFile made(archive, 0666);
    write(made);
    made.sync();
    if (accept) accept(made.path());
    made.commit(mayReplace);
}

void NewArchive::sort() {
    std::ranges::sort(members_, {}, &Member::name);
    const auto twice = std::ranges::adjacent_find(members_, {}, &Member::name);
    if (twice != members_.end())
        throw HEXUserException("archive '" + shown_ + "' cannot be made: it would have two members '" +
                               HSTStringUtils::printable(twice->name) + "'");
}

void NewArchive::write(util::AtomicFile& made) const {
    ZipWriter writer(shown_, {},
                     [&made](std::uint64_t offset, std::string_view bytes) { made.write(offset, bytes); });
    std::vector<DigestRow> rows;
    rows.reserve(members_.size());
    for (const Member& member : members_) {
        rows.push_back({member.name, 0, {}});
        const std::uint64_t number = addTo(writer, member, rows.back());
        writer.setField(number, kDigestField, {rows.back().hash.data(), rows.back().hash.size()});
    }
    writer.setComment(digestLine(rows));
    writer.close();
}

std::uint64_t NewArchive::addTo(ZipWriter& writer, const Member& member, DigestRow& row) {
    if (member.name.ends_with('/')) {
        row.hash = Sha256().finish();
        return writer.addDirectory(member.name);
    }
    std::shared_ptr<const ByteSource> bytes;
    if (member.open)
        bytes = std::make_shared<const LateFile>(member.open);
    else
        bytes = std::make_shared<const MemoryBytes>(member.text);
    row.size = bytes->size();
    if (const auto sums = checksumsOf(*bytes)) row.hash = sums->hash;  // a source that cannot be read throws
    return writer.add(member.name, {row.size, [bytes](std::uint64_t offset, char* target, std::size_t count) {
                                        bytes->read(offset, target, count);
                                    }});
}

}  // namespace zip
