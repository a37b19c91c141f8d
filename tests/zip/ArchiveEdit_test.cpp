#include "zip/ArchiveEdit.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <thread>
#include <vector>

#include "kit/ZipCases.h"
#include "zip/ArchiveError.h"
#include "zip/HUTZip.h"
#include "zip/OnDisk.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using zip::ArchiveEdit;

namespace {

class Edit : public testing::Test {
protected:
    void SetUp() override { scratch_.put("a.lfa", mixedZip().build()); }

    std::string archive() const { return scratch_ / "a.lfa"; }
    void putAndCommit(const std::string& member, const std::string& bytes) const {
        ArchiveEdit edit(archive());
        edit.put(member, bytes);
        edit.commit();
    }
    /// The archive is byte for byte as it was, and nothing lies beside it but `others`.
    void expectUntouched(const std::string& before, const std::vector<std::string>& others = {}) const {
        EXPECT_EQ(contentOf(archive()), before);
        std::vector<std::string> names{"a.lfa"};
        names.insert(names.end(), others.begin(), others.end());
        std::ranges::sort(names);
        EXPECT_EQ(scratch_.names(), names);
    }
    Scratch scratch_;
};

/// Runs `body` in a child and gives what it returns.
int inChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        int code = 99;
        try {
            code = body();
        } catch (...) {
        }
        _exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string packedBytes(const std::string& path, const std::string& member) {
    const zip::Archive archive(path);
    const zip::Member* const found = archive.find(member);
    std::string bytes(found->packedSize, '\0');
    EXPECT_TRUE(archive.bytes().read(found->headerOffset + 30 + found->name.size(), bytes.data(), bytes.size()));
    return bytes;
}

}  // namespace

TEST_F(Edit, AddsReplacesAndRemovesAtOnce) {
    const std::string source = scratch_.put("source", std::string(1'000'000, 's') + "end");
    Contents expected = contentsOf(archive());
    const std::string packed = packedBytes(archive(), "bit/full.bit");
    {
        ArchiveEdit edit(archive());
        edit.put("lfa.json", std::string("first"));
        edit.put("lfa.json", std::string("{\"a\": 1}"));
        edit.put("new/z", zip::SourceFile(source));
        edit.put("new/b", std::string());
        edit.put("gone", std::string("x"));
        EXPECT_TRUE(edit.remove("gone"));
        EXPECT_TRUE(edit.remove("a.tcl"));
        EXPECT_FALSE(edit.remove("a.tcl"));
        EXPECT_FALSE(edit.remove("nobody"));
        EXPECT_EQ(contentsOf(archive()), expected) << "nothing is written before the commit";
        edit.commit();
    }
    expected["lfa.json"] = "{\"a\": 1}";
    expected["new/z"] = contentOf(source);
    expected["new/b"] = "";
    expected.erase("a.tcl");
    EXPECT_EQ(contentsOf(archive()), expected);
    EXPECT_EQ(packedBytes(archive(), "bit/full.bit"), packed) << "what is not changed stays as it was packed";

    HSTVector<std::string> order;
    HUTZip::getFiles(archive(), order);
    EXPECT_EQ(order, (HSTVector<std::string>{"lfa.json", "bit/full.bit", "dir/", "new/b", "new/z"}));
    const zip::Archive made(archive());
    for (const zip::Member& member : made.members())
        EXPECT_EQ(member.mode, member.isDirectory() ? 040755U : 0100644U) << member.name;
    EXPECT_EQ(scratch_.names(), (std::vector<std::string>{"a.lfa", "source"}));
}

TEST_F(Edit, TheSameChangeGivesTheSameBytes) {
    fs::copy_file(archive(), scratch_ / "b.lfa");
    fs::last_write_time(archive(), fs::file_time_type::clock::now() - 24h);
    putAndCommit("x", "text");
    ::setenv("TZ", "Asia/Tokyo", 1);
    const std::string first = contentOf(archive());
    fs::rename(scratch_ / "b.lfa", archive());
    putAndCommit("x", "text");
    ::unsetenv("TZ");
    EXPECT_EQ(contentOf(archive()), first);
}

/// Forms that other writers use, whose rows are written anew but not their packed bytes.
TEST_F(Edit, ForeignFormsStayReadable) {
    const std::string stamp = builder::extra(0x5455, std::string("\1\0\0\0\0", 5));
    std::vector<builder::Zip> zips(5, mixedZip());
    zips[0].entries[1].both(&builder::Header::flags, 1 << 11);
    zips[1].entries[1].both(&builder::Header::extra, stamp);
    zips[2].entries[1].both(&builder::Header::name, "n\xC3\xA4me").both(&builder::Header::flags, 1 << 11);
    zips[2].entries[0].both(&builder::Header::name, "n\x84me");
    zips[3].isZip64 = true;
    builder::moveAfter(zips[4].entries[1], "signed4");
    for (std::size_t i = 0; i < zips.size(); ++i) {
        SCOPED_TRACE(i);
        zips[i].comment = "made by hand";
        scratch_.put("a.lfa", zips[i].build());
        Contents expected = contentsOf(archive());
        putAndCommit("a.tcl", "changed");
        expected["a.tcl"] = "changed";
        EXPECT_EQ(contentsOf(archive()), expected);
        EXPECT_EQ(zip::Archive(archive()).comment(), "made by hand");
    }
}

TEST_F(Edit, KeepsModeOwnerAndLink) {
    fs::create_directory(scratch_ / "real");
    fs::rename(archive(), scratch_ / "real/x.lfa");
    fs::create_symlink("real/x.lfa", archive());
    ASSERT_EQ(::chmod((scratch_ / "real/x.lfa").c_str(), 0640), 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown((scratch_ / "real/x.lfa").c_str(), 1234, 2345), 0);
    }
    const struct stat before = statOf(archive());
    putAndCommit("x", "1");
    const struct stat after = statOf(archive());
    EXPECT_TRUE(fs::is_symlink(archive()));
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(contentsOf(scratch_ / "real/x.lfa").at("x"), "1");
}

/// Whoever was denied access stays denied, and nobody gains any by a list that new files in the directory get.
TEST_F(Edit, KeepsAccessListAndAttributes) {
    const auto entry = [](int tag, int rights, std::uint64_t id) {
        return builder::le(static_cast<std::uint64_t>(tag), 2) + builder::le(static_cast<std::uint64_t>(rights), 2) +
               builder::le(id, 4);
    };
    constexpr std::uint64_t kNobody = 0xFFFFFFFF;
    const std::string list = builder::le(2, 4) + entry(1, 6, kNobody) + entry(2, 6, 1234) + entry(4, 0, kNobody) +
                             entry(16, 6, kNobody) + entry(32, 0, kNobody);
    const auto valueOf = [this](const char* name) {
        char value[256];
        const ssize_t size = ::getxattr(archive().c_str(), name, value, sizeof value);
        return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
    };
    const auto set = [](const std::string& path, const char* name, const std::string& value) {
        return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
    };
    constexpr const char* kList = "system.posix_acl_access";
    if (!set(scratch_.str(), "system.posix_acl_default", list)) GTEST_SKIP() << "the file system has no lists";
    ASSERT_EQ(::chmod(archive().c_str(), 0604), 0);
    putAndCommit("x", "1");
    EXPECT_EQ(valueOf(kList), "none") << "that of the directory";
    EXPECT_EQ(statOf(archive()).st_mode & 0777, 0604U);

    ASSERT_TRUE(set(archive(), kList, list) && set(archive(), "user.origin", "build 7"));
    putAndCommit("x", "2");
    EXPECT_EQ(valueOf(kList), list);
    EXPECT_EQ(valueOf("user.origin"), "build 7");
}

/// The host's disposition of the signal would end the process.
TEST_F(Edit, ALimitOfTheFileSizeIsAnError) {
    const std::string before = contentOf(archive());
    scratch_.put("folder/x", std::string(200'000, 'x'));
    EXPECT_EQ(inChild([this] {
                  ::signal(SIGXFSZ, SIG_DFL);
                  const rlimit limit{100, 100};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  const std::function<void()> calls[] = {
                      [this] { putAndCommit("x", "x"); },
                      [this] { HUTZip::compressDir(scratch_ / "folder", scratch_ / "new.lfa"); },
                      [this] { HUTZip::uncompressDir(archive(), "bit", scratch_ / "folder", true); },
                  };
                  for (const auto& call : calls)
                      if (wordsOf(call).find("File too large") == std::string::npos) return 1;
                  sigset_t pending;
                  ::sigpending(&pending);
                  return ::sigismember(&pending, SIGXFSZ) ? 2 : 0;
              }),
              0);
    fs::remove_all(scratch_ / "folder");
    expectUntouched(before);
}

TEST_F(Edit, WithoutAChangeNothingIsWritten) {
    const struct stat before = statOf(archive());
    ArchiveEdit(archive()).commit();
    EXPECT_EQ(statOf(archive()).st_ino, before.st_ino);
}

TEST_F(Edit, OfManyWritersNoneLosesAMember) {
    constexpr int kWriters = 8;
    std::vector<std::thread> writers;
    for (int i = 0; i < kWriters; ++i)
        writers.emplace_back([this, i] {
            EXPECT_EQ(inChild([this, i] {
                          putAndCommit(fmt::format("w{}", i), std::string(50'000, static_cast<char>('a' + i)));
                          return 0;
                      }),
                      0);
        });
    for (std::thread& writer : writers) writer.join();
    const Contents contents = contentsOf(archive());
    for (int i = 0; i < kWriters; ++i)
        EXPECT_EQ(contents.at(fmt::format("w{}", i)), std::string(50'000, static_cast<char>('a' + i)));
    EXPECT_EQ(scratch_.names(), std::vector<std::string>{"a.lfa"});
}

TEST_F(Edit, WaitsForTheOtherUpToALimit) {
    auto first = std::make_unique<ArchiveEdit>(archive());
    const std::string words = wordsOf([this] { ArchiveEdit(archive(), 30ms); });
    EXPECT_NE(words.find("is being changed by another process"), std::string::npos) << words;
    EXPECT_NE(words.find(archive()), std::string::npos) << words;
    std::thread other([&first] {
        std::this_thread::sleep_for(50ms);
        first.reset();
    });
    EXPECT_NO_THROW(ArchiveEdit(archive(), 5000ms));
    other.join();
}

/// What is stored in an archive may end like an archive itself. The library that writes looks for the end in its own
/// way: no member may be lost to that.
TEST_F(Edit, AnArchiveAmongTheDataMisleadsNobody) {
    const builder::Zip inner = builder::archiveOf({builder::Entry("x", "1")});
    // With a lie elsewhere in the archive the end among the data is the more credible one to that library.
    const struct {
        std::string data;
        bool hasLie;
        const char* words;
    } cases[] = {
        {inner.build(), false, "nothing was thrown"},
        {builder::Zip().build(), false, "nothing was thrown"},
        {builder::Zip().build(), true, "looks like the end of another one"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        builder::Zip zip = builder::archiveOf({builder::Entry("lfa.json", "{}"), builder::Entry("a.tilprj", c.data)});
        if (c.hasLie) zip.entries[0].local.crc ^= 1;
        scratch_.put("a.lfa", zip.build());
        const std::string words = wordsOf([&] { putAndCommit("new", "n"); });
        EXPECT_NE(words.find(c.words), std::string::npos) << words;
        if (c.hasLie) {
            expectUntouched(zip.build());
            continue;
        }
        const zip::Archive changed(archive());
        ASSERT_EQ(changed.members().size(), 3U);
        EXPECT_EQ(changed.read(*changed.find("a.tilprj")), c.data);
    }
}

/// A source that changes its size or its bytes after it was opened, with a digest to be made and without.
TEST_F(Edit, ASourceThatChangesIsRefused) {
    const std::string before = contentOf(archive());
    const std::function<void(const std::string&)> changes[] = {
        [](const std::string& path) { std::ofstream(path, std::ios::app) << "more"; },
        [](const std::string& path) { fs::resize_file(path, 10); },
        [](const std::string& path) {
            std::this_thread::sleep_for(20ms);
            std::fstream(path, std::ios::in | std::ios::out) << "CHANGED";
        },
    };
    for (const auto& change : changes)
        for (const auto digest : {ArchiveEdit::Digest::keep, ArchiveEdit::Digest::attach}) {
            zip::SourceFile source(scratch_.put("source", std::string(400'000, 'x')));
            const std::string words = wordsOf([&] {
                ArchiveEdit edit(archive());
                edit.put("x", std::move(source));
                change(scratch_ / "source");
                edit.commit(digest);
            });
            EXPECT_NE(words.find("source' cannot be put into an archive"), std::string::npos) << words;
            expectUntouched(before, {"source"});
        }
}

TEST_F(Edit, AnArchiveThatIsChangedMeanwhileIsRefused) {
    const std::function<void()> changes[] = {
        [this] { std::ofstream(archive(), std::ios::app) << "x"; },
        [this] { fs::rename(scratch_.put("other", "other"), archive()); },
        [this] { fs::remove(archive()); },
    };
    for (const auto& change : changes) {
        scratch_.put("a.lfa", mixedZip().build());
        const std::string words = wordsOf([&] {
            ArchiveEdit edit(archive());
            edit.put("staged", std::string("x"));
            change();
            edit.commit();
        });
        EXPECT_NE(words.find("changed by somebody else since it was read"), std::string::npos) << words;
        EXPECT_EQ(contentOf(archive()).find("staged"), std::string::npos);
        fs::remove(archive());
        EXPECT_TRUE(scratch_.names().empty());
    }
}

TEST_F(Edit, WhatMayNotBeWrittenIsRefused) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can become somebody else";
    const std::string before = contentOf(archive());
    const struct {
        mode_t directory, file;
        const char* words;
    } cases[] = {
        {0555, 0666, "its directory: Permission denied"},
        {0777, 0444, "cannot be opened: Permission denied"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        ASSERT_EQ(::chmod(scratch_.str().c_str(), c.directory), 0);
        ASSERT_EQ(::chmod(archive().c_str(), c.file), 0);
        EXPECT_EQ(inChild([&] {
                      if (::setuid(65534) != 0) return 2;
                      const std::string words = wordsOf([this] { putAndCommit("x", "x"); });
                      return words.find(c.words) != std::string::npos ? 0 : 1;
                  }),
                  0);
        expectUntouched(before);
    }
}

TEST_F(Edit, WhatAKilledChangeLeftIsRemovedByTheNext) {
    scratch_.put(".zr-edit-7-6", "of a process that was killed");
    scratch_.put(".zr-edit-7-7", "of somebody who still lives");
    scratch_.put(".zr-edit-mine", "not our name");
    const int alive = ::open((scratch_ / ".zr-edit-7-7").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(alive, LOCK_EX), 0);
    putAndCommit("x", "x");
    ::close(alive);
    EXPECT_EQ(scratch_.names(), (std::vector<std::string>{".zr-edit-7-7", ".zr-edit-mine", "a.lfa"}));
}
