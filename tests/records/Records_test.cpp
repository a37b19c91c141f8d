// The five XML formats: their rows against documents and against their schemas.
#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <regex>

#include "kit/Cases.h"
#include "kit/Xmllint.h"
#include "platform/PlatformSchema.h"
#include "records/Documents.h"
#include "records/Formats.h"
#include "records/TEQCfaXmlLMX.h"
#include "records/TEQEmulationLMX.h"
#include "records/TEQHpfmLMX.h"
#include "records/TEQPlatformLMX.h"
#include "records/TEQSoftwarePlatformLMX.h"
#include "xml/XmlWriter.h"

using teq_platform::PlatformSchema;

namespace {

namespace fs = std::filesystem;

const std::string kCases = ZR_SOURCE_DIR "/tests/cases/";

cases::Format formatOf(const std::string& name) {
    const auto check = [format = records::findFormat(name)](const std::string& text) {
        std::vector<cases::Fault> faults;
        for (const xml::Violation& v : format->check(text, "file", 10))
            faults.push_back({v.name, v.place.line, v.place.column, v.element, v.text});
        return faults;
    };
    return {check, PlatformSchema::text(name)};
}

/// Every row is read and written in its place.
template <class R>
void expectRoundTrip(const xml::Document<R>& format, const std::string& file) {
    const std::string text = documents::of(file);
    EXPECT_EQ(xml::write(format, xml::read(format, text, "file")), text) << file;
}

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

TEST(Records, ReaderAndSchemaAgree) {
    for (const std::string& name : PlatformSchema::formats()) cases::expectVerdicts(kCases + name, formatOf);
}

TEST(Records, RoundTrip) {
    for (const char* file : {"zdf/whole.zdf", "zdf/emulation.zdf", "zdf/partitions.zdf"})
        expectRoundTrip(TEQPlatform::kDocument, file);
    expectRoundTrip(TEQSoftwarePlatform::kDocument, "spfm/whole.spfm");
    expectRoundTrip(WELHardwarePlatform::kDocument, "hpfm/whole.hpfm");
    expectRoundTrip(TEQEmulation::kDocument, "emu/whole.xml");
    expectRoundTrip(BasePlatform::kDocument, "cfa/whole.xml");
}

/// Of the documents that hold what is required, and no more, nothing can be left out.
TEST(Records, RequiredAttributes) {
    static const std::regex attribute(R"re( (?:\w+:)?(\w+)="[^"]*")re");
    int erased = 0;
    for (const auto& entry : fs::recursive_directory_iterator(kCases)) {
        if (!entry.path().filename().string().starts_with("required")) continue;
        const cases::Format format = formatOf(entry.path().parent_path().filename());
        const std::string text = contentOf(entry.path());
        EXPECT_TRUE(format.check(text).empty()) << entry.path();
        for (auto at = std::sregex_iterator(text.begin() + 40, text.end(), attribute); at != std::sregex_iterator();
             ++at) {
            if ((*at)[0].str().starts_with(" xmlns")) continue;
            SCOPED_TRACE(entry.path().string() + at->str());
            const auto faults = format.check(std::string(text).erase(40 + at->position(), at->length()));
            ASSERT_EQ(faults.size(), 1U);
            EXPECT_EQ(faults[0].text, "<" + faults[0].element + "> needs the attribute " + at->str(1));
            ++erased;
        }
    }
    EXPECT_GT(erased, 150);
}

TEST(Records, DescriptorTellsItsContent) {
    const auto read = [](const char* file) { return xml::read(TEQPlatform::kDocument, documents::of(file), ""); };
    EXPECT_EQ(read("zdf/whole.zdf").hardwarePlatforms.content.index(), 0U);
    EXPECT_EQ(read("zdf/emulation.zdf").hardwarePlatforms.content.index(), 1U);
    const auto partitions = read("zdf/partitions.zdf").hardwarePlatforms;
    const auto& list = std::get<TEQPlatform::Partitioned>(partitions.content).reconfigurablePartitions;
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].content.index(), 0U);
    EXPECT_EQ(list[1].content.index(), 1U);
}

/// The reader takes an empty list of interfaces, the writer makes none; and neither an empty list of devices.
TEST(Records, ListsThatMustHoldSomething) {
    using namespace BasePlatform;
    const Root whole = xml::read(kDocument, documents::of("cfa/whole.xml"), "file");
    Root root = whole;
    root.cfa.board.interfaces->interface.reset();
    EXPECT_THROW(xml::write(kDocument, root), xml::Exception);
    root = whole;
    root.cfa.devices.devices.clear();
    EXPECT_THROW(xml::write(kDocument, root), xml::Exception);
    const Root fresh;
    EXPECT_EQ(fresh.VersionMajor.get(), 1U);
    EXPECT_EQ(fresh.VersionMinor.get(), 15U);
    EXPECT_THROW(xml::write(kDocument, fresh), xml::Exception) << "a version of its own does not count as set";
}

TEST(PlatformSchema, TakesTheSamples) {
    std::map<std::string, std::vector<std::string>> samples;
    for (const auto& entry : fs::recursive_directory_iterator(ZR_SOURCE_DIR "/examples")) {
        const std::string name = entry.path().filename().string(), extension = entry.path().extension().string();
        const std::string format = name == "hw_emu.xml"                     ? "emu"
                                   : name == "cfa.xml" || name == "lfa.xml" ? "cfa"
                                                                            : extension.substr(!extension.empty());
        if (entry.is_regular_file() && records::findFormat(format))
            samples[format].push_back(contentOf(entry.path()));
    }
    for (const std::string& format : PlatformSchema::formats()) {
        SCOPED_TRACE(format);
        EXPECT_FALSE(samples[format].empty());
        EXPECT_THAT(validBy(PlatformSchema::text(format), samples[format]), testing::Each(true));
    }
    EXPECT_EQ(PlatformSchema::text("json"), "");
}

TEST(PlatformSchema, DocumentsEachRow) {
    for (const records::FormatRow& format : records::formats()) {
        EXPECT_STRNE(format.format->doc, "") << format.name;
        expectDocumented(format.format->root, *format.format->element);
    }
}
