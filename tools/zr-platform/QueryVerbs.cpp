// Questions on a platform's document: query, keys, doc, dict, transform.
#include <platform/PlatformQueries.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>
#include <util/HUTEnv.h>

#include "Console.h"
#include "Load.h"
#include "Text.h"

namespace requests = teq_platform::requests;
using requests::Questions;
using Kind = Questions::Answer::Kind;

namespace {

/// A list, a name or an answer that may be printed on a terminal.
std::string shown(const std::string& text) {
    return Console::take().isInteractive() ? HSTStringUtils::printable(text) : text;
}

const char* kindName(Kind kind) { return kind == Kind::value ? "value" : kind == Kind::object ? "object" : "list"; }

/// Calls `ask` for each path; a path that selects nothing is a problem of `records`, and its exit code is returned.
template <class Ask>
Exit forEach(const std::vector<std::string>& paths, const std::string& file, Records& records, const Ask& ask) {
    Exit exit = Exit::done;
    for (const std::string& path : paths) {
        try {
            ask(path);
        } catch (const teq_platform::RequestError&) {
            const teq_platform::Failure failure = teq_platform::currentFailure(file);
            Console::take().report(failure);
            records.addProblem(failure.diagnostic);
            exit = worse(exit, exitOf(failure));
        }
    }
    return exit;
}

void useAppRoot(const Call& call) {
    if (call.has("app-root")) HUTEnv::setKELAppRootList({call.get("app-root")});
}

}  // namespace

int runQuery(const Call& call) {
    const std::string file = platformFile(call["FILE"], call);
    const auto platform = loaded(file, call);
    const Questions questions(*platform, file);
    const std::vector<std::string>& paths = call.all("PATH...");
    Records records("answer");
    const Exit exit = forEach(paths, file, records, [&](const std::string& path) {
        const Questions::Answer answer = questions.answer(path);
        if (Records::areAsked(call))
            return records.add({{"path", path}, {"kind", kindName(answer.kind)}, {"answer", answer.text}});
        const bool isValue = answer.kind == Kind::value;
        if (paths.size() > 1)
            Console::take().data(HSTStringUtils::printable(path) + "\t" +
                                 HSTStringUtils::printable(isValue ? answer.text : requests::onOneLine(answer.text)) +
                                 "\n");
        else if (isValue)
            Console::take().data(shown(answer.text) + "\n");
        else
            Console::take().document(answer.text);
    });
    if (Records::areAsked(call)) records.print(call, {});
    return static_cast<int>(exit);
}

int runKeys(const Call& call) {
    const std::string file = platformFile(call["FILE"], call);
    const auto platform = loaded(file, call);
    Records records("key");
    std::string lines;
    for (const std::string& key : Questions(*platform, file).keys(call.get("[PREFIX]", ""))) {
        if (Records::areAsked(call))
            records.add({{"key", key}});
        else
            lines += HSTStringUtils::printable(key) + "\n";
    }
    if (Records::areAsked(call)) records.print(call, {});
    Console::take().data(lines);
    return 0;
}

int runDoc(const Call& call) {
    useAppRoot(call);
    const std::string key = call.get("[KEY]", "");
    Records records("documentation");
    Text text(false);
    for (const requests::KeyDocumentation& one : requests::keyDocumentation(key)) {
        records.add({{"key", one.key},
                     {"meaning", one.meaning},
                     {"form", one.form},
                     {"unit", one.unit},
                     {"source", one.source}});
        text.heading(one.key);
        text.line("meaning", one.meaning);
        text.line("form", one.form);
        text.line("unit", one.unit);
        text.line("source", one.source);
    }
    if (Records::areAsked(call))
        records.print(call, {});
    else if (key.empty())
        records.print(call, {"key", "form", "unit", "meaning"});
    else
        Console::take().data(text.str());
    return 0;
}

int runDict(const Call& call) {
    const std::vector<std::string> filters = call.values("filter");
    const auto dict = requests::dict({.file = platformFile(call["FILE"], call),
                                      .branch = call.get("[BRANCH]", ""),
                                      .filters = {filters.begin(), filters.end()},
                                      .useDefaultFilter = call.has("default-filter")});
    Records records("entry");
    for (const auto& [key, value] : dict) {
        if (Records::areAsked(call)) {
            records.add({{"key", key}, {"value", value}});
            continue;
        }
        Console::take().data(HSTStringUtils::printable(key) + "\t");
        Console::take().data(HSTStringUtils::printable(value));
        Console::take().data("\n");
    }
    if (Records::areAsked(call)) records.print(call, {});
    return 0;
}

int runTransform(const Call& call) {
    const auto entries = requests::transform(platformFile(call["FILE"], call), call["SPEC"]);
    Records records("transformation");
    records.add({{"specification", call["SPEC"]}, {"entries", entries}});
    if (Records::areAsked(call))
        records.print(call, {});
    else
        Console::take().data(std::to_string(entries) + "\n");
    return 0;
}
