#include "platform/HTEQEmulationXMLReader.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"
#include "platform/HTEQEmulations.h"
#include "readers/Capture.h"

namespace {

const std::string kTwo =
    "<Root VersionMajor='1' VersionMinor='2'><Emulations><Emulation Name='a'><Files>"
    "<File Type='EMU_HPFM' Name='x'/><File Type='TOP_BD' Name='y'/></Files></Emulation>"
    "<Emulation Name=''><Files/></Emulation></Emulations></Root>";

}  // namespace

TEST(HTEQEmulationXMLReader, FillsTheModel) {
    const Scratch scratch;
    HTEQEmulations emulations;
    HTEQEmulationXMLReader(scratch.put("hw_emu.xml", kTwo), &emulations).parseXml();
    EXPECT_EQ(emulations.getVersionMajor(), 0U);  // not carried
    ASSERT_EQ(emulations.getEmulations().size(), 2U);
    const HTEQEmulation& first = *emulations.getEmulations()[0];
    EXPECT_EQ(first.getName(), "a");
    ASSERT_EQ(first.getFiles().size(), 2U);
    EXPECT_EQ(first.getFiles()[1]->getType(), "TOP_BD");
    EXPECT_EQ(first.getFiles()[1]->getName(), "y");
    EXPECT_TRUE(emulations.getEmulations()[1]->getFiles().empty());
}

TEST(HTEQEmulationXMLReader, ReportsAFaultAndLeavesTheModel) {
    const Scratch scratch;
    const std::string file = scratch.put("hw_emu.xml", "<Root VersionMajor='1' VersionMinor='x'>\n</Root>");
    HTEQEmulations emulations;
    HTEQEmulationXMLReader reader(file, &emulations);
    const Capture capture;
    try {
        reader.parseXml();
        FAIL();
    } catch (const HXMLException& e) {
        EXPECT_EQ(e.what(), file + ":1:1: VersionMinor=\"x\" of <Root> is not an integer");
        ASSERT_EQ(capture.messages.size(), 1U);
        EXPECT_EQ(capture.messages[0].text, e.what());
    }
    EXPECT_TRUE(emulations.getEmulations().empty());
}

TEST(HTEQEmulationXMLReader, MissingFile) {
    HTEQEmulations emulations;
    EXPECT_THROW(HTEQEmulationXMLReader("/nowhere/hw_emu.xml", &emulations), HEXFileNotFoundException);
}
