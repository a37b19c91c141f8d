// Reports, and questions on the document of a platform.

namespace teq { namespace platform {

class CatalogService {
public:
    ZR_DESTRUCTOR(CatalogService)
    ~CatalogService();
    std::string getAllAsJsonStr(const std::string& paths, bool detailed, bool unused) const;
    std::string getAsJsonStr(const std::string& file, bool detailed, bool unused) const;
    std::string getValue(const std::string& file, const std::string& key) const;
};

class NativeCatalogService : public CatalogService {
public:
    NativeCatalogService();
    ZR_DESTRUCTOR(NativeCatalogService)
    ~NativeCatalogService();
    std::string getAllAsJsonStr(const std::string& paths, bool detailed, bool unused) const;
    std::string getAsJsonStr(const std::string& file, bool detailed, bool unused) const;
    std::string getValue(const std::string& file, const std::string& key) const;
    std::string getCompilerVersion_() const;
};

class NativeObjectService {
public:
    NativeObjectService();
    explicit NativeObjectService(teq_platform::PlatformLoader::HwMetadataMode mode);
    ZR_DESTRUCTOR(NativeObjectService)
    ~NativeObjectService();
    std::string getAsJsonStr(const std::string& file) const;
    boost::property_tree::ptree getAsPropertyTree(const std::string& file) const;
    boost::property_tree::ptree getNodeByPath(const std::string& document, const std::string& path, bool& found) const;
    std::string getObjectsByPath(const std::string& document, const std::string& path, bool& found) const;
    std::string getHwPlatformRootPath(const std::string& document) const;
    std::string getHwPlatformRootPath(const boost::property_tree::ptree& tree) const;
    boost::property_tree::ptree getChild(const boost::property_tree::ptree& tree, const std::string& path) const;
    std::string getStringValue(const boost::property_tree::ptree& tree, const std::string& path) const;
    bool getBoolValue(const boost::property_tree::ptree& tree, const std::string& path) const;
    bool getBoolValue(const boost::property_tree::ptree& tree, const std::string& path, bool missing) const;
    std::string getObjectsByPath(const std::string& document, const std::string& path) const;
};

} }  // namespace teq::platform
