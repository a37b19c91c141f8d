#include <cstdint>
#include <string>

#include "Check.h"
#include "zip/Archive.h"
#include "zip/ArchiveCheck.h"
#include "zip/ArchiveError.h"
#include "zip/Digest.h"
#include "zip/MemoryBytes.h"

/// What is said of an archive's digest agrees with what the bytes give.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using State = HUTZip::DigestState;
    try {
        const zip::Archive archive(std::make_unique<zip::MemoryBytes>(std::string(data, data + size)), "input");
        const HUTZip::Verification found = zip::checkArchive(archive);
        require((found.digest == State::none) == !zip::hasDigest(archive.comment()), "a digest is seen");
        if (found.digest != State::valid) return 0;
        require(found.differences.empty() && zip::isDigestValid(archive), "a valid one agrees with its fields");
        for (const zip::Member& member : archive.members())
            require(zip::digestField(member) == zip::hashOf(archive, member), "each field is the hash of the bytes");
    } catch (const zip::ArchiveError&) {  // no archive
    }
    return 0;
}
