#include <algorithm>
#include <boost/property_tree/json_parser.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Check.h"
#include "Quiet.h"
#include "json/JsonText.h"
#include "platform/HTEQPlatformCAPI.h"
#include "support/Scratch.h"
#include "zip/ZipBuilder.h"

namespace {

/// An archive of the members in `text`: each begins behind a line "--- NAME". What stands before the first such line,
/// often all, is the metadata member.
std::string archiveOf(std::string_view text) {
    constexpr std::string_view kMark = "\n--- ";
    builder::Zip zip;
    std::string name = "lfa.json";
    for (;;) {
        const auto end = text.find(kMark);
        zip.entries.emplace_back(name, std::string(text.substr(0, end)));
        if (end == std::string_view::npos) return zip.build();
        text.remove_prefix(end + kMark.size());
        const auto line = std::min(text.find('\n'), text.size());
        name = text.substr(0, line);
        text.remove_prefix(std::min(line + 1, text.size()));
    }
}

/// Null when the file makes no document.
std::unique_ptr<char, decltype(&hteq_free_json_string)> documentOf(const std::string& file) {
    char* text = nullptr;
    try {
        text = hteq_get_platform_json(file.c_str());
    } catch (const boost::property_tree::json_parser_error&) {  // the extension metadata is no JSON
    }
    return {text, hteq_free_json_string};
}

}  // namespace

/// A whole platform archive, from the file to the document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file = scratch.put("input.lfa", archiveOf({reinterpret_cast<const char*>(data), size}));
    const auto document = documentOf(file);
    if (!document) return 0;
    json::ptree tree;
    json::parse(document.get(), "document", tree, json::kOwn);
    require(tree.get("file", "") == file, "the document tells its file");
    return 0;
}
