// Making archives.

class HDFToCFAConverter {
public:
    HDFToCFAConverter(const std::string& hdf, const std::string& outputDir, const std::string& outputName);
    ZR_DESTRUCTOR(HDFToCFAConverter)
    ~HDFToCFAConverter();
    const std::string& getHwPfmDir() const;
    const std::string& getHwPfmFileName() const;
    const std::string& getHwPfmFile() const;
    const std::string& getStagingDir() const;
    bool writeCFA();
    void createStagingDir();
    bool writeHDF() const;
    bool writeCfaXml();
    void writeCfaArchive() const;
};
