#include "util/HUTFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "kit/Cases.h"
#include "kit/Scratch.h"
#include "msg/HEXAll.h"
#include "util/HUTFileUtils.h"

namespace fs = std::filesystem;

TEST(HUTFile, ExtensionAndParent) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/util/paths.case", [](const auto&, const std::string& path) {
        return HUTFile::getExt(path) + "|" + HUTFile::getParent(path);
    });
}

class HUTFileOnDisk : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(dir_ + "/real/inner");
        std::ofstream(dir_ + "/real/file") << "x";
        fs::create_directory_symlink("real", dir_ + "/link");
        fs::create_symlink("nowhere", dir_ + "/dangling");
        fs::create_symlink("loop", dir_ + "/loop");
    }
    const Scratch scratch_;
    const std::string dir_ = scratch_.str();
};

TEST_F(HUTFileOnDisk, Kinds) {
    const std::string tooLong(5000, 'x');
    const struct {
        std::string path;
        bool exists, isFile, isDir;
    } cases[] = {
        {"real", true, false, true},      {"link", true, false, true},
        {"real/file", true, true, false}, {"dangling", false, false, false},
        {"loop", false, false, false},    {"loop/x", false, false, false},
        {tooLong, false, false, false},   {std::string("real\0file", 9), false, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(HUTFile::exists(dir_ + "/" + c.path), c.exists);
        EXPECT_EQ(HUTFile::isFile(dir_ + "/" + c.path), c.isFile);
        EXPECT_EQ(HUTFile::isDir(dir_ + "/" + c.path), c.isDir);
    }
}

TEST_F(HUTFileOnDisk, CanonicalName) {
    const std::string tooLong(5000, 'x');
    const struct {
        std::string path, canonical;
    } cases[] = {
        {dir_ + "/link/inner/", dir_ + "/real/inner"},
        {dir_ + "/link/./inner/../file", dir_ + "/real/file"},
        {dir_ + "/link/new/../other/", dir_ + "/real/other"},
        {dir_ + "/loop/x/..", dir_ + "/loop"},
        {dir_ + "/" + tooLong, dir_ + "/" + tooLong},
        {"no/such/../name", fs::current_path().native() + "/no/name"},
        {"/", "/"},
        {"", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(HUTFile::getCanonicalName(c.path), c.canonical);
    }
}

TEST_F(HUTFileOnDisk, MakeAndRemove) {
    HUTFile::mkDirRecursive(dir_ + "/a/b/c/");
    HUTFile::mkDirRecursive(dir_ + "/a/b/c");
    EXPECT_TRUE(HUTFile::isDir(dir_ + "/a/b/c"));
    EXPECT_THROW(HUTFile::mkDirRecursive(dir_ + "/real/file"), HEXUserException);
    EXPECT_THROW(HUTFile::mkDirRecursive(dir_ + "/real/file/x"), HEXUserException);
    EXPECT_THROW(HUTFile::mkDirRecursive(dir_ + std::string("/y\0z", 4)), HEXUserException);
    EXPECT_FALSE(HUTFile::exists(dir_ + "/y"));
    HUTFile::ensureWritableDirectory(dir_ + "/new");
    EXPECT_TRUE(HUTFile::isDir(dir_ + "/new"));

    EXPECT_FALSE(HUTFile::rm(dir_ + "/real"));  // not empty
    EXPECT_TRUE(HUTFile::rm(dir_ + "/dangling"));
    EXPECT_TRUE(HUTFile::rm(dir_ + "/was-never-there"));
    EXPECT_TRUE(HUTFile::rmRecursive(dir_ + "/link"));
    EXPECT_TRUE(HUTFile::isFile(dir_ + "/real/file")) << "a link is removed, not followed";
}

TEST_F(HUTFileOnDisk, UniqueNames) {
    EXPECT_EQ(HUTFileUtils::uniquifyFilenameInDir(dir_ + "/free"), dir_ + "/free");
    EXPECT_EQ(HUTFileUtils::uniquifyFilenameInDir(dir_ + "/dangling"), dir_ + "/dangling_1");
    fs::create_directory(dir_ + "/real_1");
    EXPECT_EQ(HUTFileUtils::uniquifyFilenameInDir(dir_ + "/real"), dir_ + "/real_2");
    EXPECT_EQ(HUTFileUtils::makeAbsolutePath("x"), fs::current_path().native() + "/x");
    EXPECT_EQ(HUTFileUtils::makeAbsolutePath("/x/../y"), "/x/../y");
}
