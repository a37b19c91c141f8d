#include "platform/HTEQPlatformCAPI.h"

#include "platform/JSONWriter.h"
#include "platform/PlatformLoader.h"
#include "zip/Request.h"

namespace {

using teq_platform::JSONObjectWriter;

/// The document that `fill` writes for the loaded platform, or null if it cannot be loaded.
char* document(const std::string& file, void (*fill)(JSONObjectWriter&, const HTEQPlatform&)) {
    const zip::Request request;
    const auto platform = teq_platform::PlatformLoader(file, teq_platform::HwMetadataMode::Default).load();
    if (!platform) return nullptr;
    JSONObjectWriter writer;
    fill(writer, *platform);
    return writer.takeText().release();
}

}  // namespace

char* hteq_get_platform_json(const char* file) {
    return document(file,
                    [](JSONObjectWriter& writer, const HTEQPlatform& platform) { writer.writeObject(platform); });
}

char* hteq_get_short_platform_json(const char* file) {
    return document(file,
                    [](JSONObjectWriter& writer, const HTEQPlatform& platform) { platform.shortToJSON(writer); });
}

void hteq_free_json_string(char* text) { delete[] text; }
