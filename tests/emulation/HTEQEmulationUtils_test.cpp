// Emulations of a sample, built by the real scripts in the real interpreter.
#include "platform/HTEQEmulationUtils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/EmulationWork.h"
#include "kit/Replace.h"
#include "msg/HEXAll.h"
#include "platform/HPLPlatform.h"
#include "tcl/task_manager.h"
#include "zip/HUTZip.h"

namespace fs = std::filesystem;
using Utils = HTEQEmulationUtils;

namespace {

const std::string kExpected = ZR_SOURCE_DIR "/tests/cases/emulation/";
void expectFile(const std::string& file, const std::string& expected) {
    EXPECT_EQ(contentOf(file), replaced(contentOf(kExpected + expected), "@ROOT@", kInstallation)) << file;
}

std::string membersOf(const std::string& archive) {
    std::string names;
    for (const auto& member : HUTZip::members(archive))
        if (member.name.starts_with("emu/")) names += member.name + "\n";
    return names;
}

}  // namespace

TEST(Emulation, GivesTheExpectedFiles) {
    for (const std::string kind : {"fixed", "dynamic"})
        for (const std::string flow : {"memss", "streaming"}) {
            const Work work;
            const Capture capture;
            const bool isDynamic = kind == "dynamic";
            const std::string overlay = isDynamic ? "out/overlay" : "overlay";
            if (isDynamic) {
                ASSERT_TRUE(Utils::generateEmuPropDict(work.archive, flow, true, "hw_emu_prop"));
                ASSERT_TRUE(Utils::generateEmuDir("hw_emu_prop/hw_emu_prop.tcl", "harrier", "out"));
                ASSERT_TRUE(Utils::updateCfa(work.archive, overlay));
            } else {
                ASSERT_TRUE(Utils::generateCfaEmu(work.archive, flow, "")) << capture.printed();
                work.put("overlay/emu/left.txt", "of an earlier run");
                ASSERT_TRUE(Utils::generateCfaEmu(work.archive, flow, ""));
            }
            expectFile("hw_emu_prop/hw_emu_prop.tcl", "property_" + kind + "_" + flow + ".tcl");
            expectFile("emu_update_cfa.tcl", "driver_" + kind + ".tcl");
            expectFile(overlay + "/emu/emu.xml", "emu_" + kind + ".xml");
            EXPECT_EQ(membersOf(work.archive), contentOf(kExpected + "members_" + kind + ".txt"));
            EXPECT_EQ(HUTZip::verify(work.archive).digest, HUTZip::DigestState::valid);
            const std::string design = isDynamic ? "/emu/pfm_dynamic/pfm_dynamic.bd" : "/emu/emu.bd";
            EXPECT_THAT(contentOf(overlay + design),
                        testing::HasSubstr(flow == "memss" ? "crossbar" : "stream_model"));
            EXPECT_TRUE((fs::status("emu_update_cfa.tcl").permissions() & fs::perms::owner_exec) != fs::perms::none);
        }
}

TEST(Emulation, InAnOutputDirectoryLeavesTheArchive) {
    const Work work;
    const Capture capture;
    const std::string before = contentOf(work.archive);
    for (int i = 0; i < 200; ++i) ASSERT_TRUE(Utils::generateCfaEmu(work.archive, "memss", "out"));
    expectFile("out/hw_emu_prop/hw_emu_prop.tcl", "property_fixed_memss.tcl");
    HSTVector<std::string> files;
    Utils::getAllRelativeInDir("out/overlay", files, "p");
    EXPECT_EQ(files.front(), "p/emu/dynamic_post_sys_link.tcl");
    EXPECT_EQ(contentOf(work.archive), before);
    ASSERT_TRUE(Utils::generateCfaEmu(work.archive, "", ""));  // without a name, only the script
    EXPECT_THAT(work.names(), testing::Not(testing::Contains("overlay")));
}

TEST(Emulation, ReadsPropertiesOrRefusesThem) {
    cases::expectTexts(kExpected + "properties.case", [](const std::string&, const std::string& json) -> std::string {
        const Work work;
        HPLPlatform platform;
        std::ostringstream out;
        std::string custom;
        const std::string file = work.put("x.json", json);
        try {
            const int flow =
                Utils::writeEmuPropertiesDict(&platform, file, "", "", "", "", out, "x.cfa", false, custom);
            return std::to_string(flow) + custom;
        } catch (const HEXDataException& e) {
            return replaced(e.what(), file, "FILE");
        }
    });
}

TEST(Emulation, LeavesTheArchiveWhenAStepFails) {
    cases::expectTexts(kExpected + "failing.case", [](const std::string& name, const std::string& script) {
        const Work work;
        const std::string root = work / "tool", scripts = root + "/data/emulation/hw_em/scripts/";
        if (name != "missing") write(scripts + "memss/run.tcl", script);
        ::setenv("TORVANE_MORWEN", name == "unset" ? "" : root.c_str(), 1);
        const std::string before = contentOf(work.archive);
        Capture capture;
        const jun::tcltasks::task_limits limits(
            {.time = std::chrono::milliseconds(500), .output = [](std::string_view) {}});
        work.put("overlay/emu/emu.bd", "of an earlier run");
        EXPECT_FALSE(Utils::generateCfaEmu(work.archive, "memss", ""));
        EXPECT_EQ(contentOf(work.archive), before);
        EXPECT_EQ(fs::current_path(), work.str());
        std::string lines;
        for (const std::string& line : capture.lines()) lines += line + ";";
        return lines;
    });
}

TEST(Emulation, ReportsMissingThingsAndLinks) {
    const Work work;
    Capture capture;
    EXPECT_FALSE(Utils::generateCfaEmu("none.cfa", "memss", ""));
    EXPECT_FALSE(Utils::generateCfaEmu(work.str(), "memss", ""));
    EXPECT_FALSE(Utils::generateEmuDir("p.tcl", "harrier", ""));
    ::unsetenv("TORVANE_MORWEN");
    EXPECT_FALSE(Utils::generateEmuPropDict(work.archive, "memss", false, "p"));
    EXPECT_EQ(Utils::getTorvaneIPPath(), "");
    EXPECT_THAT(capture.lines(), testing::ElementsAre("@74-32@%s: none.cfa", "@74-36@%s: " + work.str(), "@74-57@",
                                                      "@74-35@", "@74-35@"));
    EXPECT_THAT(work.names(), testing::ElementsAre("harrier.cfa"));

    // Links under the fixed names: scripts replace them, a directory is refused.
    ::setenv("TORVANE_MORWEN", kInstallation.c_str(), 1);
    const std::string other = work.put("other/file.txt", "mine");
    for (const char* name : {"emu_update_cfa.tcl", "temp_prop.json", "overlay"}) fs::create_symlink(other, name);
    ASSERT_TRUE(Utils::generateCfaEmu(work.archive, "memss", "")) << capture.printed();
    fs::remove_all("hw_emu_prop");
    fs::create_directory_symlink("other", "hw_emu_prop");
    EXPECT_THROW(Utils::generateCfaEmu(work.archive, "memss", ""), HEXUserException);
    EXPECT_EQ(contentOf(other), "mine");

    fs::create_symlink(other, "overlay/link");
    EXPECT_THROW(Utils::updateCfa(work.archive, "overlay"), HEXUserException);
    EXPECT_THROW(Utils::updateCfa(work.archive, "nothing"), HEXUserException);
}

TEST(Emulation, MergesMoreFilesThanCanBeOpen) {
    const Work work;
    for (int i = 0; i < 1500; ++i) work.put("overlay/ip/" + std::to_string(i), "new");
    work.change({{"ip/7", "old"}, {"overlay/ip/8", "old"}});
    const std::size_t count = HUTZip::members(work.archive).size();
    ASSERT_TRUE(Utils::updateCfa(work.archive, "./overlay/"));
    EXPECT_EQ(HUTZip::members(work.archive).size(), count + 1500 - 2);
    EXPECT_FALSE(HUTZip::containsFile(work.archive, "overlay/ip/8"));
    EXPECT_TRUE(HUTZip::verify(work.archive).isSound());
}
