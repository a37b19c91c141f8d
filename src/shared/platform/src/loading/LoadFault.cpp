#include "loading/LoadFault.h"

#include <charconv>
#include <new>
#include <string_view>

#include "archive/PlatformMembers.h"
#include "archive/Request.h"
#include "hardware/PlatformFiles.h"
#include "msg/Capture.h"
#include "msg/ShortId.h"
#include "platform/HTEQEmulations.h"
#include "util/HUTFile.h"

namespace loading {
namespace {

using teq_platform::HwMetadataMode;

std::uint64_t numberOf(std::string_view text) {
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Takes a " (column N)" from the end of a text.
std::uint64_t takeColumn(std::string& text) {
    constexpr std::string_view kOpen = " (column ";
    const auto at = text.rfind(kOpen);
    if (at == std::string::npos || text.back() != ')') return 0;
    const std::string number = text.substr(at + kOpen.size(), text.size() - 1 - at - kOpen.size());
    if (!isNumber(number)) return 0;
    text.erase(at);
    return numberOf(number);
}

/// What stands behind "Line number:N. " on a line of what was printed; empty when there is no such line.
std::string faultOnLine(const std::string& printed) {
    constexpr std::string_view kLine = "Line number:";
    const auto at = printed.find(kLine);
    const auto point = at == std::string::npos ? at : printed.find(". ", at);
    if (point == std::string::npos || !isNumber(printed.substr(at + kLine.size(), point - at - kLine.size())))
        return "";
    return printed.substr(point + 2, printed.find('\n', point) - (point + 2));
}

/// The fault of a file that the XML readers tell: the line is in the message, the text was printed.
FileProblem xmlProblem(const ComMsgMgrInstance& message, const std::string& printed) {
    FileProblem problem{
        .file = message.args.at(0), .line = numberOf(message.args.at(1)), .text = faultOnLine(printed)};
    if (problem.text.empty()) problem.text = message.text;
    problem.column = takeColumn(problem.text);
    return problem;
}

/// Takes what stands up to the last "(LINE): " from a text.
std::uint64_t takeLine(std::string& text) {
    constexpr std::string_view kClose = "): ";
    for (auto close = text.rfind(kClose); close != std::string::npos && close > 0;
         close = text.rfind(kClose, close - 1)) {
        const auto open = text.rfind('(', close);
        if (open == std::string::npos) return 0;
        const std::string number = text.substr(open + 1, close - open - 1);
        if (!isNumber(number)) continue;
        text.erase(0, close + kClose.size());
        return numberOf(number);
    }
    return 0;
}

/// The fault of an archive's member: member, archive and "member(line): what is wrong".
FileProblem memberProblem(const ComMsgMgrInstance& message) {
    FileProblem problem{.file = message.args.at(1), .member = message.args.at(0), .text = message.args.at(2)};
    problem.line = takeLine(problem.text);
    problem.column = takeColumn(problem.text);
    return problem;
}

/// The fault of an archive's XML member: what is wrong, "archive/member" and the line.
FileProblem xmlMemberProblem(const ComMsgMgrInstance& message) {
    FileProblem problem{.line = numberOf(message.args.at(2)), .text = message.args.at(0)};
    problem.column = takeColumn(problem.text);
    const std::string& path = message.args.at(1);
    std::size_t slash = path.rfind('/');
    const std::string emulation = "/" + HTEQEmulations::getEmuDirName();
    if (path.substr(0, slash).ends_with(emulation)) slash -= emulation.size();
    problem.file = path.substr(0, slash);
    problem.member = path.substr(slash + 1);
    return problem;
}

FileProblem problemOf(const ComMsgMgrInstance& message, const std::string& file, const std::string& printed) {
    const std::string_view id = msg::shortId(message.id);
    FileProblem problem{.file = file, .text = message.text};
    if (id == "74-9" || id == "74-51")
        problem = xmlProblem(message, printed);
    else if (id == "74-62")
        problem = xmlMemberProblem(message);
    else if (id == "74-64" || id == "74-65")
        problem = memberProblem(message);
    else if (id == "74-60" && !message.args.empty())
        problem.text = message.args.back();
    problem.id = id;
    return problem;
}

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

/// Readers tell any exception as the fault of a file.
void checkMemory(const msg::Capture& said) {
    for (const ComMsgMgrInstance& message : said.messages())
        if (!message.args.empty() && message.args.back() == std::bad_alloc().what()) throw std::bad_alloc();
}

}  // namespace

FileProblem readFault(const std::string& file, const msg::Capture& said, const std::string& otherwise) {
    checkMemory(said);
    const auto& messages = said.messages();
    if (messages.empty()) return {.file = file, .text = otherwise};
    // The loader's own message only repeats that something failed, unless it is the only one.
    for (const ComMsgMgrInstance& message : messages)
        if (msg::shortId(message.id) != "74-60") return problemOf(message, file, said.printed());
    return problemOf(messages.front(), file, said.printed());
}

FileProblem loadFault(const std::string& file, const std::string& hardwareFile, HwMetadataMode mode,
                      const msg::Capture& said) {
    const FileProblem first = readFault(file, said, "the platform could not be loaded");
    const std::string archive = isArchive(file) ? file : hardwareFile;
    const bool nothingSaid = first.id == "74-60" && first.text.starts_with("Failed to parse Hardware");
    if (nothingSaid && isArchive(archive) && HUTFile::exists(archive)) return whyNoMetadata(archive, mode);
    const bool noXml = first.id == "74-62" && !hardware::hasMember(first.file, first.member);
    return noXml ? whyNoMetadata(first.file, mode) : first;
}

}  // namespace loading
