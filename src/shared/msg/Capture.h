#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "msg/ComMsgMgr.h"

namespace msg {

/// While it lives, keeps what the library says on its thread: the messages, which go to the sink as ever, and the
/// words that readers print on standard output. Lives on the stack; of several each keeps all.
class Capture {
public:
    enum class Words { print, keep };  ///< whether the words still reach standard output

    explicit Capture(Words words) : words_(words), outer_(innermost) { innermost = this; }
    ~Capture() { innermost = outer_; }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    /// The first hundred.
    const std::vector<ComMsgMgrInstance>& messages() const { return messages_; }
    /// At most 1 MiB.
    const std::string& printed() const { return printed_; }

    static void take(const ComMsgMgrInstance& message);
    /// False when the words are not to be printed.
    static bool takeWords(std::string_view words);

private:
    static thread_local Capture* innermost;

    Words words_;
    Capture* outer_;
    std::vector<ComMsgMgrInstance> messages_;
    std::string printed_;
};

}  // namespace msg
