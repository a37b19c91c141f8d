// Calls of the system that fail, each in turn, while a platform is loaded and its archive changed: a
// documented failure or none, nothing left open, and the next call is right.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <msg/HEXAll.h>
#include <platform/HTEQHardwarePlatform.h>
#include <platform/HTEQPlatform.h>
#include <platform/JSONWriter.h>
#include <platform/PlatformLoader.h>
#include <zip/HUTZip.h>

#include "kit/Faults.h"
#include "kit/Run.h"
#include "kit/Scratch.h"

namespace fs = std::filesystem;
using faults::Action;

namespace {

std::string documentOf(const std::string& file) {
    const auto platform = teq_platform::PlatformLoader(file, teq_platform::HwMetadataMode::Default).load();
    if (!platform) return "";
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(*platform);
    std::ostringstream text;
    writer.write(text);
    return text.str();
}

/// A copy of the first sample, loaded and changed again and again.
class FailingCalls : public testing::Test {
protected:
    FailingCalls() {
        fs::copy(std::string(ZR_SAMPLES) + "/u77", scratch_ / "u77", fs::copy_options::recursive);
        source_ = scratch_.put("source.tcl", "puts changed");
        old_ = contentOf(archive_);
        document_ = documentOf(file_);
        ComMsgMgr::setSink([](const ComMsgMgrInstance&) {});
        EXPECT_EQ(attempt(), "");
        new_ = contentOf(archive_);
        EXPECT_NE(new_, old_);
        scratch_.put("u77/hw/u77.lfa", old_);
        EXPECT_EQ(documentOf(file_), document_);
        names_ = namesBeside();
    }
    ~FailingCalls() override { ComMsgMgr::setSink(nullptr); }

    /// Loads and changes. Empty when it is done, "refused" for a documented failure.
    std::string attempt() const {
        try {
            const auto platform = teq_platform::PlatformLoader(file_, teq_platform::HwMetadataMode::Default).load();
            if (!platform) return "refused";
            platform->getHardwarePlatform()->archiveFile("PRE_OPT_TCL", "tcl/pre.tcl", source_);
            return "";
        } catch (const HEXAll&) {
        } catch (const teq_platform::PlatformParseException&) {
        } catch (const std::bad_alloc&) {
        } catch (const std::exception& e) {
            return e.what();
        }
        return "refused";
    }
    std::vector<std::string> callsOfAnAttempt() {
        faults::arm(Action::count);
        EXPECT_EQ(attempt(), "");
        std::vector<std::string> calls(faults::calls().begin(), faults::calls().end());
        faults::arm(Action::none);
        scratch_.put("u77/hw/u77.lfa", old_);
        return calls;
    }
    /// After an attempt: the archive is whole, nothing lies beside it, and it can be done again.
    void expectIntact(const std::string& when, bool mayLeaveFile = false) {
        const std::string found = contentOf(archive_);
        ASSERT_TRUE(found == old_ || found == new_) << when;
        EXPECT_TRUE(namesBeside() == names_ || mayLeaveFile) << when;
        if (found == new_) scratch_.put("u77/hw/u77.lfa", old_);
        ASSERT_TRUE(documentOf(file_) == document_) << when;
    }
    std::ptrdiff_t namesBeside() const {
        return std::distance(fs::directory_iterator(scratch_ / "u77/hw"), fs::directory_iterator());
    }
    Scratch scratch_;
    std::string file_ = scratch_ / "u77/u77_gen3x16_base_1.zdf", archive_ = scratch_ / "u77/hw/u77.lfa";
    std::string source_, old_, new_, document_;
    std::ptrdiff_t names_ = 0;
};

struct Error {
    int number;
    bool isPassing;  ///< the call is to be made again, and nothing is refused
    std::set<std::string> calls;
};

const Error kErrors[] = {
    {EIO,
     false,
     {"open", "openat", "read", "pread", "write", "pwrite", "fsync", "close", "fstat", "fstatat", "readdir",
      "renameat2", "unlinkat", "readlink", "sync_file_range"}},
    {ENOSPC, false, {"openat", "write", "pwrite", "fsync", "mkdirat", "mkdtemp", "mkostemp", "renameat2"}},
    {EDQUOT, false, {"pwrite", "fsync"}},
    {EACCES,
     false,
     {"open", "openat", "fstatat", "mkdirat", "renameat2", "unlinkat", "fchmod", "fchown", "access", "faccessat",
      "opendir", "fdopendir"}},
    {EMFILE, false, {"open", "openat", "opendir", "fdopendir", "mkostemp"}},
    {EINTR, true, {"read", "pread", "write", "pwrite", "flock"}},
};

}  // namespace

TEST_F(FailingCalls, OfTheSystem) {
    const std::vector<std::string> calls = callsOfAnAttempt();
    const std::size_t files = openFiles();
    long points = 0;
    for (const Error& error : kErrors)
        for (std::size_t i = 0; i < calls.size() && !HasFatalFailure(); ++i) {
            if (!error.calls.contains(calls[i])) continue;
            const std::string when =
                calls[i] + ", call " + std::to_string(i + 1) + ": " + std::strerror(error.number);
            faults::arm(Action::fail, static_cast<long>(i) + 1, error.number);
            const std::string outcome = attempt();
            faults::arm(Action::none);
            EXPECT_TRUE(outcome.empty() || (outcome == "refused" && !error.isPassing)) << when << ": " << outcome;
            EXPECT_EQ(openFiles(), files) << when;
            expectIntact(when, calls[i] == "unlinkat");
            ++points;
        }
    RecordProperty("points", std::to_string(points));
    EXPECT_GT(points, 200);
}

TEST_F(FailingCalls, ThatMoveLessThanTheyWereAsked) {
    const std::vector<std::string> calls = callsOfAnAttempt();
    for (std::size_t i = 0; i < calls.size() && !HasFatalFailure(); ++i) {
        if (!std::set<std::string>{"read", "pread", "write", "pwrite"}.contains(calls[i])) continue;
        faults::arm(Action::shorten, static_cast<long>(i) + 1);
        const std::string outcome = attempt();
        faults::arm(Action::none);
        EXPECT_EQ(outcome, "") << calls[i] << ", call " << i + 1;
        expectIntact(calls[i]);
    }
}

/// Some file systems cannot rename without replacing.
TEST_F(FailingCalls, RenamingWithoutReplacing) {
    const std::string folder = scratch_ / "in", packed = scratch_ / "packed/x.lfa";
    scratch_.put("in/a", "text");
    fs::create_directory(scratch_ / "packed");
    faults::arm(Action::count);
    const auto& calls = faults::calls();
    std::size_t before = 0;
    HUTZip::compressDir(folder, packed, false, [&](const std::string&) { before = calls.size(); });
    const auto rename =
        std::ranges::find(calls, std::string("renameat2"), [](auto name) { return std::string(name); });
    const long at = rename - calls.begin() + 1 - static_cast<long>(before);
    fs::remove(packed);
    for (const char* there : {"", "somebody's"}) {
        const auto race = [&](const std::string&) {
            if (*there) scratch_.put("packed/x.lfa", there);
            faults::arm(Action::fail, at, EINVAL);
        };
        const auto call = [&] { HUTZip::compressDir(folder, packed, false, race); };
        if (*there) {
            EXPECT_THROW(call(), HEXUserException);
        } else {
            EXPECT_NO_THROW(call());
        }
        faults::arm(Action::none);
        EXPECT_EQ(std::distance(fs::directory_iterator(scratch_ / "packed"), fs::directory_iterator()), 1);
        EXPECT_EQ(contentOf(packed).starts_with(*there ? there : "PK"), true);
        EXPECT_EQ(fs::hard_link_count(packed), 1U);
        fs::remove(packed);
    }
}
