#include "xml/XmlReader.h"

#include <gmock/gmock.h>

#include "kit/Files.h"
#include "xml/Garden.h"

using namespace garden;
using testing::HasSubstr;

namespace {

Garden readPlain(const std::string& text) { return xml::read(kPlainDocument, text, "g.xml"); }

/// A garden whose document element holds `attributes` and, on the second line, `body`.
std::string plain(const std::string& attributes, const std::string& body) {
    return "<garden name='n'" + attributes + ">\n" + body + "</garden>";
}

const std::string kBody = "<description/><gate/>";

std::string utf16(const std::string& ascii) {
    std::string result = "\xFE\xFF";
    for (const char c : ascii) result += {'\0', c};
    return result;
}

std::optional<xml::Exception> refusal(const xml::Document<Garden>& format, const std::string& text) {
    try {
        xml::read(format, text, "g.xml");
    } catch (const xml::Exception& e) {
        return e;
    }
    return std::nullopt;
}

}  // namespace

TEST(XmlReader, FillsTheRecord) {
    const Garden g = readPlain(
        "<garden name=' two  blanks ' open=' 1 ' level='-32768' visitors='&#9;65535' stones='4294967295'"
        " grains='18446744073709551615' balance='-9223372036854775808'>\n"
        "<!-- between --><?pi x?><description> a &lt; <![CDATA[<b>]]>\n</description>\n"
        "<water litres=' +99999999999999999999 '><pump power='1.50 '/><sign></sign></water>"
        "<bed plant='r\xC3\xB6se'/><bed plant='' rows='0'/>\n<gate/><gate/></garden>\n");
    EXPECT_EQ(g.name.get(), " two  blanks ");
    EXPECT_TRUE(g.open.get());
    EXPECT_EQ(g.level.get(), -32768);
    EXPECT_EQ(g.visitors.get(), 65535);
    EXPECT_EQ(g.stones.get(), 4294967295U);
    EXPECT_EQ(g.grains.get(), 18446744073709551615U);
    EXPECT_EQ(g.balance.get(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(g.description, " a < <b>\n");
    ASSERT_TRUE(g.water);
    EXPECT_EQ(g.water->litres.get().text, "+99999999999999999999");
    EXPECT_EQ(g.water->litres.get().value(), std::numeric_limits<long long>::max());
    const auto& pumped = std::get<Pumped>(g.water->source);
    EXPECT_EQ(pumped.pump.power.get().text, "1.50");
    EXPECT_TRUE(pumped.sign);
    ASSERT_EQ(g.beds.size(), 2U);
    EXPECT_EQ(g.beds[0].plant.get(), "r\xC3\xB6se");
    EXPECT_FALSE(g.beds[0].rows.isSet());
    EXPECT_TRUE(g.beds[1].plant.isSet());
    EXPECT_EQ(g.beds[1].rows.get(), 0);
    EXPECT_EQ(g.gates.size(), 2U);
    EXPECT_FALSE(g.bench);  // only the writer asks for it
}

TEST(XmlReader, ReadsTwoEncodings) {
    EXPECT_EQ(readPlain(utf16("<garden name='wide'><description/><gate/></garden>")).name.get(), "wide");
    EXPECT_EQ(readPlain("<?xml version='1.0' encoding='utf-8'?>" + plain("", kBody)).name.get(), "n");
    EXPECT_EQ(readPlain("\xEF\xBB\xBF<garden name='bom'>" + kBody + "</garden>").name.get(), "bom");
}

TEST(XmlReader, IsBounded) {
    const std::string manyAttributes = [] {
        std::string text;
        for (std::size_t i = 0; i < xml::kMaxAttributes; ++i) text += " a" + std::to_string(i) + "=''";
        return text;
    }();
    const std::string manyScopes = [] {
        std::string text;
        for (std::size_t i = 0; i <= 100; ++i) text += " xmlns:a" + std::to_string(i) + "='u'";
        return text;
    }();
    const std::string long16M(xml::kMaxToken, ' ');
    const struct {
        std::string text, words;
    } cases[] = {
        {repeated("<garden name='n'>", 100'000), "<garden> appears in <garden>"},
        {plain(manyAttributes, kBody), "a tag has 1001 attributes; at most 1000 are read"},
        {plain(manyScopes, kBody), "more than 100 namespace declarations are in force"},
        {plain(long16M, kBody), "a tag or a comment has 16777"},
        {plain("", "<!--" + long16M + "-->" + kBody), "a tag or a comment has 16777"},
        {plain("", "<?p " + long16M + "?>" + kBody), "a tag or a comment has 16777"},
        {plain("", "<description>" + long16M + "x</description>"),
         "the text of <description> has more than 16777216"},
        {plain("", "<description/>" + repeated("<gate/>", 1'000'000)), "more than 1000000 elements and attributes"},
        {plain("", kBody) + long16M + long16M, "bytes; at most 33554432 are read"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words);
        const auto e = refusal(kPlainDocument, c.text);
        ASSERT_TRUE(e);
        EXPECT_THAT(e->what(), HasSubstr(c.words));
    }
}

TEST(XmlReader, ALongNamespaceCostsItsLengthOnce) {
    // With the parser's own namespaces this document takes 500 times its size.
    std::string text = "<g:garden xmlns:g='" + std::string(2'000'000, 'u') + "'";
    for (int i = 0; i < 500; ++i) text += " g:a" + std::to_string(i) + "=''";
    const auto e = refusal(kDocument, text + "/>");
    ASSERT_TRUE(e);
    EXPECT_THAT(e->what(), HasSubstr("the document element is <g:garden>"));
}

TEST(XmlReader, ReportsEveryFault) {
    const std::string text =
        "<garden colour='red' level='x'>\n"                     // 1: unknown, bad, and name is missing
        "<shed><bed/><gate rows='1'/></shed>\n"                 // 2: unknown; what is in it is passed over
        "<water litres='1'><butt/></water>\n"                   // 3: the description before it is missing
        "<bed plant='a'/>stray <bed rows='-1' plant='b'/> x\n"  // 4: text (once), value
        "<description/>\n"                                      // 5: that of line 3
        "</garden>\n";                                          // 6: no gate
    std::vector<std::pair<unsigned, std::string>> found;
    for (const xml::Violation& v : xml::check(kPlainDocument, text, "g.xml")) {
        EXPECT_EQ(v.place.file, "g.xml");
        found.emplace_back(v.place.line, v.element);
    }
    const decltype(found) expected = {{1, "garden"}, {1, "garden"}, {1, "garden"}, {2, "shed"},
                                      {3, "water"},  {4, "garden"}, {4, "bed"},    {6, "garden"}};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(xml::check(kPlainDocument, text, "g.xml", 3).size(), 3U);
    EXPECT_TRUE(xml::check(kPlainDocument, plain("", kBody), "g.xml").empty());
}

TEST(XmlReader, AValueThatIsWrongIsNotMissing) {
    const auto found =
        xml::check(kPlainDocument, plain("", "<description/><water><pump power='x'/></water><gate/>"), "g.xml");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_STREQ(found[0].name, xml::fault::kBadValue);
}

TEST(XmlReader, ReportsDeepNestingInsideASkippedElement) {
    const auto found = xml::check(kPlainDocument, plain("", repeated("<x>", 100'000)), "g.xml");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_THAT(found[1].text, HasSubstr("elements nest deeper than 64 levels"));
}

TEST(XmlReader, NamesTheFileThatCannotBeRead) {
    for (const char* path : {"/nowhere/g.xml", "/"}) {
        try {
            xml::readFile(kPlainDocument, path);
            FAIL() << path;
        } catch (const xml::Exception& e) {
            EXPECT_EQ(e.line(), 0U);
            EXPECT_THAT(e.what(), HasSubstr(path));
        }
    }
}

TEST(XmlReader, DescribesThePlace) {
    const auto e = refusal(kPlainDocument, plain("", "<shed/>"));
    ASSERT_TRUE(e);
    EXPECT_EQ(e->diagnostic().format(),
              "g.xml:2:1: shed: <shed> appears in <garden> where <description> is expected");
}
