#pragma once
#include <memory>
#include <string>

#include "platform/HPLPlatform.h"

class HHDFHwDef;

/// Packs a hardware definition (HDF) into a hardware archive with generated metadata: a fixed, unified platform in the
/// state "pre_synth".
class ZR_API HDFToCFAConverter {
public:
    /// Throws `HEXAlgException` if the definition or the output directory does not exist.
    HDFToCFAConverter(const std::string& hdf, const std::string& outputDir, const std::string& outputName);
    HDFToCFAConverter(const HDFToCFAConverter&) = delete;
    HDFToCFAConverter& operator=(const HDFToCFAConverter&) = delete;
    /// Removes the staging directory.
    ~HDFToCFAConverter();

    /// Stem of the metadata members: "lfa" if the name ends in ".lfa", otherwise "cfa".
    static const char* hwpf_keyword(const std::string& outputName);

    const std::string& getHwPfmDir() const { return outputDir_; }
    const std::string& getHwPfmFileName() const { return outputName_; }
    const std::string& getHwPfmFile() const { return output_; }
    /// Below the temporary directory; it exists from `createStagingDir` on.
    const std::string& getStagingDir() const { return staging_; }

    /// Whether the archive may replace an existing file; true at first.
    void setMayReplace(bool mayReplace) { mayReplace_ = mayReplace; }

    /// All steps. False after message "@74-46@" or "@74-47@"; throws `HEXUserException` if a directory or the archive
    /// cannot be written. The archive gets its name when it is complete.
    bool writeCFA();

    // The steps.

    void createStagingDir();
    /// Puts the definition into the staging directory, under its own name. False if it has no top module or cannot be
    /// copied.
    bool writeHDF() const;
    /// Writes the metadata, in XML and JSON, into the staging directory. False if it cannot be written; the reason is
    /// sent as a message.
    bool writeCfaXml();
    /// Makes the archive of the staging directory, with a digest.
    void writeCfaArchive() const;

private:
    std::string outputDir_, outputName_, output_, staging_;
    std::unique_ptr<HHDFHwDef> definition_;  ///< null if it cannot be read
    HPLPlatform platform_;
    bool isStaged_ = false, mayReplace_ = true;
};
