#pragma once
#include <string>

#include "text/ZrApi.h"

class HPLBoard;
class HPLCore;
class HPLPlatform;
namespace BasePlatform {
struct Board;
struct CFA;
struct Core;
struct InnerCore;
struct Root;
}  // namespace BasePlatform

/// Writes a hardware platform as the XML metadata of older archives, for HTEQCfaXmlReader to read. The form holds
/// less than the model: one host interface, one feature ROM, no clocks and bus interfaces of the hpfm, no ids, tile
/// arrays, explicit design intents or flash; without partial reconfiguration no host. What was written, read and
/// written again no longer changes from then on.
class ZR_API HTEQCfaXmlWriter {
public:
    /// `platform` stays the caller's.
    HTEQCfaXmlWriter(HPLPlatform* platform, std::string file);

    /// Writes the whole file or leaves it as it was. Throws `HXMLException`: with "@74-15@%s%s%s%s" when the platform
    /// has no such form (no device, a port without name or type, more than 255 compute units, a text that XML cannot
    /// hold), with "@74-10@%s" when the file cannot be written.
    void writeCFA();
    /// What `writeCFA` would write. Throws `HEXFileFault`, with the reason, for a platform that has no such form.
    std::string getText() const;

private:
    std::string document_() const;
    void writeGenAppInfo_(BasePlatform::Root& record) const;
    void writeCFA_(BasePlatform::CFA& record) const;
    void writeHostArchitecture_(BasePlatform::CFA& record) const;
    void writeBuildFlow_(BasePlatform::CFA& record) const;
    void writeBoard_(BasePlatform::CFA& record) const;
    void writeInterfaces_(BasePlatform::Board& record) const;
    void writeMemories_(BasePlatform::Board& record) const;
    void writeConnectors_(BasePlatform::Board& record) const;
    void writeImages_(BasePlatform::Board& record) const;
    void writePCIeId_(BasePlatform::Board& record) const;
    void writeDesignIPs_(BasePlatform::CFA& record) const;
    void writeDevices_(BasePlatform::CFA& record) const;
    void writeCore_(const HPLCore& core, BasePlatform::Core& record) const;
    void writeResources_(const HPLCore& core, BasePlatform::InnerCore& record) const;
    void writeFiles_(BasePlatform::CFA& record) const;
    void writeFeatureRom_(BasePlatform::CFA& record) const;

    HPLPlatform* platform_;
    std::string file_;
};
