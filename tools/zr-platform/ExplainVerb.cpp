#include <algorithm>

#include <msg/MsgCatalogue.h>
#include <platform/PlatformCheck.h>

#include "Console.h"
#include "MessageNotes.h"
#include "Nearest.h"

using teq_platform::CheckExplanation;
using teq_platform::CheckFinding;
using teq_platform::PlatformCheck;

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

/// "74-60" of "@74-60@%s", of "@74-60" and of itself.
std::string_view bareId(std::string_view id) {
    if (id.starts_with('@')) id.remove_prefix(1);
    return id.substr(0, id.find('@'));
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

/// Empty for an id that is none.
std::string describedMessage(std::string_view id) {
    std::string text;
    for (const MsgRow& row : kMsgCatalogue)
        if (bareId(row.id) == id)
            text += std::string(row.id) + " (" + severityOf(row.mask) + "): " + std::string(row.text) + "\n";
    const auto notes = messageNotes();
    const auto note = std::ranges::find(notes, id, &MessageNote::id);
    if (text.empty() || note == notes.end()) return text;
    text += std::string("\n") + note->meaning + "\n\nWhat to do: " + note->advice + "\n";
    const CheckExplanation* row = note->check ? PlatformCheck::explain(note->check) : nullptr;
    return row ? text + "\nSamples, as of [" + row->name + "]\n" + samplesOf(*row) : text;
}

}  // namespace

int runExplain(const Call& call) {
    const std::string& name = call["NAME"];
    const CheckExplanation* row = PlatformCheck::explain(name);
    const std::string text = row ? described(*row) : describedMessage(bareId(name));
    if (text.empty()) {
        std::vector<std::string> known;
        for (const CheckExplanation& explanation : PlatformCheck::explanations())
            known.emplace_back(explanation.name);
        for (const MsgRow& message : kMsgCatalogue) known.emplace_back(bareId(message.id));
        throw Problem::of(Exit::no, "", "there is no finding or message '" + name + "'" + nearest(name, known));
    }
    Console::take().data(text);
    return 0;
}
