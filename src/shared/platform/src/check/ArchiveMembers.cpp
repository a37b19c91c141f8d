#include "check/ArchiveMembers.h"

#include "check/HpfmCheck.h"
#include "check/MetadataCheck.h"
#include "check/XmlCheck.h"
#include "readers/ArchiveMember.h"
#include "text/HSTStringUtils.h"
#include "zip/ArchiveError.h"

namespace check {

namespace {

bool isType(const std::string& type, const char* name) { return HSTStringUtils::iequals(type, name); }

}  // namespace

std::optional<ArchiveMembers::Fault> ArchiveMembers::checkListed(const std::string& type, const std::string& name,
                                                                 const std::string& directory) {
    // Emulation targets have their own rule for names, and are relative to the archive's top level.
    const bool isEmulation = isType(type, "EMU_XML") || isType(type, "EMU_JSON");
    const std::string member = isEmulation         ? std::string(readers::withoutLeadingDot(name))
                               : directory.empty() ? name
                                                   : directory + "/" + name;
    if (archive_.lists(member)) {
        if (checked_.insert(member).second) checkContent_(type, member);
        return std::nullopt;
    }
    const std::string text = "the archive has no member \"" + HSTStringUtils::excerpt(member, kMaxPathText) + "\"";
    if (isEmulation) return Fault{kMissingEmulationMember, text + ", which readers of the platform open"};
    return Fault{kMissingMember, text};
}

void ArchiveMembers::checkContent_(const std::string& type, const std::string& member) {
    const bool isHpfm = isType(type, "HPFM"), isXml = isType(type, "EMU_XML"), isJson = isType(type, "EMU_JSON");
    const bool isExtension = isType(type, "META_JSON") || isType(type, "EXT_META_JSON") ||
                             isType(type, "SEMANTIC_LABEL");  // of which only the syntax is checked
    if (isType(type, "TILPRJ")) return checkProject_(member);
    if (!(isHpfm || isXml || isJson || isExtension) || !archive_.contains(member)) return;
    const std::optional<Source> source = read(member, findings_);
    if (!source) return;
    if (isHpfm) validHpfm_ |= checkHpfm(*source, known_, findings_);
    if (isXml) checkSyntax(*source, *records::findFormat("emu"), findings_);
    if (isJson) checkEmulationJson(*source, this, findings_);
    if (isExtension && !source->text.empty()) checkAnyJson(*source, findings_);
}

/// The project of the tile array is an archive of its own, of which two members are read.
void ArchiveMembers::checkProject_(const std::string& member) {
    try {
        const auto project = archive_.source().openNested(member);
        if (!project) return;
        for (const char* file : {"tilarchive/arch/til_partition.json", "tilarchive/morwen/tilprj_meta_data.json"})
            if (auto text = project->read(file))
                checkAnyJson({archive_.name(), member + "!" + file, std::move(*text)}, findings_);
    } catch (const zip::ArchiveError& e) {
        findings_.add(kDamagedMember, archive_.name(), member, e.text());
    }
}

std::optional<Source> ArchiveMembers::read(const std::string& member, Findings& findings) const {
    try {
        if (auto text = archive_.text(member)) return Source{archive_.name(), member, std::move(*text)};
    } catch (const zip::ArchiveError& e) {
        findings.add(kDamagedMember, archive_.name(), member, e.text());
    }
    return std::nullopt;
}

}  // namespace check
