#include <cstdint>
#include <optional>
#include <string_view>

#include "Check.h"
#include "records/TEQCfaXmlLMX.h"
#include "records/TEQEmulationLMX.h"
#include "records/TEQHpfmLMX.h"
#include "records/TEQPlatformLMX.h"
#include "records/TEQSoftwarePlatformLMX.h"
#include "xml/XmlReader.h"
#include "xml/XmlWriter.h"

namespace {

template <class R>
std::optional<R> readOne(const xml::Document<R>& format, std::string_view text) {
    const xml::Violations violations = xml::check(format, text, "input");
    try {
        R record = xml::read(format, text, "input");
        require(violations.empty(), "a document that is read has no violations");
        return record;
    } catch (const xml::Exception& e) {
        require(!violations.empty(), "a document that is refused has violations");
        require(violations.front().text == e.text(), "the first violation is the one that refuses");
        return std::nullopt;
    }
}

template <class R>
void tryFormat(const xml::Document<R>& format, std::string_view text) {
    const std::optional<R> record = readOne(format, text);
    if (!record) return;
    const std::string written = xml::write(format, *record);
    const R again = xml::read(format, written, "written");
    require(again == *record, "the written document gives the record again");
    require(xml::write(format, again) == written, "equal records give equal documents");
}

}  // namespace

/// Each format reads the text; a document of the format gives, written and read again, an equal record.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tryFormat(TEQPlatform::kDocument, text);
    tryFormat(TEQSoftwarePlatform::kDocument, text);
    tryFormat(WELHardwarePlatform::kDocument, text);
    tryFormat(TEQEmulation::kDocument, text);
    tryFormat(BasePlatform::kDocument, text);
    return 0;
}
