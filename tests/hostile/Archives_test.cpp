// Archives that lie, asked for by the public road. What the strict reader says of each lie is tested with it.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "hostile/Trial.h"
#include "zip/ZipBuilder.h"

using builder::Entry;
using builder::Header;
using builder::Zip;

namespace {

const std::string kText = R"({"name": "n", "files": [{"type": "DCP", "name": "x.dcp"}]})";

Zip sample() {
    Zip zip;
    zip.entries = {Entry("lfa.json", kText, true), Entry("x.dcp", "data"), Entry("bit/")};
    return zip;
}

std::string written(const std::string& bytes, const std::string& name = "x.lfa") {
    const std::string path = Place::get().fresh() + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

}  // namespace

TEST(HostileArchives, LiesThatTheDirectoryTells) {
    static const struct {
        const char* what;
        std::function<void(Zip&)> change;
        const char* words;
    } cases[] = {
        {"bytes before", [](Zip& z) { z.before = "#!/bin/sh\n", z.offset = 0; }, "10 bytes before"},
        {"bytes behind", [](Zip& z) { z.behind = "x"; }, "1 bytes follow"},
        {"count", [](Zip& z) { z.count = 1; }, "counts 4 members"},
        {"offset", [](Zip& z) { z.offset = 1; }, "does not end at"},
        {"size", [](Zip& z) { z.size = -1; }, "does not end at"},
        {"comment length", [](Zip& z) { z.commentSize = 10; }, "a comment of 10 bytes"},
        {"second end record in the comment", [](Zip& z) { z.comment = Zip().build(); },
         "two ends of central directory"},
        {"second end record in a name", [](Zip& z) { z.entries.emplace_back("PK\5\6" + std::string(18, 'x')); },
         "a second end of central directory"},
        {"split", [](Zip& z) { z.disk = 1; }, "split archive"},
        {"a million members and one", [](Zip& z) { z.isZip64 = true, z.count64 = 1'000'001 - 3; },
         "it has 1000001 members; at most 1000000 are read"},
        {"a thousand million members", [](Zip& z) { z.isZip64 = true, z.count64 = 1'000'000'000; },
         "at most 1000000 are read"},
        {"one name twice", [](Zip& z) { z.entries.push_back(z.entries[0]); }, "lfa.json: two members"},
        {"NUL in a name", [](Zip& z) { z.entries.emplace_back(std::string("a\0b", 3)); }, "contains NUL"},
        {"overlap", [](Zip& z) { z.entries[1].offset = 0; }, "where the next member begins"},
        {"encrypted", [](Zip& z) { z.entries[0].both(&Header::flags, 1); }, "lfa.json: it is encrypted"},
        {"unknown method", [](Zip& z) { z.entries[0].both(&Header::method, 99); }, "method 99"},
        {"stored with two sizes", [](Zip& z) { z.entries[1].both(&Header::size, 5); }, "x.dcp: it is stored"},
        {"more than can be packed", [](Zip& z) { z.entries[0].both(&Header::size, 0x7FFFFFFF); },
         "cannot hold 2147483647"},
        {"sizes above 2^63",
         [](Zip& z) {
             auto& h = z.entries[1].central;
             h.size = h.packedSize = 0xFFFFFFFF;
             h.extra = builder::extra(1, builder::le(~0ULL - 1, 8) + builder::le(~0ULL - 1, 8));
         },
         "x.dcp: its 18446744073709551614"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Zip zip = sample();
        c.change(zip);
        expectAnswer(written(zip.build()), "null", c.words);
    }
}

TEST(HostileArchives, LiesAboutTheMetadataMember) {
    static const struct {
        const char* what;
        std::function<void(Entry&)> change;
        const char* words;
    } cases[] = {
        {"as it is", [](Entry&) {}, ""},
        {"CRC", [](Entry& e) { e.both(&Header::crc, 1); }, "x.lfa!lfa.json: its CRC is"},
        {"larger", [](Entry& e) { e.both(&Header::size, 5); }, "x.lfa!lfa.json: it decompresses to more bytes"},
        {"smaller", [](Entry& e) { e.both(&Header::size, 99); }, "x.lfa!lfa.json: it decompresses to fewer bytes"},
        {"damaged", [](Entry& e) { e.packed[0] = '\7'; }, "compressed data are damaged"},
        {"local name", [](Entry& e) { e.local.name = "LFA.json"; }, "its local header has another name"},
        {"a link", [](Entry& e) { e.mode = 0120777; }, "it is a link or a device"},
        {"a device", [](Entry& e) { e.mode = 0020666; }, "it is a link or a device"},
        {"set-id", [](Entry& e) { e.mode = 0106777; }, ""},
        {"no access", [](Entry& e) { e.mode = 0100000; }, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Zip zip = sample();
        c.change(zip.entries[0]);
        expectAnswer(written(zip.build()), *c.words ? "null" : "loads", c.words);
    }
}

TEST(HostileArchives, CutAtEveryByte) {
    const std::string sound = sample().build();
    for (std::size_t size = 0; size < sound.size(); ++size) {
        SCOPED_TRACE(size);
        const Answer answer =
            size % 16 == 0 ? tried(written(sound.substr(0, size))) : ask(written(sound.substr(0, size)));
        EXPECT_EQ(answer.outcome, "null") << answer.words;
    }
}

TEST(HostileArchives, MetadataIsBounded) {
    const std::uint64_t bound = 32UL * 1024 * 1024;
    const std::string head = R"({"name": "n", "padding": ")", tail = "\"}";
    for (const std::uint64_t size : {bound, bound + 1}) {
        Zip zip;
        zip.entries = {Entry("lfa.json", head + std::string(size - head.size() - tail.size(), ' ') + tail, true)};
        expectAnswer(written(zip.build()), size > bound ? "null" : "loads",
                     size > bound ? "at most 33554432 are read" : "");
    }
}

TEST(HostileArchives, MemberNamesAreNoPathsWhenOnlyMetadataIsRead) {
    Zip zip = sample();
    for (const char* name : {"../../../../up", "/absolute", "C:\\drive", "a\\b", "\x1b[31m", "a//b", "LFA.JSON"})
        zip.entries.emplace_back(name, "hostile");
    expectAnswer(written(zip.build()), "loads", "");
}
