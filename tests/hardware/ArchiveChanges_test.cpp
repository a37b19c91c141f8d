#include "hardware/ArchiveChanges.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>

#include "hardware/Documents.h"
#include "kit/Cases.h"
#include "kit/Platforms.h"
#include "kit/Replace.h"
#include "msg/HEXAll.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
#include "text/HSTStringUtils.h"
#include "zip/Archive.h"
#include "zip/Request.h"

namespace fs = std::filesystem;

namespace {

using State = HUTZip::DigestState;
using testing::ElementsAre;
using testing::HasSubstr;

class ArchiveChanges : public testing::Test {
protected:
    void SetUp() override {
        archive_ = packed(scratch_, "p.lfa", {{"lfa.json", "{}"}, {"bit/full.bit", "old bits"}});
        source_ = scratch_.put("source", "new bits");
        platform_.setPlatformFile(archive_);
        platform_.setName("n");
    }
    std::string member(const std::string& name) const {
        const zip::Archive archive(archive_);
        const zip::Member* const found = archive.find(name);
        return found ? archive.read(*found) : "-";
    }
    /// "type: name" of each file that the platform lists.
    static std::vector<std::string> files(const HPLPlatform& platform) {
        std::vector<std::string> files;
        const auto [begin, end] = platform.getFileVecRange();
        for (auto it = begin; it != end; ++it) files.push_back((*it)->getType() + ": " + (*it)->getName());
        return files;
    }
    Scratch scratch_;
    std::string archive_, source_;
    HPLPlatform platform_;
};

/// What the change throws: its kind, its text, and the reason that is nested in it.
std::string thrownBy(const std::function<void()>& change) {
    try {
        change();
    } catch (const HEXAll& error) {
        const std::string text =
            std::string(dynamic_cast<const HEXAlgException*>(&error) ? "state: " : "") + error.what();
        try {
            std::rethrow_if_nested(error);
        } catch (const std::exception& reason) {
            return text + ": " + reason.what();
        }
        return text;
    }
    return "nothing was thrown";
}

}  // namespace

TEST_F(ArchiveChanges, TheDocumentAndALineEnd) {
    platform_.writeToJSON();
    json::ptree tree;
    json::parse(member("lfa.json"), "test", tree);
    teq_platform::JSONObjectWriter writer;
    platform_.toJSON(writer);
    EXPECT_EQ(tree, writer.getTree());
    EXPECT_TRUE(member("lfa.json").ends_with("\n}\n\n"));
    EXPECT_EQ(member("bit/full.bit"), "old bits");
    EXPECT_EQ(HUTZip::verify(archive_).digest, State::valid) << "a valid digest stays valid";
}

TEST_F(ArchiveChanges, OneFileOfATypeAndTheMemberOfTheFirstStays) {
    platform_.addFile("BIT", "bit/full.bit");
    platform_.addFile("TCL", "x.tcl");
    platform_.addFile("BIT", "bit/other.bit");
    platform_.archiveFile("BIT", "bit/1.bit", source_);
    EXPECT_THAT(files(platform_), ElementsAre("TCL: x.tcl", "BIT: bit/1.bit"));
    platform_.archiveFile("BIT", "bit/2.bit", scratch_.put("second", "newer bits"));
    EXPECT_THAT(files(platform_), ElementsAre("TCL: x.tcl", "BIT: bit/2.bit"));

    EXPECT_EQ(member("bit/full.bit"), "old bits");
    EXPECT_EQ(member("bit/1.bit"), "new bits");
    EXPECT_EQ(member("bit/2.bit"), "newer bits");
    EXPECT_THAT(member("lfa.json"), HasSubstr("2.bit"));
    EXPECT_THAT(member("lfa.json"), Not(HasSubstr("1.bit")));
    EXPECT_EQ(HUTZip::verify(archive_).digest, State::valid);
}

TEST_F(ArchiveChanges, AnArchiveWithoutADigestGetsOneWithAFile) {
    // The digest is the comment, which is cut off with its size.
    std::string bytes = contentOf(archive_);
    bytes.resize(bytes.find("zr-digest:"));
    bytes[bytes.size() - 2] = bytes[bytes.size() - 1] = 0;
    scratch_.put("p.lfa", bytes);
    platform_.setPlatformFile(archive_);
    ASSERT_EQ(HUTZip::verify(archive_).digest, State::none);
    platform_._archiveFile("bit/1.bit", source_);
    EXPECT_EQ(member("bit/1.bit"), "new bits");
    EXPECT_EQ(member("lfa.json"), "{}") << "the member alone";
    EXPECT_EQ(HUTZip::verify(archive_).digest, State::none);
    platform_.archiveFile("BIT", "bit/2.bit", source_);
    EXPECT_EQ(HUTZip::verify(archive_).digest, State::valid);
}

TEST_F(ArchiveChanges, WithoutAPlatformFileNothingHappens) {
    HPLPlatform platform;
    platform.writeToJSON();
    platform._archiveFile("m", "/nowhere");
    platform.attachDigest();
}

TEST_F(ArchiveChanges, WhatWasArchivedIsReadAtOnce) {
    const zip::Request request;
    EXPECT_TRUE(platform_.extract("bit/full.bit", archive_, scratch_ / "copy"));
    platform_.archiveFile("BIT", "bit/full.bit", source_);
    EXPECT_TRUE(platform_.extractFile("BIT", scratch_ / "copy"));
    EXPECT_EQ(contentOf(scratch_ / "copy"), "new bits");
}

/// Of each case: the archive, the source and the member's name, "-" for none.
TEST_F(ArchiveChanges, RefusalsLeaveEveryByte) {
    scratch_.put("text.lfa", "not an archive, whatever its name says");
    fs::create_directory(scratch_ / "folder.lfa");
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/hardware/changes.case", [this](const auto&,
                                                                                  const std::string& text) {
        const auto given = HSTStringUtils::split(text, ' ');
        HPLPlatform platform;
        const std::string archive = given[0] == "-" ? "" : scratch_ / given[0], before = contentOf(archive);
        platform.setPlatformFile(archive);
        const std::string thrown = thrownBy([&] {
            given.size() == 1 ? platform.writeToJSON() : platform.archiveFile("BIT", given[2], scratch_ / given[1]);
        });
        EXPECT_EQ(contentOf(archive), before);
        return replaced(thrown, scratch_.str(), "DIR") + "; files: " + HSTStringUtils::join(files(platform), ", ");
    });
}

/// The document of a platform that was read before would undo what another has done to the archive.
TEST_F(ArchiveChanges, AnArchiveThatWasChangedSinceItWasReadIsRefused) {
    HPLPlatform other;
    other.setPlatformFile(archive_);
    other.archiveFile("BIT", "bit/theirs.bit", source_);
    const std::string after = contentOf(archive_);
    const std::function<void()> changes[] = {
        [this] { platform_.archiveFile("BIT", "bit/ours.bit", source_); },
        [this] { platform_._archiveFile("bit/ours.bit", source_); },
        [this] { platform_.attachDigest(), platform_.writeToJSON(); },
    };
    for (const auto& change : changes) {
        EXPECT_THAT(thrownBy(change), HasSubstr("changed by somebody else since the platform was read"));
        EXPECT_EQ(contentOf(archive_), after);
    }
    platform_.setPlatformFile(archive_);
    EXPECT_NO_THROW(platform_.archiveFile("TCL", "ours.tcl", source_));
    EXPECT_NO_THROW(platform_.writeToJSON()) << "its own changes it knows";
    EXPECT_EQ(member("bit/theirs.bit"), "new bits");
}
