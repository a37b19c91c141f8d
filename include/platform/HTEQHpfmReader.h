#pragma once
#include <memory>
#include <string>

#include "text/ZrApi.h"

class HTEQHardwarePlatform;
namespace WELHardwarePlatform {
struct Repository;
}  // namespace WELHardwarePlatform

/// Fills a hardware platform from hpfm, given as a text or as a file. Nothing reaches the platform from hpfm that is
/// not valid as a whole. Of each failure the words are printed on standard output and kept.
class ZR_API HTEQHpfmReader {
public:
    /// An empty text prints a warning on standard output; the reader can still parse a file. `platform` stays the
    /// caller's.
    HTEQHpfmReader(std::string hpfm, HTEQHardwarePlatform* platform);

    void setPlatformFile(const std::string& file) { file_ = file; }
    /// Parses the file and makes it the platform's file. False when it is not there or not valid; of the latter
    /// message "@74-12@" is sent.
    bool parseFile();
    /// Parses the text. False when it is not valid; message "@74-31@" is then sent.
    bool parseStream();
    /// Parse the text, and add only the component's bus interfaces, or only its NoC connectivity. They fail as
    /// `parseStream` does.
    bool parseBusInterfaces();
    bool parseNocConnectivity();

    /// Fills the platform. Vendor, board id and name are set only where they are empty; the description always.
    void parseRepository(const WELHardwarePlatform::Repository& record);

    const std::string& getErrorMsg() const { return errorMsg_; }

private:
    const WELHardwarePlatform::Repository* readStream_();

    std::string hpfm_;
    HTEQHardwarePlatform* platform_;
    std::string file_, errorMsg_;
    std::shared_ptr<const WELHardwarePlatform::Repository> repository_;  ///< of `hpfm_`, once it has been read
};
