#include "readers/ArchiveMember.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"
#include "platform/HTEQEmulationJsonReader.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulations.h"
#include "readers/Capture.h"
#include "zip/FolderPacker.h"

namespace {

/// An archive with both forms of emulation metadata, and one of them broken.
std::string packed(const Scratch& scratch) {
    std::filesystem::create_directories(scratch.path("folder/hw_emu"));
    scratch.put("folder/hw_emu/emu.xml",
                "<Root VersionMajor='1' VersionMinor='0'><Emulations><Emulation Name='x'><Files/></Emulation>"
                "</Emulations></Root>");
    scratch.put("folder/hw_emu/emu.json", R"({"emulations": [{"name": "j", "files": []}]})");
    scratch.put("folder/broken.xml", "<Root>");
    packFolder(scratch.path("folder"), scratch.path("a.cfa"));
    return scratch.path("a.cfa");
}

}  // namespace

TEST(ArchiveMember, WithoutLeadingDot) {
    const struct {
        const char *member, *name;
    } cases[] = {
        {"./hw_emu.xml", "hw_emu.xml"},
        {".//hw_emu/a.xml", "hw_emu/a.xml"},
        {"hw_emu/a.xml", "hw_emu/a.xml"},
        {"a/b.xml", "b.xml"},  // any one character counts as the dot
        {"./", ""},
        {"/a", "/a"},
        {".", "."},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(readers::withoutLeadingDot(c.member), c.name) << c.member;
}

TEST(ArchiveMember, EmulationMetadata) {
    const Scratch scratch;
    const std::string archive = packed(scratch);
    HTEQEmulations emulations;
    HTEQEmulationXMLReader::parseFromCfa(archive, "./hw_emu/emu.xml", &emulations);
    HTEQEmulationJsonReader::parseFromCfa(archive, "hw_emu/emu.json", &emulations);
    ASSERT_EQ(emulations.getEmulations().size(), 2U);
    EXPECT_EQ(emulations.getEmulations()[0]->getName(), "x");
    EXPECT_EQ(emulations.getEmulations()[1]->getName(), "j");
}

TEST(ArchiveMember, CannotBeOpened) {
    const Scratch scratch;
    const std::string archive = packed(scratch), noArchive = scratch.put("text.cfa", "no archive");
    for (const auto& [file, member] : {std::pair(archive, "none.xml"), std::pair(noArchive, "emu.xml"),
                                       std::pair(scratch.path("none.cfa"), "emu.xml")}) {
        SCOPED_TRACE(file);
        try {
            readers::textOfMember(file, member);
            ADD_FAILURE();
        } catch (const HEXError& e) {
            EXPECT_EQ(e.message().id, "@74-34@%s%s");
            EXPECT_EQ(e.message().args, (std::vector<std::string>{file, member}));
        }
    }
}

TEST(ArchiveMember, AFaultNamesArchiveAndMember) {
    const Scratch scratch;
    const std::string archive = packed(scratch);
    HTEQEmulations emulations;
    const Capture capture;
    EXPECT_THROW(HTEQEmulationXMLReader::parseFromCfa(archive, "broken.xml", &emulations), HXMLException);
    ASSERT_EQ(capture.messages.size(), 1U);
    EXPECT_EQ(capture.messages[0].text, archive + "!broken.xml:1:1: <Root> needs the attribute VersionMajor");
}
