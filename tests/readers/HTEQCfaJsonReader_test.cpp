#include "platform/HTEQCfaJsonReader.h"

#include <gtest/gtest.h>

#include <memory>

#include "kit/Hpfm.h"
#include "platform/HPLPlatform.h"
#include "readers/Archive.h"

TEST(CfaJsonReader, FileTypesAreReadInAnyLetterCase) {
    const Scratch scratch;
    const std::string archive = archived(
        scratch, "p.lfa",
        {{"lfa.json", R"({"files": [{"type": "hpfm", "name": "a.hpfm"}, {"type": "Emu_Json", "name": "emu.json"}]})"},
         {"a.hpfm", hpfm("<kp:busInterface kp:name='b'/>")},
         {"emu.json", R"({"emulations": [{"files": [{"type": "EMU_HPFM", "name": "n"}]}]})"}});
    HPLPlatform platform;
    ASSERT_TRUE(HTEQCfaJsonReader(&platform).parseCFA(archive, HTEQCfaJsonReader::HwMetadataMode::Default));
    EXPECT_TRUE(platform.supportsHWEmulation());
    const std::unique_ptr<HSTFwdIter<HTEQHardwareBusInterface*>> interfaces(platform.createBusInterfaceIter());
    EXPECT_TRUE(interfaces->hasNext());
}
