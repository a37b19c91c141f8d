#include "platform/HTEQTmpDirObject.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "msg/HEXAll.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"

TEST(HTEQTmpDirObject, LivesAndDiesWithTheObject) {
    std::string first, second;
    {
        HTEQTmpDirObject one("work"), two("work");
        first = one.get(), second = two.get();
        EXPECT_NE(first, second);
        EXPECT_EQ(HUTFile::getParent(first), HUTEnv::getJUNTmpDir());
        EXPECT_TRUE(one.exists() && two.exists());
        std::filesystem::create_directories(first + "/deep/tree");
        std::ofstream(first + "/deep/file") << "x";
    }
    EXPECT_FALSE(HUTFile::exists(first));
    EXPECT_FALSE(HUTFile::exists(second));
}

TEST(HTEQTmpDirObject, CreateReplacesTheDirectory) {
    HTEQTmpDirObject object;
    EXPECT_TRUE(object.empty());
    EXPECT_FALSE(object.exists());
    object.create("a");
    const std::string old = object.get();
    object.create("b/c");
    EXPECT_FALSE(HUTFile::exists(old));
    EXPECT_TRUE(object.exists());
    object.deleteTmpDir();
    EXPECT_TRUE(object.empty());
}

TEST(HTEQTmpDirObject, FailureOwnsNothing) {
    const std::string file = HUTEnv::getJUNTmpDir() + "/plain";
    std::ofstream(file) << "x";
    HTEQTmpDirObject object("before");
    EXPECT_THROW(object.create("plain/x"), HEXUserException);
    EXPECT_TRUE(object.empty());
    std::filesystem::remove(file);
}
