// What a platform writes into its archive, loading shows again.
#include <gmock/gmock.h>

#include <map>

#include "kit/Cases.h"
#include "kit/Hpfm.h"
#include "kit/Leaves.h"
#include "kit/Platforms.h"
#include "platform/HPLPlatform.h"
#include "platform/PlatformLoader.h"
#include "zip/Archive.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RoundTrip : public testing::Test {
protected:
    /// Packs `document` as the metadata of an archive, loads it, lets the platform write it; gives what it wrote.
    std::string written(const std::string& document, std::map<std::string, std::string> members = {}) {
        members["lfa.json"] = document;
        archive_ = packed(scratch_, "p.lfa", members);
        load()->writeToJSON();
        return member();
    }
    HPLPlatform* load() {
        platform_ = teq_platform::PlatformLoader(archive_, teq_platform::HwMetadataMode::Default).load();
        return dynamic_cast<HPLPlatform*>(platform_->getHardwarePlatform());
    }
    std::string member() const {
        const zip::Archive archive(archive_);
        return archive.read(*archive.find("lfa.json"));
    }
    Scratch scratch_;
    Messages messages_;
    std::string archive_;
    std::shared_ptr<HTEQPlatform> platform_;
};

/// Each key that readers take from a document, with texts that cannot come from a default.
TEST_F(RoundTrip, NothingIsLostOfWhatReadersTake) {
    const std::string document = contentOf(ZR_SOURCE_DIR "/tests/cases/loading/whole.json");
    const std::string after = written(document);
    const Loss loss = lossBetween(document, after);
    EXPECT_THAT(loss.lost, IsEmpty());
    EXPECT_THAT(loss.changed, IsEmpty());
    EXPECT_TRUE(after.ends_with("}\n\n")) << "the document's own line end, and one more";

    load()->writeToJSON();
    EXPECT_EQ(member(), after) << "and the next time the same bytes";
}

/// Keys that the model does not hold, does not write, or writes in a form of its own.
TEST_F(RoundTrip, KeysThatAreLost) {
    const auto listed = [](const std::vector<std::string>& places) {
        std::string text;
        for (const std::string& place : places) text += " " + place;
        return text;
    };
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/loading/losses.case", [&](const auto&, const std::string& text) {
        const Loss loss = lossBetween(text, written(text));
        return "lost:" + listed(loss.lost) + ", changed:" + listed(loss.changed);
    });
}

/// An archive with an hpfm: its interfaces are the platform's, whatever the document says.
TEST_F(RoundTrip, TheHpfmsInterfacesReplaceTheDocuments) {
    const std::string before =
        R"({"files": [{"name": "p.hpfm", "type": "HPFM"}], "busInterfaces": [{"name": "own"}]})";
    const std::string after = written(before, {{"p.hpfm", hpfm("<kp:busInterface kp:name='theirs'/>")}});
    EXPECT_EQ(leavesOf(after).at("busInterfaces[0].name"), "theirs");
    EXPECT_THAT(lossBetween(before, after).changed, ElementsAre("busInterfaces[0].name"));
    load()->writeToJSON();
    EXPECT_EQ(member(), after);
}

}  // namespace
