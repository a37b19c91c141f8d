#include "tcl/Interpreter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "msg/HEXAll.h"
#include "msg/Printed.h"
#include "msg/WriteSignals.h"
#include "tcl/TclLibrary.h"
#include "text/HSTStringUtils.h"
#include "util/Descriptor.h"

namespace tcl {
namespace {

using Limits = jun::tcltasks::task_limits::Values;
using Result = jun::tcltasks::task_manager::Result;

constexpr std::size_t kMaxOutput = 1UL << 20;
constexpr std::size_t kMaxReason = 1000;

/// Returns to the working directory, if a script leaves it.
class KeptDirectory {
public:
    KeptDirectory() : directory_(::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {}
    ~KeptDirectory() {
        if (directory_.isOpen() && ::fchdir(directory_.get()) != 0) {  // it was removed, and is still where it was
        }
    }
    KeptDirectory(const KeptDirectory&) = delete;
    KeptDirectory& operator=(const KeptDirectory&) = delete;

private:
    util::Descriptor directory_;
};

/// What a script prints.
class Output {
public:
    explicit Output(const Limits& limits) : limits_(limits) { line_.reserve(kMaxReason); }

    void take(std::string_view text) {
        note(text);
        pass(text.substr(0, left_));
        left_ -= std::min(left_, text.size());
        if (left_ == 0 && !std::exchange(isCut_, true)) pass("\n(further output is omitted)\n");
    }
    const std::string& lastLine() const { return line_; }

private:
    /// Keeps the beginning of the last line that is not empty.
    void note(std::string_view text) {
        const auto end = text.find_last_not_of('\n') + 1;
        if (end > 0) {
            const auto begin = text.rfind('\n', end - 1) + 1;
            if (begin > 0 || isLineComplete_) line_.clear();
            line_ += text.substr(begin, std::min(end - begin, kMaxReason - line_.size()));
        }
        isLineComplete_ = end < text.size() || (isLineComplete_ && end == 0);
    }

    /// Called by Tcl, which no exception may cross.
    void pass(std::string_view text) const noexcept try {
        if (text.empty()) return;
        if (limits_.output)
            limits_.output(text);
        else
            msg::print(text);
    } catch (...) {  // NOLINT(bugprone-empty-catch): the output is lost
    }

    const Limits& limits_;
    std::size_t left_ = kMaxOutput;
    bool isCut_ = false, isLineComplete_ = false;
    std::string line_;
};

/// The standard channels of scripts. Those of the process are left alone: its output is not the script's.
int closeChannel(ClientData, Tcl_Interp*) { return 0; }
int readNothing(ClientData, char*, int, int*) { return 0; }
int writeOutput(ClientData data, const char* bytes, int count, int*) {
    static_cast<Output*>(data)->take({bytes, static_cast<std::size_t>(count)});
    return count;
}
void watchNothing(ClientData, int) {}
int noHandle(ClientData, int, ClientData*) { return TCL_ERROR; }

const Tcl_ChannelType kChannelType = {
    "text",       TCL_CHANNEL_VERSION_5,
    closeChannel, readNothing,
    writeOutput,  nullptr,
    nullptr,      nullptr,
    watchNothing, noHandle,
    nullptr,      nullptr,
    nullptr,      nullptr,
    nullptr,      nullptr,
    nullptr,
};

/// Replaces the standard channels of the thread during its lifetime, which must include that of the interpreter.
class StandardChannels {
public:
    StandardChannels(const TclLibrary& tcl, Output& output) : tcl_(tcl) {
        for (std::size_t i = 0; i < kChannels.size(); ++i) {
            if (tcl.isOfHost) ofHost_[i] = tcl.getStdChannel(kChannels[i].type);
            tcl.setStdChannel(nullptr, kChannels[i].type);
        }
        for (const auto& [type, name, mode] : kChannels) {
            const Tcl_Channel channel = tcl.createChannel(&kChannelType, name, &output, mode);
            tcl.setStdChannel(channel, type);
            tcl.registerChannel(nullptr, channel);
            tcl.setChannelOption(nullptr, channel, "-encoding", "utf-8");
            tcl.setChannelOption(nullptr, channel, "-translation", "lf");
            if (mode == TCL_WRITABLE) tcl.setChannelOption(nullptr, channel, "-buffering", "none");
        }
    }
    /// A script may have closed one, so that the next file that it opened took the place.
    ~StandardChannels() {
        for (std::size_t i = 0; i < kChannels.size(); ++i) {
            if (const Tcl_Channel channel = tcl_.getStdChannel(kChannels[i].type))
                tcl_.unregisterChannel(nullptr, channel);
            tcl_.setStdChannel(ofHost_[i], kChannels[i].type);
        }
    }
    StandardChannels(const StandardChannels&) = delete;
    StandardChannels& operator=(const StandardChannels&) = delete;

private:
    struct Channel {
        int type;
        const char* name;
        int mode;
    };
    static constexpr std::array kChannels{Channel{TCL_STDIN, "stdin", TCL_READABLE},
                                          Channel{TCL_STDOUT, "stdout", TCL_WRITABLE},
                                          Channel{TCL_STDERR, "stderr", TCL_WRITABLE}};

    const TclLibrary& tcl_;
    std::array<Tcl_Channel, kChannels.size()> ofHost_{};
};

/// What has effects outside of the evaluation.
constexpr std::array kForbidden{"exec", "socket", "load", "unload"};
/// What waits for events would start a thread; a pipe within the process would never be written; another interpreter
/// would have all commands again.
constexpr std::array kRemoved{"vwait", "update", "::tcl::chan::pipe", "interp"};
/// The script's own environment in place of the process's, and what Tcl's own scripts need of the removed commands.
constexpr std::string_view kPrepare = R"(
    set ::env_ [array get ::env]
    unset ::env
    array set ::env $::env_
    unset ::env_
    proc update args {}
    proc interp args {
        if {$args eq "issafe"} { return 0 }
        error "other interpreters cannot be made"
    }
)";

class Interpreter {
public:
    Interpreter(const TclLibrary& tcl, const Limits& limits, Output& output)
        : tcl_(tcl), output_(output), interp_(tcl.createInterp()) {
        tcl.init(interp_);  // without its own scripts, Tcl is still what generated scripts need
        for (const char* name : kRemoved) tcl.deleteCommand(interp_, name);
        tcl.evalEx(interp_, kPrepare.data(), static_cast<int>(kPrepare.size()), TCL_EVAL_GLOBAL);
        tcl.createObjCommand(interp_, "exit", &Interpreter::exit, this, nullptr);
        if (!limits.mayRunPrograms) {
            for (const char* name : kForbidden) tcl.deleteCommand(interp_, name);
            tcl.getCommandInfo(interp_, "open", &open_);
            tcl.createObjCommand(interp_, "open", &Interpreter::open, this, nullptr);
        }
        if (limits.time.count() > 0) limitTime(limits.time);
    }
    ~Interpreter() { tcl_.deleteInterp(interp_); }
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    Result run(const std::string& command) {
        const int code = tcl_.evalEx(interp_, command.data(), static_cast<int>(command.size()), TCL_EVAL_GLOBAL);
        if (hasExited_) return {false, "the script called exit: " + output_.lastLine()};
        if (tcl_.limitTypeExceeded(interp_, TCL_LIMIT_TIME)) return {false, "the script exceeded the time limit"};
        std::string text = tcl_.getStringResult(interp_);
        if (code == TCL_OK) return {true, std::move(text)};
        if (text.size() > kMaxReason) text.resize(kMaxReason);
        return {false, std::move(text)};
    }

private:
    void limitTime(std::chrono::milliseconds time) const {
        const auto end = std::chrono::system_clock::now().time_since_epoch() + time;
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(end);
        Tcl_Time at{static_cast<long>(seconds.count()),
                    static_cast<long>(std::chrono::duration_cast<std::chrono::microseconds>(end - seconds).count())};
        tcl_.limitSetTime(interp_, &at);
        tcl_.limitTypeSet(interp_, TCL_LIMIT_TIME);
    }

    /// Ends the evaluation in a way that no `catch` of the script can stop.
    static int exit(ClientData data, Tcl_Interp* interp, int, Tcl_Obj* const*) {
        auto* const self = static_cast<Interpreter*>(data);
        self->hasExited_ = true;
        self->tcl_.cancelEval(interp, nullptr, nullptr, TCL_CANCEL_UNWIND);
        return TCL_ERROR;
    }

    static int open(ClientData data, Tcl_Interp* interp, int count, Tcl_Obj* const* words) {
        auto* const self = static_cast<Interpreter*>(data);
        if (count > 1 && self->tcl_.getString(words[1])[0] == '|') {
            self->tcl_.setObjResult(interp, self->tcl_.newStringObj("programs must not be run", -1));
            return TCL_ERROR;
        }
        return self->open_.objProc(self->open_.objClientData, interp, count, words);
    }

    const TclLibrary& tcl_;
    const Output& output_;
    Tcl_Interp* interp_;
    Tcl_CmdInfo open_{};
    bool hasExited_ = false;
};

}  // namespace

Result evaluate(const std::string& command, const Limits& limits) {
    const TclLibrary& tcl = tclLibrary();
    const KeptDirectory directory;
    const msg::WriteSignals blocked;
    Output output(limits);
    Result result;
    {
        const StandardChannels channels(tcl, output);
        result = Interpreter(tcl, limits, output).run(command);
    }
    if (!tcl.isOfHost) tcl.finalizeThread();
    blocked.takeBack();
    return result;
}

}  // namespace tcl
