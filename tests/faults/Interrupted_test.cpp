// Changes of an archive that are killed, or whose machine loses power: whoever looks afterwards finds the old archive
// or the new one.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <platform/HTEQHardwarePlatform.h>
#include <platform/HTEQPlatform.h>
#include <platform/PlatformLoader.h>
#include <zip/HUTZip.h>

#include "kit/Faults.h"
#include "kit/Platforms.h"
#include "kit/Run.h"

namespace fs = std::filesystem;
using faults::Action;
using faults::Event;

namespace {

/// An archive reached through a link, a file to put into it and a folder to pack, each alone in its directory.
class Place {
public:
    Place() {
        fs::create_directory(scratch_ / "there");
        packed(scratch_, "there/x.lfa",
               {{"lfa.json", R"({"name": "n"})"}, {"bit/full.bit", std::string(50'000, 'b')}});
        old_ = contentOf(archive());
        fs::create_symlink("there/x.lfa", link());
        scratch_.put("in/lfa.json", R"({"name": "packed"})");
        scratch_.put("in/tcl/x.tcl", "puts packed");
        scratch_.put("source", std::string(30'000, 's') + "end");
    }
    std::string archive() const { return scratch_ / "there/x.lfa"; }
    std::string link() const { return scratch_ / "x.lfa"; }
    std::string source() const { return scratch_ / "source"; }
    std::string folder() const { return scratch_ / "in"; }
    const std::string& old() const { return old_; }

    /// Without a digest: it is the comment, which is cut off with its size.
    void dropDigest() {
        old_.resize(old_.find("zr-digest:"));
        old_[old_.size() - 2] = old_[old_.size() - 1] = 0;
    }
    void restore() const {
        scratch_.put("there/x.lfa", old_);
        fs::permissions(archive(), static_cast<fs::perms>(0640));
    }
    std::vector<std::string> besides() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(scratch_ / "there")) names.push_back(entry.path().filename());
        return names;
    }

private:
    Scratch scratch_;
    std::string old_;
};

std::shared_ptr<HTEQPlatform> loaded(const Place& place) {
    return teq_platform::PlatformLoader(place.link(), teq_platform::HwMetadataMode::Default).load();
}
void writeMetadata(const Place& place) { loaded(place)->getHardwarePlatform()->writeToJSON(); }
void archiveFile(const Place& place) {
    loaded(place)->getHardwarePlatform()->archiveFile("DCP", "dcp/x.dcp", place.source());
}
void attachDigest(const Place& place) { HUTZip::attachDigestEn(place.link()); }
void pack(const Place& place) { HUTZip::compressDir(place.folder(), place.archive()); }

using Arguments = std::vector<std::string>;
Arguments setFileVerb(const Place& place) {
    return {"set-file", place.link(), "DCP", "dcp/x.dcp", place.source(), "--force"};
}
Arguments packVerb(const Place& place) { return {"pack", place.folder(), place.archive(), "--force", "--quiet"}; }

struct Change {
    const char* name;
    void (*make)(const Place&);       ///< by the library, or
    Arguments (*verb)(const Place&);  ///< by the tool
    bool hasDigest = true;            ///< the archive before it
    bool keepsMode = true;
};
void PrintTo(const Change& change, std::ostream* out) { *out << change.name; }

constexpr Change kChanges[] = {
    {"writeToJSON", writeMetadata, nullptr},
    {"archiveFile", archiveFile, nullptr},
    {"attachDigest", attachDigest, nullptr, false},
    {"compressDir", pack, nullptr, true, false},
    {"set_file", nullptr, setFileVerb},
    {"pack", nullptr, packVerb, true, false},
};

/// More of everything when the long tests are run.
bool isLong() { return std::getenv("ZR_LONG") != nullptr; }

class Interrupted : public testing::TestWithParam<Change> {
protected:
    Interrupted() {
        if (!GetParam().hasDigest) place_.dropDigest();
        place_.restore();
        EXPECT_FALSE(isKilled("")) << "nothing stops it";
        new_ = contentOf(place_.archive());
        EXPECT_NE(new_, place_.old());
        EXPECT_TRUE(HUTZip::verify(place_.archive()).isSound());
        place_.restore();
    }
    /// Makes the change in a child. `fault`: ZR_FAULT of Faults.h; `patience`: it is killed after so long, if not 0.
    bool isKilled(const std::string& fault, std::chrono::microseconds patience = {}) const {
        const pid_t child = ::fork();
        if (child == 0) {
            if (GetParam().make) {
                faults::armBy(fault.c_str());
                GetParam().make(place_);
                ::_exit(0);
            }
            Arguments arguments = GetParam().verb(place_);
            std::vector<char*> argv{const_cast<char*>(ZR_TOOL)};
            for (std::string& argument : arguments) argv.push_back(argument.data());
            argv.push_back(nullptr);
            ::setenv("LD_PRELOAD", ZR_FAULTS, 1);
            ::setenv("ZR_FAULT", fault.c_str(), 1);
            ::close(2);
            ::execv(ZR_TOOL, argv.data());
            ::_exit(127);
        }
        if (patience.count() > 0) {
            ::usleep(static_cast<useconds_t>(patience.count()));
            ::kill(child, SIGKILL);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0) << fault;
        return WIFSIGNALED(status);
    }
    /// A reader finds a complete archive, and the next change leaves no other files.
    void expectOldOrNew(const std::string& when) const {
        const std::string found = contentOf(place_.archive());
        ASSERT_TRUE(found == place_.old() || found == new_) << when;
        struct stat status {};
        ASSERT_EQ(::stat(place_.archive().c_str(), &status), 0);
        if (GetParam().keepsMode) {
            EXPECT_EQ(status.st_mode & 07777, 0640U) << when;
        }
        EXPECT_TRUE(fs::is_symlink(place_.link())) << when;
        archiveFile(place_);
        ASSERT_EQ(place_.besides(), std::vector<std::string>{"x.lfa"}) << when;
    }
    Place place_;
    std::string new_;
};

}  // namespace

TEST_P(Interrupted, KilledAtEachCall) {
    long call = 0;
    for (bool isDone = false; !isDone && !HasFatalFailure();) {
        place_.restore();
        isDone = !isKilled("kill:" + std::to_string(++call));
        expectOldOrNew("killed instead of call " + std::to_string(call));
    }
    RecordProperty("calls", std::to_string(call - 1));
    EXPECT_GT(call, 20);
}

TEST_P(Interrupted, KilledAtAnyMoment) {
    if (!isLong()) GTEST_SKIP() << "one of the long tests";
    constexpr int kTimes = 2'000 / std::size(kChanges) + 1;
    place_.restore();
    const auto begun = std::chrono::steady_clock::now();
    isKilled("");
    const auto took = std::chrono::steady_clock::now() - begun;
    std::mt19937 random(1);
    std::uniform_int_distribution<long> moment(
        1, std::chrono::duration_cast<std::chrono::microseconds>(took).count() * 5 / 4);
    for (int i = 0; i < kTimes && !HasFatalFailure(); ++i) {
        place_.restore();
        isKilled("", std::chrono::microseconds(moment(random)));
        expectOldOrNew("time " + std::to_string(i));
    }
}

INSTANTIATE_TEST_SUITE_P(EachChange, Interrupted, testing::ValuesIn(kChanges),
                         [](const auto& info) { return std::string(info.param.name); });

namespace {

/// A directory of files as a disk may hold it after the power went: of what was not synced, any part.
class Disk {
public:
    Disk(std::string name, ino_t file, std::string bytes) : names_{{std::move(name), file}} {
        files_[file] = std::move(bytes);
    }
    /// Applies an event; the bytes of a write that is lost are zeros, or nothing where they were the file's end.
    void apply(const Event& event, bool isLost) {
        using Kind = Event::Kind;
        switch (event.kind) {
            case Kind::create: names_[event.name] = event.file; break;
            case Kind::write: write_(files_[event.file], event, isLost); break;
            case Kind::cut: files_[event.file].resize(event.offset); break;
            case Kind::rename:
                names_[event.newName] = names_[event.name];
                names_.erase(event.name);
                break;
            case Kind::unlink: names_.erase(event.name); break;
            case Kind::sync: break;
        }
    }
    const std::string& at(const std::string& name) { return files_[names_[name]]; }

private:
    static void write_(std::string& bytes, const Event& event, bool isLost) {
        const std::size_t end = event.offset + event.bytes.size();
        if (isLost) return;
        if (bytes.size() < end) bytes.resize(end);
        bytes.replace(event.offset, event.bytes.size(), event.bytes);
    }
    std::map<std::string, ino_t> names_;
    std::map<ino_t, std::string> files_;
};

bool isOfName(const Event& event) {
    return event.kind == Event::Kind::create || event.kind == Event::Kind::rename ||
           event.kind == Event::Kind::unlink;
}

/// Power goes after some of the events.
class PowerLoss {
public:
    PowerLoss(const std::vector<Event>& events, std::size_t count, ino_t directory) : events_(events), count_(count) {
        for (std::size_t i = 0; i < count; ++i) {
            const bool isData = events[i].kind == Event::Kind::write;
            const ino_t waitsFor = isData ? events[i].file : directory;
            bool isSynced = false;
            for (std::size_t j = i; j < count; ++j)
                isSynced |= events[j].kind == Event::Kind::sync && events[j].file == waitsFor;
            if (!isSynced && (isData || isOfName(events[i]))) unsynced_.push_back(i);
        }
    }
    std::size_t unsynced() const { return unsynced_.size(); }

    /// The archive after losing the unsynced events that `isLost` selects. Changes of names arrive in order: those after
    /// a lost one are lost too.
    std::string after(Disk disk, const std::function<bool(std::size_t)>& isLost) const {
        bool namesAreLost = false;
        for (std::size_t i = 0; i < count_; ++i) {
            const auto at = std::find(unsynced_.begin(), unsynced_.end(), i);
            bool lost = at != unsynced_.end() && isLost(static_cast<std::size_t>(at - unsynced_.begin()));
            if (isOfName(events_[i])) lost = namesAreLost |= lost;
            if (!lost || !isOfName(events_[i])) disk.apply(events_[i], lost);
        }
        return disk.at("x.lfa");
    }

private:
    const std::vector<Event>& events_;
    std::size_t count_;
    std::vector<std::size_t> unsynced_;
};

ino_t inodeOf(const std::string& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return status.st_ino;
}

}  // namespace

TEST(PowerLoss, LeavesTheOldOrTheNewArchive) {
    const std::size_t most = isLong() ? 2'000 : 200;
    std::size_t states = 0;
    for (void (*change)(const Place&) : {writeMetadata, archiveFile, attachDigest, pack}) {
        Place place;
        if (change == attachDigest) place.dropDigest();
        place.restore();
        const Disk before("x.lfa", inodeOf(place.archive()), place.old());
        const ino_t directory = inodeOf(fs::path(place.archive()).parent_path());
        faults::startLog();
        change(place);
        const std::vector<Event> events = faults::takeLog();
        const std::string now = contentOf(place.archive());
        ASSERT_NE(now, place.old());

        std::mt19937 random(1);
        for (std::size_t count = 0; count <= events.size(); ++count) {
            const PowerLoss loss(events, count, directory);
            const auto check = [&](const std::function<bool(std::size_t)>& isLost) {
                const std::string found = loss.after(before, isLost);
                ASSERT_TRUE(found == place.old() || found == now) << "after event " << count;
                ++states;
            };
            check([](std::size_t) { return true; });
            check([](std::size_t) { return false; });
            for (std::size_t one = 0; one < loss.unsynced(); ++one) {
                check([one](std::size_t i) { return i == one; });
                check([one](std::size_t i) { return i != one; });
            }
            for (std::size_t i = 0; loss.unsynced() > 0 && i < most / events.size(); ++i)
                check([&random](std::size_t) { return random() % 2 == 0; });
        }
        EXPECT_EQ(PowerLoss(events, events.size(), directory).after(before, [](std::size_t) { return true; }), now)
            << "what has returned stays";
    }
    EXPECT_GE(states, most);
    RecordProperty("states", std::to_string(states));
}
