// Archives that lie, asked for by the public road. What the strict reader says of each lie is tested with it.
#include <gtest/gtest.h>

#include <string>

#include "kit/Trial.h"
#include "kit/ZipCases.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"

using builder::Entry;
using builder::sampleZip;
using builder::Zip;
using builder::zipOf;

namespace {

std::string written(const std::string& bytes, const std::string& name = "x.lfa") {
    const std::string path = Place::get().fresh() + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

}  // namespace

/// Of each lie the public road learns what it learns of the reader of the metadata member.
TEST(HostileArchives, Lies) {
    int asked = 0, refused = 0;
    for (const char* file : {"lies.case", "sound.case"})
        for (const cases::Case& each : cases::read(ZR_SOURCE_DIR "/tests/cases/zip/" + std::string(file))) {
            SCOPED_TRACE(each.name);
            const std::string path = written(zipOf(each, sampleZip()).build());
            std::string words;
            try {
                const zip::Archive archive(path);
                archive.read(*archive.find("lfa.json"));
            } catch (const zip::ArchiveError&) {
                words = cases::plain(each.lines.back().text);
                ++refused;
            }
            const Answer answer = ++asked % 3 == 0 ? tried(path) : ask(path);
            EXPECT_EQ(answer.outcome, words.empty() ? "loads" : "null");
            EXPECT_NE(answer.words.find(words), std::string::npos) << answer.words;
        }
    EXPECT_GT(refused, 50);
}

TEST(HostileArchives, CutAtEveryByte) {
    const std::string sound = sampleZip().build();
    for (std::size_t size = 0; size < sound.size(); ++size) {
        SCOPED_TRACE(size);
        const Answer answer =
            size % 16 == 0 ? tried(written(sound.substr(0, size))) : ask(written(sound.substr(0, size)));
        EXPECT_EQ(answer.outcome, "null") << answer.words;
    }
}

TEST(HostileArchives, MetadataIsBounded) {
    const std::uint64_t bound = 32UL * 1024 * 1024;
    const std::string head = R"({"name": "n", )", tail = R"("padding": "p"})";
    for (const std::uint64_t size : {bound, bound + 1}) {
        Zip zip;
        zip.entries = {Entry("lfa.json", head + std::string(size - head.size() - tail.size(), ' ') + tail, true)};
        expectAnswer(written(zip.build()), size > bound ? "null" : "loads",
                     size > bound ? "at most 33554432 are read" : "");
    }
}

TEST(HostileArchives, MemberNamesAreNoPathsWhenOnlyMetadataIsRead) {
    Zip zip = sampleZip();
    for (const char* name : {"../../../../up", "/absolute", "C:\\drive", "a\\b", "\x1b[31m", "a//b", "LFA.JSON"})
        zip.entries.emplace_back(name, "hostile");
    expectAnswer(written(zip.build()), "loads", "");
}
