#include <fmt/core.h>
#include <gmock/gmock.h>

#include <boost/property_tree/json_parser.hpp>

#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/Replace.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulationExtMetaJsonReader.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulationJsonWriter.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "readers/Archive.h"
#include "readers/ArchiveMember.h"
#include "text/HSTStringUtils.h"

namespace {

using testing::ElementsAre, testing::Field, testing::Property;

std::string shown(const HTEQEmulations& emulations) {
    std::string text = "version " + emulations.getPfmMetadataVersion() + "; ";
    for (const auto& emulation : emulations.getEmulations()) {
        text += emulation->getName() + ": ";
        for (const auto& file : emulation->getFiles())
            text += file->getType() + " " + file->getName() + " (" + file->getInstPath() + "), ";
        text += "; ";
    }
    for (const auto& rom : emulations.getFeatureRoms())
        text += fmt::format("rom {} {} {} {} {} value {} bits {:x} unified ({}); ", rom->getVBNV(),
                            rom->getCdmaBaseAddress0(), rom->getCdmaBaseAddress1(), rom->getCdmaBaseAddress2(),
                            rom->getCdmaBaseAddress3(), rom->getBitMapValue(), rom->getFeatureBitMap(),
                            rom->getBitMapUnifiedPlatform());
    return text;
}

/// What the model holds of a file, or what the reader throws; the model is as it was then.
std::string readBy(const std::string& reader, const std::string& file) {
    HTEQEmulations emulations;
    const Capture capture;
    std::string text;
    try {
        if (reader == "xml") HTEQEmulationXMLReader(file, &emulations).parseXml();
        if (reader == "json") {
            HTEQEmulationJsonReader json(file, &emulations);
            text = json.isJsonValid() ? "" : "invalid; ";
            EXPECT_EQ(shown(emulations), "version ; ") << "it is read by parseJson";
            json.parseJson();
        }
        if (reader == "ext") {
            HTEQEmulationExtMetaJsonReader ext(file, &emulations);
            EXPECT_TRUE(ext.isJsonValid());
            ext.parseJson();
        }
        EXPECT_EQ(emulations.getVersionMajor(), 0U);
        return shown(emulations);
    } catch (const HEXFileNotFoundException&) {
        return "no file";
    } catch (const boost::property_tree::ptree_bad_path&) {
        EXPECT_EQ(emulations.getPfmMetadataVersion(), "");
        return text + "bad path";
    } catch (const boost::property_tree::json_parser_error&) {
        return "no JSON";
    } catch (const HXMLException& e) {
        EXPECT_EQ(shown(emulations), "version ; ");
        EXPECT_THAT(capture.taken, ElementsAre(Field(&ComMsgMgrInstance::text, e.what())));
        return with(e.what(), file, "FILE");
    }
}

std::string written(const std::string& text) {
    HTEQEmulations emulations;
    json::ptree root;
    json::parse(text, "text", root);
    HTEQEmulationJsonReader(&emulations).parseRoot_(root);
    std::string line;
    for (const std::string& part : HSTStringUtils::split(HTEQEmulationJsonWriter(&emulations, "").getText(), '\n'))
        line += HSTStringUtils::trim(part);
    return line;
}

}  // namespace

TEST(EmulationReaders, Documents) {
    const Scratch scratch;
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/readers/emulation.case", [&](const auto& name, const auto& text) {
        if (name.starts_with("written")) return written(text);
        if (name.starts_with("member")) return std::string(readers::withoutLeadingDot(text));
        return readBy(name.substr(0, name.find(':')), scratch.put("emulation", text));
    });
    EXPECT_EQ(readBy("json", scratch.str()), "no JSON") << "a directory";
    for (const char* reader : {"json", "xml"}) EXPECT_EQ(readBy(reader, scratch / "none"), "no file");
    HTEQEmulations none;
    HTEQEmulationJsonWriter(&none, scratch / "made.json").writeJson();
    EXPECT_EQ(readBy("json", scratch / "made.json"), "version ; ");
    EXPECT_THROW(HTEQEmulationJsonWriter(&none, scratch / "no/made.json").writeJson(),
                 boost::property_tree::json_parser_error);
}

TEST(ArchiveMember, EmulationMetadata) {
    const Scratch scratch;
    const std::string archive =
        archived(scratch, "a.cfa",
                 {{"hw_emu/emu.xml",
                   "<Root VersionMajor='1' VersionMinor='0'><Emulations><Emulation Name='x'><Files/>"
                   "</Emulation></Emulations></Root>"},
                  {"hw_emu/emu.json", R"({"emulations": [{"name": "j", "files": []}]})"},
                  {"broken.xml", "<Root>"}});
    HTEQEmulations emulations;
    HTEQEmulationXMLReader::parseFromCfa(archive, "./hw_emu/emu.xml", &emulations);
    HTEQEmulationJsonReader::parseFromCfa(archive, "hw_emu/emu.json", &emulations);
    EXPECT_EQ(shown(emulations), "version ; x: ; j: ; ");
    const Capture capture;
    EXPECT_THROW(HTEQEmulationXMLReader::parseFromCfa(archive, "broken.xml", &emulations), HXMLException);
    ASSERT_EQ(capture.taken.size(), 1U);
    EXPECT_EQ(capture.taken[0].text, archive + "!broken.xml:1:1: Root: <Root> needs the attribute VersionMajor");
    const std::string noArchive = scratch.put("text.cfa", "no archive");
    for (const auto& [file, member] : {std::pair(archive, "none.xml"), std::pair(noArchive, "emu.xml"),
                                       std::pair(scratch / "none.cfa", "emu.xml")}) {
        const auto message = AllOf(Field(&ComMsgMgrInstance::id, "@74-34@%s%s"),
                                   Field(&ComMsgMgrInstance::args, ElementsAre(file, member)));
        EXPECT_THAT([&] { readers::textOfMember(file, member); },
                    testing::Throws<HEXError>(Property(&HEXError::message, message)));
    }
}
