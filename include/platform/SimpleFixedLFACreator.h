#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/HPLPlatform.h"
#include "platform/HTEQTmpDirObject.h"

/// Makes a minimal fixed hardware archive: JSON metadata and the files that the caller adds.
class ZR_API SimpleFixedLFACreator {
public:
    /// What becomes of an existing file at the output path.
    enum class Existing {
        remove,   ///< the constructor removes it
        replace,  ///< it is there until the archive replaces it
        refuse    ///< writing the archive fails
    };

    /// Makes the staging directory. Throws `HEXUserException`.
    explicit SimpleFixedLFACreator(const std::string& output, Existing existing = Existing::remove);

    /// The caller keeps ownership. The seed is kept and not used yet.
    void setSeedPlatform(HTEQHardwarePlatform* seed) { seed_ = seed; }
    HTEQHardwarePlatform* getSeedPlatform() const { return seed_; }
    /// What is in this directory becomes part of the archive. It is removed with this object.
    std::string getStagingDir() const { return staging_.get(); }
    /// Puts the file at `source` into the archive as `member`, without a copy in the staging directory, and makes it
    /// the one file of its type in the metadata.
    void addFile(const std::string& type, const std::string& member, const std::string& source);

    /// Writes the archive, with a digest, completely or not at all. Its JSON member is "lfa.json" whatever the
    /// extension of the output. Always true; throws `HEXUserException`.
    bool writeLFA();

private:
    void setPlatformAttributes();
    void writeJSON() const;
    void createArchive() const;

    std::string output_;
    Existing existing_;
    HPLPlatform platform_;
    HTEQHardwarePlatform* seed_ = nullptr;
    HTEQTmpDirObject staging_;
    std::vector<std::pair<std::string, std::string>> added_;  ///< members and paths
};
