#include "platform/PlatformLoader.h"

#include <gmock/gmock.h>

#include "kit/CfaXml.h"
#include "kit/Platforms.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/JSONWriter.h"

namespace {

using teq_platform::HwMetadataMode;
using teq_platform::PlatformLoader;
using testing::ElementsAre;
using testing::HasSubstr;

std::shared_ptr<HTEQPlatform> load(const std::string& file, HwMetadataMode mode = HwMetadataMode::Default) {
    return PlatformLoader(file, mode).load();
}

/// A platform that must load.
std::shared_ptr<HTEQPlatform> loaded(const std::string& file) {
    const auto platform = load(file);
    return platform ? platform : throw std::runtime_error(file + " does not load");
}

teq_platform::ptree documentOf(const HTEQPlatform& platform) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(platform);
    return writer.getTree();
}

class PlatformLoaderTest : public testing::Test {
protected:
    PlatformLoaderTest() { scratch.put("sw.spfm", kSoftware); }

    std::string zdf(const std::string& hardware) {
        return scratch.put("p.zdf", descriptor("<teq:hardwarePlatforms>" + hardware + "</teq:hardwarePlatforms>"));
    }
    std::string partitions(const std::string& attributes, const std::vector<std::string>& ids) {
        std::string text = "<teq:hardwarePlatforms" + attributes + ">";
        for (const std::string& id : ids)
            text += "<teq:reconfigurablePartition teq:id='" + id.substr(0, 1) + "'>" +
                    fileElement("hardwarePlatform", "rp" + id + ".lfa") + "</teq:reconfigurablePartition>";
        for (const std::string& id : ids)
            packed(scratch, "rp" + id + ".lfa",
                   {{"lfa.json", "{\"name\": \"rp" + id + "\", \"expandablePlatform\": \"false\"}"}});
        return scratch.put("rp.zdf", descriptor(text + "</teq:hardwarePlatforms>"));
    }

    Scratch scratch;
    Messages messages;
};

TEST_F(PlatformLoaderTest, ChoosesByTheExtension) {
    packed(scratch, "h.lfa", {{"lfa.json", "{\"vendor\": \"hv\"}"}});
    packed(scratch, "h.cfa", {{"cfa.json", "{\"vendor\": \"cv\"}"}});
    EXPECT_EQ(load(scratch / "h.lfa")->getHardwarePlatform()->getVendor(), "hv");
    EXPECT_EQ(load(scratch / "h.cfa")->getHardwarePlatform()->getVendor(), "cv");
    const auto software = load(scratch / "sw.spfm");
    EXPECT_NE(software->getSoftwarePlatform(), nullptr);
    EXPECT_EQ(software->getHardwarePlatform(), nullptr);
}

TEST_F(PlatformLoaderTest, ALonePartWritesOnlyWhatItHas) {
    packed(scratch, "h.lfa", {{"lfa.json", "{}"}});
    const auto hardware = documentOf(*load(scratch / "h.lfa"));
    EXPECT_EQ(hardware.get<std::string>("zdf"), "false");
    EXPECT_EQ(hardware.count("swFile") + hardware.count("softwarePlatform") + hardware.count("hwFile"), 0U);
    const auto software = documentOf(*load(scratch / "sw.spfm"));
    EXPECT_EQ(software.get<std::string>("hardware"), "false");
    EXPECT_EQ(software.get<std::string>("type"), "Undefined");
    EXPECT_EQ(software.count("file") + software.count("uniqueName") + software.count("directory"), 0U);
    EXPECT_EQ(software.count("hardwarePlatforms"), 0U);
    EXPECT_EQ(software.count("softwarePlatform"), 1U);
}

TEST_F(PlatformLoaderTest, ASecondLoadReadsNothing) {
    packed(scratch, "h.lfa", {{"lfa.json", "{}"}});
    PlatformLoader loader(zdf(fileElement("hardwarePlatform", "h.lfa")), HwMetadataMode::Default);
    EXPECT_EQ(loader.getName(), "n");
    EXPECT_EQ(loader.getBaseName(), "p");
    const auto platform = loader.load();
    ASSERT_NE(platform, nullptr);
    std::filesystem::remove(scratch / "h.lfa");
    EXPECT_EQ(loader.load(), platform);
}

TEST_F(PlatformLoaderTest, ReadsTheMemberThatTheModeAllows) {
    const std::pair<std::string, std::string> main{"lfa.json", "{\"name\": \"main\"}"},
        alt{"alt_lfa.json", "{\"name\": \"alt\"}"},
        xml{"lfa.xml", with(kCfaXml, R"(BoardId="b" Name="n")", R"(BoardId="b" Name="xml")")};
    const struct {
        std::map<std::string, std::string> members;
        const char* names[3];  ///< by mode
    } cases[] = {
        {{main, alt, xml}, {"alt", "main", "xml"}},
        {{main, alt}, {"alt", "main", "none"}},
        {{alt, xml}, {"alt", "xml", "xml"}},
        {{alt}, {"alt", "none", "none"}},
        {{xml}, {"xml", "xml", "xml"}},
    };
    const HwMetadataMode modes[] = {HwMetadataMode::Default, HwMetadataMode::PrimaryJsonOnly,
                                    HwMetadataMode::XmlOnly};
    for (const auto& c : cases)
        for (int i = 0; i < 3; ++i) {
            const auto platform = load(packed(scratch, "h.lfa", c.members), modes[i]);
            EXPECT_EQ(platform ? platform->getHardwarePlatform()->getName() : "none", c.names[i]) << i;
        }
}

/// Emulation platforms and partitions have JSON metadata or none.
TEST_F(PlatformLoaderTest, XmlMetadataIsOfTheHardwarePlatformOnly) {
    packed(scratch, "h.lfa", {{"lfa.xml", kCfaXml}, {"hw_emu/lfa.xml", kCfaXml}});
    const auto child = loaded(zdf(fileElement("hardwarePlatform", "h.lfa")));
    EXPECT_EQ(child->getHardwarePlatform()->getName(), "n");
    EXPECT_FALSE(child->hasHWEmulationPlatform());
    const auto own = loaded(zdf(fileElement("hardwarePlatform", "h.lfa") + fileElement("hwEmuPlatform", "h.lfa")));
    EXPECT_FALSE(own->hasHWEmulationPlatform());
    const std::string partitioned = partitions("", {"1"});
    packed(scratch, "rp1.lfa", {{"lfa.xml", kCfaXml}});
    EXPECT_EQ(load(partitioned), nullptr);
}

TEST_F(PlatformLoaderTest, AnEmulationChildComesOutOfTheArchive) {
    const auto platform = loaded(
        packed(scratch, "h.lfa", {{"lfa.json", "{\"name\": \"main\"}"}, {"hw_emu/lfa.json", "{\"name\": \"emu\"}"}}));
    EXPECT_TRUE(platform->supportsHWEmulation());
    EXPECT_FALSE(platform->getHardwarePlatform()->supportsHWEmulation());
    EXPECT_EQ(platform->getHardwareEmulationPlatform()->getName(), "emu");
    EXPECT_EQ(platform->getHardwareEmulationPlatform()->getXmlFileName(), "hw_emu/lfa.xml");
    const auto document = documentOf(*platform);
    EXPECT_EQ(document.get<std::string>("hardwareEmulation"), "true");
    EXPECT_EQ(document.get_child("hardwarePlatforms").size(), 1U) << "it has no file of its own";
}

TEST_F(PlatformLoaderTest, AnEmulationFileOfItsOwnIsWrittenAndABadOneIgnored) {
    packed(scratch, "h.lfa", {{"lfa.json", "{}"}});
    packed(scratch, "e.lfa", {{"lfa.json", "{\"name\": \"emu\"}"}});
    scratch.put("bad.lfa", "no archive");
    const auto good = load(zdf(fileElement("hardwarePlatform", "h.lfa") + fileElement("hwEmuPlatform", "e.lfa")));
    EXPECT_EQ(documentOf(*good).get<std::string>("hardwarePlatforms.hwEmuPlatform.name"), "emu");
    const auto bad = loaded(zdf(fileElement("hardwarePlatform", "h.lfa") + fileElement("hwEmuPlatform", "bad.lfa")));
    EXPECT_FALSE(bad->hasHWEmulationPlatform());
    const auto only = load(zdf(fileElement("hwEmuPlatform", "e.lfa")));
    EXPECT_EQ(only->getHardwarePlatformFile(), only->getHardwareEmuPlatformFile());
    EXPECT_TRUE(only->hasDistinctHardwareEmulationPlatform());
}

TEST_F(PlatformLoaderTest, EmulationMetadataIsAMemberWhateverItsNameSays) {
    const std::string outside = scratch.put("outside.json", R"({"emulations": []})");
    const auto listing = [&](const std::string& name, const std::string& more) {
        return packed(
            scratch, "h.lfa",
            {{"lfa.json", R"({"name": "n", "files": [{"type": "EMU_JSON", "name": ")" + name + "\"}]" + more + "}"}});
    };
    for (const std::string& name : {std::string("lfa.json"), std::string("../outside.json"), outside,
                                    std::string("hw_emu/../../outside.json"), std::string(" ")})
        EXPECT_EQ(load(listing(name, "")), nullptr) << name;
    EXPECT_THAT(messages.lines()[0], HasSubstr("@74-64@%s%s%s: lfa.json")) << "itself, which has no emulations";
    for (std::size_t i = 2; i < messages.taken.size(); i += 2)
        EXPECT_THAT(messages.taken[i].text, HasSubstr("could not be opened")) << "outside is not looked at";

    // Read as emulation metadata, the document is not read as a platform's again; names inside are names only.
    const auto itself = loaded(listing("lfa.json", R"(, "emulations": [{"files": [
        {"type": "EMU_HPFM", "name": "../../etc/passwd"}, {"type": "EMU_JSON", "name": "lfa.json"}]}])"));
    EXPECT_TRUE(itself->getHardwarePlatform()->supportsHWEmulation());
}

TEST_F(PlatformLoaderTest, PartitionsAnswerByTheirIds) {
    const auto platform = loaded(partitions(" teq:defaultRP='2'", {"1", "2", "2b"}));
    EXPECT_EQ(platform->getHardwarePlatform()->getName(), "rp2b") << "of two with one id the last";
    EXPECT_EQ(platform->getRPHardwarePlatform(1)->getName(), "rp1");
    EXPECT_EQ(platform->getRPHardwarePlatform(3), nullptr);
    EXPECT_TRUE(platform->isFixed());
    const auto document = documentOf(*platform);
    EXPECT_EQ(document.get<std::string>("defaultRPId"), "2");
    EXPECT_EQ(document.get_child("hardwarePlatforms.reconfigurablePartitions").size(), 3U);
    EXPECT_EQ(document.get_child("hardwarePlatforms").count("hardwarePlatform"), 0U);

    const auto other = loaded(partitions(" teq:defaultRP='7'", {"1"}));
    EXPECT_EQ(other->getHardwarePlatform(), nullptr) << "there is no partition 7";
    EXPECT_FALSE(other->supportsHardware());
    EXPECT_EQ(documentOf(*other).get<std::string>("hardware"), "false");
}

TEST_F(PlatformLoaderTest, APartitionsFileMustBeReadable) {
    const std::string file = partitions("", {"1"});
    std::filesystem::remove(scratch / "rp1.lfa");
    EXPECT_EQ(load(file), nullptr);
    EXPECT_THAT(messages.lines(), ElementsAre("@74-66@%s: " + (scratch / "rp1.lfa"),
                                              "@74-60@%s: Failed to parse Hardware Platform metadata file"));
}

TEST_F(PlatformLoaderTest, ModulesFitThePartitionsOfAStaticPlatform) {
    const auto platform =
        load(packed(scratch, "s.lfa", {{"lfa.json", R"({"reconfigPartitionIDs": [{"nodeID": 5}, {"nodeID": 6}]})"}}));
    const auto module = [this](const std::string& name, int node) {
        return packed(scratch, name, {{"lfa.json", R"({"designIDs": {"nodeID": )" + std::to_string(node) + "}}"}});
    };
    const std::string five = module("m5.lfa", 5), again = module("m5b.lfa", 5), six = module("m6.lfa", 6),
                      other = module("m9.lfa", 9), older = packed(scratch, "old.lfa", {{"lfa.xml", kCfaXml}});
    const HTEQHardwarePlatform& hardware = *platform->getHardwarePlatform();
    EXPECT_EQ(hardware.getNodeIDFromLfa(six), 6U);
    EXPECT_TRUE(hardware.isValidRmLfa(five));
    EXPECT_FALSE(hardware.isValidRmLfa(other));
    EXPECT_FALSE(hardware.isValidRmLfa(older)) << "XML metadata has no ids";
    EXPECT_FALSE(hardware.isValidRmLfa(scratch / "gone.lfa"));
    EXPECT_TRUE(hardware.validateRmLfaFiles({}));
    EXPECT_TRUE(hardware.validateRmLfaFiles({five, six}));
    EXPECT_FALSE(hardware.validateRmLfaFiles({five, again}));
    EXPECT_FALSE(hardware.validateRmLfaFiles({five, other}));
    EXPECT_EQ(hardware.createHwDb({five}), nullptr) << "it has no hardware definition";
}

}  // namespace
