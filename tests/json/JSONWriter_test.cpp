#include "platform/JSONWriter.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/property_tree/json_parser.hpp>
#include <random>
#include <sstream>

#include "json/JsonKeys.h"
#include "kit/WriterScript.h"
#include "platform/HTEQJSONUtils.h"

namespace {

using namespace teq_platform;

std::string textOf(const JSONWriter& writer) {
    std::ostringstream out;
    writer.write(out);
    return out.str();
}

struct Named : JSONSerializable {
    std::string name;
    explicit Named(std::string n) : name(std::move(n)) {}
    void toJSON(JSONObjectWriter& writer) const override { writer.addKey("name", name); }
};

TEST(JSONWriter, LeavesOutWhatIsEmpty) {
    JSONObjectWriter writer;
    const Named nameless(""), named("x");
    writer.addKey("text", "");
    writer.addKey("flag", false);
    writer.addKey("count", 0);
    writer.addKey("object", &nameless);
    writer.addKey("null", static_cast<const JSONSerializable*>(nullptr));
    writer.addKey("list", HSTVector<std::string>{"", ""});
    writer.addKey("tree", ptree("only a value"));
    writer.writeObject(static_cast<const JSONSerializable*>(nullptr));
    JSONListWriter list;
    list.addItem(&nameless);
    list.addItem("");
    writer.addKey("items", list);
    list.addItem(&named);
    list.addItem("y");
    writer.addKey("items", list);
    writer.writeObject(named);
    EXPECT_EQ(textOf(writer),
              "{\n    \"flag\": \"false\",\n    \"count\": \"0\",\n    \"items\": [\n        {\n"
              "            \"name\": \"x\"\n        },\n        \"y\"\n    ],\n    \"name\": \"x\"\n}\n");
}

TEST(JSONWriter, ReplacesTextsAndRepeatsTrees) {
    JSONObjectWriter writer, child;
    writer.addKey("a", "1");
    writer.addKey("b", "2");
    writer.addKey("a", "3");
    child.addKey("k.deep", "v");
    writer.addKey("c", child);
    writer.addKey("c", child);
    EXPECT_EQ(writer.getTree().front().second.data(), "3");
    EXPECT_EQ(writer.getTree().size(), 4U);
    EXPECT_EQ(writer.getTree().get<std::string>("c.k.deep"), "v");
    EXPECT_FALSE(child.empty()) << "the const form copies";
    writer.addKey("c", "a text where children are");
    std::ostringstream out;
    EXPECT_THROW(writer.write(out), boost::property_tree::json_parser::json_parser_error);
    EXPECT_EQ(out.str(), "") << "nothing half written";
    out.setstate(std::ios::failbit);
    EXPECT_THROW(child.write(out), boost::property_tree::json_parser::json_parser_error);
}

TEST(JSONWriter, TakesItselfByItsContentBefore) {
    JSONObjectWriter object;
    object.addKey("a", "1");
    object.addKey("b", object);
    EXPECT_EQ(textOf(object), "{\n    \"a\": \"1\",\n    \"b\": {\n        \"a\": \"1\"\n    }\n}\n");
    object.addKey("c", std::move(object));
    EXPECT_EQ(object.getTree().size(), 1U);
    EXPECT_EQ(object.getTree().get<std::string>("c.b.a"), "1");
    JSONListWriter list;
    list.addItem("x");
    list.addItem(list);
    list.addItem(std::move(list));
    EXPECT_EQ(textOf(list), "{\n    \"\": [\n        \"x\",\n        [\n            \"x\"\n        ]\n    ]\n}\n");
}

/// What a document or a refusal to write it looks like.
template <class Write>
std::string written(Write write) {
    std::ostringstream out;
    try {
        write(out);
        return out.str();
    } catch (const boost::property_tree::json_parser::json_parser_error&) {
        return "refused";
    }
}

/// As the tree's own `put`, `add_child` and `write_json`, whatever parts of the keys are empty.
TEST(JSONWriter, KeysArePaths) {
    std::mt19937 random(1);
    for (int keys = 0; keys < 100'000;) {
        JSONObjectWriter writer, child;
        ptree expected;
        child.addKey("k", "v");
        std::string used;
        for (int i = 0; i < 5; ++i, ++keys) {
            std::string key;
            for (auto n = random() % 6; n > 0; --n) key += "ab.."[random() % 4];
#ifndef NDEBUG  // the tree asserts that no path is empty or ends in a dot
            if (key.empty() || key.back() == '.') key += 'a';
#endif
            used += "'" + key + "' ";
            if (random() % 3 > 0) {
                writer.addKey(key, std::to_string(i));
                expected.put(key, std::to_string(i));
            } else {
                writer.addKey(key, child);
                expected.add_child(key, child.getTree());
            }
        }
        ASSERT_EQ(writer.getTree(), expected) << used;
        ASSERT_EQ(written([&](auto& out) { writer.write(out); }),
                  written([&](auto& out) { write_json(out, expected); }))
            << used;
    }
}

TEST(JSONWriter, GivesTheSameDocumentWithATree) {
    std::mt19937 random(20);
    for (int i = 0; i < 20'000; ++i) {
        std::vector<std::uint8_t> bytes(random() % 200);
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
        const std::string expected = WriterScript(bytes, true).run();
        ASSERT_EQ(WriterScript(bytes, false).run(), expected) << i;
        ASSERT_FALSE(expected.empty());
    }
}

TEST(JSONWriter, TakesListsByTheirTypeAndOptionalTrees) {
    JSONObjectWriter writer;
    writer.addKey<std::string>("list", HSTVector<std::string>{"", "x"});
    writer.addKey<std::string>("none", {});
    EXPECT_EQ(textOf(writer), "{\n    \"list\": [\n        \"x\"\n    ]\n}\n");
    EXPECT_EQ(HTEQJSONUtils::getValue(writer.getTree().get_child_optional("list"), ""), "");
    EXPECT_TRUE(HTEQJSONUtils::hasKey(writer.getTree().get_child_optional("list"), ""));
    EXPECT_FALSE(HTEQJSONUtils::hasKey(std::as_const(writer).getTree().get_child_optional("none"), ""));
}

TEST(JSONListWriter, ABooleanItemNeverReturnsAndGrowsNothing) {
    const pid_t child = fork();
    if (child == 0) {
        const rlimit stack{256 * 1024, 256 * 1024}, processor{1, 1};
        setrlimit(RLIMIT_STACK, &stack);
        setrlimit(RLIMIT_CPU, &processor);  // a busy loop dies of this within the time below
        JSONListWriter list;
        list.addItem(true);
    }
    usleep(1'500'000);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, WNOHANG), 0) << "it returned or died";
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
}

TEST(HTEQJSONUtils, ConvertsTexts) {
    ptree tree;
    tree.put("t", "TRUE");
    tree.put("one", "1");
    tree.put("a.b", "12abc");
    tree.put("hex", "0x10");
    tree.put("minus", "-1");
    tree.put("empty", "");
    tree.put("huge", "99999999999999999999");
    using U = HTEQJSONUtils;
    EXPECT_TRUE(U::getBoolValue(tree, "t"));
    EXPECT_FALSE(U::getBoolValue(tree, "one"));
    EXPECT_EQ(U::getIntValue(tree, "a.b", -1), 12);
    EXPECT_EQ(U::getIntValue(tree, "hex", -1), 0);
    EXPECT_EQ(U::getIntValue(tree, "empty", -1), -1);
    EXPECT_EQ(U::getIntValue(tree, "missing", -1), -1);
    EXPECT_EQ(U::getUnsignedIntValue(tree, "minus", 0), 4294967295U);
    EXPECT_EQ(U::getLongValue(tree, "huge", 0), 9223372036854775807L);
    EXPECT_EQ(U::getValue(boost::none, "t"), "");
    EXPECT_EQ(U::getIntValue(boost::none, "one", 7), 7);
    EXPECT_TRUE(U::hasKey(tree, "a.b"));
    EXPECT_FALSE(U::findKey(tree, "a.c"));
}

struct Row : JSONSerializable {
    std::string text = "unset";
    unsigned number = 9;
    bool flag = true;
    const std::string& getText() const { return text; }
    void setText(const std::string& value) { text = value; }
    unsigned getNumber() const { return number; }
    void setNumber(unsigned value) { number = value; }
    bool getFlag() const { return flag; }
    void setFlag(bool value) { flag = value; }
    void toJSON(JSONObjectWriter& writer) const override;
};
using K = json::Keys<Row>;
constexpr json::Key<Row> kRow[] = {
    json::ifPresent(K::text<&Row::getText, &Row::setText>("text")),
    K::number<&Row::getNumber, &Row::setNumber>("number"),
    K::flag<&Row::getFlag, &Row::setFlag>("flag"),
};
void Row::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kRow, *this); }

TEST(JsonKeys, OneTableReadsAndWrites) {
    Row row;
    json::readKeys(ptree(), kRow, row);
    EXPECT_EQ(row.text, "unset") << "read only when the key is there";
    EXPECT_EQ(row.number, 0U);
    EXPECT_FALSE(row.flag);
    ptree tree;
    tree.put("number", "7 apples");
    tree.put("flag", "True");
    tree.put("text", "");
    tree.put("unknown", "x");
    json::readKeys(tree, kRow, row);
    JSONObjectWriter writer;
    row.toJSON(writer);
    EXPECT_EQ(textOf(writer), "{\n    \"number\": \"7\",\n    \"flag\": \"true\"\n}\n");
}

}  // namespace
