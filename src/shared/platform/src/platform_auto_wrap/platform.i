// The platform and its reconfigurable partitions. What `add...` takes belongs to the platform afterwards.

%typemap(javain) HTEQReconfigurablePartition* partition, HTEQSoftwarePlatform* OWNED
    "$javaclassname.swigRelease($javainput)"

class HTEQReconfigurablePartition : public teq_platform::JSONSerializable {
public:
    explicit HTEQReconfigurablePartition(unsigned id);
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    unsigned getID() const;
    HTEQHardwarePlatform* getHardwarePlatform() const;
    void setHardwarePlatform(HTEQHardwarePlatform* object);
    HTEQHardwarePlatform* getHardwareEmulationPlatform() const;
    void setHardwareEmulationPlatform(HTEQHardwarePlatform* object);
    const std::string& getHardwarePlatformFile() const;
    void setHardwarePlatformFile(const std::string& file);
    const std::string& getHardwareEmulationPlatformFile() const;
    void setHardwareEmuPlatformFile(const std::string& file);
    bool hasHardwareEmulationPlatform() const;
    bool hasDistinctHardwareEmulationPlatform() const;
};

%rename(TEQPlatform) HTEQPlatform;
ZR_LIST(HTEQPlatform, StringVector, std::string)
ZR_LIST(HTEQPlatform, TEQReconfigurablePartitionVector, HTEQReconfigurablePartition*)
ZR_LIST(HTEQPlatform, TEQSoftwarePlatformVector, HTEQSoftwarePlatform*)
class HTEQPlatform {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const;
    const std::string& getVendor() const;
    const std::string& getLibrary() const;
    const std::string& getName() const;
    const std::string& getVersion() const;
    const std::string& getDescription() const;
    void setVendor(const std::string& vendor);
    void setLibrary(const std::string& library);
    void setName(const std::string& name);
    void setVersion(const std::string& version);
    void setDescription(const std::string& description);
    const std::string& getPlatformFile() const;
    const std::string& getHardwarePlatformFile() const;
    const std::string& getHardwareEmuPlatformFile() const;
    const std::string& getSoftwarePlatformFile() const;
    void setPlatformFile(const std::string& file);
    void setHardwarePlatformFile(const std::string& file);
    void setHardwareEmuPlatformFile(const std::string& file);
    void setSoftwarePlatformFile(const std::string& file);
    const std::string& getUniqueName() const;
    std::string getPlatformDir() const;
    std::string getPlatformBaseName() const;
    std::string getDeviceName() const;
    bool isZdf() const;
    bool isPartial() const;
    bool isComplete() const;
    bool isBad() const;
    const std::string& getBadReason() const;
    void setZdf(bool zdf);
    void setPartial(bool partial);
    void setBad(bool bad);
    void setBadReason(const std::string& reason);
    void setHardwarePlatform(HTEQHardwarePlatform* object);
    void setHardwareEmulationPlatform(HTEQHardwarePlatform* object);
    void setDefaultRPHardwarePlatform(HTEQHardwarePlatform* object);
    void setDefaultRPHardwareEmulationPlatform(HTEQHardwarePlatform* object);
    void setDefaultRPId(unsigned int id);
    unsigned int getDefaultRPId() const;
    HTEQHardwarePlatform* getHardwarePlatform() const;
    HTEQHardwarePlatform* getHardwareEmulationPlatform() const;
    bool hasHWEmulationPlatform() const;
    bool hasDistinctHardwareEmulationPlatform() const;
    void addReconfigurablePartition(HTEQReconfigurablePartition* partition);
    %extend {
        void getReconfigurablePartitions(std::vector<HTEQReconfigurablePartition*>& out) const {
            const auto& all = self->getReconfigurablePartitions();
            out.insert(out.end(), all.begin(), all.end());
        }
    }
    bool hasReconfigurablePartitions() const;
    bool hasRPHardwareEmulationPlatform() const;
    HTEQReconfigurablePartition* getReconfigurablePartition(unsigned int id) const;
    HTEQHardwarePlatform* getRPHardwarePlatform(unsigned int id) const;
    HTEQHardwarePlatform* getRPHardwareEmulationPlatform(unsigned int id) const;
    HTEQHardwarePlatform* getDefaultRPHardwarePlatform() const;
    HTEQHardwarePlatform* getDefaultRPHardwareEmulationPlatform() const;
    void addSoftwarePlatform(HTEQSoftwarePlatform* OWNED);
    %extend {
        void getSoftwarePlatforms(std::vector<HTEQSoftwarePlatform*>& out) const {
            const auto& all = self->getSoftwarePlatforms();
            out.insert(out.end(), all.begin(), all.end());
        }
    }
    HTEQSoftwarePlatform* getSoftwarePlatform() const;
    bool supportsHardware() const;
    bool supportsSWEmulation() const;
    bool supportsHWEmulation() const;
    bool hasSimContent() const;
    bool isExpandable() const;
    bool isFixed() const;
    bool isUnified() const;
    bool getDesignIntentDataCenter() const;
    bool getDesignIntentEmbedded() const;
    bool getDesignIntentExternalHost() const;
    bool getDesignIntentServerManaged() const;
    bool supportsTwoHwEmuBd() const;
    bool hasDimmConnectors() const;
    void getDimmConnectors(std::vector<std::string>& out) const;
    bool isHWEmuPlatform() const;
    void getTargetCategories(std::vector<std::string>& out) const;
    bool isHidden() const;
    std::string getTypeString() const;
    std::string getTypePrettyString() const;
};
