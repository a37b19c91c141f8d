#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "Check.h"
#include "Members.h"
#include "Quiet.h"
#include "json/JsonText.h"
#include "kit/Scratch.h"
#include "msg/HEXAll.h"
#include "platform/HTEQPlatform.h"
#include "platform/JSONWriter.h"
#include "platform/PlatformLoader.h"

namespace {

using teq_platform::PlatformLoader;

/// Null when the file cannot be loaded.
std::shared_ptr<HTEQPlatform> loaded(const std::string& file) {
    try {
        return PlatformLoader::open(file, teq_platform::HwMetadataMode::Default);
    } catch (const HEXAll&) {
        return nullptr;
    }
}

/// The model's document, or why there is none.
std::string documentOf(const HTEQPlatform& platform, bool keepsTree) {
    teq_platform::JSONObjectWriter writer;
    if (keepsTree) writer.getTree();
    try {
        writer.writeObject(platform);
        return writer.text();
    } catch (const std::exception& e) {
        return e.what();
    }
}

}  // namespace

/// A whole platform archive, from the file to the document, which is the same with a tree and without one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file =
        scratch.put("input.lfa", archiveOf({reinterpret_cast<const char*>(data), size}, "lfa.json"));
    const auto platform = loaded(file);
    if (!platform) return 0;
    const std::string document = documentOf(*platform, false);
    require(document == documentOf(*platform, true), "the same document with a tree");
    json::ptree tree;
    if (!document.starts_with('{')) return 0;  // the extension metadata is not JSON, or names clash
    json::parse(document, "document", tree, json::kOwn);
    require(tree.get("file", "") == file, "the document contains its file");
    return 0;
}
