#pragma once
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <map>
#include <string>

#include "kit/Scratch.h"
#include "kit/ZipBuilder.h"
#include "msg/HEXAll.h"
#include "zip/Archive.h"

/// What the call throws, as words.
inline std::string wordsOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const HEXAll& error) {
        return error.what();
    }
    return "nothing was thrown";
}

inline struct stat statOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

using Contents = std::map<std::string, std::string>;

/// All members with their data.
inline Contents contentsOf(const std::string& path) {
    const zip::Archive archive(path);
    Contents contents;
    for (const zip::Member& member : archive.members())
        contents[std::string(member.name)] = member.isDirectory() ? "" : archive.read(member);
    return contents;
}

/// An archive whose members are packed in different ways.
inline builder::Zip mixedZip() {
    return builder::archiveOf({builder::Entry("lfa.json", "{}", true),
                               builder::Entry("bit/full.bit", std::string(300'000, 'b')), builder::Entry("dir/"),
                               builder::Entry("a.tcl", std::string(5000, 'a'), true)});
}
