#include "check/JsonCheck.h"

#include <algorithm>
#include <map>

#include "json/JsonPlaces.h"
#include "msg/Budget.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
#include "xml/XmlException.h"

namespace check {

namespace {

using json::Form;
using json::Node;

std::string quoted(const std::string& text) { return "\"" + HSTStringUtils::excerpt(text) + "\""; }

/// A JSON null is read as the text "null", and an empty list or object as an empty text.
bool isNothing(Node value) { return value.empty() && (value.text().empty() || value.text() == "null"); }

/// The digits of a number without leading zeros, with a minus sign unless it is 0.
std::string plainNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    const bool negative = text.starts_with('-');
    const auto digits = text.find_first_of("123456789");
    if (digits == std::string_view::npos) return "0";
    return (negative ? "-" : "") + std::string(text.substr(digits));
}

bool hasNamedChild(Node value) {
    return std::any_of(value.begin(), value.end(), [](Node child) { return !child.name().empty(); });
}

bool hasNamelessChild(Node value) {
    return std::any_of(value.begin(), value.end(), [](Node child) { return child.name().empty(); });
}

/// A missing key is read as an empty text.
bool isRefusedWhenMissing(const json::Shape& shape) {
    return shape.refusal && !shape.isOptional && !shape.refusal(Node()).empty();
}

/// The form of a value that is refused otherwise.
std::string expectedOf(const json::Shape& shape) {
    constexpr std::pair<std::string_view, const char*> kForms[] = {
        {"fpgaPart",
         "; expected 4 to 7 fields separated by colons: architecture, device, package, speed grade, ..."}};
    const auto* const form = std::ranges::find(kForms, shape.name, &std::pair<std::string_view, const char*>::first);
    return form != std::end(kForms) ? form->second : "";
}

bool hasDuplicates(Node object) {
    std::vector<std::string_view> keys;
    for (const Node child : object)
        if (!child.name().empty()) keys.push_back(child.name());
    constexpr std::size_t kFew = 16;  // to compare all of them is faster than to sort them
    if (keys.size() <= kFew) {
        for (auto key = keys.begin(); key != keys.end(); ++key)
            if (std::find(keys.begin(), key, *key) != key) return true;
        return false;
    }
    std::ranges::sort(keys);
    return std::ranges::adjacent_find(keys) != keys.end();
}

}  // namespace

/// Optional white space and sign, then digits only.
bool JsonCheck::isNumber(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return false;
    text.remove_prefix(first);
    if (text.front() == '-' || text.front() == '+') text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool JsonCheck::isMisspelled(Node object, std::string_view key) {
    return !object.find(key) &&
           std::any_of(object.begin(), object.end(), [&](Node child) { return text::isSlip(child.name(), key); });
}

std::string Path::text() const {
    if (!parent) return {};
    const std::string before = parent->text();
    if (!key.data()) return before + "[" + std::to_string(index) + "]";
    const std::string name(HSTStringUtils::utf8Prefix(key, kMaxReasonText));
    return before.size() > kMaxPathText ? before : before.empty() ? name : before + "." + name;
}

JsonCheck::JsonCheck(const Source& source) : source_(source) {
    const auto fault = document_.tryParse(source.text);
    parsed_ = !fault;
    if (parsed_) return;
    CheckFinding finding;
    finding.file = source.file;
    finding.member = source.member;
    finding.line = fault->place.line;
    finding.column = fault->place.column;
    finding.name = kNotJson;
    finding.text = fault->text;
    own_.add(std::move(finding));
}

void JsonCheck::checkShapes(json::Shapes shapes) {
    if (isObject_(document(), {})) checkKeys_(document(), shapes, {});
    checkDuplicates();
}

void JsonCheck::checkEach(const std::vector<json::Shape>* (*shapesOf)(std::string_view, Node)) {
    if (!isObject_(document(), {})) return;
    std::map<std::string_view, std::size_t> counts;
    const Path root;
    for (const Node object : document()) {
        const std::string_view key = object.name();
        const auto* const shapes = shapesOf(key, object);
        if (!shapes) continue;
        const Path all{&root, key}, at{&all, {}, counts[key]++};
        if (!isObject_(object, at)) continue;
        checkKeys_(object, *shapes, at);
        checkDuplicates_(object, at);
    }
}

void JsonCheck::add(const char* name, Node value, const Path& path, std::string text) {
    if (!isFull())
        found_.push_back(
            {found_.size(), name, value, HSTStringUtils::excerpt(path.text(), kMaxPathText), std::move(text)});
    else if (more_++ == 0)
        firstMore_ = name;
}

void JsonCheck::checkKeys_(Node object, json::Shapes shapes, const Path& path) {
    json::Finder finder(object);
    for (const json::Shape& shape : shapes) {
        if (!shape.isRead) continue;
        if (const Node value = finder.find(shape.name))  // the reader uses the first of duplicates
            checkValue_(value, shape, {&path, shape.name});
        else if (shape.required || isRefusedWhenMissing(shape))
            checkMissing_(object, shape, path);
    }
    checkKnown_(object, shapes, path);
}

/// A required key that is misspelled is one finding, at the key that is there.
void JsonCheck::checkMissing_(Node object, const json::Shape& shape, const Path& path) {
    const std::string text = std::string("the key \"") + shape.name + "\" is missing";
    for (const Node there : object) {
        if (!text::isSlip(there.name(), shape.name)) continue;
        meant_.insert(there.index());
        return add(kMissingKey, there, {&path, there.name()}, text + "; this one is not read");
    }
    add(kMissingKey, object, path, text);
}

void JsonCheck::checkKnown_(Node object, json::Shapes shapes, const Path& path) {
    for (const Node value : object) {
        const std::string_view key = value.name();
        // Most names differ in the first letter.
        const auto isIt = [&key](const json::Shape& shape) {
            return !key.empty() && *shape.name == key.front() && key == shape.name;
        };
        if (std::ranges::any_of(shapes, isIt) || meant_.contains(value.index())) continue;
        std::vector<std::string> known;
        if (isFull()) {
            add(kUnknownKey, value, path, {});  // which is only counted
            continue;
        }
        for (const json::Shape& shape : shapes) known.emplace_back(shape.name);
        add(kUnknownKey, value, {&path, key},
            "the key is not read" + text::nearest(std::string(HSTStringUtils::utf8Prefix(key, 64)), known));
    }
}

void JsonCheck::checkValue_(Node value, const json::Shape& shape, const Path& path) {
    const std::size_t before = found_.size() + more_;
    switch (shape.form) {
        case Form::unknown: break;
        case Form::text:
        case Form::number:
        case Form::flag: checkScalar_(value, shape, path); break;
        case Form::object:
            if (isObject_(value, path) && shape.inner) checkKeys_(value, shape.inner(), path);
            break;
        case Form::list:
        case Form::texts:
            if (isList_(value, path)) checkItems_(value, shape, path);
            break;
    }
    if (!shape.refusal || found_.size() + more_ != before) return;  // one finding for a value
    if (const std::string refusal = shape.refusal(value); !refusal.empty()) {
        refused_.insert(value.index());
        add(kRefusedValue, value, path, HSTStringUtils::excerpt(refusal, kMaxReasonText) + expectedOf(shape));
    }
}

/// The parser's limit bounds the recursion.
void JsonCheck::checkDuplicates_(Node value, const Path& path) {
    const bool isUnique = refused_.contains(value.index()) || !hasDuplicates(value);
    std::set<std::string_view> seen;
    std::size_t index = 0;
    for (const Node child : value) {
        const std::string_view key = child.name();
        const Path at{&path, key.empty() ? std::string_view() : key, index++};
        if (!isUnique && !key.empty() && !seen.insert(key).second)
            add(kDuplicateKey, child, at, "the key appears twice; only the first value is read");
        if (!child.empty()) checkDuplicates_(child, at);
    }
}

void JsonCheck::checkScalar_(Node value, const json::Shape& shape, const Path& path) {
    const Form form = shape.form;
    if (form == Form::text && value.empty()) return;
    const std::string text = value.data();
    if (!value.empty())
        add(kWrongShape, value, path,
            std::string(hasNamedChild(value) ? "an object" : "a list") + " where a single value is expected");
    else if (isNothing(value))
        return;
    else if (form == Form::number && !isNumber(text))
        add(kNotANumber, value, path,
            quoted(text) + " is not a decimal number; it is read as " +
                std::to_string(HSTStringUtils::toNumber(text)));
    else if (form == Form::number && shape.numberOf && shape.numberOf(text) != plainNumber(text))
        add(kNumberOutOfRange, value, path, quoted(text) + " does not fit; it is read as " + shape.numberOf(text));
    else if (form == Form::flag && !HSTStringUtils::iequals(text, "true") && !HSTStringUtils::iequals(text, "false"))
        add(kNotAFlag, value, path, quoted(text) + " is neither true nor false; it is read as false");
}

void JsonCheck::checkItems_(Node list, const json::Shape& shape, const Path& path) {
    const json::Shapes inner = shape.inner ? shape.inner() : json::Shapes();
    std::size_t index = 0;
    for (const Node item : list) {
        const Path at{&path, {}, index++};
        if (shape.form == Form::texts)
            checkScalar_(item, {.name = nullptr, .form = Form::text}, at);
        else if (const char* const why = Budget::refusal(Cost::records, shape.size))
            return add(xml::fault::kLimit, list, path, why);
        else if (isObject_(item, at))
            checkKeys_(item, inner, at);
    }
}

bool JsonCheck::isObject_(Node value, const Path& path) {
    const char* const wrong = !value.empty()     ? hasNamelessChild(value) ? "a list" : nullptr
                              : isNothing(value) ? nullptr
                                                 : "a single value";
    if (wrong) add(kWrongShape, value, path, std::string(wrong) + " where an object is expected");
    return !wrong;
}

bool JsonCheck::isList(Node value) { return value.empty() ? isNothing(value) : !hasNamedChild(value); }

bool JsonCheck::isList_(Node value, const Path& path) {
    const char* const wrong = !value.empty()     ? hasNamedChild(value) ? "an object" : nullptr
                              : isNothing(value) ? nullptr
                                                 : "a single value";
    if (wrong) add(kWrongShape, value, path, std::string(wrong) + " where a list is expected");
    return !wrong;
}

void JsonCheck::report(Findings& findings) {
    findings.append(std::move(own_));
    if (found_.empty()) return;
    std::ranges::sort(found_, {}, [](const Found& found) { return std::pair(found.value.index(), found.order); });
    std::vector<std::size_t> wanted;
    wanted.reserve(found_.size());
    for (const Found& found : found_) wanted.push_back(found.value.index());
    const std::vector<json::TextPlace> places = json::placesOf(source_.text, wanted);
    for (std::size_t i = 0; i < found_.size(); ++i) {
        CheckFinding finding;
        finding.file = source_.file;
        finding.member = source_.member;
        if (i < places.size()) {
            finding.line = places[i].line;
            finding.column = places[i].column;
        }
        finding.name = found_[i].name;
        finding.element = std::move(found_[i].path);
        finding.text = std::move(found_[i].text);
        findings.add(std::move(finding));
    }
    found_.clear();
    CheckFinding more;
    more.file = source_.file;
    more.member = source_.member;
    if (more_ > 0) more.name = firstMore_;
    findings.addMore(std::exchange(more_, 0), std::move(more));
}

}  // namespace check
