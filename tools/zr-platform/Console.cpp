#include "Console.h"

#include <fcntl.h>
#include <libsmartcols.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <span>
#include <sstream>

#include <msg/ComMsgMgr.h>
#include <text/HSTStringUtils.h>

using teq_platform::Failure;
using teq_platform::FailureKind;
using teq_platform::RequestError;

namespace {

/// More faults of one platform are not listed.
constexpr std::size_t kMaxFaults = 10;

/// Of each text of a message that is a record.
std::string cut(const std::string& text) { return HSTStringUtils::cut(text, 4000); }

/// A message on standard error as a record, or a problem of other records.
boost::json::object recordOf(const HEXDiagnostic& diagnostic, std::string_view severity) {
    return {{"id", diagnostic.id},
            {"name", diagnostic.name},
            {"severity", severity},
            {"file", cut(diagnostic.file)},
            {"member", cut(diagnostic.member)},
            {"line", diagnostic.line},
            {"column", diagnostic.column},
            {"element", cut(diagnostic.element)},
            {"text", cut(diagnostic.text)}};
}

std::string jsonOf(const auto& value) { return HSTStringUtils::printableJson(boost::json::serialize(value)); }

/// A record as a line of JSON.
std::string lineOf(const boost::json::value& record) { return jsonOf(record) + "\n"; }

void printRecord(const boost::json::value& value);

void printItems(char open, const auto& items, char close, const auto& printItem) {
    Console::take().data({&open, 1});
    bool isFirst = true;
    for (const auto& item : items) {
        if (!std::exchange(isFirst, false)) Console::take().data(",");
        printItem(item);
    }
    Console::take().data({&close, 1});
}

/// Piece by piece: the text of a record may be several times as large as the record.
void printRecord(const boost::json::value& value) {
    if (const auto* const object = value.if_object())
        printItems('{', *object, '}', [](const auto& item) {
            Console::take().data(jsonOf(item.key()) + ":");
            printRecord(item.value());
        });
    else if (const auto* const array = value.if_array())
        printItems('[', *array, ']', printRecord);
    else
        Console::take().data(jsonOf(value));
}

}  // namespace

Exit worse(Exit a, Exit b) {
    constexpr Exit kOrder[] = {Exit::fault, Exit::environment, Exit::input, Exit::usage, Exit::no};
    for (const Exit exit : kOrder)
        if (a == exit || b == exit) return exit;
    return Exit::done;
}

Exit exitOf(const Failure& failure) { return static_cast<Exit>(rowOf(failure.kind).exitCode); }

struct Console::State {
    std::stringbuf library;  ///< what the library printed on the standard streams
    std::string out;
    std::vector<HEXDiagnostic> faults;  ///< of messages that are not shown
    std::vector<std::string> standIns;  ///< the files that hold standard input and output
    std::string folder, givenFolder;    ///< of the input: the absolute path, and as the user wrote it
    bool verbose = false, quiet = false, json = false;

    std::string shown(std::string text) const;
    std::string asGiven(std::string text) const;
    void onMessage(const ComMsgMgrInstance& message);
};

namespace {

/// Whether the process shall end by the signal, which `main` catches.
bool isPipeSignalCaught() {
    struct sigaction present {};
    return ::sigaction(SIGPIPE, nullptr, &present) == 0 && present.sa_handler != SIG_IGN;
}

/// Writes all of `bytes`.
void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(file, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0 && errno == EPIPE && isPipeSignalCaught()) throw ReaderGone();
        if (n < 0)
            throw RequestError(FailureKind::environment,
                               {.text = std::string("cannot write the output: ") + std::strerror(errno)});
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

}  // namespace

std::string Console::State::shown(std::string text) const {
    for (const std::string& file : standIns)
        for (auto at = text.find(file); at != std::string::npos; at = text.find(file, at + 1))
            text.replace(at, file.size(), "-");
    return text;
}

/// A message of the library, which knows absolute paths.
std::string Console::State::asGiven(std::string text) const {
    const auto at = folder.empty() ? std::string::npos : text.find(folder);
    const bool isPath = at == 0 || (at != std::string::npos && text[at - 1] == '\'');
    if (isPath) text.replace(at, folder.size(), givenFolder);
    return shown(std::move(text));
}

void Console::State::onMessage(const ComMsgMgrInstance& message) {
    const bool isWarning = message.id.empty() && message.mask == MsgMask::warning;  // what was ignored
    const bool isFault = message.mask == MsgMask::critical || message.mask == MsgMask::error;
    const HEXDiagnostic line{.id = std::string(shortMessageId(message.id)), .text = asGiven(message.text)};
    if (isFault && faults.size() < kMaxFaults &&
        std::ranges::find(faults, line.text, &HEXDiagnostic::text) == faults.end())
        faults.push_back(line);
    // The failure that they lead to, or the warning of what is ignored, has their location.
    if (quiet || !(verbose || (json && !isFault) || isWarning)) return;
    if (json) {
        boost::json::object record = recordOf(line, nameOf(message.mask));
        boost::json::array& args = record["args"].emplace_array();
        for (const std::string& arg : message.args) args.emplace_back(cut(arg));
        writeAll(2, lineOf(record));
    } else {
        writeAll(2, line.report(isWarning ? "warning" : "") + "\n");
    }
}

Console::Console() : state_(new State) {
    std::cout.rdbuf(&state_->library);
    std::cerr.rdbuf(&state_->library);
    ComMsgMgr::setSink([state = state_](const ComMsgMgrInstance& message) { state->onMessage(message); });
}

Console& Console::take() {
    static Console* const console = new Console;  // never destroyed: destructors of statics may still write
    return *console;
}

void Console::configure(const Call& call) {
    state_->verbose = call.has("verbose");
    state_->quiet = call.has("quiet");
    state_->json = call.get("messages") == "json";
}

void Console::useJsonMessages() { state_->json = true; }

void Console::data(std::string_view bytes) {
    constexpr std::size_t kKept = 1 << 16;
    if (state_->out.size() + bytes.size() > kKept) flush();
    if (bytes.size() > kKept)
        writeAll(1, bytes);
    else
        state_->out += bytes;
}

void Console::document(std::string_view text) {
    if (!isInteractive()) return data(text);
    data(text.starts_with('<') ? HSTStringUtils::printableXml(text) : HSTStringUtils::printableJson(text));
}

void Console::printCaptured() {
    const std::string output = state_->library.str();
    state_->library.str("");
    if (state_->verbose && !output.empty()) note(HSTStringUtils::printable(output));
}

void Console::flush() {
    printCaptured();
    const std::string out = std::exchange(state_->out, {});
    writeAll(1, out);
}

void Console::note(const std::string& line) {
    if (state_->json)
        print({.text = line}, "");
    else if (!state_->quiet)
        writeAll(2, shown(line) + "\n");
}

void Console::print(const HEXDiagnostic& diagnostic, std::string_view severity) {
    if (!state_->json) return note(diagnostic.report(severity));
    HEXDiagnostic named = diagnostic;
    named.file = shown(named.file);
    if (!state_->quiet) writeAll(2, lineOf(recordOf(named, severity.empty() ? "information" : severity)));
}

void Console::warnOfFaults() {
    if (state_->verbose) return;
    for (const HEXDiagnostic& fault : state_->faults) print(fault, "warning");
}

bool Console::takeFaults() { return !std::exchange(state_->faults, {}).empty(); }

void Console::nameStandIn(const std::string& file) { state_->standIns.push_back(file); }

std::string Console::shown(std::string text) const { return state_->shown(std::move(text)); }

void Console::nameInput(const std::string& file) {
    const std::filesystem::path given(file);
    std::error_code error;
    state_->folder = (std::filesystem::canonical(given, error).parent_path() / "").native();
    if (given.is_absolute() || state_->folder == "/") state_->folder.clear();
    state_->givenFolder = (given.lexically_normal().parent_path() / "").native();
}

void Console::report(const Failure& failure) {
    printCaptured();
    HEXDiagnostic diagnostic = failure.diagnostic;
    diagnostic.text = state_->asGiven(diagnostic.text);
    if (failure.kind == FailureKind::exists) diagnostic.text += "; --force overwrites it";
    print(diagnostic, "error");
}

void Console::progress(const std::string& text) {
    if (state_->quiet || state_->json || !::isatty(2)) return;
    std::string line = HSTStringUtils::printable(text);
    if (line.size() >= width()) line = HSTStringUtils::utf8Prefix(line, width() - 1);
    writeAll(2, "\r\x1b[K" + line);
}

bool Console::isInteractive() const { return ::isatty(1) == 1; }

std::size_t Console::width() const {
    winsize size{};
    return ioctl(1, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

std::string wrapped(std::string_view text, std::size_t width, const std::string& indent) {
    std::string result;
    for (std::size_t room = width; text.size() > room; room = width - std::min(width, indent.size())) {
        std::size_t end = text.rfind(' ', room);
        if (end == std::string_view::npos) end = text.find(' ');
        if (end == std::string_view::npos) break;
        result.append(text.substr(0, end)) += "\n" + indent;
        text.remove_prefix(end + 1);
    }
    return result.append(text);
}

std::string table(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows) {
    const std::unique_ptr<libscols_table, void (*)(libscols_table*)> table(scols_new_table(), scols_unref_table);
    for (const std::string& column : columns) {
        const bool right = column.starts_with(">");
        const std::string name = HSTStringUtils::excerpt(column.substr(right ? 1 : 0), kMaxCell);  // may be a file's
        scols_table_new_column(table.get(), name.c_str(), 0, right ? SCOLS_FL_RIGHT : 0);
    }
    constexpr std::size_t kMaxRows = 10'000;
    for (const auto& row : std::span(rows).first(std::min(rows.size(), kMaxRows))) {
        libscols_line* const line = scols_table_new_line(table.get(), nullptr);
        for (std::size_t i = 0; i < row.size(); ++i)
            scols_line_set_data(line, i, HSTStringUtils::excerpt(row[i], kMaxCell).c_str());
    }
    scols_table_enable_nowrap(table.get(), 1);
    // The cells are printable; in a locale without UTF-8, libsmartcols would never get past the first character that is
    // not ASCII.
    static const bool isUtf8 = std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
    scols_table_enable_noencoding(table.get(), isUtf8);
    char* text = nullptr;
    scols_print_table_to_string(table.get(), &text);
    std::vector<std::string> lines = HSTStringUtils::split(text ? text : "", '\n');
    std::free(text);
    // libsmartcols pads all lines to the width of the longest one.
    for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
    if (rows.size() > kMaxRows) lines.push_back("and " + std::to_string(rows.size() - kMaxRows) + " more");
    std::string result;
    for (const std::string& line : lines)
        if (!line.empty()) result += line + "\n";
    return result;
}

void Records::addProblem(const HEXDiagnostic& problem) {
    HEXDiagnostic named = problem;
    named.file = Console::take().shown(named.file);
    problems_.push_back(recordOf(named, "error"));
}

void Records::printOne(const Call& call, const char* noun, boost::json::object record) {
    if (!areAsked(call)) return;
    Records records(noun);
    records.add(std::move(record));
    records.print(call, {});
}

void Records::print(const Call& call, const std::vector<std::string>& columns) const {
    Console& console = Console::take();
    if (call.has("ndjson")) {
        for (const auto& record : records_) {
            printRecord(record);
            console.data("\n");
        }
        return;
    }
    if (call.has("json")) {
        console.data(std::string(R"({"schema":"urn:torvane:zr-platform:)") + noun_ +
                     R"(:1","tool":"zr-platform )" ZR_VERSION R"(","records":)");
        printItems('[', records_, ']', printRecord);
        console.data(R"(,"problems":)");
        printItems('[', problems_, ']', printRecord);
        console.data("}\n");
        return;
    }
    std::vector<std::vector<std::string>> rows;
    for (const auto& record : records_) {
        rows.emplace_back();
        for (const std::string& column : columns) {
            const auto& value = record.at(column.substr(column.starts_with(">") ? 1 : 0));
            rows.back().push_back(value.is_string() ? std::string(value.as_string()) : boost::json::serialize(value));
        }
    }
    console.data(table(columns, rows));
}
