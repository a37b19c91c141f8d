// The C++ wrapper, and through it the C interface under the sanitizers.
#include <gmock/gmock.h>

#include <iostream>
#include <sstream>
#include <thread>

#include "kit/Platforms.h"
#include "kit/Replace.h"
#include "kit/Run.h"
#include "kit/ZipBuilder.h"
#include "platform/HTEQPlatformCAPI.h"
#include "platform/zr_platform.hpp"

namespace {

using testing::HasSubstr;

class Wrapper : public testing::Test {
protected:
    const Scratch scratch;
    const Messages messages;
    const std::string archive = packed(
        scratch, "x.lfa",
        {{"lfa.json", R"({"name": "card", "own": "1", "files": [{"name": "a", "type": "DCP"}]})"}, {"a", "bytes"}});
};

/// What a call fails with; it must.
template <class Call>
zr::Error errorOf(Call call) {
    try {
        call();
    } catch (const zr::Error& error) {
        return error;
    }
    ADD_FAILURE() << "no exception";
    return zr::Error(nullptr);
}

TEST_F(Wrapper, GivesTheBytesOfTheThreeFunctions) {
    const zr::Platform platform(archive);
    char* const document = hteq_get_platform_json(archive.c_str());
    char* const brief = hteq_get_short_platform_json(archive.c_str());
    EXPECT_EQ(platform.document(), document);
    EXPECT_EQ(platform.shortDocument(), brief);
    hteq_free_json_string(document);
    hteq_free_json_string(brief);
    EXPECT_EQ(platform.name(), "card");
    EXPECT_EQ(platform.vendor(), "");
    EXPECT_EQ(platform.get(static_cast<zr_field>(1000)), "");
    EXPECT_EQ(zr::version().substr(0, 2), "20");
}

TEST_F(Wrapper, TellsFailuresWithTheirPlace) {
    const std::string bad = packed(scratch, "bad.lfa", {{"lfa.json", "{\n\"a\": ,\n}"}});
    const zr::Error error = errorOf([&] { const zr::Platform platform(bad); });
    EXPECT_EQ(error.code(), ZR_BAD_INPUT);
    EXPECT_EQ(error.file(), bad);
    EXPECT_EQ(error.member(), "lfa.json");
    EXPECT_EQ(error.line(), 2U);
    EXPECT_EQ(error.column(), 6U);
    EXPECT_EQ(error.id(), "74-64");
    EXPECT_EQ(error.what(), bad + "!lfa.json:2:6: " + error.text() + " [not-json]");
    EXPECT_EQ(errorOf([&] { const zr::Archive opened(scratch / "gone"); }).code(), ZR_NOT_FOUND);
    EXPECT_EQ(errorOf([&] { zr::schema("x"); }).code(), ZR_NOT_FOUND);
    EXPECT_EQ(errorOf([&] {
                  zr::Platform(archive, {ZR_METADATA_XML, 0});
              }).text(),
              "the archive has no metadata member lfa.xml");
}

TEST_F(Wrapper, PrintsNothingOnStandardOutput) {
    std::ostringstream printed;
    std::streambuf* const before = std::cout.rdbuf(printed.rdbuf());
    const std::string file = scratch.put("bad.zdf", "<a/>");
    const zr::Error error = errorOf([&] { const zr::Platform platform(file); });
    std::cout.rdbuf(before);
    EXPECT_EQ(error.line(), 1U);
    EXPECT_EQ(printed.str(), "");
    EXPECT_EQ(messages.lines(), std::vector<std::string>({"@74-9@%s: " + file}));
}

TEST_F(Wrapper, ReadsChangesAndChecksArchives) {
    const zr::Archive opened(archive);
    ASSERT_EQ(opened.count(), 2U);
    const auto index = opened.find("a");
    ASSERT_TRUE(index);
    EXPECT_FALSE(opened.find("b"));
    const zr::Member member = opened.member(*index);
    EXPECT_EQ(member.name, "a");
    EXPECT_EQ(member.bytes, 5U);
    EXPECT_FALSE(member.isDirectory);
    EXPECT_EQ(opened.read(*index), "bytes");
    EXPECT_EQ(errorOf([&] { opened.read(*index, 4); }).member(), "a");
    opened.extract(*index, scratch / "out");
    EXPECT_EQ(contentOf(scratch / "out"), "bytes");
    EXPECT_EQ(errorOf([&] { opened.extract(*index, scratch / "out"); }).code(), ZR_REFUSED);
    std::filesystem::create_directory(scratch / "in");
    opened.extractAll(scratch / "in");
    zr::pack(scratch / "in", scratch / "y.lfa");
    EXPECT_EQ(contentOf(scratch / "y.lfa"), contentOf(archive));
    builder::Zip deep;  // 21 members, each in 500 directories of its own
    for (int i = 0; i < 21; ++i)
        deep.entries.emplace_back(std::to_string(i) + replaced(std::string(500, '-'), "-", "/d"), "");
    const zr::Archive many(scratch.put("deep.lfa", deep.build()));
    EXPECT_THAT(errorOf([&] { many.extractAll(scratch / "in"); }).what(), HasSubstr("more than 10000 files"));

    std::string losses;
    EXPECT_EQ(errorOf([&] { zr::setFile(archive, "ISS", "t", scratch / "out", 0, {}, &losses); }).code(), ZR_REFUSED);
    EXPECT_EQ(losses, "own: lost\n");
    zr::setFile(archive, "ISS", "t", scratch / "out", ZR_LOSE_KEYS);
    zr::stampDigest(archive);
    const zr::Verification good = zr::Archive(archive).verify();
    EXPECT_TRUE(good.isSound());
    EXPECT_EQ(good.digest, ZR_DIGEST_VALID);
    EXPECT_EQ(zr::Archive(archive).read(*zr::Archive(archive).find("t")), "bytes");

    std::string bytes = contentOf(archive);
    bytes.at(31U + static_cast<unsigned char>(bytes.at(28))) ^= 0x40;  // the data of the first member, "a"
    const zr::Verification broken = zr::Archive(scratch.put("broken.lfa", bytes)).verify();
    ASSERT_EQ(broken.differences.size(), 1U);
    EXPECT_FALSE(broken.isSound());
    EXPECT_EQ(broken.differences[0].member, "a");
    EXPECT_THAT(broken.differences[0].reason, testing::AnyOf(ZR_REASON_CRC, ZR_REASON_DAMAGED));
}

TEST_F(Wrapper, FindsWhatIsWrong) {
    const auto findings = zr::validate(scratch.put("root.zdf", "\n<platform/>\n"));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].file, scratch / "root.zdf");
    EXPECT_EQ(findings[0].line, 2U);
    EXPECT_EQ(findings[0].severity, ZR_ERROR);
    EXPECT_THAT(zr::explain(findings[0].name), HasSubstr("What to do"));
}

/// A line feed from untrusted input does not start a second line in any output.
TEST_F(Wrapper, SaysEverythingInOneLine) {
    std::vector<std::string> said;
    const auto take = [](void* user, const zr_message* message) {
        static_cast<std::vector<std::string>*>(user)->push_back(message->text);
    };
    zr_set_message_function(take, &said, nullptr);
    const std::string bad = packed(scratch, "x.lfa", {{"lfa.json", R"({"tilHardware": {"arch": "a\nb\u001b"}})"}});
    const zr::Error error = errorOf([&] { const zr::Platform platform(bad); });
    zr_set_message_function(nullptr, nullptr, nullptr);
    EXPECT_THAT(error.text(), testing::EndsWith("a\\x0ab\\x1b"));
    EXPECT_THAT(said, testing::Contains(testing::HasSubstr("a\\x0ab\\x1b")));

    const std::string strange = packed(scratch, "y.lfa", {{"lfa.json", R"({"a\nb": "c"})"}, {"file", ""}});
    zr_text* losses = nullptr;
    EXPECT_EQ(zr_set_file(strange.c_str(), "ISS", "file", strange.c_str(), 0, nullptr, &losses, nullptr), ZR_REFUSED);
    EXPECT_STREQ(zr_text_data(losses), "a\\x0ab: lost\n");
    zr_text_free(losses);
}

TEST_F(Wrapper, WorksInThreadsThatShareNoObject) {
    const std::string bad = scratch.put("bad.spfm", "\n<a/>");
    const std::string expected = zr::Platform(archive).document();
    zr_set_message_function([](void*, const zr_message*) {}, nullptr, nullptr);
    int wrong = 0;
    std::thread other([&] {
        for (int i = 0; i < 50; ++i) wrong += zr::Platform(archive).document() == expected ? 0 : 1;
    });
    int right = 0;
    for (int i = 0; i < 50; ++i) right += errorOf([&] { const zr::Platform platform(bad); }).line() == 2 ? 1 : 0;
    other.join();
    zr_set_message_function(nullptr, nullptr, nullptr);
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(right, 50);
}

}  // namespace
