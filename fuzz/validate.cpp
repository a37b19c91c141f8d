#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "Check.h"
#include "Members.h"
#include "Quiet.h"
#include "platform/PlatformCheck.h"
#include "platform/zr_platform.h"
#include "support/Scratch.h"
#include "text/HSTStringUtils.h"

namespace {

struct Kind {
    const char* file;
    const char* member;  ///< the first one of an archive; null for a file that is none
    bool loads;          ///< there is a reader for the whole file
};
constexpr Kind kJson[] = {
    {"input.lfa", "lfa.json", true}, {"hw_emu.json", nullptr, false}, {"input.json", nullptr, false}};
constexpr Kind kXml[] = {{"input.lfa", "lfa.xml", true},
                         {"input.zdf", nullptr, true},
                         {"input.spfm", nullptr, true},
                         {"input.xml", nullptr, false}};

/// Whether the file is a platform, by the reader.
bool loads(const std::string& file) {
    zr_platform* platform = nullptr;
    const zr_code code = zr_platform_load(file.c_str(), nullptr, &platform, nullptr);
    require(code != ZR_INTERNAL && code != ZR_WRONG_USE, "a file is at fault, not the library");
    require((code == ZR_OK) == (platform != nullptr), "a platform, or an error");
    zr_text* document = nullptr;
    const bool isWritten = platform && zr_platform_document(platform, &document, nullptr) == ZR_OK;
    zr_text_free(document);
    zr_platform_free(platform);
    return isWritten;
}

void requireSound(const zr_finding& finding, const std::string& file) {
    require(finding.file == file || std::string_view(finding.file).starts_with(file.substr(0, file.rfind('/'))),
            "a finding names its file");
    require(teq_platform::PlatformCheck::explain(finding.name) != nullptr, "a finding is explained");
    require(*finding.text != '\0' && HSTStringUtils::printable(finding.text) == finding.text, "a finding has words");
    require(finding.line > 0 || finding.column == 0, "a column stands in a line");
}

/// Whether validation finds an error.
bool isFaulty(const std::string& file) {
    zr_findings* findings = nullptr;
    require(zr_validate(file.c_str(), nullptr, &findings, nullptr) == ZR_OK, "every file can be validated");
    bool faulty = false;
    for (std::uint64_t i = 0; i < zr_findings_count(findings); ++i) {
        zr_finding finding{};
        finding.size = sizeof finding;
        require(zr_findings_get(findings, i, &finding, nullptr) == ZR_OK, "each finding can be asked for");
        requireSound(finding, file);
        faulty |= finding.severity == ZR_ERROR;
    }
    zr_findings_free(findings);
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
        const bool faulty = isFaulty(file);
        require(faulty || !kind.loads || loads(file), "what has no error loads");
    }
    return 0;
}
