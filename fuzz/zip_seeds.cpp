#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "kit/ZipBuilder.h"

namespace {

using builder::Entry;
using builder::Header;
using builder::Zip;

Zip of(std::vector<Entry> entries) {
    Zip zip;
    zip.entries = std::move(entries);
    return zip;
}

/// The sizes and the CRC follow the data, with or without the signature.
Entry withDescriptor(const std::string& name, const std::string& data, bool isSigned) {
    Entry entry(name, data, true);
    entry.both(&Header::flags, 8);
    entry.descriptor = (isSigned ? "PK\7\10" : "") + builder::le(entry.local.crc, 4) +
                       builder::le(entry.local.packedSize, 4) + builder::le(entry.local.size, 4);
    entry.local.crc = 0;
    entry.local.packedSize = entry.local.size = 0;
    return entry;
}

/// The sizes stand in an extra field, with marks in their places.
Entry withSizes64(const std::string& name, const std::string& data) {
    Entry entry(name, data);
    entry.both(&Header::extra, builder::extra(1, builder::le(data.size(), 8) + builder::le(data.size(), 8)));
    return entry.both(&Header::size, 0xFFFFFFFF).both(&Header::packedSize, 0xFFFFFFFF);
}

Zip zip64() {
    Zip zip = of({withSizes64("large", "data")});
    zip.isZip64 = true;
    return zip;
}

Zip withComment() {
    Zip zip = of({Entry("a", "data")});
    zip.comment = "a comment, which is part of the end record";
    return zip;
}

/// Packed data with a length code that is reserved, which one of the two libraries takes.
Zip withReservedCode() {
    Entry entry("reserved", std::string(259, 'x'));
    entry.packed = std::string("\xAB\x18\x03\0", 4);
    return of({entry.both(&Header::method, 8).both(&Header::packedSize, entry.packed.size())});
}

/// A digest in form, made of other bytes: the zeros of its rows and of its comment.
Zip withDigest() {
    Zip zip = of({Entry("lfa.json", "{}"), Entry("a", "data", true)});
    for (Entry& entry : zip.entries) entry.central.extra = builder::extra(0x525A, std::string(32, '\0'));
    zip.comment = "zr-digest:1:sha256:" + std::string(64, '0') + "\na comment";
    return zip;
}

Entry link() {
    Entry entry("link", "target");
    entry.mode = 0120777;
    return entry;
}

}  // namespace

/// Writes small archives of every form that is read, and some that are refused, into a directory: seeds for the
/// targets that take archives.
int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::string text(2000, 'x');
    const std::map<std::string, Zip> seeds{
        {"empty", of({})},
        {"stored", of({Entry("a", "data"), Entry("b/c", "")})},
        {"deflated", of({Entry("a", text, true), Entry("empty", "", true)})},
        {"directories", of({Entry("d/"), Entry("d/a", "data"), Entry("d/e/")})},
        {"descriptors", of({withDescriptor("signed", text, true), withDescriptor("unsigned", text, false)})},
        {"zip64", zip64()},
        {"comment", withComment()},
        {"utf8", of({Entry("gr\xC3\xBC\xC3\x9F", "data").both(&Header::flags, 0x800)})},
        {"nested",
         of({Entry("inner.zip", of({Entry("innermost.zip", of({Entry("a", text, true)}).build())}).build())})},
        {"reserved", withReservedCode()},
        {"digest", withDigest()},
        {"link", of({link()})},
        {"twice", of({Entry("a", "1"), Entry("a", "2")})},
    };
    std::filesystem::create_directories(arguments[1]);
    for (const auto& [name, zip] : seeds)
        std::ofstream(std::filesystem::path(arguments[1]) / name, std::ios::binary) << zip.build();
    return 0;
}
