#include "platform/zr_platform.h"

#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "msg/ComMsgMgr.h"
#include "platform/PlatformRequests.h"
#include "text/HSTStringUtils.h"
#include "zip/OutputBudget.h"

using namespace capi;
namespace requests = teq_platform::requests;

static_assert(static_cast<int>(requests::Field::softwareFile) == ZR_FIELD_SOFTWARE_FILE);

Options capi::readOptions(const zr_options* given) {
    const zr_options options = given ? readStruct(*given) : zr_options{};
    constexpr std::uint64_t kMaxBudget = zip::OutputBudget::kOfCall;
    if (options.metadata > ZR_METADATA_XML) wrongUse("options: unknown metadata mode");
    if (options.reserved != 0) wrongUse("options: reserved is not 0");
    if (options.max_unpacked > kMaxBudget) wrongUse("options: max_unpacked is above 1 GiB");
    return {static_cast<teq_platform::HwMetadataMode>(options.metadata),
            options.max_unpacked > 0 ? options.max_unpacked : kMaxBudget};
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
            const std::string id(shortMessageId(message.id));
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
        const requests::Scope scope(made->options.budget);
        made->loaded = requests::load(made->file, made->options.mode);
        made->fields = requests::fields(*made->loaded);
        *platform = made.release();
    });
}

void zr_platform_free(zr_platform* platform) noexcept { delete platform; }

const char* zr_platform_get(const zr_platform* platform, std::uint32_t field) noexcept {
    return platform && field < platform->fields.size() ? platform->fields[field].c_str() : nullptr;
}

namespace {

zr_code giveDocument(const zr_platform* platform, requests::Form form, zr_text** text, zr_error** error) noexcept {
    if (text) *text = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        const requests::Scope scope(need(platform, "platform").options.budget);
        give(text, requests::document(*platform->loaded, platform->file, form));
    });
}

}  // namespace

zr_code zr_platform_document(const zr_platform* platform, zr_text** document, zr_error** error) noexcept {
    return giveDocument(platform, requests::Form::full, document, error);
}

zr_code zr_platform_short_document(const zr_platform* platform, zr_text** document, zr_error** error) noexcept {
    return giveDocument(platform, requests::Form::brief, document, error);
}

zr_code zr_platform_xml(const zr_platform* platform, zr_text** xml, zr_error** error) noexcept {
    return giveDocument(platform, requests::Form::xml, xml, error);
}
