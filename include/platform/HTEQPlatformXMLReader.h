#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQPlatform;
class HTEQReconfigurablePartition;
namespace TEQPlatform {
struct HardwarePlatforms;
struct Platform;
struct ReconfigurablePartition;
}  // namespace TEQPlatform

/// Fills a platform from its descriptor, a `.zdf` file. The files that the descriptor names need not exist.
class ZR_API HTEQPlatformXMLReader {
public:
    /// Throws `HEXFileNotFoundException` when `file` is empty or not there. `platform` stays the caller's.
    HTEQPlatformXMLReader(const std::string& file, HTEQPlatform* platform);

    /// False when the file cannot be read or is no valid descriptor: the error text is then printed on standard
    /// output and kept, message "@74-9@%s" is sent, and the platform is as it was.
    bool parseFile();
    /// The same, but throws `HEXFileFault` where `parseFile` answers false.
    void readFile();
    /// Two lines about the last failure; empty after success.
    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    void parsePlatform_(const TEQPlatform::Platform& record);
    void parseHardwarePlatforms_(const TEQPlatform::HardwarePlatforms& record);
    void parseReconfigurablePartition_(const TEQPlatform::ReconfigurablePartition& record);
    template <class Record>
    std::string pathOf_(const Record& record) const;
    template <class Record>
    std::string canonicalPathOf_(const Record& record) const;

    std::string file_;
    HTEQPlatform* platform_;
    std::string errorMsg_;
};
