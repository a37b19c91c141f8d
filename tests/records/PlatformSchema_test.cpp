#include "platform/PlatformSchema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

#include "records/Documents.h"
#include "records/Formats.h"
#include "support/Xmllint.h"

using teq_platform::PlatformSchema;

namespace {

namespace fs = std::filesystem;

/// A good document with one text of it replaced everywhere.
struct Change {
    const std::string& document;
    std::string find, replacement;
    const char* name = "";  ///< of the fault that the reader tells first, when it is refused
};

std::string changed(const Change& change) {
    std::string text = change.document;
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(change.find, at)) != std::string::npos;
         at += change.replacement.size()) {
        text.replace(at, change.find.size(), change.replacement);
        ++count;
    }
    EXPECT_GT(count, 0U) << change.find;
    return text;
}

const std::string& formatOf(const std::string& document) {
    static const std::string zdf = "zdf", spfm = "spfm", hpfm = "hpfm", emu = "emu";
    return &document == &documents::kSoftware    ? spfm
           : &document == &documents::kHpfm      ? hpfm
           : &document == &documents::kEmulation ? emu
                                                 : zdf;
}

/// The verdicts of both about the changed documents: {the reader takes it, the schema takes it}.
std::vector<std::pair<bool, bool>> verdicts(const std::vector<Change>& changes, std::vector<std::string>& names) {
    std::map<std::string, std::vector<std::size_t>> byFormat;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        byFormat[formatOf(changes[i].document)].push_back(i);
        texts.push_back(changed(changes[i]));
    }
    std::vector<std::pair<bool, bool>> result(changes.size());
    names.resize(changes.size());
    for (const auto& [format, indexes] : byFormat) {
        std::vector<std::string> ofFormat;
        for (const std::size_t i : indexes) ofFormat.push_back(texts[i]);
        const std::vector<bool> valid = validBy(PlatformSchema::text(format), ofFormat);
        for (std::size_t k = 0; k < indexes.size(); ++k) {
            const auto faults = records::findFormat(format)->check(ofFormat[k], "file", 10);
            if (!faults.empty()) names[indexes[k]] = faults.front().name;
            result[indexes[k]] = {faults.empty(), valid[k]};
        }
    }
    return result;
}

using namespace documents;

const std::vector<Change> kBroken = {
    // descriptor
    {kDescriptor, "urn:torvane:teq:platform:1.0", "urn:torvane:teq:platform:2.0", "wrong-root"},
    {kDescriptor, "teq:platform", "teq:Platform", "wrong-root"},
    {kDescriptor, " teq:vendor=\"v\"", "", "missing-attribute"},
    {kDescriptor, "teq:vendor=\"v\"", "vendor=\"v\"", "unknown-attribute"},
    {kDescriptor, "teq:library=\"l\"", "teq:library=\"l\" teq:libary=\"l\"", "unknown-attribute"},
    {kDescriptor, "teq:name=\"n\"", "teq:name=\"n\" teq:name=\"n\"", "not-well-formed"},
    {kDescriptor, "teq:name=\"n\"", "teq:name=\"n\" xmlns:t2=\"urn:torvane:teq:platform:1.0\" t2:name=\"n\"",
     "repeated-attribute"},
    {kDescriptor, "1.50", "1.5.0", "bad-value"},
    {kDescriptor, "1.50", "v1", "bad-value"},
    {kDescriptor, "2.0", "", "bad-value"},
    {kDescriptor, "defaultRP=\"7\"", "defaultRP=\"7.0\"", "bad-value"},
    {kDescriptor, "<teq:description>two\nlines</teq:description>", "", "missing-element"},
    {kDescriptor, "two\nlines", "two<br/>lines", "unknown-element"},
    {kDescriptor, "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"e.lfa\"/>",
     "<teq:hardwarePlatform teq:path=\"hw\" teq:name=\"n.lfa\"/>", "misplaced-element"},
    {kDescriptor, "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"e.lfa\"/>",
     "<teq:reconfigurablePartition teq:id=\"1\"/>", "misplaced-element"},
    {kDescriptor, "</teq:softwarePlatforms>", "</teq:softwarePlatforms><teq:softwarePlatforms/>",
     "misplaced-element"},
    {kDescriptor, "<teq:softwarePlatform teq:path=\"sw\" teq:name=\"n.spfm\"/>", "", "missing-element"},
    {kDescriptor, "<teq:hardwarePlatforms teq:defaultRP=\"7\">", "<teq:hardwarePlatforms teq:defaultRP=\"7\">text",
     "stray-text"},
    {kDescriptor, "teq:name=\"n.lfa\"/>", "teq:name=\"n.lfa\">n.lfa</teq:hardwarePlatform>", "stray-text"},
    {kDescriptor, "</teq:platform>", "", "not-well-formed"},
    {kDescriptor, "</teq:platform>", "</teq:platform><teq:platform/>", "not-well-formed"},
    {kDescriptor, "two\nlines", "&nbsp;", "not-well-formed"},
    {kDescriptor, "<teq:hardwarePlatform ", "<tq:hardwarePlatform ", "namespace"},
    {kDescriptor, "<teq:softwarePlatforms>", "<teq:softwarePlatforms tq:x=\"\">", "namespace"},
    {kEmulationOnly, "teq:hwEmuPlatform", "teq:hwEmuplatform", "unknown-element"},
    {kEmulationOnly, "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"e.lfa\"/>", "", "missing-element"},
    {kPartitions, " teq:id=\"2\"", "", "missing-attribute"},
    {kPartitions, "teq:id=\"2\"", "teq:id=\"two\"", "bad-value"},
    {kPartitions, "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"2.lfa\"/>", "", "missing-element"},
    {kPartitions, "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"2.lfa\"/>",
     "<teq:hwEmuPlatform teq:path=\"emu\" teq:name=\"2.lfa\"/><teq:hwEmuPlatform teq:path=\"\" teq:name=\"\"/>",
     "misplaced-element"},
    {kPartitions, "<teq:reconfigurablePartition teq:id=\"1\">",
     "<teq:hardwarePlatform teq:path=\"\" teq:name=\"\"/><teq:reconfigurablePartition teq:id=\"1\">",
     "misplaced-element"},
    // software file
    {kSoftware, "teq:bif=\"b\"", "", "missing-attribute"},
    {kSoftware, "teq:cpuType=\"x86\"", "", "missing-attribute"},
    {kSoftware, "teq:runtimes", "teq:Runtimes", "unknown-attribute"},
    {kSoftware, "<teq:description></teq:description>", "", "missing-element"},
    {kSoftware, "<teq:prebuilt teq:data=\"pre\"/>", "<teq:prebuilt teq:data=\"\"/><teq:prebuilt teq:data=\"\"/>",
     "misplaced-element"},
    {kSoftware, "</teq:bootImages>", "<teq:image teq:name='' teq:bif='' teq:readme=''/></teq:bootImages>",
     "misplaced-element"},
    {kSoftware, "<teq:os teq:name=\"standalone\" teq:displayName=\"Alone\"/>", "", "missing-element"},
    {kSoftware, "<teq:os teq:name=\"standalone\"", "<teq:OS teq:name=\"standalone\"", "unknown-element"},
    {kSoftware, "teq:schemaVersion=\"1\"", "teq:schemaVersion=\"one\"", "bad-value"},
    {kSoftware, "teq:systemConfigurations", "teq:systemConfiguration", "unknown-element"},
    // hpfm
    {kHpfm, "kp:repository", "kp:busInterface", "wrong-root"},
    {kHpfm, "urn:torvane:kp:hpfm:1.0", "urn:torvane:teq:platform:1.0", "wrong-root"},
    {kHpfm, "dataWidth=\"-32768\"", "dataWidth=\"-32769\"", "out-of-range"},
    {kHpfm, "irq=\"5\"", "irq=\"65536\"", "out-of-range"},
    {kHpfm, "irq=\"5\"", "irq=\"0x5\"", "bad-value"},
    {kHpfm, "idBits=\"4\"", "idBits=\"4294967296\"", "out-of-range"},
    {kHpfm, "LUT=\"4294967295\"", "LUT=\"-1\"", "out-of-range"},
    {kHpfm, "cacheCoherent=\"true\"", "cacheCoherent=\"yes\"", "bad-value"},
    {kHpfm, "hasTlast=\"false\"", "hasTlast=\"\"", "bad-value"},
    {kHpfm, "writeBwUsed=\"-1\"", "writeBwUsed=\"1.5\"", "bad-value"},
    {kHpfm, "frequency=\"300.000000\"", "frequency=\"300 MHz\"", "bad-value"},
    {kHpfm, "period=\"+1.\"", "period=\"1,5\"", "bad-value"},
    {kHpfm, "defaultClock=\"0\"", "defaultClock=\"\"", "bad-value"},
    {kHpfm, "<kp:description>text</kp:description>", "", "missing-element"},
    {kHpfm, "<kp:nocConnectivity kp:instanceRef=\"idle\"/>", "<kp:busInterface kp:name=\"late\"/>",
     "misplaced-element"},
    {kHpfm, "</kp:component>", "</kp:component><kp:component/>", "misplaced-element"},
    {kHpfm, "<kp:busInterface kp:name=\"nb\"/>", "<kp:addressSegment/>", "unknown-element"},
    {kHpfm, "kp:name=\"bare\"", "", "missing-attribute"},
    {kHpfm, "<kp:addressSegment/>", "<kp:addressSegment> bank 1 </kp:addressSegment>", "stray-text"},
    // emulation targets
    {kEmulation, "<Root ", "<Root xmlns=\"urn:x\" ", "wrong-root"},
    {kEmulation, "VersionMajor=\"1\"", "VersionMajor=\"1.0\"", "bad-value"},
    {kEmulation, "4294967295", "4294967296", "out-of-range"},
    {kEmulation, "<Files/>", "", "missing-element"},
    {kEmulation, "<Files/>", "<Files/><Files/>", "misplaced-element"},
    {kEmulation, "Name=\"b\"", "name=\"b\"", "unknown-attribute"},
    {kEmulation, "Type=\"\" ", "", "missing-attribute"},
};

const std::vector<Change> kOdd = {
    {kDescriptor, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", ""},
    {kDescriptor, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", "\xEF\xBB\xBF<!-- c --><?p i?>"},
    {kDescriptor, "version=\"1.0\" encoding=\"UTF-8\"", "version=\"1.1\" encoding=\"UTF-8\""},
    {kDescriptor, "<teq:softwarePlatform ", "<x:softwarePlatform xmlns:x=\"urn:torvane:teq:platform:1.0\" "},
    {kDescriptor, "\n", "\r\n"},
    {kDescriptor, "two\nlines", " <![CDATA[<b>]]> &amp; &#xE9; "},
    {kDescriptor, "1.50", "&#10; +.5 "},
    {kDescriptor, "defaultRP=\"7\"", "defaultRP=\"-00000000000000000000000000000007\""},
    {kDescriptor, "teq:name=\"n\"", "teq:name=\"n\" xml:lang=\"en\" xml:id=\"1\""},
    {kDescriptor, "teq:name=\"n\"",
     "teq:name=\"n\" xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:schemaLocation=\"urn:a b.xsd\""},
    {kDescriptor, "<teq:description>", "<teq:description xml:space=\"preserve\">"},
    {kDescriptor, "teq:name=\"n.lfa\"/>", "teq:name=\"n.lfa\">\n<!-- c --><![CDATA[ ]]></teq:hardwarePlatform>"},
    {kDescriptor, "<teq:softwarePlatforms>", "<teq:softwarePlatforms> &#32;<?p i?>"},
    {kSoftware, "teq:runtimes=\"ocl,cpp\"", "teq:runtimes=\"\""},
    {kSoftware, "<teq:description></teq:description>", "<teq:description/>"},
    {kHpfm, "cacheCoherent=\"true\"", "cacheCoherent=\" 1 \""},
    {kHpfm, "irq=\"5\"", "irq=\" +65535 \""},
    {kHpfm, "xmlns:kp=\"urn:torvane:kp:hpfm:1.0\"",
     "xmlns=\"urn:torvane:kp:hpfm:1.0\" xmlns:kp=\"urn:torvane:kp:hpfm:1.0\""},
    {kEmulation, "VersionMajor=\"1\"", "VersionMajor=\"-0\""},
    {kEmulation, "<Files/>", "<Files>\n</Files>"},
};

struct Disagreement {
    Change change;
    bool takenByReader;
    const char* reason;
};

const std::vector<Disagreement> kDisagreements = {
    {{kDescriptor, "<teq:platform ", "<!DOCTYPE x><teq:platform "},
     false,
     "a schema does not see document type declarations; the reader refuses them, so that no entity is ever expanded"},
    {{kDescriptor, "encoding=\"UTF-8\"", "encoding=\"ISO-8859-1\"", "encoding"},
     false,
     "a schema does not see encodings; the reader knows UTF-8, and UTF-16 with its mark"},
    {{kDescriptor, "teq:name=\"n\"", "teq:name=\"n\" xmlns:empty=\"\""},
     false,
     "xmllint reports the declaration, and goes on"},
    {{kDescriptor, "teq:name=\"n\"",
      "teq:name=\"n\" xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:nil=\"false\""},
     true,
     "the reader skips attributes of the schema instance namespace; to a validator they mean something"},
    {{kDescriptor, "teq:name=\"n\"",
      "teq:name=\"n\" xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:type=\"other\""},
     true,
     "likewise"},
    {{kDescriptor, "1.50", "1234567890123456789012345"}, true, "libxml2 holds 24 digits of a number at most"},
    {{kDescriptor, "<teq:softwarePlatforms>", "<teq:softwarePlatforms><![CDATA[ ]]>"},
     true,
     "blanks in a CDATA section between elements are blanks to the reader and text to libxml2"},
};

}  // namespace

TEST(PlatformSchema, TakesTheSamples) {
    std::map<std::string, std::vector<std::string>> samples;
    for (const auto& entry : fs::recursive_directory_iterator(ZR_SOURCE_DIR "/examples")) {
        const std::string name = entry.path().filename().string(), extension = entry.path().extension().string();
        const std::string format = name == "hw_emu.xml"                     ? "emu"
                                   : name == "cfa.xml" || name == "lfa.xml" ? "cfa"
                                                                            : extension.substr(!extension.empty());
        if (entry.is_regular_file() && records::findFormat(format))
            samples[format].push_back(contentOf(entry.path().string()));
    }
    for (const std::string& format : PlatformSchema::formats()) {
        SCOPED_TRACE(format);
        EXPECT_FALSE(samples[format].empty());
        const std::vector<bool> valid = validBy(PlatformSchema::text(format), samples[format]);
        for (std::size_t i = 0; i < valid.size(); ++i) EXPECT_TRUE(valid[i]) << samples[format][i].substr(0, 400);
    }
}

TEST(PlatformSchema, TakesTheWholeFormats) {
    for (const std::string* document : {&kDescriptor, &kEmulationOnly, &kPartitions, &kSoftware, &kHpfm, &kEmulation})
        EXPECT_TRUE(validBy(PlatformSchema::text(formatOf(*document)), {*document}).front()) << *document;
}

TEST(PlatformSchema, RefusesWhatTheReaderRefuses) {
    std::vector<std::string> names;
    const auto found = verdicts(kBroken, names);
    for (std::size_t i = 0; i < kBroken.size(); ++i) {
        SCOPED_TRACE(kBroken[i].find + " -> " + kBroken[i].replacement);
        EXPECT_FALSE(found[i].first) << "the reader";
        EXPECT_FALSE(found[i].second) << "xmllint";
        EXPECT_EQ(names[i], kBroken[i].name);
    }
}

TEST(PlatformSchema, TakesTheOdditiesThatTheReaderTakes) {
    std::vector<std::string> names;
    const auto found = verdicts(kOdd, names);
    for (std::size_t i = 0; i < kOdd.size(); ++i) {
        SCOPED_TRACE(kOdd[i].find + " -> " + kOdd[i].replacement);
        EXPECT_TRUE(found[i].first) << "the reader: " << names[i];
        EXPECT_TRUE(found[i].second) << "xmllint";
    }
}

TEST(PlatformSchema, DisagreesWithTheReaderForKnownReasonsOnly) {
    std::vector<Change> changes;
    for (const Disagreement& d : kDisagreements) changes.push_back(d.change);
    std::vector<std::string> names;
    const auto found = verdicts(changes, names);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE(kDisagreements[i].reason);
        EXPECT_EQ(found[i].first, kDisagreements[i].takenByReader);
        EXPECT_EQ(found[i].second, !kDisagreements[i].takenByReader);
    }
}

namespace {

void expectDocumented(const std::string& name, const xml::Element& element) {
    for (const xml::Attribute& row : element.attributes) EXPECT_STRNE(row.doc, "") << name << " " << row.name;
    const auto each = [&](std::span<const xml::Child> children) {
        for (const xml::Child& row : children) {
            EXPECT_STRNE(row.doc, "") << "<" << row.name << "> in <" << name << ">";
            expectDocumented(row.name, *row.element);
        }
    };
    each(element.children);
    for (const xml::Alternative& alternative : element.alternatives) each(alternative.children);
}

}  // namespace

TEST(PlatformSchema, DocumentsEachRow) {
    for (const records::FormatRow& format : records::formats()) {
        EXPECT_STRNE(format.format->doc, "") << format.name;
        expectDocumented(format.format->root, *format.format->element);
    }
}

TEST(PlatformSchema, KnowsItsFormatsOnly) {
    EXPECT_EQ(PlatformSchema::text("json"), "");
    EXPECT_EQ(PlatformSchema::text(""), "");
}
