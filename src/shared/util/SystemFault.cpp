#include "util/SystemFault.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <system_error>

namespace util {
namespace {

constexpr std::array kOfSystem{EMFILE, ENFILE, EACCES, EPERM, EIO, ENOMEM, ENOSPC, EDQUOT, EROFS, ESTALE, ENOBUFS};

constexpr std::array kOfOneFile{EACCES, EPERM, EIO, ESTALE};

bool isIn(const auto& numbers, int number) { return std::ranges::find(numbers, number) != numbers.end(); }

thread_local std::optional<SystemFault> first;

}  // namespace

void noteSystemFault(const std::string& path, int number, const char* action) noexcept {
    if (first || !isIn(kOfSystem, number)) return;
    try {
        first = SystemFault{path, number,
                            std::string("cannot be ") + action + ": " + std::generic_category().message(number)};
    } catch (const std::bad_alloc&) {  // which the caller reports when it needs memory
    }
}

void noteWhyMissing(const std::string& path) noexcept {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) noteSystemFault(path, errno);
}

const SystemFault* systemFault() { return first ? &*first : nullptr; }
void forgetSystemFaults() { first.reset(); }

void forgetFaultOfOneFile() {
    if (first && isIn(kOfOneFile, first->number)) first.reset();
}

}  // namespace util
