#pragma once
#include <boost/json/value.hpp>
#include <string>
#include <string_view>
#include <vector>

#include <platform/RequestFailure.h>

#include "Verbs.h"

/// Exit codes. With several files, the worst one counts.
enum class Exit { done = 0, no = 1, usage = 2, input = 3, environment = 4, fault = 70 };
Exit worse(Exit a, Exit b);
Exit exitOf(const teq_platform::Failure& failure);

/// Thrown when nobody reads a standard stream any more: the tool shall end by SIGPIPE, after everything temporary has
/// been removed. Not a `std::exception`: only `main` catches it.
struct ReaderGone {};

/// Standard output and standard error of the tool. The library sends messages, and some of its functions print to the
/// standard streams: both are captured here, so that standard output holds data only.
class Console {
public:
    /// The console of the process. The first call takes over the standard streams and the message sink.
    static Console& take();
    void configure(const Call& call);
    /// Messages become JSON from now on, even if the arguments turn out to be wrong.
    void useJsonMessages();

    /// Writes data unchanged. Throws if it cannot be written.
    void data(std::string_view bytes);
    /// The same for a document of the library, JSON or XML, in which a terminal gets escapes for the characters that would
    /// change it.
    void document(std::string_view text);
    /// A line on standard error, unless --quiet.
    void note(const std::string& line);
    /// A diagnostic on standard error, unless --quiet: a line, or a JSON record with --messages=json. `severity`:
    /// "error", "warning", or "" for information.
    void print(const HEXDiagnostic& diagnostic, std::string_view severity);
    void report(const teq_platform::Failure& failure);
    /// For a request that has succeeded: the errors that the library sent on the way are of members that it ignored.
    void warnOfFaults();
    /// Whether there were such errors since the last call; from now on they are not warned of.
    bool takeFaults();
    /// A file that holds standard input or output; `shown` prints "-" in its place.
    void nameStandIn(const std::string& file);
    std::string shown(std::string text) const;
    /// The platform that is read from now on: the library's messages name the files of its folder as the user wrote it.
    void nameInput(const std::string& file);
    void flush();
    /// Replaces the progress line on standard error; an empty text removes it. Only on a terminal, and without
    /// --quiet.
    void progress(const std::string& text);
    /// Whether standard output is a terminal, where results are shown as they arrive.
    bool isInteractive() const;

    /// Columns of the terminal that standard output is, otherwise 80.
    std::size_t width() const;

private:
    Console();
    /// With --verbose, prints the library's output since the last call.
    void printCaptured();
    struct State;
    State* state_;
};

/// The tool's own records, in the formats that all verbs share.
class Records {
public:
    explicit Records(const char* noun) : noun_(noun) {}
    void add(boost::json::object record) { records_.push_back(std::move(record)); }
    /// Something that is missing from the records.
    void addProblem(const HEXDiagnostic& problem);
    /// Whether the call asks for records in JSON.
    static bool areAsked(const Call& call) { return call.has("json") || call.has("ndjson"); }
    /// Prints one record, if the call asks for records.
    static void printOne(const Call& call, const char* noun, boost::json::object record);
    /// Prints the records as a table of the given columns, as one JSON document, or as one JSON record per line.
    void print(const Call& call, const std::vector<std::string>& columns) const;

private:
    const char* noun_;
    boost::json::array records_, problems_;
};

/// `text` with line breaks at spaces, in lines of at most `width` characters; `indent` begins each line after the first.
std::string wrapped(std::string_view text, std::size_t width, const std::string& indent = "");

/// Bytes of a cell that are shown: every row is padded to the longest one.
inline constexpr std::size_t kMaxCell = 200;
/// A table of texts; each line ends in a line end; of more than 10,000 rows, the last line says how many are left out. Cells are cut at `kMaxCell`; columns whose name begins with ">" are aligned to the right.
std::string table(const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows);
