#pragma once
#include <string>

#include "msg/HEXDiagnostic.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HTEQPlatform;

/// Questions about platforms and boards, answered in plain values.
namespace teq_platform::requests {

/// An answer of the engine helper (`HTEQPlatformHelper`).
struct Answer {
    enum class Kind {
        text,
        number,  ///< decimal
        flag,    ///< "true" or "false"
        list,    ///< of texts
    };
    const char* name;
    Kind kind;
    HSTVector<std::string> values;  ///< one, except for a list
};
/// All answers that need no argument, in a fixed order.
ZR_API HSTVector<Answer> answers(HTEQPlatform& platform);

/// A board of a board repository.
struct Board {
    struct Connector {
        std::string name, displayName, type;
        bool isDimm = false;
        HSTVector<std::string> fits;  ///< names of the DIMM connectors that it can be connected to
    };
    std::string part, name;
    std::string file;  ///< its `board.json`
    HSTVector<Connector> connectors;
};
struct Boards {
    HSTVector<Board> boards;
    HSTVector<HEXDiagnostic> problems;  ///< files and directories that cannot be read
};
/// The boards of the repositories (`HBOBoardCDataManager`).
ZR_API Boards boards(const HSTVector<std::string>& repositories);

}  // namespace teq_platform::requests
