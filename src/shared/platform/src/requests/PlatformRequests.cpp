#include "platform/PlatformRequests.h"

#include "json/JsonSchema.h"
#include "json/JsonText.h"
#include "msg/Budget.h"
#include "msg/SharedBudget.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaXmlWriter.h"
#include "platform/JSONWriter.h"
#include "platform/PlatformCheck.h"
#include "platform/PlatformExplanation.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformSchema.h"
#include "readers/EmulationKeys.h"
#include "requests/Inputs.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
#include "util/ShownPath.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

constexpr std::string_view kNotRead = shortMessageId("@74-64@%s%s%s");

std::string briefDocument(const HTEQPlatform& platform) {
    JSONObjectWriter writer;
    platform.shortToJSON(writer);
    return writer.text();
}

std::string xmlDocument(const HTEQPlatform& platform, const std::string& file) {
    auto* const hardware = dynamic_cast<HPLPlatform*>(platform.getHardwarePlatform());
    if (!hardware) throw HEXFileFault({.file = file, .text = "the file contains no hardware platform"});
    const std::string& archive = hardware->getPlatformFile();
    try {
        return HTEQCfaXmlWriter(hardware, archive).getText();
    } catch (const HEXFileFault& e) {
        throw HEXFileFault({.file = archive, .text = "cannot be written as XML: " + e.diagnostic().text});
    }
}

}  // namespace

std::string shownPath(const std::string& path, const std::string& file) { return util::shownPath(path, file); }

HEXDiagnostic located(HEXDiagnostic diagnostic, const std::string& file) {
    if (diagnostic.file != file) diagnostic.file = util::shownPath(diagnostic.file, file);
    if (Budget::isRefusedForOthers()) return diagnostic;  // there may be very many such files
    for (const CheckFinding& finding : PlatformCheck::check(file)) {
        const bool isIt = finding.severity == CheckFinding::Severity::error && finding.file == diagnostic.file &&
                          finding.member == diagnostic.member &&
                          (diagnostic.line == 0 || finding.line == diagnostic.line);
        if (!isIt) continue;
        const std::string id = std::move(diagnostic.id);
        if (diagnostic.line == 0) diagnostic = finding;
        diagnostic.name = finding.name;
        diagnostic.id = id;
        break;
    }
    return diagnostic;
}

Scope::Scope(std::uint64_t budget)
    : request_(std::make_unique<zip::Request>(budget > 0 ? budget : zip::OutputBudget::kOfCall)) {}
Scope::~Scope() = default;

SharedScope::SharedScope() : budget_(std::make_unique<SharedBudget>()) {}
SharedScope::~SharedScope() = default;

std::shared_ptr<HTEQPlatform> load(const std::string& file, HwMetadataMode mode) {
    checkInput(file);
    try {
        auto platform = PlatformLoader::open(file, mode);
        checkSystem();
        return platform;
    } catch (const HEXFileFault& e) {
        if (systemFailed()) throw;
        throw HEXFileFault(located(e.diagnostic(), file));
    }
}

namespace {

std::string textOf(const HTEQPlatform& platform, const std::string& file, Form form) {
    switch (form) {
        case Form::full: return PlatformLoader::document(platform, file);
        case Form::brief: return briefDocument(platform);
        case Form::xml: return xmlDocument(platform, file);
    }
    return {};
}

}  // namespace

std::string document(const HTEQPlatform& platform, const std::string& file, Form form) {
    try {
        std::string text = textOf(platform, file, form);
        checkSystem();
        return text;
    } catch (const HEXFileFault& e) {
        HEXDiagnostic diagnostic = e.diagnostic();
        diagnostic.file = diagnostic.file.empty() ? file  // a limit of the request
                                                  : util::shownPath(diagnostic.file, file);
        if (diagnostic.id.empty() && !diagnostic.member.empty()) diagnostic.id = kNotRead;
        throw HEXFileFault(diagnostic);
    }
}

Fields fields(const HTEQPlatform& platform) {
    Fields fields{platform.getName(),
                  platform.getVendor(),
                  platform.getLibrary(),
                  platform.getVersion(),
                  platform.getDescription(),
                  platform.getTypePrettyString(),
                  platform.getPlatformFile(),
                  platform.getHardwarePlatformFile(),
                  platform.getHardwareEmuPlatformFile(),
                  platform.getSoftwarePlatformFile()};
    const auto at = [&fields](Field field) -> std::string& { return fields.at(static_cast<std::size_t>(field)); };
    if (const HTEQHardwarePlatform* hardware = platform.getHardwarePlatform(); hardware && !platform.isZdf()) {
        at(Field::name) = hardware->getName();
        at(Field::vendor) = hardware->getVendor();
        at(Field::version) = hardware->getVersion();
        at(Field::description) = hardware->getDescription();
    }
    return fields;
}

std::string explain(const std::string& name) {
    explanation(name);
    return PlatformExplanation::text(name);
}

Explanation explanation(const std::string& name) {
    auto found = PlatformExplanation::find(name);
    if (!found)
        throw RequestError(FailureKind::unknownName, {.text = "there is no finding or message '" + name + "'" +
                                                              nearest(name, PlatformExplanation::names())});
    return *std::move(found);
}

std::string schema(const std::string& format) {
    static const std::string emulationJson = "emu-json";
    if (format == emulationJson)
        return json::schemaOf("Emulation targets of a hardware platform", json::shapesOfRecord<HTEQEmulations>());
    std::string text = PlatformSchema::text(format);
    if (text.empty())
        throw RequestError(FailureKind::unknownFormat,
                           {.text = "unknown format '" + format + "'; expected one of " +
                                    HSTStringUtils::join(PlatformSchema::formats(), ", ") + ", " + emulationJson});
    return text;
}

std::string nearest(const std::string& name, const HSTVector<std::string>& known) {
    return text::nearest(name, known);
}

}  // namespace teq_platform::requests
