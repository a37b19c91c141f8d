#pragma once
#include <memory>
#include <string>

#include "text/ZrApi.h"

class HTEQHardwarePlatform;
namespace WELHardwarePlatform {
struct Repository;
}  // namespace WELHardwarePlatform

/// Fills a hardware platform from hpfm, given as a text or as a file. If the hpfm is not
/// valid, the platform is not changed. The text of each failure is printed on standard output and kept.
class ZR_API HTEQHpfmReader {
public:
    /// An empty text prints a warning on standard output; the reader can still parse a file. The caller keeps
    /// ownership of `platform`.
    HTEQHpfmReader(std::string hpfm, HTEQHardwarePlatform* platform);

    void setPlatformFile(const std::string& file) { file_ = file; }
    /// Parses the file and makes it the platform's file. False if it does not exist or, with message "@74-12@", if it
    /// is not valid.
    bool parseFile();
    /// Parses the text. False, with message "@74-31@", if it is not valid.
    bool parseStream();
    /// Parse the text, and add only the component's bus interfaces, or only its NoC connectivity. They fail
    /// like `parseStream`.
    bool parseBusInterfaces();
    bool parseNocConnectivity();

    /// Fills the platform from a record of `records/TEQHpfmLMX.h`. Vendor, board id and name are set only if they are
    /// empty; the description always.
    void parseRepository(const WELHardwarePlatform::Repository& record);

    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    const WELHardwarePlatform::Repository* readStream_();

    std::string hpfm_;
    HTEQHardwarePlatform* platform_;
    std::string file_, errorMsg_;
    std::shared_ptr<const WELHardwarePlatform::Repository> repository_;  ///< of `hpfm_`, once read
};
