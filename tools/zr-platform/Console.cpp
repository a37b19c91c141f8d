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

Problem Problem::of(const FileProblem& fault) {
    Problem problem;
    static_cast<FileProblem&>(problem) = fault;
    return problem;
}

struct Console::State {
    std::stringbuf library;  ///< words that the library wrote on the standard streams
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

}  // namespace

void Console::State::onMessage(const ComMsgMgrInstance& message) {
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
    std::cout.rdbuf(&state_->library);
    std::cerr.rdbuf(&state_->library);
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

void Console::sayKept() {
    const std::string said = state_->library.str();
    state_->library.str("");
    if (state_->verbose && !said.empty()) words(HSTStringUtils::printable(said));
}

void Console::flush() {
    sayKept();
    const std::string out = std::exchange(state_->out, {});
    writeAll(1, out);
}

void Console::words(const std::string& line) {
    if (!state_->quiet) writeAll(2, line + "\n");
}

void Console::problem(const Problem& problem) {
    sayKept();
    words(problem.line_());
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
