// Files made from others on a disk that becomes full at each call in turn: every output is as before, or complete.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

#include <msg/ComMsgMgr.h>
#include <platform/DerivedFiles.h>
#include <platform/PlatformEmulation.h>

#include "kit/Faults.h"
#include "kit/Scratch.h"

namespace fs = std::filesystem;
namespace requests = teq_platform::requests;

namespace {

/// Calls that need space.
const std::set<std::string> kCalls{"open",    "openat",  "write",     "pwrite", "fsync",
                                   "mkdirat", "mkdtemp", "renameat2", "close"};

using Files = std::map<std::string, std::string>;

class FullDisk : public testing::Test {
protected:
    FullDisk() {
        ComMsgMgr::setSink([](const ComMsgMgrInstance&) {});
    }
    ~FullDisk() override { ComMsgMgr::setSink(nullptr); }

    std::string out(const std::string& name) const { return scratch_ / "out/" + name; }
    Files found() const {
        Files files;
        for (const auto& entry : fs::directory_iterator(scratch_ / "out"))
            files[entry.path().filename()] = contentOf(entry.path());
        return files;
    }
    void place(const Files& files) const {
        fs::remove_all(scratch_ / "out");
        fs::create_directory(scratch_ / "out");
        for (const auto& [name, content] : files) scratch_.put("out/" + name, content);
    }
    /// Whether it ends without an exception.
    static bool succeeds(const std::function<void()>& make) {
        try {
            make();
            return true;
        } catch (const std::exception&) {
            return false;
        }
    }
    void tryEachCall(const std::string& name, const Files& before, const std::function<void()>& make) {
        place(before);
        make();  // what is made once for the process is made
        place(before);
        faults::arm(faults::Action::count);
        make();
        const std::vector<std::string> calls(faults::calls().begin(), faults::calls().end());
        faults::arm(faults::Action::none);
        const Files after = found();
        ASSERT_NE(after, before) << name;
        for (std::size_t i = 0; i < calls.size(); ++i) {
            if (!kCalls.contains(calls[i])) continue;
            place(before);
            faults::arm(faults::Action::fail, static_cast<long>(i) + 1, ENOSPC);
            const bool isDone = succeeds(make);
            faults::arm(faults::Action::none);
            const Files left = found();
            EXPECT_TRUE(left == after || (!isDone && left == before))
                << name << ": " << calls[i] << ", call " << i + 1;
            refused_ += !isDone;
        }
    }

    const Scratch scratch_;
    const std::string labels_ = ZR_SOURCE_DIR "/examples/u77/hw/labels.json", hdf_ = ZR_SAMPLES "/lone/merlin.hdf",
                      cfa_ = ZR_SAMPLES "/harrier/hw/harrier.cfa",
                      emulation_ = scratch_.put(
                          "e.json", R"({"emulations": [{"name": "a", "files": [{"type": "t", "name": "n"}]}]})");
    int refused_ = 0;
};

}  // namespace

TEST_F(FullDisk, LeavesNoPartOfAnOutput) {
    const HSTVector<requests::NamedFile> files{{"XDC", "a.json", labels_}};
    place({});
    requests::createRqa({.archive = out("a.rqa")});
    const Files index = found();
    const struct {
        const char* name;
        Files before;
        std::function<void()> make;
    } verbs[] = {
        {"labels",
         {{"p.json", "old"}, {"e.json", "older"}},
         [&] {
             requests::labels({.file = labels_,
                               .partitionMetadata = out("p.json"),
                               .extMetadata = out("e.json"),
                               .mayReplace = true});
         }},
        {"create-fixed",
         {{"f.lfa", "old"}},
         [&] { requests::createFixed({.archive = out("f.lfa"), .files = files, .mayReplace = true}); }},
        {"from-hdf",
         {{"h.lfa", "old"}},
         [&] { requests::fromDefinition({.definition = hdf_, .archive = out("h.lfa"), .mayReplace = true}); }},
        {"rqa create",
         {{"c.rqa", "old"}},
         [&] { requests::createRqa({.archive = out("c.rqa"), .files = files, .mayReplace = true}); }},
        {"rqa add", index,
         [&] { requests::addToRqa({.archive = out("a.rqa"), .files = files, .mayReplace = true}); }},
        {"emu-convert",
         {{"e.xml", "old"}},
         [&] { requests::convertEmulation({.file = emulation_, .destination = out("e.xml"), .mayReplace = true}); }},
        {"emulate",
         {{"e.cfa", "old"}},
         [&] {
             requests::emulate({.archive = cfa_,
                                .name = "memss",
                                .destination = out("e.cfa"),
                                .installation = ZR_SOURCE_DIR "/examples/morwen",
                                .keep = {},
                                .mayReplace = true});
         }},
    };
    for (const auto& [name, before, make] : verbs) {
        ASSERT_NO_FATAL_FAILURE(tryEachCall(name, before, make));
        if (before != index) {
            ASSERT_NO_FATAL_FAILURE(tryEachCall(std::string(name) + ", without an output", {}, make));
        }
    }
    EXPECT_GT(refused_, 100);
}
