#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <type_traits>

#include "kit/Cases.h"
#include "kit/ZipBuilder.h"

/// Changes of an archive as lines of a case: a field of `Zip` and its value, or "INDEX.FIELD", "INDEX.local.FIELD",
/// "INDEX.central.FIELD" and "INDEX.both.FIELD" of an entry.
namespace builder {

inline Zip sampleZip() {
    Zip zip;
    zip.entries = {Entry("lfa.json", R"({"name": "n", "files": [{"type": "DCP", "name": "x.dcp"}]})", true),
                   Entry("hpfm/x.hpfm", "stored"), Entry("bit/"), Entry("empty")};
    zip.comment = "a comment";
    return zip;
}

/// Both sizes moved to the zip64 field; with "24" the field has an offset as well.
inline void moveTo64(Header& header, const std::string& bytes = "") {
    header.extra += extra(1, le(header.size, 8) + le(header.packedSize, 8) + (bytes == "24" ? le(0, 8) : ""));
    header.size = header.packedSize = 0xFFFFFFFF;
}

/// Sizes and CRC follow the data: "signed4", "signed8", "bare4" and "bare8" name a form, other texts are written as given.
/// A local zip64 field announces 8 bytes.
inline void moveAfter(Entry& entry, const std::string& descriptor) {
    const Header header = entry.central;
    const int width = descriptor.ends_with('8') ? 8 : 4;
    const std::string bare = le(header.crc, 4) + le(header.packedSize, width) + le(header.size, width);
    entry.both(&Header::flags, 8);
    entry.local.crc = 0;
    entry.local.size = entry.local.packedSize = 0;
    if (width == 8) entry.local.extra += extra(1, std::string(16, '\0'));
    entry.descriptor = descriptor.starts_with("signed") ? "PK\7\10" + bare
                       : descriptor.starts_with("bare") ? bare
                                                        : descriptor;
}

inline std::uint64_t numberOf(const std::string& text) { return std::strtoull(text.c_str(), nullptr, 0); }

/// One way to change a thing, by the first word of a line.
template <class T>
using Changes = std::map<std::string, void (*)(T&, const std::string&)>;

template <auto Field, class T>
void set(T& thing, const std::string& text) {
    using Value = std::remove_reference_t<decltype(thing.*Field)>;
    if constexpr (std::is_same_v<Value, std::string>)
        thing.*Field = text;
    else
        thing.*Field = static_cast<Value>(numberOf(text));
}

inline const Changes<Header> kHeaderChanges = {
    {"name", set<&Header::name>},
    {"extra", set<&Header::extra>},
    {"version", set<&Header::version>},
    {"flags", set<&Header::flags>},
    {"method", set<&Header::method>},
    {"crc", set<&Header::crc>},
    {"size", set<&Header::size>},
    {"packedSize", set<&Header::packedSize>},
    {"move64", moveTo64},
    {"twice", [](Header& header, const std::string&) { header.extra += header.extra; }},
};

inline const Changes<Entry> kEntryChanges = {
    {"mode", set<&Entry::mode>},
    {"disk", set<&Entry::disk>},
    {"dos", set<&Entry::dos>},
    {"madeBy", set<&Entry::madeBy>},
    {"offset", [](Entry& entry, const std::string& text) { entry.offset = numberOf(text); }},
    {"comment", set<&Entry::comment>},
    {"descriptor", set<&Entry::descriptor>},
    {"after", moveAfter},
    {"packed", set<&Entry::packed>},
    {"first", [](Entry& entry, const std::string& text) { entry.packed[0] = text[0]; }},
    {"repack",
     [](Entry& entry, const std::string& text) {
         text.empty() ? entry.packed.pop_back() : entry.packed.push_back(text[0]);
         entry.both(&Header::packedSize, entry.packed.size());
     }},
};

inline const Changes<Zip> kZipChanges = {
    {"before", set<&Zip::before>},
    {"afterDirectory", set<&Zip::afterDirectory>},
    {"comment", set<&Zip::comment>},
    {"after", set<&Zip::after>},
    {"count", set<&Zip::count>},
    {"offset", set<&Zip::offset>},
    {"size", set<&Zip::size>},
    {"count64", set<&Zip::count64>},
    {"locator", set<&Zip::locator>},
    {"record64Size", set<&Zip::record64Size>},
    {"isZip64", set<&Zip::isZip64>},
    {"hasMarks64", set<&Zip::hasMarks64>},
    {"disk", set<&Zip::disk>},
    {"commentSize",
     [](Zip& zip, const std::string& text) { zip.commentSize = static_cast<std::uint16_t>(numberOf(text)); }},
    {"longComment", [](Zip& zip, const std::string& text) { zip.comment.resize(numberOf(text), 'c'); }},
    {"add", [](Zip& zip, const std::string& text) { zip.entries.emplace_back(text); }},
    {"remove", [](Zip& zip, const std::string&) { zip.entries.pop_back(); }},
};

inline void change(Zip& zip, const cases::Line& line) {
    const std::string text = cases::plain(line.text), &word = line.word;
    if (!std::isdigit(static_cast<unsigned char>(word[0]))) return kZipChanges.at(word)(zip, text);
    Entry& entry = zip.entries.at(static_cast<std::size_t>(word[0] - '0'));
    const auto dot = word.find('.', 2);
    if (dot == std::string::npos) return kEntryChanges.at(word.substr(2))(entry, text);
    const auto changeHeader = kHeaderChanges.at(word.substr(dot + 1));
    const std::string where = word.substr(2, dot - 2);
    if (where != "central") changeHeader(entry.local, text);
    if (where != "local") changeHeader(entry.central, text);
}

/// The archive of a case, whose last line is the verdict.
inline Zip zipOf(const cases::Case& of, Zip zip) {
    std::for_each(of.lines.begin(), of.lines.end() - 1, [&zip](const cases::Line& line) { change(zip, line); });
    return zip;
}

}  // namespace builder
