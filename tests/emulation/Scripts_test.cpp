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
class Scripts {
public:
    Scripts() {
        HTEQHardwareBusInterface& memory = *platform_.addBusInterface();
        memory.setSPTag("DDR");
        segment_ = memory.addAddressSegment();
    }

    std::string with(const std::string& text, const std::string& tag) {
        platform_.getBoard().setName(text);
        platform_.getBoard().setPart(text);
        segment_->setSpTag(tag);
        segment_->setAuto(text);
        segment_->setSlr(text);
        Properties properties;
        const PropertyMap pairs{{text, {text}}};
        properties.banks[0] = properties.clocks = properties.general = pairs;
        properties.instances[text] = pairs;
        properties.general["UserIpRepoPath"] = {text};
        return propertyScript(platform_, properties,
                              {.platform = text, .uniqueName = text, .boardRepository = text, .isDynamic = true})
                   .text +
               driverScript({text, text, text, text, text, true});
    }

private:
    HPLPlatform platform_;
    HTEQHardwareAddressSegment* segment_;
};

}  // namespace

TEST(Scripts, HoldEachTextAsOneWord) {
    const TclScript tcl;
    Scripts scripts;
    // The text is the key of a general property too, which stands before or after the one whose key is fixed.
    const auto before = tcl.commands(scripts.with("Aq", "tq")), after = tcl.commands(scripts.with("zq", "tq"));
    ASSERT_GT(after.size(), 60U);
    int failures = 0;
    forEachText([&](const std::string& text) {
        const auto found = tcl.commands(scripts.with(text, text));
        const auto& plain = text < "UserIpRepoPath" ? before : after;
        const char* const mark = text < "UserIpRepoPath" ? "Aq" : "zq";
        bool isRight = found.size() == plain.size();
        for (std::size_t i = 0; isRight && i < plain.size(); ++i)
            for (std::size_t word = 0; isRight && word < plain[i].size(); ++word) {
                // The name of a dictionary is made from the tag, which is a word of its own elsewhere.
                const std::string& was = plain[i][word];
                const bool isName = was.find("tq_0") != std::string::npos;
                const std::string expected = isName ? replaced(was, "tq", tcl::namePart(text))
                                                    : replaced(was, was.find("tq") == was.npos ? mark : "tq", text);
                isRight = found[i].size() == plain[i].size() && found[i][word] == expected;
            }
        if (!isRight && ++failures < 5) ADD_FAILURE() << hex(text) << "\n" << scripts.with(text, text);
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
