#include "platform/HTEQCfaXmlWriter.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <memory>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "kit/Leaves.h"
#include "kit/RandomCfa.h"
#include "kit/Run.h"
#include "msg/HEXAll.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQCfaJsonReader.h"
#include "platform/HTEQCfaXmlReader.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/JSONWriter.h"
#include "readers/Archive.h"
#include "xml/XmlWriter.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Members = std::map<std::string, std::string>;

/// Each writing waits for its file to be on the disk; hundreds of them are done in memory, where that is possible.
std::string outputPath(const Scratch& scratch) {
    const std::string memory = "/dev/shm";
    return access(memory.c_str(), W_OK) == 0 ? memory + "/zr_cfa_" + std::to_string(getpid()) + ".xml"
                                             : scratch / "out.xml";
}

class CfaXmlWriter : public testing::Test {
protected:
    ~CfaXmlWriter() override { unlink(out_.c_str()); }

    /// What the writer makes of the platform.
    std::string written(HPLPlatform& platform) const {
        HTEQCfaXmlWriter(&platform, out_).writeCFA();
        return contentOf(out_);
    }
    /// The platform of this XML metadata, in an archive with other members.
    std::unique_ptr<HPLPlatform> read(const std::string& xml, Members members = {}) const {
        members["lfa.xml"] = xml;
        auto platform = std::make_unique<HPLPlatform>();
        EXPECT_TRUE(HTEQCfaXmlReader(archived(scratch_, "p.lfa", members), platform.get()).parseCFA());
        return platform;
    }
    /// The metadata after one walk through the model.
    std::string again(const std::string& xml, const Members& members = {}) const {
        return written(*read(xml, members));
    }

    Capture capture_;
    Scratch scratch_;
    const std::string out_ = outputPath(scratch_);
};

/// A platform that can be written, and says nothing else.
std::unique_ptr<HPLPlatform> least() {
    auto platform = std::make_unique<HPLPlatform>();
    platform->addDevice();
    return platform;
}

/// The message of the exception; none when it is written.
ComMsgMgrInstance refusal(HPLPlatform& platform, const std::string& file) {
    try {
        HTEQCfaXmlWriter(&platform, file).writeCFA();
    } catch (const HXMLException& e) {
        return e.message();
    }
    return {};
}

std::string documentOf(const HPLPlatform& platform) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(platform);
    return json::write(writer.getTree());
}

}  // namespace

TEST_F(CfaXmlWriter, WritesAllThatItReads) { EXPECT_EQ(again(kCfaXml), kCfaXml); }

/// Each change that the first walk through the model makes of a document.
TEST_F(CfaXmlWriter, WhatTheFirstWalkChanges) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/readers/cfa_written.case", [this](const auto&, const auto& text) {
        const auto arrow = text.find(" => ");
        const std::string part = text.substr(0, arrow), before = text.substr(arrow + 4);
        const std::string second = again(with(kCfaXml, part, before));
        const auto at = kCfaXml.find(part);
        const std::string head = kCfaXml.substr(0, at), tail = kCfaXml.substr(at + part.size());
        const bool isElsewhere =
            second.size() < head.size() + tail.size() || !second.starts_with(head) || !second.ends_with(tail);
        return isElsewhere ? second : second.substr(at, second.size() - head.size() - tail.size());
    });
}

/// Changes that need more than one place of the document, or another member.
TEST_F(CfaXmlWriter, WhatElseTheFirstWalkChanges) {
    const std::string flat = again(with(kCfaXml, R"(UsesPR="true")", R"(UsesPR="false")"));
    EXPECT_THAT(flat, Not(HasSubstr("<Host"))) << "without partial reconfiguration no host";
    EXPECT_THAT(flat, Not(HasSubstr("<PCIeId"))) << "nor PCIe ids";

    const std::string clock = R"(<Port Name="aclk" Type="CLK" Frequency="250"/><Port )";
    const std::string timed = again(with(with(kCfaXml, R"( ClockFreq="cf")", ""), "<Port ", clock));
    EXPECT_THAT(timed, HasSubstr(R"(ClockFreq="250")"));

    const std::string listed = with(kCfaXml, "<File ", R"(<File Type="HPFM" Name="a.hpfm"/><File )");
    const std::string fixed = with(listed, R"(Fixed="false")", R"(Fixed="true")");
    const std::string opened = again(fixed, {{"a.hpfm", hpfm("")}});
    EXPECT_THAT(opened, HasSubstr(R"(Description="from hpfm")"));
    EXPECT_THAT(opened, HasSubstr(R"(Fixed="false")")) << "an hpfm makes it expandable";
    EXPECT_THAT(again(with(kCfaXml, R"( Fixed="false")", ""), {{"sysdef.xml", ""}}), HasSubstr(R"(Fixed="true")"));

    // A region of no resource with a name is there at the first writing, and gone at the second.
    const std::string once = again(with(kCfaXml, R"(<PBlock Name="pb")",
                                        R"(<PBlock Name="zz"><Resource Name="" Val=""/></PBlock><PBlock Name="pb")"));
    EXPECT_THAT(once, HasSubstr(R"(<PBlock Name="zz"/>)"));
    EXPECT_EQ(again(once), kCfaXml);
}

/// What the model holds, from wherever it came, and the form has no room for.
TEST_F(CfaXmlWriter, WhatOfTheModelIsNotWritten) {
    auto platform = least();
    for (const char* name : {"first", "last"}) {
        platform->addInterface()->setName(name);
        HTEQHardwareFeatureRom& rom = *platform->addFeatureRom();
        rom.setMajorVersion(name[0] == 'f' ? 1 : 2);
    }
    std::string text = written(*platform);
    EXPECT_THAT(text, HasSubstr(R"(<Interface Id="" Name="last" Type=""/>)"));
    EXPECT_THAT(text, HasSubstr(R"(<FeatureRom MajorVersion="1")"));
    EXPECT_THAT(text, Not(HasSubstr("MajorVersion=\"2\"")));
    EXPECT_THAT(text, HasSubstr(R"(<Host Architecture="unknown" Interface="unknown"/>)"));

    // A flat shell has PCIe ids, but is not one when read again: XML lacks its intent.
    platform->setUsesPR(false);
    platform->setState(HTEQHardwarePlatform::PlatformState::synth);
    platform->setExplicitDesignIntent(HTEQDesignIntentStorage::Key::dataCenter, true);
    platform->getBoard().getWriteablePCIeId().setDevice("0x1");
    text = written(*platform);
    EXPECT_THAT(text, HasSubstr(R"(<PCIeId Vendor="" Device="0x1" Subsystem=""/>)"));
    EXPECT_THAT(again(text), Not(HasSubstr("<PCIeId")));

    platform->getDevice("")->getCore().setDRBaseAddress("0x10");
    text = written(*platform);
    EXPECT_THAT(text, HasSubstr(R"(DRBaseAddress="0x10")"));
    EXPECT_THAT(again(text), Not(HasSubstr("DRBaseAddress=\"0x10\"")));
}

TEST_F(CfaXmlWriter, RefusesWhatHasNoFormAndLeavesTheFile) {
    const std::string file = scratch_.put("kept.xml", "as it was");
    const struct {
        const char* words;
        void (*spoil)(HPLPlatform& platform);
    } cases[] = {
        {"<Devices> needs a <Device>", nullptr},
        {"ComputeUnits=\"256\" of <Core> is above the maximum, 255",
         [](HPLPlatform& p) { p.getDevice("")->getCore().setNumComputeUnits(256); }},
        {"<Port> needs the attribute Type",
         [](HPLPlatform& p) { p.getDevice("")->getCore().addPort()->setName("n"); }},
        {"<Port> needs the attribute Name",
         [](HPLPlatform& p) { p.getDevice("")->getCore().addPort()->setType("t"); }},
        {"a text of <CFA> holds a byte that XML cannot", [](HPLPlatform& p) { p.setName("a\x01"); }},
        {"a text of <File> holds a byte that XML cannot", [](HPLPlatform& p) { p.addFile("T", "\xC3"); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        const auto platform = c.spoil ? least() : std::make_unique<HPLPlatform>();
        if (c.spoil) c.spoil(*platform);
        const ComMsgMgrInstance message = refusal(*platform, file);
        EXPECT_EQ(message.id, "@74-15@%s%s%s%s");
        EXPECT_EQ(message.args.at(0), file);
        EXPECT_THAT(message.args.at(1), HasSubstr(c.words));
        EXPECT_EQ(contentOf(file), "as it was");
    }
    const std::string nowhere = scratch_ / "no/such/folder/x.xml";
    const ComMsgMgrInstance message = refusal(*least(), nowhere);
    EXPECT_EQ(message.id, "@74-10@%s");
    EXPECT_EQ(message.args.at(0), nowhere);
}

TEST_F(CfaXmlWriter, WritesTheSameFromTheSecondTimeOn) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        BasePlatform::Root root = withoutRepeats(RandomCfa(seed).make());
        Members members;
        if (seed % 3 == 0) members["hwdef.xml"] = "";
        if (seed % 2 == 0) {
            members["a.hpfm"] = hpfm("<kp:busInterface kp:name='theirs'/>");
            root.cfa.files.files.emplace_back();
            root.cfa.files.files.back().Type.set("hpfm");
            root.cfa.files.files.back().Name.set("a.hpfm");
        }
        const std::string first = again(xml::write(BasePlatform::kDocument, root), members);
        const std::string second = again(first, members);
        EXPECT_EQ(again(second, members), second);
        if (HasFailure()) return;
    }
}

/// The same platform by its XML and by its JSON metadata is the same document, except what only one of them holds.
TEST_F(CfaXmlWriter, BothRoutesGiveTheSameDocument) {
    // A parameter's name with a dot is a path in the document, which reading does not follow.
    const auto onlyXmlTells =
        testing::MatchesRegex(R"(description|board\.connectors.*|designIpInstances\[[0-9]+\]\.configuration\.C0\..*|)"
                              R"(devices\[[0-9]+\]\.core\.(parentRMInstPath|vlnv|clockFreq|configParams|ports).*)");
    // Read as decimal text that strtoll understands, or in a form that is not the one that is written.
    const auto otherForm = testing::MatchesRegex(
        R"(featureRoms\[0\]\.(drBaseAddress|timeSinceEpoch)|memories\[[0-9]+\]\.(low|high)Address)");
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        BasePlatform::Root root = withoutRepeats(RandomCfa(seed).make());
        root.cfa.build.UsesPR.set(seed % 2 == 0 ? "true" : "false");  // decides the intents, present or not
        root.cfa.DefaultOutputType.set("rovapk");                     // an empty one is a missing key
        const auto byXml = read(xml::write(BasePlatform::kDocument, root));
        const std::string document = documentOf(*byXml);
        HPLPlatform byJson;
        ASSERT_TRUE(HTEQCfaJsonReader(&byJson).parseCFA(archived(scratch_, "p.lfa", {{"lfa.json", document}}),
                                                        HTEQCfaJsonReader::HwMetadataMode::Default));
        const Loss loss = lossBetween(document, documentOf(byJson));
        for (const std::string& place : loss.lost) EXPECT_THAT(place, onlyXmlTells);
        for (const std::string& place : loss.changed) EXPECT_THAT(place, otherForm);
        EXPECT_THAT(lossBetween(documentOf(byJson), document).lost, IsEmpty()) << "nothing is there besides";
        if (HasFailure()) return;
    }
}
