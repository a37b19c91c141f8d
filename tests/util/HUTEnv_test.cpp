#include "util/HUTEnv.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include "util/HUTFile.h"

namespace {

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// What a forked child wrote before it ended by `exit`, which runs the library's own clean-up.
template <class Work>
std::string inChild(Work work) {
    int ends[2];
    if (::pipe(ends) != 0) return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string text = work();
        const bool written = ::write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        std::exit(written ? 0 : 1);
    }
    ::close(ends[1]);
    std::string text;
    char block[4096];
    for (ssize_t n; (n = ::read(ends[0], block, sizeof block)) > 0;) text.append(block, static_cast<std::size_t>(n));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "child failed";
}

}  // namespace

TEST(HUTEnv, TmpDirIsPrivateToTheThread) {
    const std::string mine = HUTEnv::getJUNTmpDir();
    EXPECT_EQ(HUTEnv::getJUNTmpDir(), mine);
    EXPECT_EQ(modeOf(mine), 0700U);
    EXPECT_EQ(modeOf(HUTFile::getParent(mine)), 0700U);
    std::string other;
    std::thread([&other] { other = HUTEnv::getJUNTmpDir(); }).join();
    EXPECT_NE(other, mine);
    EXPECT_EQ(HUTFile::getParent(other), HUTFile::getParent(mine));
}

TEST(HUTEnv, TmpDirGoesWithTheProcessThatMadeIt) {
    const std::string mine = HUTEnv::getJUNTmpDir();
    const std::string childs = inChild([] {
        const std::string path = HUTEnv::getJUNTmpDir();
        std::ofstream(path + "/left-over") << "x";
        return path;
    });
    ASSERT_NE(childs, "child failed");
    EXPECT_NE(HUTFile::getParent(childs), HUTFile::getParent(mine));
    EXPECT_FALSE(HUTFile::exists(HUTFile::getParent(childs)));
    EXPECT_TRUE(HUTFile::isDir(mine)) << "a child leaves its parent's directory alone";
}

/// Something removes old files there, and somebody else may take the name.
TEST(HUTEnv, TmpDirIsMadeAgainWhenItIsNoLongerPrivate) {
    const std::function<bool(const std::string&)> takers[] = {
        [](const std::string&) { return true; },
        [](const std::string& base) { return ::mkdir(base.c_str(), 0700) == 0 && ::chmod(base.c_str(), 0777) == 0; },
        [](const std::string& base) { return ::symlink("/tmp", base.c_str()) == 0; },
        [](const std::string& base) {
            return ::geteuid() != 0 || (::mkdir(base.c_str(), 0700) == 0 && ::chown(base.c_str(), 1234, 1234) == 0);
        },
    };
    for (const auto& take : takers) {
        const std::string base = HUTFile::getParent(HUTEnv::getJUNTmpDir());
        ASSERT_TRUE(HUTFile::rmRecursive(base) && take(base));
        const std::string fresh = HUTEnv::getJUNTmpDir();
        EXPECT_NE(HUTFile::getParent(fresh), base);
        EXPECT_EQ(modeOf(fresh), 0700U);
        EXPECT_EQ(modeOf(HUTFile::getParent(fresh)), 0700U);
        HUTFile::rmRecursive(base);
    }
}

TEST(HUTEnv, HostGives) {
    EXPECT_TRUE(HUTEnv::getJUNAppRoot().ends_with("/share/zr_platform")) << HUTEnv::getJUNAppRoot();
    const auto roots = HUTEnv::getKELAppRootList();
    HUTEnv::setKELAppRootList({"/tools/one", "/tools/two"});
    EXPECT_EQ(HUTEnv::getJUNAppRoot(), "/tools/one");
    HUTEnv::setKELAppRootList({});
    EXPECT_EQ(HUTEnv::getJUNAppRoot(), "");
    HUTEnv::setKELAppRootList(roots);

    HUTEnv::setJUNTmpDir("/host/tmp");
    EXPECT_EQ(HUTEnv::getJUNTmpDir(), "/host/tmp");
    HUTEnv::setJUNTmpDir("");
    EXPECT_NE(HUTEnv::getJUNTmpDir(), "/host/tmp");

    EXPECT_EQ(HUTEnv::getFullBuildStr().find(std::to_string(HUTEnv::getMajor()) + "."), 0U);
    ::setenv("ZR_TEST_EMPTY", "", 1);
    EXPECT_EQ(HUTEnv::get("ZR_TEST_EMPTY"), "");
    EXPECT_EQ(HUTEnv::get("ZR_TEST_UNSET"), std::nullopt);
}
