#include <libdeflate.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Check.h"
#include "ReadFile.h"
#include "kit/Run.h"
#include "msg/HEXAll.h"
#include "zip/ArchiveEdit.h"
#include "zip/ArchiveError.h"
#include "zip/Digest.h"

namespace {

using Contents = std::map<std::string, std::optional<zip::Hash>>;

/// The hash of each member; nothing of one that is damaged.
Contents contentsOf(const zip::Archive& archive) {
    Contents contents;
    for (const zip::Member& member : archive.members()) {
        auto& hash = contents[std::string(member.name)];
        try {
            hash = zip::hashOf(archive, member);
        } catch (const zip::ArchiveError&) {
        }
    }
    return contents;
}

/// Replaces, adds and removes members as `choice` says; what the archive must hold afterwards.
Contents change(zip::ArchiveEdit& edit, std::uint32_t choice, zip::ArchiveEdit::Digest digest) {
    Contents expected = contentsOf(edit.archive());
    const auto members = edit.archive().members();
    const std::string text = std::to_string(choice);
    const auto put = [&](const std::string& name) {
        edit.put(name, text);
        zip::Sha256 hash;
        hash.add(text);
        expected[name] = hash.finish();
    };
    if (choice & 1) put("new/member");
    if ((choice & 2) && !members.empty()) put(std::string(members.front().name));
    if ((choice & 4) && members.size() > 1) {
        const std::string last(members.back().name);
        require(edit.remove(last), "a member that is there is removed");
        expected.erase(last);
    }
    edit.commit(digest);
    return expected;
}

/// A member that was damaged may be sound now: its header has been written anew from the directory.
void requireContents(const Contents& found, const Contents& expected) {
    require(found.size() == expected.size(), "no member is lost, none comes of nothing");
    for (const auto& [name, hash] : expected) {
        const auto at = found.find(name);
        require(at != found.end(), "a member keeps its name");
        require(!hash || at->second == hash, "a sound member has the bytes that it had or was given");
    }
}

}  // namespace

/// A change keeps the members that it does not name, and leaves an archive that is read; or it leaves every byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using Digest = zip::ArchiveEdit::Digest;
    const std::uint32_t choice = libdeflate_crc32(0, data, size);
    const Digest digest = choice & 8 ? Digest::attach : Digest::keep;
    const std::string file = fileOf(data, size);
    try {
        Contents expected;
        {
            zip::ArchiveEdit edit(file);
            expected = change(edit, choice, digest);
        }
        const zip::Archive changed(file);
        requireContents(contentsOf(changed), expected);
        require(digest == Digest::keep || zip::isDigestValid(changed), "the digest is attached");
    } catch (const HEXAll&) {
        require(contentOf(file) == std::string(data, data + size), "a refused change leaves every byte");
    }
    return 0;
}
