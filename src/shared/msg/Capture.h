#pragma once
#include <vector>

#include "msg/ComMsgMgr.h"
#include "msg/HEXFileFault.h"

namespace msg {

/// While it lives, keeps what the library says on its thread; the messages go to the sink as ever. Lives on the stack;
/// of several each keeps all.
class Capture {
public:
    enum class Words { print, drop };  ///< what becomes of the words that readers print on standard output

    explicit Capture(Words words) : words_(words), outer_(innermost) { innermost = this; }
    ~Capture() { innermost = outer_; }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    /// What the first hundred messages tell.
    const std::vector<FileProblem>& problems() const { return problems_; }

    /// Sends a message of a reader, whose words tell a place for people; `problem` tells it, and what is wrong there,
    /// for programs.
    static void send(const ComMsgMgrInstance& message, const FileProblem& problem);
    static void take(const ComMsgMgrInstance& message);
    static bool printsWords();

private:
    static thread_local Capture* innermost;

    Words words_;
    Capture* outer_;
    std::vector<FileProblem> problems_;
};

}  // namespace msg
