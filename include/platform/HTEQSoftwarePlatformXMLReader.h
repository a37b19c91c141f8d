#pragma once
#include <string>

#include "text/ZrApi.h"

class HTEQSoftwarePlatform;
class HTEQSystemConfig;
namespace TEQSoftwarePlatform {
struct BootImages;
struct Configuration;
struct Platform;
struct ProcessorGroup;
struct SystemConfigurations;
}  // namespace TEQSoftwarePlatform

/// Fills a software platform from a `.spfm` file. Vendor, library, name, version and description of the file's root
/// are checked and not carried into the model.
class ZR_API HTEQSoftwarePlatformXMLReader {
public:
    /// Throws `HEXFileNotFoundException` when the file is not there. `platform` stays the caller's.
    HTEQSoftwarePlatformXMLReader(const std::string& file, HTEQSoftwarePlatform* platform);

    /// False when the file cannot be read or is not valid: the error text is then printed on standard output and
    /// kept, message "@74-51@%s%d" is sent, and the platform is as it was.
    bool parseFile();
    /// The same, but throws `HEXFileFault` where `parseFile` answers false.
    void readFile();
    /// About the last failure; empty after success.
    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    void parsePlatform_(const TEQSoftwarePlatform::Platform& record);
    void parseSystemConfigurations_(const TEQSoftwarePlatform::SystemConfigurations& record);
    void parseConfiguration_(const TEQSoftwarePlatform::Configuration& record);
    static void parseProcessorGroup_(const TEQSoftwarePlatform::ProcessorGroup& record, HTEQSystemConfig& config);
    static void parseBootImages_(const TEQSoftwarePlatform::BootImages& record, HTEQSystemConfig& config);

    std::string file_;
    HTEQSoftwarePlatform* platform_;
    std::string errorMsg_;
};
