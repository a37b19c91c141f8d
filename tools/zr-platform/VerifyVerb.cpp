#include <msg/HEXFileFault.h>
#include <platform/PlatformRequests.h>
#include <text/HSTStringUtils.h>
#include <zip/HUTZip.h>

#include "Console.h"

namespace {

const char* stateName(HUTZip::DigestState state) {
    switch (state) {
        case HUTZip::DigestState::none: return "none";
        case HUTZip::DigestState::valid: return "valid";
        case HUTZip::DigestState::broken: return "broken";
    }
    return "";
}

/// Adds one archive's findings to `records` and `lines`. An archive that cannot be read gives a record with the
/// reason.
Exit verify(const std::string& archive, bool requireDigest, Records& records, std::string& lines) {
    const std::string shown = Console::take().shown(archive);
    const teq_platform::requests::Scope request;
    try {
        const HUTZip::Verification found = HUTZip::verify(archive);
        boost::json::array differences;
        for (const HUTZip::Difference& difference : found.differences) {
            const char* reason = HUTZip::reasonText(difference.reason);
            differences.push_back({{"member", difference.member}, {"reason", reason}, {"text", difference.text}});
            lines += HEXDiagnostic{.file = shown, .member = difference.member, .id = reason, .text = difference.text}
                         .report("") +
                     "\n";
        }
        const bool same = found.isSound() && found.digest != HUTZip::DigestState::broken;
        const bool good = same && !(requireDigest && found.digest == HUTZip::DigestState::none);
        lines += HSTStringUtils::printable(shown) + ": " +
                 (good   ? "good"
                  : same ? "not stamped"
                         : "differs") +
                 ", digest: " + stateName(found.digest) + "\n";
        records.add(
            {{"archive", shown}, {"good", good}, {"digest", stateName(found.digest)}, {"differences", differences}});
        return good ? Exit::done : Exit::no;
    } catch (const HEXFileFault&) {
        const teq_platform::Failure failure = teq_platform::currentFailure(shown);
        Console::take().report(failure);
        records.add({{"archive", shown}, {"good", false}, {"digest", nullptr}, {"problem", failure.diagnostic.text}});
        return exitOf(failure);
    }
}

}  // namespace

int runVerify(const Call& call) {
    Records records("verification");
    std::string lines;
    Exit exit = Exit::done;
    for (const std::string& archive : call.all("ARCHIVE..."))
        exit = worse(exit, verify(archive, call.has("require-digest"), records, lines));
    if (call.has("json") || call.has("ndjson"))
        records.print(call, {});
    else
        Console::take().data(lines);
    return static_cast<int>(exit);
}
