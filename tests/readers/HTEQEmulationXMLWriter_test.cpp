#include "platform/HTEQEmulationXMLWriter.h"

#include <gtest/gtest.h>

#include "kit/Scratch.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulations.h"

TEST(EmulationXmlWriter, KeepsWhatTheFormHolds) {
    const Scratch scratch;
    HTEQEmulations emulations;
    emulations.setVersionMajor(3);
    HTEQEmulation& first = *emulations.createEmulation();
    first.setName("gcc");
    first.createFile("EMU_HPFM", "a<b.hpfm")->setInstPath("lost");
    emulations.createEmulation();
    HTEQEmulationXMLWriter(&emulations, scratch / "x.xml").writeXml();
    EXPECT_EQ(contentOf(scratch / "x.xml"), contentOf(ZR_SOURCE_DIR "/tests/cases/emulation/written.xml"));
    try {
        HTEQEmulationXMLWriter(&emulations, scratch / "none/x.xml").writeXml();
        ADD_FAILURE();
    } catch (const HEXAll& e) {
        EXPECT_EQ(e.message().id + e.message().args.at(0), "@74-10@%s" + (scratch / "none/x.xml"));
    }
}
