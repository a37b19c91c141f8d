#pragma once
#include <cstddef>
#include <string>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HTEQSystemConfig;

/// The software of a platform: the system configurations of a `.spfm` file, filled by
/// `HTEQSoftwarePlatformXMLReader`. It owns them; pointers are valid as long as it exists. Operations that fill a
/// vector append to it. Queries never fail: what is missing gives empty, false, 0 or null.
class ZR_API HTEQSoftwarePlatform : public teq_platform::JSONSerializable {
public:
    HTEQSoftwarePlatform();
    HTEQSoftwarePlatform(const HTEQSoftwarePlatform&) = delete;
    HTEQSoftwarePlatform& operator=(const HTEQSoftwarePlatform&) = delete;

    void toJSON(teq_platform::JSONObjectWriter& writer) const override;
    ~HTEQSoftwarePlatform() override;

    /// A new configuration, owned by this platform.
    HTEQSystemConfig* addSystemConfig();
    /// The first one, or null.
    HTEQSystemConfig* getSystemConfig() const;
    /// In file order.
    void getSystemConfigs(HSTVector<HTEQSystemConfig*>& out) const;
    /// The last configuration whose name or pretty name is exactly `name`, or null.
    HTEQSystemConfig* getSystemConfigByName(const std::string& name) const;
    /// The same; plain names are found too.
    HTEQSystemConfig* getSystemConfigByPrettyName(const std::string& name) const;
    /// The one with the default name, or the first one if no configuration has it; null if there are none.
    HTEQSystemConfig* getDefaultSystemConfig() const;
    /// The name in the file; without one that of the default configuration.
    std::string getDefaultConfigName() const;
    void setDefaultConfigName(const std::string& name) { defaultConfigName_ = name; }

    /// Not in any file; a host may set it.
    const std::string& getLinuxRootFileSystemPath() const { return linuxRootFileSystemPath_; }
    void setLinuxRootFileSystemPath(const std::string& path) { linuxRootFileSystemPath_ = path; }

    /// Whether the name is "ocl", "OpenCL", "cpp" or "C/C++", in any case.
    bool isRuntimeSupported(const std::string& name) const;
    /// The runtimes of all configurations, without those already in `out`.
    void getSupportedRuntimes(HSTVector<std::string>& out) const;
    void getSupportedRuntimesByPrettyName(HSTVector<std::string>& out) const;
    std::size_t getNumRuntimes() const;
    /// Whether there is such a configuration, and it has no runtimes or one that is supported.
    bool isSystemConfigSupported(const std::string& name) const;
    /// Appends the names of the configurations that can use a library of that type: "static" all; "shared" those with
    /// a processor group on linux; "c-callable" those with one on linux or standalone; any other type none. The case
    /// of types and operating systems is ignored. Returns the number of names in `out`, including earlier ones.
    std::size_t getSystemConfigNames(HSTVector<std::string>& out, const std::string& libraryType) const;

private:
    Owned<HTEQSystemConfig> systemConfigs_;
    std::string defaultConfigName_, linuxRootFileSystemPath_;
};
