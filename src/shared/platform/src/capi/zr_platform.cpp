#include "platform/zr_platform.h"

#include <array>
#include <memory>

#include "archive/Request.h"
#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "json/JsonText.h"
#include "msg/ShortId.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaXmlWriter.h"
#include "platform/JSONWriter.h"
#include "platform/PlatformLoader.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/OutputBudget.h"

using namespace capi;
using teq_platform::JSONObjectWriter;
using teq_platform::PlatformLoader;

namespace {

constexpr std::size_t kFields = ZR_FIELD_SOFTWARE_FILE + 1;

std::array<std::string, kFields> fieldsOf(const HTEQPlatform& platform) {
    std::array<std::string, kFields> fields;
    fields[ZR_FIELD_NAME] = platform.getName();
    fields[ZR_FIELD_VENDOR] = platform.getVendor();
    fields[ZR_FIELD_LIBRARY] = platform.getLibrary();
    fields[ZR_FIELD_VERSION] = platform.getVersion();
    fields[ZR_FIELD_DESCRIPTION] = platform.getDescription();
    fields[ZR_FIELD_TYPE] = platform.getTypePrettyString();
    fields[ZR_FIELD_FILE] = platform.getPlatformFile();
    fields[ZR_FIELD_HARDWARE_FILE] = platform.getHardwarePlatformFile();
    fields[ZR_FIELD_EMULATION_FILE] = platform.getHardwareEmuPlatformFile();
    fields[ZR_FIELD_SOFTWARE_FILE] = platform.getSoftwarePlatformFile();
    if (const HTEQHardwarePlatform* hardware = platform.getHardwarePlatform(); hardware && !platform.isZdf()) {
        fields[ZR_FIELD_NAME] = hardware->getName();
        fields[ZR_FIELD_VENDOR] = hardware->getVendor();
        fields[ZR_FIELD_VERSION] = hardware->getVersion();
        fields[ZR_FIELD_DESCRIPTION] = hardware->getDescription();
    }
    return fields;
}

std::string xmlOf(const HTEQPlatform& platform, const std::string& file) {
    auto* const hardware = dynamic_cast<HPLPlatform*>(platform.getHardwarePlatform());
    if (!hardware) throw HEXFileFault({.file = file, .text = "there is no hardware platform in it"});
    try {
        return HTEQCfaXmlWriter(hardware, hardware->getPlatformFile()).getText();
    } catch (const HXMLException& e) {
        throw HEXFileFault(
            {.file = hardware->getPlatformFile(), .text = "there is no XML form of it: " + e.message().args.at(1)});
    }
}

}  // namespace

struct zr_platform {
    std::string file;  ///< as it was given
    Options options;
    std::shared_ptr<HTEQPlatform> loaded;
    std::array<std::string, kFields> fields;
};

Options capi::readOptions(const zr_options* given) {
    const zr_options options = given ? readStruct(*given) : zr_options{};
    constexpr std::uint64_t kMost = zip::OutputBudget::kOfCall;
    if (options.metadata > ZR_METADATA_XML) wrongUse("options: there is no such metadata mode");
    if (options.reserved != 0) wrongUse("options: reserved is not 0");
    if (options.max_unpacked > kMost) wrongUse("options: max_unpacked is above 1 GiB");
    return {static_cast<teq_platform::HwMetadataMode>(options.metadata),
            options.max_unpacked > 0 ? options.max_unpacked : kMost};
}

void capi::give(zr_text** to, std::string bytes) {
    zr_text*& result = need(to, "the result");
    result = new zr_text{std::move(bytes)};
}

const char* zr_library_version() noexcept { return ZR_VERSION; }
std::uint32_t zr_interface_version() noexcept { return ZR_INTERFACE_VERSION; }

zr_code zr_set_message_function(zr_message_function function, void* user, zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        if (!function) return ComMsgMgr::setSink(nullptr);
        ComMsgMgr::setSink([function, user](const ComMsgMgrInstance& message) {
            const std::string id(msg::shortId(message.id));
            const std::string text = HSTStringUtils::printable(message.text);
            const zr_message given{sizeof(zr_message), id.c_str(), text.c_str(),
                                   static_cast<std::uint32_t>(message.mask), 0};
            function(user, &given);
        });
    });
}

const char* zr_text_data(const zr_text* text) noexcept { return text ? text->bytes.c_str() : ""; }
std::size_t zr_text_size(const zr_text* text) noexcept { return text ? text->bytes.size() : 0; }
void zr_text_free(zr_text* text) noexcept { delete text; }

zr_code zr_platform_load(const char* file, const zr_options* options, zr_platform** platform,
                         zr_error** error) noexcept {
    if (platform) *platform = nullptr;
    return guarded(error, file, [&] {
        need(platform, "platform");
        auto made = std::make_unique<zr_platform>();
        made->file = needText(file, "file");
        made->options = readOptions(options);
        if (!HUTFile::exists(made->file)) notFound(made->file, "no such file");
        const archive::Request request(made->options.budget);
        made->loaded = PlatformLoader::open(made->file, made->options.mode);
        made->fields = fieldsOf(*made->loaded);
        *platform = made.release();
    });
}

void zr_platform_free(zr_platform* platform) noexcept { delete platform; }

const char* zr_platform_get(const zr_platform* platform, std::uint32_t field) noexcept {
    return platform && field < kFields ? platform->fields[field].c_str() : nullptr;
}

namespace {

/// Gives the text that `make` makes of a platform.
template <class Make>
zr_code giveOf(const zr_platform* platform, zr_text** text, zr_error** error, Make make) noexcept {
    if (text) *text = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        const archive::Request request(need(platform, "platform").options.budget);
        give(text, make(*platform->loaded));
    });
}

}  // namespace

zr_code zr_platform_document(const zr_platform* platform, zr_text** document, zr_error** error) noexcept {
    return giveOf(platform, document, error,
                  [&](const HTEQPlatform& loaded) { return PlatformLoader::document(loaded, platform->file); });
}

zr_code zr_platform_short_document(const zr_platform* platform, zr_text** document, zr_error** error) noexcept {
    return giveOf(platform, document, error, [](const HTEQPlatform& loaded) {
        JSONObjectWriter writer;
        loaded.shortToJSON(writer);
        return json::write(writer.getTree());
    });
}

zr_code zr_platform_xml(const zr_platform* platform, zr_text** xml, zr_error** error) noexcept {
    return giveOf(platform, xml, error,
                  [platform](const HTEQPlatform& loaded) { return xmlOf(loaded, platform->file); });
}
