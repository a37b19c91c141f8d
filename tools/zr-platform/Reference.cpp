#include "Reference.h"

#include <string_view>

#include <platform/FileTypes.h>
#include <platform/PlatformCheck.h>
#include <platform/SupportPolicy.h>

#include "Verbs.h"

namespace {

std::string synopsis(const Verb& verb) {
    std::string line = std::string("zr-platform ") + verb.name;
    for (const Positional& positional : verb.positionals) line += std::string(" ") + positional.name;
    for (const Option& option : verb.options) {
        line += std::string(" [--") + option.name;
        if (option.choices) line += std::string("=") + option.choices;
        line += "]";
    }
    return line;
}

std::string markdown() {
    std::string page = std::string(
        "# zr-platform\n\nGenerated from the tool's table of verbs by `./dev docs`.\n\nStandard "
        "output holds data only; messages and errors go to standard error.\n[exit-codes.md](exit-codes.md) "
        "lists the exit codes.\n\nOptions of every verb:\n\n");
    for (const Option& option : commonOptions())
        page += std::string("- `--") + option.name + (option.choices ? std::string("=") + option.choices : "") +
                "`: " + option.help + "\n";
    for (const Verb& verb : verbs()) {
        page += std::string("\n## ") + verb.name + "\n\n" + verb.summary + ".\n\n    " + synopsis(verb) + "\n\n" +
                verb.details + "\n\n";
        for (const Positional& positional : verb.positionals)
            page += std::string("- `") + positional.name + "`: " + positional.help + "\n";
        for (const Option& option : verb.options)
            page += std::string("- `--") + option.name + "`: " + option.help + "\n";
        page += std::string("\nExample: `zr-platform ") + verb.name + " " + verb.example + "`\n";
    }
    return page;
}

/// A text as roff, with dashes and backslashes escaped.
std::string roff(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '-' || c == '\\') result += '\\';
        result += c;
    }
    return result;
}

std::string man() {
    std::string page =
        ".TH ZR\\-PLATFORM 1 \"\" \"zr_platform " ZR_VERSION
        "\"\n.SH NAME\nzr\\-platform \\- inspects, checks and packs FPGA acceleration platforms\n.SH SYNOPSIS\n";
    for (const Verb& verb : verbs()) page += roff(synopsis(verb)) + "\n.br\n";
    page += ".SH VERBS\n";
    for (const Verb& verb : verbs()) {
        page += ".SS " + roff(verb.name) + "\n" + roff(verb.summary) + ". " + roff(verb.details) + "\n";
        for (const Positional& positional : verb.positionals)
            page += ".TP\n.I " + roff(positional.name) + "\n" + roff(positional.help) + "\n";
        for (const Option& option : verb.options)
            page += ".TP\n.B " + roff(std::string("--") + option.name) + "\n" + roff(option.help) + "\n";
        page += ".PP\nExample: " + roff(std::string("zr-platform ") + verb.name + " " + verb.example) + "\n";
    }
    page += ".SH OPTIONS OF EVERY VERB\n";
    for (const Option& option : commonOptions())
        page += ".TP\n.B " + roff(std::string("--") + option.name) + "\n" + roff(option.help) + "\n";
    return page + ".SH EXIT STATUS\n" + roff(kExitCodes) + "\n";
}

std::string codeBlock(std::string_view text) {
    return "```\n" + std::string(text) + (text.ends_with('\n') ? "" : "\n") + "```\n";
}

std::string findings() {
    using Severity = teq_platform::CheckFinding::Severity;
    std::string page =
        "# Findings of `validate`\n\nGenerated from the library's own table by `./dev docs`; `zr-platform explain "
        "NAME` prints one of them.\n\nA finding is a line `FILE:LINE:COLUMN: error: ELEMENT: what is there, what is "
        "allowed [NAME]`, or, in a member of an\narchive, `ARCHIVE!MEMBER:LINE:COLUMN: ...`; `--json` and `--ndjson` "
        "print the same as records. Names are stable,\ntexts are not. At most 1000 findings are reported per "
        "document. Programs use `platform/PlatformCheck.h`.\n\nA sample is the content of the file named, or a list "
        "of files and archive members: `== file`,\n`== archive!member`, each followed by its text.\n";
    for (const Severity severity : {Severity::error, Severity::warning}) {
        page += severity == Severity::error ? "\n# Errors\n" : "\n# Warnings\n\nLegal, but probably a mistake.\n";
        for (const auto& row : teq_platform::PlatformCheck::explanations())
            if (row.severity == severity)
                page += std::string("\n## ") + row.name + "\n\n" + row.meaning + " " + row.advice + "\n\nBad, `" +
                        row.file + "`:\n\n" + codeBlock(row.bad) + "\nGood:\n\n" + codeBlock(row.good);
    }
    return page;
}

/// The rules that decide a question.
std::string policyTable(teq::platform::PolicyQuestion question) {
    std::string table = "\n| rule | applies if | verdict | sentence |\n|---|---|---|---|\n";
    for (const auto& rule : teq::platform::SupportPolicy::rules()) {
        if (rule.question != question) continue;
        table += std::string("| ") + rule.name + " | " + rule.condition + " | " +
                 (rule.isSupported ? "supported" : "not supported") + " | " + (rule.sentence ? rule.sentence : "") +
                 " |\n";
    }
    return table;
}

std::string policy() {
    using enum teq::platform::PolicyQuestion;
    return "# The rules of the support policy\n\nGenerated from the library's own table by `./dev docs`; "
           "[policy.md](policy.md) explains it.\n\nThe first rule that applies decides. In a sentence, `{name}` is "
           "the platform's file name, `{path}` its path,\n`{platform}` and `{tool}` are the two versions, and "
           "`{entry}` is the reason of the exception list's entry.\n\n## May the tool use the platform\n" +
           policyTable(warranty) + "\n## May it use it as a platform before synthesis\n" + policyTable(preSynth) +
           "\n## May it open the hardware platform\n" + policyTable(open);
}

std::string fileTypes() {
    std::string page =
        "# File types\n\nGenerated from the library's own table by `./dev docs`.\n\nThe metadata of an archive lists "
        "files by "
        "type: `\"files\": [{\"type\": \"HPFM\", \"name\": \"hpfm/u77.hpfm\"}]`. Letter case does not matter. "
        "The\nlast file of a "
        "type counts when one is asked for by type, as in `zr-platform extract u77.lfa HPFM out.hpfm`.\n`zr-platform "
        "set-file` "
        "accepts these types, and types that the archive lists already. An archive may list others: the library "
        "keeps them.\n\n"
        "| type | what the file is | who reads it |\n|---|---|---|\n";
    for (const auto& row : teq_platform::requests::fileTypes())
        page += std::string("| `") + row.type + "` | " + row.meaning + " | " + row.reader + " |\n";
    return page;
}

constexpr struct {
    const char* name;
    std::string (*text)();
} kForms[] = {
    {"man", man}, {"markdown", markdown}, {"findings", findings}, {"policy", policy}, {"file-types", fileTypes},
};

}  // namespace

std::vector<std::string> referenceForms() {
    std::vector<std::string> names;
    for (const auto& form : kForms) names.emplace_back(form.name);
    return names;
}

std::string referenceAs(const std::string& form) {
    for (const auto& [name, text] : kForms)
        if (form == name) return text();
    return {};
}
