// What other programs make is read, and what they read differently is refused.
#include <fmt/core.h>

#include <optional>

#include "kit/Run.h"
#include "kit/ZipCases.h"
#include "zip/ArchiveEdit.h"
#include "zip/HUTZip.h"
#include "zip/OnDisk.h"

namespace fs = std::filesystem;
using builder::Entry;
using builder::Header;
using builder::Zip;

namespace {

/// A program that packs the folder $1 into $2, or extracts the archive $1 into the folder $2.
struct Program {
    const char *name, *command;
};
constexpr Program kWriters[] = {
    {"zip", "cd $1 && zip -q -r $2 ."},
    {"zip, stored", "cd $1 && zip -q -0 -r $2 ."},
    {"zip, as a stream", "cd $1 && zip -q -r - . | cat >$2"},
    {"zip, of unknown size", "cd $1 && zip -q - - <a | cat >$2"},
    {"python", "cd $1 && python3 -m zipfile -c $2 a sub"},
    {"python, as a stream",
     "cd $1 && python3 -c \"import sys,zipfile as z; f=z.ZipFile(sys.stdout.buffer,'w',8); f.write('a'); "
     "f.writestr(z.ZipInfo('stored'),'s'); f.close()\" | cat >$2"},
    {"bsdtar", "cd $1 && bsdtar -a -cf $2.zip a sub && mv $2.zip $2"},
    {"7-Zip", "cd $1 && 7zz a -tzip -bso0 -bsp0 $2.zip . && mv $2.zip $2"},
    {"minizip", "cd $1 && minizip -o $2.zip a sub/b >/dev/null && mv $2.zip $2"},
    {"jar", "cd $1 && jar --create --file $2 a sub"},
    {"jar, stored", "cd $1 && jar --create --no-compress --no-manifest --file $2 a sub"},
};
constexpr Program kReaders[] = {
    {"unzip", "unzip -q -o $1 -d $2 </dev/null; test $? -le 1"},
    {"python", "python3 -m zipfile -e $1 $2"},
    {"bsdtar", "bsdtar -xf $1 -C $2"},
    {"bsdtar, as a stream", "cat $1 | bsdtar -xf - -C $2"},
    {"7-Zip", "7zz x -y -bso0 -bsp0 -o$2 $1 </dev/null"},
    {"minizip", "cd $2 && miniunzip -x -o $1 >/dev/null </dev/null"},
    {"jar, as a stream", "cd $2 && jar x <$1"},
};

class Readers : public testing::Test {
protected:
    int call(const Program& program, const std::string& from, const std::string& to) const {
        return run({"sh", "-c", program.command, "sh", from, to}).exit;
    }
    /// The files below a folder; a link as its target.
    Contents filesIn(const std::string& folder) const {
        Contents files;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const std::string name = entry.path().lexically_relative(folder);
            if (entry.is_symlink())
                files[name] = "link to " + fs::read_symlink(entry.path()).native();
            else if (!entry.is_directory())
                files[name] = contentOf(entry.path());
        }
        return files;
    }
    /// No value if the program refuses the archive.
    std::optional<Contents> readBy(const Program& reader) const {
        const std::string out = scratch_ / "out";
        fs::create_directory(out);
        const bool isRead = call(reader, scratch_ / "a.zip", out) == 0;
        Contents files = filesIn(out);
        fs::remove_all(out);
        return isRead ? std::optional(files) : std::nullopt;
    }
    std::string refusal() const {
        const std::string out = scratch_ / "out";
        fs::create_directory(out);
        std::string words = wordsOf([&] {
            HUTZip::uncompressDir(scratch_ / "a.zip", "", out, false);
            if (!HUTZip::verify(scratch_ / "a.zip").isSound()) throw HEXDataException("verify reports it");
        });
        fs::remove_all(out);
        return words == "nothing was thrown" ? "" : words;
    }
    Scratch scratch_;
};

/// An end of central directory for `members` entries in the `size` bytes before it, at the byte `at`.
std::string endOf(std::size_t at, std::size_t size, int members, std::size_t comment) {
    using builder::le;
    return "PK\5\6" + le(0, 4) + le(static_cast<std::uint64_t>(members), 2) +
           le(static_cast<std::uint64_t>(members), 2) + le(size, 4) + le(at - size, 4) + le(comment, 2);
}

/// Archives that hold a second one, whose end of central directory is `distance` bytes from theirs, in the data of a
/// stored member; `reaches`: its comment is the rest of the file.
std::string withSecondEnd(std::size_t distance, bool reaches) {
    const std::string hidden = builder::archiveOf({Entry("hidden", "evil")}).build(), name = "data";
    const std::size_t localSize = 30 + 4, bodySize = 30 + 6 + 4, directorySize = 46 + 6;
    std::string data = hidden.substr(0, bodySize + directorySize);
    data.replace(bodySize + 42, 4, builder::le(localSize, 4));
    const std::string first = endOf(localSize + data.size(), directorySize, 1, 0);
    const std::string tail(distance, 'x');
    const auto build = [&](std::size_t comment) {
        return builder::archiveOf({Entry(name, data + first.substr(0, 20) + builder::le(comment, 2) + tail),
                                   Entry("lfa.json", "{}")})
            .build();
    };
    const std::size_t rest = build(0).size() - localSize - data.size() - 22;
    return build(reaches ? rest : 0);
}

std::map<std::string, std::string> hostileArchives() {
    std::map<std::string, std::string> all;
    const Zip plain = builder::archiveOf({Entry("a", "first"), Entry("b", "second", true)});
    for (const cases::Case& each : cases::read(ZR_SOURCE_DIR "/tests/cases/zip/lies.case"))
        all[each.name] = zipOf(each, builder::sampleZip()).build();
    for (const std::size_t distance : {100U, 20'000U, 60'000U})
        for (const bool reaches : {false, true})
            all[fmt::format("second end, {} bytes away, {}", distance, reaches)] = withSecondEnd(distance, reaches);
    for (const char* name : {"../up", "/absolute", "a/./b", "a//b", "b/inside", "a;1", "../up\xFF"}) {
        Zip zip = plain;
        zip.entries.emplace_back(name, "x");
        all[std::string("name ") + name] = zip.build();
    }
    Zip zip = plain;
    zip.entries[0] = Entry("a", "PK\7\10" + builder::le(0x12345678, 4) + builder::le(0, 8) + "rest");
    moveAfter(zip.entries[0], "signed4");
    all["descriptor in stored data"] = zip.build();
    return all;
}

}  // namespace

TEST_F(Readers, WhatTheyWriteIsRead) {
    scratch_.put("in/a", std::string(100'000, 'a'));
    scratch_.put("in/sub/b", "");
    scratch_.put("in/sub/c", "text");
    const Contents expected = filesIn(scratch_ / "in");
    for (const Program& writer : kWriters) {
        SCOPED_TRACE(writer.name);
        fs::remove(scratch_ / "a.zip");
        ASSERT_EQ(call(writer, scratch_ / "in", scratch_ / "a.zip"), 0);
        EXPECT_EQ(refusal(), "");
        const Contents contents = contentsOf(scratch_ / "a.zip");
        EXPECT_TRUE(contents.contains("a") ? contents.at("a") == expected.at("a") : !contents.empty());
        zip::ArchiveEdit edit(scratch_ / "a.zip");
        edit.put("added", std::string("x"));
        edit.commit(zip::ArchiveEdit::Digest::attach);
        EXPECT_EQ(HUTZip::verify(scratch_ / "a.zip").digest, HUTZip::DigestState::valid);
    }
}

TEST_F(Readers, WhatTheyReadDifferentlyIsRefused) {
    constexpr int kEnough = 8;  // to know that the archives are hostile to these programs
    int differences = 0;
    for (const auto& [name, bytes] : hostileArchives()) {
        SCOPED_TRACE(name);
        scratch_.put("a.zip", bytes);
        if (differences >= kEnough && !refusal().empty()) continue;
        std::map<Contents, std::string> seen;
        for (const Program& reader : kReaders)
            if (const auto files = readBy(reader)) seen[*files] += std::string(" ") + reader.name;
        if (seen.size() < 2) continue;
        ++differences;
        std::string who;
        for (const auto& [files, readers] : seen) who += readers + ";";
        EXPECT_NE(refusal(), "") << "read differently by" << who;
    }
    EXPECT_GE(differences, kEnough);
}
