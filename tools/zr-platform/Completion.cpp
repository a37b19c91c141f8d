#include "Completion.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <platform/PlatformCheck.h>
#include <platform/PlatformSearch.h>
#include <text/HSTStringUtils.h>
#include <zip/HUTZip.h>

#include "Verbs.h"

namespace {

namespace requests = teq_platform::requests;
using Words = std::vector<std::string>;

/// The arguments that precede the one to be completed.
struct Given {
    const Verb* verb = nullptr;
    Words positionals;
    const Option* awaiting = nullptr;  ///< the option whose value comes next
    requests::Repositories where = {};
    bool hasEnded = false;  ///< the options, by "--"
};

const Option* optionOf(const Verb& verb, std::string_view name) {
    for (const auto& options : {std::span<const Option>(verb.options), commonOptions()})
        for (const Option& option : options)
            if (option.name == name) return &option;
    return nullptr;
}

void takeValue(const Option& option, const std::string& value, Given& given) {
    if (option.name == std::string_view("repo")) given.where.dirs.push_back(value);
}

void takeOption(const std::string& word, Given& given) {
    const auto equals = word.find('=');
    const Option* const option = optionOf(*given.verb, std::string_view(word).substr(2, equals - 2));
    if (word == "--no-defaults") given.where.withDefaults = false;
    if (!option || !option->choices) return;
    if (equals == std::string::npos)
        given.awaiting = option;
    else
        takeValue(*option, word.substr(equals + 1), given);
}

Given read(const Words& words) {
    Given given;
    for (const Verb& verb : verbs())
        if (!words.empty() && verb.name == words.front()) given.verb = &verb;
    for (std::size_t i = 1; given.verb && i < words.size(); ++i) {
        if (const Option* const option = std::exchange(given.awaiting, nullptr))
            takeValue(*option, words[i], given);
        else if (given.hasEnded || !words[i].starts_with("-"))
            given.positionals.push_back(words[i]);
        else if (words[i] == "--")
            given.hasEnded = true;
        else
            takeOption(words[i], given);
    }
    return given;
}

Words platformNames(const requests::Repositories& where) {
    Words names;
    requests::find(
        {.where = where, .found = [&names](const requests::FoundPlatform& found) { names.push_back(found.name); }});
    return names;
}

Words memberNames(const Given& given) {
    Words names;
    if (given.positionals.empty()) return names;
    for (const HUTZip::Member& member : HUTZip::members(given.positionals.front())) names.push_back(member.name);
    return names;
}

Words findingNames() {
    Words names;
    for (const auto& row : teq_platform::PlatformCheck::explanations()) names.push_back(row.name);
    return names;
}

/// A kind of value: how its candidates are found, and what the shell adds.
struct Kind {
    std::string_view name;
    Words (*candidates)(const Given&);
    const char* shell;
};

Words none(const Given&) { return {}; }

constexpr Kind kKinds[] = {
    {"PLATFORM", [](const Given& given) { return platformNames(given.where); }, ":files zdf cfa lfa spfm"},
    {"NAME", [](const Given& given) { return platformNames(given.where); }, ":none"},
    {"ARCHIVE", none, ":files cfa lfa"},
    {"MEMBER", memberNames, ":none"},
    {"FINDING", [](const Given&) { return findingNames(); }, ":none"},
    {"TARGET", none, ":files cfa lfa"},
    {"JSON", none, ":files json"},
    {"FILE", none, ":files"},
    {"OUT", none, ":files"},
    {"PATH", none, ":files zdf"},
    {"DIR", none, ":dirs"},
};

struct Offer {
    Words candidates;
    const char* shell = ":none";
};

/// For a value of one of these (`a|b`), or of this kind.
Offer offerOf(std::string values, const Given& given) {
    if (values.find('|') != std::string::npos) return {HSTStringUtils::split(values, '|')};
    values.resize(std::min(values.find('.'), values.size()));
    for (const Kind& kind : kKinds)
        if (kind.name == values) return {kind.candidates(given), kind.shell};
    return {};
}

Offer positionalOf(const Given& given) {
    const auto& all = given.verb->positionals;
    if (all.empty()) return {};
    const std::size_t at = std::min(given.positionals.size(), all.size() - 1);
    const bool isRepeated = std::string_view(all[at].name).ends_with("...");
    if (given.positionals.size() > at && !isRepeated) return {};
    return offerOf(all[at].values, given);
}

Offer optionsOf(const Given& given) {
    Offer offer{{"--help"}};
    for (const auto& options : {std::span<const Option>(given.verb->options), commonOptions()})
        for (const Option& option : options) offer.candidates.push_back(std::string("--") + option.name);
    return offer;
}

Offer verbsOffer() {
    Offer offer{{"--help", "--version"}};
    for (const Verb& verb : verbs()) offer.candidates.push_back(verb.name);
    return offer;
}

/// The shell reads what it is given, and a file may have any name: only harmless ones are offered.
bool isHarmless(const std::string& candidate) {
    return std::ranges::all_of(candidate, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               std::string_view("._+-/=").find(c) != std::string_view::npos;
    });
}

/// bash splits a word at "="; the words as they were typed. `wasSplit` is set if the last one was.
Words joined(const Words& words, bool& wasSplit) {
    Words result;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool follows = i > 0 && words[i - 1] == "=";
        wasSplit = words[i] == "=" || follows;
        if (!result.empty() && wasSplit)
            result.back() += words[i];
        else
            result.push_back(words[i]);
    }
    return result;
}

}  // namespace

std::string completionOf(const std::vector<std::string>& typed) {
    bool wasSplit = false;
    Words words = joined(typed, wasSplit);
    std::string current = words.empty() ? "" : words.back();
    if (!words.empty()) words.pop_back();
    const Given given = read(words);
    std::string before;  // the option's name, in front of its value
    Offer offer;
    try {
        const auto equals = current.find('=');
        if (words.empty()) {
            offer = verbsOffer();
        } else if (!given.verb) {
            return ":none\n";
        } else if (given.awaiting) {
            offer = offerOf(given.awaiting->choices, given);
        } else if (!given.hasEnded && current.starts_with("--") && equals != std::string::npos) {
            const Option* const option = optionOf(*given.verb, std::string_view(current).substr(2, equals - 2));
            if (option && option->choices) offer = offerOf(option->choices, given);
            if (!wasSplit) before = current.substr(0, equals + 1);
            current.erase(0, equals + 1);
        } else {
            offer = !given.hasEnded && current.starts_with("-") ? optionsOf(given) : positionalOf(given);
        }
    } catch (const std::exception&) {  // without names, there is nothing to offer
    }
    std::string text;
    for (const std::string& candidate : offer.candidates)
        if (candidate.starts_with(current) && isHarmless(candidate)) text += before + candidate + "\n";
    return text + offer.shell + "\n";
}
