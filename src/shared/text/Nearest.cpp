#include "text/Nearest.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <utility>

#include "text/HSTStringUtils.h"

namespace text {
namespace {

/// How many letters must be inserted, deleted or changed to get from one text of 1 to 64 bytes to others: the differences
/// between neighbours in a column of the table of distances are bits of two words, and each letter takes some operations on
/// them (Myers 1999).
class ShortText {
public:
    static constexpr std::size_t kMost = 64;

    explicit ShortText(std::string_view text) : size_(text.size()) {
        for (std::size_t i = 0; i < size_; ++i) places_[static_cast<unsigned char>(text[i])] |= std::uint64_t{1} << i;
    }
    std::size_t distanceTo(std::string_view other) const {
        std::uint64_t more = ~std::uint64_t{0}, less = 0;
        std::size_t distance = size_;
        for (const char letter : other) {
            const std::uint64_t same = places_[static_cast<unsigned char>(letter)], vertical = same | less;
            const std::uint64_t horizontal = (((same & more) + more) ^ more) | same;
            std::uint64_t right = less | ~(horizontal | more), left = more & horizontal;
            distance += right >> (size_ - 1) & 1;
            distance -= left >> (size_ - 1) & 1;
            right = right << 1 | 1;
            left <<= 1;
            more = left | ~(vertical | right);
            less = right & vertical;
        }
        return distance;
    }

private:
    std::size_t size_;
    std::array<std::uint64_t, 256> places_ = {};
};

/// The same for any texts.
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

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

/// Whether the texts are the same, ignoring case, after removing `most` letters or fewer, changing them, or exchanging neighbours.
bool isWithin(std::string_view a, std::string_view b, std::size_t most) {
    while (!a.empty() && !b.empty() && lower(a.front()) == lower(b.front())) a.remove_prefix(1), b.remove_prefix(1);
    if (a.empty() || b.empty()) return a.size() + b.size() <= most;
    if (most == 0) return false;
    const bool isExchange = a.size() > 1 && b.size() > 1 && lower(a[0]) == lower(b[1]) && lower(a[1]) == lower(b[0]);
    return isWithin(a.substr(1), b.substr(1), most - 1) || isWithin(a.substr(1), b, most - 1) ||
           isWithin(a, b.substr(1), most - 1) || (isExchange && isWithin(a.substr(2), b.substr(2), most - 1));
}

}  // namespace

std::string nearest(const std::string& name, const std::vector<std::string>& known) {
    constexpr std::size_t kMaxNames = 3, kMaxLength = 256;
    const std::string asked = HSTStringUtils::toLower(name.substr(0, kMaxLength));
    const bool isShort = !asked.empty() && asked.size() <= ShortText::kMost;
    const ShortText shortAsked(isShort ? asked : "");
    const auto distanceTo = [&](const std::string& one) {
        return isShort ? shortAsked.distanceTo(one) : distance(asked, one);
    };
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const std::string& one : known) {
        const std::string lower = HSTStringUtils::toLower(one.substr(0, kMaxLength));
        const std::size_t away = lower.find(asked) != std::string::npos ? 0 : distanceTo(lower);
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

bool isSlip(std::string_view a, std::string_view b) {
    constexpr std::size_t kMaxSlips = 2;
    const std::size_t longer = std::max(a.size(), b.size());
    if (longer - std::min(a.size(), b.size()) > kMaxSlips) return false;
    return isWithin(a, b, std::min(kMaxSlips, longer / 3));
}

}  // namespace text
