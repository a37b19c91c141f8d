#pragma once
#include <boost/json/value.hpp>
#include <string>
#include <string_view>
#include <vector>

#include <msg/HEXFileFault.h>

#include "Verbs.h"

/// Exit codes, and how bad they are: of several files the worst counts.
enum class Exit { done = 0, no = 1, usage = 2, input = 3, environment = 4, fault = 70 };
Exit worse(Exit a, Exit b);

/// One thing that went wrong, with its place as far as it is known.
struct Problem : FileProblem {
    Exit exit = Exit::input;

    static Problem of(Exit exit, std::string file, std::string text);
    static Problem of(const FileProblem& fault);

    /// "file:line:column: error: text [id]", for a member "archive!member:line:column: ...".
    std::string line_() const;
};

/// Standard output and standard error of the tool. The library writes words on the standard streams in places and
/// sends messages: both are taken in here, so that standard output holds data only.
class Console {
public:
    /// Takes the streams and the message sink over, for the process.
    static Console& take();
    void configure(const Call& call);

    /// Data, as it stands. Throws `Problem` when it cannot be written.
    void data(std::string_view bytes);
    /// A line of words on standard error, unless --quiet.
    void words(const std::string& line);
    void problem(const Problem& problem);
    void flush();

    bool wide() const;  ///< standard output is a terminal

private:
    Console();
    /// What the library has printed since the last call, for --verbose.
    void sayKept();
    struct State;
    State* state_;
};

/// The tool's own records in the forms that all verbs share.
class Records {
public:
    explicit Records(const char* noun) : noun_(noun) {}
    void add(boost::json::object record) { records_.push_back(std::move(record)); }
    /// Prints the records as a table of the given columns, as one document or as lines.
    void print(const Call& call, const std::vector<std::string>& columns) const;

private:
    const char* noun_;
    boost::json::array records_;
};

/// A table of texts; columns whose name begins with ">" are aligned to the right.
std::string table(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows);
