#include "platform/HPLBoard.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hardware/Documents.h"
#include "platform/HPLDriver.h"

namespace {

void addThreeConnectors(HPLBoard& board) {
    board.addDimmConnector("J1", "First", "DIMM", "FMC0", "Mezzanine 0", true, true);
    board.addDimmConnector("J2", "Second", "DIMM", "FMC1", "Mezzanine 1", true, false);
    board.addDimmConnector("J3", "Third", "DIMM", "", "", false, true);
}

}  // namespace

TEST(Board, ConnectionStrings) {
    HPLBoard board;
    EXPECT_EQ(board.getBoardConnectionsString(), "");
    addThreeConnectors(board);
    EXPECT_EQ(board.getBoardConnectionsString(), "J1 FMC0 J2 FMC1");
    EXPECT_EQ(board.getLockedBoardConnectionsString(), "J1 FMC0");
    EXPECT_EQ(board.getUnlockedBoardConnectionsString(), "J2 FMC1");

    HSTVector<std::string> locked{"before"}, names, connectedNames;
    board.getLockedDimmConnectors(locked);
    EXPECT_EQ(locked, (HSTVector<std::string>{"before", "J1", "J3"}));  // locked, but connected to nothing
    board.getConnectedDimmConnectors(names, connectedNames);
    EXPECT_EQ(names, (HSTVector<std::string>{"J1", "J2"}));
    EXPECT_EQ(connectedNames, (HSTVector<std::string>{"FMC0", "FMC1"}));
}

TEST(Board, DisplayNameOfEitherEnd) {
    HPLBoard board;
    addThreeConnectors(board);
    EXPECT_EQ(board.getConnectorDisplayName("j2"), "Second");
    EXPECT_EQ(board.getConnectorDisplayName("fmc1"), "Mezzanine 1");
    EXPECT_EQ(board.getConnectorDisplayName("J4"), "");
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
