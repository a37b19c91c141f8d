// XML of strangers in each place where the road reads it. What the engine says of each fault is tested with it.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "kit/CfaXml.h"
#include "kit/Platforms.h"
#include "kit/Trial.h"
#include "kit/ZipBuilder.h"

namespace {

std::string wide(const std::string& ascii, bool hasMark) {
    std::string text = hasMark ? "\xFF\xFE" : "";
    for (const char c : ascii) text += {c, '\0'};
    return text;
}

/// A thousand million laughs.
std::string laughs() {
    std::string text = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 10; ++i)
        text += "<!ENTITY e" + std::to_string(i) + " '" + repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    return text + "]><a>&e9;</a>";
}

struct Case {
    const char* what;
    std::string text;
    const char* words;
};

const std::vector<Case>& faults() {
    static const std::vector<Case> cases{
        {"nothing", "", "no element found"},
        {"a document type declaration", "<!DOCTYPE a><a/>", "a document type declaration"},
        {"laughter", laughs(), "a document type declaration"},
        {"a chain of parameters", "<!DOCTYPE a [<!ENTITY % p '<!ENTITY q SYSTEM \"/etc/passwd\">'>%p;]><a/>",
         "a document type declaration"},
        {"another file", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>", "a document type declaration"},
        {"depth", repeated("<teq:a xmlns:teq='urn:torvane:teq:platform:1.0'>", 100'000), "is <teq:a>"},
        {"an open tag", "<" + std::string(3'000'000, 'a'), "not well-formed"},
        {"UTF-16 with a mark", wide("<a/>", true), "is <a>"},
        {"UTF-16 without a mark", wide("<a/>", false), "UTF-16 without a byte-order mark"},
        {"another encoding", "<?xml version='1.0' encoding='windows-1252'?><a/>", "the encoding is \"windows-1252\""},
        {"an encoding that is not its own", "<?xml version='1.0' encoding='UTF-16'?><a/>", "not well-formed"},
        {"invalid UTF-8", "<a b='\xC0\xAF'/>", "not well-formed"},
        {"a NUL", std::string("<a b='\0'/>", 10), "not well-formed"},
        {"the namespace rebound",
         "<teq:platform xmlns:teq='urn:torvane:teq:platform:1.0'><teq:description "
         "xmlns:teq='urn:other'/></teq:platform>",
         ""},
        {"a separator in the namespace", "<a xmlns='urn:torvane:teq:platform:1.0|platform'/>", "is <a>"},
        {"escapes for a terminal",
         "<a b='\xC2\x9B"
         "31m'/>",
         "is <a>"},
        {"a long name", "<" + std::string(100'000, 'a') + "/>", "is <aaaa"},
        {"an instruction without end", "<?a " + std::string(100'000, 'b'), "not well-formed"},
    };
    return cases;
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
    for (const Case& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(file("x.zdf", c.text), "PlatformParseException", c.words);
    }
}

TEST(HostileXml, SoftwareFiles) {
    for (const Case& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(file("x.spfm", c.text), "null", c.words);
    }
}

/// What the metadata itself lists counts when the hpfm is not valid; an emulation file that is not is a failure.
TEST(HostileXml, HpfmAndEmulationMembers) {
    static const struct {
        const char *type, *outcome, *words;
    } kinds[] = {{"HPFM", "loads", "hpfm text of the archive is not valid"}, {"EMU_XML", "null", "x.lfa!x.xml"}};
    for (const auto& kind : kinds) {
        for (const Case& c : faults()) {
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
    for (const Case& c : faults()) {
        SCOPED_TRACE(c.what);
        expectAnswer(xmlArchive(c.text), "null", c.words);
    }
}

TEST(HostileXml, ValuesOfTheMetadata) {
    static const struct {
        std::string part, replacement;
        const char *outcome, *words;
    } cases[] = {
        {"ComputeUnits=\"255\"", "ComputeUnits=\"255\"", "loads", ""},
        {"ComputeUnits=\"255\"", "ComputeUnits=\"many\"", "null", "lfa.xml:47: "},
        {"ComputeUnits=\"255\"", "ComputeUnits=\"-1\"", "null", "is below the minimum, 0"},
        {"ComputeUnits=\"255\"", "ComputeUnits=\"256\"", "null", "is above the maximum, 255"},
        {"VersionMajor=\"1\"", "VersionMajor=\"2\"", "null", "is newer than the current version 1"},
        {"CL=\"7\"", "CL=\"" + std::string(10'000, '9') + "\"", "null", "is above the maximum"},
        {"<Core>", repeated("<Core>", 100'000), "null", "<Core> stands in <Core>"},
        {"<Board ", "<Board><Nested xmlns='urn:x'/></Board><Board ", "null", ""},
        {"<GenAppInfo", "<Unknown/><GenAppInfo", "null", "<Unknown>"},
        {"<CFA ", "<CFA" + repeated(" a=''", 1) + " a='' ", "null", "duplicate attribute"},
        {"UUID=\"01234567-89ab-cdef-0123-456789abcdef\"", "UUID=\"&#27;[2J\"", "null", ""},
        {"LUT=\"11\"", "LUT=\"" + std::string(10'000, '9') + "\"", "loads", ""},
        {"Size=\"16GB\"", "Size=\"" + std::string(100'000, '9') + "GB\"", "", ""},
        {"Value=\"kv\"", "Value=\"" + std::string(1'000'000, 'v') + "\"", "loads", ""},
        {"Name=\"k1\"", "Name=\"" + repeated("a.", 4'500) + "\"", "null", "too many levels between its dots"},
        {"Name=\"k1\"", "Name=\"" + repeated("a.", 63) + "a\"", "loads", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.replacement.substr(0, 100));
        expectAnswer(xmlArchive(with(kCfaXml, c.part, c.replacement)), c.outcome, c.words);
    }
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
