#include "msg/Capture.h"

#include "msg/ShortId.h"

namespace msg {

namespace {

/// Of the message being sent; null if the message says everything.
thread_local const FileProblem* known = nullptr;

}  // namespace

thread_local Capture* Capture::innermost = nullptr;

void Capture::send(const ComMsgMgrInstance& message, const FileProblem& problem) {
    const struct Known {
        explicit Known(const FileProblem* problem) { known = problem; }
        ~Known() { known = nullptr; }
        Known(const Known&) = delete;
        Known& operator=(const Known&) = delete;
    } whileSent(&problem);
    ComMsgMgr::send(message);
}

void Capture::take(const ComMsgMgrInstance& message) {
    constexpr std::size_t kMax = 100;
    for (Capture* at = innermost; at; at = at->outer_) {
        if (at->problems_.size() == kMax) continue;
        at->problems_.push_back(known ? *known : FileProblem{.text = message.text});
        at->problems_.back().id = shortId(message.id);
    }
}

bool Capture::printsWords() {
    for (const Capture* at = innermost; at; at = at->outer_)
        if (at->words_ == Words::drop) return false;
    return true;
}

}  // namespace msg
