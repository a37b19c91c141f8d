#include "hardware/ArchiveChanges.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>

#include "hardware/Documents.h"
#include "kit/Platforms.h"
#include "kit/Run.h"
#include "msg/HEXAll.h"
#include "platform/HPLFile.h"
#include "platform/HPLPlatform.h"
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
    std::vector<std::string> files() const {
        std::vector<std::string> files;
        const auto [begin, end] = platform_.getFileVecRange();
        for (auto it = begin; it != end; ++it) files.push_back((*it)->getType() + ": " + (*it)->getName());
        return files;
    }
    Scratch scratch_;
    std::string archive_, source_;
    HPLPlatform platform_;
};

/// The words of the exception, and the reason that is nested in it.
struct Words {
    std::string words, reason;
};

template <class Exception>
Words thrownBy(const std::function<void()>& call) {
    try {
        call();
    } catch (const Exception& error) {
        Words words{error.what(), ""};
        try {
            std::rethrow_if_nested(error);
        } catch (const std::exception& reason) {
            words.reason = reason.what();
        }
        return words;
    }
    return {"nothing of this kind was thrown", ""};
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
    EXPECT_THAT(files(), ElementsAre("TCL: x.tcl", "BIT: bit/1.bit"));
    platform_.archiveFile("BIT", "bit/2.bit", scratch_.put("second", "newer bits"));
    EXPECT_THAT(files(), ElementsAre("TCL: x.tcl", "BIT: bit/2.bit"));

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
    EXPECT_NO_THROW(platform.writeToJSON());
    EXPECT_NO_THROW(platform._archiveFile("m", "/nowhere"));
    EXPECT_NO_THROW(platform.attachDigest());
}

TEST_F(ArchiveChanges, WhatWasArchivedIsReadAtOnce) {
    const zip::Request request;
    EXPECT_TRUE(platform_.extract("bit/full.bit", archive_, scratch_ / "copy"));
    platform_.archiveFile("BIT", "bit/full.bit", source_);
    EXPECT_TRUE(platform_.extractFile("BIT", scratch_ / "copy"));
    EXPECT_EQ(contentOf(scratch_ / "copy"), "new bits");
}

TEST_F(ArchiveChanges, BrokenStates) {
    const struct {
        const char *file, *words;
    } cases[] = {
        {"", "HTEQHardwarePlatform::archiveFile() - lfaFile is not set"},
        {"noextension", "HTEQHardwarePlatform::archiveFile() - jsonFile is not set"},
        {"nobody.lfa", "HTEQHardwarePlatform::archiveFile() - lfaFile does not exist"},
        {"folder.lfa", "HTEQHardwarePlatform::archiveFile() - lfaFile does not exist"},
    };
    fs::create_directory(scratch_ / "folder.lfa");
    for (const auto& c : cases) {
        HPLPlatform platform;
        platform.setPlatformFile(*c.file ? scratch_ / c.file : "");
        const Words found = thrownBy<HEXAlgException>([&] { platform.archiveFile("T", "m", source_); });
        EXPECT_EQ(found.words, c.words);
        EXPECT_EQ(platform.getNumFiles(), 0U) << "the list is not reached";
    }
}

TEST_F(ArchiveChanges, FaultsOfTheEnvironmentLeaveEveryByte) {
    scratch_.put("text.lfa", "not an archive, whatever its name says");
    fs::create_directory(scratch_ / "folder");
    const std::string reading = "HTEQHardwarePlatform::archiveFile() - Could not open file for reading: ";
    const std::string archiving = "HTEQHardwarePlatform::archiveFile() - Could not open file for streaming: ";
    const struct {
        std::string archive, source, words;
        const char* reason;
    } cases[] = {
        {archive_, "/nowhere/x", reading + "/nowhere/x", "No such file"},
        {archive_, scratch_ / "folder", reading + (scratch_ / "folder"), "is not a regular file"},
        {scratch_ / "text.lfa", source_, archiving + (scratch_ / "text.lfa"), "no end of central directory"},
        {scratch_ / "text.lfa", "/nowhere/x", reading + "/nowhere/x", "No such file"},
        {archive_, archive_, "file '" + archive_ + "' cannot be put into an archive: it is the archive itself", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        const std::string before = contentOf(c.archive);
        platform_.setPlatformFile(c.archive);
        const Words found = thrownBy<HEXUserException>([&] { platform_.archiveFile("BIT", "b", c.source); });
        EXPECT_EQ(found.words, c.words);
        EXPECT_THAT(found.reason, HasSubstr(c.reason));
        EXPECT_EQ(contentOf(c.archive), before);
        EXPECT_THAT(files(), ElementsAre("BIT: b")) << "the list is changed before the archive is opened";
    }
    platform_.setPlatformFile(scratch_ / "text.lfa");
    EXPECT_EQ(thrownBy<HEXUserException>([&] { platform_.writeToJSON(); }).words,
              "HTEQHardwarePlatform::writeToJSON() - Could not open file for streaming: lfa.json");
    platform_.setPlatformFile(archive_);
    EXPECT_THAT(thrownBy<HEXUserException>([&] { platform_.archiveFile("BIT", "../b", source_); }).words,
                HasSubstr("the member name '../b' has a part that is '.' or '..'"));
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
        EXPECT_THAT(thrownBy<HEXUserException>(change).words,
                    HasSubstr("changed by somebody else since the platform was read"));
        EXPECT_EQ(contentOf(archive_), after);
    }
    platform_.setPlatformFile(archive_);
    EXPECT_NO_THROW(platform_.archiveFile("TCL", "ours.tcl", source_));
    EXPECT_NO_THROW(platform_.writeToJSON()) << "its own changes it knows";
    EXPECT_EQ(member("bit/theirs.bit"), "new bits");
}
