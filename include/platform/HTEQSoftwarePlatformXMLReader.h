#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;

/// Fills a software platform from a `.spfm` file. Vendor, library, name, version and description of the file's root
/// are checked, but not stored in the model.
class ZR_API HTEQSoftwarePlatformXMLReader {
public:
    /// Throws `HEXFileNotFoundException` if the file does not exist. The caller keeps ownership of `platform`.
    HTEQSoftwarePlatformXMLReader(const std::string& file, HTEQSoftwarePlatform* platform);

    /// False if the file cannot be read or is not valid: the error text is then printed on standard output and kept,
    /// message "@74-51@%s%d" is sent, and the platform is unchanged.
    bool parseFile();
    /// The same, but throws `HEXFileFault` where `parseFile` answers false.
    void readFile();
    /// About the last failure; empty after success.
    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    std::string file_;
    HTEQSoftwarePlatform* platform_;
    std::string errorMsg_;
};
