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

Explanation explanationOf(const CheckExplanation& row) {
    const bool isError = row.severity == CheckFinding::Severity::error;
    return {.name = row.name,
            .severity = isError ? "error" : "warning",
            .meaning = row.meaning,
            .advice = row.advice,
            .file = row.file,
            .bad = row.bad,
            .good = row.good};
}

/// The explanation of a message of that id. Several messages may have it: their texts are joined.
std::optional<Explanation> messageOf(std::string_view id) {
    std::optional<Explanation> found;
    for (const MsgRow& row : kMsgCatalogue) {
        if (shortMessageId(row.id) != id) continue;
        if (!found) found = Explanation{.name = std::string(id), .severity = nameOf(row.mask)};
        found->text += (found->text.empty() ? "" : "\n") + std::string(row.text);
    }
    const auto notes = check::messageNotes();
    const auto note = std::ranges::find(notes, id, &check::MessageNote::id);
    if (!found || note == notes.end()) return found;
    found->meaning = note->meaning;
    found->advice = note->advice;
    if (const CheckExplanation* const row = note->check ? PlatformCheck::explain(note->check) : nullptr) {
        found->file = row->file;
        found->bad = row->bad;
        found->good = row->good;
    }
    return found;
}

}  // namespace

std::optional<Explanation> PlatformExplanation::find(const std::string& name) {
    if (const CheckExplanation* const row = PlatformCheck::explain(name)) return explanationOf(*row);
    return messageOf(shortMessageId(name));
}

HSTVector<Explanation> PlatformExplanation::all() {
    HSTVector<Explanation> all;
    for (const std::string& name : names())
        if (auto found = find(name)) all.push_back(std::move(*found));
    return all;
}

std::string PlatformExplanation::text(const std::string& name) {
    const auto row = find(name);
    if (!row) return {};
    std::string text =
        row->name + " (" + row->severity + ")\n\n" + row->meaning + "\n\nWhat to do: " + row->advice + "\n";
    if (!row->text.empty()) text += "\nIts text, with {0}, {1} in place of values:\n\n" + indented(row->text);
    if (!row->bad.empty())
        text += "\nbad, " + row->file + ":\n\n" + indented(row->bad) + "\ngood:\n\n" + indented(row->good);
    return text;
}

HSTVector<std::string> PlatformExplanation::names() {
    HSTVector<std::string> names;
    for (const CheckExplanation& row : PlatformCheck::explanations()) names.emplace_back(row.name);
    for (const MsgRow& row : kMsgCatalogue) {
        std::string id(shortMessageId(row.id));
        if (std::ranges::find(names, id) == names.end()) names.push_back(std::move(id));
    }
    return names;
}

}  // namespace teq_platform
