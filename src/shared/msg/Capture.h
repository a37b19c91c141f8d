#pragma once
#include <vector>

#include "msg/ComMsgMgr.h"
#include "msg/HEXFileFault.h"

namespace msg {

/// During its lifetime, records what the library reports on its thread; messages still go to the sink. For use on the
/// stack; if there are several, each records everything.
class Capture {
public:
    enum class Words { print, drop };  ///< what happens to the text that readers print on standard output

    explicit Capture(Words words) : words_(words), outer_(innermost) { innermost = this; }
    ~Capture() { innermost = outer_; }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    /// The problems reported by the first hundred messages.
    const std::vector<FileProblem>& problems() const { return problems_; }

    /// Sends a message of a reader, whose text has the location for people; `problem` has it, and the error, for
    /// programs.
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
