#include "loading/LoadFault.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "archive/PlatformMembers.h"
#include "archive/Request.h"
#include "hardware/PlatformFiles.h"
#include "msg/Capture.h"
#include "util/HUTFile.h"

namespace loading {
namespace {

using teq_platform::HwMetadataMode;

bool isArchive(const std::string& file) { return file.ends_with(".lfa") || file.ends_with(".cfa"); }

/// Why an archive that exists has no metadata to read: it is none, or lacks the member.
FileProblem whyNoMetadata(const std::string& file, HwMetadataMode mode) {
    using archive::PlatformMember;
    try {
        archive::open(file);
    } catch (const HEXFileFault& e) {
        return e.problem();
    }
    const std::string ext = HUTFile::getExt(file);
    const auto name = [&ext](PlatformMember member) { return archive::platformMember(member, ext); };
    std::string names = name(PlatformMember::xml);
    if (mode == HwMetadataMode::PrimaryJsonOnly) names = name(PlatformMember::json) + " or " + names;
    if (mode == HwMetadataMode::Default)
        names = name(PlatformMember::json) + ", " + name(PlatformMember::altJson) + " or " + names;
    return {.file = file, .text = "the archive has no metadata member " + names};
}

constexpr std::string_view kNotLoaded = "74-60";

}  // namespace

FileProblem readFault(const std::string& file, const msg::Capture& said, const std::string& otherwise) {
    const auto& problems = said.problems();
    // Readers tell any exception as the fault of a file.
    for (const FileProblem& problem : problems)
        if (problem.text == std::bad_alloc().what()) throw std::bad_alloc();
    // The loader's own message only repeats that something failed, unless it is the only one.
    const auto first = std::ranges::find_if(problems, [](const auto& problem) { return problem.id != kNotLoaded; });
    FileProblem result{.text = otherwise};
    if (!problems.empty()) result = first != problems.end() ? *first : problems.front();
    if (result.file.empty()) result.file = file;
    return result;
}

FileProblem loadFault(const std::string& file, const std::string& hardwareFile, HwMetadataMode mode,
                      const msg::Capture& said) {
    const FileProblem first = readFault(file, said, "the platform could not be loaded");
    const std::string archive = isArchive(file) ? file : hardwareFile;
    const bool nothingSaid = first.id == kNotLoaded && first.text.starts_with("Failed to parse Hardware");
    if (nothingSaid && isArchive(archive) && HUTFile::exists(archive)) return whyNoMetadata(archive, mode);
    const bool noXml = first.id == "74-62" && !hardware::hasMember(first.file, first.member);
    return noXml ? whyNoMetadata(first.file, mode) : first;
}

}  // namespace loading
