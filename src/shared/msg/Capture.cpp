#include "msg/Capture.h"

namespace msg {

thread_local Capture* Capture::innermost = nullptr;

void Capture::take(const ComMsgMgrInstance& message) {
    constexpr std::size_t kMost = 100;
    for (Capture* at = innermost; at; at = at->outer_)
        if (at->messages_.size() < kMost) at->messages_.push_back(message);
}

bool Capture::takeWords(std::string_view words) {
    constexpr std::size_t kMost = 1024UL * 1024;
    bool isPrinted = true;
    for (Capture* at = innermost; at; at = at->outer_) {
        at->printed_ += words.substr(0, kMost - at->printed_.size());
        isPrinted = isPrinted && at->words_ == Words::print;
    }
    return isPrinted;
}

}  // namespace msg
