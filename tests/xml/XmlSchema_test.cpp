#include "xml/XmlSchema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Xmllint.h"
#include "xml/Garden.h"
#include "xml/XmlReader.h"

using namespace garden;
using testing::HasSubstr;
using testing::Not;

namespace {

const std::string kBody = "<description/><gate/>";

std::string plain(const std::string& attributes, const std::string& body = kBody) {
    return "<garden name='n' " + attributes + ">" + body + "</garden>";
}

/// A document, and whether reader and schema take it.
struct Case {
    std::string text;
    bool taken;
};

void expectAgreement(const xml::Document<Garden>& format, const std::vector<Case>& cases) {
    std::vector<std::string> texts;
    for (const Case& c : cases) texts.push_back(c.text);
    const std::vector<bool> valid = validBy(xml::schemaOf(format), texts);
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(cases[i].text);
        EXPECT_EQ(xml::check(format, cases[i].text, "g").empty(), cases[i].taken) << "the reader";
        EXPECT_EQ(valid[i], cases[i].taken) << "xmllint";
    }
}

}  // namespace

TEST(XmlSchema, TakesTheFormsOfValuesThatTheReaderTakes) {
    std::vector<Case> cases;
    const auto each = [&](const std::string& attribute, bool taken, const std::vector<std::string>& values) {
        for (const std::string& value : values) cases.push_back({plain(attribute + "='" + value + "'"), taken});
    };
    each("visitors", true, {"0", "65535", "+5", " 5 ", "-0", "007", "&#9;5&#10;", "0000000000000000000000000000005"});
    each("visitors", false,
         {"", "-1", "65536", "0x10", "5 5", "1.0", "1e3", "+", "&#xA0;5", "99999999999999999999999"});
    each("level", true, {"-32768", "32767"});
    each("level", false, {"-32769", "32768"});
    each("stones", true, {"4294967295"});
    each("stones", false, {"4294967296"});
    each("grains", true, {"18446744073709551615"});
    each("grains", false, {"18446744073709551616", "-1"});
    each("balance", true, {"-9223372036854775808", "9223372036854775807"});
    each("balance", false, {"-9223372036854775809", "9223372036854775808"});
    each("open", true, {"true", "false", "1", "0", " true&#13;"});
    each("open", false, {"", "TRUE", "yes", "01", "tr ue"});
    for (const auto& [power, taken] : {std::pair("1.", true),
                                       {".5", true},
                                       {"+1.50", true},
                                       {" -0.0 ", true},
                                       {".", false},
                                       {"", false},
                                       {"-", false},
                                       {"1e3", false},
                                       {"INF", false}})
        cases.push_back(
            {plain("", "<description/><water><pump power='" + std::string(power) + "'/></water><gate/>"), taken});
    for (const auto& [rows, taken] : {std::pair("255", true), {"256", false}})
        cases.push_back({plain("", "<description/><bed plant='' rows='" + std::string(rows) + "'/><gate/>"), taken});
    expectAgreement(kPlainDocument, cases);
}

TEST(XmlSchema, TakesTheContentsThatTheReaderTakes) {
    const std::vector<Case> cases = {
        {plain(""), true},
        {plain("", "<description> <![CDATA[<a>]]> &lt;</description><gate> <!-- c --><?p i?>\n</gate>"), true},
        {plain("", "\n<description xml:lang='en'/><gate><![CDATA[ ]]></gate><gate/><bench/>"), true},
        {plain("", "<description/><water litres='+99'><butt/><butt/></water><gate/>"), true},
        {plain("", "<description/><water><pump power='1'/></water><gate/>"), true},
        {plain("", "<description/><water><pump power='1'/><sign/></water><gate/>"), true},
        {plain("", "<description/><water/><gate/>"), false},
        {plain("", "<description/><water><sign/></water><gate/>"), false},
        {plain("", "<description/><water><pump power='1'/><butt/></water><gate/>"), false},
        {plain("", "<description/>"), false},
        {plain("", "<gate/>"), false},
        {plain("", "<description/><gate/><bed plant=''/>"), false},
        {plain("", "<description/><gate/><bench/><bench/>"), false},
        {plain("", "<description/><gate>x</gate>"), false},
        {plain("", "<description/><gate><gate/></gate>"), false},
        {plain("", "<description><b/></description><gate/>"), false},
        {plain("", "<description/>x<gate/>"), false},
        {plain("colour='red'"), false},
        {plain("xmlns:o='urn:o' o:colour='red'"), false},
        {plain("xml:lang='en' xml:anything='x'"), true},
        {"<gate/>", false},
    };
    expectAgreement(kPlainDocument, cases);
}

TEST(XmlSchema, QualifiesElementsAndAttributes) {
    const std::vector<Case> cases = {
        {"<g:garden xmlns:g='urn:garden' g:name='n'><g:description/><g:gate/></g:garden>", true},
        {"<garden xmlns='urn:garden' xmlns:q='urn:garden' q:name='n'><description/><q:gate/></garden>", true},
        {"<g:garden xmlns:g='urn:garden' name='n'><g:description/><g:gate/></g:garden>", false},
        {"<g:garden xmlns:g='urn:garden' g:name='n'><description/><g:gate/></g:garden>", false},
        {"<garden name='n'><description/><gate/></garden>", false},
    };
    expectAgreement(kDocument, cases);
}

TEST(XmlSchema, NamesAKindOfElementOnce) {
    const std::string schema = xml::schemaOf(kDocument);
    const auto declared = schema.find("<xs:complexType name=\"sign\">");
    ASSERT_NE(declared, std::string::npos) << "the kind of <sign>, <butt>, <gate> and <bench> is first met as <sign>";
    EXPECT_EQ(schema.find("<xs:complexType name=\"sign\">", declared + 1), std::string::npos);
    EXPECT_THAT(schema, Not(HasSubstr("<xs:complexType name=\"gate\">")));
    EXPECT_THAT(schema, HasSubstr("<xs:element name=\"gate\" type=\"g:sign\" maxOccurs=\"unbounded\"/>"));
    EXPECT_THAT(schema, HasSubstr("Readers take a document without it; one that is written has it."));
}

namespace {

// Two kinds of one element name, as of <Core> in <Core>, and texts that need escapes.
struct Inner {
    xml::Attr<std::string> a;
};
struct Outer {
    Inner inner;
};
struct Root {
    Outer outer;
};
constexpr auto kInnerAttributes = xml::attributes<Inner>(xml::required<&Inner::a>("a", "less < than & \"quoted\""));
constexpr auto kInner = xml::element(kInnerAttributes);
constexpr auto kOuterChildren = xml::children<Outer>(xml::one<&Outer::inner>("Core", kInner));
constexpr auto kOuter = xml::element(kOuterChildren);
constexpr auto kRootChildren = xml::children<Root>(xml::one<&Root::outer>("Core", kOuter, "the outer one"));
constexpr auto kRoot = xml::element(kRootChildren);
constexpr auto kNested = xml::document("", "", "Root", kRoot, "of the root");

}  // namespace

TEST(XmlSchema, TellsTwoKindsOfOneNameApart) {
    const std::string schema = xml::schemaOf(kNested);
    EXPECT_THAT(schema, HasSubstr("<xs:complexType name=\"Core\">"));
    EXPECT_THAT(schema, HasSubstr("<xs:complexType name=\"Core.Core\">"));
    for (const char* doc : {"less &lt; than &amp; &quot;quoted&quot;", "the outer one", "of the root"})
        EXPECT_THAT(schema, HasSubstr(std::string("<xs:documentation>") + doc + "</xs:documentation>"));
    const std::vector<bool> valid =
        validBy(schema, {"<Root><Core><Core a=''/></Core></Root>", "<Root><Core a=''><Core a=''/></Core></Root>"});
    EXPECT_EQ(valid, std::vector<bool>({true, false}));
}
