#include "StandardInput.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <span>
#include <string_view>

#include "Console.h"

using teq_platform::FailureKind;
using teq_platform::RequestError;

namespace {

constexpr std::size_t kEnd = 1 << 16;
/// Kinds of positionals whose value "-" is standard input, and those whose value it may be otherwise.
constexpr std::array<std::string_view, 6> kInputs{"PLATFORM", "ARCHIVE", "JSON", "FILE", "HDF", "EMULATION"};
constexpr std::array<std::string_view, 4> kNoInputs{"", "OUT", "NAMED_FILE", "RQA_ARGUMENT"};

bool isOneOf(std::string_view kind, std::span<const std::string_view> kinds) {
    return std::ranges::find(kinds, kind) != kinds.end();
}

[[noreturn]] void refuse(const std::string& text) { throw RequestError(FailureKind::wrongUse, {.text = text}); }

[[noreturn]] void fail(const std::string& what) {
    throw RequestError(FailureKind::environment, {.text = what + ": " + std::strerror(errno)});
}

/// The extension that a file of this content has. The names at the end of an archive show its kind.
const char* extensionOf(std::string_view begin, std::string_view end) {
    const auto holds = [&begin](std::string_view text) { return begin.find(text) != begin.npos; };
    if (begin.starts_with("PK"))
        return end.find("cfa.json") != end.npos || end.find("cfa.xml") != end.npos ? "cfa" : "lfa";
    const auto first = begin.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    if (first != begin.npos && begin[first] != '<') return "json";
    if (holds("systemConfigurations")) return "spfm";
    if (holds("hardwarePlatform") || holds("softwarePlatform")) return "zdf";
    return holds("busInterface") || holds("repository") ? "hpfm" : "xml";
}

}  // namespace

std::string StandardInput::keep() {
    directory_.create("input");
    const std::string path = directory_.get() + "/input";
    std::ofstream file(path, std::ios::binary);
    std::string begin, end, block(kEnd, '\0');
    for (ssize_t n = 0; (n = ::read(0, block.data(), block.size())) != 0;) {
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) fail("standard input cannot be read");
        const std::string_view bytes(block.data(), static_cast<std::size_t>(n));
        if (begin.size() < kEnd) begin += bytes;
        end += bytes;
        if (end.size() > 2 * kEnd) end.erase(0, end.size() - kEnd);
        if (!file.write(bytes.data(), n)) fail("standard input cannot be kept in '" + path + "'");
    }
    file.close();
    if (!file) fail("standard input cannot be kept in '" + path + "'");
    std::string named = path + "." + extensionOf(begin, end);
    if (std::rename(path.c_str(), named.c_str()) != 0) fail("standard input cannot be kept in '" + named + "'");
    return named;
}

void StandardInput::replace(const Verb& verb, Call& call) {
    for (const Positional& positional : verb.positionals) {
        const std::string_view kind = positional.values;
        if (isOneOf(kind, kNoInputs)) continue;
        for (std::string& value : call.positionals[positional.name]) {
            if (value != "-") continue;
            if (!isOneOf(kind, kInputs)) refuse(std::string(positional.name) + " cannot be standard input");
            if (!directory_.empty()) refuse("standard input can be read only once");
            value = keep();
            Console::take().nameStandIn(value);
        }
    }
}
