#include "json/JsonChanges.h"

#include <algorithm>
#include <map>
#include <set>

#include "json/JsonText.h"
#include "text/HSTStringUtils.h"

namespace json {
namespace {

// Differences, and bytes of their texts, that are shown.
constexpr std::size_t kMaxDifferences = 1000, kMaxText = 200, kMaxPlace = 1000;

std::string shown(const std::string& text) { return HSTStringUtils::excerpt(text, kMaxText); }

/// Whether the library omits it: empty texts, lists and objects.
bool isNothing(const ptree& node) { return node.empty() && node.data().empty(); }

bool isList(const ptree& node) { return !node.empty() && node.front().first.empty(); }

const ptree* childOf(const ptree* node, const std::string& key) {
    if (!node) return nullptr;
    const auto at = node->find(key);
    return at != node->not_found() ? &at->second : nullptr;
}

/// The items of a list by their names, if these differ: the library sorts some lists by name.
class NamedItems {
public:
    explicit NamedItems(const ptree* list) {
        if (!list) return;
        for (const auto& [none, item] : *list) {
            places_.push_back(&item);
            if (const ptree* const name = childOf(&item, "name"))
                if (const auto [at, isNew] = items_.try_emplace(name->data(), &item); !isNew) at->second = nullptr;
        }
    }
    /// The item with the name of `other`, else the one at its position; null if there is none.
    const ptree* partnerOf(const ptree& other, std::size_t place) const {
        const ptree* const name = childOf(&other, "name");
        const auto at = name ? items_.find(name->data()) : items_.end();
        if (at != items_.end() && at->second) return at->second;
        return place < places_.size() ? places_[place] : nullptr;
    }

private:
    std::vector<const ptree*> places_;
    std::map<std::string, const ptree*> items_;
};

class Comparison {
public:
    /// `shape`: of the value, null if it is unknown; `inner`: the keys of the object, or of each object of the list.
    void compare(const ptree& before, const ptree* after, const Shape* shape, Shapes inner) {
        const bool isComputed = after && shape && !shape->isRead;
        if (isNothing(before) || (isComputed && !before.empty())) return;
        if (isList(before))
            compareItems(before, after, inner);
        else if (!before.empty())
            compareKeys(before, after, inner);
        else if (!after && !(shape && isMissing(*shape, before.data())))
            add("lost");
        else if (after && before.data() != after->data())
            add(shown(before.data()) + " -> " + shown(after->data()) +
                (isComputed ? ", because the key is not read" : ""));
    }
    std::vector<std::string> take() {
        if (more_ > 0) found_.push_back("and " + std::to_string(more_) + " more");
        return std::move(found_);
    }

private:
    /// Whether a missing key is read as this value.
    static bool isMissing(const Shape& shape, const std::string& value) {
        return (shape.form == Form::flag && HSTStringUtils::iequals(value, "false")) ||
               (shape.form == Form::number && value == "0");
    }
    void compareItems(const ptree& before, const ptree* after, Shapes inner) {
        // Items of one name may have become one item, whose lists are asked again for each of them.
        if (after && after->size() > before.size())
            compareItems(before, merged_.try_emplace(after, after).first->second, inner);
        else
            compareItems(before, NamedItems(after), inner);
    }
    void compareItems(const ptree& before, const NamedItems& items, Shapes inner) {
        std::size_t place = 0;
        for (const auto& [none, item] : before) {
            steps_.push_back({nullptr, place});
            compare(item, items.partnerOf(item, place++), nullptr, inner);
            steps_.pop_back();
        }
    }
    void compareKeys(const ptree& before, const ptree* after, Shapes shapes) {
        std::set<std::string_view> known;
        // A design intent that is not explicit is computed.
        const ptree* const isExplicit = childOf(&before, "explicit");
        const bool isComputed = !shapes.empty() && isExplicit && !HSTStringUtils::iequals(isExplicit->data(), "true");
        for (const auto& [key, child] : before) {
            if (isComputed && key == "value" && known.insert(key).second) continue;
            steps_.push_back({&key, 0});
            const auto shape = std::ranges::find_if(shapes, [&](const Shape& s) { return key == s.name; });
            const Shape* const found = shape != shapes.end() ? &*shape : nullptr;
            if (known.insert(key).second)
                compare(child, childOf(after, key), found, found && found->inner ? found->inner() : Shapes());
            else
                add("lost, because the key appears twice");
            steps_.pop_back();
        }
    }
    void add(const std::string& what) {
        if (found_.size() < kMaxDifferences)
            found_.push_back(place() + ": " + what);
        else
            ++more_;
    }
    std::string place() const {
        std::string place;
        for (const auto& [key, index] : steps_) {
            if (place.size() > kMaxPlace) return place + "...";
            if (key)
                place += (place.empty() ? "" : ".") + shown(*key);
            else
                place += "[" + std::to_string(index) + "]";
        }
        return place;
    }

    struct Step {
        const std::string* key;  ///< null for an item of a list
        std::size_t index;
    };
    std::vector<Step> steps_;
    std::map<const ptree*, NamedItems> merged_;  ///< of the lists that are longer than they were
    std::vector<std::string> found_;
    std::size_t more_ = 0;  ///< than `found_` has
};

}  // namespace

std::vector<std::string> lostOrChanged(const std::string& before, const std::string& after,
                                       const std::string& ignored, Shapes shapes) {
    ptree old, now;
    parse(before, "the metadata before", old, {.countsContent = false});  // the load has counted it
    parse(after, "the metadata after", now, kOwn);
    old.erase(ignored);
    Comparison comparison;
    comparison.compare(old, &now, nullptr, shapes);
    return comparison.take();
}

}  // namespace json
