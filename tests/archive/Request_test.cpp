#include "zip/Request.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "archive/ArchiveSource.h"
#include "archive/PlatformArchive.h"
#include "kit/Scratch.h"
#include "kit/ZipBuilder.h"
#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"
#include "zip/HUTZip.h"

namespace fs = std::filesystem;

namespace {

class Sources : public testing::Test {
protected:
    void SetUp() override {
        write(at("tree/lfa.json"), "{}");
        write(at("tree/hpfm/x.hpfm"), "<x/>");
        write(at("tree/prj/x.tilprj/arch/a.zip/deep"), "two deep");
        HUTZip::compressDir(at("tree"), at("a.lfa"));
    }
    std::string at(const std::string& name) const { return scratch_ / name; }
    Scratch scratch_;
};

using Requests = Sources;

/// Files that the process has open on a path.
int openOn(const std::string& path) {
    int count = 0;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd"))
        if (fs::read_symlink(entry.path(), error) == path) ++count;
    return count;
}

}  // namespace

TEST_F(Sources, Members) {
    const auto source = archive::open(at("a.lfa"));
    std::string names;
    for (const auto& file : source->files()) names += file.name + " ";
    EXPECT_EQ(names, "hpfm/x.hpfm lfa.json prj/x.tilprj ");
    EXPECT_TRUE(source->contains("prj/x.tilprj"));
    EXPECT_FALSE(source->contains("hpfm"));
    EXPECT_EQ(source->read("lfa.json"), "{}");
    for (const char* const absent : {"LFA.json", "hpfm", "../a.lfa", "hpfm/../lfa.json", "/lfa.json", ""})
        EXPECT_EQ(source->read(absent), std::nullopt) << absent;
    EXPECT_THROW(source->read("hpfm/x.hpfm", 3), zip::ArchiveError);

    EXPECT_TRUE(source->copyOut("hpfm/x.hpfm", at("out.hpfm")));
    EXPECT_THROW(source->copyOut("lfa.json", at("out.hpfm"), false), HEXUserException);
    EXPECT_EQ(contentOf(at("out.hpfm")), "<x/>");
    EXPECT_FALSE(source->copyOut("absent", at("other")));
    EXPECT_FALSE(HUTFile::exists(at("other")));
}

/// The order in which metadata members are read is known to this class alone.
TEST_F(Sources, MetadataOrder) {
    using Mode = archive::PlatformArchive::Mode;
    for (const char* name : {"alt_lfa.json", "lfa.xml", "hw_emu/alt_lfa.json"})
        write(at("tree/" + std::string(name)), "x");
    HUTZip::compressDir(at("tree"), at("all.lfa"));
    const archive::PlatformArchive some(at("a.lfa")), all(at("all.lfa"));
    EXPECT_EQ(some.metadata(Mode::Default)->member, "lfa.json");
    EXPECT_EQ(all.metadata(Mode::Default)->member, "alt_lfa.json");
    EXPECT_EQ(all.metadata(Mode::PrimaryJsonOnly)->member, "lfa.json");
    EXPECT_EQ(all.metadata(Mode::XmlOnly)->member, "lfa.xml");
    EXPECT_FALSE(some.metadata(Mode::XmlOnly));
    EXPECT_EQ(some.missingMetadata(Mode::XmlOnly).text, "the archive has no metadata member lfa.xml");
    EXPECT_EQ(some.missingMetadata(Mode::Default).text,
              "the archive has no metadata member alt_lfa.json, lfa.json or lfa.xml");
    EXPECT_EQ(all.childMetadata(Mode::Default)->member, "hw_emu/alt_lfa.json");
    EXPECT_FALSE(all.childMetadata(Mode::PrimaryJsonOnly));
    EXPECT_FALSE(all.childMetadata(Mode::XmlOnly)) << "its XML form is not read";
    EXPECT_EQ(all.allMetadata().size(), 4U);
    EXPECT_TRUE(some.lists("lfa.json") && some.lists("hpfm") && some.lists("prj"));
    EXPECT_FALSE(some.lists("hpf") || some.lists("hpfm/x") || some.lists(""));
}

TEST_F(Sources, OneBudgetForAChain) {
    write(at("big/x.zip/zeros"), std::string(600'000, '\0'));
    HUTZip::compressDir(at("big"), at("big.lfa"));
    const archive::ArchiveSource source(std::make_unique<zip::Archive>(at("big.lfa")), 1'000'000);
    for (int i = 0; i < 3; ++i) {
        const auto nested = source.openNested("x.zip");
        EXPECT_TRUE(nested->copyOut("zeros", "/dev/null"));
        EXPECT_THROW(nested->copyOut("zeros", "/dev/null"), zip::ArchiveError);
        EXPECT_THROW(nested->read("zeros"), zip::ArchiveError);
    }
}

TEST_F(Requests, ShareOneOpening) {
    const std::string path = at("a.lfa");
    {
        const zip::Request request;
        const auto first = zip::openShared(path);
        {
            const zip::Request inner;
            EXPECT_EQ(zip::openShared(path), first);
        }
        EXPECT_EQ(zip::openShared(path), first) << "the outermost request keeps it";
        EXPECT_EQ(openOn(path), 1);
        std::thread([&] { EXPECT_NE(zip::openShared(path), first); }).join();
    }
    EXPECT_EQ(openOn(path), 0);
    const auto alone = zip::openShared(path);
    EXPECT_NE(zip::openShared(path), alone);
    EXPECT_EQ(alone->read(*alone->find("lfa.json")), "{}");
}

TEST_F(Requests, KeepTwelveArchivesOpen) {
    const zip::Request request;
    const auto held = archive::open(at("a.lfa"));
    int open = 0;
    for (int i = 0; i < 40; ++i) {
        fs::copy(at("a.lfa"), at(std::to_string(i) + ".lfa"));
        EXPECT_EQ(archive::open(at(std::to_string(i) + ".lfa"))->read("lfa.json"), "{}");
    }
    for (int i = 0; i < 40; ++i) open += openOn(at(std::to_string(i) + ".lfa"));
    EXPECT_EQ(open, 12);
    EXPECT_EQ(held->read("lfa.json"), "{}") << "who holds one goes on with it";
}

TEST_F(Requests, SeeAChangedFile) {
    const zip::Request request;
    const auto old = archive::open(at("a.lfa"));
    write(at("tree/lfa.json"), "{1}");
    HUTZip::compressDir(at("tree"), at("a.lfa"));
    EXPECT_EQ(archive::open(at("a.lfa"))->read("lfa.json"), "{1}");
    EXPECT_EQ(old->read("lfa.json"), "{}") << "who holds the old one goes on with it";
    fs::remove(at("a.lfa"));
    EXPECT_THROW(archive::open(at("a.lfa")), zip::ArchiveError);
}

TEST_F(Requests, OpenArchivesTwoDeepAndNoDeeper) {
    std::string bytes = "{}";
    for (int depth = 0; depth < 4; ++depth) {
        builder::Zip zip;
        zip.entries.emplace_back("x.zip", bytes, true);
        bytes = zip.build();
    }
    write(at("deep.lfa"), bytes);
    const auto inner = archive::open(at("deep.lfa"))->openNested("x.zip")->openNested("x.zip");
    ASSERT_NE(inner, nullptr);
    EXPECT_THROW(inner->openNested("x.zip"), zip::ArchiveError);
}
