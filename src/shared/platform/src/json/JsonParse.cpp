#include <algorithm>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>
#include <boost/json/basic_parser_impl.hpp>
#include <optional>
#include <vector>

#include "json/JsonText.h"
#include "json/NodeStore.h"
#include "msg/Budget.h"

namespace json {

namespace {

using boost::property_tree::json_parser::json_parser_error;

/// Builds a tree from the events of Boost.JSON's parser. `problem` is why an event was refused.
class TreeBuilder {
public:
    using error_code = boost::json::error_code;
    using view = boost::json::string_view;
    static constexpr std::size_t max_object_size = -1, max_array_size = -1, max_key_size = -1, max_string_size = -1;

    explicit TreeBuilder(const Limits& limits) : limits_(limits) {}

    ptree root;
    const char* problem = nullptr;

    bool on_document_begin(error_code&) { return true; }
    bool on_document_end(error_code&) { return true; }
    bool on_object_begin(error_code& ec) { return open(ec); }
    bool on_object_end(std::size_t, error_code&) { return close(); }
    bool on_array_begin(error_code& ec) { return open(ec); }
    bool on_array_end(std::size_t, error_code&) { return close(); }
    bool on_key_part(view part, std::size_t, error_code&) {
        key_.append(part.data(), part.size());
        return true;
    }
    bool on_key(view part, std::size_t, error_code& ec) {
        key_.append(part.data(), part.size());
        if (key_.find('\0') != std::string::npos) return refuse(ec, "a key holds a NUL");
        const auto dots = static_cast<std::size_t>(std::count(key_.begin(), key_.end(), '.'));
        return dots < limits_.keyLevels || refuse(ec, "a key has too many levels between its dots");
    }
    bool on_string_part(view part, std::size_t, error_code&) { return keep(part); }
    bool on_string(view part, std::size_t, error_code& ec) {
        if (text_.empty()) return put({part.data(), part.size()}, ec);
        keep(part);
        return putText(ec);
    }
    bool on_number_part(view part, error_code&) { return keep(part); }
    bool on_int64(std::int64_t, view part, error_code& ec) { return keep(part) && putText(ec); }
    bool on_uint64(std::uint64_t, view part, error_code& ec) { return keep(part) && putText(ec); }
    bool on_double(double, view part, error_code& ec) { return keep(part) && putText(ec); }
    bool on_bool(bool value, error_code& ec) { return put(value ? "true" : "false", ec); }
    bool on_null(error_code& ec) { return put("null", ec); }
    bool on_comment_part(view, error_code&) { return true; }
    bool on_comment(view, error_code&) { return true; }

private:
    bool refuse(error_code& ec, const char* why) {
        problem = why;
        ec = make_error_code(boost::json::error::syntax);
        return false;
    }
    bool keep(view part) {
        text_.append(part.data(), part.size());
        return true;
    }
    ptree* node(error_code& ec) {
        if (++nodes_ > limits_.nodes) return refuse(ec, "the document has too many values"), nullptr;
        if (const char* const why = Budget::refusal(Cost::values)) return refuse(ec, why), nullptr;
        if (open_.empty()) return &root;
        ptree& made = open_.back()->push_back(store_.of(key_))->second;
        key_.clear();
        return &made;
    }
    bool put(std::string_view value, error_code& ec) {
        if (value.find('\0') != std::string_view::npos) return refuse(ec, "a text holds a NUL");
        ptree* const made = node(ec);
        if (made) made->data().assign(value);
        return made != nullptr;
    }
    bool putText(error_code& ec) {
        const bool done = put(text_, ec);
        text_.clear();
        return done;
    }
    bool open(error_code& ec) {
        ptree* const made = node(ec);
        if (made) open_.push_back(made);
        return made != nullptr;
    }
    bool close() {
        open_.pop_back();
        return true;
    }

    const Limits limits_;
    std::vector<ptree*> open_;
    std::string key_, text_;
    std::size_t nodes_ = 0;
    NodeStore store_;
};

std::string reason(const TreeBuilder& builder, const boost::json::error_code& ec, const Limits& limits) {
    if (builder.problem) return builder.problem;
    if (ec == boost::json::error::too_deep)
        return "the document nests deeper than " + std::to_string(limits.depth) + " levels";
    return "not valid JSON: " + ec.message();
}

/// Rides along with the property tree's exception, which callers expect and which has no room for it.
using Location = boost::error_info<struct LocationTag, HEXDiagnostic>;

[[noreturn]] void fail(const std::string& name, HEXDiagnostic at, const Fault& fault) {
    at.line = fault.place.line;
    at.column = fault.place.column;
    at.text = fault.text;
    try {
        BOOST_PROPERTY_TREE_THROW(json_parser_error(fault.text + " (column " + std::to_string(at.column) + ")", name,
                                                    static_cast<unsigned long>(at.line)));
    } catch (boost::exception& e) {
        e << Location(std::move(at));
        throw;
    }
}

}  // namespace

const HEXDiagnostic* diagnosticOf(const std::exception& e) { return boost::get_error_info<Location>(e); }

std::optional<Fault> tryParse(std::string_view text, ptree& tree, const Limits& limits) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(kMark) ? kMark.size() : 0;
    boost::json::parse_options options;
    options.max_depth = limits.depth;
    boost::json::basic_parser<TreeBuilder> parser(options, limits);
    boost::json::error_code ec;
    const std::size_t end = start + parser.write_some(false, text.data() + start, text.size() - start, ec);
    if (ec) return Fault{placeAt(text, end), reason(parser.handler(), ec, limits)};
    const auto rest = text.find_first_not_of(" \t\r\n", end);
    if (rest != std::string_view::npos) return Fault{placeAt(text, rest), "there is text after the document"};
    tree.swap(parser.handler().root);
    return std::nullopt;
}

void parse(std::string_view text, const std::string& name, ptree& tree, const Limits& limits) {
    if (const auto fault = tryParse(text, tree, limits)) fail(name, {.file = name}, *fault);
}

void parse(std::string_view text, const std::string& name, const HEXDiagnostic& place, ptree& tree) {
    if (const auto fault = tryParse(text, tree)) fail(name, place, *fault);
}

}  // namespace json
