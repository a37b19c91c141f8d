#pragma once
#include <string>

/// Throws a `Problem` when `destination`, a file or "-", has no directory, or is there and may not be overwritten.
void checkDestination(const std::string& destination, bool overwrite);

/// A result that is written beside its destination and renamed over it when it is whole; "-" is standard output.
class OutputFile {
public:
    /// `ext`: of the name to write to; empty for the destination's. Throws what `checkDestination` throws.
    OutputFile(const std::string& destination, bool overwrite, const std::string& ext = "");
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    /// Where to write: a name that nothing stands at.
    const std::string& path() const { return path_; }
    /// Puts what was written at `path` into its place.
    void commit();

private:
    std::string destination_, path_;
    bool overwrite_;
};
