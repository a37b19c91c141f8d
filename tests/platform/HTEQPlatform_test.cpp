#include "platform/HTEQPlatform.h"

#include <gtest/gtest.h>

#include "platform/HPLPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"

namespace {

using Key = HTEQDesignIntentStorage::Key;

TEST(HTEQPlatform, ItsTypeFollowsFromTheDesignIntent) {
    const struct {
        std::vector<Key> intents;
        const char* type;
        const char* pretty;
    } cases[] = {
        {{}, "undefined", "Undefined"},
        {{Key::embedded}, "lorimar", "Lorimar"},
        {{Key::dataCenter}, "fennick", "Fennick"},
        {{Key::externalHost}, "fennick", "Fennick"},
        {{Key::serverManaged}, "fennick", "Fennick"},
        {{Key::serverManaged, Key::embedded}, "acceleration", "Acceleration"},
    };
    for (const auto& c : cases) {
        HTEQPlatform platform;
        auto* hardware = new HPLPlatform;
        for (const Key key : c.intents) hardware->setExplicitDesignIntent(key, true);
        platform.setHardwarePlatform(hardware);
        EXPECT_EQ(platform.getTypeString(), c.type);
        EXPECT_EQ(platform.getTypePrettyString(), c.pretty);
    }
    EXPECT_EQ(HTEQPlatform().getTypeString(), "");
    EXPECT_EQ(HTEQPlatform().getTypePrettyString(), "Undefined");
}

TEST(HTEQPlatform, AsksTheDefaultPartitionWhenItHasNoHardwareOfItsOwn) {
    HPLPlatform hardware;
    hardware.setUnifiedPlatform(true);
    hardware.setIsHWEmuPlatform(true);
    HTEQPlatform platform;
    auto* partition = new HTEQReconfigurablePartition(0);
    partition->setHardwarePlatform(&hardware);
    platform.addReconfigurablePartition(partition);
    EXPECT_FALSE(platform.isUnified()) << "the loader stores the default partition's platform";
    platform.setDefaultRPHardwarePlatform(&hardware);
    EXPECT_TRUE(platform.isUnified());
    EXPECT_TRUE(platform.supportsHardware());
    EXPECT_FALSE(platform.isHWEmuPlatform()) << "asked of a direct one only";
    EXPECT_FALSE(platform.supportsHWEmulation()) << "no partition has an emulation platform";
    partition->setHardwareEmulationPlatform(&hardware);
    EXPECT_TRUE(platform.supportsHWEmulation());
    HSTVector<std::string> categories;
    platform.getTargetCategories(categories);
    EXPECT_EQ(categories, HSTVector<std::string>({"Acceleration"}));
}

TEST(HTEQPlatform, ItsNamesComeFromItsFile) {
    const struct {
        const char *file, *directory, *base;
    } cases[] = {{"", "", ""}, {"p.zdf", ".", "p"}, {"/p.x.zdf", "/", "p.x"}, {"a/b/p", "a/b", "p"}};
    for (const auto& c : cases) {
        HTEQPlatform platform;
        platform.setPlatformFile(c.file);
        EXPECT_EQ(platform.getPlatformDir(), c.directory) << c.file;
        EXPECT_EQ(platform.getPlatformBaseName(), c.base) << c.file;
        EXPECT_EQ(platform.getDeviceName(), c.base);
        EXPECT_EQ(platform.getUniqueName(), c.file);
    }
    HTEQPlatform hidden;
    hidden.setPlatformFile("torvane:rq118:linux-uart:1.0");
    EXPECT_TRUE(hidden.isHidden());
}

}  // namespace
