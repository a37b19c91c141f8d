// Hostile XML wherever a platform's loading reads it. The engine's own tests cover the text of each error.
#include <gtest/gtest.h>

#include <string>

#include "kit/CfaXml.h"
#include "kit/Platforms.h"
#include "kit/Trial.h"
#include "kit/ZipBuilder.h"

namespace {

struct Fault {
    std::string what, text, words;
};

std::vector<Fault> faults() {
    std::vector<Fault> faults;
    for (const cases::Case& c : cases::read(ZR_SOURCE_DIR "/tests/cases/hostile/xml.case"))
        faults.push_back({c.name, cases::plain(c.lines[0].text), cases::plain(c.lines[1].text)});
    return faults;
}

std::string file(const std::string& name, const std::string& text) {
    const std::string path = Place::get().fresh() + "/" + name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

/// An archive with XML metadata, and further members.
std::string xmlArchive(const std::string& metadata, const std::vector<builder::Entry>& others = {}) {
    builder::Zip zip;
    zip.entries = {builder::Entry("lfa.xml", metadata, true)};
    zip.entries.insert(zip.entries.end(), others.begin(), others.end());
    return file("x.lfa", zip.build());
}

/// XML metadata whose list of files has this row so many times.
std::string listed(const std::string& type, const std::string& name, int times = 1) {
    return with(kCfaXml, R"(<File Type="T1" Name="f1" UsedIn="u" ProcessingOrder="po"/>)",
                repeated("<File Type='" + type + "' Name='" + name + "'/>", static_cast<std::size_t>(times)));
}

}  // namespace

TEST(HostileXml, Descriptors) {
    for (const Fault& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(file("x.zdf", c.text), "PlatformParseException", c.words);
    }
}

TEST(HostileXml, SoftwareFiles) {
    for (const Fault& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(file("x.spfm", c.text), "null", c.words);
    }
}

/// What the metadata itself lists counts when the hpfm is not valid; an emulation file that is not is a failure.
TEST(HostileXml, HpfmAndEmulationMembers) {
    static const struct {
        const char *type, *outcome, *words;
    } kinds[] = {{"HPFM", "loads", "x.lfa!x.xml:"}, {"EMU_XML", "null", "x.lfa!x.xml"}};
    for (const auto& kind : kinds) {
        for (const Fault& c : faults()) {
            SCOPED_TRACE(std::string(kind.type) + ", " + c.what);
            if (c.text.empty()) continue;  // no hpfm
            const std::string metadata =
                std::string(R"({"busInterfaces": [{"name": "kept"}], "files": [{"type": ")") + kind.type +
                R"(", "name": "x.xml"}]})";
            builder::Zip zip;
            zip.entries = {builder::Entry("lfa.json", metadata), builder::Entry("x.xml", c.text, true)};
            const Answer answer = tried(file("x.lfa", zip.build()));
            EXPECT_EQ(answer.outcome, kind.outcome) << answer.words;
            EXPECT_NE(answer.words.find(kind.words), std::string::npos) << answer.words;
            EXPECT_EQ(answer.document.find(R"("name": "kept")") != std::string::npos,
                      kind.outcome == std::string("loads"));
        }
    }
}

TEST(HostileXml, Metadata) {
    for (const Fault& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(xmlArchive(c.text), "null", c.words);
    }
}

TEST(HostileXml, ValuesOfTheMetadata) {
    expectAnswers("metadata.case", [](const cases::Case& each) {
        return xmlArchive(with(kCfaXml, cases::plain(each.lines[0].text), cases::plain(each.lines[1].text)));
    });
}

/// A member that the metadata lists a hundred thousand times is read in time; names that lead elsewhere, nowhere.
TEST(HostileXml, FilesOfTheMetadata) {
    const std::string hpfm = "<!--" + std::string(1'000'000, ' ') + "--><a/>";
    const builder::Entry entry("x.xml", hpfm, true);
    for (const char* type : {"HPFM", "EMU_XML"}) {
        SCOPED_TRACE(type);
        tried(xmlArchive(listed(type, "x.xml", 100'000), {entry}));
        for (const char* name : {"../../x.xml", "/etc/passwd", "/dev/zero", "a//b", "", "&#10;", "x.lfa!x.xml"})
            tried(xmlArchive(listed(type, name)));
    }
}

TEST(HostileXml, PathsOfADescriptorThatLeadElsewhere) {
    for (const char* name : {"/dev/zero", "../../../../../../../dev/zero",
                             "a\xC2\x9B"
                             "31m.lfa",
                             "&#10;x.lfa", "x.lfa/"}) {
        SCOPED_TRACE(name);
        const std::string hardware =
            "<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", name) + "</teq:hardwarePlatforms>";
        EXPECT_EQ(tried(file("x.zdf", descriptor(hardware))).outcome, "null");
    }
}

/// Each archive is closed again before the next thousand are opened, and what lives on after the load is bounded.
TEST(HostileXml, Partitions) {
    const auto zdf = [](int count) {
        std::string text = "<teq:hardwarePlatforms>";
        for (int i = 0; i < count; ++i)
            text += "<teq:reconfigurablePartition teq:id='" + std::to_string(i) + "'>" +
                    fileElement("hardwarePlatform", "p" + std::to_string(i % 100) + ".lfa") +
                    "</teq:reconfigurablePartition>";
        const std::string path = file("x.zdf", descriptor(text + "</teq:hardwarePlatforms>"));
        builder::Zip zip;
        zip.entries = {builder::Entry("lfa.json", R"({"name": "n"})")};
        const std::string directory = path.substr(0, path.rfind('/') + 1);
        for (int i = 0; i < 100; ++i)
            std::ofstream(directory + "p" + std::to_string(i) + ".lfa", std::ios::binary) << zip.build();
        std::ofstream(directory + "sw.spfm") << kSoftware;
        return path;
    };
    expectAnswer(zdf(1024), "loads", "");
    expectAnswer(zdf(1025), "PlatformParseException", "1024");
}
