// Metadata archives.
#include <platform/DerivedFiles.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Output.h"
#include "Text.h"

namespace requests = teq_platform::requests;

namespace {

[[noreturn]] void wrongUse(const std::string& text) {
    throw teq_platform::RequestError(teq_platform::FailureKind::wrongUse, {.text = text});
}

requests::RqaArchive requestOf(const Call& call) {
    requests::RqaArchive request{.archive = call["ARCHIVE"],
                                 .files = {},
                                 .instPath = call.get("inst-path"),
                                 .drBdInstName = call.get("dr-bd-inst-name"),
                                 .pfmName = call.get("pfm-name"),
                                 .hierName = call.get("hier-name"),
                                 .mayReplace = call.has("force"),
                                 .dryRun = call.has("dry-run")};
    for (const std::string& text : call.all("[ARG...]")) request.files.push_back(requests::namedFile(text));
    return request;
}

void create(const Call& call) {
    requests::RqaArchive request = requestOf(call);
    const WrittenFiles written(call, {request.archive});
    writeTo(request.archive, request.mayReplace, "rqa", [&](const std::string& path, bool mayReplace) {
        request.archive = path;
        request.mayReplace = mayReplace;
        requests::createRqa(request);
    });
    written.report();
}

void add(const Call& call) {
    const requests::RqaArchive request = requestOf(call);
    if (request.files.empty()) wrongUse("expected rqa add ARCHIVE TYPE=MEMBER=FILE...");
    const WrittenFiles written(call, {request.archive});
    requests::addToRqa(request);
    written.report();
}

const char* stateName(requests::ListedFile::State state) {
    using State = requests::ListedFile::State;
    return state == State::file ? "file" : state == State::folder ? "folder" : "missing";
}

void list(const Call& call) {
    const std::string& archive = call["ARCHIVE"];
    if (!call.all("[ARG...]").empty()) wrongUse("expected rqa list ARCHIVE");
    if (call.has("json")) return Console::take().data(HSTStringUtils::printableJson(requests::rqaIndex(archive)));
    const requests::RqaContent content = requests::rqaContent(archive);
    Records records("rqa-file");
    std::vector<std::vector<std::string>> rows;
    for (const requests::ListedFile& file : content.files) {
        const char* const state = stateName(file.state);
        records.add({{"type", file.type}, {"name", file.member}, {"state", state}, {"size", file.size}});
        rows.push_back({file.type, file.member, state, std::to_string(file.size)});
    }
    for (const std::string& problem : content.problems) {
        const HEXDiagnostic diagnostic{.file = archive, .member = "rqa.json", .text = problem};
        Console::take().print(diagnostic, "");
    }
    if (call.has("ndjson")) return records.print(call, {});
    Text text(false);
    text.heading(archive);
    text.line("instance path", content.instPath);
    text.line("block design instance", content.drBdInstName);
    text.line("platform", content.pfmName);
    text.line("hierarchy", content.hierName);
    text.rows("files", {"type", "name", "state", ">size"}, rows);
    Console::take().data(text.str());
}

void extract(const Call& call) {
    const auto& arguments = call.all("[ARG...]");
    if (arguments.size() != 2) wrongUse("expected rqa extract ARCHIVE TYPE DIR");
    const std::string path = requests::extractFromRqa(call["ARCHIVE"], arguments[0], arguments[1], call.has("force"));
    if (!Records::areAsked(call)) return Console::take().data(HSTStringUtils::printable(path) + "\n");
    Records::printOne(call, "extracted-file",
                      {{"archive", call["ARCHIVE"]}, {"name", arguments[0]}, {"destination", path}});
}

constexpr struct {
    const char* name;
    void (*run)(const Call& call);
} kActions[] = {{"create", create}, {"list", list}, {"add", add}, {"extract", extract}};

}  // namespace

int runRqa(const Call& call) {
    for (const auto& [name, run] : kActions)
        if (call["ACTION"] == name) return run(call), 0;
    wrongUse("'" + HSTStringUtils::printable(call["ACTION"]) + "' is not an action: create, list, add, extract");
}
