#pragma once
#include <concepts>
#include <functional>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include "msg/MsgCatalogue.h"
#include "text/ZrApi.h"

/// A message as sent: what a sink receives, and what the `HEX...` exceptions carry.
struct ZR_API ComMsgMgrInstance {
    std::string module;             ///< "platform"
    std::string id;                 ///< with its argument format, as "@74-60@%s"; empty for a plain text
    MsgMask mask = MsgMask::error;  ///< severity
    std::vector<std::string> args;  ///< the arguments as text
    std::string text;               ///< the whole sentence, for people
    std::source_location where;     ///< the sender
};

/// An id of the catalogue together with the types of its arguments; exists only at compile time.
template <class... Args>
struct MsgId {
    // NOLINTNEXTLINE(google-explicit-constructor): callers pass a plain string literal.
    consteval MsgId(const char* id, std::source_location at = std::source_location::current())
        : row(&find(id)), where(at) {}
    const MsgRow* row;
    std::source_location where;

private:
    static consteval const MsgRow& find(std::string_view id) {
        const char kinds[] = {(std::integral<std::remove_cvref_t<Args>> ? 'd' : 's')..., '\0'};
        for (const MsgRow& row : kMsgCatalogue)
            if (row.id == id && row.kinds == kinds) return row;
        throw "the message catalogue has no such id with such arguments";
    }
};

/// Delivers the library's messages. There is one for the process; unless the host sets a sink, each message is a line
/// on standard error.
class ZR_API ComMsgMgr {
public:
    using Sink = std::function<void(const ComMsgMgrInstance&)>;

    /// Replaces the sink; an empty one restores standard error. The sink must not throw.
    static void setSink(Sink sink);

    /// Makes the message of a catalogue id without sending it:
    /// `ComMsgMgr::make("@74-60@%s", reason)`. Arguments are texts ("%s") or integers ("%d").
    template <class... Args>
    static ComMsgMgrInstance make(MsgId<std::type_identity_t<Args>...> id, const Args&... args) {
        return make_(*id.row, {asText(args)...}, id.where);
    }
    /// Makes a message and passes it to the sink.
    template <class... Args>
    static void sendMsg(MsgId<std::type_identity_t<Args>...> id, const Args&... args) {
        send(make_(*id.row, {asText(args)...}, id.where));
    }
    static void send(const ComMsgMgrInstance& message);

private:
    template <std::integral T>
    static std::string asText(T value) {
        return std::to_string(value);
    }
    static std::string asText(std::string_view value) { return std::string(value); }
    static ComMsgMgrInstance make_(const MsgRow& row, std::vector<std::string> args, std::source_location where);
};
