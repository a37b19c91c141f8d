// Repositories that anybody may have filled: the search and the registry end, find the good platform, and leak nothing.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

#include "kit/Capture.h"
#include "kit/Repository.h"
#include "msg/Budget.h"
#include "msg/HEXFileFault.h"
#include "platform/HTEQPlatformMgr.h"
#include "platform/PlatformSearch.h"
#include "repository/DirectoryWalk.h"
#include "util/HUTFile.h"

namespace {

namespace fs = std::filesystem;
using namespace teq_platform::requests;
using testing::Contains;
using testing::Field;

struct Row {
    const char* name;
    void (*make)(const Scratch& scratch);
    std::size_t broken = 0;
};

const Row kRows[] = {
    {"ten of a hundred are broken",
     [](const Scratch& scratch) {
         for (int i = 0; i < 100; ++i)
             scratch.put("r/d" + std::to_string(i) + "/p" + std::to_string(i) + ".zdf",
                         i % 10 == 0 ? "<x" : contentOf(scratch / "r/good.zdf"));
     },
     10},
    {"links in a circle, and up",
     [](const Scratch& scratch) {
         fs::create_directory_symlink("b", scratch / "r/a");
         fs::create_directory_symlink("a", scratch / "r/b");
         fs::create_directory_symlink("..", scratch / "r/up");
     }},
    {"names of any bytes",
     [](const Scratch& scratch) {
         for (const char* name : {"a\nb.zdf", " .zdf", "\xFF\xFE.zdf", "..zdf", "-.zdf", "\x1b[2J.zdf"})
             scratch.put("r/n/" + std::string(name), contentOf(scratch / "r/good.zdf"));
     }},
    {"what is not a file",
     [](const Scratch& scratch) {
         fs::create_directories(scratch / "r/dir.zdf");
         ::mkfifo((scratch / "r/pipe.zdf").c_str(), 0600);
         fs::create_symlink("/dev/zero", scratch / "r/zero.zdf");
     },
     2},
    {"five thousand empty directories",
     [](const Scratch& scratch) {
         for (int i = 0; i < 5000; ++i) fs::create_directories(scratch / "r/" + std::to_string(i));
     }},
    {"a depth of 500",
     [](const Scratch& scratch) {
         fs::create_directories(scratch / "r/" + repeated("d/", 500));
         scratch.put("r/" + repeated("d/", 500) + "deep.zdf", "");
     }},
    {"no permission",
     [](const Scratch& scratch) {
         scratch.put("r/closed/p.zdf", "");
         fs::permissions(scratch / "r/closed/p.zdf", fs::perms::none);
     },
     1},
};

class HostileRepositories : public testing::Test {
protected:
    HostileRepositories() { putPlatform(scratch, "r", "good"); }
    FindResult search(std::initializer_list<const char*> dirs = {"r"}) const {
        Find request{.where = {.dirs = {}, .withDefaults = false}};
        for (const char* dir : dirs) request.where.dirs.push_back(scratch / dir);
        return find(request);
    }
    Scratch scratch;
    Capture capture;
};

TEST_F(HostileRepositories, HideNoGoodPlatform) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const Scratch own;
        putPlatform(own, "r", "good");
        row.make(own);
        const std::size_t open = openFiles();
        const FindResult result = find({.where = {.dirs = {own / "r"}, .withDefaults = false}});
        EXPECT_THAT(result.platforms, Contains(Field(&FoundPlatform::file, own / "r/good.zdf")));
        EXPECT_EQ(result.broken.size(), row.broken);
        HTEQPlatformMgr manager;
        manager.addPlatformsFromDirs({own / "r"});
        EXPECT_NE(manager.getPlatform("good"), nullptr);
        EXPECT_EQ(openFiles(), open);
    }
}

/// A thousand links to one directory of a thousand entries.
TEST_F(HostileRepositories, Entries) {
    static_assert(repository::kMaxEntries == 1'000'000);
    for (int i = 0; i < 1000; ++i) {
        scratch.put("full/f" + std::to_string(i), "");
        fs::create_directories(scratch / "r2");
        fs::create_directory_symlink("../full", scratch / "r2/l" + std::to_string(i));
    }
    const FindResult result = search({"r2", "r"});
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_THAT(result.problems.front().text, testing::HasSubstr("more than 1000000 entries"));
    EXPECT_EQ(result.platforms.size(), 1U);
    fs::remove(scratch / "full/f0");
    fs::remove(scratch / "r2/l0");
    EXPECT_TRUE(search({"r2"}).problems.empty());  // 999 * 1000
}

/// Links whose way is long: each link passes thousands of names.
TEST_F(HostileRepositories, Links) {
    fs::create_directories(scratch / "chain/n");
    fs::create_directories(scratch / "r2");
    for (int i = 0; i < 30; ++i)
        fs::create_symlink(repeated("n/../", 700) + (i < 29 ? "l" + std::to_string(i + 1) : ""),
                           scratch / "chain/l" + std::to_string(i));
    for (int i = 0; i < 20; ++i)
        fs::create_symlink("../chain/l0/good.zdf", scratch / "r2/" + std::to_string(i) + ".zdf");
    const FindResult result = search({"r2", "r"});
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_THAT(result.problems.front().text, testing::HasSubstr("more than 1000000 names to follow links"));
    EXPECT_EQ(result.platforms.size(), 1U);
    fs::create_symlink("../chain/l0", scratch / "r/d");
    const Budget budget;
    HUTFile::getCanonicalName(scratch / "r/d/x");
    EXPECT_THROW(while (true) HUTFile::getCanonicalName(scratch / "r/d/x"), HEXFileFault);
}

/// Directories vanish and descriptors are replaced during the search.
TEST_F(HostileRepositories, ThatChange) {
    const std::string good = contentOf(scratch / "r/good.zdf");
    std::atomic<bool> ends = false;
    std::thread changes([&] {
        for (int i = 0; !ends; ++i) {
            const std::string directory = "r/d" + std::to_string(i % 20);
            scratch.put(directory + "/new", i % 2 == 0 ? good : "<x");
            fs::rename(scratch / directory + "/new", scratch / directory + "/p.zdf");
            if (i % 3 == 0) fs::remove_all(scratch / "r/d" + std::to_string((i + 7) % 20));
        }
    });
    for (int i = 0; i < 100; ++i) {
        EXPECT_THAT(search().platforms, Contains(Field(&FoundPlatform::name, "good")));
        HTEQPlatformMgr manager;
        manager.addPlatformsFromDirs({scratch / "r"});
        EXPECT_NE(manager.getPlatform("good"), nullptr);
    }
    ends = true;
    changes.join();
}

}  // namespace
