#include "platform/HTEQEmuFeatureRom.h"

#include <gtest/gtest.h>

TEST(HTEQEmuFeatureRom, FeatureBitMap) {
    const struct {
        const char *boardScheduler, *peerToPeer;
        std::uint32_t word;
    } cases[] = {
        {"", "", 1},
        {"enabled", "", 9},
        {"", "enabled", 0x10001},
        {"enabled", "enabled", 0x10009},
        {"Enabled", "true", 1},  // any other word counts as off
    };
    for (const auto& c : cases) {
        HTEQEmuFeatureRom rom;
        rom.setBitMapValue("255");
        rom.setBitMapUnifiedPlatform("enabled");
        rom.setBitMapBoardSchedular(c.boardScheduler);
        rom.setBitMapPeerToPeer(c.peerToPeer);
        EXPECT_EQ(rom.getFeatureBitMap(), c.word) << c.boardScheduler << "," << c.peerToPeer;
    }
}
