#include "msg/ComMsgMgr.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "msg/HEXAll.h"
#include "msg/Printed.h"

namespace {

TEST(ComMsgMgr, GivesTheSinkIdArgumentsAndText) {
    std::vector<ComMsgMgrInstance> got;
    ComMsgMgr::setSink([&](const ComMsgMgrInstance& message) { got.push_back(message); });
    const unsigned line = __LINE__ + 1;
    ComMsgMgr::sendMsg("@74-51@%s%d", std::string("a{0}.spfm"), 12);
    ComMsgMgr::setSink(nullptr);
    ASSERT_EQ(got.size(), 1U);
    EXPECT_EQ(got[0].module, "platform");
    EXPECT_EQ(got[0].id, "@74-51@%s%d");
    EXPECT_EQ(got[0].args, std::vector<std::string>({"a{0}.spfm", "12"}));
    EXPECT_EQ(got[0].mask, MsgMask::error);
    EXPECT_NE(got[0].text.find("a{0}.spfm:12"), std::string::npos) << "braces in arguments are left alone";
    EXPECT_EQ(got[0].where.line(), line);
}

/// Standard error is a pipe that nobody reads, and the process has the signal's usual disposition.
TEST(ComMsgMgr, OutlivesAReaderThatHasGone) {
    const auto writeToNobody = [] {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) ::_exit(1);
        ::dup2(ends[1], 2);
        ::close(ends[0]);
        ::signal(SIGPIPE, SIG_DFL);
        ComMsgMgr::sendMsg("@74-51@%s%d", std::string("a.spfm"), 12);
        msg::printError("a line\n");
        ::_exit(42);
    };
    EXPECT_EXIT(writeToNobody(), testing::ExitedWithCode(42), "");
}

TEST(ComMsgMgr, EachRowsTextFitsItsArguments) {
    for (const MsgRow& row : kMsgCatalogue) {
        SCOPED_TRACE(row.id);
        for (std::size_t at = row.text.find('{'); at != std::string_view::npos; at = row.text.find('{', at + 1))
            EXPECT_LT(static_cast<std::size_t>(row.text[at + 1] - '0'), row.kinds.size());
        for (const MsgRow& other : kMsgCatalogue)
            EXPECT_TRUE(&other == &row || other.id != row.id || other.kinds != row.kinds) << "listed twice";
    }
}

TEST(HEXAll, CarriesItsMessage) {
    const HEXError error(ComMsgMgr::make("@74-34@%s%s", "a.lfa", "m.json"));
    EXPECT_EQ(error.message().args, std::vector<std::string>({"a.lfa", "m.json"}));
    EXPECT_NE(std::string(error.what()).find("m.json"), std::string::npos);
    EXPECT_STREQ(HEXAlgException("plain words").what(), "plain words");
}

}  // namespace
