#include "xml/XmlContent.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "text/Nearest.h"

namespace xml {

std::string listed(const std::vector<std::string>& items) {
    std::string result;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) result += i + 1 == items.size() ? " or " : ", ";
        result += items[i];
    }
    return result;
}

Content::Content(const char* name, const Element& element, void* record)
    : name_(name), element_(&element), record_(record) {
    if (!element.alternatives.empty()) return;
    rows_ = element.children;
    rowsRecord_ = record;
}

/// The row of the child that is next in `rows` and of whose name `isIt`, or the number of rows.
template <class IsIt>
std::size_t Content::nextRow_(std::span<const Child> rows, IsIt isIt) const {
    for (std::size_t i = row_; i < rows.size(); ++i) {
        const bool isThere = countOf_(i) > 0;
        if (isIt(rows[i].name) && (!isThere || rows[i].repeats())) return i;
        if (!isThere && rows[i].neededToRead()) break;
    }
    return rows.size();
}

template <class IsIt>
void Content::decide_(IsIt isIt) {
    for (const Alternative& alternative : element_->alternatives) {
        if (nextRow_(alternative.children, isIt) == alternative.children.size()) continue;
        rows_ = alternative.children;
        rowsRecord_ = alternative.choose(record_);
        return;
    }
}

Content::Place Content::find(std::string_view local) {
    if (undecided_()) decide_([&](const char* row) { return local == row; });
    Place place{row_, 0, {}};
    for (; place.row < rows_.size(); ++place.row) {
        const Child& row = rows_[place.row];
        place.count = countOf_(place.row);
        if (isCalled(local, row.name) && (place.count == 0 || row.repeats())) break;
        if (place.count == 0 && row.neededToRead()) place.missing.push_back(place.row);
    }
    return place;
}

void Content::take(Place place) {
    passed_.insert(passed_.end(), place.missing.begin(), place.missing.end());
    row_ = place.row;
    count_ = place.count + 1;
}

const Child* Content::takePassed(std::string_view local) {
    const auto at = std::ranges::find_if(passed_, [&](std::size_t i) { return isCalled(local, rows_[i].name); });
    if (at == passed_.end()) return nullptr;
    const Child& row = rows_[*at];
    passed_.erase(at);
    return &row;
}

void Content::takeAsMeant(std::string_view local) {
    const auto isIt = [&](const char* row) { return text::isSlip(local, row); };
    if (undecided_()) decide_(isIt);
    const std::size_t i = nextRow_(rows_, isIt);
    if (i < rows_.size()) take({i, countOf_(i), {}});
}

bool Content::allows(std::string_view local) const {
    const auto has = [&](std::span<const Child> rows) {
        return std::ranges::any_of(rows, [&](const Child& row) { return local == row.name; });
    };
    return has(element_->children) ||
           std::ranges::any_of(element_->alternatives, [&](const Alternative& a) { return has(a.children); });
}

bool Content::mayEnd() const {
    for (std::size_t i = row_; i < rows_.size(); ++i)
        if (rows_[i].neededToRead() && countOf_(i) == 0) return false;
    return !undecided_();
}

/// Adds the names of the children in `rows` that may follow.
void Content::addExpected_(std::span<const Child> rows, std::vector<std::string>& names) const {
    for (std::size_t i = row_; i < rows.size(); ++i) {
        const std::size_t have = countOf_(i);
        if (have == 0 || rows[i].repeats()) names.push_back(fmt::format("<{}>", rows[i].name));
        if (have == 0 && rows[i].neededToRead()) return;
    }
}

std::string Content::expected() const {
    std::vector<std::string> names;
    if (undecided_()) {
        for (const Alternative& alternative : element_->alternatives) addExpected_(alternative.children, names);
    } else {
        addExpected_(rows_, names);
    }
    if (mayEnd()) names.push_back(fmt::format("the end of <{}>", name_));
    return listed(names);
}

}  // namespace xml
