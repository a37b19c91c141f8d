#include "hwdb/RootAttribute.h"

#include <expat.h>

#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "xml/XmlReader.h"

namespace {

struct Search {
    XML_Parser parser;
    std::string_view attribute;
    bool isWhole;  ///< the document is read to its end
    std::size_t depth = 0;
    std::optional<std::string> value = {};
    HEXDiagnostic fault = {};
    bool isWithoutMemory = false;

    void setFault(const char* text) {
        fault = {
            .line = XML_GetCurrentLineNumber(parser), .column = XML_GetCurrentColumnNumber(parser) + 1, .text = text};
    }
};

/// Calls `use`, whose exceptions may not cross expat.
template <class Use>
void guarded(void* data, Use use) {
    auto& search = *static_cast<Search*>(data);
    try {
        if (use(search)) return;
    } catch (const std::bad_alloc&) {
        search.isWithoutMemory = true;
    }
    XML_StopParser(search.parser, XML_FALSE);
}

void XMLCALL onStart(void* data, const XML_Char*, const XML_Char** attributes) {
    guarded(data, [attributes](Search& search) {
        if (search.depth == 0)
            for (const XML_Char** at = attributes; *at; at += 2)
                if (search.attribute == at[0]) search.value = at[1];
        if (++search.depth <= xml::kMaxDepth) return search.isWhole;
        search.setFault("elements are nested too deeply");
        return false;
    });
}

void XMLCALL onEnd(void* data, const XML_Char*) { --static_cast<Search*>(data)->depth; }

void XMLCALL onDoctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    guarded(data, [](Search& search) {
        search.setFault("a document type declaration is not allowed");
        return false;
    });
}

void run(Search& search, std::string_view document) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    search.parser = parser.get();
    XML_SetUserData(parser.get(), &search);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDoctype);
    XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE);
    const XML_Error code = XML_GetErrorCode(parser.get());
    if (search.isWithoutMemory || code == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    if (search.isWhole && code != XML_ERROR_NONE && search.fault.text.empty())
        search.setFault(("not well-formed XML: " + std::string(XML_ErrorString(code))).c_str());
}

}  // namespace

std::optional<std::string> rootAttribute(std::string_view document, std::string_view attribute) {
    if (document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return std::nullopt;
    Search search{nullptr, attribute, false};
    run(search, document);
    return search.value;
}

RootOfWhole rootOfWhole(std::string_view document, std::string_view attribute) {
    if (document.size() > xml::kMaxDocument) return {std::nullopt, {.text = "the document is too large"}};
    Search search{nullptr, attribute, true};
    run(search, document);
    return {std::move(search.value), std::move(search.fault)};
}
