// Metadata documents of strangers, asked for by the public road.
#include <gtest/gtest.h>

#include <string>

#include "hardware/HardwareKeys.h"
#include "kit/Trial.h"
#include "kit/ZipBuilder.h"

namespace {

/// An archive with this metadata, in a directory of its own, and further members.
std::string archiveOf(const std::string& text, const std::vector<builder::Entry>& others = {}) {
    builder::Zip zip;
    zip.entries = {builder::Entry("lfa.json", text, true)};
    zip.entries.insert(zip.entries.end(), others.begin(), others.end());
    const std::string path = Place::get().fresh() + "/x.lfa";
    std::ofstream(path, std::ios::binary) << zip.build();
    return path;
}

/// A configuration of a design IP, whose keys are paths.
std::string configuration(const std::string& members) {
    return R"({"designIpInstances": [{"vlnv": "v", "instance": "i", "configuration": {)" + members + "}}]}";
}

/// "board.pcie.vendor" of every key that a reader reads.
void addKeys(std::vector<std::string>& keys, json::Shapes shapes, const std::string& before) {
    for (const json::Shape& shape : shapes) {
        keys.push_back(before + shape.name);
        if (shape.inner) addKeys(keys, shape.inner(), keys.back() + ".");
    }
}

}  // namespace

TEST(HostileJson, Texts) {
    const std::string deepKey = repeated("a.", 63) + "a";
    const struct {
        const char* what;
        std::string text;
        const char *outcome, *words;
    } cases[] = {
        {"nothing", "", "null", "Failed to parse"},
        {"a byte-order mark", "\xEF\xBB\xBF{}", "loads", ""},
        {"two marks", "\xEF\xBB\xBF\xEF\xBB\xBF{}", "null", "lfa.json(1): no valid JSON"},
        {"a value", "17", "loads", ""},
        {"brackets", repeated("[", 200'000), "null", "deeper than 192 levels"},
        {"braces", repeated("{\"a\":", 200'000), "null", "deeper than 192 levels"},
        {"as deep as may be", repeated("[", 192) + repeated("]", 192), "loads", ""},
        {"a key of thousands of dots", "{\"" + repeated("a.", 4'500) + "\": 1}", "null", "too many levels"},
        {"dots in a configuration", configuration("\"" + repeated("a.", 4'500) + "\": 1"), "null", "too many levels"},
        {"as many dots as may be", configuration("\"" + deepKey + "\": 1"), "loads", ""},
        {"a key beside its own path", configuration(R"("a": "1", "a.b": "2")"), "json_parser_error", "\"a\""},
        {"a path beside its own key", configuration(R"("a.b": "2", "a": "1")"), "json_parser_error", "\"a\""},
        {"empty keys", configuration(R"("": "1", ".": "2", "..a": "3")"), "", ""},
        {"overlong forms", "{\"name\": \"\xC0\xAF\"}", "null", "no valid JSON"},
        {"a lone surrogate", R"({"name": "\udc00"})", "null", "no valid JSON"},
        {"an encoded surrogate", "{\"name\": \"\xED\xA0\x80\"}", "null", "no valid JSON"},
        {"beyond the last character", "{\"name\": \"\xF4\x90\x80\x80\"}", "null", "no valid JSON"},
        {"an escaped NUL", R"({"name": "a\u0000b"})", "null", "a text holds a NUL"},
        {"a NUL", std::string("{\"name\": \"a\0b\"}", 15), "null", "no valid JSON"},
        {"UTF-16", std::string("\xFF\xFE{\0}\0", 6), "null", "no valid JSON"},
        {"twice the same key", R"({"name": "a", "name": "b"})", "loads", ""},
        {"something behind", "{}\n{}", "null", "lfa.json(2): there is text after the document"},
        {"cut", R"({"name": "n)", "null", "incomplete"},
        {"a long number", "{\"idCode\": " + std::string(10'000, '9') + "}", "loads", ""},
        {"long numbers for numbers",
         "{\"versionMajor\": " + std::string(10'000, '9') + R"(, "memories": [{"lowAddress": "-)" +
             std::string(10'000, '9') + R"("}], "systemClocks": [{"id": )" + std::string(10'000, '9') + "}]}",
         "loads", ""},
        {"a number beyond every exponent", R"({"idCode": 1e999999999})", "", ""},
        {"a device without core", R"({"devices": [{}]})", "null", "core"},
        {"an unknown architecture", R"({"tilHardware": {"arch": "x"}})", "null", "Invalid til architecture"},
        {"escapes for a terminal", R"({"tilHardware": {"arch": "\u001b[2J\u009b1m"}})", "null", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Answer answer = tried(archiveOf(c.text));
        EXPECT_NE(answer.outcome.find(c.outcome), std::string::npos) << answer.outcome << ": " << answer.words;
        EXPECT_NE(answer.words.find(c.words), std::string::npos) << answer.words;
    }
}

/// At every key that a reader reads: a list for an object, an object for a list, texts for numbers and the rest.
TEST(HostileJson, WrongKindsAtEveryKey) {
    std::vector<std::string> keys;
    addKeys(keys, hardware::documentShapes(), "");
    EXPECT_GT(keys.size(), 150U);
    const char* const values[] = {
        "[]",       "{}",     "[[]]", "[{}]", "[[[1]], {\"a\": {}}]", "{\"\": {\"\": []}}", "\"\"",
        "\"text\"", "-1e400", "true", "null", "[null, 1, \"x\"]"};
    int asked = 0, loaded = 0;
    for (const std::string& key : keys) {
        for (const char* const value : values) {
            // "a.b" as an object in an object, and as an object in a list.
            for (const bool isList : {false, true}) {
                if (isList && key.find('.') == std::string::npos) continue;
                std::string text = value;
                std::string path = key;
                for (auto dot = path.rfind('.');; dot = path.rfind('.')) {
                    const std::string last = path.substr(dot == std::string::npos ? 0 : dot + 1);
                    text = "{\"" + last + "\": " + text + "}";
                    if (dot == std::string::npos) break;
                    if (isList) text = "[" + text + "]";
                    path.resize(dot);
                }
                SCOPED_TRACE(text);
                const std::string archive = archiveOf(text);
                const Answer answer = asked++ % 100 == 0 ? tried(archive) : ask(archive);
                EXPECT_TRUE(answer.outcome == "loads" || answer.outcome == "null") << answer.outcome << answer.words;
                EXPECT_NE(answer.words.empty(), answer.outcome == "null") << answer.words;
                loaded += answer.outcome == "loads";
            }
        }
    }
    EXPECT_GT(loaded, asked / 2);
    EXPECT_LT(loaded, asked);
}

TEST(HostileJson, ExtensionMetadata) {
    const std::string listing = R"({"files": [{"type": "EXT_META_JSON", "name": "e.json"}]})";
    const struct {
        const char* what;
        std::string text;
        const char *outcome, *words;
    } cases[] = {
        {"an object", R"({"a": {"b": [1]}})", "loads", ""},
        {"cut", R"({"a": )", "json_parser_error", "x.lfa!e.json"},
        {"brackets", repeated("[", 200'000), "json_parser_error", "deeper than 192 levels"},
        {"as deep as may be", repeated("{\"a\":", 191) + "1" + repeated("}", 191), "loads", ""},
        {"invalid UTF-8", "{\"a\": \"\xFF\"}", "json_parser_error", "no valid JSON"},
        {"a key of thousands of dots", "{\"" + repeated("a.", 4'500) + "\": 1}", "json_parser_error",
         "too many levels"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Answer answer = tried(archiveOf(listing, {builder::Entry("e.json", c.text, true)}));
        EXPECT_NE(answer.outcome.find(c.outcome), std::string::npos) << answer.outcome << ": " << answer.words;
        EXPECT_NE(answer.words.find(c.words), std::string::npos) << answer.words;
    }
}

/// One file of emulation metadata that is listed a hundred thousand times is read once; many of them spend the budget
/// of one call.
TEST(HostileJson, ManyFilesThatAreRead) {
    std::string list;
    for (int i = 0; i < 100'000; ++i) list += R"({"type": "EMU_JSON", "name": "e.json"},)";
    list.pop_back();
    const std::string large = "{\"emulations\": [], \"padding\": \"" + std::string(1'000'000, ' ') + "\"}";
    EXPECT_EQ(tried(archiveOf("{\"files\": [" + list + "]}", {builder::Entry("e.json", large, true)})).outcome,
              "loads");

    std::vector<builder::Entry> members;
    list.clear();
    const builder::Entry huge("", "{\"emulations\": [], \"padding\": \"" + std::string(33'000'000, ' ') + "\"}",
                              true);
    for (int i = 0; i < 40; ++i) {
        builder::Entry& member = members.emplace_back(huge);
        const std::string name = std::to_string(i) + ".json";
        member.local.name = member.central.name = name;
        list += (i ? R"(, {"type": "EMU_JSON", "name": ")" : R"({"type": "EMU_JSON", "name": ")") + name + "\"}";
    }
    const Answer answer = tried(archiveOf("{\"files\": [" + list + "]}", members));
    EXPECT_NE(answer.words.find("member '32.json' could not be opened"), std::string::npos) << answer.words;
}
