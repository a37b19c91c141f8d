#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>

#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/ZipBuilder.h"
#include "msg/HEXAll.h"
#include "platform/HDFToCFAConverter.h"
#include "platform/HRQAArchive.h"
#include "platform/HTEQCfaJsonReader.h"
#include "platform/SimpleFixedLFACreator.h"
#include "text/HSTStringUtils.h"
#include "zip/HUTZip.h"

namespace {

/// The text of the exception of `call`.
template <class Call>
std::string thrown(Call call) {
    try {
        call();
    } catch (const HEXAll& e) {
        return e.what();
    }
    return "nothing";
}

std::string indexOf(const HRQAArchive& archive) {
    teq_platform::JSONObjectWriter writer;
    archive.toJSON(writer);
    std::string text;
    for (const std::string& line : HSTStringUtils::split(json::write(writer.getTree()), '\n'))
        text += HSTStringUtils::trim(line);
    return text;
}

/// An archive that is made.
class Made : public testing::Test {
protected:
    std::string put(const std::string& name, const std::string& text) const { return scratch_.put(name, text); }
    /// It has these members and a digest.
    void expectSound(const std::vector<std::string>& members) const {
        HSTVector<std::string> names;
        HUTZip::getFiles(out_, names);
        EXPECT_THAT(names, testing::UnorderedElementsAreArray(members));
        EXPECT_TRUE(HUTZip::verify(out_).isSound() && HUTZip::verify(out_).digest == HUTZip::DigestState::valid);
    }
    /// What the JSON metadata say.
    std::string platform() const {
        HPLPlatform platform;
        EXPECT_TRUE(HTEQCfaJsonReader(&platform).parseCFA(out_, teq_platform::HwMetadataMode::Default));
        return platform.getVBNV() + " " + platform.getPlatformState() +
               (platform.isUnifiedPlatform() ? " unified" : "") + (platform.isExpandable() ? "" : " fixed") +
               (platform.usesPR() ? " PR" : "") +
               (platform.isGeneratedByLink() && platform.isGeneratedBySwEmuLink() ? " linked " : "") +
               platform.getFile("XDC");
    }
    const Scratch scratch_;
    const Capture capture_;
    const std::string out_ = scratch_ / "out.lfa";
};

}  // namespace

TEST_F(Made, FixedArchive) {
    put("out.lfa", "older");
    SimpleFixedLFACreator creator(out_);
    EXPECT_EQ(contentOf(out_), "");
    write(creator.getStagingDir() + "/deep/dropped", "d");
    creator.addFile("XDC", "a.xdc", put("a", "A"));
    creator.addFile("XDC", "c.xdc", put("c", "C"));
    EXPECT_TRUE(creator.writeLFA());
    expectSound({"a.xdc", "c.xdc", "deep/dropped", "lfa.json"});
    EXPECT_EQ(platform(), ":::0.0  unified fixed PR linked c.xdc");
}

TEST_F(Made, HardwareDefinition) {
    const auto definition = [&](const char* sysdef) {
        return put("in/d.hdf", builder::archiveOf({builder::Entry("sysdef.xml", sysdef)}).build());
    };
    const std::string hdf = definition("<Project/>");
    for (const auto& [name, stem] : {std::pair("m.lfa", "lfa"), {"m.LFA", "cfa"}, {"m", "cfa"}, {"", "cfa"}})
        EXPECT_STREQ(HDFToCFAConverter::hwpf_keyword(name), stem) << name;
    EXPECT_EQ(thrown([&] { HDFToCFAConverter("no", scratch_.str(), "x"); }),
              "Could not find specified file: 'no'on disk.");
    EXPECT_EQ(thrown([&] { HDFToCFAConverter(hdf, "no", "x"); }), "Could not find specified dir: 'no'on disk.");
    EXPECT_FALSE(HDFToCFAConverter(hdf, scratch_.str(), "out.lfa").writeCFA());
    EXPECT_THAT(capture_.lines(), testing::ElementsAre("@74-46@"));
    EXPECT_TRUE(HDFToCFAConverter(definition("<Project top='m'/>"), scratch_.str(), "out.lfa").writeCFA());
    expectSound({"d.hdf", "lfa.json", "lfa.xml"});
    EXPECT_EQ(platform(), "torvane.com::m:1.0 pre_synth unified fixed");
}

TEST(HRQAArchive, Index) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/converters/rqa.case", [](const auto&, const auto& text) {
        HRQAArchive archive;
        archive.registerFile("OLD", "gone");
        try {
            return archive.parseJsonString(text) ? indexOf(archive) : std::string("false");
        } catch (const boost::property_tree::json_parser_error&) {
            return std::string("not JSON");
        }
    });
}

TEST_F(Made, MetadataArchive) {
    HRQAArchive archive(out_);
    archive.create({{"T", "old", put("l", "old")}}, false);
    archive.archive("T", "new", put("n", "new"));
    archive.archive({{"", "bd/a", put("a", "A")}, {"", "ip/c", put("c", "C")}});
    archive.registerFile("DR_BD", "any name");
    archive.writeJSON();
    expectSound({"bd/a", "ip/c", "new", "old", "rqa.json"});
    HRQAArchive read(out_);
    EXPECT_TRUE(read.parse());
    EXPECT_EQ(indexOf(read), indexOf(archive));
    const std::string to = scratch_ / "to";
    EXPECT_EQ(contentOf(read.extract("T", to)), "new");
    EXPECT_EQ(contentOf(read.extract("DR_BD", to) + "/a"), "A");
    EXPECT_EQ(contentOf(to + "/ip/c"), "") << "only what was asked for";
    for (const char* name : {"../l", "/etc/passwd", "none"}) {
        for (const char* type : {"X", "IP_REPO_PATH"}) read.registerFile(type, name);
        EXPECT_NE(thrown([&] { read.extract("X", to); }), "nothing") << name;
        EXPECT_NE(thrown([&] { read.extract("IP_REPO_PATH", to); }), "nothing") << name;
    }
    EXPECT_EQ(thrown([&] { read.extract("T", ""); }), "HRQAArchive::extract() - destDir argument must not be empty");
}

TEST_F(Made, MetadataArchiveThatCannotBeChanged) {
    HRQAArchive(out_).create({}, false);
    const std::string before = contentOf(out_), text = put("text", "no archive");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {out_, "no", "archiveFile() - Could not open file for reading: no"},
        {"", text, "archive() - rqaFile is not set"},
        {"no", text, "archive() - rqaFile does not exist"},
        {text, out_, "archiveFile() - Could not open file for streaming: " + text}};
    for (const auto& [file, source, fault] : cases) {
        HRQAArchive archive(file);
        EXPECT_EQ(thrown([&] { archive.archive("T", "n", source); }), "HRQAArchive::" + fault);
        EXPECT_EQ(archive.parse(), file == out_);
        EXPECT_TRUE(archive.getFiles().empty());
    }
    EXPECT_EQ(contentOf(out_), before);
    EXPECT_THAT(capture_.lines(), testing::ElementsAre("@74-89@%s: ", "@74-89@%s: no", "@74-67@%s%s: rqa.json"));
}
