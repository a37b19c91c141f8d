// The texts that reach scripts: each is one word there, and nothing else.
#include <gtest/gtest.h>

#include "emulation/DriverScript.h"
#include "emulation/PropertyScript.h"
#include "kit/Replace.h"
#include "kit/TclScript.h"
#include "kit/TclTexts.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "tcl/task_manager.h"

using namespace emulation;

namespace {

/// Both scripts with the text in every field.
std::string scriptsWith(const std::string& text, const std::string& tag) {
    HPLPlatform platform;
    platform.getBoard().setName(text);
    platform.getBoard().setPart(text);
    HTEQHardwareBusInterface& memory = *platform.addBusInterface();
    memory.setSPTag("DDR");
    HTEQHardwareAddressSegment& segment = *memory.addAddressSegment();
    segment.setSpTag(tag);
    segment.setAuto(text);
    segment.setSlr(text);
    Properties properties;
    properties.banks[0] = properties.clocks = properties.general = properties.instances[text] = {{text, {text}}};
    properties.general["UserIpRepoPath"] = {text};
    const PropertyScriptNames names{text, text, text, true};
    return propertyScript(platform, properties, names).text + driverScript({text, text, text, text, text, true});
}

}  // namespace

TEST(Scripts, HoldEachTextAsOneWord) {
    const TclScript tcl;
    // The text is the key of a general property too, which stands before or after the one whose key is fixed.
    const auto before = tcl.commands(scriptsWith("Aq", "tq")), after = tcl.commands(scriptsWith("zq", "tq"));
    ASSERT_GT(after.size(), 60U);
    const auto expectedFor = [&](const std::string& text) {
        const bool isBefore = text < "UserIpRepoPath";
        auto commands = isBefore ? before : after;
        for (auto& words : commands)
            for (std::string& word : words) {
                const bool isName = word.find("tq_0") != word.npos;  // of a dictionary, made from the tag
                const char* const mark = word.find("tq") != word.npos ? "tq" : isBefore ? "Aq" : "zq";
                word = replaced(word, mark, isName ? tcl::namePart(text) : text);
            }
        return commands;
    };
    int failures = 0;
    forEachText([&](const std::string& text) {
        if (tcl.commands(scriptsWith(text, text)) != expectedFor(text) && ++failures < 5)
            ADD_FAILURE() << hex(text) << "\n" << scriptsWith(text, text);
    });
    EXPECT_EQ(failures, 0);
}

TEST(Scripts, GiveEachTextBack) {
    std::string expected;
    Properties properties;
    int number = 0;
    forEachText([&](const std::string& text) {
        const std::string key = std::to_string(1'000'000 + number++);
        properties.general[key] = properties.instances["i"][key] = {text};
        properties.clocks[key + text] = {key};
        expected += hex(text) + " " + hex(text) + " " + hex(text) + "\n";
    });
    HPLPlatform platform;
    const std::string script = propertyScript(platform, properties, {}).text + R"(
        emu_prop_gen
        proc hex {text} { return [binary encode hex [encoding convertto utf-8 $text]] }
        dict for {key value} [dict get $config::instanceConfig i] { set braced($key) $value }
        dict for {key value} $config::clk_info { set clocks($value) [string range $key 7 end] }
        set lines ""
        dict for {key value} $config::config_info {
            if {[info exists braced($key)]} { append lines "[hex $value] [hex $braced($key)] [hex $clocks($key)]\n" }
        }
        set lines)";
    const auto result = jun::tcltasks::task_manager::eval_in_tcl(script, false, true);
    ASSERT_TRUE(result.isDone) << result.text;
    EXPECT_TRUE(result.text == expected);
}
