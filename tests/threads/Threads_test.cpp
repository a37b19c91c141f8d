// Sixteen threads, each with loaders and platforms of its own. Under TSan no report may come of it.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "hwdb/HHSMHardwareDb.h"
#include "hwdb/HHSMHwManager.h"
#include "kit/Platforms.h"
#include "kit/Run.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformCAPI.h"
#include "platform/PlatformLoader.h"

namespace {

constexpr int kThreads = 16;
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int kRounds = 20;
#else
constexpr int kRounds = 50;
#endif

/// Runs `work` on all threads at once.
template <class Work>
void onAllThreads(Work work) {
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            for (++ready; ready < kThreads;) std::this_thread::yield();
            work(i);
        });
    for (std::thread& thread : threads) thread.join();
}

std::string documentOf(const std::string& path) {
    char* const text = hteq_get_platform_json(path.c_str());
    const std::string document = text ? text : "null";
    hteq_free_json_string(text);
    return document;
}

/// A platform of all kinds of files, named after its thread.
std::string platformOf(const Scratch& scratch, const std::string& name) {
    packed(scratch, name + "/h.lfa",
           {{"lfa.json", R"({"name": ")" + name + R"(", "expandablePlatform": false, "versionMajor": 12,
                "memories": [{"name": "m", "size": "4 GB"}], "files": [{"type": "TILPRJ", "name": "x.tilprj"},
                {"type": "EXT_META_JSON", "name": "e.json"}, {"type": "BOARD_REPO_PATH", "name": "repo"}]})"},
            {"e.json", R"({"of": ")" + name + "\"}"},
            {"hwdef.xml", R"(<Project top="threads"/>)"},
            {"repo/board.xml", name},
            {"x.tilprj/tilarchive/arch/til_partition.json", R"({"TIL": {")" + name + R"(": {"numColumns": 1}}})"}});
    scratch.put(name + "/sw.spfm", kSoftware);
    return scratch.put(name + "/p.zdf",
                       descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", "h.lfa") +
                                  "</teq:hardwarePlatforms>"));
}

}  // namespace

TEST(Threads, EachHasItsOwnPlatforms) {
    const Scratch scratch;
    const Messages messages;
    std::vector<std::string> paths, documents;
    for (int i = 0; i < kThreads; ++i) paths.push_back(platformOf(scratch, "platform" + std::to_string(i)));
    std::atomic<int> wrong = 0;
    std::vector<std::string> found(kThreads);
    onAllThreads([&](int i) {
        const std::string name = "platform" + std::to_string(i);
        for (int round = 0; round < kRounds; ++round) {
            const std::string document = documentOf(paths[i]);
            if (round == 0) found[i] = document;
            wrong += document != found[i];
            const auto platform =
                teq_platform::PlatformLoader(paths[i], teq_platform::HwMetadataMode::Default).load();
            const HTEQHardwarePlatform& hardware = *platform->getHardwarePlatform();
            wrong += !hardware.findTilPartition(name).isPartition();
            wrong += contentOf(hardware.getBoardRepo() + "/board.xml") != name;
        }
    });
    EXPECT_EQ(wrong, 0);
    for (int i = 0; i < kThreads; ++i) EXPECT_EQ(found[i], documentOf(paths[i]));
    EXPECT_NE(found[3].find("platform3"), std::string::npos);
}

TEST(Threads, OnePlatformForAll) {
    const Scratch scratch;
    const std::string path = platformOf(scratch, "shared"), expected = documentOf(path);
    std::atomic<int> wrong = 0;
    onAllThreads([&](int) {
        for (int round = 0; round < kRounds; ++round) wrong += documentOf(path) != expected;
    });
    EXPECT_EQ(wrong, 0);
}

TEST(Threads, DatabasesHaveNamesOfTheirOwn) {
    const Scratch scratch;
    const std::string archive = packed(scratch, "h.lfa", {{"hwdef.xml", R"(<Project top="threads"/>)"}});
    std::vector<std::set<HHSMHardwareDb*>> made(kThreads);
    onAllThreads([&](int i) {
        for (int round = 0; round < kRounds; ++round)
            made[i].insert(HHSMHwManager::getHsmHwManager().createHardwareDb(archive));
    });
    std::set<HHSMHardwareDb*> all;
    for (const auto& some : made) all.insert(some.begin(), some.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(kThreads * kRounds));
    std::set<HHSMHardwareDb*> named;
    for (int n = 0; n < kThreads * kRounds; ++n)
        named.insert(HHSMHwManager::getHsmHwManager().getHardwareDb("threads" + (n ? "_" + std::to_string(n) : "")));
    EXPECT_EQ(named, all);
}
