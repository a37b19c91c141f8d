#include "platform/HTEQHpfmUtl.h"

#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/Hpfm.h"
#include "msg/HEXAll.h"
#include "records/TEQHpfmLMX.h"
#include "text/HSTStringUtils.h"
#include "xml/XmlReader.h"

TEST(HTEQHpfmUtl, SomeButNotAllAddressSegmentsPreferred) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/readers/hbm.case", [](const auto&, const std::string& autos) {
        const std::string document =
            hpfm(hbm("h", autos == "none" ? std::vector<std::string>() : HSTStringUtils::split(autos, ',')));
        auto interface = xml::read(WELHardwarePlatform::kDocument, document, "").component.busInterfaces.at(0);
        interface.addressSegments.emplace_back();  // one without the attribute, which does not count
        std::string text = HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface) ? "some:" : "no:";
        HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(interface);
        for (const auto& segment : interface.addressSegments)
            text += segment.auto_.isSet() ? " " + segment.auto_.get() : " unset";
        return text;
    });
}

TEST(HTEQHpfmUtl, RewritesTheFile) {
    const Scratch scratch;
    const std::string other = "<kp:busInterface kp:name='x'/>";
    const std::string file = scratch.put("a.hpfm", hpfm(other + hbm("h", {"true", "preferred", "false"})));
    const auto original = xml::readFile(WELHardwarePlatform::kDocument, file);
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(file);
    auto expected = original;
    expected.component.busInterfaces[1].addressSegments[0].auto_.set("preferred");
    EXPECT_EQ(xml::readFile(WELHardwarePlatform::kDocument, file), expected);
    const std::string text = contentOf(file);
    EXPECT_NE(text.find("\n    <kp:busInterface kp:name=\"b\" kp:instanceRef=\"h\""), std::string::npos) << text;
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(file);
    EXPECT_EQ(contentOf(file), text);
}

TEST(HTEQHpfmUtl, LeavesTheFileAlone) {
    const Scratch scratch;
    const std::string some = hbm("h", {"true", "preferred"});
    const struct {
        std::string text, message;
    } cases[] = {
        {hpfm(hbm("h", {"true", "true"})), ""},
        {hpfm("<kp:busInterface kp:name='b'><kp:addressSegment kp:auto='true'/>"
              "<kp:addressSegment kp:auto='preferred'/></kp:busInterface>"),
         ""},
        {hpfm(some + some), "@74-261@"},
        {hpfm(some + "<kp:shed/>"), "@74-260@%s%s%s"},
    };
    for (const auto& c : cases) {
        const std::string file = scratch.put("a.hpfm", c.text);
        const Capture capture;
        HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(file);
        EXPECT_EQ(contentOf(file), c.text);
        ASSERT_EQ(capture.taken.size(), c.message.empty() ? 0U : 1U);
        if (!c.message.empty()) {
            EXPECT_EQ(capture.taken[0].id, c.message);
        }
    }
}

TEST(HTEQHpfmUtl, MissingFile) {
    const Capture capture;
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded("/nowhere/a.hpfm");
    EXPECT_EQ(capture.lines(), std::vector<std::string>{"@74-12@: File: /nowhere/a.hpfm doesn't exist.\n"});
}
