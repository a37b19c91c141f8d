#include <sys/resource.h>

#include <cstdint>
#include <ctime>
#include <string_view>

#include "Check.h"
#include "Members.h"
#include "Quiet.h"
#include "kit/Scratch.h"
#include "platform/PlatformCheck.h"
#include "platform/PlatformRequests.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr double kSlower = 8, kLarger = 4;
#else
constexpr double kSlower = 1, kLarger = 1;
#endif

struct Spent {
    double seconds, bytes;
};

/// Of the process so far: the processor's time, and the largest memory.
Spent spent() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    return {static_cast<double>(std::clock()) / CLOCKS_PER_SEC, static_cast<double>(used.ru_maxrss) * 1024};
}

}  // namespace

/// Time and memory of a document and of its check stay in proportion to the metadata.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file =
        scratch.put("input.lfa", archiveOf({reinterpret_cast<const char*>(data), size}, "lfa.json"));
    const Spent before = spent();
    try {
        const teq_platform::requests::Scope request;
        const auto platform = teq_platform::requests::load(file, {});
        teq_platform::requests::document(*platform, file, teq_platform::requests::Form::full);
    } catch (const std::exception&) {  // a refusal is an answer
    }
    teq_platform::PlatformCheck::check(file);
    const Spent after = spent();
    require(after.seconds - before.seconds < kSlower * (0.3 + 2e-5 * static_cast<double>(size)),
            "time in proportion");
    require(after.bytes - before.bytes < kLarger * (32e6 + 3e3 * static_cast<double>(size)), "memory in proportion");
    return 0;
}
