#include "platform/HPLBoard.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hardware/Documents.h"
#include "kit/Script.h"
#include "platform/HPLDriver.h"

TEST(Board, Connectors) {
    using B = HPLBoard;
    using S = std::string;
    script::expectCalls<B>(ZR_SOURCE_DIR "/tests/cases/hardware/board.case",
                           script::calls<B, &B::getBoardConnectionsString, &B::getLockedBoardConnectionsString,
                                         &B::getUnlockedBoardConnectionsString, &B::getConnectorDisplayName>(
                               {{"addDimmConnector",
                                 script::call<B, B::DimmConnector*, S, S, S, S, S, bool, bool>(&B::addDimmConnector)},
                                {"getLockedDimmConnectors", script::listing(&B::getLockedDimmConnectors)},
                                {"getConnectedDimmConnectors", script::twoLists(&B::getConnectedDimmConnectors)}}));
}

// A list of Booleans cannot be written: the document of a board with a driver is never done, and takes nothing while
// it is waited for.
TEST(Board, ADriverNeverReturns) {
    const pid_t child = fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        HPLBoard board;
        board.addDriver()->setName("driver");
        documentOf(board);
        _exit(0);
    }
    usleep(300'000);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, WNOHANG), 0) << "it returned or died";
    ASSERT_EQ(kill(child, SIGKILL), 0);
    rusage usage{};
    ASSERT_EQ(wait4(child, &status, 0, &usage), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_LT(usage.ru_utime.tv_sec * 1'000'000 + usage.ru_utime.tv_usec, 200'000) << "it was busy";
}
