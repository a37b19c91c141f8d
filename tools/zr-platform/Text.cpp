#include "Text.h"

#include <algorithm>

#include <text/HSTStringUtils.h>

namespace {

constexpr std::size_t kNameWidth = 22, kMaxValue = 4000, kMaxWidth = 100;

std::string indented(const std::string& text, const std::string& by) {
    std::string result = by;
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        if (text[i] == '\n' && i + 1 < text.size()) result += by;
    }
    return result;
}

/// The columns in which a row has a text.
std::vector<std::size_t> usedColumns(std::size_t count, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> used;
    for (std::size_t i = 0; i < count; ++i)
        if (std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return !row[i].empty(); }))
            used.push_back(i);
    return used;
}

std::string plain(const std::string& column) { return column.substr(column.starts_with('>') ? 1 : 0); }

}  // namespace

boost::json::object& Text::section() {
    boost::json::object* section = &record_;
    for (const std::string* const key : {&key_, &item_}) {
        if (key->empty()) continue;
        boost::json::value& inner = (*section)[*key];
        section = inner.is_object() ? &inner.as_object() : &inner.emplace_object();
    }
    return *section;
}

void Text::heading(const std::string& title, const std::string& key) {
    text_ += (text_.empty() ? "" : "\n") + HSTStringUtils::printable(title) + "\n";
    key_ = key.empty() ? title : key;
    item_.clear();
}

void Text::line(const std::string& name, const std::string& value) {
    if (value.empty()) return;
    const std::size_t gap = name.size() < kNameWidth ? kNameWidth - name.size() : 1;
    text_ += "  " + HSTStringUtils::printable(name) + std::string(gap, ' ') +
             HSTStringUtils::excerpt(value, kMaxValue) + "\n";
    if (isRecord_) section()[name] = value;
}

void Text::note(const std::string& text) {
    text_ += "  " + text + "\n";
    if (isRecord_) section()["note"] = text;
}

void Text::rows(const std::string& title, const std::vector<std::string>& columns,
                const std::vector<std::vector<std::string>>& rows) {
    boost::json::array items;
    for (const auto& row : rows) {
        if (!takes(items)) break;
        boost::json::object item;
        for (std::size_t i = 0; i < row.size(); ++i)
            if (!columns[i].empty()) item[plain(columns[i])] = row[i];
        items.push_back(std::move(item));
    }
    this->rows(title, columns, rows, std::move(items));
}

void Text::rows(const std::string& title, const std::vector<std::string>& columns,
                const std::vector<std::vector<std::string>>& rows, boost::json::array items) {
    if (items.size() == kMaxItems && rows.size() > kMaxItems) section()[title + ", more"] = rows.size() - kMaxItems;
    if (!items.empty()) section()[title] = std::move(items);
    if (rows.empty()) return;
    std::vector<std::string> names;
    std::vector<std::vector<std::string>> shown(rows.size());
    for (const std::size_t i : usedColumns(columns.size(), rows)) {
        names.push_back(columns[i]);
        for (std::size_t row = 0; row < rows.size(); ++row) shown[row].push_back(rows[row][i]);
    }
    text_ += "  " + title + "\n" + indented(table(names, shown), "    ");
}

void Text::warning(const std::string& text) { warnings_.push_back(HSTStringUtils::printable(text)); }

std::string Text::str(const std::string& summary) const {
    const std::size_t width = std::min(Console::take().width(), kMaxWidth);
    std::string text = summary.empty() ? text_ : HSTStringUtils::excerpt(summary, kMaxValue) + "\n\n" + text_;
    if (!warnings_.empty()) text += "\n";
    for (const std::string& warning : warnings_) text += wrapped("warning: " + warning, width, "    ") + "\n";
    return text;
}

boost::json::object Text::takeRecord(const std::string& summary) {
    boost::json::object record{{"summary", HSTStringUtils::cut(summary, kMaxValue)}};
    for (auto& item : record_) record[item.key()] = std::move(item.value());
    record["warnings"] = boost::json::array(warnings_.begin(), warnings_.end());
    return record;
}
