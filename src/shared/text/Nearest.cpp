#include "text/Nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "text/HSTStringUtils.h"

namespace text {
namespace {

/// How many letters must be inserted, deleted or changed.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t change = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, change});
        }
    }
    return row.back();
}

}  // namespace

std::string nearest(const std::string& name, const std::vector<std::string>& known) {
    constexpr std::size_t kMaxNames = 3, kMaxLength = 256;
    const std::string asked = HSTStringUtils::toLower(name.substr(0, kMaxLength));
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const std::string& one : known) {
        const std::string lower = HSTStringUtils::toLower(one.substr(0, kMaxLength));
        const std::size_t away = lower.find(asked) != std::string::npos ? 0 : distance(asked, lower);
        // At least one letter is the same.
        if (away <= std::max<std::size_t>(2, asked.size() / 2) && (away == 0 || away < asked.size()))
            found.emplace_back(away, one);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    std::string text;
    for (std::size_t i = 0; i < std::min(kMaxNames, found.size()); ++i)
        text += (text.empty() ? "; nearest: " : ", ") + found[i].second;
    return text;
}

}  // namespace text
