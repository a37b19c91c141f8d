#include "platform/PlatformQueries.h"

#include <algorithm>
#include <map>
#include <optional>
#include <vector>

#include "json/JsonText.h"
#include "msg/Budget.h"
#include "msg/HEXFileFault.h"
#include "msg/Silence.h"
#include "platform/NativeDictService.h"
#include "platform/NativeDocService.h"
#include "platform/NativeTransformService.h"
#include "platform/PathToken.h"
#include "platform/PlatformRequests.h"
#include "services/DocumentTree.h"
#include "services/KeyListing.h"
#include "services/KeyPattern.h"
#include "services/TreeWalk.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace teq_platform::requests {
namespace {

using services::ptree;
using Keys = std::set<std::string>;
using Answer = Questions::Answer;

/// More would take long to compare.
constexpr std::size_t kMaxSuggested = 1000;

[[noreturn]] void refuse(const std::string& file, const std::string& text) {
    throw RequestError(FailureKind::unknownName, {.file = file, .text = text});
}

std::string quoted(const std::string& text) { return "'" + HSTStringUtils::excerpt(text, 200) + "'"; }

/// What is wrong with a path that selects nothing: the first segment that does, and what there is instead.
std::string explained(const json::Node& document, const std::string& path) {
    json::Node node = document;
    for (const auto& token : teq::platform::scanJsonPath(path)) {
        if (const json::Node next = services::findNode(node, token)) {
            node = next;
            continue;
        }
        if (const json::Node named = services::findNode(node, {token.name, false, 0}))
            return "; " + quoted(token.name) + " has " + std::to_string(std::distance(named.begin(), named.end())) +
                   " items";
        if (!node.empty() && !services::isObject(node)) return "; what precedes " + quoted(token.name) + " is a list";
        HSTVector<std::string> known;
        for (const json::Node child : node)
            if (known.size() < kMaxSuggested) known.emplace_back(child.name());
        return "; there is no " + quoted(token.name) + nearest(token.name, known);
    }
    return {};
}

/// The keys that begin with `prefix` as whole segments.
HSTVector<std::string> below(const Keys& keys, const std::string& prefix) {
    HSTVector<std::string> found;
    for (auto key = keys.lower_bound(prefix); key != keys.end() && key->starts_with(prefix); ++key)
        if (key->size() == prefix.size() || (*key)[prefix.size()] == '.' || (*key)[prefix.size()] == '[')
            found.push_back(*key);
    return found;
}

/// "; nearest: ..." among the keys with as many of the prefix's characters as possible.
std::string nearestKeys(const Keys& keys, const std::string& prefix) {
    HSTVector<std::string> known;
    // No key shares more with the prefix than its neighbours do.
    std::size_t common = 0;
    const auto next = keys.lower_bound(prefix);
    for (const auto& key : {next, next == keys.begin() ? next : std::prev(next)})
        if (key != keys.end())
            common =
                std::max(common, static_cast<std::size_t>(std::ranges::mismatch(*key, prefix).in2 - prefix.begin()));
    for (auto dot = prefix.rfind('.', common); known.empty();
         dot = dot == 0 ? std::string::npos : prefix.rfind('.', dot - 1)) {
        const std::string parent = dot == std::string::npos ? "" : prefix.substr(0, dot + 1);
        for (auto key = keys.lower_bound(parent); key != keys.end() && key->starts_with(parent); ++key)
            if (key->find('.', parent.size()) == std::string::npos && known.size() < kMaxSuggested)
                known.push_back(*key);
        if (dot == std::string::npos) break;
    }
    return nearest(prefix, known);
}

/// A key as it is listed: with "[]" for each index.
std::string listedKey(const std::string& key) {
    std::string listed;
    bool inIndex = false;
    for (const char c : key) {
        if (c == ']') inIndex = false;
        if (!inIndex) listed += c;
        if (c == '[') inIndex = true;
    }
    return listed;
}

constexpr const char* kBranch = "documentation_keys";

void collect(const ptree& node, const std::string& key, HSTVector<KeyDocumentation>& found) {
    if (const auto meaning = node.find("#meaning"); meaning != node.not_found())
        found.push_back({key, meaning->second.data(), node.get<std::string>("#form", ""),
                         node.get<std::string>("#unit", ""), node.get<std::string>("#source", "")});
    for (const auto& [name, child] : node)
        if (!name.starts_with('#')) collect(child, key.empty() ? name : key + "." + name, found);
}

ptree documentationTree() {
    const msg::Silence silence;
    ptree tree;
    const std::string file = teq::platform::NativeDocService().getFromFile(tree);
    if (file.empty() || tree.empty())
        throw RequestError(FailureKind::noSuchFile,
                           {.file = file.empty() ? "platforms/platform_keys_doc.json" : file,
                            .text = "the documentation of keys is not installed below the application root"});
    return tree;
}

}  // namespace

struct Questions::State {
    std::string file;
    json::Document document;
    std::map<json::Node, std::vector<json::Node>> lists;
    std::optional<Keys> keys;
};

Questions::Questions(const HTEQPlatform& platform, const std::string& file) : state_(std::make_unique<State>()) {
    state_->file = file;
    services::read(platform, state_->document);
}
Questions::~Questions() = default;

Answer Questions::answer(const std::string& path) const {
    const json::Node document = state_->document.root();
    const auto found = services::find(services::Indexed<json::Node>{document, &state_->lists}, path);
    const json::Node node = found.node.node;
    if (!node) refuse(state_->file, "no " + quoted(path) + explained(document, found.path));
    using Kind = Answer::Kind;
    const Kind kind = node.empty() ? Kind::value : services::isObject(node) ? Kind::object : Kind::list;
    Answer answer{kind, services::answerOf(node, found.path)};
    Budget::spend(Cost::text, answer.text.size());  // there may be thousands of paths
    return answer;
}

HSTVector<std::string> Questions::keys(const std::string& prefix) const {
    std::optional<Keys>& known = state_->keys;
    if (!known) known = services::keysOf(state_->document.root());
    const Keys& keys = *known;
    if (prefix.empty()) return {keys.begin(), keys.end()};
    const std::string listed = listedKey(services::actualPath(state_->document.root(), prefix));
    HSTVector<std::string> found = below(keys, listed);
    if (found.empty()) refuse(state_->file, "no key " + quoted(prefix) + nearestKeys(keys, listed));
    return found;
}

std::string onOneLine(const std::string& json) {
    std::string line;
    for (std::size_t at = 0; at < json.size(); ++at) {
        if (json[at] != '\n') {
            line += json[at];
            continue;
        }
        at = std::min(json.find_first_not_of(' ', at + 1), json.size()) - 1;
        if (line.ends_with(',')) line += ' ';
    }
    return line;
}

std::string asJson(const HSTVector<std::string>& keys) {
    ptree document;
    ptree& list = document.push_back({"keys", ptree()})->second;
    for (const std::string& key : keys) list.push_back({std::string(), ptree(key)});
    return json::write(document);
}

std::string asJson(const HSTVector<KeyDocumentation>& keys) {
    ptree document;
    ptree& list = document.push_back({"keys", ptree()})->second;
    for (const KeyDocumentation& one : keys) {
        ptree& item = list.push_back({std::string(), ptree()})->second;
        for (const auto& [name, text] :
             {std::pair("key", &one.key), std::pair("meaning", &one.meaning), std::pair("form", &one.form),
              std::pair("unit", &one.unit), std::pair("source", &one.source)})
            item.push_back({name, ptree(*text)});
    }
    return json::write(document);
}

std::string asJson(const std::map<std::string, std::string>& dict) {
    ptree document;
    for (const auto& [key, value] : dict) document.push_back({key, ptree(value)});
    return json::write(document);
}

HSTVector<KeyDocumentation> keyDocumentation(const std::string& key) {
    const ptree tree = documentationTree();
    HSTVector<KeyDocumentation> found;
    const auto branch = tree.find(kBranch);
    if (branch != tree.not_found()) collect(branch->second, "", found);
    if (key.empty()) return found;
    const std::string listed = listedKey(services::roots::replaced(
        key.starts_with(std::string(kBranch) + ".") ? key.substr(19) : key, services::roots::kDefault));
    Keys known;
    for (const KeyDocumentation& one : found) known.insert(one.key);
    std::erase_if(found, [&listed](const KeyDocumentation& one) { return one.key != listed; });
    if (found.empty()) refuse("", "no key " + quoted(key) + nearestKeys(known, listed));
    return found;
}

std::map<std::string, std::string> dict(const DictRequest& request) {
    const auto platform = load(request.file, HwMetadataMode::Default);
    const ptree whole = services::documentTree(*platform);
    const FileKind kind = fileKindOf(request.file);
    const ptree* document = &whole;
    if (kind != FileKind::descriptor)
        document =
            services::find(&whole, kind == FileKind::hardware ? services::roots::kLegacy : "softwarePlatform").node;
    const auto branch = services::find(document, request.branch);
    if (!branch.node)
        refuse(request.file,
               "no branch " + quoted(request.branch) + explained(json::Document(*document).root(), branch.path));
    const teq::platform::NativeDictService service;
    auto dict = service.getAsDict(*branch.node, request.branch);
    if (request.filters.empty() && !request.useDefaultFilter) return dict;
    std::set<std::string> filters = request.filters;
    if (request.useDefaultFilter)
        filters.insert(service.defaultIncludeKeys.begin(), service.defaultIncludeKeys.end());
    std::erase_if(dict, [&](const auto& entry) { return !filters.contains(services::withAnyIndex(entry.first)); });
    return dict;
}

std::int32_t transform(const std::string& file, const std::string& specification) {
    for (const std::string& one : {file, specification})
        if (!HUTFile::exists(one)) throw HEXFileNotFoundException(one);
    if (!specification.ends_with(".json"))
        throw RequestError(FailureKind::badInput,
                           {.file = specification, .text = "the name of a specification ends in .json"});
    constexpr std::size_t kMaxBytes = 64 << 20;
    if (wholefile::read(specification, kMaxBytes).empty())
        throw RequestError(FailureKind::badInput, {.file = specification, .text = "the specification is empty"});
    try {
        return teq::platform::NativeTransformService().getObjectsBySpec(file, specification);
    } catch (const boost::property_tree::ptree_bad_path&) {
        throw RequestError(FailureKind::badInput, {.file = specification, .text = "there is no key \"spec\""});
    }
}

}  // namespace teq_platform::requests
