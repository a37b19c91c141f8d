#pragma once
#include <string>

#include "text/ZrApi.h"

class HPLPlatform;

/// Writes a hardware platform as the XML metadata of older archives, for HTEQCfaXmlReader to read. The form holds
/// less than the model: one host interface, one feature ROM, no clocks and bus interfaces of the hpfm, no ids, tile
/// arrays, explicit design intents or flash; without partial reconfiguration no host. Writing, reading and writing
/// again gives the same result.
class ZR_API HTEQCfaXmlWriter {
public:
    /// The caller keeps ownership of `platform`.
    HTEQCfaXmlWriter(HPLPlatform* platform, std::string file);

    /// Writes the whole file or leaves it unchanged. Throws `HXMLException`: with "@74-15@%s%s%s%s" if the platform
    /// cannot be written in this form (no device, a port without name or type, more than 255 compute units, a text
    /// that XML cannot hold), with "@74-10@%s" if the file cannot be written.
    void writeCFA();
    /// What `writeCFA` would write. Throws `HEXFileFault`, with the reason, for a platform that has no such form.
    std::string getText() const;

private:
    HPLPlatform* platform_;
    std::string file_;
};
