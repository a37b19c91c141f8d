#include "json/JsonChanges.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <charconv>
#include <unordered_map>

#include "msg/HEXAll.h"

namespace json {
namespace {

using boost::json::value;

/// A value as the library stores it: text.
std::string textOf(const value& json) {
    return json.is_string() ? std::string(json.as_string()) : boost::json::serialize(json);
}

/// Whether the library omits it: empty texts, lists and objects.
bool isNothing(const value& json) {
    if (json.is_object()) return json.as_object().empty();
    if (json.is_array()) return json.as_array().empty();
    return json.is_string() && json.as_string().empty();
}

/// Whether `text` is how the library stores a value of a document.
bool isSame(const value& before, const std::string& text) {
    if (!before.is_double()) return textOf(before) == text;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number == before.as_double();
}

const value* nameOf(const value& item) { return item.is_object() ? item.as_object().if_contains("name") : nullptr; }

/// The items of a list by their names, if these differ: the library sorts some lists by name.
class NamedItems {
public:
    explicit NamedItems(const value* list) : list_(list && list->is_array() ? &list->as_array() : nullptr) {
        if (!list_) return;
        for (const value& item : *list_)
            if (const value* const name = nameOf(item); name && name->is_string())
                if (const auto [at, isNew] = items_.try_emplace(textOf(*name), &item); !isNew) at->second = nullptr;
    }
    /// The item with the name of `other`, else the one at its position; null if there is none.
    const value* partnerOf(const value& other, std::size_t place) const {
        if (!list_) return nullptr;
        const value* const name = nameOf(other);
        const auto at = name ? items_.find(textOf(*name)) : items_.end();
        return at != items_.end() && at->second ? at->second : list_->if_contains(place);
    }

private:
    const boost::json::array* list_;
    std::unordered_map<std::string, const value*> items_;
};

class Comparison {
public:
    std::vector<std::string> found;

    void compare(const std::string& path, const value& before, const value* after) {
        if (isNothing(before)) return;
        if (before.is_object()) {
            for (const auto& [key, child] : before.as_object())
                compare(path.empty() ? std::string(key) : path + "." + std::string(key), child, childOf(after, key));
        } else if (before.is_array()) {
            const NamedItems items(after);
            for (std::size_t i = 0; i < before.as_array().size(); ++i)
                compare(path + "[" + std::to_string(i) + "]", before.as_array()[i],
                        items.partnerOf(before.as_array()[i], i));
        } else if (!after) {
            found.push_back(path + ": lost");
        } else if (!isSame(before, textOf(*after))) {
            found.push_back(path + ": " + textOf(before) + " -> " + textOf(*after));
        }
    }

private:
    static const value* childOf(const value* json, boost::json::string_view key) {
        return json && json->is_object() ? json->as_object().if_contains(key) : nullptr;
    }
};

value parsed(const std::string& text) {
    boost::json::parse_options options;
    options.max_depth = 256;
    boost::json::error_code error;
    value json = boost::json::parse(text, error, {}, options);
    if (error) throw HEXDataException("the metadata cannot be compared: " + error.message());
    return json;
}

}  // namespace

std::vector<std::string> lostOrChanged(const std::string& before, const std::string& after,
                                       const std::string& ignored) {
    Comparison comparison;
    const value now = parsed(after);
    value old = parsed(before);
    if (old.is_object()) old.as_object().erase(ignored);
    comparison.compare("", old, &now);
    return comparison.found;
}

}  // namespace json
