#include "hwdb/RootAttribute.h"

#include <expat.h>

#include <limits>
#include <memory>
#include <new>
#include <type_traits>

namespace {

struct Search {
    XML_Parser parser;
    std::string_view attribute;
    std::optional<std::string> value;
    bool isWithoutMemory = false;
};

/// No exception may cross expat.
void XMLCALL onRoot(void* data, const XML_Char*, const XML_Char** attributes) {
    auto& search = *static_cast<Search*>(data);
    try {
        for (; *attributes; attributes += 2)
            if (search.attribute == attributes[0]) search.value = attributes[1];
    } catch (const std::bad_alloc&) {
        search.isWithoutMemory = true;
    }
    XML_StopParser(search.parser, XML_FALSE);
}

void XMLCALL onDoctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    XML_StopParser(static_cast<Search*>(data)->parser, XML_FALSE);
}

}  // namespace

std::optional<std::string> rootAttribute(std::string_view document, std::string_view attribute) {
    if (document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    Search search{parser.get(), attribute, std::nullopt, false};
    XML_SetUserData(parser.get(), &search);
    XML_SetStartElementHandler(parser.get(), onRoot);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDoctype);
    XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE);
    if (search.isWithoutMemory || XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    return search.value;
}
