#include "Text.h"

#include <text/HSTStringUtils.h>

namespace {

constexpr std::size_t kNameWidth = 22, kMaxValue = 4000;

std::string indented(const std::string& text, const std::string& by) {
    std::string result = by;
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        if (text[i] == '\n' && i + 1 < text.size()) result += by;
    }
    return result;
}

}  // namespace

void Text::heading(const std::string& title) {
    text_ += (text_.empty() ? "" : "\n") + HSTStringUtils::printable(title) + "\n";
}

void Text::line(const std::string& name, const std::string& value) {
    if (value.empty()) return;
    const std::size_t gap = name.size() < kNameWidth ? kNameWidth - name.size() : 1;
    text_ += "  " + HSTStringUtils::printable(name) + std::string(gap, ' ') +
             HSTStringUtils::excerpt(value, kMaxValue) + "\n";
}

void Text::note(const std::string& text) { text_ += "  " + text + "\n"; }

void Text::rows(const std::string& title, const std::vector<std::string>& columns,
                const std::vector<std::vector<std::string>>& rows) {
    if (rows.empty()) return;
    text_ += "  " + title + "\n" + indented(table(columns, rows), "    ");
    if (!text_.ends_with('\n')) text_ += '\n';
}
