#pragma once
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "msg/Budget.h"
#include "text/HSTStringUtils.h"

namespace msg {

/// The pieces of a list in an untrusted text: each separator makes an object, which counts on the request's budget.
inline std::vector<std::string> countedPieces(std::string_view text, char separator) {
    constexpr std::size_t kCopies = 2;  // the list, and that of the model
    const auto count = static_cast<std::size_t>(std::ranges::count(text, separator)) + 1;
    Budget::spend(Cost::records, kCopies * count * sizeof(std::string));
    return HSTStringUtils::split(text, separator);
}

}  // namespace msg
