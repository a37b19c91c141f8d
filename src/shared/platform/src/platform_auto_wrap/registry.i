// The registry of platforms and the questions about its platforms.

%rename(TEQPlatformMgr) HTEQPlatformMgr;
ZR_LIST(HTEQPlatformMgr, StringVector, std::string)
ZR_LIST(HTEQPlatformMgr, TEQPlatformVec, HTEQPlatform*)
ZR_LIST(HTEQPlatformMgr, TEQHardwarePlatformVec, HTEQHardwarePlatform*)
class HTEQPlatformMgr {
public:
    enum class TEQProjectType { teq, platform };
    HTEQPlatformMgr();
    ZR_DESTRUCTOR(HTEQPlatformMgr)
    ~HTEQPlatformMgr();
    static HTEQPlatformMgr* getGlobal();
    static HTEQPlatformMgr* getGlobalNoInit();
    void addPlatformsFromDirs(const std::vector<std::string>& dirs);
    void addPlatformsFromDirs(const std::string& name, const std::vector<std::string>& dirs);
    void removePlatformsFromDirs(const std::vector<std::string>& dirs);
    void getHardwarePlatformsFromDirs(const std::vector<std::string>& dirs, std::vector<HTEQHardwarePlatform*>& out,
                                      bool flag);
    void clearAllPlatforms();
    HTEQPlatform* getPlatform(const std::string& name);
    void getPlatforms(std::vector<HTEQPlatform*>& out) const;
    void getCFAPlatforms(std::vector<HTEQPlatform*>& out) const;
    void getUnifiedPlatforms(std::vector<HTEQPlatform*>& out) const;
    void getTEQPlatforms(std::vector<HTEQPlatform*>& out) const;
    size_t getNumPlatforms() const;
    HSTFwdIter<HTEQPlatform*>* createPlatformIter() const;
    void getParsingErrorMsgs(std::vector<std::string>& out) const;
    void clearParsingErrorMsgs();
    TEQProjectType getProjectTypeAsEnumVal() const;
    void setProjectType(TEQProjectType type);
    std::string getProjectTypeAsStr() const;
    void setBoardRepoPaths(const std::vector<std::string>& paths);
    void getBoardRepoPaths(std::vector<std::string>& out) const;
    void getDefaultTeqPlatformDirs(std::vector<std::string>& out) const;
};

%rename(TEQPlatformUtils) HTEQPlatformUtils;
ZR_LIST(HTEQPlatformUtils, StringVector, std::string)
ZR_LIST(HTEQPlatformUtils, TEQPlatformVec, HTEQPlatform*)
class HTEQPlatformUtils {
public:
    static bool isDUVPlatform(const std::string& name);
    static bool isWELPlatform(const std::string& name);
    static bool isUnifiedPlatform(const std::string& name);
    static bool isExpandablePlatform(const std::string& name);
    static bool isFixedPlatform(const std::string& name);
    static bool isProcessorGroupRelevant(const std::string& name);
    static bool isLinuxRootFSPathRelevant(const std::string& name);
    static bool isUserPlatform(const std::string& name);
    static HTEQDevice* getDevice(const std::string& name);
    static std::string getFpgaPart(const std::string& name);
    static std::vector<std::string> getFpgaPartAsFields(const std::string& name);
    static HTEQPlatform* getPlatform(const std::string& name);
    static HTEQPlatform* getPlatformByZdfFileBaseName(const std::string& name);
    static HTEQPlatform* getPlatformByUniqueName(const std::string& name);
    static void getPlatformsByUniqueName(const std::string& name, std::vector<HTEQPlatform*>& out);
    static HTEQPlatform* getPlatformByFilePath(const std::string& path);
    static void getPlatformsByVBNV(const std::string& vendor, const std::string& board, const std::string& name,
                                   const std::string& version, std::vector<HTEQPlatform*>& out);
    static void getLatestPlatformsByVBNV(const std::string& vendor, const std::string& board, const std::string& name,
                                         const std::string& version, std::vector<HTEQPlatform*>& out);
    static void getPlatformsByPart(const std::string& part, std::vector<HTEQPlatform*>& out);
    static void getPlatformsByCategoryFamilyVendorAndBoard(const std::string& category, const std::string& part,
                                                           const std::string& vendor, const std::string& board,
                                                           bool latestOnly, std::vector<HTEQPlatform*>& out);
    static void getPlatformsByDesignIntent(unsigned intent, const std::string& part, const std::string& vendor,
                                           const std::string& board, bool latestOnly, std::vector<HTEQPlatform*>& out);
    static void getBoardsByCategoryFamilyAndVendor(const std::string& category, const std::string& part,
                                                   const std::string& vendor, std::vector<std::string>& out);
    static void getBoardsByPartAndVendor(const std::string& part, const std::string& vendor,
                                         std::vector<std::string>& out);
    static void getSupportedFpgaParts(std::vector<std::string>& out);
    static void getRootInstallPlatformDirs(std::vector<std::string>& out);
    static bool isInstallPlatformDir(const std::string& dir);
    static void getAllFactoryPlatformDirs(std::vector<std::string>& out);
    static void getAllUserPlatformDirs(std::vector<std::string>& out);
    static void getUnifiedPlatformDirs(std::vector<std::string>& out);
    static std::string setUserPlatformDirs(const std::vector<std::string>& dirs);
    static std::vector<std::string> splitToFullDirs(const std::string& path);
    static std::string getPrettyNameForProductType(const std::string& type);
    static std::string getPrettyNameForLibType(const std::string& type);
    static void getAllLibraryTypes(std::vector<std::string>& out);
    static void getRuntimes(const std::string& name, const std::string& systemConfig, std::vector<std::string>& out);
    static void getRuntimesByPrettyName(const std::string& name, const std::string& systemConfig,
                                        std::vector<std::string>& out);
    static size_t getNumRuntimes(const std::string& name, const std::string& systemConfig);
    static bool supportsMultipleRuntimes(const std::string& name);
    static bool isLatestVersion(const HTEQPlatform* object);
    static bool isLatestVersion(const HTEQPlatform* object, std::vector<HTEQPlatform*>& list);
    static void filterOutOldPlatforms(std::vector<HTEQPlatform*>& list);
};

%rename(TEQPlatformEngineHelper) HTEQPlatformHelper;
ZR_LIST(HTEQPlatformHelper, StringVector, std::string)
class HTEQPlatformHelper {
public:
    explicit HTEQPlatformHelper(HTEQPlatform* object);
    HTEQPlatformHelper(const std::string& name, const std::vector<std::string>& repoPaths,
                       const std::vector<std::string>& boardRepoPaths);
    ZR_DESTRUCTOR(HTEQPlatformHelper)
    ~HTEQPlatformHelper();
    HTEQPlatform* getPlatform() const;
    bool isValid() const;
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
    void getTargetCategories(std::vector<std::string>& out) const;
    bool isUnifiedPlatform() const;
    bool isUnified() const;
    bool isExpandablePlatform() const;
    bool isFixedPlatform() const;
    bool isPartialPlatform() const;
    bool hasSimContent() const;
    bool isProcessorGroupRelevant() const;
    bool isLinuxRootFSPathRelevant() const;
    bool hasBootImg() const;
    std::string getDefaultSystemConfig() const;
    std::string getSystemConfigByName(const std::string& config) const;
    void getSysConfigNames(std::vector<std::string>& out) const;
    bool isSystemConfigSupported(const std::string& config) const;
    bool isRuntimeSupported(const std::string& runtime) const;
    bool isQemuSupported(const std::string& config) const;
    void getIncludePaths(const std::string& config, std::vector<std::string>& out) const;
    void getLibraryPaths(const std::string& config, std::vector<std::string>& out) const;
    void getRuntimes(const std::string& config, std::vector<std::string>& out) const;
    void getRuntimesByPrettyName(const std::string& config, std::vector<std::string>& out) const;
    size_t getNumRuntimes(const std::string& config) const;
    bool supportsMultipleRuntimes() const;
    std::string getFpgaPart() const;
    std::vector<std::string> getFpgaPartAsFields() const;
    std::string getFpgaDevice() const;
    int getBRAMCount() const;
    int getDSPCount() const;
    int getFFCount() const;
    int getLUTCount() const;
    unsigned getNumDDRs() const;
    unsigned getNumComputeUnits() const;
    void getAllResources(std::vector<std::string>& out) const;
    std::string getMemType() const;
    std::string getMemSize() const;
    bool isMemoryResourceIndexed() const;
    unsigned getUniqueMemoryTypeCount() const;
    unsigned getUniqueMemoryTypeStrings(std::vector<std::string>& out) const;
    unsigned getMemoryTypeCount(const std::string& type) const;
    unsigned getMemoryIndex(const std::string& type, unsigned n) const;
    std::string getMemorySize(const std::string& type, unsigned n) const;
    std::string getMemorySLR(const std::string& type, unsigned n) const;
    void getValidSLRNames(std::vector<std::string>& out) const;
    std::string getDefaultClockFrequency() const;
    std::string getDefaultClockId() const;
    std::string getClockFrequency(const std::string& name) const;
    std::string getClockId(const std::string& name) const;
    std::string getPlatformFrequency(int index) const;
    void getAllClockFrequencies(std::vector<std::string>& out) const;
    void getCpuClockNames(std::vector<std::string>& out) const;
    void getSystemClockNames(std::vector<std::string>& out) const;
    std::string getHostArch() const;
    std::string getInterfaceDesc() const;
    std::string getBoardId() const;
    std::string getPlatformBoardRepo() const;
    void getBoardImgZipEntries(std::vector<std::string>& out) const;
    std::string getBoardConnectionsString() const;
    std::string getLockedBoardConnectionsString() const;
    std::string getUnlockedBoardConnectionsString() const;
    bool hasDimmConnectors() const;
    void getDimmConnectors(std::vector<std::string>& out) const;
    void getConnectedDimmConnectors(std::vector<std::string>& out) const;
    void getLockedDimmConnectors(std::vector<std::string>& out) const;
    std::string getConnectorDisplayName(const std::string& name) const;
    void getCompatibleConnectors(const std::string& name, std::vector<std::string>& out);
    void getBoardRepoPaths(std::vector<std::string>& out) const;
    void setBoardRepoPaths(const std::vector<std::string>& paths);
    void clearBoardRepoPaths();
};
