#pragma once
#include <cstdint>
#include <string>

#include "platform/HTEQEmuFeatureRom.h"
#include "platform/HTEQEmulation.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

/// The emulation metadata of a hardware platform: its targets and, from the extended metadata, feature ROMs. It owns
/// both.
class ZR_API HTEQEmulations {
public:
    static const std::string& getEmulationXmlFilename();       ///< "hw_emu.xml"
    static const std::string& getEmulationJsonFilename();      ///< "hw_emu.json"
    static const std::string& getEmuDirName();                 ///< "hw_emu"
    static const std::string& getEmulationPropJsonFilename();  ///< "prop.json"

    /// Only in the JSON form of the metadata.
    const std::string& getPfmMetadataVersion() const { return pfmMetadataVersion_; }
    void setPfmMetadataVersion(const std::string& version) { pfmMetadataVersion_ = version; }
    /// Of the XML form, for writing; the reader does not set them.
    std::uint32_t getVersionMajor() const { return versionMajor_; }
    std::uint32_t getVersionMinor() const { return versionMinor_; }
    void setVersionMajor(std::uint32_t version) { versionMajor_ = version; }
    void setVersionMinor(std::uint32_t version) { versionMinor_ = version; }

    /// Appends a new one.
    HTEQEmulation* createEmulation() { return emulations_.add(); }
    const HSTVector<HTEQEmulation*>& getEmulations() const { return emulations_.items(); }
    HTEQEmuFeatureRom* createFeatureRom() { return featureRoms_.add(); }
    const HSTVector<HTEQEmuFeatureRom*>& getFeatureRoms() const { return featureRoms_.items(); }

private:
    std::string pfmMetadataVersion_;
    std::uint32_t versionMajor_ = 0, versionMinor_ = 0;
    Owned<HTEQEmulation> emulations_;
    Owned<HTEQEmuFeatureRom> featureRoms_;
};
