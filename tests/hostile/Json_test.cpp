// Hostile metadata documents, loaded through the public interface.
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

/// "board.pcie.vendor" of every key that a reader reads.
void addKeys(std::vector<std::string>& keys, json::Shapes shapes, const std::string& before) {
    for (const json::Shape& shape : shapes) {
        if (!shape.isRead) continue;
        keys.push_back(before + shape.name);
        if (shape.inner) addKeys(keys, shape.inner(), keys.back() + ".");
    }
}

}  // namespace

TEST(HostileJson, Texts) {
    expectAnswers("json.case", [](const cases::Case& each) { return archiveOf(cases::plain(each.lines[0].text)); });
    EXPECT_EQ(tried(archiveOf(R"({"tilHardware": {"arch": "\u001b[2J\u009b1m"}})")).outcome, "null");
}

/// At every key that a reader reads: a list for an object, an object for a list, texts for numbers and the rest.
TEST(HostileJson, WrongKindsAtEveryKey) {
    std::vector<std::string> keys;
    addKeys(keys, hardware::documentShapes(), "");
    EXPECT_GT(keys.size(), 150U);
    const char* const values[] = {
        "[]",       "{}",     "[[]]", "[{}]", "[[[1]], {\"a\": {}}]", "{\"\": {\"\": []}}", "\"\"",
        "\"text\"", "-1e400", "true", "null", "[null, 1, \"x\"]"};
    int asked = 0, loaded = 0, number = 0;
    for (const std::string& key : keys) {
        for (const char* const value : values) {
            if (++number % 5 > 2) continue;  // three of five, others at the next key
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
    expectAnswers("extension.case", [](const cases::Case& each) {
        return archiveOf(R"({"files": [{"type": "EXT_META_JSON", "name": "e.json"}]})",
                         {builder::Entry("e.json", cases::plain(each.lines[0].text), true)});
    });
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
    const builder::Entry huge("", "{\"emulations\": []" + std::string(33'000'000, ' ') + "}", true);
    for (int i = 0; i < 3; ++i) {
        builder::Entry& member = members.emplace_back(huge);
        const std::string name = std::to_string(i) + ".json";
        member.local.name = member.central.name = name;
        list += (i ? R"(, {"type": "EMU_JSON", "name": ")" : R"({"type": "EMU_JSON", "name": ")") + name + "\"}";
    }
    const Answer answer = tried(archiveOf("{\"files\": [" + list + "]}", members));
    EXPECT_NE(answer.words.find("member '2.json' could not be opened"), std::string::npos) << answer.words;
}
