#include "xml/XmlReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

std::string repeated(const std::string& text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

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

struct Refusal {
    std::string text;
    unsigned line, column;
    std::string element, words;
};

void expectRefusals(const xml::Document<Garden>& format, const std::vector<Refusal>& cases) {
    for (const Refusal& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 200));
        const auto e = refusal(format, c.text);
        ASSERT_TRUE(e);
        EXPECT_EQ(e->line(), c.line);
        EXPECT_EQ(e->column(), c.column);
        EXPECT_EQ(e->element(), c.element);
        EXPECT_THAT(e->what(), HasSubstr(c.words));
    }
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

TEST(XmlReader, FirstChildDecidesTheAlternative) {
    const Garden g = readPlain(plain("", "<description/><water><butt/><butt/></water><gate/>"));
    EXPECT_EQ(std::get<Rained>(g.water->source).butts.size(), 2U);
}

TEST(XmlReader, MatchesByNamespaceWhateverThePrefix) {
    const std::string bodies[] = {
        "<g:garden xmlns:g='urn:garden' g:name='n'><g:description/><g:gate/></g:garden>",
        "<other:garden xmlns:other='urn:garden' other:name='n'><other:description/><other:gate/></other:garden>",
        "<garden xmlns='urn:garden' xmlns:q='urn:garden' q:name='n'><description/><q:gate/></garden>",
        "<g:garden xmlns:g='urn:garden' g:name='n'><h:description xmlns:h='urn:garden' xmlns:g='urn:x'/><g:gate/>"
        "</g:garden>",
        "<g:garden xmlns:g='urn:garden' g:name='n' xml:lang='en' xmlns:s='http://www.w3.org/2001/XMLSchema-instance'"
        " s:schemaLocation='urn:garden g.xsd'><g:description xml:space='preserve'/><g:gate/></g:garden>",
    };
    for (const std::string& body : bodies) {
        SCOPED_TRACE(body);
        EXPECT_EQ(xml::read(kDocument, body, "g.xml").name.get(), "n");
    }
}

TEST(XmlReader, ReadsTwoEncodings) {
    EXPECT_EQ(readPlain(utf16("<garden name='wide'><description/><gate/></garden>")).name.get(), "wide");
    EXPECT_EQ(readPlain("<?xml version='1.0' encoding='utf-8'?>" + plain("", kBody)).name.get(), "n");
    EXPECT_EQ(readPlain("\xEF\xBB\xBF<garden name='bom'>" + kBody + "</garden>").name.get(), "bom");
}

TEST(XmlReader, RefusesChildren) {
    expectRefusals(
        kPlainDocument,
        {
            {plain("", "<gate/>"), 2, 1, "gate", "<gate> stands in <garden> where <description> is expected"},
            {plain("", "<description/>\n"), 3, 1, "garden",
             "<garden> ends where <water>, <bed> or <gate> is expected"},
            {plain("", "<description/><gate/><bed plant='x'/>"), 2, 22, "bed",
             "where <gate>, <bench> or the end of <garden> is expected"},
            {plain("", "<description/><description/>"), 2, 15, "description", "where <water>, <bed> or <gate> is"},
            {plain("", "<description/><gate/><bench/><bench/>"), 2, 30, "bench", "the end of <garden> is expected"},
            {plain("", "<description/>\n\n  <shed/>"), 4, 3, "shed", "<shed> stands in <garden>"},
            {plain("", "<description><b/></description>"), 2, 14, "b", "the end of <description> is expected"},
            {plain("", "<description/><gate><b/></gate>"), 2, 21, "b", "the end of <gate> is expected"},
            {plain("", "<description/><water/>"), 2, 23, "water", "<water> ends where <pump> or <butt> is expected"},
            {plain("", "<description/><water><sign/></water>"), 2, 22, "sign", "where <pump> or <butt> is expected"},
            {plain("", "<description/><water><pump power='1'/><butt/></water>"), 2, 39, "butt",
             "where <sign> or the end of <water> is expected"},
            {plain("", "<description/>words<gate/>"), 2, 15, "garden", "the text \"words\" stands in <garden>"},
            {plain("", "<description/><gate> x</gate>"), 2, 21, "gate", "the end of <gate> is expected"},
            {"<gardens/>", 1, 1, "gardens", "the document element is <gardens>; expected <garden> in no namespace"},
            {"<garden xmlns='urn:garden' name='n'/>", 1, 1, "garden", "expected <garden> in no namespace"},
        });
}

TEST(XmlReader, RefusesAttributes) {
    expectRefusals(
        kPlainDocument,
        {
            {"<garden>" + kBody + "</garden>", 1, 1, "garden", "<garden> needs the attribute name"},
            {plain("", "<description/>\n <bed/>"), 3, 2, "bed", "<bed> needs the attribute plant"},
            {plain("", "<description/><bed plant='x' Rows='1'/>"), 2, 15, "bed",
             "<bed> has no attribute Rows; it has plant or rows"},
            {plain("", "<description/><gate x='1'/>"), 2, 15, "gate", "<gate> has no attribute x; it has none"},
            {plain(" xmlns:g='urn:garden' g:open='1'", kBody), 1, 1, "garden",
             "the attribute g:open of <garden> must be in no namespace"},
            {plain(" p:open='1'", kBody), 1, 1, "garden", "the prefix of p:open is not declared"},
            {plain(" a:b:c='1'", kBody), 1, 1, "garden", "a:b:c is not a valid name"},
        });
}

TEST(XmlReader, RefusesValuesInThreeKinds) {
    expectRefusals(
        kPlainDocument,
        {
            {plain(" visitors=''", kBody), 1, 1, "garden", "visitors=\"\" of <garden> is not an integer"},
            {plain(" visitors='1 2'", kBody), 1, 1, "garden", "is not an integer"},
            {plain(" visitors='0x10'", kBody), 1, 1, "garden", "is not an integer"},
            {plain(" visitors='99999999999999999999999.5'", kBody), 1, 1, "garden", "is not an integer"},
            {plain(" visitors='-1'", kBody), 1, 1, "garden", "visitors=\"-1\" of <garden> is below the minimum, 0"},
            {plain(" visitors='-99999999999999999999999'", kBody), 1, 1, "garden", "is below the minimum, 0"},
            {plain(" visitors='65536'", kBody), 1, 1, "garden", "is above the maximum, 65535"},
            {plain(" level='-32769'", kBody), 1, 1, "garden", "is below the minimum, -32768"},
            {plain(" level='32768'", kBody), 1, 1, "garden", "is above the maximum, 32767"},
            {plain(" stones='4294967296'", kBody), 1, 1, "garden", "is above the maximum, 4294967295"},
            {plain(" grains='18446744073709551616'", kBody), 1, 1, "garden",
             "is above the maximum, 18446744073709551615"},
            {plain(" balance='-9223372036854775809'", kBody), 1, 1, "garden",
             "is below the minimum, -9223372036854775808"},
            {plain(" balance='9223372036854775808'", kBody), 1, 1, "garden",
             "is above the maximum, 9223372036854775807"},
            {plain(" open='yes'", kBody), 1, 1, "garden", "is not a Boolean (true, false, 1 or 0)"},
            {plain("", "<description/><water litres='1.0'/>"), 2, 15, "water", "is not an integer"},
            {plain("", "<description/><water><pump power='1e3'/></water>"), 2, 22, "pump", "is not a decimal number"},
            {plain("", "<description/><water><pump power='.'/></water>"), 2, 22, "pump", "is not a decimal number"},
            {plain("", "<description/><bed plant='' rows='256'/>"), 2, 15, "bed", "is above the maximum, 255"},
            {plain(" level='\x7F" + std::string(100, 'x') + "'", kBody), 1, 1, "garden",
             "level=\"\\x7f" + std::string(59, 'x') + "...\" of"},
        });
}

TEST(XmlReader, RefusesNamespaces) {
    expectRefusals(
        kDocument,
        {
            {"<garden name='n'/>", 1, 1, "garden", "expected <garden> in the namespace \"urn:garden\""},
            {"<g:garden name='n'/>", 1, 1, "", "the prefix of g:garden is not declared"},
            {"<g:garden xmlns:g='urn:garden' name='n'/>", 1, 1, "garden",
             "the attribute name of <garden> must be in the namespace \"urn:garden\""},
            {"<g:garden xmlns:g='urn:garden' xmlns:h='urn:garden' g:name='n' h:name='m'/>", 1, 1, "garden",
             "<garden> has the attribute name twice"},
            {"<g:garden xmlns:g='urn:garden' g:name='n'>\n<description/></g:garden>", 2, 1, "description",
             "<description> stands in <garden> where <description> is expected"},
            {"<g:garden xmlns:g='urn:garden' g:name='n'><g:description xmlns:h='urn:garden'/>\n<h:gate/></g:garden>",
             2, 1, "garden", "the prefix of h:gate is not declared"},
            {"<g:garden xmlns:g='' g:name='n'/>", 1, 1, "", "is not a valid namespace declaration"},
        });
}

TEST(XmlReader, RefusesWhatIsNotWellFormed) {
    expectRefusals(
        kPlainDocument,
        {
            {"", 1, 1, "", "not well-formed XML: no element found"},
            {"<garden name='n'>\n<description>", 2, 14, "description", "the open element is <description>"},
            {"<garden name='n'>\n<description></gate>", 2, 16, "description", "mismatched tag"},
            {plain(" name='m'", kBody), 1, 18, "", "duplicate attribute"},
            {plain("", "<description>&other;</description>"), 2, 14, "description", "undefined entity"},
            {plain("", kBody) + "<more/>", 2, 31, "", "junk after document element"},
            {plain("", "<description>\xFF</description>"), 2, 14, "description", "not well-formed"},
            {"<?xml version='1.0' encoding='klingon'?><garden/>", 1, 1, "", "the encoding is \"klingon\"; expected"},
            {"<?xml version='1.0' encoding='iso-8859-1'?><garden/>", 1, 1, "", "the encoding is \"iso-8859-1\""},
            {utf16(plain("", kBody)).substr(2), 1, 1, "", "UTF-16 without a byte-order mark"},
        });
}

TEST(XmlReader, RefusesADocumentTypeDeclaration) {
    for (const char* declaration :
         {"<!DOCTYPE garden>", "<!DOCTYPE garden SYSTEM 'file:///dev/zero'>", "<!DOCTYPE garden [<!ENTITY a 'b'>]>",
          "<!DOCTYPE garden [<!ENTITY a SYSTEM 'http://example.com/'>]>"}) {
        SCOPED_TRACE(declaration);
        const auto e = refusal(kPlainDocument, declaration + plain("", kBody));
        ASSERT_TRUE(e);
        EXPECT_EQ(e->line(), 1U);
        EXPECT_THAT(e->what(), HasSubstr("a document type declaration is not allowed"));
    }
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
        {repeated("<garden name='n'>", 100'000), "<garden> stands in <garden>"},
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
        "<description/>\n"                                      // 5: too late
        "</garden>\n";                                          // 6: no gate
    std::vector<std::pair<unsigned, std::string>> found;
    for (const xml::Violation& v : xml::check(kPlainDocument, text, "g.xml")) {
        EXPECT_EQ(v.place.file, "g.xml");
        found.emplace_back(v.place.line, v.element);
    }
    const decltype(found) expected = {{1, "garden"}, {1, "garden"}, {1, "garden"},      {2, "shed"},  {3, "water"},
                                      {4, "garden"}, {4, "bed"},    {5, "description"}, {6, "garden"}};
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
    EXPECT_EQ(e->describe(), "g.xml:2:1: <shed> stands in <garden> where <description> is expected");
    EXPECT_EQ(e->place().offset, 18U);
}
