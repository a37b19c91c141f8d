#include "zip/ArchiveCheck.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "text/HSTStringUtils.h"
#include "zip/ArchiveError.h"
#include "zip/Digest.h"
#include "zip/ExtraFields.h"
#include "zip/MemberName.h"

namespace zip {
namespace {

using Reason = HUTZip::Reason;

Reason reasonOf(ArchiveError::Fault fault) {
    constexpr std::array kReasons{Reason::damaged, Reason::crc, Reason::size, Reason::damaged};
    return kReasons.at(static_cast<std::size_t>(fault));
}

class Check {
public:
    explicit Check(const Archive& archive) : archive_(archive), hasDigest_(hasDigest(archive.comment())) {}

    HUTZip::Verification run() {
        archive_.checkUnpackedSize();
        for (const Member& member : archive_.members()) {
            checkName(member);
            checkBytes(member);
        }
        if (hasDigest_) {
            if (tellsComment(rowsOfBytes_)) blameFields();
            if (report_.differences.empty() && !tellsComment(rowsOfFields_))
                add("", Reason::missing, "the members are not those of the digest: one is missing, added or renamed");
            report_.digest = report_.differences.empty() ? HUTZip::DigestState::valid : HUTZip::DigestState::broken;
        }
        return std::move(report_);
    }

private:
    void add(std::string_view member, Reason reason, std::string_view text) {
        report_.differences.push_back({std::string(member), reason, HSTStringUtils::printable(text)});
    }

    void checkName(const Member& member) {
        if (const auto fault = nameFault(archive_, member, hasDigest_); !fault.empty())
            add(member.name, Reason::damaged, fault);
    }

    void checkBytes(const Member& member) {
        try {
            const Hash hash = hashOf(archive_, member);
            rowsOfBytes_.push_back({member.name, member.size, hash});
            if (hasDigest_) checkField(member, hash);
        } catch (const ArchiveError& error) {
            add(member.name, reasonOf(error.fault()), error.text());
        }
    }

    void checkField(const Member& member, const Hash& hash) {
        if (!findExtraField(member.extraFields, kDigestField))
            return add(member.name, Reason::extra, "it has no digest: it was added or replaced later");
        const auto field = digestField(member);
        if (!field) return add(member.name, Reason::field, "its digest is not one of 32 bytes");
        rowsOfFields_.push_back({member.name, member.size, *field});
        if (*field != hash)
            add(member.name, Reason::hash, "its SHA-256 is " + hexOf(hash) + ", not " + hexOf(*field));
    }

    bool tellsComment(const std::vector<DigestRow>& rows) const {
        return rows.size() == archive_.members().size() && commentTells(archive_, rows);
    }

    /// If the comment was computed from the current bytes, the fields are wrong.
    void blameFields() {
        for (HUTZip::Difference& difference : report_.differences)
            if (difference.reason == Reason::hash) difference.reason = Reason::field;
    }

    const Archive& archive_;
    const bool hasDigest_;
    HUTZip::Verification report_;
    std::vector<DigestRow> rowsOfBytes_, rowsOfFields_;
};

}  // namespace

std::string nameFault(const Archive& archive, const Member& member, bool hasDigest) {
    const std::string_view name = member.name;
    const auto fault = (hasDigest ? digestNameFault : memberPathFault)(name, member.size > 0);
    if (!fault.empty()) return "its name " + std::string(fault);
    if (hasDigest && !member.isMarkedUtf8() && !std::ranges::all_of(name, isAscii))
        return "its name is neither ASCII nor marked as UTF-8";
    for (auto at = name.find('/'); at != name.npos; at = name.find('/', at + 1))
        if (archive.find(name.substr(0, at))) return "it would be in a directory whose name is that of a file";
    return {};
}

HUTZip::Verification checkArchive(const Archive& archive) { return Check(archive).run(); }

}  // namespace zip
