#include "zip/Archive.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>

#include "kit/ZipCases.h"
#include "zip/ArchiveError.h"
#include "zip/MemoryBytes.h"
#include "zip/NestedArchive.h"

using builder::archiveOf;
using builder::Entry;
using builder::Header;
using builder::sampleZip;
using builder::Zip;
using builder::zipOf;
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

/// The text after the archive's name in the error of reading all members, both ways.
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

constexpr const char* kCases = ZR_SOURCE_DIR "/tests/cases/zip/";

}  // namespace

TEST(Archive, ReadsWhatIsSound) {
    const Contents expected = contentsOf(sampleZip().build());
    EXPECT_EQ(expected.at("hpfm/x.hpfm"), "stored");
    EXPECT_EQ(expected.size(), 4U);
    for (const cases::Case& each : cases::read(kCases + std::string("sound.case"))) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(contentsOf(zipOf(each, sampleZip()).build()), expected);
    }
    Zip swapped = sampleZip();  // the rows in another order
    swapped.entries[1].offset = 30 + 8 + swapped.entries[0].packed.size();
    swapped.entries[0].offset = 0;
    std::swap(swapped.entries[0], swapped.entries[1]);
    std::swap(swapped.entries[0].local, swapped.entries[1].local);
    std::swap(swapped.entries[0].packed, swapped.entries[1].packed);
    EXPECT_EQ(contentsOf(swapped.build()), expected);
    EXPECT_EQ(contentsOf(Zip().build()), Contents());
    EXPECT_EQ(open(sampleZip().build()).comment(), "a comment");
    EXPECT_EQ(open(sampleZip().build()).find("Lfa.json"), nullptr);
}

TEST(Archive, RefusesLies) {
    // Members that are too large to be unpacked at once go another way, with the same judgement.
    const Zip large = archiveOf({Entry("large", std::string(5'000'000, 'x'), true)});
    EXPECT_EQ(refusalOf(large.build()), "");
    for (const auto& [file, sound] : {std::pair{"lies.case", sampleZip()}, std::pair{"large.case", large}})
        for (const cases::Case& each : cases::read(kCases + std::string(file))) {
            SCOPED_TRACE(each.name);
            const std::string refusal = refusalOf(zipOf(each, sound).build());
            EXPECT_NE(refusal.find(cases::plain(each.lines.back().text)), std::string::npos) << refusal;
            EXPECT_EQ(refusal.find("a.lfa"), 0U) << refusal;
        }
}

/// The packed text 'x', a length code that is reserved (286), a distance of 1, the end of the block: the libraries
/// that unpack do not agree whether that is sound.
TEST(Archive, OneAnswerWhicheverWayItIsRead) {
    const std::string packed("\xab\x18\x03\x00", 4);  // bits 1 10 10101000 11000110 00000 0000000, the lowest first
    const std::string data(259, 'x');
    Entry entry("reserved", data);
    entry.packed = packed;
    entry.both(&Header::method, 8).both(&Header::packedSize, packed.size());
    const std::string bytes = archiveOf({entry}).build(), refusal = refusalOf(bytes);  // in both ways
    if (refusal.empty())
        EXPECT_EQ(contentsOf(bytes).at("reserved"), data);
    else
        EXPECT_NE(refusal.find("packed data are damaged"), std::string::npos) << refusal;
}

TEST(Archive, NoCutAndNoChangedByteGivesOtherData) {
    Zip zip = sampleZip();
    zip.entries[1].local.extra = zip.entries[1].central.extra = builder::extra(0x5455, "times");
    moveAfter(zip.entries[0], "signed4");
    zip.isZip64 = true;
    const std::string sound = zip.build();
    Contents expected = contentsOf(sound);
    expected.erase("bit/");  // one changed letter turns the directory into a file, which is consistent
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
    const Archive archive = open(archiveOf({Entry("zeros", std::string(10'000'000, '\0'), true)}).build());
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
            const std::string inner = archiveOf({Entry("deep/data", data)}).build();
            const Archive archive = open(archiveOf({Entry("x.tilprj", inner, isDeflated)}).build());
            zip::OutputBudget budget;
            const auto nested = zip::openNested(archive, *archive.find("x.tilprj"), budget);
            EXPECT_EQ(nested->name(), "a.lfa!x.tilprj");
            EXPECT_TRUE(streamed(*nested, *nested->find("deep/data")) == data);
            EXPECT_EQ(budget.left(), zip::OutputBudget::kOfCall - inner.size());
        }
    }
}

TEST(Archive, OpensRegularFilesOnly) {
    for (const char* const path : {"/nowhere/a.lfa", "/dev/null", "/tmp", ""})
        EXPECT_THROW(Archive{path}, ArchiveError) << path;
}
