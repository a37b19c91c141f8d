#include "util/WholeFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "kit/Scratch.h"
#include "msg/HEXAll.h"

namespace fs = std::filesystem;

namespace {

class WholeFile : public testing::Test {
protected:
    std::size_t names() const { return scratch_.names().size(); }
    const Scratch scratch_;
    const fs::path dir_ = scratch_.str();
};

}  // namespace

TEST_F(WholeFile, ReplacesAndReads) {
    const std::string file = dir_ / "a";
    const std::string bytes("x\0y", 3);
    wholefile::replace(file, "older and longer");
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    wholefile::replace(file, bytes);
    EXPECT_EQ(wholefile::read(file, 3), bytes);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(names(), 1U);
}

TEST_F(WholeFile, ReplacesTheTargetOfALink) {
    const std::string file = dir_ / "a", link = dir_ / "link";
    wholefile::replace(file, "old");
    fs::create_symlink("a", link);
    wholefile::replace(link, "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(wholefile::read(file, 100), "new");
}

TEST_F(WholeFile, RefusesToRead) {
    const std::string file = dir_ / "a", pipe = dir_ / "pipe";
    wholefile::replace(file, "four");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {file, pipe, dir_.string(), (dir_ / "none").string()}) {
        try {
            wholefile::read(path, 3);
            ADD_FAILURE() << path;
        } catch (const HEXUserException& e) {
            EXPECT_NE(std::string(e.what()).find(path), std::string::npos) << e.what();
        }
    }
}

TEST_F(WholeFile, LeavesNothingWhenItCannotWrite) {
    const std::string directory = dir_ / "d";
    fs::create_directory(directory);
    EXPECT_THROW(wholefile::replace(directory, "x"), HEXUserException);  // a file cannot take a directory's name
    EXPECT_THROW(wholefile::replace(directory + "/none/x", "x"), HEXUserException);
    EXPECT_EQ(names(), 1U);
}
