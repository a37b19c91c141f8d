#pragma once
#include <map>
#include <span>
#include <string>
#include <vector>

/// A verb is a row: parsing, help, manual page, completion and the reference page are made from the rows.
struct Positional {
    const char* name;  ///< "ARCHIVE..." takes one or more, "[OUT]" one or none
    const char* help;
};

struct Option {
    const char* name;     ///< without the dashes
    const char* choices;  ///< null for a flag, "a|b" for one of these, else what kind of value it takes
    const char* help;
};

/// What a verb was called with: the positionals by name, the options by name, "" where they have no value.
struct Call {
    std::map<std::string, std::vector<std::string>> positionals;
    std::map<std::string, std::string> options;

    const std::string& operator[](const char* positional) const { return positionals.at(positional).front(); }
    /// Of a positional that may be missing.
    std::string get(const char* positional, const std::string& without) const {
        const auto& values = positionals.at(positional);
        return values.empty() ? without : values.front();
    }
    const std::vector<std::string>& all(const char* positional) const { return positionals.at(positional); }
    bool has(const char* option) const { return options.count(option) > 0; }
    std::string get(const char* option) const { return has(option) ? options.at(option) : ""; }
};

struct Verb {
    const char* name;
    std::vector<Positional> positionals;
    std::vector<Option> options;
    const char* summary;
    const char* details;
    const char* example;  ///< arguments behind "zr-platform NAME", on the packed samples
    int (*run)(const Call& call);
};

std::span<const Verb> verbs();
/// Options that each verb takes.
std::span<const Option> commonOptions();

int runJson(const Call& call);
int runShow(const Call& call);
int runPack(const Call& call);
int runMembers(const Call& call);
int runExtract(const Call& call);
int runSetFile(const Call& call);
int runVerify(const Call& call);
int runSchema(const Call& call);
int runValidate(const Call& call);
int runExplain(const Call& call);
int runToXml(const Call& call);
