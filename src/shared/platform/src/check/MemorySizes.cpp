#include "check/MemorySizes.h"

#include <stdexcept>

#include "hardware/MemorySize.h"
#include "text/HSTStringUtils.h"

namespace check {

std::string sizeFault(const std::string& size) {
    if (size.empty()) return "the memory has no size";
    try {
        if (hardware::gigabytesOf(size) != 0) return {};
    } catch (const std::logic_error&) {
        // A number that something else stands in front of, or one that is too large.
    }
    return "the size \"" + HSTStringUtils::excerpt(size) + "\" counts as 0; a number and GB count, as in \"16GB\"";
}

}  // namespace check
