#include "platform/PlatformExplanation.h"

#include <algorithm>
#include <string_view>

#include "check/MessageNotes.h"
#include "msg/MsgCatalogue.h"
#include "platform/PlatformCheck.h"

namespace teq_platform {
namespace {

std::string indented(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        result += "    " + std::string(text.substr(0, end)) + "\n";
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

std::string samplesOf(const CheckExplanation& row) {
    return std::string("\nbad, ") + row.file + ":\n\n" + indented(row.bad) + "\ngood:\n\n" + indented(row.good);
}

std::string described(const CheckExplanation& row) {
    const bool isError = row.severity == CheckFinding::Severity::error;
    return std::string(row.name) + " (" + (isError ? "error" : "warning") + ")\n\n" + row.meaning +
           "\n\nWhat to do: " + row.advice + "\n" + samplesOf(row);
}

const char* severityOf(MsgMask mask) {
    switch (mask) {
        case MsgMask::info: return "information";
        case MsgMask::warning: return "warning";
        case MsgMask::critical: return "critical";
        case MsgMask::error: return "error";
    }
    return "";
}

/// Empty for an unknown id.
std::string describedMessage(std::string_view id) {
    std::string text;
    for (const MsgRow& row : kMsgCatalogue)
        if (shortMessageId(row.id) == id)
            text += std::string(row.id) + " (" + severityOf(row.mask) + "): " + std::string(row.text) + "\n";
    const auto notes = check::messageNotes();
    const auto note = std::ranges::find(notes, id, &check::MessageNote::id);
    if (text.empty() || note == notes.end()) return text;
    text += std::string("\n") + note->meaning + "\n\nWhat to do: " + note->advice + "\n";
    const CheckExplanation* row = note->check ? PlatformCheck::explain(note->check) : nullptr;
    return row ? text + "\nSamples, from [" + row->name + "]\n" + samplesOf(*row) : text;
}

}  // namespace

std::string PlatformExplanation::text(const std::string& name) {
    const CheckExplanation* row = PlatformCheck::explain(name);
    return row ? described(*row) : describedMessage(shortMessageId(name));
}

HSTVector<std::string> PlatformExplanation::names() {
    HSTVector<std::string> names;
    for (const CheckExplanation& row : PlatformCheck::explanations()) names.emplace_back(row.name);
    for (const MsgRow& row : kMsgCatalogue) names.emplace_back(shortMessageId(row.id));
    return names;
}

}  // namespace teq_platform
