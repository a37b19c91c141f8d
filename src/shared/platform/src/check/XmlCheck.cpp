#include "check/XmlCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "platform/HTEQHpfmUtl.h"
#include "readers/Saturated.h"
#include "records/TEQHpfmLMX.h"
#include "records/TEQPlatformLMX.h"
#include "util/HUTFile.h"
#include "xml/XmlPlaces.h"

namespace check {

namespace {

/// A valid document whose elements get findings.
template <class R>
class Valid {
public:
    Valid(const xml::Document<R>& format, const Source& source)
        : format_(format), source_(source), record(xml::read(format, source.text, source.file)) {}

    void add(const char* name, const char* element, const void* at, std::string text) {
        const auto number = xml::numberOf(format_, &record, element, at);
        found_.push_back({number.value_or(0), name, element, std::move(text)});
    }

    void report(Findings& findings) {
        std::ranges::stable_sort(found_, {}, &Found::number);
        std::vector<std::size_t> numbers;
        for (const Found& found : found_) numbers.push_back(found.number);
        const std::vector<xml::Place> places = xml::placesOf(source_.text, source_.file, numbers);
        for (std::size_t i = 0; i < found_.size(); ++i) {
            CheckFinding finding;
            finding.file = source_.file;
            finding.member = source_.member;
            finding.line = places[i].line;
            finding.column = places[i].column;
            finding.name = found_[i].name;
            finding.element = found_[i].element;
            finding.text = std::move(found_[i].text);
            findings.add(std::move(finding));
        }
    }

private:
    struct Found {
        std::size_t number;
        const char* name;
        const char* element;
        std::string text;
    };
    const xml::Document<R>& format_;
    const Source& source_;
    std::vector<Found> found_;

public:
    const R record;
};

using Descriptor = Valid<TEQPlatform::Platform>;

/// Keeps a file that the descriptor names, as its reader finds it.
template <class Element>
void nameFile(Descriptor& document, const Source& source, const char* element, const Element& record,
              NamedFile::Kind kind, std::vector<NamedFile>& files) {
    const std::string separator = HUTFile::getDirSeparator();
    std::string path =
        HUTFile::getParent(source.file) + separator + record.path.get() + separator + record.name.get();
    if (kind != NamedFile::Kind::software) path = HUTFile::getCanonicalName(path);
    if (!HUTFile::exists(path)) {
        document.add(kMissingFile, element, &record, "there is no file \"" + xml::shown(path) + "\"");
        return;
    }
    const bool known =
        std::ranges::any_of(files, [&](const NamedFile& file) { return file.path == path; });
    if (!known) files.push_back({kind, std::move(path)});
}

void checkDefaultPartition(Descriptor& document) {
    const auto& platforms = document.record.hardwarePlatforms;
    const auto* partitioned = std::get_if<TEQPlatform::Partitioned>(&platforms.content);
    if (!partitioned) return;
    const auto wanted = saturated<unsigned>(platforms.defaultRP.get().value());
    for (const auto& partition : partitioned->reconfigurablePartitions)
        if (saturated<unsigned>(partition.id.get().value()) == wanted) return;
    document.add(kUnknownDefaultPartition, "hardwarePlatforms", &platforms,
                 platforms.defaultRP.isSet()
                     ? fmt::format("no partition has the id {} that defaultRP names", wanted)
                     : "no partition has the id 0, which is the default one's without defaultRP");
}

/// `Content` is one hardware file with at most one for emulation.
template <class Content>
void nameHardware(Descriptor& document, const Source& source, const Content& content, std::vector<NamedFile>& files) {
    using enum NamedFile::Kind;
    nameFile(document, source, "hardwarePlatform", content.hardwarePlatform, hardware, files);
    if (content.hwEmuPlatform)
        nameFile(document, source, "hwEmuPlatform", *content.hwEmuPlatform, emulation, files);
}

void nameFiles(Descriptor& document, const Source& source, std::vector<NamedFile>& files) {
    using enum NamedFile::Kind;
    const auto& platforms = document.record.hardwarePlatforms;
    if (const auto* direct = std::get_if<TEQPlatform::AnonHardwarePlatform>(&platforms.content)) {
        nameHardware(document, source, *direct, files);
    } else if (const auto* only = std::get_if<TEQPlatform::HwEmuOnly>(&platforms.content)) {
        nameFile(document, source, "hwEmuPlatform", only->hwEmuPlatform, hardware, files);
    } else {
        for (const auto& partition : std::get<TEQPlatform::Partitioned>(platforms.content).reconfigurablePartitions) {
            using Direct = TEQPlatform::ReconfigurablePartitionAnonHardwarePlatform;
            if (const auto* both = std::get_if<Direct>(&partition.content))
                nameHardware(document, source, *both, files);
            else
                nameFile(document, source, "hwEmuPlatform",
                         std::get<TEQPlatform::ReconfigurablePartitionHwEmu>(partition.content).hwEmuPlatform,
                         emulation, files);
        }
    }
    nameFile(document, source, "softwarePlatform", document.record.softwarePlatforms.softwarePlatform, software, files);
}

void checkDescriptor(const Source& source, Findings& findings, std::vector<NamedFile>* files) {
    Descriptor document(TEQPlatform::kDocument, source);
    checkDefaultPartition(document);
    if (files) nameFiles(document, source, *files);
    document.report(findings);
}

void checkHpfm(const Source& source, Findings& findings) {
    Valid<WELHardwarePlatform::Repository> document(WELHardwarePlatform::kDocument, source);
    const auto& component = document.record.component;
    std::set<unsigned> ids;
    for (const auto& clock : component.platformInfo.systemClocks.clocks)
        if (clock.id.isSet() && !ids.insert(clock.id.get()).second)
            document.add(kRepeatedClockId, "clock", &clock,
                         fmt::format("a clock before has the id {} too; the last one answers", clock.id.get()));
    for (const auto& interface : component.busInterfaces)
        if (interface.componentRef.get() == HTEQHpfmUtl::HBM_MEMORY_SUBSYSTEM &&
            HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface))
            document.add(kPartlyDefaultHbm, "busInterface", &interface,
                         "only some of the banks that a linker may assign are \"preferred\"");
    document.report(findings);
}

}  // namespace

bool checkXml(const Source& source, const records::FormatRow& format, Findings& findings,
              std::vector<NamedFile>* files) {
    const xml::Violations violations = format.check(source.text, source.file, kMostOfDocument);
    for (const xml::Violation& violation : violations) {
        CheckFinding finding;
        finding.file = source.file;
        finding.member = source.member;
        finding.line = violation.place.line;
        finding.column = violation.place.column;
        finding.name = violation.name;
        finding.element = violation.element;
        finding.text = violation.text;
        findings.add(std::move(finding));
    }
    if (!violations.empty()) return false;
    if (format.format == &TEQPlatform::kDocument) checkDescriptor(source, findings, files);
    if (format.format == &WELHardwarePlatform::kDocument) checkHpfm(source, findings);
    return true;
}

const records::FormatRow& formatOf(const Source& source) {
    const std::string name = source.file.substr(source.file.rfind('/') + 1);
    const std::string extension = HUTFile::getExt(source.file);
    if (name == "hw_emu.xml") return *records::findFormat("emu");
    if (const records::FormatRow* row = records::findFormat(extension)) return *row;
    const records::FormatRow* best = nullptr;
    std::uint64_t furthest = 0;
    for (const records::FormatRow& row : records::formats()) {
        const xml::Violations violations = row.check(source.text, source.file, 1);
        if (violations.empty()) return row;
        if (best && violations.front().place.offset <= furthest) continue;
        best = &row;
        furthest = violations.front().place.offset;
    }
    return *best;
}

}  // namespace check
