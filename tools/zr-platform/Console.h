#pragma once
#include <boost/json/value.hpp>
#include <string>
#include <string_view>
#include <vector>

#include <platform/RequestFailure.h>

#include "Verbs.h"

/// Exit codes. Of several files the worst counts.
enum class Exit { done = 0, no = 1, usage = 2, input = 3, environment = 4, fault = 70 };
Exit worse(Exit a, Exit b);
Exit exitOf(const teq_platform::Failure& failure);

/// Standard output and standard error of the tool. The library prints text on the standard streams in places and sends
/// messages: both are captured here, so that standard output holds data only.
class Console {
public:
    /// Takes the streams and the message sink over, for the process.
    static Console& take();
    void configure(const Call& call);

    /// Data, as it stands. Fails when it cannot be written.
    void data(std::string_view bytes);
    /// A line on standard error, unless --quiet.
    void note(const std::string& line);
    void report(const teq_platform::Failure& failure);
    void flush();

    bool wide() const;  ///< standard output is a terminal

private:
    Console();
    /// What the library has printed since the last call, for --verbose.
    void printCaptured();
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
