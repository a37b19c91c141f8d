#include "platform/HTEQCfaXmlReader.h"

#include <gmock/gmock.h>

#include <memory>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "msg/HEXAll.h"
#include "platform/HPLDevice.h"
#include "platform/HPLPlatform.h"
#include "platform/JSONWriter.h"
#include "readers/Archive.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kEmulations =
    "<Root VersionMajor='1' VersionMinor='0'><Emulations><Emulation Name='e'><Files><File Type='%' Name='n'/>"
    "</Files></Emulation></Emulations></Root>";

class CfaXmlReader : public testing::Test {
protected:
    /// Reads an archive with this XML member and others into a fresh platform.
    bool read(const std::string& xml, std::map<std::string, std::string> members = {}) {
        members["cfa.xml"] = xml;
        archive_ = archived(scratch_, "p.cfa", members);
        platform_ = std::make_unique<HPLPlatform>();
        capture_.taken.clear();
        return HTEQCfaXmlReader(archive_, platform_.get()).parseCFA();
    }
    bool readWith(const std::string& part, const std::string& replacement,
                  const std::map<std::string, std::string>& members = {}) {
        return read(with(kCfaXml, part, replacement), members);
    }
    /// What the platform's document has at a key.
    std::string at(const std::string& key) const {
        teq_platform::JSONObjectWriter writer;
        writer.writeObject(*platform_);
        return writer.getTree().get(key, "(none)");
    }
    const HPLCore& core() const { return platform_->getDevice("fpga0")->getReadOnlyCore(); }

    Capture capture_;
    Scratch scratch_;
    std::string archive_;
    std::unique_ptr<HPLPlatform> platform_;
};

}  // namespace

TEST_F(CfaXmlReader, ResourcesAreThoseOfTheCore) {
    ASSERT_TRUE(read(kCfaXml));
    EXPECT_THAT(capture_.taken, IsEmpty());
    EXPECT_EQ(capture_.printed(), "");
    EXPECT_EQ(platform_->getRegisterCount(), 12);
    EXPECT_EQ(platform_->HTEQHardwarePlatform::getRegisterCount(), 0) << "the platform's own gets none";
    EXPECT_EQ(platform_->getLUTCount(), 11);
}

/// One text of the document, and the place in the platform's document that it decides.
TEST_F(CfaXmlReader, Rules) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/readers/cfa.case", [this](const auto&, const std::string& text) {
        const auto to = text.find(" => "), key = text.rfind(" => ");
        EXPECT_TRUE(readWith(text.substr(0, to), text.substr(to + 4, key - to - 4)));
        return at(text.substr(key + 4));
    });
    ASSERT_TRUE(readWith(R"(ValidSLRs="SLR0,SLR1")", R"(ValidSLRs="SLR1,,SLR0,SLR1")"));
    EXPECT_THAT(core().getReadOnlySLRMap().at("pb"), ElementsAre("", "SLR0", "SLR1"));
    for (const auto& [text, count] : {std::pair("", 0), std::pair("13 of 20", 13)}) {
        ASSERT_TRUE(readWith(R"(BRAM="13")", std::string("BRAM='") + text + "'"));
        EXPECT_EQ(platform_->getBRAMCount(), count) << text;
    }
}

TEST_F(CfaXmlReader, AMissingElementEmptiesWhatItWouldFill) {
    archive_ =
        archived(scratch_, "g.cfa",
                 {{"cfa.xml", with(kCfaXml, R"(<GenAppInfo Name="gn" Version="gv" CL="7" TimeStamp="gt"/>)", "")}});
    HPLPlatform platform;
    platform.setGeneratedName("of another");
    platform.setGeneratedChangeList(5);
    ASSERT_TRUE(HTEQCfaXmlReader(archive_, &platform).parseCFA());
    EXPECT_EQ(platform.getGeneratedName(), "");
    EXPECT_EQ(platform.getGeneratedChangeList(), 0U);
}

TEST_F(CfaXmlReader, AHardwareDefinitionMakesAPlatformFixedThatDoesNotTell) {
    const std::string silent = with(kCfaXml, R"( Fixed="false")", "");
    for (const char* member : {"hwdef.xml", "sysdef.xml"}) {
        ASSERT_TRUE(read(silent, {{member, "<Project/>"}}));
        EXPECT_EQ(at("expandablePlatform"), "false") << member;
    }
    ASSERT_TRUE(read(kCfaXml, {{"hwdef.xml", "<Project/>"}}));
    EXPECT_EQ(at("expandablePlatform"), "true") << "the attribute is present";
}

TEST_F(CfaXmlReader, AnHpfmAddsToItAndMakesItUnifiedAndExpandable) {
    const std::string file = R"(<File Type="HpFm" Name="a.hpfm"/><File )";
    const std::string fixed = with(with(kCfaXml, R"(Fixed="false")", R"(Fixed="true")"), "<File ", file);
    const std::string bare = with(fixed, R"(Unified="true")", R"(Unified="false")");
    ASSERT_TRUE(read(bare, {{"a.hpfm", hpfm("<kp:busInterface kp:name='theirs'/>")}}));
    EXPECT_EQ(at("busInterfaces..name"), "theirs");
    EXPECT_EQ(at("description"), "from hpfm");
    EXPECT_EQ(at("vendor"), "v") << "that of the metadata stays";
    EXPECT_EQ(at("expandablePlatform") + at("unifiedPlatform"), "truetrue");
    EXPECT_EQ(platform_->getLUTCount(), 4) << "of the hpfm, which is read later";
    EXPECT_THAT(platform_->getHpfmString(), HasSubstr("theirs"));

    for (const char* broken : {"<kp/>", ""}) {
        ASSERT_TRUE(read(bare, {{"a.hpfm", broken}})) << "it is passed over";
        EXPECT_EQ(at("expandablePlatform") + at("unifiedPlatform"), "falsefalse");
        EXPECT_THAT(capture_.printed(),
                    testing::EndsWith("Failed to parse hpfm stream from 'a.hpfm' in " + archive_ + "\n"));
    }
    ASSERT_TRUE(read(bare));
    EXPECT_THAT(capture_.taken, IsEmpty()) << "a file that is not there";
}

TEST_F(CfaXmlReader, EmulationTargetsTellWhetherItCanBeEmulated) {
    const std::string listed = with(kCfaXml, "<File ", R"(<File Type="emu_xml" Name="./emu.xml"/><File )");
    for (const auto& [type, answer] : {std::pair{"EMU_HPFM", "true"}, std::pair{"TOP_BD", "false"}}) {
        ASSERT_TRUE(read(listed, {{"emu.xml", with(kEmulations, "%", type)}}));
        EXPECT_EQ(at("hardwareEmulation"), answer);
        EXPECT_FALSE(platform_->supportsTwoHwEmuBd());
    }
    const std::pair<std::map<std::string, std::string>, const char*> broken[] = {
        {{}, "emu.xml"}, {{{"emu.xml", "<Root/>"}}, "needs the attribute VersionMajor"}};
    for (const auto& [members, words] : broken) {
        EXPECT_FALSE(read(listed, members));
        const ComMsgMgrInstance& last = capture_.taken.back();
        EXPECT_EQ(last.id, "@74-65@%s%s%s");
        EXPECT_EQ(last.mask, MsgMask::critical);
        EXPECT_THAT(last.args, ElementsAre("cfa.xml", archive_, HasSubstr(words)));
    }
}

TEST_F(CfaXmlReader, RefusesANewerSchemaUnlessThePlatformIsBeforeSynthesis) {
    const std::string two = with(kCfaXml, R"(VersionMajor="1")", R"(VersionMajor="2")");
    EXPECT_FALSE(read(two));
    ASSERT_EQ(capture_.taken.size(), 1U);
    EXPECT_EQ(capture_.taken[0].id, "@74-52@%s");
    EXPECT_EQ(capture_.taken[0].mask, MsgMask::error);
    for (const char* state : {"pre_synth", "PRE_Synth"}) {
        EXPECT_TRUE(read(with(two, R"(PlatformState="impl")", std::string("PlatformState='") + state + "'")));
        EXPECT_EQ(at("platformState"), state);
    }
    EXPECT_FALSE(read(with(two, "<Files>", "<Colours/><Files>")));
    EXPECT_EQ(capture_.taken.at(0).id, "@74-62@%s%s%d") << "the document comes before its version";
    EXPECT_TRUE(readWith(R"(VersionMajor="1")", R"(VersionMajor="0")"));
    EXPECT_TRUE(readWith(R"(VersionMajor="1")", R"(VersionMajor="2147483648")"));
    EXPECT_TRUE(readWith(R"(VersionMinor="15")", R"(VersionMinor="4294967295")"));
}

TEST_F(CfaXmlReader, TellsTheVersionOfTheSchema) {
    archive_ =
        archived(scratch_, "v.cfa", {{"cfa.xml", with(kCfaXml, R"(VersionMajor="1")", R"(VersionMajor="7")")}});
    HPLPlatform platform;
    int major = -1, minor = -1;
    EXPECT_TRUE(HTEQCfaXmlReader(archive_, &platform).getRootVersion(major, minor));
    EXPECT_EQ(std::pair(major, minor), std::pair(7, 15));
    EXPECT_EQ(platform.getName(), "") << "nothing is read into the platform";
    archive_ = archived(scratch_, "v.cfa", {{"cfa.xml", "<Root VersionMajor='8'/>"}});
    EXPECT_FALSE(HTEQCfaXmlReader(archive_, &platform).getRootVersion(major, minor));
    EXPECT_EQ(major, 7);
    EXPECT_EQ(capture_.taken.at(0).id, "@74-62@%s%s%d");
}

TEST_F(CfaXmlReader, TellsTheLineOfAFault) {
    const struct {
        const char *xml, *line, *words;
    } cases[] = {
        {"<Root VersionMajor='1'\n>\n</Root>", "1", "<Root> needs the attribute VersionMinor (column 1)"},
        {"<Root VersionMajor='1' VersionMinor='1'>\n <CFA/></Root>", "2", "<CFA> needs the attribute Vendor"},
        {"", "1", "no element found"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.xml);
        EXPECT_FALSE(read(c.xml));
        ASSERT_EQ(capture_.taken.size(), 1U);
        const ComMsgMgrInstance& message = capture_.taken[0];
        EXPECT_EQ(message.id, "@74-62@%s%s%d");
        EXPECT_EQ(message.mask, MsgMask::critical);
        EXPECT_THAT(message.args, ElementsAre(HasSubstr(c.words), archive_ + "/cfa.xml", c.line));
    }
}

TEST_F(CfaXmlReader, TellsThatThereIsNoDocument) {
    EXPECT_THROW(HTEQCfaXmlReader("", nullptr), HEXFileNotFoundException);
    EXPECT_THROW(HTEQCfaXmlReader(scratch_ / "gone.cfa", nullptr), HEXFileNotFoundException);
    const std::pair<std::string, const char*> cases[] = {
        {archived(scratch_, "p.lfa", {{"cfa.xml", kCfaXml}}), "no such member"},
        {scratch_.put("text.lfa", "no archive"), "not a zip archive"},
    };
    for (const auto& [archive, words] : cases) {
        HPLPlatform platform;
        EXPECT_FALSE(HTEQCfaXmlReader(archive, &platform).parseCFA());
        EXPECT_EQ(capture_.taken.back().id, "@74-62@%s%s%d");
        EXPECT_THAT(capture_.taken.back().args, ElementsAre(HasSubstr(words), archive + "/lfa.xml", testing::_));
    }
}

/// What the model refuses.
TEST_F(CfaXmlReader, ReportsTheModelsExceptions) {
    const struct {
        const char *part, *replacement, *words;
    } cases[] = {
        {R"(FpgaDevice="a:b:c:d:e")", R"(FpgaDevice="a:b:c")", "format not as expected: 'a:b:c'"},
        {R"(UUID="0)", R"(UUID="x0)", "Unable to convert string to Feature ROM UUID"},
        {R"(<Parameter Name="k1")", R"(<Parameter Name="k1" Value=""/><Parameter Name="k1")", "key: 'k1'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.replacement);
        EXPECT_FALSE(readWith(c.part, c.replacement));
        ASSERT_EQ(capture_.taken.size(), 1U);
        EXPECT_EQ(capture_.taken[0].id, "@74-65@%s%s%s");
        EXPECT_THAT(capture_.taken[0].args.at(2), HasSubstr(c.words));
    }
}

TEST_F(CfaXmlReader, BoundsWhatALongListOfFilesReads) {
    const std::string hpfms = repeated(R"(<File Type="HPFM" Name="a.hpfm"/>)", 40),
                      emulations = repeated(R"(<File Type="EMU_XML" Name="emu.xml"/>)", 20'000);
    const std::string large = hpfm("<!--" + std::string(1 << 20, ' ') + "-->");
    EXPECT_FALSE(readWith("<File ", hpfms + "<File ", {{"a.hpfm", large}}));
    EXPECT_THAT(capture_.taken.back().args.at(2), HasSubstr("hold more than 33554432 bytes in all"));
    const std::string targets = with(kEmulations, "%", "EMU_HPFM") + "<!--" + std::string(1 << 20, ' ') + "-->";
    EXPECT_TRUE(readWith("<File ", emulations + "<File ", {{"emu.xml", targets}})) << "20 GB, were each row read";
}

TEST_F(CfaXmlReader, AnEmulationChildReadsItsOwnMember) {
    archive_ = archived(scratch_, "e.cfa", {{"cfa.xml", "<Root/>"}, {"hw_emu/cfa.xml", kCfaXml}});
    HPLPlatform child;
    child.setIsChildHardwareEmuPlatform(true);
    EXPECT_TRUE(HTEQCfaXmlReader(archive_, &child).parseCFA());
    EXPECT_EQ(child.getName(), "n");
}
