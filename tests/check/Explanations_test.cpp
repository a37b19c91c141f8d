#include "check/Explanations.h"

#include <gmock/gmock.h>

#include <set>

#include "check/Samples.h"
#include "xml/XmlException.h"

using teq_platform::CheckExplanation;
using teq_platform::CheckFinding;
using teq_platform::PlatformCheck;

namespace {

std::vector<std::string> namesIn(const CheckExplanation& row, const char* sample) {
    const Scratch scratch;
    std::vector<std::string> names;
    for (const CheckFinding& finding : PlatformCheck::check(made(scratch, row.file, sample))) {
        names.emplace_back(finding.name);
        EXPECT_NE(PlatformCheck::explain(finding.name), nullptr);
    }
    return names;
}

}  // namespace

TEST(Explanations, SamplesGiveTheirName) {
    for (const CheckExplanation& row : PlatformCheck::explanations()) {
        SCOPED_TRACE(row.name);
        const std::vector<std::string> bad = namesIn(row, row.bad);
        EXPECT_THAT(bad, testing::Contains(row.name));
        EXPECT_THAT(namesIn(row, row.good), testing::IsEmpty());
        // What exceeds a limit within a hundred lines is an unknown element too.
        if (row.name == std::string(xml::fault::kLimit)) continue;
        EXPECT_THAT(bad, testing::Each(row.name));
    }
}

TEST(Explanations, ExistOncePerName) {
    std::set<std::string> names;
    for (const CheckExplanation& row : PlatformCheck::explanations()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(PlatformCheck::explain(row.name), &row);
        EXPECT_STRNE(row.meaning, "");
        EXPECT_STRNE(row.advice, "");
    }
    EXPECT_EQ(PlatformCheck::explain("no-such-name"), nullptr);
}

/// A name that the code can give but the table lacks would be a null pointer in the middle of a check.
TEST(Explanations, HaveEveryNameThatTheSourcesDefine) {
    std::size_t count = 0;
    for (const char* header : {ZR_SOURCE_DIR "/src/shared/xml/XmlException.h",
                               ZR_SOURCE_DIR "/src/shared/platform/src/check/Findings.h"}) {
        const std::string text = contentOf(header);
        const std::string mark = "[] = \"";
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; ++count) {
            at += mark.size();
            const std::string name = text.substr(at, text.find('"', at) - at);
            EXPECT_NE(PlatformCheck::explain(name), nullptr) << name;
        }
    }
    EXPECT_EQ(count, PlatformCheck::explanations().size());
}
