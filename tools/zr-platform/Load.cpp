#include "Load.h"

#include <msg/HEXAll.h>
#include <platform/PlatformLoader.h>
#include <util/HUTFile.h>
#include <zip/HUTZip.h>

using teq_platform::PlatformLoader;
using teq_platform::PlatformParseException;

namespace {

PlatformLoader::HwMetadataMode modeOf(const Call& call) {
    const std::string mode = call.get("metadata");
    if (mode == "primary") return PlatformLoader::HwMetadataMode::PrimaryJsonOnly;
    if (mode == "xml") return PlatformLoader::HwMetadataMode::XmlOnly;
    return PlatformLoader::HwMetadataMode::Default;
}

bool isArchive(const std::string& file) { return file.ends_with(".lfa") || file.ends_with(".cfa"); }

/// Why an archive that exists has no metadata to read: it is none, or lacks the member.
Problem whyNoMetadata(const std::string& archive, const Call& call) {
    try {
        HSTVector<std::string> members;
        HUTZip::getFiles(archive, members);
    } catch (const HEXAll& e) {
        return archiveProblem(archive, e.what());
    }
    const std::string ext = HUTFile::getExt(archive);
    const std::string json = ext + ".json", xml = ext + ".xml";
    const char* const prefix = "the archive has no metadata member ";
    switch (modeOf(call)) {
        case PlatformLoader::HwMetadataMode::XmlOnly: return Problem::of(Exit::input, archive, prefix + xml);
        case PlatformLoader::HwMetadataMode::PrimaryJsonOnly:
            return Problem::of(Exit::input, archive, prefix + json + " or " + xml);
        default: return Problem::of(Exit::input, archive, prefix + json + ", alt_" + json + " or " + xml);
    }
}

/// The archive whose metadata the loader was reading when it gave up.
std::string archiveOf(const std::string& file, const std::string& hardwareFile) {
    return isArchive(file) ? file : hardwareFile;
}

/// The reason of a null result, from what the library said.
Problem whyNull(const std::string& file, const std::string& hardwareFile, const Call& call) {
    const std::vector<Problem> said = Console::take().takeProblems(file);
    const Problem first =
        said.empty() ? Problem::of(Exit::input, file, "the platform could not be loaded") : said.front();
    const std::string archive = archiveOf(file, hardwareFile);
    const bool nothingSaid = first.id == "74-60" && first.text.starts_with("Failed to parse Hardware");
    if (nothingSaid && isArchive(archive) && HUTFile::exists(archive)) return whyNoMetadata(archive, call);
    const bool noXml = first.id == "74-62" && !HUTZip::containsFile(first.file, first.member);
    return noXml ? whyNoMetadata(first.file, call) : first;
}

}  // namespace

std::shared_ptr<HTEQPlatform> tryLoad(const std::string& file, const Call& call, Problem& problem) {
    try {
        if (file.empty()) throw HEXFileNotFoundException(file);
        PlatformLoader loader(file, modeOf(call));
        const std::string hardwareFile = loader.getHardwarePlatformFile();
        if (auto platform = loader.load()) return platform;
        problem = whyNull(file, hardwareFile, call);
    } catch (const HEXFileNotFoundException&) {
        problem = Problem::of(Exit::input, file, "no such file");
    } catch (const PlatformParseException& e) {
        const std::vector<Problem> said = Console::take().takeProblems(file);
        problem = said.empty() ? Problem::of(Exit::input, file, e.what()) : said.front();
    }
    return nullptr;
}

std::shared_ptr<HTEQPlatform> loaded(const std::string& file, const Call& call) {
    Problem problem;
    auto platform = tryLoad(file, call, problem);
    if (!platform) throw problem;
    return platform;
}
