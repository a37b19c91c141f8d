#include "zip/HUTZip.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "kit/Replace.h"
#include "kit/Script.h"
#include "kit/ZipBuilder.h"
#include "msg/Budget.h"
#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"
#include "zip/Destination.h"
#include "zip/FileBytes.h"
#include "zip/OnDisk.h"

namespace fs = std::filesystem;

namespace {

using Tree = std::map<std::string, std::string>;

class OnDisk : public testing::Test {
protected:
    std::string at(const std::string& name) const { return scratch_ / name; }
    void writeTree(const std::string& folder, const Tree& tree) const {
        for (const auto& [name, text] : tree) scratch_.put(folder + "/" + name, text);
    }
    Tree readTree(const std::string& folder) const {
        Tree tree;
        for (const auto& entry : fs::recursive_directory_iterator(at(folder)))
            if (!entry.is_directory())
                tree[entry.path().lexically_relative(at(folder)).native()] = contentOf(entry.path());
        return tree;
    }
    /// Writes the archive "a.lfa".
    void pack(std::vector<builder::Entry> entries) const {
        scratch_.put("a.lfa", builder::archiveOf(std::move(entries)).build());
    }
    Scratch scratch_;
    const std::string dir_ = scratch_.str();
};

using PackFolder = OnDisk;
using Uncompress = OnDisk;
using Destination = OnDisk;

}  // namespace

TEST_F(PackFolder, ComesBackAsItWas) {
    std::mt19937 random(7);
    Tree tree{{"empty", ""}, {"g\xC3\xA9n/one", "1"}};
    for (int i = 0; i < 200; ++i) {
        std::string text(random() % 70'000, '\0');
        for (char& c : text) c = static_cast<char>(random() % (i % 2 ? 4 : 256));
        tree[fmt::format("d{}/f{}", random() % 9, i)] = text;
    }
    writeTree("folder", tree);
    fs::create_directories(at("folder/hollow/inner"));
    HUTZip::compressDir(at("folder") + "/", at("a.lfa"));

    HSTVector<std::string> files;
    HUTZip::getFiles(at("a.lfa"), files);
    EXPECT_TRUE(std::ranges::is_sorted(files));
    EXPECT_EQ(files.size(), tree.size() + 1);
    EXPECT_TRUE(HUTZip::containsFile(at("a.lfa"), "hollow/inner/"));
    fs::create_directory(at("out"));
    EXPECT_TRUE(HUTZip::uncompressDir(at("a.lfa"), "", at("out"), false));
    EXPECT_EQ(readTree("out"), tree);
    EXPECT_TRUE(HUTFile::isDir(at("out/hollow/inner")));
}

TEST_F(Uncompress, CountsFilesAndDirectories) {
    pack({builder::Entry("d/e/file", "x")});
    for (const bool isEnough : {false, true}) {
        fs::remove_all(at("out"));
        fs::create_directory(at("out"));
        const Budget budget;
        Budget::spend(Cost::inodes, isEnough ? 9'997 : 9'998);
        const std::string words = wordsOf([&] { HUTZip::uncompressDir(at("a.lfa"), "", at("out"), true); });
        EXPECT_EQ(words.find("more than 10000 files and directories") == std::string::npos, isEnough) << words;
        EXPECT_EQ(fs::exists(at("out/d/e/file")), isEnough);
    }
}

TEST_F(Uncompress, ADamagedMemberLeavesNoFile) {
    builder::Entry entry("x", std::string(1'000'000, 'x'));
    entry.packed.back() = 'y';
    pack({entry});
    fs::create_directory(at("out"));
    write(at("out/x"), "as it was");
    EXPECT_THROW(HUTZip::uncompressDir(at("a.lfa"), "", at("out"), true), HEXDataException);
    EXPECT_EQ(readTree("out"), (Tree{{"x", "as it was"}}));
}

/// Devices and pipes are written to or refused, but never replaced by a file.
TEST_F(Destination, StreamsStayWhatTheyAre) {
    writeTree("folder", {{"x", "1"}});
    HUTZip::compressDir(at("folder"), "/dev/null");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    pack({builder::Entry("pipe", "new")});
    ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
    EXPECT_THROW(HUTZip::uncompressDir(at("a.lfa"), "", dir_, true), HEXUserException);
    EXPECT_TRUE(fs::is_fifo(at("pipe")));

    const int reader = ::open(at("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    HUTZip::compressDir(at("folder"), at("pipe"));
    char bytes[4] = {};
    EXPECT_EQ(::read(reader, bytes, 4), 4);
    EXPECT_EQ(std::string(bytes, 4), "PK\3\4");
    // Without the permission to replace, it may be one that somebody else has made since the destination was checked.
    EXPECT_NE(wordsOf([&] {
                  zip::writeDestination(
                      at("pipe"), [](const auto& take) { take("x"); }, false);
              }).find("File exists"),
              std::string::npos);
    const auto isEnd = [reader](const std::function<void(std::string_view)>& take) {
        ::close(reader);
        take("nobody reads this");
    };
    ::signal(SIGPIPE, SIG_DFL);  // would end this process
    EXPECT_NE(wordsOf([&] { zip::writeDestination(at("pipe"), isEnd); }).find("Broken pipe"), std::string::npos);

    const int standard = ::dup(1), out = ::open(at("out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ::dup2(out, 1);
    zip::writeDestination("/dev/stdout", [](const auto& take) { take("to the descriptor"); });
    ::dup2(standard, 1);
    for (const int file : {standard, out}) ::close(file);
    EXPECT_TRUE(fs::is_symlink("/dev/stdout"));
    EXPECT_EQ(contentOf(at("out")), "to the descriptor");
}

/// A folder that is swapped for a link again and again while it is packed.
TEST_F(PackFolder, TakesNothingFromElsewhere) {
    writeTree("in", {{"a/sub/x", "inside"}});
    writeTree("outside/sub", {{"x", "outside"}});
    fs::create_directory_symlink("../outside", at("in.link"));
    std::atomic<bool> isDone = false;
    std::thread swapper([&] {
        while (!isDone) ::renameat2(AT_FDCWD, at("in/a").c_str(), AT_FDCWD, at("in.link").c_str(), RENAME_EXCHANGE);
    });
    for (int i = 0; i < 200; ++i) {
        if (wordsOf([&] { HUTZip::compressDir(at("in"), at("a.lfa")); }) != "nothing was thrown") continue;
        for (const auto& [name, data] : contentsOf(at("a.lfa"))) EXPECT_EQ(data, "inside") << name;
    }
    isDone = true;
    swapper.join();
}

/// A worker that ends by `_exit` runs no destructors of statics.
TEST_F(PackFolder, KeepsNoTemporaryDirectory) {
    writeTree("in", {{"x.tilprj/y.zip/z", "1"}});
    fs::create_directory(at("tmp"));
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("TMPDIR", at("tmp").c_str(), 1);
        HUTZip::compressDir(at("in"), at("a.lfa"));
        const auto kept = zip::FileBytes::makeTemporary();
        ::_exit(0);
    }
    int status = 1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(fs::is_empty(at("tmp")));
}

TEST_F(Destination, DoesNotFollowALinkAtItsTemporaryName) {
    write(at("real"), "old");
    fs::create_symlink("real", at(".zr-edit-" + std::to_string(::getpid()) + "-0"));
    zip::writeDestination(at("new"), [](const auto& take) { take("bytes"); });
    EXPECT_EQ(contentOf(at("new")), "bytes");
    EXPECT_EQ(contentOf(at("real")), "old");
}

TEST_F(Destination, TakesAFileWithoutCopyingIt) {
    write(at("made"), "new");
    write(at("old"), "old");
    struct stat made {
    }, moved{};
    ::stat(at("made").c_str(), &made);
    EXPECT_THROW(zip::moveToDestination(at("made"), at("old"), false), HEXUserException);
    EXPECT_EQ(contentOf(at("old")), "old");
    zip::moveToDestination(at("made"), at("old"), true);
    ::stat(at("old").c_str(), &moved);
    EXPECT_EQ(moved.st_ino, made.st_ino);
    zip::moveToDestination(at("old"), "/dev/null", true);
    EXPECT_EQ(contentOf(at("old")), "new") << "nothing is renamed to a device";
}

namespace {

/// Files of a case, and what is done to them.
struct Disk {
    std::string at(const std::string& name) const {
        return name.empty() || name.starts_with('/') ? name : scratch / name;
    }
    const Scratch scratch;
    std::map<std::string, std::string> remembered;  ///< files, by name
};
using script::Arguments;

/// All that lies below a directory, except the bytes of archives.
std::string tree(Disk& disk, const Arguments& arguments) {
    const std::string root = disk.at(arguments[0]);
    std::set<std::string> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string name = entry.path().lexically_relative(root).native();
        const bool isFolder = entry.is_directory() && !entry.is_symlink();
        if (entry.is_symlink())
            found.insert(name + "@" + fs::read_symlink(entry.path()).native());
        else if (isFolder && fs::is_empty(entry.path()))
            found.insert(name + "/");
        else if (!isFolder && contentOf(entry.path()).starts_with("PK"))
            found.insert(name);
        else if (!isFolder)
            found.insert(name + "=" + contentOf(entry.path()));
    }
    return script::shown(found);
}

/// Whether all files are as they were when this was called last.
std::string areAsBefore(Disk& disk, const Arguments&) {
    std::map<std::string, std::string> found;
    for (const std::string& name : disk.scratch.names())
        found[name] = fs::is_regular_file(disk.at(name)) ? contentOf(disk.at(name)) : "";
    return script::shown(std::exchange(disk.remembered, found) == found);
}

std::string pack(Disk& disk, const Arguments& arguments) {
    std::vector<builder::Entry> entries;
    for (std::size_t i = 0; i + 2 < arguments.size(); i += 3) {
        entries.emplace_back(arguments[i], arguments[i + 1]);
        entries.back().mode = static_cast<std::uint32_t>(std::stoul(arguments[i + 2], nullptr, 8));
    }
    disk.scratch.put("a.lfa", builder::archiveOf(std::move(entries)).build());
    return "";
}

std::string writeFile(Disk& disk, const Arguments& arguments) {
    const std::string how = arguments.size() > 2 ? arguments[2] : "";
    zip::writeDestination(
        disk.at(arguments[0]),
        [&](const std::function<void(std::string_view)>& take) {
            for (const char& c : arguments[1]) take({&c, 1});
            if (how == "fails") throw HEXDataException("stop");
            if (how == "races") disk.scratch.put(arguments[0], "first");
        },
        how != "keep" && how != "races");
    return "";
}

std::string digest(Disk& disk, const Arguments& a) {
    const HUTZip::Verification found = HUTZip::verify(disk.at(a[0]));
    return std::string(found.digest == HUTZip::DigestState::valid ? "valid" : "") + (found.isSound() ? " sound" : "");
}

script::Calls<Disk> callsOfADisk() {
    using Step = HUTZip::Step;
    using script::shown;
    script::Calls<Disk> calls{
        {"put", [](Disk& d, const Arguments& a) { return d.scratch.put(a[0], a[1]), ""; }},
        {"folder", [](Disk& d, const Arguments& a) { return fs::create_directories(d.at(a[0])), ""; }},
        {"link", [](Disk& d, const Arguments& a) { return fs::create_symlink(a[1], d.at(a[0])), ""; }},
        {"hardLink", [](Disk& d, const Arguments& a) { return fs::create_hard_link(d.at(a[1]), d.at(a[0])), ""; }},
        {"pipe", [](Disk& d, const Arguments& a) { return shown(::mkfifo(d.at(a[0]).c_str(), 0600) == 0); }},
        {"areAsBefore", areAsBefore},
        {"tree", tree},
        {"others", [](Disk& d, const Arguments& a) { return shown(statOf(d.at(a[0])).st_mode & 07133); }},
        {"pack", pack},
        {"write", writeFile},
        {"digest", digest},
        {"compressDir",
         [](Disk& d, const Arguments& a) { return HUTZip::compressDir(d.at(a[0]), d.at(a[1]), a.size() < 3), ""; }},
        {"uncompressDir",
         [](Disk& d, const Arguments& a) {
             return shown(HUTZip::uncompressDir(d.at(a[0]), a[1], d.at(a[2]), a.size() < 4));
         }},
        {"uncompress",
         [](Disk& d, const Arguments& a) {
             return shown(HUTZip::uncompress(d.at(a[0]), a[1], d.at(a[2]), a.size() < 4));
         }},
        {"create",
         [](Disk& d, const Arguments& a) {
             return HUTZip::compress(d.at(a[0]), d.at(a[1]), Step::create, a[2]), "";
         }},
        {"append",
         [](Disk& d, const Arguments& a) {
             return HUTZip::compress(d.at(a[0]), d.at(a[1]), Step::append, a[2]), "";
         }},
        {"delete",
         [](Disk& d, const Arguments& a) {
             return shown(HUTZip::deleteFilesFromZip(d.at(a[0]), {a.begin() + 1, a.end()}));
         }},
        {"contains", [](Disk& d, const Arguments& a) { return shown(HUTZip::containsFile(d.at(a[0]), a[1])); }},
        {"members",
         [](Disk& d, const Arguments& a) {
             HSTVector<std::string> names;
             return HUTZip::getFiles(d.at(a[0]), names), shown(names);
         }},
    };
    for (auto& [name, call] : calls)
        call = [call](Disk& disk, const Arguments& arguments) -> std::string {
            try {
                return call(disk, arguments);
            } catch (const HEXAll& e) {
                const char* const kind = dynamic_cast<const HEXDataException*>(&e) ? "data: " : "user: ";
                return kind + replaced(e.what(), disk.scratch.str(), "DIR");
            }
        };
    return calls;
}

}  // namespace

TEST(Files, Calls) { script::expectCalls<Disk>(ZR_SOURCE_DIR "/tests/cases/zip/files.case", callsOfADisk()); }
