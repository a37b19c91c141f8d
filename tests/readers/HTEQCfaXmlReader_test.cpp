#include "platform/HTEQCfaXmlReader.h"

#include <gmock/gmock.h>

#include <memory>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/CfaXml.h"
#include "kit/Hpfm.h"
#include "kit/Script.h"
#include "msg/HEXAll.h"
#include "platform/HPLDevice.h"
#include "platform/HPLPlatform.h"
#include "platform/JSONWriter.h"
#include "readers/Archive.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"

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

/// An archive of a case, and the platform that was read last.
struct Cfa {
    /// Of the archive with this name, or of a file with this text.
    HTEQCfaXmlReader reader(const script::Arguments& arguments) {
        platform = std::make_unique<HPLPlatform>();
        capture.taken.clear();
        members["cfa.xml"] = xml;
        const std::string name = arguments.empty() ? "p.cfa" : arguments[0];
        return {arguments.size() > 1 ? scratch.put(name, arguments[1]) : archived(scratch, name, members),
                platform.get()};
    }
    Capture capture;
    const Scratch scratch;
    std::string xml = kCfaXml;
    std::map<std::string, std::string> members;
    std::unique_ptr<HPLPlatform> platform;
};

std::string changed(Cfa& cfa, const script::Arguments& arguments) {
    const auto arrow = arguments.at(0).find(" => ");
    cfa.xml = with(cfa.xml, arguments[0].substr(0, arrow), arguments[0].substr(arrow + 4));
    return "";
}

/// The values of keys of the platform's document.
std::string valuesAt(Cfa& cfa, const script::Arguments& keys) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(*cfa.platform);
    std::vector<std::string> values;
    for (const std::string& key : keys) values.push_back(writer.getTree().get(key, "(none)"));
    return script::shown(values);
}

/// The messages of the last reading: severity, id and arguments.
std::string sent(Cfa& cfa, const script::Arguments&) {
    std::string text;
    for (const ComMsgMgrInstance& message : cfa.capture.taken)
        text += (text.empty() ? "" : "; ") + std::string(nameOf(message.mask)) + " " + message.id + ": " +
                HSTStringUtils::join(message.args, ", ");
    return replaced(replaced(text, cfa.scratch.str(), "DIR"), HUTEnv::getFullBuildStr(), "RELEASE");
}

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

TEST_F(CfaXmlReader, BoundsWhatALongListOfFilesReads) {
    const std::string hpfms = repeated(R"(<File Type="HPFM" Name="a.hpfm"/>)", 40),
                      emulations = repeated(R"(<File Type="EMU_XML" Name="emu.xml"/>)", 20'000);
    const std::string large = hpfm("<!--" + std::string(1 << 20, ' ') + "-->");
    EXPECT_FALSE(readWith("<File ", hpfms + "<File ", {{"a.hpfm", large}}));
    EXPECT_THAT(capture_.taken.back().args.at(2), HasSubstr("hold more than 33554432 bytes in all"));
    const std::string targets = with(kEmulations, "%", "EMU_HPFM") + "<!--" + std::string(1 << 20, ' ') + "-->";
    EXPECT_TRUE(readWith("<File ", emulations + "<File ", {{"emu.xml", targets}})) << "20 GB, were each row read";
}

TEST(CfaXml, Calls) {
    using script::Arguments, script::shown;
    script::expectCalls<Cfa>(
        ZR_SOURCE_DIR "/tests/cases/readers/cfa_archives.case",
        {{"change", changed},
         {"document", [](Cfa& c, const Arguments& a) { return c.xml = a.at(0), ""; }},
         {"member", [](Cfa& c, const Arguments& a) { return c.members[a.at(0)] = a.at(1), ""; }},
         {"hpfm", [](Cfa& c, const Arguments& a) { return c.members["a.hpfm"] = hpfm(a.at(0)), ""; }},
         {"emulation",
          [](Cfa& c, const Arguments& a) { return c.members["emu.xml"] = with(kEmulations, "%", a.at(0)), ""; }},
         {"read", [](Cfa& c, const Arguments& a) { return shown(c.reader(a).parseCFA()); }},
         {"readChild",
          [](Cfa& c, const Arguments& a) {
              c.members["hw_emu/cfa.xml"] = kCfaXml;
              HTEQCfaXmlReader reader = c.reader(a);
              c.platform->setIsChildHardwareEmuPlatform(true);
              return shown(reader.parseCFA());
          }},
         {"version",
          [](Cfa& c, const Arguments& a) {
              int major = -1, minor = -1;
              const bool isRead = c.reader(a).getRootVersion(major, minor);
              return shown(isRead) + " " + std::to_string(major) + "." + std::to_string(minor);
          }},
         {"at", valuesAt},
         {"lutCount", [](Cfa& c, const Arguments&) { return shown(c.platform->getLUTCount()); }},
         {"hpfmHas",
          [](Cfa& c, const Arguments& a) {
              return shown(c.platform->getHpfmString().find(a.at(0)) != std::string::npos);
          }},
         {"sent", sent},
         {"printed",
          [](Cfa& c, const Arguments&) { return replaced(c.capture.printed(), c.scratch.str(), "DIR"); }}});
    EXPECT_THROW(HTEQCfaXmlReader("", nullptr), HEXFileNotFoundException);
    EXPECT_THROW(HTEQCfaXmlReader("/nowhere/gone.cfa", nullptr), HEXFileNotFoundException);
}
