#include <fcntl.h>
#include <gmock/gmock.h>

#include <boost/property_tree/json_parser.hpp>

#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/ZipBuilder.h"
#include "msg/HEXAll.h"
#include "platform/HDFToCFAConverter.h"
#include "platform/HRQAArchive.h"
#include "platform/SimpleFixedLFACreator.h"
#include "text/HSTStringUtils.h"
#include "util/Descriptor.h"
#include "zip/HUTZip.h"

namespace {

using testing::ThrowsMessage;

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
}

TEST_F(Made, HardwareDefinition) {
    const auto definition = [&](const char* sysdef) {
        return put("in/d.hdf", builder::archiveOf({builder::Entry("sysdef.xml", sysdef)}).build());
    };
    const std::string hdf = definition("<Project/>");
    for (const auto& [name, stem] : {std::pair("m.lfa", "lfa"), {"m.LFA", "cfa"}, {"m", "cfa"}, {"", "cfa"}})
        EXPECT_STREQ(HDFToCFAConverter::hwpf_keyword(name), stem) << name;
    EXPECT_THAT([&] { HDFToCFAConverter("no", scratch_.str(), "x"); },
                ThrowsMessage<HEXAll>("Could not find specified file: 'no'on disk."));
    EXPECT_THAT([&] { HDFToCFAConverter(hdf, "no", "x"); },
                ThrowsMessage<HEXAll>("Could not find specified dir: 'no'on disk."));
    EXPECT_FALSE(HDFToCFAConverter(hdf, scratch_.str(), "out.lfa").writeCFA());
    EXPECT_THAT(capture_.lines(), testing::ElementsAre("@74-46@"));
    EXPECT_TRUE(HDFToCFAConverter(definition("<Project top='m'/>"), scratch_.str(), "out.lfa").writeCFA());
    expectSound({"d.hdf", "lfa.json", "lfa.xml"});
}

TEST(HRQAArchive, Index) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/converters/rqa.case", [](const auto&, const auto& text) {
        HRQAArchive archive;
        archive.registerFile("OLD", "gone");
        return archive.parseJsonString(text) ? indexOf(archive) : std::string("false");
    });
    EXPECT_THROW(HRQAArchive().parseJsonString("["), boost::property_tree::json_parser_error);
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
    for (const char* name : {"../l", "/etc/passwd", "none"})
        for (const char* type : {"X", "IP_REPO_PATH"}) {
            read.registerFile(type, name);
            EXPECT_THROW(read.extract(type, to), HEXAll) << name;
        }
    EXPECT_THAT([&] { read.extract("T", ""); },
                ThrowsMessage<HEXAll>("HRQAArchive::extract() - destDir argument must not be empty"));
}

TEST_F(Made, FollowsNoLinkBelowAnOpenDirectory) {
    put("folder/file", "inside");
    put("elsewhere/file", "outside");
    std::filesystem::create_directory_symlink("../elsewhere", scratch_ / "folder/link");
    const auto folder = std::make_shared<const util::Descriptor>(
        ::open((scratch_ / "folder").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    HRQAArchive(out_).create({{"", "a", "shown", folder, "file"}}, false);
    HUTZip::uncompress(out_, "a", scratch_ / "folder", false);
    EXPECT_EQ(contentOf(scratch_ / "folder/a"), "inside");
    EXPECT_THROW(HRQAArchive(out_).archive({{"", "b", "shown", folder, "link/file"}}), HEXUserException);
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
        EXPECT_THAT([&] { archive.archive("T", "n", source); }, ThrowsMessage<HEXAll>("HRQAArchive::" + fault));
        EXPECT_EQ(archive.parse(), file == out_);
        EXPECT_TRUE(archive.getFiles().empty());
    }
    EXPECT_EQ(contentOf(out_), before);
    EXPECT_THAT(capture_.lines(), testing::ElementsAre("@74-89@%s: ", "@74-89@%s: no", "@74-67@%s%s: rqa.json"));
}
