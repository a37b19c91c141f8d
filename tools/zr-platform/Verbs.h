#pragma once
#include <map>
#include <span>
#include <string>
#include <vector>

/// What the exit codes mean.
inline constexpr char kExitCodes[] =
    "Exit codes: 0 success or yes, 1 the answer is no, 2 usage error, 3 the input is missing or faulty, 4 the "
    "environment failed, 70 an internal error.";

/// A verb is a row: parsing, help, manual page, completion and the reference page are generated from the rows.
struct Positional {
    const char* name;  ///< "ARCHIVE..." takes one or more, "[OUT]" is optional, "[FILE...]" takes any number
    const char* help;
    const char* values = "";  ///< "a|b" for one of these, otherwise the kind of value (Completion.cpp); completed
};

struct Option {
    const char* name;     ///< without the dashes
    const char* choices;  ///< null for a flag, "a|b" for one of these, otherwise the kind of value; with "..." the
                          ///< option may be given several times
    const char* help;
};

/// The arguments of a verb: positionals and options by name; the value of a flag is "".
struct Call {
    std::map<std::string, std::vector<std::string>> positionals;
    std::map<std::string, std::vector<std::string>> options;

    const std::string& operator[](const char* positional) const { return positionals.at(positional).front(); }
    /// The value of an optional positional.
    std::string get(const char* positional, const std::string& missing) const {
        const auto& values = positionals.at(positional);
        return values.empty() ? missing : values.front();
    }
    const std::vector<std::string>& all(const char* positional) const { return positionals.at(positional); }
    bool has(const char* option) const { return options.count(option) > 0; }
    std::string get(const char* option) const { return has(option) ? options.at(option).back() : ""; }
    /// All values of an option.
    std::vector<std::string> values(const char* option) const {
        return has(option) ? options.at(option) : std::vector<std::string>();
    }
};

struct Verb {
    const char* name;
    std::vector<Positional> positionals;
    std::vector<Option> options;
    const char* summary;
    const char* details;
    const char* example;  ///< arguments after "zr-platform NAME", for the packed samples
    int (*run)(const Call& call);
    bool isManyRequests = false;  ///< each file or platform is a request of its own, with its own limits
};

std::span<const Verb> verbs();
/// Options of every verb.
std::span<const Option> commonOptions();

int runJson(const Call& call);
int runShow(const Call& call);
int runNew(const Call& call);
int runPack(const Call& call);
int runMembers(const Call& call);
int runExtract(const Call& call);
int runSetFile(const Call& call);
int runEmulate(const Call& call);
int runVerify(const Call& call);
int runSchema(const Call& call);
int runValidate(const Call& call);
int runExplain(const Call& call);
int runToXml(const Call& call);
int runList(const Call& call);
int runWhere(const Call& call);
int runInfo(const Call& call);
int runBoards(const Call& call);
int runRepoPath(const Call& call);
int runQuery(const Call& call);
int runKeys(const Call& call);
int runDoc(const Call& call);
int runDict(const Call& call);
int runTransform(const Call& call);
int runCatalog(const Call& call);
int runCheck(const Call& call);
int runExceptions(const Call& call);
int runLabels(const Call& call);
int runRqa(const Call& call);
int runCreateFixed(const Call& call);
int runFromHdf(const Call& call);
int runCheckRm(const Call& call);
int runEmuConvert(const Call& call);
