#pragma once
#include <string>

#include "platform/JSONSerializable.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HTEQBootImg;
class HTEQProcessorGroup;

/// One way to set up the software of a platform: the element `configuration` of the software platform file. It owns
/// its processor groups and boot images; pointers to them are valid as long as it exists. Operations that fill a
/// vector append to it.
class ZR_API HTEQSystemConfig : public teq_platform::JSONSerializable {
public:
    HTEQSystemConfig();
    HTEQSystemConfig(const HTEQSystemConfig&) = delete;
    HTEQSystemConfig& operator=(const HTEQSystemConfig&) = delete;

    // The order of the virtual functions is part of the ABI: a new one goes after the last.

    void toJSON(teq_platform::JSONObjectWriter& writer) const override;
    ~HTEQSystemConfig() override;
    virtual const std::string& getName() const;
    virtual const std::string& getDesc() const;
    /// The name shown to users, `displayName` in the file.
    virtual const std::string& getPrettyName() const;
    /// The name in the file, even if no group has it; without one the name of the first group, else empty.
    virtual std::string getDefaultProcGrpName() const;
    /// Path of prebuilt data.
    virtual const std::string& getPrebuiltData() const;
    /// In file order.
    virtual void getProcessorGroups(HSTVector<HTEQProcessorGroup*>& out) const;
    /// Only those that were added by name.
    virtual void getProcessorGroups(HSTVector<std::string>& out) const;
    /// In file order, with duplicates, and with an empty one where nothing is between two commas.
    virtual void getRuntimes(HSTVector<std::string>& out) const;
    /// The same with "OpenCL" for "ocl" and "C/C++" for "cpp", in any letter case.
    virtual void getRuntimesByPrettyName(HSTVector<std::string>& out) const;
    /// The last one with exactly that name, or null.
    virtual HTEQProcessorGroup* getProcGrpByName(const std::string& name) const;
    /// The name in the file, even if no image has it; without one the name of the first image, else empty.
    virtual std::string getDefaultBootImgName() const;
    virtual void getBootImgs(HSTVector<HTEQBootImg*>& out) const;
    /// The last one with exactly that name, or null.
    virtual HTEQBootImg* getBootImgByName(const std::string& name) const;
    virtual void setName(const std::string& name);
    virtual void setDesc(const std::string& desc);
    virtual void setPrettyName(const std::string& prettyName);
    virtual void setDefaultProcGrpName(const std::string& name);
    virtual void setDefaultBootImgName(const std::string& name);
    /// A new image, owned by this configuration.
    virtual HTEQBootImg* addBootImg();
    virtual void addProcessorGroup(const std::string& name);
    /// A new group, owned by this configuration.
    virtual HTEQProcessorGroup* addProcessorGroup();
    virtual void setSupportsQemu(bool supports);
    virtual void addRuntime(const std::string& runtime);

    /// Whether any boot image has settings for the emulator.
    bool isQemuSupported() const { return supportsQemu_; }
    void setPrebuiltData(const std::string& path) { prebuiltData_ = path; }

private:
    std::string name_, prettyName_, desc_, defaultProcGrpName_, defaultBootImgName_, prebuiltData_;
    HSTVector<std::string> processorGroupNames_, runtimes_;
    Owned<HTEQProcessorGroup> processorGroups_;
    Owned<HTEQBootImg> bootImgs_;
    bool supportsQemu_ = false;
};
