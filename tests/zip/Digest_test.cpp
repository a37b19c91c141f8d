#include "zip/Digest.h"

#include <fmt/core.h>

#include "kit/Run.h"
#include "kit/ZipCases.h"
#include "zip/ArchiveEdit.h"
#include "zip/ArchiveError.h"
#include "zip/HUTZip.h"
#include "zip/OnDisk.h"

namespace fs = std::filesystem;
using State = HUTZip::DigestState;
using zip::ArchiveEdit;

namespace {

/// By another implementation.
std::string sha256(const Scratch& scratch, const std::string& bytes) {
    return run({"sha256sum", scratch.put("hashed", bytes)}).out.substr(0, 64);
}
std::string raw(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

class DigestOf : public testing::Test {
protected:
    void SetUp() override { scratch_.put("a.lfa", mixedZip().build()); }
    std::string archive() const { return scratch_ / "a.lfa"; }
    State stateOf(const std::string& path) const { return HUTZip::verify(path).digest; }
    std::string comment() const { return zip::Archive(archive()).comment(); }
    /// "member: reason" of each difference.
    std::vector<std::string> differences(const std::string& path) const {
        std::vector<std::string> lines;
        for (const auto& d : HUTZip::verify(path).differences)
            lines.push_back(d.member + ": " + HUTZip::reasonText(d.reason));
        return lines;
    }
    Scratch scratch_;
};

/// An archive of two members with the digest of the format, computed here without our code.
builder::Zip stamped(const Scratch& scratch) {
    builder::Zip zip =
        builder::archiveOf({builder::Entry("b", "second"), builder::Entry("a", std::string(70'000, 'a'), true)});
    const std::string a = sha256(scratch, std::string(70'000, 'a')), b = sha256(scratch, "second");
    zip.entries[0].central.extra = builder::extra(0x525A, raw(b));
    zip.entries[1].central.extra = builder::extra(0x525A, raw(a));
    using namespace std::string_literals;
    zip.comment =
        "zr-digest:1:sha256:" + sha256(scratch, "a\0"s + "70000\0"s + a + "\n" + "b\0"s + "6\0"s + b + "\n");
    return zip;
}

}  // namespace

TEST_F(DigestOf, TheFormIsTheOneThatIsWrittenDown) {
    scratch_.put("a.lfa", stamped(scratch_).build());
    EXPECT_EQ(stateOf(archive()), State::valid);
    EXPECT_TRUE(HUTZip::verify(archive()).isSound());

    builder::Zip bare = stamped(scratch_);
    const std::string expected = bare.comment;
    bare.comment.clear();
    for (builder::Entry& entry : bare.entries) entry.central.extra.clear();
    scratch_.put("a.lfa", bare.build());
    EXPECT_EQ(stateOf(archive()), State::none);
    HUTZip::attachDigestEn(archive());
    EXPECT_EQ(comment(), expected);
    EXPECT_EQ(stateOf(archive()), State::valid);
    const std::string once = contentOf(archive());
    HUTZip::attachDigestEn(archive());
    EXPECT_EQ(contentOf(archive()), once);
}

TEST_F(DigestOf, APackedFolderHasOne) {
    scratch_.put("folder/x", "1");
    scratch_.put("folder/n.tilprj/y", std::string(400'000, 'y'));
    fs::create_directories(scratch_ / "folder/hollow");
    HUTZip::compressDir(scratch_ / "folder", archive());
    EXPECT_EQ(stateOf(archive()), State::valid);
    scratch_.put("n.tilprj", contentsOf(archive()).at("n.tilprj"));
    EXPECT_EQ(stateOf(scratch_ / "n.tilprj"), State::valid);
}

TEST_F(DigestOf, StaysValidThroughEachChange) {
    HUTZip::attachDigestEn(archive());
    const std::function<void(ArchiveEdit&)> changes[] = {
        [](ArchiveEdit& edit) { edit.put("lfa.json", std::string("{\"new\": 1}")); },
        [this](ArchiveEdit& edit) {
            edit.put("file", zip::SourceFile(scratch_.put("f", std::string(900'000, 'f'))));
        },
        [](ArchiveEdit& edit) { edit.remove("bit/full.bit"); },
        [](ArchiveEdit& edit) {
            edit.remove("dir/"), edit.put("z", std::string()), edit.put("file", std::string("1"));
        },
    };
    for (const auto& change : changes) {
        const std::string before = comment();
        ArchiveEdit edit(archive());
        change(edit);
        edit.commit();
        EXPECT_EQ(differences(archive()), std::vector<std::string>{});
        EXPECT_EQ(stateOf(archive()), State::valid);
        EXPECT_NE(comment(), before);
    }
}

/// Only one that is valid is kept: else a change would make a member trusted that nobody looked at.
TEST_F(DigestOf, ABrokenOneIsMadeAnewOnlyWhenAsked) {
    builder::Zip zip = stamped(scratch_);
    zip.entries[0].central.extra = builder::extra(0x525A, std::string(32, 'x'));
    scratch_.put("a.lfa", zip.build());
    {
        ArchiveEdit edit(archive());
        edit.put("c", std::string("third"));
        edit.commit();
    }
    EXPECT_EQ(stateOf(archive()), State::broken);
    EXPECT_EQ(comment(), zip.comment);
    HUTZip::attachDigestEn(archive());
    EXPECT_EQ(stateOf(archive()), State::valid) << "fields that do not agree with the comment are not believed";
}

/// The fields agree with the comment, but not with the bytes.
TEST_F(DigestOf, IsAttachedOnlyToWhatAgreesWithItsCrcs) {
    builder::Zip zip = stamped(scratch_);
    zip.entries[0].packed = "secOnd";
    const std::string damaged = zip.build();
    scratch_.put("a.lfa", damaged);
    EXPECT_NE(wordsOf([this] { HUTZip::attachDigestEn(archive()); }).find("its CRC is"), std::string::npos);
    EXPECT_EQ(contentOf(archive()), damaged);
    zip.entries[0].both(&builder::Header::crc, libdeflate_crc32(0, "secOnd", 6));
    scratch_.put("a.lfa", zip.build());
    HUTZip::attachDigestEn(archive());
    EXPECT_EQ(stateOf(archive()), State::valid);
}

TEST_F(DigestOf, AForeignCommentStandsBehind) {
    builder::Zip zip = mixedZip();
    zip.comment = "somebody's words\nin two lines";
    scratch_.put("a.lfa", zip.build());
    HUTZip::attachDigestEn(archive());
    EXPECT_EQ(comment().substr(19 + 64), "\n" + zip.comment);
    ArchiveEdit edit(archive());
    edit.put("x", std::string("x"));
    edit.commit();
    EXPECT_EQ(comment().substr(19 + 64), "\n" + zip.comment) << "ours is not put twice";
    EXPECT_EQ(stateOf(archive()), State::valid);

    for (const std::string& comment : {std::string(65'500, 'c'), std::string("\xBC"), std::string("\1")}) {
        zip.comment = comment;
        const std::string before = zip.build();
        scratch_.put("b.lfa", before);
        EXPECT_THROW(HUTZip::attachDigestEn(scratch_ / "b.lfa"), zip::ArchiveError) << comment;
        EXPECT_EQ(contentOf(scratch_ / "b.lfa"), before);
    }
}

/// What `verify` refuses gets no digest, and keeps none.
TEST_F(DigestOf, IsOfWhatOthersReadAlike) {
    builder::Zip twice = stamped(scratch_), encoded = mixedZip();
    twice.entries[0].local.extra = builder::extra(0x5455, "") + builder::extra(0x5455, "");
    encoded.entries[0].both(&builder::Header::name, "\xC3\xA9");
    for (const builder::Zip& zip : {twice, encoded}) {
        scratch_.put("a.lfa", zip.build());
        ArchiveEdit edit(archive());
        edit.put("c", std::string("third"));
        EXPECT_THROW(edit.commit(ArchiveEdit::Digest::attach), zip::ArchiveError);
    }
}

TEST_F(DigestOf, EachFaultIsToldByNameAndReason) {
    for (const cases::Case& each : cases::read(ZR_SOURCE_DIR "/tests/cases/zip/digest.case")) {
        SCOPED_TRACE(each.name);
        const std::string& expected = each.lines.back().text;
        scratch_.put("a.lfa", zipOf(each, stamped(scratch_)).build());
        EXPECT_EQ(differences(archive()), std::vector<std::string>(expected.empty() ? 0 : 1, expected));
        EXPECT_EQ(stateOf(archive()), expected.empty() ? State::valid : State::broken);
    }
}

TEST_F(DigestOf, WithoutOneTheCrcsAreCompared) {
    builder::Zip zip = mixedZip();
    zip.entries[1].packed[100] ^= 1;
    scratch_.put("a.lfa", zip.build());
    EXPECT_EQ(stateOf(archive()), State::none);
    EXPECT_EQ(differences(archive()), std::vector<std::string>{"bit/full.bit: crc"});
    EXPECT_THROW(HUTZip::verify(scratch_.put("text", "no archive")), HEXDataException);
}

/// Of a packed archive, any bit that is flipped is noticed: by the reader or by the digest.
TEST_F(DigestOf, NoFlippedBitGoesUnnoticed) {
    scratch_.put("folder/a", "some text");
    scratch_.put("folder/b", std::string(300, 'b'));
    HUTZip::compressDir(scratch_ / "folder", archive());
    const std::string whole = contentOf(archive());
    std::size_t unnoticed = 0;
    for (std::size_t i = 0; i < whole.size() * 8; ++i) {
        std::string flipped = whole;
        flipped[i / 8] = static_cast<char>(flipped[i / 8] ^ (1 << (i % 8)));
        scratch_.put("f.lfa", flipped);
        try {
            const auto found = HUTZip::verify(scratch_ / "f.lfa");
            unnoticed += found.isSound() && found.digest == State::valid &&
                         contentsOf(scratch_ / "f.lfa") != contentsOf(archive());
        } catch (const HEXDataException&) {
        }
    }
    EXPECT_EQ(unnoticed, 0U);
}
