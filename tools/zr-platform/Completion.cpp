#include "Completion.h"

#include <algorithm>
#include <boost/json/parse.hpp>
#include <set>
#include <string_view>
#include <utility>

#include <platform/DerivedFiles.h>
#include <platform/HTEQPfmFileTypes.h>
#include <platform/PlatformCheck.h>
#include <platform/PlatformEmulation.h>
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
    bool wantsVerb = true;  ///< only options that all verbs have, or "help", precede
    Words positionals;
    const Option* awaiting = nullptr;  ///< the option whose value comes next
    requests::Repositories where = {};
    std::string installation = {};  ///< of --tool
    bool isDynamic = false;
    bool hasEnded = false;  ///< the options, by "--"
};

const Option* optionOf(const Verb* verb, std::string_view name) {
    const std::span<const Option> own = verb ? std::span<const Option>(verb->options) : std::span<const Option>();
    for (const auto& options : {own, commonOptions()})
        for (const Option& option : options)
            if (option.name == name) return &option;
    return nullptr;
}

void takeValue(const Option& option, const std::string& value, Given& given) {
    if (option.name == std::string_view("repo")) given.where.dirs.push_back(value);
    if (option.name == std::string_view("tool")) given.installation = value;
}

void takeOption(const std::string& word, Given& given) {
    const auto equals = word.find('=');
    const Option* const option = optionOf(given.verb, std::string_view(word).substr(2, equals - 2));
    if (word == "--no-defaults") given.where.withDefaults = false;
    if (word == "--dynamic") given.isDynamic = true;
    if (!option || !option->choices) return;
    if (equals == std::string::npos)
        given.awaiting = option;
    else
        takeValue(*option, word.substr(equals + 1), given);
}

void takeVerb(const std::string& word, Given& given) {
    for (const Verb& verb : verbs())
        if (verb.name == word) given.verb = &verb;
    given.wantsVerb = given.wantsVerb && word == "help";
}

Given read(const Words& words) {
    Given given;
    for (const std::string& word : words) {
        if (const Option* const option = std::exchange(given.awaiting, nullptr))
            takeValue(*option, word, given);
        else if (given.verb && (given.hasEnded || !word.starts_with("-")))
            given.positionals.push_back(word);
        else if (given.verb && word == "--")
            given.hasEnded = true;
        else if (word.starts_with("--"))
            takeOption(word, given);
        else
            takeVerb(word, given);
    }
    return given;
}

Words platformNames(const requests::Repositories& where) {
    Words names;
    requests::find(
        {.where = where, .found = [&names](const requests::FoundPlatform& found) { names.push_back(found.name); }});
    return names;
}

/// Those for which an emulation can be built.
Words propertyNames(const Given& given) {
    Words names;
    for (const std::string& name : requests::emulationNames(given.installation, given.isDynamic))
        names.push_back(name);
    return names;
}

Words namesOf(const Given& given) {
    return given.verb->name == std::string_view("emulate") ? propertyNames(given) : platformNames(given.where);
}

/// The paths of the endpoints in semantic labels.
Words partitions(const Given& given) {
    if (given.positionals.empty()) return {};
    std::set<std::string> paths{"/"};
    const boost::json::value labels = boost::json::parse(requests::labels({.file = given.positionals.front()}));
    for (const auto& kind : labels.as_object())
        for (const boost::json::value& label : kind.value().as_array())
            if (const auto* path = label.as_object().if_contains("partition_path"))
                paths.emplace(path->as_string().c_str());
    return {paths.begin(), paths.end()};
}

Words typesInRqa(const Given& given) {
    Words types;
    for (const auto& file : requests::rqaContent(given.positionals[1]).files) types.push_back(file.type);
    return types;
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
    {"NAME", namesOf, ":none"},
    {"ARCHIVE", none, ":files cfa lfa"},
    {"MEMBER", memberNames, ":none"},
    {"FINDING", [](const Given&) { return findingNames(); }, ":none"},
    {"TARGET", none, ":files cfa lfa"},
    {"RQA", none, ":files rqa"},
    {"RQA_TYPE", typesInRqa, ":none"},
    {"HDF", none, ":files hdf"},
    {"EMULATION", none, ":files xml json"},
    {"PARTITION", partitions, ":none"},
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

/// What an argument of rqa is depends on its action.
std::string_view kindOfRqaArgument(const Given& given) {
    const std::string& action = given.positionals.front();
    if (action == "create" || action == "add") return "NAMED_FILE";
    if (action != "extract") return "";
    return given.positionals.size() == 2 ? "RQA_TYPE" : "DIR";
}

/// For a value of one of these (`a|b`), or of this kind.
Offer offerOf(std::string values, const Given& given) {
    if (values.find('|') != std::string::npos) return {HSTStringUtils::split(values, '|')};
    values.resize(std::min(values.find('.'), values.size()));
    for (const Kind& kind : kKinds)
        if (kind.name == values) return {kind.candidates(given), kind.shell};
    return {};
}

/// For an argument TYPE=MEMBER=FILE: the type, and the file after the last "=".
Offer namedFileOf(const std::string& current) {
    const auto parts = std::ranges::count(current, '=');
    Offer offer{{}, parts == 0 ? ":partial" : parts == 1 ? ":none" : ":value"};
    if (parts == 0)
        for (const auto& [type, name] : HTEQPfmFileTypes::getFileTypeMap()) offer.candidates.push_back(name + "=");
    return offer;
}

Offer positionalOf(const Given& given, const std::string& current) {
    const auto& all = given.verb->positionals;
    if (all.empty()) return {};
    const std::size_t at = std::min(given.positionals.size(), all.size() - 1);
    const std::string_view name = all[at].name;
    if (given.positionals.size() > at && !name.ends_with("...") && !name.ends_with("...]")) return {};
    std::string_view kind = all[at].values;
    if (kind == "RQA_ARGUMENT") kind = kindOfRqaArgument(given);
    return kind == "NAMED_FILE" ? namedFileOf(current) : offerOf(std::string(kind), given);
}

Offer optionsOf(const Given& given) {
    Offer offer{{"--help"}};
    for (const auto& options : {std::span<const Option>(given.verb->options), commonOptions()})
        for (const Option& option : options) offer.candidates.push_back(std::string("--") + option.name);
    return offer;
}

Offer verbsOffer() {
    Offer offer{{"--help", "--version"}};
    for (const Option& option : commonOptions()) offer.candidates.push_back(std::string("--") + option.name);
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
        if (given.awaiting) {
            offer = offerOf(given.awaiting->choices, given);
        } else if (!given.hasEnded && current.starts_with("--") && equals != std::string::npos) {
            const Option* const option = optionOf(given.verb, std::string_view(current).substr(2, equals - 2));
            if (option && option->choices) offer = offerOf(option->choices, given);
            if (!wasSplit) before = current.substr(0, equals + 1);
            current.erase(0, equals + 1);
        } else if (given.verb) {
            offer = !given.hasEnded && current.starts_with("-") ? optionsOf(given) : positionalOf(given, current);
        } else if (given.wantsVerb) {
            offer = verbsOffer();
        }
    } catch (const std::exception&) {  // without names, there is nothing to offer
    }
    std::string text;
    for (const std::string& candidate : offer.candidates)
        if (candidate.starts_with(current) && isHarmless(candidate)) text += before + candidate + "\n";
    return text + offer.shell + "\n";
}
