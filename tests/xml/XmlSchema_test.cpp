#include "xml/XmlSchema.h"

#include <gmock/gmock.h>

#include "kit/Cases.h"
#include "kit/Xmllint.h"
#include "xml/Garden.h"
#include "xml/XmlReader.h"

using namespace garden;
using testing::HasSubstr;
using testing::Not;

TEST(XmlSchema, AgreesWithTheReader) {
    cases::expectVerdicts(ZR_SOURCE_DIR "/tests/cases/garden", [](const std::string& file) {
        const auto& format = file == "plain" ? kPlainDocument : kDocument;
        const auto check = [&format](const std::string& text) {
            std::vector<cases::Fault> faults;
            for (const xml::Violation& v : xml::check(format, text, "g.xml"))
                faults.push_back({v.name, v.place.line, v.place.column, v.element, v.text});
            return faults;
        };
        return cases::Format{check, xml::schemaOf(format)};
    });
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
