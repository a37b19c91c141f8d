#pragma once
#include <boost/property_tree/ptree.hpp>
#include <functional>
#include <span>
#include <string>

/// What a reader expects of a document, for those who check one: the keys that are read and what stands at each.
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
    Shapes (*inner)() = nullptr;  ///< keys of the object, or of each object of the list; null when they are not told
    /// Why the reader refuses what stands there; empty when it does not. None for a key that is never refused.
    std::function<std::string(const boost::property_tree::ptree& node)> refusal = nullptr;
};

}  // namespace json
