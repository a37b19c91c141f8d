#pragma once
#include <functional>
#include <string>
#include <vector>

#include "Console.h"

/// Calls `write` with the path to write to and whether an existing file may be replaced. The path is `destination`,
/// or, for "-", a temporary file with the extension `ext`, which is then copied to standard output.
void writeTo(const std::string& destination, bool mayReplace, const std::string& ext,
             const std::function<void(const std::string& path, bool mayReplace)>& write);

/// Whether nothing else can be printed if this is written to: "-", or another name of standard output.
bool isStandardOutput(const std::string& destination);
/// Throws if records are asked for and the destination is standard output.
void expectPlaceForRecords(const Call& call, const std::string& destination);

/// What a verb has written, as the records of --json and --ndjson: a file, its members if it is an archive, and what was lost
/// on the way.
class WrittenFiles {
public:
    /// `destinations` without empty ones. Throws if records are asked for and one of them is standard output.
    WrittenFiles(const Call& call, std::vector<std::string> destinations);
    /// Prints the records if they are asked for, otherwise the losses as notes on `input`.
    void report(const std::string& input = {}, const std::vector<std::string>& losses = {}) const;

private:
    boost::json::object recordOf(const std::string& file, const std::vector<std::string>& losses) const;

    const Call& call_;
    std::vector<std::string> destinations_;
};
