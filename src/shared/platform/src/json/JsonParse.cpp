#include <algorithm>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>
#include <boost/json/basic_parser_impl.hpp>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "json/JsonNode.h"
#include "msg/Budget.h"

namespace json {

namespace {

using boost::property_tree::json_parser::json_parser_error;

}  // namespace

/// Fills a document from the events of Boost.JSON's parser. `problem` is why an event was refused.
class NodeBuilder {
public:
    using error_code = boost::json::error_code;
    using view = boost::json::string_view;
    static constexpr std::size_t max_object_size = -1, max_array_size = -1, max_key_size = -1, max_string_size = -1;

    NodeBuilder(Document& document, const Limits& limits) : document_(document), limits_(limits) {}

    const char* problem = nullptr;

    bool on_document_begin(error_code&) { return true; }
    bool on_document_end(error_code& ec) {
        for (SmallAmounts* const amounts : {&values_, &content_})
            if (const char* const why = amounts->refusalOfRest()) return refuse(ec, why);
        return true;
    }
    bool on_object_begin(error_code& ec) { return open(ec); }
    bool on_object_end(std::size_t, error_code&) { return close(); }
    bool on_array_begin(error_code& ec) { return open(ec); }
    bool on_array_end(std::size_t, error_code&) { return close(); }
    bool on_key_part(view part, std::size_t, error_code&) { return keep(part); }
    bool on_key(view part, std::size_t size, error_code& ec) {
        key_ = finished(part);
        if (!count(size, ec)) return false;
        if (hasNul(key_)) return refuse(ec, "a key holds a NUL");
        const std::string_view key = document_.view(key_);
        return key.size() < limits_.keyLevels ||
               static_cast<std::size_t>(std::ranges::count(key, '.')) < limits_.keyLevels ||
               refuse(ec, "a key has too many levels between its dots");
    }
    bool on_string_part(view part, std::size_t, error_code&) { return keep(part); }
    bool on_string(view part, std::size_t size, error_code& ec) { return count(size, ec) && put(finished(part), ec); }
    bool on_number_part(view part, error_code&) { return keep(part); }
    bool on_int64(std::int64_t, view part, error_code& ec) { return put(finished(part), ec); }
    bool on_uint64(std::uint64_t, view part, error_code& ec) { return put(finished(part), ec); }
    bool on_double(double, view part, error_code& ec) { return put(finished(part), ec); }
    bool on_bool(bool value, error_code& ec) { return put(document_.add(value ? "true" : "false"), ec); }
    bool on_null(error_code& ec) { return put(document_.add("null"), ec); }
    bool on_comment_part(view, error_code&) { return true; }
    bool on_comment(view, error_code&) { return true; }

private:
    using Part = Document::Part;

    bool refuse(error_code& ec, const char* why) {
        problem = why;
        ec = make_error_code(boost::json::error::syntax);
        return false;
    }
    /// A part of a text that does not stand in the document as one: it has escapes.
    bool keep(view part) {
        const Part kept = document_.add({part.data(), part.size()});
        if (pending_.size == 0) pending_.at = kept.at;
        pending_.size += kept.size;
        return true;
    }
    /// The text whose last part this is.
    Part finished(view part) {
        const char* const begin = document_.source_.data();
        const bool stands =
            !std::less<>()(part.data(), begin) && std::less<>()(part.data(), begin + document_.source_.size());
        if (pending_.size == 0 && stands)
            return {static_cast<std::uint32_t>(part.data() - begin), static_cast<std::uint32_t>(part.size())};
        keep(part);
        return std::exchange(pending_, {});
    }
    /// Of a key or a text.
    bool count(std::size_t size, error_code& ec) {
        const char* const why = limits_.countsContent ? content_.refusal(size) : nullptr;
        return !why || refuse(ec, why);
    }
    bool make(Part text, error_code& ec) {
        if (++nodes_ > limits_.nodes) return refuse(ec, "the document has too many values");
        if (const char* const why = values_.refusal(1)) return refuse(ec, why);
        if (nodes_ == 1) document_.entries_.clear();
        document_.entries_.push_back({std::exchange(key_, {}), text, static_cast<std::uint32_t>(nodes_)});
        return true;
    }
    bool put(Part text, error_code& ec) {
        if (hasNul(text)) return refuse(ec, "a text holds a NUL");
        return make(text, ec);
    }
    /// Only an escape can give one: the parser refuses control characters in texts.
    bool hasNul(Part text) const {
        return text.at >= document_.source_.size() && document_.view(text).find('\0') != std::string_view::npos;
    }
    bool open(error_code& ec) {
        open_.push_back(static_cast<std::uint32_t>(nodes_));
        return make({}, ec);
    }
    bool close() {
        document_.entries_[open_.back()].end = static_cast<std::uint32_t>(nodes_);
        open_.pop_back();
        return true;
    }

    Document& document_;
    const Limits limits_;
    std::vector<std::uint32_t> open_;
    Part key_, pending_;
    std::size_t nodes_ = 0;
    SmallAmounts values_{Cost::values, 64}, content_{Cost::content, 1 << 16};
};

namespace {

/// The usual causes of a syntax error at this byte; empty if it is another one.
std::string causeAt(std::string_view text, std::size_t at) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
        text.substr(0, 2).find('\0') != std::string_view::npos)
        return "the encoding is not UTF-8";
    if (at >= text.size()) return {};
    const char found = text[at];
    if (static_cast<unsigned char>(found) >= 0x80) return "the encoding is not UTF-8, or a text lacks its quotes";
    if (found == '/') return "comments are not allowed";
    if (found == '\'') return "texts and keys stand in double quotes";
    const auto before = text.substr(0, at).find_last_not_of(" \t\r\n");
    const bool isAfterComma = before != std::string_view::npos && text[before] == ',';
    if (isAfterComma && (found == '}' || found == ']'))
        return std::string("there is a comma before the closing ") + found;
    return {};
}

std::string reason(const NodeBuilder& builder, const boost::json::error_code& ec, const Limits& limits,
                   const std::string& cause) {
    if (builder.problem) return builder.problem;
    if (ec == boost::json::error::too_deep)
        return "the document nests deeper than " + std::to_string(limits.depth) + " levels";
    return "not valid JSON: " + (cause.empty() ? ec.message() : cause);
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

Document::Part Document::add(std::string_view text) {
    const Part part{static_cast<std::uint32_t>(source_.size() + decoded_.size()),
                    static_cast<std::uint32_t>(text.size())};
    decoded_ += text;
    return part;
}

std::optional<Fault> Document::tryParse(std::string text, const Limits& limits) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    constexpr std::size_t kMaxText = 1u << 30;  // decoded texts are shorter, so that places fit into 32 bits
    source_ = std::move(text);
    decoded_.clear();
    if (source_.size() > kMaxText) return Fault{{}, "the document is too large"};
    entries_.reserve(source_.size() / 16 + 1);
    const std::size_t start = source_.starts_with(kMark) ? kMark.size() : 0;
    boost::json::parse_options options;
    options.max_depth = limits.depth;
    boost::json::basic_parser<NodeBuilder> parser(options, *this, limits);
    boost::json::error_code ec;
    const std::size_t end = start + parser.write_some(false, source_.data() + start, source_.size() - start, ec);
    const std::size_t rest = ec ? end : source_.find_first_not_of(" \t\r\n", end);
    if (rest == std::string::npos) return std::nullopt;
    entries_.assign(1, Entry{{}, {}, 1});
    return Fault{placeAt(source_, rest), ec ? reason(parser.handler(), ec, limits, causeAt(source_, rest))
                                            : "there is text after the document"};
}

void Document::parse(std::string text, const std::string& name, const Limits& limits) {
    if (const auto fault = tryParse(std::move(text), limits)) fail(name, {.file = name}, *fault);
}

void Document::parse(std::string text, const std::string& name, const HEXDiagnostic& place) {
    if (const auto fault = tryParse(std::move(text))) fail(name, place, *fault);
}

std::optional<Fault> tryParse(std::string_view text, ptree& tree, const Limits& limits) {
    Document document;
    if (auto fault = document.tryParse(std::string(text), limits)) return fault;
    copy(document.root(), tree);
    return std::nullopt;
}

void parse(std::string_view text, const std::string& name, ptree& tree, const Limits& limits) {
    if (const auto fault = tryParse(text, tree, limits)) fail(name, {.file = name}, *fault);
}

void parse(std::string_view text, const std::string& name, const HEXDiagnostic& place, ptree& tree) {
    if (const auto fault = tryParse(text, tree)) fail(name, place, *fault);
}

}  // namespace json
