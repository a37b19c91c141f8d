#include "records/Formats.h"

#include <algorithm>

#include "records/TEQCfaXmlLMX.h"
#include "records/TEQEmulationLMX.h"
#include "records/TEQHpfmLMX.h"
#include "records/TEQPlatformLMX.h"
#include "records/TEQSoftwarePlatformLMX.h"

namespace records {

namespace {

template <class R>
Checked checked(const xml::Document<R>& format, std::string_view text, const std::string& file,
                std::size_t maxViolations) {
    auto record = std::make_shared<R>();
    xml::Violations violations;
    xml::read(format, text, file, record.get(), &violations, maxViolations);
    return {std::move(record), std::move(violations)};
}

template <const auto& Document>
constexpr FormatRow row(const char* name, const char* what) {
    return {name, what, &Document, [](std::string_view text, const std::string& file, std::size_t maxViolations) {
                return checked(Document, text, file, maxViolations);
            }};
}

constexpr FormatRow kFormats[] = {
    row<TEQPlatform::kDocument>("zdf", "a platform descriptor"),
    row<TEQSoftwarePlatform::kDocument>("spfm", "a software platform"),
    row<WELHardwarePlatform::kDocument>("hpfm", "the hardware as its generator sees it"),
    row<BasePlatform::kDocument>("cfa", "the metadata of an older hardware archive"),
    row<TEQEmulation::kDocument>("emu", "emulation targets"),
};

}  // namespace

std::span<const FormatRow> formats() { return kFormats; }

const FormatRow* findFormat(std::string_view name) {
    const auto* const at =
        std::ranges::find_if(kFormats, [&](const FormatRow& format) { return format.name == name; });
    return at != std::end(kFormats) ? at : nullptr;
}

}  // namespace records
