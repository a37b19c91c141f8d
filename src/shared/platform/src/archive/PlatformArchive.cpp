#include "archive/PlatformArchive.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "archive/ArchiveSource.h"
#include "msg/ComMsgMgr.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"

namespace archive {
namespace {

using enum PlatformMember;
using Mode = PlatformArchive::Mode;

/// The members that a mode reads; the first existing one is used.
std::span<const PlatformMember> membersOf(Mode mode) {
    static constexpr std::array kAll{altJson, json, xml};
    switch (mode) {
        case Mode::Default: return kAll;
        case Mode::PrimaryJsonOnly: return std::span(kAll).subspan(1);
        case Mode::XmlOnly: return std::span(kAll).last(1);
    }
    return {};
}

/// The same for the emulation child, whose XML form is not read.
std::span<const PlatformMember> childMembersOf(Mode mode) {
    static constexpr std::array kAll{hwEmuJson, altHwEmuJson};
    switch (mode) {
        case Mode::Default: return kAll;
        case Mode::PrimaryJsonOnly: return std::span(kAll).first(1);
        case Mode::XmlOnly: return {};
    }
    return {};
}

}  // namespace

PlatformArchive::PlatformArchive(const std::string& file) : source_(open(file)), file_(file) {}

PlatformArchive::PlatformArchive(const std::string& file, std::string canonical)
    : source_(open(file)), file_(file), canonical_(std::move(canonical)) {}

bool PlatformArchive::Metadata::isOfChild() const {
    return kind == hwEmuJson || kind == altHwEmuJson || kind == hwEmuXml;
}

std::string PlatformArchive::nameOf(PlatformMember kind) const {
    if (!canonical_) canonical_ = HUTFile::getCanonicalName(file_);
    return platformMember(kind, HUTFile::getExt(*canonical_));
}

std::optional<PlatformArchive::Metadata> PlatformArchive::present(PlatformMember kind) const {
    std::string name = nameOf(kind);
    if (!source_->contains(name)) return std::nullopt;
    return Metadata{std::move(name), kind};
}

std::optional<PlatformArchive::Metadata> PlatformArchive::metadata(Mode mode) const {
    for (const PlatformMember kind : membersOf(mode))
        if (auto found = present(kind)) return found;
    return std::nullopt;
}

std::optional<PlatformArchive::Metadata> PlatformArchive::childMetadata(Mode mode) const {
    for (const PlatformMember kind : childMembersOf(mode))
        if (auto found = present(kind)) return found;
    return std::nullopt;
}

std::vector<PlatformArchive::Metadata> PlatformArchive::allMetadata() const {
    std::vector<Metadata> all;
    for (const PlatformMember kind : {altJson, json, xml, altHwEmuJson, hwEmuJson, hwEmuXml})
        if (auto found = present(kind)) all.push_back(std::move(*found));
    return all;
}

HEXDiagnostic PlatformArchive::missingMetadata(Mode mode) const {
    if (const auto found = metadata(mode); found && found->isXml())
        return {.file = name(),
                .member = found->member,
                .text = "the metadata is XML; here only JSON (" + nameOf(json) + ") is read"};
    std::vector<std::string> names;
    for (const PlatformMember kind : membersOf(mode)) names.push_back(nameOf(kind));
    const std::string last = std::move(names.back());
    names.pop_back();
    const std::string others = HSTStringUtils::join(names, ", ");
    return {.file = name(),
            .text = "the archive has no metadata member " + others + (others.empty() ? "" : " or ") + last};
}

std::optional<std::string> PlatformArchive::textOrWarning(std::string_view member) const {
    try {
        return text(member);
    } catch (const zip::ArchiveError& e) {
        if (e.fault() == zip::ArchiveError::Fault::unreadable) throw;
        const std::string ignored = e.diagnostic().format() + "; it is ignored";
        ComMsgMgr::send({"platform", "", MsgMask::warning, {}, ignored, std::source_location::current()});
        return std::nullopt;
    }
}

bool PlatformArchive::lists(const std::string& name) const {
    if (source_->contains(name)) return true;
    if (!names_) {
        names_.emplace();
        for (MemberInfo& info : source_->files()) names_->push_back(std::move(info.name));
        std::ranges::sort(*names_);
    }
    const std::string folder = name + "/";
    const auto inside = std::ranges::lower_bound(*names_, folder);
    return inside != names_->end() && inside->starts_with(folder);
}

}  // namespace archive
