#include "platform/HTEQHpfmUtl.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"
#include "readers/Capture.h"
#include "readers/Hpfm.h"
#include "records/TEQHpfmLMX.h"
#include "xml/XmlReader.h"

namespace {

using WELHardwarePlatform::BusInterface;
using Autos = std::vector<std::string>;

BusInterface interfaceOf(const Autos& autos) {
    return xml::read(WELHardwarePlatform::kDocument, hpfm(hbm("h", autos)), "").component.busInterfaces.at(0);
}

Autos autosOf(const BusInterface& interface) {
    Autos autos;
    for (const auto& segment : interface.addressSegments) autos.push_back(segment.auto_.get());
    return autos;
}

std::string contentOf(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

}  // namespace

TEST(HTEQHpfmUtl, SomeButNotAll) {
    const struct {
        Autos autos;
        bool some;
        Autos repaired;
    } cases[] = {
        {{"true", "preferred", "false"}, true, {"preferred", "preferred", "false"}},
        {{"preferred", "preferred", "false"}, false, {"preferred", "preferred", "false"}},
        {{"true", "true"}, false, {"preferred", "preferred"}},
        {{"preferred", "False"}, true, {"preferred", "preferred"}},  // only the exact word is false
        {{"false"}, false, {"false"}},
        {{}, false, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.autos));
        BusInterface interface = interfaceOf(c.autos);
        EXPECT_EQ(HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface), c.some);
        HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(interface);
        EXPECT_EQ(autosOf(interface), c.repaired);
    }
}

TEST(HTEQHpfmUtl, SegmentsWithoutAutoDoNotCount) {
    BusInterface interface = interfaceOf({"preferred"});
    interface.addressSegments.emplace_back();
    EXPECT_FALSE(HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(interface));
    HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(interface);
    EXPECT_FALSE(interface.addressSegments[1].auto_.isSet());
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
        std::string text;
        std::vector<std::string> messages;
    } cases[] = {
        {hpfm(hbm("h", {"true", "true"})), {}},
        {hpfm("<kp:busInterface kp:name='b'><kp:addressSegment kp:auto='true'/>"
              "<kp:addressSegment kp:auto='preferred'/></kp:busInterface>"),
         {}},
        {hpfm(some + some), {"@74-261@"}},
        {hpfm(some + "<kp:shed/>"), {"@74-260@%s%s%s"}},
    };
    for (const auto& c : cases) {
        const std::string file = scratch.put("a.hpfm", c.text);
        const Capture capture;
        HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded(file);
        EXPECT_EQ(contentOf(file), c.text);
        std::vector<std::string> ids;
        for (const auto& message : capture.messages) ids.push_back(message.id);
        EXPECT_EQ(ids, c.messages);
    }
}

TEST(HTEQHpfmUtl, MissingFile) {
    const Capture capture;
    HTEQHpfmUtl::ChangeAndWriteHpfmIfNeeded("/nowhere/a.hpfm");
    ASSERT_EQ(capture.messages.size(), 1U);
    EXPECT_EQ(capture.messages[0].id, "@74-12@");
    EXPECT_EQ(capture.messages[0].args, std::vector<std::string>{"File: /nowhere/a.hpfm doesn't exist.\n"});
}
