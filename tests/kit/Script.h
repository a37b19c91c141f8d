#pragma once
#include <concepts>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kit/Cases.h"
#include "text/HSTStringUtils.h"

/// Calls of a class as text cases: "| NAME ARGUMENT; ARGUMENT -> RESULT" calls a function of a table on the object of the
/// case. Lists are shown with commas, objects as "set" or "null".
namespace script {

using Arguments = std::vector<std::string>;
template <class C>
using Calls = std::map<std::string, std::function<std::string(C&, const Arguments&)>>;

template <class T>
T argument(const std::string& text) {
    if constexpr (std::same_as<T, bool>)
        return text == "true";
    else if constexpr (std::integral<T>)
        return static_cast<T>(std::stoll(text));
    else
        return T(text);
}

template <class T>
std::string shown(const T& value) {
    if constexpr (std::same_as<T, std::string>)
        return value;
    else if constexpr (std::same_as<T, bool>)
        return value ? "true" : "false";
    else if constexpr (std::integral<T>)
        return std::to_string(value);
    else if constexpr (std::is_enum_v<T>)
        return std::to_string(static_cast<int>(value));
    else if constexpr (std::is_pointer_v<T>)
        return value ? "set" : "null";
    else
        return HSTStringUtils::join({value.begin(), value.end()}, ",");
}

template <class B, class R, class... A>
auto called(auto function) {
    return [function](B& object, const Arguments& arguments) {
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            if constexpr (std::is_void_v<R>)
                return (object.*function)(argument<std::decay_t<A>>(arguments.at(I))...), std::string();
            else
                return shown<std::decay_t<R>>((object.*function)(argument<std::decay_t<A>>(arguments.at(I))...));
        }
        (std::index_sequence_for<A...>());
    };
}
/// A call with arguments that are texts, numbers or Booleans.
template <class B, class R, class... A>
auto call(R (B::*function)(A...)) {
    return called<B, R, A...>(function);
}
template <class B, class R, class... A>
auto call(R (B::*function)(A...) const) {
    return called<B, R, A...>(function);
}

/// The name of a member function, as the compiler prints it.
template <auto Function>
std::string nameOf() {
    std::string_view text = __PRETTY_FUNCTION__;
    text = text.substr(text.find("Function = "));
    text = text.substr(0, text.find_first_of(";]"));
    text = text.substr(text.rfind("::") + 2);
    return std::string(text.substr(0, text.find_first_of("()")));
}

/// A table of these functions, by name, and of other calls.
template <class C, auto... Functions>
Calls<C> calls(Calls<C> table) {
    (table.emplace(nameOf<Functions>(), call(Functions)), ...);
    return table;
}

/// A call that adds names to a list, which has "before" already.
template <class B, class List>
auto listing(void (B::*function)(List&) const) {
    return [function](B& object, const Arguments&) {
        List names{"before"};
        (object.*function)(names);
        return shown(names);
    };
}

/// A call that gives two lists.
template <class B, class List>
auto twoLists(void (B::*function)(List&, List&) const) {
    return [function](B& object, const Arguments&) {
        List first, second;
        (object.*function)(first, second);
        return shown(first) + ": " + shown(second);
    };
}

template <class C>
void expectCalls(const std::string& file, const Calls<C>& calls) {
    std::string of;
    std::unique_ptr<C> object;
    cases::expectTexts(file, [&](const std::string& name, const std::string& text) -> std::string {
        if (std::exchange(of, name) != name) {
            object.reset();  // may have a setting of the process that the next one has too
            object = std::make_unique<C>();
        }
        const auto blank = std::min(text.find(' '), text.size());
        Arguments arguments;
        if (blank < text.size()) arguments = HSTStringUtils::split(text.substr(blank + 1), ';');
        for (std::string& each : arguments)
            if (&each != &arguments.front() && each.starts_with(' ')) each.erase(0, 1);
        const auto& function = calls.at(text.substr(0, blank));
        try {
            return function(*object, arguments);
        } catch (const std::out_of_range&) {
            return "out of range";
        }
    });
}

}  // namespace script

/// The row of a function.
#define ZR_CALL(C, name) \
    { #name, script::call(&C::name) }
