#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;

/// Fills a software platform from a `.spfm` file. Vendor, library, name, version and description of the file's root
/// are checked and not carried into the model.
class ZR_API HTEQSoftwarePlatformXMLReader {
public:
    /// Throws `HEXFileNotFoundException` when the file is not there. `platform` stays the caller's.
    HTEQSoftwarePlatformXMLReader(const std::string& file, HTEQSoftwarePlatform* platform);

    /// False when the file cannot be read or is not valid: the error text is then printed on standard output and
    /// kept, message "@74-51@%s%d" is sent, and the platform is as it was.
    bool parseFile();
    /// About the last failure; empty after success.
    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    std::string file_;
    HTEQSoftwarePlatform* platform_;
    std::string errorMsg_;
};
