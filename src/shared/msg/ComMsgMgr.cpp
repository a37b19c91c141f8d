#include "msg/ComMsgMgr.h"

#include <fmt/args.h>
#include <fmt/core.h>

#include <cstdio>
#include <functional>
#include <utility>

#include "msg/Budget.h"
#include "msg/WriteSignals.h"
#include "text/HSTStringUtils.h"
#include "text/Limits.h"

namespace {

const char* severityName(MsgMask mask) {
    switch (mask) {
        case MsgMask::info: return "INFO";
        case MsgMask::warning: return "WARNING";
        case MsgMask::critical: return "CRITICAL WARNING";
        case MsgMask::error: return "ERROR";
    }
    return "ERROR";
}

void toStandardError(const ComMsgMgrInstance& message) {
    const std::string_view id = message.id.empty() ? "0-0" : shortMessageId(message.id);
    const msg::WriteSignals signals;
    std::fprintf(stderr, "%s: [%s %.*s] %s\n", severityName(message.mask), message.module.c_str(),
                 static_cast<int>(id.size()), id.data(), HSTStringUtils::printable(message.text).c_str());
    signals.takeBack();
}

ComMsgMgr::Sink& currentSink() {
    static ComMsgMgr::Sink* const sink = new ComMsgMgr::Sink(toStandardError);  // outlives every static of the host
    return *sink;
}

/// The row's text with "{n}" replaced by argument n. Arguments come from files and are not scanned again.
std::string compose(std::string_view text, const std::vector<std::string>& args) {
    fmt::dynamic_format_arg_store<fmt::format_context> store;
    for (const std::string& arg : args) store.push_back(std::cref(arg));
    return fmt::vformat(text, store);
}

}  // namespace

void ComMsgMgr::setSink(Sink sink) { currentSink() = sink ? std::move(sink) : Sink(toStandardError); }

void ComMsgMgr::send(const ComMsgMgrInstance& message) {
    const Budget::Report report = Budget::report(message);
    if (report == Budget::Report::drop) return;
    const Sink sink = currentSink();  // which may set another one
    sink(message);
    if (report == Budget::Report::sendAsLast)
        sink({"platform", "", message.mask, {}, "further messages of this kind are not shown", message.where});
}

ComMsgMgrInstance ComMsgMgr::make_(const MsgRow& row, std::vector<std::string> args, std::source_location where) {
    for (std::string& arg : args) arg = HSTStringUtils::cut(std::move(arg), text::kMaxQuoted);
    std::string text = compose(row.text, args);
    return {"platform", std::string(row.id), row.mask, std::move(args), std::move(text), where};
}
