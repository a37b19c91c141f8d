#include <platform/PlatformRequests.h>
#include <platform/PlatformSearch.h>
#include <text/HSTStringUtils.h>

#include "Console.h"
#include "Load.h"

namespace requests = teq_platform::requests;
using requests::FoundPlatform;
using State = FoundPlatform::State;

namespace {

const char* nameOf(State state) {
    return state == State::good ? "good" : state == State::shadowed ? "shadowed" : "broken";
}

/// A known text, else null.
boost::json::value known(const std::string& text, bool isKnown) {
    return isKnown ? boost::json::value(text) : boost::json::value(nullptr);
}

/// Columns that are as wide as most names need, since platforms are shown as they are found.
std::string columns(const std::string& name, const std::string& version) {
    constexpr std::size_t kName = 32, kVersion = 8;
    const auto padded = [](const std::string& text, std::size_t width) {
        const std::string shown = HSTStringUtils::printable(text);
        return shown + std::string(shown.size() < width ? width - shown.size() : 1, ' ');
    };
    return padded(name, kName) + padded(version, kVersion);
}

class Listing {
public:
    explicit Listing(const Call& call)
        : call_(call), isText_(!Records::areAsked(call)), isPathOnly_(call.has("path-only")) {}

    void add(const FoundPlatform& found) {
        ++count_;
        Console& console = Console::take();
        if (!isText_) return records_.add(recordOf(found));
        console.progress("");
        if (isPathOnly_)
            console.data(found.file + "\n");
        else
            console.data(columns(found.name, found.version) + HSTStringUtils::printable(found.file) + "\n");
        if (console.isInteractive()) console.flush();
    }
    void search(const std::string& repository) {
        Console::take().progress("searching " + repository + ", " + std::to_string(count_) + " found");
    }
    /// What was found but is not a platform of its own, and what could not be searched.
    void addRest(const requests::FindResult& result) {
        Console& console = Console::take();
        console.progress("");
        for (const auto* list : {&result.shadowed, &result.broken})
            for (const FoundPlatform& found : *list) {
                const std::string reason =
                    found.state == State::broken ? found.reason.text : "shadowed by " + found.shadowedBy;
                const std::string line =
                    HSTStringUtils::printable(std::string(nameOf(found.state)) + " " + found.file + ": " + reason);
                if (!isText_)
                    records_.add(recordOf(found));
                else if (isPathOnly_)
                    console.note(line);
                else
                    console.data(line + "\n");
            }
        for (const HEXDiagnostic& problem : result.problems) {
            records_.addProblem(problem);
            console.print(problem, "warning");
        }
        if (!isText_) records_.print(call_, {});
    }

    static boost::json::object recordOf(const FoundPlatform& found) {
        const FoundPlatform::Hardware is = found.hardware.value_or(FoundPlatform::Hardware{});
        const bool isLoaded = found.hardware.has_value();
        const bool isRead = found.state == State::good;
        return {{"name", found.name},
                {"file", found.file},
                {"repository", found.repository},
                {"state", nameOf(found.state)},
                {"vendor", known(found.vendor, isRead)},
                {"version", known(found.version, isRead)},
                {"description", known(found.description, isRead)},
                {"type", known(is.type, isLoaded)},
                {"part", known(is.part, isLoaded)},
                {"board", known(is.board, isLoaded)},
                {"vbnv", known(is.vbnv, isLoaded)},
                {"intents", boost::json::array(is.intents.begin(), is.intents.end())},
                {"shadowedBy", known(found.shadowedBy, found.state == State::shadowed)},
                {"reason", known(found.reason.text, found.state == State::broken)}};
    }

private:
    const Call& call_;
    const bool isText_, isPathOnly_;
    std::size_t count_ = 0;
    Records records_{"platform"};
};

}  // namespace

int runList(const Call& call) {
    Listing listing(call);
    const std::string name = call.get("[NAME]", "");
    const requests::FindResult result =
        requests::find({.where = repositoriesOf(call),
                        .name = name,
                        .type = call.get("type"),
                        .part = call.get("part"),
                        .board = call.get("board"),
                        .vbnv = call.get("vbnv"),
                        .intent = call.get("intent"),
                        .latest = call.has("latest"),
                        .usable = call.has("usable"),
                        .progress = [&](const std::string& repository) { listing.search(repository); },
                        .found = [&](const FoundPlatform& found) { listing.add(found); }});
    listing.addRest(result);
    if (!name.empty() && !result.isNameKnown) throw requests::noPlatform(name, repositoriesOf(call));
    return static_cast<int>(call.has("strict") && !result.broken.empty() ? Exit::no : Exit::done);
}
