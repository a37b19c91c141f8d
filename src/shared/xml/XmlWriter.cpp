#include "xml/XmlWriter.h"

#include <fmt/core.h>

#include <cstdint>

#include "msg/Budget.h"
#include "msg/HEXFileFault.h"
#include "text/HSTStringUtils.h"

namespace xml {

namespace {

/// The children of a record to write: those of the selected alternative, if it has alternatives.
struct Content {
    std::span<const Child> rows;
    void* record;
};

Content contentOf(const Element& element, void* record) {
    for (const Alternative& alternative : element.alternatives)
        if (void* chosen = alternative.chosen(record)) return {alternative.children, chosen};
    return {element.children, record};
}

[[noreturn]] void fail(const char* element, std::string text) {
    Violation violation;
    violation.element = element;
    violation.text = std::move(text);
    throw Exception(violation);
}

/// The length of the first character of `text` if XML can hold it, else 0.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned first = byte(0);
    if (first < 0x80) return first >= 0x20 || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
    const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
    std::uint32_t code = length == 2 ? first & 0x1F : length == 3 ? first & 0x0F : first & 0x07;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        code = code << 6 | (byte(i) & 0x3F);
    }
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    if (code < kSmallest[length] || surrogate || code == 0xFFFE || code == 0xFFFF || code > 0x10FFFF) return 0;
    return length;
}

void checkText(const char* element, std::string_view text) {
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t length = characterLength(rest);
        if (length == 0)
            fail(element, fmt::format("a text of <{}> holds a byte that XML cannot: \"{}\"", element,
                                      HSTStringUtils::excerpt(rest)));
        rest.remove_prefix(length);
    }
}

// Recursion is limited by the nesting of the format's tables, whatever the record holds.

void check(const char* name, const Element& element, void* record) {
    for (const Attribute& row : element.attributes) {
        const void* attr = row.member(record);
        if (row.type->isSet(attr))
            checkText(name, row.type->print(attr));
        else if (row.required)
            fail(name, fmt::format("<{}> needs the attribute {}", name, row.name));
    }
    if (element.text) checkText(name, *element.text(record));
    const Content content = contentOf(element, record);
    for (const Child& row : content.rows) {
        const std::size_t count = row.count(content.record);
        if (count == 0 && row.neededToWrite()) fail(name, fmt::format("<{}> needs a <{}>", name, row.name));
        for (std::size_t i = 0; i < count; ++i) check(row.name, *row.element, row.at(content.record, i));
    }
}

class Writer {
public:
    explicit Writer(const Format& format) : prefix_(*format.uri ? std::string(format.prefix) + ":" : std::string()) {}

    std::string run(const Format& format, void* record) {
        out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        const std::string declaration =
            *format.uri ? fmt::format(" xmlns:{}=\"{}\"", format.prefix, format.uri) : std::string();
        element_(format.root, *format.element, record, 0, declaration);
        if (const char* const why = budget_.refusalOfRest()) throw HEXFileFault({.text = why});
        return std::move(out_);
    }

private:
    void element_(const char* name, const Element& element, void* record, std::size_t depth,
                  const std::string& declaration) {
        out_.append(2 * depth, ' ');
        out_ += '<' + prefix_ + name + declaration;
        for (const Attribute& row : element.attributes) attribute_(row, row.member(record));
        count_();
        const Content content = contentOf(element, record);
        const std::size_t tagEnd = out_.size();
        out_ += '>';
        if (element.text)
            escaped_(*element.text(record), false);
        else
            out_ += '\n';
        const std::size_t bodyBegin = out_.size();
        for (const Child& row : content.rows)
            for (std::size_t i = 0; i < row.count(content.record); ++i)
                element_(row.name, *row.element, row.at(content.record, i), depth + 1, {});
        if (!element.text && out_.size() == bodyBegin) {
            out_.resize(tagEnd);
            out_ += "/>\n";
            return;
        }
        if (!element.text) out_.append(2 * depth, ' ');
        out_ += "</" + prefix_ + name + ">\n";
    }

    /// What has been written since the last call.
    void count_() {
        if (const char* const why = budget_.refusal(out_.size() - counted_)) throw HEXFileFault({.text = why});
        counted_ = out_.size();
    }

    void attribute_(const Attribute& row, const void* attr) {
        if (!row.type->isSet(attr)) return;
        out_ += ' ' + prefix_ + row.name + "=\"";
        escaped_(row.type->print(attr), true);
        out_ += '"';
    }

    /// Otherwise line ends and tabs of an attribute would be read as blanks, a carriage return of a text as a line
    /// feed.
    void escaped_(std::string_view text, bool inAttribute) {
        for (const char c : text) {
            if (c == '&')
                out_ += "&amp;";
            else if (c == '<')
                out_ += "&lt;";
            else if (c == '>')
                out_ += "&gt;";
            else if (c == '"' && inAttribute)
                out_ += "&quot;";
            else if (c == '\r' || (inAttribute && (c == '\n' || c == '\t')))
                out_ += fmt::format("&#{};", int(c));
            else
                out_ += c;
        }
    }

    std::string prefix_;
    std::string out_;
    std::size_t counted_ = 0;
    SmallAmounts budget_{Cost::text, 1 << 16};
};

}  // namespace

std::string write(const Format& format, const void* record) {
    void* const unchanged =
        const_cast<void*>(record);  // the rows also serve the reader; nothing here writes through them
    check(format.root, *format.element, unchanged);
    return Writer(format).run(format, unchanged);
}

}  // namespace xml
