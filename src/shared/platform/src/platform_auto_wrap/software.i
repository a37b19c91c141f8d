// The software of a platform: system configurations, processor groups, boot images.

%rename(TEQProcessorGroup) HTEQProcessorGroup;
class HTEQProcessorGroup : public teq_platform::JSONSerializable {
public:
    HTEQProcessorGroup();
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    const std::string& getName() const;
    const std::string& getPrettyName() const;
    const std::string& getCpuType() const;
    const std::string& getArch() const;
    const std::string& getCpuInstance() const;
    const std::string& getOSName() const;
    bool IsHypervisorGuest() const;
    const std::string& getOSPrettyName() const;
    const std::string& getIncludePaths() const;
    const std::string& getLibraryPaths() const;
    const std::string& getBSPIncludePaths() const;
    const std::string& getBSPLibraryPaths() const;
    const std::string& getCompilerOptions() const;
    const std::string& getLinkerOptions() const;
    const std::string& getSysRoot() const;
    void setName(const std::string& value);
    void setPrettyName(const std::string& value);
    void setCpuType(const std::string& value);
    void setArch(const std::string& value);
    void setCpuInstance(const std::string& value);
    void setOSName(const std::string& value);
    void setOSPrettyName(const std::string& value);
    void setIncludePaths(const std::string& value);
    void setLibraryPaths(const std::string& value);
    void setBSPIncludePaths(const std::string& value);
    void setBSPLibraryPaths(const std::string& value);
    void setCompilerOptions(const std::string& value);
    void setLinkerOptions(const std::string& value);
    void setSysRoot(const std::string& value);
    void setHypervisorGuest(bool value);
};

%rename(TEQBootImg) HTEQBootImg;
class HTEQBootImg : public teq_platform::JSONSerializable {
public:
    HTEQBootImg();
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    const std::string& getName() const;
    const std::string& getType() const;
    const std::string& getBif() const;
    const std::string& getImgData() const;
    const std::string& getBootMode() const;
    const std::string& getRootFS() const;
    const std::string& getMountPath() const;
    const std::string& getReadMe() const;
    const std::string& getQemuArguments() const;
    const std::string& getQemuBoot() const;
    const std::string& getQemuDevTree() const;
    const std::string& getHwBootBin() const;
    void setName(const std::string& value);
    void setType(const std::string& value);
    void setBif(const std::string& value);
    void setImgData(const std::string& value);
    void setBootMode(const std::string& value);
    void setRootFS(const std::string& value);
    void setMountPath(const std::string& value);
    void setReadMe(const std::string& value);
    void setQemuArguments(const std::string& value);
    void setQemuBoot(const std::string& value);
    void setQemuDevTree(const std::string& value);
    void setHwBootBin(const std::string& value);
};

%rename(TEQSystemConfig) HTEQSystemConfig;
ZR_LIST(HTEQSystemConfig, StringVector, std::string)
ZR_LIST(HTEQSystemConfig, TEQProcessorGroupVec, HTEQProcessorGroup*)
ZR_LIST(HTEQSystemConfig, TEQBootImgVec, HTEQBootImg*)
class HTEQSystemConfig : public teq_platform::JSONSerializable {
public:
    HTEQSystemConfig();
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    const std::string& getName() const;
    const std::string& getDesc() const;
    const std::string& getPrettyName() const;
    std::string getDefaultProcGrpName() const;
    const std::string& getPrebuiltData() const;
    void getProcessorGroups(std::vector<HTEQProcessorGroup*>& out) const;
    void getProcessorGroups(std::vector<std::string>& out) const;
    void getRuntimes(std::vector<std::string>& out) const;
    void getRuntimesByPrettyName(std::vector<std::string>& out) const;
    HTEQProcessorGroup* getProcGrpByName(const std::string& name) const;
    std::string getDefaultBootImgName() const;
    void getBootImgs(std::vector<HTEQBootImg*>& out) const;
    HTEQBootImg* getBootImgByName(const std::string& name) const;
    void setName(const std::string& name);
    void setDesc(const std::string& desc);
    void setPrettyName(const std::string& prettyName);
    void setDefaultProcGrpName(const std::string& name);
    void setDefaultBootImgName(const std::string& name);
    HTEQBootImg* addBootImg();
    void addProcessorGroup(const std::string& name);
    HTEQProcessorGroup* addProcessorGroup();
    void setSupportsQemu(bool supports);
    void addRuntime(const std::string& runtime);
    bool isQemuSupported() const;
    void setPrebuiltData(const std::string& path);
};

%rename(TEQSoftwarePlatform) HTEQSoftwarePlatform;
ZR_LIST(HTEQSoftwarePlatform, StringVector, std::string)
ZR_LIST(HTEQSoftwarePlatform, TEQSystemConfigVec, HTEQSystemConfig*)
class HTEQSoftwarePlatform : public teq_platform::JSONSerializable {
public:
    HTEQSoftwarePlatform();
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    HTEQSystemConfig* addSystemConfig();
    HTEQSystemConfig* getSystemConfig() const;
    void getSystemConfigs(std::vector<HTEQSystemConfig*>& out) const;
    HTEQSystemConfig* getSystemConfigByName(const std::string& name) const;
    HTEQSystemConfig* getSystemConfigByPrettyName(const std::string& name) const;
    HTEQSystemConfig* getDefaultSystemConfig() const;
    std::string getDefaultConfigName() const;
    void setDefaultConfigName(const std::string& name);
    const std::string& getLinuxRootFileSystemPath() const;
    void setLinuxRootFileSystemPath(const std::string& path);
    bool isRuntimeSupported(const std::string& name) const;
    void getSupportedRuntimes(std::vector<std::string>& out) const;
    void getSupportedRuntimesByPrettyName(std::vector<std::string>& out) const;
    size_t getNumRuntimes() const;
    bool isSystemConfigSupported(const std::string& name) const;
    size_t getSystemConfigNames(std::vector<std::string>& out, const std::string& libraryType) const;
};

%rename(TEQSoftwarePlatformUtils) HTEQSoftwarePlatformUtils;
class HTEQSoftwarePlatformUtils {
public:
    static HTEQSystemConfig* getSystemConfigurationByUniqueName(const std::string& uniqueName,
                                                                const std::string& config);
    static std::string getIncludePaths(const std::string& uniqueName, const std::string& config,
                                       const std::string& group, const std::string& os);
    static std::string getLibraryPaths(const std::string& uniqueName, const std::string& config,
                                       const std::string& group, const std::string& os);
    static HTEQSystemConfig* getSystemConfigByPrettyName(HTEQSoftwarePlatform* object, const std::string& prettyName);
    static bool isQemuSupported(HTEQSoftwarePlatform* object, const std::string& prettyName);
};
