#include "Console.h"

#include <fcntl.h>
#include <libsmartcols.h>
#include <unistd.h>

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>

#include <msg/ComMsgMgr.h>
#include <text/HSTStringUtils.h>

Exit worse(Exit a, Exit b) {
    constexpr Exit kOrder[] = {Exit::fault, Exit::environment, Exit::input, Exit::usage, Exit::no};
    for (const Exit exit : kOrder)
        if (a == exit || b == exit) return exit;
    return Exit::done;
}

Problem Problem::of(Exit exit, std::string file, std::string text) {
    Problem problem;
    problem.exit = exit;
    problem.file = std::move(file);
    problem.text = std::move(text);
    return problem;
}

std::string Problem::line_() const {
    std::string place = HSTStringUtils::printable(file);
    if (!member.empty()) place += "!" + HSTStringUtils::printable(member);
    if (line > 0) place += ":" + std::to_string(line);
    if (line > 0 && column > 0) place += ":" + std::to_string(column);
    if (!place.empty()) place += ": ";
    return place + "error: " + HSTStringUtils::printable(text) + (id.empty() ? "" : " [" + id + "]");
}

Problem archiveProblem(const std::string& archive, const std::string& words) {
    Problem problem = Problem::of(Exit::input, archive, words);
    if (!words.starts_with(archive)) return problem;
    std::string rest = words.substr(archive.size());
    const std::size_t colon = rest.find(": ");
    if (colon == std::string::npos) return problem;
    if (rest.starts_with("!")) problem.member = rest.substr(1, colon - 1);
    problem.text = rest.substr(colon + 2);
    return problem;
}

struct Console::State {
    std::ostringstream library;  ///< words that the library wrote on the standard streams
    std::vector<ComMsgMgrInstance> messages;
    std::string out;
    bool verbose = false, quiet = false, json = false;

    void onMessage(const ComMsgMgrInstance& message);
};

namespace {

/// Writes all of `bytes`, or says why not.
void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(file, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0)
            throw Problem::of(Exit::environment, "", std::string("cannot write the output: ") + std::strerror(errno));
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

/// "74-60" of "@74-60@%s".
std::string shortId(const std::string& id) { return id.empty() ? "" : id.substr(1, id.rfind('@') - 1); }

unsigned long numberOf(const std::string& text) { return std::strtoul(text.c_str(), nullptr, 10); }

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Takes a " (column N)" from the end of a text.
unsigned long takeColumn(std::string& text) {
    constexpr std::string_view kOpen = " (column ";
    const auto at = text.rfind(kOpen);
    if (at == std::string::npos || text.back() != ')') return 0;
    const std::string number = text.substr(at + kOpen.size(), text.size() - 1 - at - kOpen.size());
    if (!isNumber(number)) return 0;
    text.erase(at);
    return numberOf(number);
}

/// What stands behind "Line number:N. " on a line of what was printed; empty when there is no such line.
std::string faultOnLine(const std::string& printed) {
    constexpr std::string_view kLine = "Line number:";
    const auto at = printed.find(kLine);
    const auto point = at == std::string::npos ? at : printed.find(". ", at);
    if (point == std::string::npos || !isNumber(printed.substr(at + kLine.size(), point - at - kLine.size())))
        return "";
    return printed.substr(point + 2, printed.find('\n', point) - (point + 2));
}

/// The fault of a file that the XML readers tell: the line is in the message, the text was printed.
Problem xmlProblem(const ComMsgMgrInstance& message, const std::string& printed) {
    Problem problem;
    problem.file = message.args.at(0);
    problem.line = numberOf(message.args.at(1));
    problem.text = faultOnLine(printed);
    if (problem.text.empty()) problem.text = message.text;
    problem.column = takeColumn(problem.text);
    return problem;
}

/// Takes what stands up to the last "(LINE): " from a text.
unsigned long takeLine(std::string& text) {
    constexpr std::string_view kClose = "): ";
    for (auto close = text.rfind(kClose); close != std::string::npos && close > 0;
         close = text.rfind(kClose, close - 1)) {
        const auto open = text.rfind('(', close);
        if (open == std::string::npos) return 0;
        const std::string number = text.substr(open + 1, close - open - 1);
        if (!isNumber(number)) continue;
        text.erase(0, close + kClose.size());
        return numberOf(number);
    }
    return 0;
}

/// The fault of an archive's member: member, archive and "member(line): what is wrong".
Problem memberProblem(const ComMsgMgrInstance& message) {
    Problem problem;
    problem.member = message.args.at(0);
    problem.file = message.args.at(1);
    problem.text = message.args.at(2);
    problem.line = takeLine(problem.text);
    problem.column = takeColumn(problem.text);
    return problem;
}

/// The fault of an archive's XML member: what is wrong, "archive/member" and the line.
Problem xmlMemberProblem(const ComMsgMgrInstance& message) {
    Problem problem;
    problem.text = message.args.at(0);
    problem.line = numberOf(message.args.at(2));
    problem.column = takeColumn(problem.text);
    const std::string& path = message.args.at(1);
    std::size_t slash = path.rfind('/');
    if (path.substr(0, slash).ends_with("/hw_emu")) slash -= std::string_view("/hw_emu").size();
    problem.file = path.substr(0, slash);
    problem.member = path.substr(slash + 1);
    return problem;
}

Problem problemOf(const ComMsgMgrInstance& message, const std::string& file, const std::string& printed) {
    const std::string id = shortId(message.id);
    Problem problem;
    if (id == "74-9" || id == "74-51") {
        problem = xmlProblem(message, printed);
    } else if (id == "74-62") {
        problem = xmlMemberProblem(message);
    } else if (id == "74-64" || id == "74-65") {
        problem = memberProblem(message);
    } else {
        problem.file = file;
        problem.text = message.args.empty() ? message.text : message.args.back();
        if (id != "74-60") problem.text = message.text;
    }
    problem.id = id;
    return problem;
}

}  // namespace

void Console::State::onMessage(const ComMsgMgrInstance& message) {
    messages.push_back(message);
    if (quiet || !(verbose || json)) return;
    if (json) {
        boost::json::array args(message.args.begin(), message.args.end());
        const boost::json::object record{{"id", message.id},
                                         {"severity", static_cast<unsigned>(message.mask)},
                                         {"args", std::move(args)},
                                         {"text", message.text}};
        writeAll(2, boost::json::serialize(record) + "\n");
    } else {
        writeAll(2, HSTStringUtils::printable(message.text) + " [" + shortId(message.id) + "]\n");
    }
}

Console::Console() : state_(new State) {
    std::cout.rdbuf(state_->library.rdbuf());
    std::cerr.rdbuf(state_->library.rdbuf());
    ComMsgMgr::setSink([state = state_](const ComMsgMgrInstance& message) { state->onMessage(message); });
}

Console& Console::take() {
    static Console* const console = new Console;  // outlives every static that still writes
    return *console;
}

void Console::configure(const Call& call) {
    state_->verbose = call.has("verbose");
    state_->quiet = call.has("quiet");
    state_->json = call.get("messages") == "json";
}

void Console::data(std::string_view bytes) {
    state_->out += bytes;
    if (state_->out.size() > 1 << 16) flush();
}

void Console::flush() {
    const std::string out = std::exchange(state_->out, {});
    writeAll(1, out);
}

void Console::words(const std::string& line) {
    if (!state_->quiet) writeAll(2, line + "\n");
}

void Console::problem(const Problem& problem) { words(problem.line_()); }

std::vector<Problem> Console::takeProblems(const std::string& file) {
    const std::string printed = state_->library.str();
    state_->library.str("");
    if (state_->verbose && !printed.empty()) words(HSTStringUtils::printable(printed));
    std::vector<Problem> problems;
    for (const ComMsgMgrInstance& message : std::exchange(state_->messages, {}))
        problems.push_back(problemOf(message, file, printed));
    // The loader's own message only repeats that something failed, unless it is the only one.
    std::stable_partition(problems.begin(), problems.end(), [](const Problem& p) { return p.id != "74-60"; });
    return problems;
}

bool Console::wide() const { return isatty(1) == 1; }

std::string table(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows) {
    const std::unique_ptr<libscols_table, void (*)(libscols_table*)> table(scols_new_table(), scols_unref_table);
    for (const std::string& column : columns) {
        const bool right = column.starts_with(">");
        scols_table_new_column(table.get(), column.substr(right ? 1 : 0).c_str(), 0, right ? SCOLS_FL_RIGHT : 0);
    }
    for (const auto& row : rows) {
        libscols_line* const line = scols_table_new_line(table.get(), nullptr);
        for (std::size_t i = 0; i < row.size(); ++i)
            scols_line_set_data(line, i, HSTStringUtils::printable(row[i]).c_str());
    }
    scols_table_enable_nowrap(table.get(), 1);
    char* text = nullptr;
    scols_print_table_to_string(table.get(), &text);
    std::vector<std::string> lines = HSTStringUtils::split(text ? text : "", '\n');
    std::free(text);
    // A table's lines are padded to the width of the longest one.
    for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
    return HSTStringUtils::join(lines, "\n");
}

void Records::print(const Call& call, const std::vector<std::string>& columns) const {
    Console& console = Console::take();
    if (call.has("ndjson")) {
        for (const auto& record : records_) console.data(boost::json::serialize(record) + "\n");
        return;
    }
    if (call.has("json")) {
        const boost::json::object document{{"schema", std::string("urn:torvane:zr-platform:") + noun_ + ":1"},
                                           {"tool", "zr-platform " ZR_VERSION},
                                           {"records", records_},
                                           {"problems", boost::json::array()}};
        console.data(boost::json::serialize(document) + "\n");
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
