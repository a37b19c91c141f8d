#pragma once
#include <functional>
#include <span>
#include <string>

#include "json/JsonNode.h"

/// What a reader expects of a document, for checks: the keys that are known and the form of those that are read.
namespace json {

enum class Form {
    unknown,
    text,
    number,  ///< decimal
    flag,    ///< true or false, in any letter case
    object,
    list,   ///< of objects
    texts,  ///< a list of texts
};

struct Shape;
using Shapes = std::span<const Shape>;

struct Shape {
    const char* name;
    Form form;
    bool required = false;
    Shapes (*inner)() = nullptr;  ///< keys of the object, or of each object of the list; null if unknown
    /// Why the reader refuses a value; empty if it does not. Null for a key that is never refused.
    std::function<std::string(const Node& node)> refusal = nullptr;
    bool isOptional = false;  ///< may be missing although an empty text is refused
    /// What a number is read as, in decimal. Null for other keys.
    std::string (*numberOf)(const std::string& text) = nullptr;
    std::size_t size = 0;  ///< of an object of the list in memory
    bool isRead = true;    ///< else the key is only written, and its value is computed
};

}  // namespace json
