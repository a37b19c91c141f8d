// Paths that are not files, files that change, and names in the metadata that lead elsewhere.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <thread>

#include "kit/HostState.h"
#include "kit/Platforms.h"
#include "kit/Run.h"
#include "kit/Trial.h"
#include "kit/ZipBuilder.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/PlatformLoader.h"
#include "util/HUTEnv.h"

namespace fs = std::filesystem;
using builder::Entry;
using builder::Zip;

namespace {

void makeSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0) << path;
    ::close(socket);
}

void makeSparse(const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::ftruncate(file, 8L << 30), 0);
    ::close(file);
}

/// An archive whose metadata lists these files, by type, with a tile-array project in it.
std::string listing(const std::string& directory, const std::map<std::string, std::string>& files,
                    const std::string& project) {
    std::string list;
    std::set<std::string> names{"prj/x.tilprj"};
    for (const auto& [type, name] : files) {
        list += (list.empty() ? "" : ", ") + (R"({"type": ")" + type) + R"(", "name": ")" + name + "\"}";
        names.insert(name);
    }
    Zip zip;
    zip.entries = {Entry("lfa.json", R"({"name": "n", "expandablePlatform": false, "files": [)" + list + "]}"),
                   Entry("repo/board.xml", "<b/>")};
    for (const std::string& name : names) zip.entries.emplace_back(name, project);
    std::ofstream(directory + "/x.lfa", std::ios::binary) << zip.build();
    return directory + "/x.lfa";
}

std::string project() {
    Zip zip;
    zip.entries = {Entry("tilarchive/morwen/logical_arch_til.larch", "larch", true),
                   Entry("tilarchive/arch/til_partition.json", R"({"TIL": {"t": {"numColumns": 1}}})")};
    return zip.build();
}

/// Loads the platform on a small stack and hands it to `use`; what lies there afterwards is as before.
void withPlatform(const std::string& path, const std::function<void(HPLPlatform&)>& use) {
    const std::string files = Place::get().state(), host = hostState();
    onSmallStack([&] {
        const Messages messages;
        const auto platform = teq_platform::PlatformLoader(path, teq_platform::HwMetadataMode::Default).load();
        ASSERT_TRUE(platform);
        use(dynamic_cast<HPLPlatform&>(*platform->getHardwarePlatform()));
    });
    EXPECT_EQ(Place::get().state(), files);
    EXPECT_EQ(Place::get().leftovers(), "");
    EXPECT_EQ(hostState(), host);
}

}  // namespace

TEST(HostilePlaces, PathsThatAreNoFiles) {
    static const struct {
        const char* what;
        std::function<void(const std::string&)> make;
        const char* words;
    } cases[] = {
        {"nothing", [](const std::string&) {}, "does not exist"},
        {"pipe", [](const std::string& path) { ::mkfifo(path.c_str(), 0600); }, ""},
        {"socket", makeSocket, ""},
        {"directory", [](const std::string& path) { fs::create_directory(path); }, ""},
        {"link to a device", [](const std::string& path) { fs::create_symlink("/dev/zero", path); }, ""},
        {"link to a terminal", [](const std::string& path) { fs::create_symlink("/dev/tty", path); }, ""},
        {"link to itself", [](const std::string& path) { fs::create_symlink(path, path); }, "does not exist"},
        {"sparse 8 GiB", makeSparse, ""},
        {"empty", [](const std::string& path) { std::ofstream{path}; }, ""},
    };
    static const struct {
        const char *name, *outcome;
    } kinds[] = {{"x.lfa", "null"}, {"x.spfm", "null"}, {"x.zdf", "Exception"}};
    for (const auto& c : cases) {
        for (const auto& kind : kinds) {
            SCOPED_TRACE(std::string(c.what) + " as " + kind.name);
            const std::string path = Place::get().fresh() + "/" + kind.name;
            c.make(path);
            expectAnswer(path, kind.outcome, kind.outcome == std::string("null") ? c.words : "");
        }
    }
}

TEST(HostilePlaces, AFileThatChangesWhileItIsRead) {
    const std::string path = Place::get().fresh() + "/x.lfa";
    Zip one, two;
    one.entries = {Entry("lfa.json", R"({"name": "one"})", true)};
    two.entries = {Entry("lfa.json", R"({"name": "two", "padding": ")" + std::string(50'000, 'x') + "\"}")};
    const std::string texts[] = {one.build(), two.build(), two.build().substr(0, 1000), ""};
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (unsigned i = 0; !done; ++i) std::ofstream(path, std::ios::binary | std::ios::trunc) << texts[i % 4];
    });
    int loaded = 0, refused = 0;
    for (int i = 0; i < 500; ++i) {
        const Answer answer = ask(path);
        const bool isWhole = answer.document.find(R"("name": "one")") != std::string::npos ||
                             answer.document.find(R"("name": "two")") != std::string::npos;
        EXPECT_EQ(answer.outcome, isWhole ? "loads" : "null") << answer.words;
        ++(isWhole ? loaded : refused);
    }
    done = true;
    writer.join();
    EXPECT_GT(refused, 0);
    EXPECT_EQ(Place::get().leftovers(), "");
}

TEST(HostilePlaces, NamesInTheMetadataThatLeadElsewhere) {
    for (const char* name :
         {"../x.tilprj", "../../../x.tilprj", "a/../../x.tilprj", "/tmp/x.tilprj", "a//b", "./x", "."}) {
        SCOPED_TRACE(name);
        const std::string path =
            listing(Place::get().fresh(), {{"TILPRJ", name}, {"BOARD_REPO_PATH", name}, {"HPFM", name}}, project());
        withPlatform(path, [](HPLPlatform& platform) {
            EXPECT_EQ(platform.getBoardRepo(), "");
            EXPECT_FALSE(platform.hasTilPartitions());
            EXPECT_FALSE(platform.extractLARCHFile("/dev/null"));
        });
    }
}

TEST(HostilePlaces, TheProjectLeavesNothingBehind) {
    const std::string path = listing(Place::get().fresh(), {{"TILPRJ", "prj/x.tilprj"}}, project());
    withPlatform(path, [](HPLPlatform& platform) { EXPECT_TRUE(platform.hasTilPartitions()); });
}

TEST(HostilePlaces, FilesThatLieInTheTemporaryDirectory) {
    HUTEnv::getJUNTmpDir();  // makes the private directory of the process, which stays
    const std::string directory = Place::get().fresh(), elsewhere = directory + "/elsewhere";
    fs::create_directory(elsewhere);
    std::ofstream(elsewhere + "/x.tilprj", std::ios::binary) << project();
    const std::string path =
        listing(directory, {{"TILPRJ", "prj/x.tilprj"}, {"BOARD_REPO_PATH", "repo"}}, "no archive");
    static const struct {
        const char* what;
        std::function<void(const std::string& there, const std::string& elsewhere)> make;
        bool isTaken;
    } cases[] = {
        {"a file of the user's own",
         [](const auto& there, const auto& elsewhere) {
             fs::create_directory(there + "/prj");
             fs::copy(elsewhere + "/x.tilprj", there + "/prj/x.tilprj");
         },
         true},
        {"a link",
         [](const auto& there, const auto& elsewhere) {
             fs::create_directory(there + "/prj");
             fs::create_symlink(elsewhere + "/x.tilprj", there + "/prj/x.tilprj");
         },
         false},
        {"a link on the way",
         [](const auto& there, const auto& elsewhere) { fs::create_directory_symlink(elsewhere, there + "/prj"); },
         false},
        {"a file with two names",
         [](const auto& there, const auto& elsewhere) {
             fs::create_directory(there + "/prj");
             fs::create_hard_link(elsewhere + "/x.tilprj", there + "/prj/x.tilprj");
         },
         false},
        {"somebody else's file",
         [](const auto& there, const auto& elsewhere) {
             fs::create_directory(there + "/prj");
             fs::copy(elsewhere + "/x.tilprj", there + "/prj/x.tilprj");
             if (::chown((there + "/prj/x.tilprj").c_str(), 12345, 12345) != 0) fs::remove(there + "/prj/x.tilprj");
         },
         false},
        {"a pipe",
         [](const auto& there, const auto&) {
             fs::create_directory(there + "/prj");
             ::mkfifo((there + "/prj/x.tilprj").c_str(), 0600);
         },
         false},
        {"a link in the repository's place",
         [](const auto& there, const auto& elsewhere) { fs::create_directory_symlink(elsewhere, there + "/repo"); },
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        withPlatform(path, [&](HPLPlatform& platform) {
            const std::string there = HUTEnv::getJUNTmpDir();
            c.make(there, elsewhere);
            const std::string larch = there + "/out";
            EXPECT_EQ(platform.extractLARCHFile(larch), c.isTaken);
            EXPECT_EQ(contentOf(larch), c.isTaken ? "larch" : "");
            if (fs::is_symlink(there + "/repo")) {
                EXPECT_EQ(platform.getBoardRepo(), "");
            }
            fs::remove_all(there);
        });
        EXPECT_EQ(contentOf(elsewhere + "/x.tilprj"), project());
    }
}
