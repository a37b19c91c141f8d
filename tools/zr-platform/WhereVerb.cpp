#include <platform/PlatformRequests.h>
#include <platform/PlatformSearch.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"
#include "Text.h"

namespace requests = teq_platform::requests;
using requests::FoundPlatform;
using teq_platform::FailureKind;
using teq_platform::RequestError;

namespace {

int sayWhyNot(const Call& call) {
    const std::string path = call.get("why-not");
    const requests::WhyNot why = requests::whyNot(path, repositoriesOf(call));
    if (Records::areAsked(call)) {
        Records records("search-rule");
        records.add({{"file", path}, {"found", why.isFound}, {"rule", why.rule}, {"text", why.text}});
        records.print(call, {});
    } else {
        Console::take().data(why.rule + ": " + HSTStringUtils::printable(why.text) + "\n");
    }
    return static_cast<int>(why.isFound ? Exit::done : Exit::no);
}

boost::json::object recordOf(const std::string& name, const requests::Location& location) {
    boost::json::array searched(location.searched.begin(), location.searched.end()), shadows, broken;
    for (const FoundPlatform& other : location.others)
        if (other.state == FoundPlatform::State::shadowed)
            shadows.push_back(boost::json::value(other.file));
        else
            broken.push_back(boost::json::object{{"file", other.file}, {"reason", other.reason.text}});
    return {{"name", name},
            {"file", location.file},
            {"searched", std::move(searched)},
            {"shadows", std::move(shadows)},
            {"broken", std::move(broken)}};
}

std::string textOf(const std::string& name, const requests::Location& location) {
    Text text(false);
    text.heading(name);
    text.line("file", location.file);
    for (const std::string& directory : location.searched) text.line("searched", directory);
    for (const FoundPlatform& other : location.others)
        if (other.state == FoundPlatform::State::shadowed)
            text.line("shadows", other.file);
        else
            text.line("broken", other.file + ": " + other.reason.text);
    return text.str();
}

}  // namespace

int runWhere(const Call& call) {
    const std::string name = call.get("[NAME]", "");
    if (call.has("why-not") && name.empty()) return sayWhyNot(call);
    if (call.has("why-not") || name.empty())
        throw RequestError(FailureKind::wrongUse, {.text = "expected NAME or --why-not PATH"});
    const requests::Location location = requests::locate(name, repositoriesOf(call));
    if (location.file.empty()) throw requests::noPlatform(name, repositoriesOf(call));
    if (Records::areAsked(call)) {
        Records records("location");
        records.add(recordOf(name, location));
        records.print(call, {});
    } else {
        Console::take().data(textOf(name, location));
    }
    return 0;
}

int runRepoPath(const Call& call) {
    const std::vector<std::string> path = requests::searchPath(repositoriesOf(call));
    if (Records::areAsked(call)) {
        Records records("repository");
        for (const std::string& directory : path) records.add({{"directory", directory}});
        records.print(call, {});
    } else {
        Console::take().data(HSTStringUtils::join(path, ":") + "\n");
    }
    return 0;
}
