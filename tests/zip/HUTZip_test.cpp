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
#include <thread>

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

TEST_F(PackFolder, RefusesAndLeavesNothing) {
    writeTree("deep", {{"a.zip/b.zip/c.zip/d", "x"}});
    writeTree("named", {{"back\\slash", "x"}});
    writeTree("linked", {{"file", "x"}});
    fs::create_symlink("file", at("linked/link"));
    fs::create_directory(at("empty"));
    writeTree("hollow", {{"file", "x"}});
    fs::create_directory(at("hollow/x.zip"));
    const struct {
        const char *folder, *words;
    } cases[] = {
        {"deep", "at most two deep"},
        {"named", "backslash"},
        {"linked", "neither a file nor a folder"},
        {"empty", "empty"},
        {"hollow", "empty"},
        {"nowhere", "not a folder"},
        {"linked/file", "is not a folder"},
    };
    write(at("a.lfa"), "as it was");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.folder);
        const std::string words = wordsOf([&] { HUTZip::compressDir(at(c.folder), at("a.lfa")); });
        EXPECT_NE(words.find(c.words), std::string::npos) << words;
        EXPECT_EQ(contentOf(at("a.lfa")), "as it was");
        EXPECT_FALSE(HUTFile::exists(at("a.lfa.new")));
    }
    EXPECT_THROW(HUTZip::compressDir(at("hollow"), at("a.lfa"), false), HEXUserException);
    EXPECT_THROW(HUTZip::compressDir(at("linked"), at("no/such/a.lfa")), HEXUserException);
}

TEST_F(Uncompress, OneDirectory) {
    builder::Entry setId("board/a", "A");
    setId.mode = 0104777;
    pack({setId, builder::Entry("board/deep/b", "B", true), builder::Entry("board2/c", "C"),
          builder::Entry("board/none/")});
    fs::create_directory(at("out"));
    EXPECT_TRUE(HUTZip::uncompressDir(at("a.lfa"), "board", at("out"), true));
    EXPECT_EQ(readTree("out"), (Tree{{"board/a", "A"}, {"board/deep/b", "B"}}));
    EXPECT_TRUE(HUTFile::isDir(at("out/board/none")));
    EXPECT_EQ(statOf(at("out/board/a")).st_mode & 07133, 0U)
        << "no set-id, nothing to execute, nothing for others to write";

    write(at("out/board/a"), "changed");
    EXPECT_THROW(HUTZip::uncompressDir(at("a.lfa"), "board", at("out"), false), HEXUserException);
    EXPECT_EQ(contentOf(at("out/board/a")), "changed");
    EXPECT_TRUE(HUTZip::uncompressDir(at("a.lfa"), "board/", at("out"), true));
    EXPECT_EQ(contentOf(at("out/board/a")), "A");
    EXPECT_FALSE(HUTZip::uncompressDir(at("a.lfa"), "boar", at("out"), true));
    EXPECT_THROW(HUTZip::uncompressDir(at("a.lfa"), "board", at("nowhere"), true), HEXUserException);
}

TEST_F(Uncompress, OneMemberAtATime) {
    writeTree("in", {{"a", "A"}, {"b", "B"}, {"c", "C"}});
    using Step = HUTZip::Step;
    write(at("x.zip"), "older");
    HUTZip::compress(at("in/a"), at("x.zip"), Step::create, "deep/a");
    HUTZip::compress(at("in/b"), at("x.zip"), Step::append);
    HUTZip::compress(at("in/c"), at("x.zip"), Step::append, "b");
    EXPECT_EQ(HUTZip::verify(at("x.zip")).digest, HUTZip::DigestState::valid);
    EXPECT_TRUE(HUTZip::verify(at("x.zip")).isSound());
    fs::create_directory(at("out"));
    for (const std::string member : {"deep/a", "b"})
        EXPECT_TRUE(HUTZip::uncompress(at("x.zip"), member, at("out"), false));
    EXPECT_FALSE(HUTZip::uncompress(at("x.zip"), "none", at("out"), true));
    EXPECT_THROW(HUTZip::uncompress(at("x.zip"), "b", at("out"), false), HEXUserException);
    EXPECT_EQ(readTree("out"), (Tree{{"deep/a", "A"}, {"b", "C"}}));

    EXPECT_EQ(HUTZip::deleteFilesFromZip(at("x.zip"), {"b", "none", "b"}), 1U);
    EXPECT_FALSE(HUTZip::containsFile(at("x.zip"), "b"));
    EXPECT_EQ(HUTZip::verify(at("x.zip")).digest, HUTZip::DigestState::valid);
    EXPECT_THROW(HUTZip::deleteFilesFromZip(at("x.zip"), {"deep/a"}), HEXUserException) << "none would be left";
    EXPECT_THROW(HUTZip::compress(at("in/a"), at("x.zip"), Step::append, "../a"), HEXUserException);
    EXPECT_THROW(HUTZip::compress(at("in/none"), at("new.zip"), Step::create), HEXUserException);
    EXPECT_TRUE(HUTZip::containsFile(at("x.zip"), "deep/a"));
    EXPECT_FALSE(HUTFile::exists(at("new.zip")));
}

TEST_F(Uncompress, NothingLeavesTheDirectory) {
    write(at("outside/file"), "as it was");
    fs::create_directory(at("out"));
    fs::create_directory_symlink("../outside", at("out/link"));
    fs::create_symlink("../outside/file", at("out/file"));
    const struct {
        const char *name, *words;
        std::uint32_t mode;
    } cases[] = {
        {"../outside/file", "'..'", 0100644},   {"/tmp/zr", "is absolute", 0100644},
        {"a\\..\\b", "backslash", 0100644},     {"link/file", "cannot be used", 0100644},
        {"new", "a link or a device", 0120777}, {"data/", "has data", 040755},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        builder::Entry entry(c.name, "hostile");
        entry.mode = c.mode;
        pack({entry});
        const std::string words = wordsOf([&] { HUTZip::uncompressDir(at("a.lfa"), "", at("out"), true); });
        EXPECT_NE(words.find(c.words), std::string::npos) << words;
    }
    pack({builder::Entry("file", "new")});
    EXPECT_TRUE(HUTZip::uncompressDir(at("a.lfa"), "", at("out"), true));
    EXPECT_FALSE(fs::is_symlink(at("out/file"))) << "the link is replaced, not followed";
    EXPECT_EQ(readTree("outside"), (Tree{{"file", "as it was"}}));
    fs::remove(at("out/link"));
    EXPECT_EQ(readTree("out"), (Tree{{"file", "new"}})) << "nothing half written stays";
}

TEST_F(Uncompress, CountsFilesAndDirectories) {
    pack({builder::Entry("d/e/file", "x")});
    for (const bool isEnough : {false, true}) {
        fs::remove_all(at("out"));
        fs::create_directory(at("out"));
        const Budget budget;
        Budget::spend(Cost::inodes, isEnough ? 19'997 : 19'998);
        const std::string words = wordsOf([&] { HUTZip::uncompressDir(at("a.lfa"), "", at("out"), true); });
        EXPECT_EQ(words.find("more than 20000 files and directories") == std::string::npos, isEnough) << words;
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

TEST_F(Uncompress, QuestionsToWhatIsNoArchive) {
    write(at("text"), "no archive");
    HSTVector<std::string> files;
    for (const std::string& path : {at("text"), at("nowhere"), dir_}) {
        EXPECT_FALSE(HUTZip::containsFile(path, "x")) << path;
        EXPECT_THROW(HUTZip::getFiles(path, files), HEXDataException);
        EXPECT_THROW(HUTZip::uncompressDir(path, "", dir_, true), HEXDataException);
    }
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

TEST_F(Destination, WholeOrNotAtAll) {
    using Take = std::function<void(std::string_view)>;
    const auto fill = [](const Take& take) { take("one "), take("two"); };
    const auto failing = [](const Take& take) {
        take("half");
        throw HEXDataException("stop");
    };
    zip::writeDestination(at("new"), fill);
    EXPECT_EQ(contentOf(at("new")), "one two");
    EXPECT_THROW(zip::writeDestination(at("new"), failing), HEXDataException);
    EXPECT_EQ(contentOf(at("new")), "one two");
    EXPECT_THROW(zip::writeDestination(at("other"), failing), HEXDataException);

    // A link, which somebody else may have placed, is not followed.
    write(at("real"), "old");
    fs::create_symlink("real", at("link"));
    fs::create_symlink("nothing", at("dangling"));
    EXPECT_THROW(zip::writeDestination(at("link"), fill, false), HEXUserException);
    EXPECT_THROW(zip::writeDestination(at("dangling"), fill, false), HEXUserException);
    EXPECT_TRUE(fs::remove(at("dangling")));
    zip::writeDestination(at("link"), fill);
    EXPECT_FALSE(fs::is_symlink(at("link")));
    EXPECT_EQ(contentOf(at("link")), "one two");
    const std::string waiting = at(".zr-edit-" + std::to_string(::getpid()) + "-0");  // where the next one is made
    fs::create_symlink("real", waiting);
    zip::writeDestination(at("new"), fill);
    EXPECT_EQ(contentOf(at("real")), "old");
    fs::remove(waiting);
    const auto losing = [&](const Take& take) {  // a race against a file that appears in the meantime
        take("late");
        write(at("raced"), "first");
    };
    EXPECT_THROW(zip::writeDestination(at("raced"), losing, false), HEXUserException);
    EXPECT_EQ(contentOf(at("raced")), "first");
    fs::remove(at("raced"));
    EXPECT_EQ(contentOf(at("real")), "old");
    zip::writeDestination("/dev/null", fill);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    for (const std::string& path : {dir_, at("no/such"), at("real/x"), at("dir/"), std::string()})
        EXPECT_THROW(zip::writeDestination(path, fill), HEXUserException) << path;
    EXPECT_EQ(readTree("").size(), 3U) << "new, real, link; nothing half written";
}
