#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// A processor with the operating system on it and the settings to build for both: the element `processorGroup` of
/// the software platform file. Paths and options are the texts of the file, unsplit, or empty if missing
/// there.
class ZR_API HTEQProcessorGroup : public teq_platform::JSONSerializable {
public:
    /// The architecture is not part of the document.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.

    virtual const std::string& getName() const { return name_; }
    virtual const std::string& getPrettyName() const { return prettyName_; }
    virtual const std::string& getCpuType() const { return cpuType_; }
    virtual const std::string& getArch() const { return arch_; }
    virtual const std::string& getCpuInstance() const { return cpuInstance_; }
    virtual const std::string& getOSName() const { return osName_; }
    virtual bool IsHypervisorGuest() const { return hypervisorGuest_; }
    virtual const std::string& getOSPrettyName() const { return osPrettyName_; }
    virtual const std::string& getIncludePaths() const { return includePaths_; }
    virtual const std::string& getLibraryPaths() const { return libraryPaths_; }
    virtual const std::string& getBSPIncludePaths() const { return bspIncludePaths_; }
    virtual const std::string& getBSPLibraryPaths() const { return bspLibraryPaths_; }
    virtual const std::string& getCompilerOptions() const { return compilerOptions_; }
    virtual const std::string& getLinkerOptions() const { return linkerOptions_; }
    virtual const std::string& getSysRoot() const { return sysRoot_; }

    virtual void setName(const std::string& value) { name_ = value; }
    virtual void setPrettyName(const std::string& value) { prettyName_ = value; }
    virtual void setCpuType(const std::string& value) { cpuType_ = value; }
    virtual void setArch(const std::string& value) { arch_ = value; }
    virtual void setCpuInstance(const std::string& value) { cpuInstance_ = value; }
    virtual void setOSName(const std::string& value) { osName_ = value; }
    virtual void setOSPrettyName(const std::string& value) { osPrettyName_ = value; }
    virtual void setIncludePaths(const std::string& value) { includePaths_ = value; }
    virtual void setLibraryPaths(const std::string& value) { libraryPaths_ = value; }
    virtual void setBSPIncludePaths(const std::string& value) { bspIncludePaths_ = value; }
    virtual void setBSPLibraryPaths(const std::string& value) { bspLibraryPaths_ = value; }
    virtual void setCompilerOptions(const std::string& value) { compilerOptions_ = value; }
    virtual void setLinkerOptions(const std::string& value) { linkerOptions_ = value; }
    virtual void setSysRoot(const std::string& value) { sysRoot_ = value; }
    virtual void setHypervisorGuest(bool value) { hypervisorGuest_ = value; }

private:
    std::string name_, prettyName_, cpuType_, arch_, cpuInstance_, osName_, osPrettyName_, includePaths_,
        libraryPaths_, bspIncludePaths_, bspLibraryPaths_, compilerOptions_, linkerOptions_, sysRoot_;
    bool hypervisorGuest_ = false;
};
