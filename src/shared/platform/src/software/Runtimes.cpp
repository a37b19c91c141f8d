#include "software/Runtimes.h"

#include <algorithm>
#include <iterator>

#include "text/HSTStringUtils.h"

namespace runtimes {

namespace {

struct Runtime {
    std::string_view name, prettyName;
};
constexpr Runtime kRuntimes[] = {{"ocl", "OpenCL"}, {"cpp", "C/C++"}};

}  // namespace

bool isSupported(std::string_view name) {
    return std::any_of(std::begin(kRuntimes), std::end(kRuntimes), [&](const Runtime& r) {
        return HSTStringUtils::iequals(name, r.name) || HSTStringUtils::iequals(name, r.prettyName);
    });
}

std::string prettyName(std::string_view name) {
    for (const Runtime& r : kRuntimes)
        if (HSTStringUtils::iequals(name, r.name)) return std::string(r.prettyName);
    return std::string(name);
}

}  // namespace runtimes
