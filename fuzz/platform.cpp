#include <boost/property_tree/json_parser.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Check.h"
#include "Members.h"
#include "Quiet.h"
#include "json/JsonText.h"
#include "kit/Scratch.h"
#include "platform/HTEQPlatformCAPI.h"

namespace {

/// Null when the file makes no document.
std::unique_ptr<char, decltype(&hteq_free_json_string)> documentOf(const std::string& file) {
    char* text = nullptr;
    try {
        text = hteq_get_platform_json(file.c_str());
    } catch (const boost::property_tree::json_parser_error&) {  // the extension metadata is not JSON
    }
    return {text, hteq_free_json_string};
}

}  // namespace

/// A whole platform archive, from the file to the document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file =
        scratch.put("input.lfa", archiveOf({reinterpret_cast<const char*>(data), size}, "lfa.json"));
    const auto document = documentOf(file);
    if (!document) return 0;
    json::ptree tree;
    json::parse(document.get(), "document", tree, json::kOwn);
    require(tree.get("file", "") == file, "the document contains its file");
    return 0;
}
