#include "util/MadeDirectory.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "kit/Scratch.h"
#include "msg/HEXAll.h"
#include "util/HUTEnv.h"
#include "util/PrivateTmpDir.h"

namespace fs = std::filesystem;

/// Whoever may write to the directory around it puts something else in its place.
TEST(MadeDirectory, IsTheOneThatWasMadeWhateverHasItsPath) {
    for (const auto other : {"link", "open", "private"}) {
        const Scratch around;
        around.put("private/precious", "mine");
        around.put("open/precious", "mine");
        fs::permissions(around / "private", fs::perms::owner_all);
        fs::create_directory_symlink("private", around / "link");
        std::optional<util::MadeDirectory> made(std::in_place, around / "made-XXXXXX");
        const std::string path = made->path();
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
        fs::rename(path, around / "away");
        fs::rename(around / other, path);
        EXPECT_THROW(made->path(), HEXUserException) << other;
        ::close(::openat(made->descriptor(), "file", O_WRONLY | O_CREAT, 0600));
        EXPECT_TRUE(fs::exists(around / "away/file")) << other;
        made.reset();
        EXPECT_EQ(contentOf(path + "/precious"), "mine") << other;
        EXPECT_TRUE(fs::is_empty(around / "away")) << other;
    }
}

TEST(ScratchDirectory, IsFoundFromAnotherWorkingDirectory) {
    const Scratch around;
    const fs::path before = fs::current_path();
    fs::current_path(around.str());
    HUTEnv::setJUNTmpDir(".");
    {
        const util::ScratchDirectory scratch;
        fs::current_path(before);
        EXPECT_TRUE(fs::is_directory(scratch.path()));
    }
    HUTEnv::setJUNTmpDir("");
    EXPECT_TRUE(around.names().empty());
}
