#include "platform/PlatformCheck.h"

#include <fmt/core.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "archive/PlatformArchive.h"
#include "check/ArchiveMembers.h"
#include "check/DescriptorCheck.h"
#include "check/Explanations.h"
#include "check/HpfmCheck.h"
#include "check/MetadataCheck.h"
#include "check/XmlCheck.h"
#include "loading/WrongExtension.h"
#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "msg/OwnBudget.h"
#include "platform/FileKind.h"
#include "platform/HRQAArchive.h"
#include "platform/HTEQEmulations.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"
#include "xml/XmlReader.h"
#include "zip/ArchiveError.h"
#include "zip/ArchiveSignature.h"
#include "zip/MemberName.h"
#include "zip/Request.h"

namespace teq_platform {

namespace {

using archive::PlatformArchive;
using check::Findings;
using check::Identity;
using check::Source;

bool isMissing(const std::string& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool isMetadataArchive(const std::string& file) { return HUTFile::getExt(file) == "rqa"; }

void checkMetadata(const Source& source, const PlatformArchive::Metadata& metadata, const PlatformArchive& archive,
                   const Identity* descriptor, Findings& findings) {
    check::ArchiveMembers members(archive);
    const check::MetadataContext context{&members, metadata.isOfChild() ? HTEQEmulations::getEmuDirName() : "",
                                         descriptor};
    if (metadata.isXml())
        check::checkXmlMetadata(source, context, findings);
    else
        check::checkJsonMetadata(source, context, findings);
    findings.append(members.takeFindings());
}

void checkMemberNames(const PlatformArchive& archive, Findings& findings) {
    for (const archive::MemberInfo& member : archive.source().files())
        if (const auto fault = zip::memberNameFault(member.name, true); !fault.empty())
            findings.add(check::kUnsafeMember, archive.name(), member.name, "the name " + std::string(fault));
}

void checkMembers(const PlatformArchive& archive, bool needsJson, const Identity* descriptor, Findings& findings) {
    checkMemberNames(archive, findings);
    bool found = false;
    for (const PlatformArchive::Metadata& metadata : archive.allMetadata()) {
        found |= !metadata.isOfChild();
        if (const auto source = check::ArchiveMembers(archive).read(metadata.member, findings))
            checkMetadata(*source, metadata, archive, descriptor, findings);
    }
    const auto read = archive.metadata(HwMetadataMode::Default);
    if (found && !(needsJson && read && read->isXml())) return;
    const HEXDiagnostic missing = archive.missingMetadata(HwMetadataMode::Default);
    findings.add(check::kNoMetadata, missing.file, missing.member, missing.text);
}

void checkMetadataArchive(const PlatformArchive& archive, Findings& findings) {
    checkMemberNames(archive, findings);
    check::ArchiveMembers members(archive);
    const std::string& index = HRQAArchive::getJsonFileName();
    if (!archive.contains(index))
        findings.add(check::kNoMetadata, archive.name(), "", "the archive has no index " + index);
    else if (const auto source = members.read(index, findings))
        check::checkIndex(*source, members, findings);
}

void checkArchive(const std::string& file, bool needsJson, const Identity* descriptor, Findings& findings) {
    Findings inArchive;
    std::string name = file;  // within a request, the archive may have been opened by another path
    try {
        const PlatformArchive archive(file);
        name = archive.name();
        if (isMetadataArchive(file))
            checkMetadataArchive(archive, inArchive);
        else
            checkMembers(archive, needsJson, descriptor, inArchive);
    } catch (const zip::ArchiveError& e) {
        inArchive.add(PlatformCheck::kUnreadable, file, e.member(), e.text());
    }
    inArchive.rename(name, file);
    findings.append(std::move(inArchive));
}

void addWrongExtension(const std::string& file, Findings& findings) {
    findings.add(check::kWrongExtension, file, "", loading::wrongExtensionOf(file));
}

/// The content of the file, or nullopt after adding a finding.
std::optional<Source> textOf(const std::string& file, Findings& findings) {
    try {
        return Source{file, "", wholefile::readCounted(file, xml::kMaxDocument)};
    } catch (const HEXUserException& e) {
        if (zip::looksLikeArchive(file))  // which may be larger than a document
            addWrongExtension(file, findings);
        else
            findings.add(PlatformCheck::kUnreadable, file, "", e.what());
        return std::nullopt;
    }
}

/// The content decides only if the name does not, as in the loader.
bool isJson(const Source& source) {
    const std::string extension = HUTFile::getExt(source.file);
    if (extension == "json") return true;
    if (extension == "xml" || records::findFormat(extension)) return false;
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const std::string_view text = source.text;
    const auto first = text.find_first_not_of(" \t\r\n", text.starts_with(kMark) ? kMark.size() : 0);
    return first != std::string_view::npos && (text[first] == '{' || text[first] == '[');
}

void checkSoftware(const std::string& file, const Identity& descriptor, Findings& findings) {
    if (const auto source = textOf(file, findings))
        check::checkSoftware(*source, check::readXml(*source, "spfm"), &descriptor, findings);
}

/// A platform that names an archive several times reads it as often.
void checkNamedArchive(const check::NamedFile& named, const Identity& identity, Findings& findings) {
    const Budget::Amounts before = Budget::spent();
    checkArchive(named.path, named.isOfPartition, &identity, findings);
    if (const char* const why = Budget::refusalOfRepeating(before, named.timesMore))
        findings.add(xml::fault::kLimit, named.path, "",
                     fmt::format("the descriptor names it {} times: {}", named.timesMore + 1, why));
}

void checkPlatform(const Source& source, const check::ReadXml& document, Findings& findings) {
    const auto [identity, files] = check::checkDescriptor(source, document, findings);
    const Identity vendorOnly{identity.vendor, ""};  // an emulation has its own version
    for (const check::NamedFile& named : files) {
        using enum check::NamedFile::Kind;
        if (named.kind == software)
            checkSoftware(named.path, identity, findings);
        else
            checkNamedArchive(named, named.kind == emulation ? vendorOnly : identity, findings);
    }
}

void checkXmlFile(const Source& source, Findings& findings) {
    const check::ReadXml document = check::readXml(source);
    const std::string_view name = document.format->name;
    if (name == "zdf")
        checkPlatform(source, document, findings);
    else if (name == "hpfm")
        check::checkHpfm(source, document, {}, findings);
    else if (name == "cfa")
        check::checkXmlMetadata(source, document, {}, findings);
    else if (name == "spfm")
        check::checkSoftware(source, document, nullptr, findings);
    else
        check::reportSyntax(source, document, findings);
}

}  // namespace

HSTVector<CheckFinding> PlatformCheck::check(const std::string& file) {
    const OwnBudget budget;  // what is checked may have been loaded before
    const zip::Request request;
    Findings findings;
    if (isMissing(file)) {
        findings.add(kUnreadable, file, "", "no such file");
    } else if (fileKindOf(file) == FileKind::hardware || isMetadataArchive(file)) {
        checkArchive(file, false, nullptr, findings);
    } else if (const auto source = textOf(file, findings)) {
        if (zip::beginsAsArchive(source->text))
            addWrongExtension(file, findings);
        else if (isJson(*source))
            check::checkJsonFile(*source, findings);
        else
            checkXmlFile(*source, findings);
    }
    return findings.take();
}

std::span<const CheckExplanation> PlatformCheck::explanations() { return check::explanations(); }

const CheckExplanation* PlatformCheck::explain(const std::string& name) {
    const auto rows = explanations();
    const auto at = std::ranges::find_if(rows, [&](const CheckExplanation& row) { return row.name == name; });
    return at != rows.end() ? &*at : nullptr;
}

}  // namespace teq_platform
