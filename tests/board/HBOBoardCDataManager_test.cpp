#include "board/HBOBoardCDataManager.h"

#include <gmock/gmock.h>

#include "kit/Scratch.h"

TEST(HBOBoardCDataManager, ABadBoardHidesNoOther) {
    const Scratch scratch;
    scratch.put("boards/any/board.json", R"({"part": "maker:b:1.0", "name": "b"})");
    scratch.put("boards/a/board.json", "{\"part\": \"x\",");
    scratch.put("boards/b/board.json", "{}");
    scratch.put("boards/c/board.json", R"({"part": "p", "connectors": [{"type": "DIMM"}]})");
    scratch.put("boards/d/board.json", R"({"part": "maker:b:1.0", "name": "later"})");
    std::filesystem::create_directories(scratch / "boards/e/board.json");
    scratch.put("boards/f/board.json",
                R"({"part": "q", "connectors": [)" + repeated(R"({"name": "J"},)", 10'000) + R"({"name": "J"}]})");
    HBOBoardCDataManager boards;
    boards.setBoardPartRepoPaths({scratch / "none", scratch / "boards"});
    ASSERT_NE(boards.getBoard("maker:b:1.0"), nullptr);
    EXPECT_EQ(boards.getBoard("maker:b:1.0")->getName(), "b");  // "any" stands before "d"
    EXPECT_EQ(boards.getBoard("p"), nullptr);
    HSTVector<std::string> files;
    for (const HEXDiagnostic& problem : boards.getProblems())
        files.push_back(problem.file.substr(scratch.str().size() + 1));
    EXPECT_THAT(files, testing::ElementsAre("boards/a/board.json", "boards/b/board.json", "boards/c/board.json",
                                            "boards/e/board.json", "boards/f/board.json"));
}
