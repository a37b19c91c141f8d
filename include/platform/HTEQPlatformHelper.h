#pragma once
#include <memory>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HBOBoard;
class HBOBoardCDataManager;
class HBOBoardComponent;
class HTEQHardwarePlatform;
class HTEQPlatform;
class HTEQSoftwarePlatform;

/// The engine helper: questions about one platform, answered in texts, numbers and lists. Without a platform the
/// answers are false, 0 and the empty text, and lists are left unchanged; operations with an `out` append to it unless
/// they say otherwise. For one thread.
class ZR_API HTEQPlatformHelper {
public:
    using StringVector = HSTVector<std::string>;

    /// For a platform that the caller owns, which must outlive the helper. Such a helper has no boards: see
    /// `getCompatibleConnectors`.
    explicit HTEQPlatformHelper(HTEQPlatform* platform);
    /// Loads the platform `name`: a file, or, if there is no such file, the name of a descriptor in `repoPaths` or in
    /// the default repositories. If none or several answer to it, or the platform cannot be loaded (which sends
    /// messages), the helper is not valid. Throws what the constructor of `teq_platform::PlatformLoader` throws.
    HTEQPlatformHelper(const std::string& name, const StringVector& repoPaths, const StringVector& boardRepoPaths);
    virtual ~HTEQPlatformHelper();
    HTEQPlatformHelper(const HTEQPlatformHelper&) = delete;
    HTEQPlatformHelper& operator=(const HTEQPlatformHelper&) = delete;

    /// The helper's or the caller's platform; or null.
    HTEQPlatform* getPlatform() const;
    bool isValid() const { return getPlatform() != nullptr; }

    /// @name Identity
    /// @{
    std::string getVendor() const;
    std::string getLibrary() const;
    std::string getName() const;
    std::string getVersion() const;
    std::string getDescription() const;
    std::string getUniqueName() const;
    std::string getPlatformBaseName() const;
    std::string getPlatformFile() const;
    std::string getPlatformDir() const;
    std::string getDeviceName() const;
    std::string getSoftwarePlatformFile() const;
    void getTargetCategories(StringVector& out) const;
    /// @}

    /// @name Kind
    /// @{
    bool isUnifiedPlatform() const;
    bool isUnified() const { return isUnifiedPlatform(); }
    bool isExpandablePlatform() const;
    bool isFixedPlatform() const;
    bool isPartialPlatform() const;
    bool hasSimContent() const;
    bool isProcessorGroupRelevant() const;  ///< embedded
    bool isLinuxRootFSPathRelevant() const { return isProcessorGroupRelevant(); }
    /// Whether it starts from a boot image: an embedded platform, or a unified one whose host interface is "axi".
    bool hasBootImg() const;
    /// @}

    /// @name Software
    /// `config` is the name or pretty name of a system configuration.
    /// @{
    /// Name of the default configuration.
    std::string getDefaultSystemConfig() const;
    /// Name of the configuration.
    std::string getSystemConfigByName(const std::string& config) const;
    void getSysConfigNames(StringVector& out) const;
    bool isSystemConfigSupported(const std::string& config) const;
    bool isRuntimeSupported(const std::string& runtime) const;
    bool isQemuSupported(const std::string& config) const;
    /// Appends the paths of each processor group of the configuration that has any, as they stand in the file.
    void getIncludePaths(const std::string& config, StringVector& out) const;
    void getLibraryPaths(const std::string& config, StringVector& out) const;
    /// As `HTEQPlatformUtils`.
    void getRuntimes(const std::string& config, StringVector& out) const;
    void getRuntimesByPrettyName(const std::string& config, StringVector& out) const;
    std::size_t getNumRuntimes(const std::string& config) const;
    bool supportsMultipleRuntimes() const { return getNumRuntimes("") >= 1; }
    /// @}

    /// @name Device and resources
    /// @{
    /// Part name of the first device.
    std::string getFpgaPart() const;
    /// Architecture, device, package, speed, temperature grade, static power and revision.
    StringVector getFpgaPartAsFields() const;
    std::string getFpgaDevice() const;
    int getBRAMCount() const;
    int getDSPCount() const;
    int getFFCount() const;
    int getLUTCount() const;
    unsigned getNumDDRs() const;
    unsigned getNumComputeUnits() const;
    /// Appends a text "TYPE=COUNT" for each.
    void getAllResources(StringVector& out) const;
    void getAllResources(StringVector& types, StringVector& counts) const;
    /// @}

    /// @name Memory and clocks, see `HTEQHardwarePlatform`
    /// @{
    std::string getMemType() const;
    std::string getMemSize() const;
    bool isMemoryResourceIndexed() const;
    unsigned getUniqueMemoryTypeCount() const;
    unsigned getUniqueMemoryTypeStrings(StringVector& out) const;
    unsigned getMemoryTypeCount(const std::string& type) const;
    unsigned getMemoryIndex(const std::string& type, unsigned n = 0) const;
    std::string getMemorySize(const std::string& type, unsigned n = 0) const;
    std::string getMemorySLR(const std::string& type, unsigned n = 0) const;
    void getValidSLRNames(StringVector& out) const;
    std::string getDefaultClockFrequency() const;
    std::string getDefaultClockId() const;
    std::string getClockFrequency(const std::string& name) const;
    std::string getClockId(const std::string& name) const;
    std::string getPlatformFrequency(int index) const;
    /// Appends a text "NAME=FREQUENCY" for each.
    void getAllClockFrequencies(StringVector& out) const;
    void getAllClockFrequencies(StringVector& names, StringVector& frequencies) const;
    void getCpuClockNames(StringVector& out) const;
    void getSystemClockNames(StringVector& out) const;
    /// @}

    /// @name Host, board and connectors
    /// @{
    std::string getHostArch() const;
    std::string getInterfaceDesc() const;
    std::string getBoardId() const;
    /// Extracts the archive's board repository; its path.
    std::string getPlatformBoardRepo() const;
    void getBoardImgZipEntries(StringVector& out) const;
    std::string getBoardConnectionsString() const;
    std::string getLockedBoardConnectionsString() const;
    std::string getUnlockedBoardConnectionsString() const;
    bool hasDimmConnectors() const;
    void getDimmConnectors(StringVector& out) const;
    /// Appends the names of the connected connectors.
    void getConnectedDimmConnectors(StringVector& out) const;
    void getConnectedDimmConnectors(StringVector& names, StringVector& connectedNames) const;
    void getLockedDimmConnectors(StringVector& out) const;
    std::string getConnectorDisplayName(const std::string& name) const;
    /// Appends the names of the DIMM connectors that fit the platform's DIMM connector of that display name or name
    /// (ignoring case), by the board repositories of this helper and then of the platform's archive. The paths are
    /// as before afterwards.
    void getCompatibleConnectors(const std::string& name, StringVector& out);

    void getBoardRepoPaths(StringVector& out) const { out = boardRepoPaths_; }
    void setBoardRepoPaths(const StringVector& paths);
    void clearBoardRepoPaths() { setBoardRepoPaths({}); }
    /// @}

private:
    HTEQHardwarePlatform* hardware_() const;
    HTEQSoftwarePlatform* software_() const;
    const HBOBoard* getBaseBoard_() const;
    const HBOBoardComponent* getConnector_(const std::string& name) const;

    std::shared_ptr<HTEQPlatform> loaded_;
    std::string file_;
    HTEQPlatform* direct_ = nullptr;
    std::shared_ptr<HBOBoardCDataManager> boards_;
    StringVector boardRepoPaths_;
};
