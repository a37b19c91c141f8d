#include "xml/XmlWriter.h"

#include <gmock/gmock.h>

#include "xml/Garden.h"
#include "xml/XmlReader.h"

using namespace garden;
using testing::HasSubstr;

namespace {

Garden sample() {
    Garden g;
    g.name.set("a \"b\" <c> & 'd'\n\te\r");
    g.open.set(false);
    g.level.set(-5);
    g.description = "  x < y\r\n & z ";
    g.water.emplace().litres.set({"007"});
    g.water->source.emplace<Rained>().butts.resize(2);
    g.beds.resize(1);
    g.beds[0].plant.set("r\xC3\xB6se");
    g.beds[0].rows.set(200);
    g.gates.resize(1);
    g.bench.emplace();
    return g;
}

}  // namespace

TEST(XmlWriter, WritesTheForm) {
    EXPECT_EQ(xml::write(kDocument, sample()),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<g:garden xmlns:g=\"urn:garden\" g:name=\"a &quot;b&quot; &lt;c&gt; &amp; 'd'&#10;&#9;e&#13;\""
              " g:open=\"false\" g:level=\"-5\">\n"
              "  <g:description>  x &lt; y&#13;\n &amp; z </g:description>\n"
              "  <g:water g:litres=\"007\">\n"
              "    <g:butt/>\n"
              "    <g:butt/>\n"
              "  </g:water>\n"
              "  <g:bed g:plant=\"r\xC3\xB6se\" g:rows=\"200\"/>\n"
              "  <g:gate/>\n"
              "  <g:bench/>\n"
              "</g:garden>\n");
}

TEST(XmlWriter, ReadingGivesTheRecordBack) {
    const Garden g = sample();
    EXPECT_EQ(xml::read(kDocument, xml::write(kDocument, g), "g.xml"), g);
    EXPECT_EQ(xml::read(kPlainDocument, xml::write(kPlainDocument, g), "g.xml"), g);
    EXPECT_NE(g, Garden{});
}

TEST(XmlWriter, RefusesARecordThatIsNotWhole) {
    const struct {
        void (*spoil)(Garden&);
        std::string element, words;
    } cases[] = {
        {[](Garden& g) { g.name = {}; }, "garden", "<garden> needs the attribute name"},
        {[](Garden& g) { g.beds.emplace_back(); }, "bed", "<bed> needs the attribute plant"},
        {[](Garden& g) { g.gates.clear(); }, "garden", "<garden> needs a <gate>"},
        {[](Garden& g) { g.bench.reset(); }, "garden", "<garden> needs a <bench>"},
        {[](Garden& g) { g.water->source.emplace<Rained>(); }, "water", "<water> needs a <butt>"},
        {[](Garden& g) { g.water->source.emplace<Pumped>(); }, "pump", "<pump> needs the attribute power"},
        {[](Garden& g) { g.name.set("a\x01"); }, "garden", "holds a byte that XML cannot"},
        {[](Garden& g) { g.name.set(std::string("\0", 1)); }, "garden", "holds a byte that XML cannot"},
        {[](Garden& g) { g.description = "\xC3"; }, "description", "holds a byte that XML cannot"},
        {[](Garden& g) { g.description = "\xC0\xAF"; }, "description", "holds a byte that XML cannot"},
        {[](Garden& g) { g.description = "\xED\xA0\x80"; }, "description", "holds a byte that XML cannot"},
        {[](Garden& g) { g.description = "\xEF\xBF\xBF"; }, "description", "holds a byte that XML cannot"},
        {[](Garden& g) { g.description = "\xF4\x90\x80\x80"; }, "description", "holds a byte that XML cannot"},
    };
    for (const auto& c : cases) {
        Garden g = sample();
        c.spoil(g);
        try {
            xml::write(kDocument, g);
            ADD_FAILURE() << "written without: " << c.words;
        } catch (const xml::Exception& e) {
            EXPECT_EQ(e.element(), c.element);
            EXPECT_EQ(e.line(), 0U);
            EXPECT_THAT(e.what(), HasSubstr(c.words));
        }
    }
}

TEST(XmlWriter, TakesEveryCharacterThatXmlHas) {
    Garden g = sample();
    g.description = "\t\n\x7F\xC2\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    EXPECT_EQ(xml::read(kDocument, xml::write(kDocument, g), "g.xml"), g);
}
