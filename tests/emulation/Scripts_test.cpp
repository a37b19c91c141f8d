// The texts that reach scripts: each is one word there, and nothing else.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "emulation/DriverScript.h"
#include "emulation/PropertyScript.h"
#include "kit/Files.h"
#include "kit/Replace.h"
#include "kit/TclScript.h"
#include "kit/TclTexts.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "tcl/task_manager.h"

using namespace emulation;

namespace {

/// The text of a field. `readBack` is the Tcl expression that has it after both scripts were evaluated.
using TextOf = std::function<std::string(std::string_view readBack)>;
constexpr std::string_view kTag =
    "[same [lindex $config::memoryTags 0] [dict get [lindex $config::memoryTags 1] sptag]]";

/// Both scripts: each field that reaches one of them has a text of `textOf`. A new field gets its place here, for all
/// tests.
std::string scriptsWith(const TextOf& textOf, bool isStreaming = false) {
    HPLPlatform platform;
    platform.getBoard().setName(textOf("[config board_name]"));
    platform.getBoard().setPart(textOf("[same [config board_part] [config project_part]]"));
    HTEQHardwareBusInterface& memory = *platform.addBusInterface();
    memory.setSPTag("DDR");
    HTEQHardwareAddressSegment& segment = *memory.addAddressSegment();
    segment.setSpTag(textOf(kTag));
    segment.setAuto(textOf("[dict get [lindex $config::memoryTags 1] auto]"));
    segment.setSlr(textOf("[dict get [lindex $config::memoryTags 1] slr]"));
    const auto pair = [&](const char* key, const char* value) { return PropertyMap{{textOf(key), {textOf(value)}}}; };
    Properties properties;
    properties.banks[0] = pair("[lindex $config::boardMemories 0 0]", "[lindex $config::boardMemories 0 1]");
    properties.instances[textOf("[lindex $config::instanceConfig 0]")] =
        pair("[lindex $config::instanceConfig 1 0]", "[lindex $config::instanceConfig 1 1]");
    properties.clocks = pair("[lindex $config::clk_info 0]", "[lindex $config::clk_info 1]");
    properties.general = pair("[general 0]", "[general 1]");
    properties.general["UserIpRepoPath"] = {
        textOf("[same [config UserIpRepoPath] [lindex [config ip_repo_paths] 0]]")};
    properties.general["UseStreaming"] = {isStreaming ? "true" : "false"};
    const std::string name = textOf("[same [config cfa_name] [string range [config project_name] 16 end]]");
    const PropertyScriptNames names{name, textOf("[config platform_unique_name]"),
                                    textOf("[lindex $config::board_repo_paths 0]"), true};
    const Driver driver{.scripts = textOf("[regsub {/(streaming|memss)/run.tcl$} [call 1 1] {}]"),
                        .propertyScript = textOf("[call 0 1]"),
                        .overlay = textOf("[call 7 3]"),
                        .preLink = textOf("[same [call 2 1] [call 4 1] [call 14 3]]"),
                        .postLink = textOf("[same [call 3 1] [call 15 3]]"),
                        .isDynamic = true};
    return propertyScript(platform, properties, names).text + driverScript(driver);
}

}  // namespace

TEST(Scripts, HoldEachTextAsOneWord) {
    const TclScript tcl;
    const auto scriptsOf = [](const std::string& text, const std::string& tag) {
        return scriptsWith([&](std::string_view readBack) { return readBack == kTag ? tag : text; });
    };
    // The text is the key of a general property too, which stands before or after the one whose key is fixed.
    const auto before = tcl.commands(scriptsOf("Aq", "tq")), after = tcl.commands(scriptsOf("zq", "tq"));
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
        if (tcl.commands(scriptsOf(text, text)) != expectedFor(text) && ++failures < 5)
            ADD_FAILURE() << hex(text) << "\n" << scriptsOf(text, text);
    });
    EXPECT_EQ(failures, 0);
}

TEST(Scripts, GiveEachTextBack) {
    const std::string recorder = contentOf(ZR_SOURCE_DIR "/tests/cases/emulation/record.tcl");
    std::vector<std::string> texts;
    forEachText([&](const std::string& text) { texts.push_back(text); });
    int failures = 0;
    const std::size_t step = std::getenv("ZR_LONG") ? 1 : 5;  // with 5, each text goes through four or five fields
    for (std::size_t number = 0; number < texts.size();) {
        std::string script = recorder;
        std::vector<std::pair<std::string_view, std::string>> expected;
        for (int i = 0; i < 100 && number < texts.size(); ++i, number += step) {
            std::size_t at = number;  // neighbouring fields get different texts
            std::string readBacks;
            const auto next = [&](std::string_view readBack) {
                const std::string& text = texts[at++ % texts.size()];
                expected.emplace_back(readBack, hex(text));
                (readBacks += ' ') += readBack;
                return text;
            };
            script += scriptsWith(next, number % 2 == 0) + "readBack [list" + readBacks + "]\n";
        }
        const auto result = jun::tcltasks::task_manager::eval_in_tcl(script + "set lines", false, true);
        ASSERT_TRUE(result.isDone) << result.text;
        std::istringstream lines(result.text);
        std::string line;
        for (const auto& [readBack, text] : expected)
            if ((!std::getline(lines, line) || line != text) && ++failures < 5)
                ADD_FAILURE() << readBack << " is " << line << " instead of " << text;
    }
    EXPECT_EQ(failures, 0);
}
