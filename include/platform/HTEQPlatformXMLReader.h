#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQPlatform;

/// Fills a platform from its descriptor, a `.zdf` file. The files that the descriptor names need not exist.
class ZR_API HTEQPlatformXMLReader {
public:
    /// Throws `HEXFileNotFoundException` if `file` is empty or does not exist. The caller keeps ownership of
    /// `platform`.
    HTEQPlatformXMLReader(const std::string& file, HTEQPlatform* platform);

    /// False if the file cannot be read or is not a valid descriptor: the error text is then printed on standard
    /// output and kept, message "@74-9@%s" is sent, and the platform is unchanged.
    bool parseFile();
    /// The same, but throws `HEXFileFault` where `parseFile` answers false.
    void readFile();
    /// Two lines about the last failure; empty after success.
    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    std::string file_;
    HTEQPlatform* platform_;
    std::string errorMsg_;
};
