#pragma once
#include <string>

#include "board/HBOBoard.h"
#include "msg/HEXDiagnostic.h"

/// The boards of a list of board repositories: the files `<repository>/<any folder>/board.json`. They are read when
/// they are first asked for, repository by repository and sorted by folder. Boards and the pointers to them are valid
/// until the repositories change. A file that cannot be read hides no other one: see `getProblems`.
class ZR_API HBOBoardCDataManager {
public:
    HBOBoardCDataManager();
    ~HBOBoardCDataManager();
    HBOBoardCDataManager(const HBOBoardCDataManager&) = delete;
    HBOBoardCDataManager& operator=(const HBOBoardCDataManager&) = delete;

    /// Replaces the repositories. A path that is not a directory has no boards.
    void setBoardPartRepoPaths(const HSTVector<std::string>& paths);
    /// The first board with exactly that part, or null.
    const HBOBoard* getBoard(const std::string& part);
    /// Appends all boards, in the order of reading.
    void getBoards(HSTVector<const HBOBoard*>& out);
    /// Files that are not valid, and repositories that cannot be read.
    const HSTVector<HEXDiagnostic>& getProblems();

private:
    void read_();

    HSTVector<std::string> paths_;
    bool isRead_ = false;
    Owned<HBOBoard> boards_;
    HSTVector<HEXDiagnostic> problems_;
};
