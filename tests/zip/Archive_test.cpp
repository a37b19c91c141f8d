#include "zip/Archive.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <random>

#include "zip/ArchiveError.h"
#include "zip/MemoryBytes.h"
#include "zip/NestedArchive.h"
#include "zip/ZipBuilder.h"

using builder::Entry;
using builder::Header;
using builder::Zip;
using zip::Archive;
using zip::ArchiveError;

namespace {

using Contents = std::map<std::string, std::string>;

Archive open(std::string bytes) { return Archive(std::make_unique<zip::MemoryBytes>(std::move(bytes)), "a.lfa"); }

std::string streamed(const Archive& archive, const zip::Member& member) {
    zip::OutputBudget budget;
    std::string data;
    archive.copyTo(
        member, [&data](std::string_view piece) { data += piece; }, budget);
    return data;
}

/// All members, read in both ways, which must agree.
Contents contentsOf(const std::string& bytes) {
    const Archive archive = open(bytes);
    Contents contents;
    for (const zip::Member& member : archive.members()) {
        EXPECT_EQ(archive.find(member.name), &member);
        const std::string data = member.isDirectory() ? "" : archive.read(member);
        EXPECT_EQ(member.isDirectory() ? "" : streamed(archive, member), data) << member.name;
        contents.emplace(member.name, data);
    }
    return contents;
}

/// What stands behind the archive's name in the error of reading all members, in both ways.
std::string refusalOf(const std::string& bytes) {
    std::string whole, stream;
    try {
        const Archive archive = open(bytes);
        for (const zip::Member& member : archive.members()) {
            try {
                archive.read(member);
            } catch (const ArchiveError& error) {
                whole = error.what();
            }
            streamed(archive, member);
        }
    } catch (const ArchiveError& error) {
        stream = error.what();
    }
    EXPECT_TRUE(whole.empty() || whole == stream) << "the whole read refuses otherwise: " << whole;
    return stream;
}

const std::string kText = "a text that is packed, a text that is packed, and unpacked\n";

Zip sample() {
    Zip zip;
    zip.entries = {Entry("lfa.json", kText, true), Entry("hpfm/x.hpfm", "stored"), Entry("bit/"), Entry("empty")};
    zip.comment = "a comment";
    return zip;
}

/// Both sizes of a header moved to its zip64 field.
void moveTo64(Header& header) {
    header.extra += builder::extra(1, builder::le(header.size, 8) + builder::le(header.packedSize, 8));
    header.size = header.packedSize = 0xFFFFFFFF;
}

/// Sizes and CRC stand behind the data; `descriptor` holds them.
void moveBehind(Entry& entry, const std::string& descriptor) {
    entry.both(&Header::flags, 8);
    entry.local.crc = 0;
    entry.local.size = entry.local.packedSize = 0;
    entry.descriptor = descriptor;
}

std::string descriptorOf(const Entry& entry, int width) {
    const Header& header = entry.central;
    return builder::le(header.crc, 4) + builder::le(header.packedSize, width) + builder::le(header.size, width);
}

std::string signedDescriptorOf(const Entry& entry, int width) {
    return std::string("PK\7\10").append(descriptorOf(entry, width));
}

}  // namespace

TEST(Archive, ReadsWhatIsSound) {
    static const struct {
        const char* what;
        std::function<void(Zip&)> change;
    } cases[] = {
        {"as it is", [](Zip&) {}},
        {"long comment", [](Zip& z) { z.comment = std::string(0xFFFF, 'c'); }},
        {"zip64 end record", [](Zip& z) { z.isZip64 = true; }},
        {"zip64 end record, values in both", [](Zip& z) { z.isZip64 = true, z.hasMarks64 = false; }},
        {"zip64 sizes", [](Zip& z) { moveTo64(z.entries[0].local), moveTo64(z.entries[0].central); }},
        {"zip64 sizes in the local header only", [](Zip& z) { moveTo64(z.entries[0].local); }},
        {"zip64 field with all values",
         [](Zip& z) {
             moveTo64(z.entries[0].central),
                 z.entries[0].central.extra =
                     builder::extra(1, builder::le(kText.size(), 8) + builder::le(z.entries[0].packed.size(), 8) +
                                           builder::le(0, 8));
         }},
        {"descriptor", [](Zip& z) { moveBehind(z.entries[0], signedDescriptorOf(z.entries[0], 4)); }},
        {"descriptor without signature", [](Zip& z) { moveBehind(z.entries[0], descriptorOf(z.entries[0], 4)); }},
        {"zip64 descriptor", [](Zip& z) { moveBehind(z.entries[0], signedDescriptorOf(z.entries[0], 8)); }},
        {"other extra fields", [](Zip& z) { z.entries[0].local.extra = builder::extra(0x5455, "times"); }},
        {"more extra fields than are read at once",
         [](Zip& z) { z.entries[0].local.extra = builder::extra(0x5455, std::string(9000, 't')); }},
        {"rows in another order",
         [](Zip& z) {
             const std::uint64_t first = 30 + 8 + z.entries[0].packed.size();
             z.entries[0].offset = 0, z.entries[1].offset = first;
             std::swap(z.entries[0], z.entries[1]);
             std::swap(z.entries[0].local, z.entries[1].local), std::swap(z.entries[0].packed, z.entries[1].packed);
         }},
        {"marked as UTF-8", [](Zip& z) { z.entries[1].both(&Header::flags, 0x800).comment = "\xC3\xBC"; }},
        {"comment in an encoding of its own", [](Zip& z) { z.entries[1].comment = "\xBC"; }},
        {"no mode", [](Zip& z) { z.entries[0].mode = 0; }},
    };
    const Contents expected{{"lfa.json", kText}, {"hpfm/x.hpfm", "stored"}, {"bit/", ""}, {"empty", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Zip zip = sample();
        c.change(zip);
        EXPECT_EQ(contentsOf(zip.build()), expected);
    }
    EXPECT_EQ(contentsOf(Zip().build()), Contents());
    EXPECT_EQ(open(sample().build()).comment(), "a comment");
    EXPECT_EQ(open(sample().build()).find("Lfa.json"), nullptr);
}

TEST(Archive, RefusesLies) {
    static const struct {
        const char* what;
        std::function<void(Zip&)> change;
        const char* refusal;
    } cases[] = {
        // the end
        {"bytes before",
         [](Zip& z) {
             z.before = "#!/bin/sh\n";
             z.offset = 0;
         },
         "10 bytes before its first"},
        {"bytes before, offsets without them",
         [](Zip& z) {
             z.before.assign(5, '#'), z.offset = -5;
             for (auto& e : z.entries) e.offset = 0;
         },
         "does not end at"},
        {"bytes behind", [](Zip& z) { z.behind = "x"; }, "comment of 9 bytes, but 10 bytes follow"},
        {"bytes behind a directory", [](Zip& z) { z.behindDirectory = "x"; }, "does not end at"},
        {"comment longer", [](Zip& z) { z.commentSize = 10; }, "comment of 10 bytes, but 9 bytes follow"},
        {"comment shorter", [](Zip& z) { z.commentSize = 8; }, "comment of 8 bytes, but 9 bytes follow"},
        {"count too high", [](Zip& z) { z.count = 1; }, "counts 5 members, but the central directory has 4"},
        {"count too low", [](Zip& z) { z.count = -1; }, "counts 3 members, but the central directory has more"},
        {"directory offset", [](Zip& z) { z.offset = 1; }, "does not end at"},
        {"directory size", [](Zip& z) { z.size = -1; }, "does not end at"},
        {"directory begins late", [](Zip& z) { z.offset = 4, z.size = -4; }, "entry 1 of the central directory"},
        {"split", [](Zip& z) { z.disk = 1; }, "split archive"},
        {"second end record in the comment", [](Zip& z) { z.comment = Zip().build(); },
         "two ends of central directory"},
        {"end of one in the comment", [](Zip& z) { z.comment = "PK\5\6..................."; },
         "second end of central directory"},
        {"end record in a row", [](Zip& z) { z.entries[0].comment = Zip().build(); },
         "second end of central directory"},
        {"end record that reaches over another one",
         [](Zip& z) {
             z.comment = "",
             z.entries[3].comment = std::string("PK\5\6").append(std::string(16, '\0')).append(builder::le(22, 2));
         },
         "two ends of central directory"},
        {"zip64 count", [](Zip& z) { z.isZip64 = true, z.count64 = 1; }, "counts 5 members"},
        {"zip64 count beside another", [](Zip& z) { z.isZip64 = true, z.hasMarks64 = false, z.count64 = 1; },
         "4 in the end of central directory and 5 in the zip64"},
        {"zip64 members without end", [](Zip& z) { z.isZip64 = true, z.count64 = 2'000'000; }, "at most 1000000"},
        {"zip64 locator", [](Zip& z) { z.isZip64 = true, z.locator = 1; }, "zip64 locator points to"},
        {"zip64 record size", [](Zip& z) { z.isZip64 = true, z.record64Size = 8; }, "gives 52 as its size"},
        // the directory
        {"two of one name", [](Zip& z) { z.entries.emplace_back("empty"); }, "!empty: two members have this name"},
        {"no name", [](Zip& z) { z.entries.emplace_back(""); }, "member 5 has no name"},
        {"NUL in a name", [](Zip& z) { z.entries.emplace_back(std::string("a\0b", 3)); },
         "!a\\x00b: its name contains NUL"},
        {"name that is not in the encoding it is marked with",
         [](Zip& z) { z.entries.emplace_back("gr\xBC").both(&Header::flags, 0x800); }, "marked as UTF-8"},
        {"comment that is not in the encoding it is marked with",
         [](Zip& z) { z.entries[1].both(&Header::flags, 0x800).comment = "\xBC"; }, "marked as UTF-8"},
        {"encrypted", [](Zip& z) { z.entries[1].both(&Header::flags, 1); }, "it is encrypted"},
        {"strongly encrypted", [](Zip& z) { z.entries[1].both(&Header::flags, 0x40); }, "it is encrypted"},
        {"masked", [](Zip& z) { z.entries[1].both(&Header::flags, 0x2000); }, "it is encrypted"},
        {"unknown method", [](Zip& z) { z.entries[1].both(&Header::method, 14); }, "compressed by method 14"},
        {"on another disk", [](Zip& z) { z.entries[1].disk = 1; }, "another part of a split archive"},
        {"stored with two sizes", [](Zip& z) { z.entries[1].both(&Header::size, 7); }, "6 compressed and 7"},
        {"more than deflate can make", [](Zip& z) { z.entries[0].both(&Header::size, 1 << 30); }, "cannot hold"},
        {"overlap", [](Zip& z) { z.entries[1].offset = 0; }, "extend beyond byte 0, where the next member begins"},
        {"data beyond the directory",
         [](Zip& z) { z.entries[3].both(&Header::size, 99).both(&Header::packedSize, 99); },
         "the central directory begins"},
        {"offset beyond the directory", [](Zip& z) { z.entries[3].offset = 1 << 20; }, "extend beyond byte"},
        {"extra fields cut short", [](Zip& z) { z.entries[0].central.extra = "UT\5"; }, "extra fields of its entry"},
        {"extra field beyond its end", [](Zip& z) { z.entries[0].central.extra = "UT\5\0abcd"; },
         "extra fields of its entry"},
        {"zip64 field missing", [](Zip& z) { z.entries[0].central.size = 0xFFFFFFFF; },
         "zip64 field of its entry is missing"},
        {"zip64 field twice",
         [](Zip& z) {
             moveTo64(z.entries[0].central);
             z.entries[0].central.extra += z.entries[0].central.extra;
         },
         "extra fields of its entry are malformed"},
        {"zip64 field of odd size", [](Zip& z) { z.entries[0].central.extra = builder::extra(1, "1234"); },
         "has 4 bytes"},
        {"zip64 field disagrees",
         [](Zip& z) { z.entries[0].central.extra = builder::extra(1, std::string(24, '\1')); },
         "disagrees with the entry"},
        {"zip64 sizes above 2^63",
         [](Zip& z) {
             auto& h = z.entries[1].central;
             h.size = h.packedSize = ~std::uint64_t{1};
             moveTo64(h);
         },
         "extend beyond byte"},
        // the local header
        {"no local header",
         [](Zip& z) {
             z.entries[0].descriptor = "0123456789",
             z.entries[1].offset = 30 + 8 + 10 + z.entries[0].packed.size() - 5;
         },
         "!hpfm/x.hpfm: there is no local header at byte"},
        {"local name", [](Zip& z) { z.entries[0].local.name = "lfa.jsoN"; },
         "!lfa.json: its local header has another name"},
        {"longer local name", [](Zip& z) { z.entries[0].local.name = "lfa.jsonx"; }, "another name"},
        {"local method", [](Zip& z) { z.entries[0].local.method = 0; }, "another method"},
        {"local flags", [](Zip& z) { z.entries[0].local.flags = 0x800; }, "other flags"},
        {"local CRC", [](Zip& z) { z.entries[0].local.crc ^= 1; }, "another CRC"},
        {"local size", [](Zip& z) { ++z.entries[0].local.size; }, "its local header has"},
        {"local extra fields beyond the member",
         [](Zip& z) {
             z.entries[0].local.extra = builder::extra(9, std::string(99, 'x')), z.entries[1].offset = 120;
         },
         "!lfa.json: its"},
        {"local extra fields", [](Zip& z) { z.entries[0].local.extra = "x"; }, "extra fields of its local header"},
        {"local zip64 field missing", [](Zip& z) { z.entries[0].local.size = 0xFFFFFFFF; },
         "zip64 field of its local"},
        // the data
        {"CRC", [](Zip& z) { z.entries[0].both(&Header::crc, 1); }, "its CRC is "},
        {"CRC of a stored one", [](Zip& z) { z.entries[1].packed = "Stored"; }, "its CRC is "},
        {"larger than told", [](Zip& z) { z.entries[0].both(&Header::size, 7); }, "to more bytes than"},
        {"smaller than told", [](Zip& z) { z.entries[0].both(&Header::size, 99); }, "to fewer bytes than"},
        {"damaged", [](Zip& z) { z.entries[0].packed[0] = '\7'; }, "compressed data are damaged"},
        {"cut short",
         [](Zip& z) {
             auto& e = z.entries[0];
             e.packed.pop_back();
             e.both(&Header::packedSize, e.packed.size());
         },
         "compressed data are damaged or truncated"},
        {"bytes behind the packed data",
         [](Zip& z) {
             auto& e = z.entries[0];
             e.packed.push_back('x');
             e.both(&Header::packedSize, e.packed.size());
         },
         "bytes after its compressed data"},
        {"descriptor missing", [](Zip& z) { moveBehind(z.entries[0], ""); }, "data descriptor"},
        {"descriptor disagrees", [](Zip& z) { moveBehind(z.entries[0], std::string(16, '\1')); }, "data descriptor"},
        {"link", [](Zip& z) { z.entries[1].mode = 0120777; }, "it is a link or a device"},
        {"device", [](Zip& z) { z.entries[1].mode = 0060644; }, "it is a link or a device"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Zip zip = sample();
        c.change(zip);
        const std::string refusal = refusalOf(zip.build());
        EXPECT_NE(refusal.find(c.refusal), std::string::npos) << refusal;
        EXPECT_EQ(refusal.find("a.lfa"), 0U) << refusal;
    }
}

/// Members that are too large to be unpacked at once go another way, with the same judgement.
TEST(Archive, RefusesLiesAboutLargeMembers) {
    static const struct {
        const char* what;
        std::function<void(Entry&)> change;
        const char* refusal;
    } cases[] = {
        {"as it is", [](Entry&) {}, ""},
        {"CRC", [](Entry& e) { e.both(&Header::crc, 1); }, "its CRC is "},
        {"larger than told", [](Entry& e) { e.both(&Header::size, e.local.size - 1); }, "to more bytes than"},
        {"smaller than told", [](Entry& e) { e.both(&Header::size, e.local.size + 1); }, "to fewer bytes than"},
        {"damaged", [](Entry& e) { e.packed[0] = '\7'; }, "compressed data are damaged"},
        {"cut short", [](Entry& e) { e.packed.pop_back(), e.both(&Header::packedSize, e.packed.size()); },
         "compressed data are truncated"},
        {"bytes behind", [](Entry& e) { e.packed += 'x', e.both(&Header::packedSize, e.packed.size()); },
         "bytes after its compressed data"},
    };
    const Entry sound("large", std::string(5'000'000, 'x'), true);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Zip zip;
        zip.entries = {sound};
        c.change(zip.entries[0]);
        const std::string refusal = refusalOf(zip.build());
        EXPECT_EQ(refusal.empty(), *c.refusal == '\0') << refusal;
        EXPECT_NE(refusal.find(c.refusal), std::string::npos) << refusal;
    }
}

/// The packed text 'x', a length code that is reserved (286), a distance of 1, the end of the block: the libraries
/// that unpack do not agree whether that is sound.
TEST(Archive, OneAnswerWhicheverWayItIsRead) {
    std::string bits =
                    "1"
                    "10"
                    "10101000"
                    "11000110"
                    "00000"
                    "0000000",
                packed;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        int byte = 0;
        for (std::size_t i = at; i < std::min(at + 8, bits.size()); ++i) byte |= (bits[i] - '0') << (i - at);
        packed += static_cast<char>(byte);
    }
    const std::string data(259, 'x');
    Entry entry("reserved", data);
    entry.packed = packed;
    entry.both(&Header::method, 8).both(&Header::packedSize, packed.size());
    Zip zip;
    zip.entries = {entry};
    const Archive archive = open(zip.build());
    std::string whole, stream;
    try {
        whole = archive.read(archive.members()[0]);
    } catch (const ArchiveError& error) {
        whole = error.what();
    }
    try {
        stream = streamed(archive, archive.members()[0]);
    } catch (const ArchiveError& error) {
        stream = error.what();
    }
    EXPECT_EQ(whole, stream);
    EXPECT_TRUE(whole == data || whole.find("compressed data are damaged") != std::string::npos) << whole;
}

TEST(Archive, NoCutAndNoChangedByteGivesOtherData) {
    Zip zip = sample();
    zip.entries[1].local.extra = zip.entries[1].central.extra = builder::extra(0x5455, "times");
    moveBehind(zip.entries[0], signedDescriptorOf(zip.entries[0], 4));
    zip.isZip64 = true;
    const std::string sound = zip.build();
    Contents expected = contentsOf(sound);
    expected.erase("bit/");  // one changed letter makes a file of the directory, which is no lie
    for (std::size_t size = 0; size < sound.size(); ++size)
        EXPECT_THROW(contentsOf(sound.substr(0, size)), ArchiveError) << "cut to " << size;
    int refused = 0;
    for (std::size_t at = 0; at < sound.size(); ++at) {
        for (const int mask : {0x01, 0x80, 0xFF}) {
            std::string changed = sound;
            changed[at] = static_cast<char>(changed[at] ^ mask);
            try {
                const Contents contents = contentsOf(changed);
                for (const auto& [name, data] : expected)
                    EXPECT_EQ(contents.contains(name) ? contents.at(name) : "gone", data) << name << ", byte " << at;
            } catch (const ArchiveError&) {
                ++refused;
            }
        }
    }
    EXPECT_GT(refused, static_cast<int>(sound.size()));
}

TEST(Archive, CountsWithoutAndWithZip64) {
    Zip zip;
    for (int i = 0; i < 0xFFFF; ++i) zip.entries.emplace_back(std::to_string(i));
    EXPECT_NE(open(zip.build()).find("65534"), nullptr);
    zip.entries.emplace_back("one more");
    EXPECT_THROW(open(zip.build()), ArchiveError);
    zip.isZip64 = true;
    EXPECT_EQ(open(zip.build()).members().size(), 0x10000U);
}

TEST(Archive, BoundsWhatItUnpacks) {
    Zip zip;
    zip.entries.emplace_back("zeros", std::string(10'000'000, '\0'), true);
    const Archive archive = open(zip.build());
    const zip::Member& zeros = *archive.find("zeros");
    EXPECT_EQ(archive.read(zeros, 10'000'000).size(), 10'000'000U);
    EXPECT_THROW(archive.read(zeros, 9'999'999), ArchiveError);
    zip::OutputBudget budget(15'000'000);
    std::size_t size = 0;
    const Archive::Sink count = [&size](std::string_view piece) { size += piece.size(); };
    archive.copyTo(zeros, count, budget);
    EXPECT_THROW(archive.copyTo(zeros, count, budget), ArchiveError);
    EXPECT_LE(size, 15'000'000U);
}

TEST(Archive, NestedInMemoryAndInAFile) {
    std::mt19937 random(1);
    std::string large(40'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); i += 1000) large[i] = static_cast<char>(random());
    for (const std::string& data : {std::string("small"), large}) {
        for (const bool isDeflated : {false, true}) {
            Zip inner, outer;
            inner.entries.emplace_back("deep/data", data);
            outer.entries.emplace_back("x.tilprj", inner.build(), isDeflated);
            const Archive archive = open(outer.build());
            zip::OutputBudget budget;
            const auto nested = zip::openNested(archive, *archive.find("x.tilprj"), budget);
            EXPECT_EQ(nested->name(), "a.lfa!x.tilprj");
            EXPECT_TRUE(streamed(*nested, *nested->find("deep/data")) == data);
            EXPECT_EQ(budget.left(), zip::OutputBudget::kOfCall - inner.build().size());
        }
    }
}

TEST(Archive, OpensRegularFilesOnly) {
    for (const char* const path : {"/nowhere/a.lfa", "/dev/null", "/tmp", ""}) {
        SCOPED_TRACE(path);
        EXPECT_THROW(Archive{path}, ArchiveError);
    }
}
