#include <cstdint>
#include <span>
#include <string>

#include "Check.h"
#include "Members.h"
#include "Quiet.h"
#include "kit/Scratch.h"
#include "platform/PlatformCheck.h"
#include "platform/zr_platform.hpp"
#include "text/HSTStringUtils.h"

namespace {

struct Kind {
    const char* file;
    const char* member;  ///< the first one of an archive; null if the file is not one
    bool loads;          ///< there is a reader for the whole file
};
constexpr Kind kJson[] = {
    {"input.lfa", "lfa.json", true}, {"hw_emu.json", nullptr, false}, {"input.json", nullptr, false}};
constexpr Kind kXml[] = {{"input.lfa", "lfa.xml", true},
                         {"input.zdf", nullptr, true},
                         {"input.spfm", nullptr, true},
                         {"input.xml", nullptr, false}};

/// Whether the file is a platform, by the reader, and makes a document.
bool loads(const std::string& file) {
    try {
        zr::Platform(file).document();
        return true;
    } catch (const zr::Error& e) {
        require(e.code() != ZR_INTERNAL && e.code() != ZR_WRONG_USE, "a file is at fault, not the library");
        return false;
    }
}

void requireSound(const zr::Finding& finding, const std::string& folder) {
    require(finding.file.starts_with(folder), "a finding names its file");
    require(teq_platform::PlatformCheck::explain(finding.name) != nullptr, "a finding is explained");
    require(!finding.text.empty() && HSTStringUtils::printable(finding.text) == finding.text, "a finding has a text");
    require(finding.line > 0 || finding.column == 0, "a column needs a line");
}

/// Whether validation, which no file stops, finds an error.
bool isFaulty(const std::string& file, const std::string& folder) {
    bool faulty = false;
    for (const zr::Finding& finding : zr::validate(file)) {
        requireSound(finding, folder);
        faulty |= finding.severity == ZR_ERROR;
    }
    return faulty;
}

}  // namespace

/// Validation and the readers agree: what is without an error loads, and is written as a document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string text(data, data + size);
    const bool isJson = text.starts_with('{') || text.starts_with('[');
    for (const Kind& kind : isJson ? std::span<const Kind>(kJson) : kXml) {
        const std::string file = scratch.put(kind.file, kind.member ? archiveOf(text, kind.member) : text);
        const bool faulty = isFaulty(file, scratch.str());
        require(faulty || !kind.loads || loads(file), "what has no error loads");
    }
    return 0;
}
