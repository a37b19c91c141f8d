#include "xml/XmlReader.h"

#include <expat.h>
#include <fmt/core.h>

#include <algorithm>
#include <memory>

#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
#include "util/WholeFile.h"
#include "xml/XmlContent.h"
#include "xml/XmlScopes.h"

namespace xml {

namespace {

using ParserHandle = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

/// An open element.
struct Frame {
    const char* name;
    const Element* element;
    void* record;
    std::size_t scopes;          ///< declarations in force around it
    std::size_t firstViolation;  ///< the first one of this element's content

    Content content{name, *element, record};
    bool strayTextReported = false;
};

bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

/// For such a text the parser would guess the byte order.
bool isWideWithoutMark(std::string_view text) { return text.size() > 1 && (text[0] == '\0') != (text[1] == '\0'); }

std::string complaint(const Attribute& row, const char* element, std::string_view text, Fault fault) {
    const ValueType& type = *row.type;
    const std::string what = fmt::format("{}=\"{}\" of <{}> is ", row.name, HSTStringUtils::excerpt(text), element);
    switch (fault) {
        case Fault::belowMinimum: return what + fmt::format("below the minimum, {}", type.lowest);
        case Fault::aboveMaximum: return what + fmt::format("above the maximum, {}", type.highest);
        default: return what + fmt::format("not {}", type.form);
    }
}

class Reader {
public:
    Reader(const Format& format, const std::string& file, void* record, Violations* violations, std::size_t most)
        : format_(format), file_(file), record_(record), violations_(violations), most_(most), scopes_(format.uri) {}

    void run(std::string_view text);

private:
    template <class Handler>
    static void guarded(void* self, Handler handler);
    static void onStart(void* self, const char* name, const char** attributes);
    static void onEnd(void* self, const char* name);
    static void onText(void* self, const char* text, int size);
    static void onDoctype(void* self, const char*, const char*, const char*, int);
    static void onDeclaration(void* self, const char*, const char* encoding, int);
    static void onComment(void* self, const char*);
    static void onInstruction(void* self, const char*, const char*);

    void start_(std::string_view qualified, const char** attributes);
    void end_();
    void text_(std::string_view text);

    void boundToken_();
    bool withinLimits_(const char** attributes);
    bool declareNamespaces_(const char** attributes);
    bool open_(std::string_view qualified, std::size_t scopes);
    bool openRoot_(const Name& name, std::size_t scopes);
    const Child* place_(Frame& frame, const Name& name);
    void forgetContent_(const Frame& frame);
    std::string misplaced_(const Frame& frame, const Name& name) const;
    void push_(const char* name, const Element& element, void* record, std::size_t scopes);
    void readAttributes_(const char** attributes);
    void readAttribute_(const Frame& frame, const Name& name, std::string_view value, std::size_t& next);
    std::string unknownAttribute_(const Frame& frame, const Name& name) const;
    bool isFaulty_(const Attribute& row) const { return std::ranges::find(faulty_, &row) != faulty_.end(); }
    bool ours_(const Name& name) const;

    void fail_(const char* name, std::string_view element, std::string text);
    void stopWith_(const char* name, std::string_view element, std::string text);
    void stop_();
    Violation violation_(const char* name, std::string_view element, std::string text) const;
    std::string malformed_(std::string_view text) const;
    const char* openName_() const { return frames_.empty() ? "" : frames_.back().name; }

    const Format& format_;
    const std::string& file_;
    void* const record_;
    Violations* const violations_;  ///< null: reading stops at the first error
    const std::size_t most_;
    Violations first_;  ///< at most one, if `violations_` is null

    ParserHandle parser_{nullptr, XML_ParserFree};
    Scopes scopes_;
    std::vector<Frame> frames_;
    std::vector<const Attribute*> faulty_;     ///< of the current tag: present, but with an invalid value
    std::vector<const Attribute*> elsewhere_;  ///< of the current tag: in another namespace than the format's
    std::vector<const Attribute*> meant_;      ///< of the current tag: misspelled
    std::size_t skipping_ = 0;                 ///< open elements that are skipped, below the last frame
    std::size_t nodes_ = 0;
    SmallAmounts content_{Cost::content, 1 << 16}, records_{Cost::records, 1 << 16};
    bool stopped_ = false;
    std::exception_ptr thrown_;  ///< by a handler; rethrown after the parser, which is C
};

template <class Handler>
void Reader::guarded(void* self, Handler handler) {
    Reader& reader = *static_cast<Reader*>(self);
    if (reader.stopped_) return;
    try {
        handler(reader);
    } catch (...) {
        reader.thrown_ = std::current_exception();
        reader.stop_();
    }
}

void Reader::onStart(void* self, const char* name, const char** attributes) {
    guarded(self, [&](Reader& reader) { reader.start_(name, attributes); });
}
void Reader::onEnd(void* self, const char*) {
    guarded(self, [](Reader& reader) { reader.end_(); });
}
void Reader::onText(void* self, const char* text, int size) {
    guarded(self, [&](Reader& reader) { reader.text_({text, static_cast<std::size_t>(size)}); });
}
void Reader::onDoctype(void* self, const char*, const char*, const char*, int) {
    guarded(self, [](Reader& reader) {
        reader.stopWith_(fault::kDoctype, "", "a document type declaration is not allowed");
    });
}
void Reader::onDeclaration(void* self, const char*, const char* encoding, int) {
    guarded(self, [encoding](Reader& reader) {
        if (encoding && !HSTStringUtils::iequals(encoding, "UTF-8") && !HSTStringUtils::iequals(encoding, "UTF-16"))
            reader.stopWith_(
                fault::kEncoding, "",
                fmt::format("the encoding is \"{}\"; expected UTF-8 or UTF-16", HSTStringUtils::excerpt(encoding)));
    });
}
void Reader::onComment(void* self, const char*) {
    guarded(self, [](Reader& reader) { reader.boundToken_(); });
}
void Reader::onInstruction(void* self, const char*, const char*) {
    guarded(self, [](Reader& reader) { reader.boundToken_(); });
}

void Reader::run(std::string_view text) {
    parser_.reset(XML_ParserCreate(nullptr));
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser_.get(), onText);
    XML_SetStartDoctypeDeclHandler(parser_.get(), onDoctype);
    XML_SetXmlDeclHandler(parser_.get(), onDeclaration);
    XML_SetCommentHandler(parser_.get(), onComment);
    XML_SetProcessingInstructionHandler(parser_.get(), onInstruction);

    if (text.size() > kMaxDocument)
        stopWith_(fault::kLimit, "",
                  fmt::format("the document has {} bytes; at most {} are read", text.size(), kMaxDocument));
    else if (isWideWithoutMark(text))
        stopWith_(fault::kEncoding, "", "the document is UTF-16 without a byte-order mark");
    else if (XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_ERROR &&
             !stopped_) {
        if (XML_GetErrorCode(parser_.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
        if (XML_GetErrorCode(parser_.get()) == XML_ERROR_TAG_MISMATCH && !frames_.empty() && skipping_ == 0)
            forgetContent_(frames_.back());
        stopWith_(fault::kNotWellFormed, openName_(), malformed_(text));
    }
    for (SmallAmounts* const amounts : {&content_, &records_})
        if (const char* const why = amounts->refusalOfRest(); why && !stopped_) stopWith_(fault::kLimit, "", why);
    if (thrown_) std::rethrow_exception(thrown_);
    if (!first_.empty()) throw Exception(first_.front());
}

void Reader::start_(std::string_view qualified, const char** attributes) {
    if (!withinLimits_(attributes)) return;
    if (skipping_ > 0) {
        ++skipping_;
        return;
    }
    const std::size_t scopes = scopes_.size();
    if (declareNamespaces_(attributes) && open_(qualified, scopes)) {
        readAttributes_(attributes);
        return;
    }
    scopes_.shrink(scopes);
    skipping_ = 1;
}

void Reader::boundToken_() {
    const auto size = static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get()));
    if (size > kMaxToken)
        stopWith_(fault::kLimit, openName_(),
                  fmt::format("a tag or a comment has {} bytes; at most {} are read", size, kMaxToken));
    else if (const char* const why = content_.refusal(size))
        stopWith_(fault::kLimit, openName_(), why);
}

bool Reader::withinLimits_(const char** attributes) {
    std::size_t count = 0;
    while (attributes[2 * count]) ++count;
    nodes_ += 1 + count;
    boundToken_();
    if (stopped_) return false;
    if (frames_.size() + skipping_ >= kMaxDepth)
        stopWith_(fault::kLimit, openName_(), fmt::format("elements nest deeper than {} levels", kMaxDepth));
    else if (count > kMaxAttributes)
        stopWith_(fault::kLimit, openName_(),
                  fmt::format("a tag has {} attributes; at most {} are read", count, kMaxAttributes));
    else if (nodes_ > kMaxNodes)
        stopWith_(fault::kLimit, openName_(),
                  fmt::format("the document has more than {} elements and attributes", kMaxNodes));
    else if (const char* const why = Budget::refusal(Cost::values, 1 + count))
        stopWith_(fault::kLimit, openName_(), why);
    return !stopped_;
}

bool Reader::declareNamespaces_(const char** attributes) {
    for (; *attributes; attributes += 2) {
        if (!Scopes::isDeclaration(attributes[0])) continue;
        std::string wrong = scopes_.declare(attributes[0], attributes[1]);
        const bool tooMany = scopes_.size() > Scopes::kMax;
        if (tooMany) wrong = fmt::format("more than {} namespace declarations are in force", Scopes::kMax);
        if (wrong.empty()) continue;
        fail_(tooMany ? fault::kLimit : fault::kNamespace, openName_(), std::move(wrong));
        return false;
    }
    return true;
}

/// False if the element is not allowed here; its contents are then skipped.
bool Reader::open_(std::string_view qualified, std::size_t scopes) {
    Name name;
    if (std::string wrong = scopes_.resolveElement(qualified, name); !wrong.empty()) {
        fail_(fault::kNamespace, openName_(), std::move(wrong));
        if (!frames_.empty()) frames_.back().content.takeAsMeant(qualified.substr(qualified.find(':') + 1));
        return false;
    }
    if (frames_.empty()) return openRoot_(name, scopes);
    Frame& frame = frames_.back();
    const Child* child = place_(frame, name);
    if (!child) return false;
    if (const char* const why = records_.refusal(child->size)) {
        stopWith_(fault::kLimit, child->name, why);
        return false;
    }
    push_(child->name, *child->element, child->add(frame.content.record()), scopes);
    return true;
}

bool Reader::openRoot_(const Name& name, std::size_t scopes) {
    if (!ours_(name) || name.local != format_.root) {
        const std::string space =
            *format_.uri ? fmt::format("in the namespace \"{}\"", format_.uri) : "in no namespace";
        const std::string found = ours_(name)        ? std::string()
                                  : name.uri.empty() ? std::string(" in no namespace")
                                                     : fmt::format(" in the namespace \"{}\"", name.uri);
        fail_(fault::kWrongRoot, name.local,
              fmt::format("the document element is <{}>{}; expected <{}> {}", HSTStringUtils::excerpt(name.qualified),
                          found, format_.root, space));
        return false;
    }
    push_(format_.root, *format_.element, record_, scopes);
    return true;
}

void Reader::push_(const char* name, const Element& element, void* record, std::size_t scopes) {
    frames_.push_back({name, &element, record, scopes, violations_ ? violations_->size() : 0});
}

/// The row for the next child, or null after an error. If a required child before it is missing, that is reported
/// once and the child is accepted, and so is the missing one if it follows.
const Child* Reader::place_(Frame& frame, const Name& name) {
    Content& content = frame.content;
    const bool isOurs = ours_(name);
    if (isOurs) {
        Content::Place place = content.find(name.local);
        if (const Child* const row = content.row(place.row)) {
            if (!place.missing.empty()) fail_(fault::kMissingElement, name.local, misplaced_(frame, name));
            if (place.count == row->most)
                stopWith_(fault::kLimit, name.local,
                          fmt::format("<{}> has more than {} <{}>", frame.name, row->most, row->name));
            if (stopped_) return nullptr;
            content.take(std::move(place));
            return row;
        }
        if (const Child* const late = content.takePassed(name.local)) return late;
    }
    const bool isKnown = isOurs && content.allows(name.local);
    fail_(isKnown ? fault::kMisplacedElement : fault::kUnknownElement, name.local, misplaced_(frame, name));
    if (!isKnown) content.takeAsMeant(name.local);
    return nullptr;
}

/// An element that is not closed has elements of the outer ones: only the missing end is reported.
void Reader::forgetContent_(const Frame& frame) {
    if (!violations_) return;
    const auto isPlacement = [](const Violation& violation) {
        return violation.name == std::string_view(fault::kUnknownElement) ||
               violation.name == std::string_view(fault::kMisplacedElement) ||
               violation.name == std::string_view(fault::kMissingElement);
    };
    violations_->erase(std::remove_if(violations_->begin() + static_cast<std::ptrdiff_t>(frame.firstViolation),
                                      violations_->end(), isPlacement),
                       violations_->end());
}

std::string Reader::misplaced_(const Frame& frame, const Name& name) const {
    return fmt::format("<{}> appears in <{}> where {} is expected", HSTStringUtils::excerpt(name.qualified),
                       frame.name, frame.content.expected());
}

void Reader::end_() {
    if (skipping_ > 0) {
        --skipping_;
        return;
    }
    const Frame& frame = frames_.back();
    if (!frame.content.mayEnd())
        fail_(fault::kMissingElement, frame.name,
              fmt::format("<{}> ends where {} is expected", frame.name, frame.content.expected()));
    scopes_.shrink(frame.scopes);
    frames_.pop_back();
}

void Reader::text_(std::string_view text) {
    if (skipping_ > 0 || frames_.empty()) return;
    Frame& frame = frames_.back();
    if (frame.element->text) {
        std::string& held = *frame.element->text(frame.record);
        if (held.size() + text.size() > kMaxToken)
            stopWith_(fault::kLimit, frame.name,
                      fmt::format("the text of <{}> has more than {} bytes", frame.name, kMaxToken));
        else if (const char* const why = content_.refusal(text.size()))
            stopWith_(fault::kLimit, frame.name, why);
        else
            held += text;
    } else if (!frame.strayTextReported && !isBlank(text)) {
        frame.strayTextReported = true;
        fail_(fault::kStrayText, frame.name,
              fmt::format("the text \"{}\" appears in <{}> where {} is expected", HSTStringUtils::excerpt(text),
                          frame.name, frame.content.expected()));
    }
}

void Reader::readAttributes_(const char** attributes) {
    const Frame& frame = frames_.back();
    std::size_t next = 0;
    faulty_.clear();
    elsewhere_.clear();
    meant_.clear();
    for (; *attributes && !stopped_; attributes += 2) {
        if (Scopes::isDeclaration(attributes[0])) continue;
        Name name;
        std::string wrong = scopes_.resolveAttribute(attributes[0], name);
        if (!wrong.empty())
            fail_(fault::kNamespace, frame.name, std::move(wrong));
        else if (name.space != Space::xml && name.space != Space::schemaInstance)
            readAttribute_(frame, name, attributes[1], next);
    }
    for (const Attribute& row : frame.element->attributes) {
        if (stopped_) return;
        if (row.required && !row.type->isSet(row.member(frame.record)) && !isFaulty_(row) &&
            std::ranges::find(elsewhere_, &row) == elsewhere_.end() &&
            std::ranges::find(meant_, &row) == meant_.end())
            fail_(fault::kMissingAttribute, frame.name,
                  fmt::format("<{}> needs the attribute {}", frame.name, row.name));
    }
}

/// The search begins at `next`, the row after the last one found: documents usually have their attributes in the
/// order of the rows.
void Reader::readAttribute_(const Frame& frame, const Name& name, std::string_view value, std::size_t& next) {
    const std::span<const Attribute> rows = frame.element->attributes;
    for (std::size_t i = 0; ours_(name) && i < rows.size(); ++i) {
        if (next == rows.size()) next = 0;
        const Attribute& row = rows[next++];
        if (!isCalled(name.local, row.name)) continue;
        void* attr = row.member(frame.record);
        if (row.type->isSet(attr) || isFaulty_(row)) {
            fail_(fault::kRepeatedAttribute, frame.name,
                  fmt::format("<{}> has the attribute {} twice", frame.name, row.name));
            return;
        }
        const Fault wrong = row.type->assign(attr, value);
        if (wrong == Fault::none) return;
        faulty_.push_back(&row);
        fail_(wrong == Fault::form ? fault::kBadValue : fault::kOutOfRange, frame.name,
              complaint(row, frame.name, value, wrong));
        return;
    }
    // Attributes of an element that are all in a wrong namespace are one error.
    const auto row = std::ranges::find_if(rows, [&](const Attribute& r) { return name.local == r.name; });
    if (row == rows.end() || elsewhere_.empty())
        fail_(fault::kUnknownAttribute, frame.name, unknownAttribute_(frame, name));
    if (row != rows.end()) {
        elsewhere_.push_back(&*row);
        return;
    }
    const auto meant =
        std::ranges::find_if(rows, [&](const Attribute& r) { return text::isSlip(name.local, r.name); });
    if (meant != rows.end()) meant_.push_back(&*meant);
}

std::string Reader::unknownAttribute_(const Frame& frame, const Name& name) const {
    std::vector<std::string> names;
    for (const Attribute& row : frame.element->attributes) {
        if (name.local != row.name) {
            names.emplace_back(row.name);
            continue;
        }
        const std::string shown = HSTStringUtils::excerpt(name.qualified);
        if (!*format_.uri)
            return fmt::format("the attribute {} of <{}> must be in no namespace; write {}", shown, frame.name,
                               row.name);
        const std::string_view prefix = scopes_.formatPrefix();
        const std::string found = name.uri.empty() ? std::string() : fmt::format(", not \"{}\"", name.uri);
        return fmt::format("the attribute {} of <{}> must be in the namespace \"{}\"{}; write {}:{}", shown,
                           frame.name, format_.uri, found, prefix.empty() ? format_.prefix : prefix, row.name);
    }
    const std::string shown = HSTStringUtils::excerpt(name.qualified);
    const std::string nearest = text::nearest(std::string(HSTStringUtils::utf8Prefix(name.local, 64)), names);
    if (!nearest.empty()) return fmt::format("<{}> has no attribute {}{}", frame.name, shown, nearest);
    return fmt::format("<{}> has no attribute {}; it has {}", frame.name, shown,
                       names.empty() ? "none" : listed(names));
}

bool Reader::ours_(const Name& name) const { return name.space == (*format_.uri ? Space::format : Space::none); }

void Reader::fail_(const char* name, std::string_view element, std::string text) {
    if (!violations_) {
        stopWith_(name, element, std::move(text));
        return;
    }
    violations_->push_back(violation_(name, element, std::move(text)));
    if (violations_->size() >= most_) stop_();
}

/// For errors after which nothing can be read.
void Reader::stopWith_(const char* name, std::string_view element, std::string text) {
    (violations_ ? *violations_ : first_).push_back(violation_(name, element, std::move(text)));
    stop_();
}

void Reader::stop_() {
    stopped_ = true;
    XML_StopParser(parser_.get(), XML_FALSE);
}

Violation Reader::violation_(const char* name, std::string_view element, std::string text) const {
    const auto offset = XML_GetCurrentByteIndex(parser_.get());
    return {{file_, offset < 0 ? 0 : static_cast<std::uint64_t>(offset), XML_GetCurrentLineNumber(parser_.get()),
             XML_GetCurrentColumnNumber(parser_.get()) + 1},
            std::string(element),
            std::move(text),
            name};
}

std::string Reader::malformed_(std::string_view text) const {
    const auto code = XML_GetErrorCode(parser_.get());
    const auto at = static_cast<std::size_t>(std::max<long long>(XML_GetCurrentByteIndex(parser_.get()), 0));
    const bool isAscii = at >= text.size() || static_cast<unsigned char>(text[at]) < 0x80;
    const char* const why = code != XML_ERROR_INVALID_TOKEN ? XML_ErrorString(code)
                            : isAscii                       ? "a tag, a reference or a character is not valid here"
                                                            : "the encoding is not UTF-8";
    std::string found = fmt::format("not well-formed XML: {}", why);
    if (!frames_.empty() && skipping_ == 0) found += fmt::format("; the open element is <{}>", frames_.back().name);
    return found;
}

}  // namespace

void read(const Format& format, std::string_view text, const std::string& file, void* record, Violations* violations,
          std::size_t most) {
    Reader(format, file, record, violations, most).run(text);
}

std::string textOf(const std::string& file) {
    try {
        return wholefile::readCounted(file, kMaxDocument);
    } catch (const HEXUserException& e) {
        Violation violation;
        violation.place.file = file;
        violation.text = e.what();
        violation.name = fault::kUnreadable;
        throw Exception(violation);
    }
}

}  // namespace xml
