#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One boot image of a system configuration: the element `image` of the software platform file. Texts are as in
/// the file, or empty if missing there.
class ZR_API HTEQBootImg : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    const std::string& getType() const { return type_; }
    /// The boot image format file.
    const std::string& getBif() const { return bif_; }
    const std::string& getImgData() const { return imgData_; }
    const std::string& getBootMode() const { return bootMode_; }
    const std::string& getRootFS() const { return rootFS_; }
    const std::string& getMountPath() const { return mountPath_; }
    const std::string& getReadMe() const { return readMe_; }
    const std::string& getQemuArguments() const { return qemuArguments_; }
    const std::string& getQemuBoot() const { return qemuBoot_; }
    const std::string& getQemuDevTree() const { return qemuDevTree_; }
    const std::string& getHwBootBin() const { return hwBootBin_; }

    void setName(std::string value) { name_ = std::move(value); }
    void setType(std::string value) { type_ = std::move(value); }
    void setBif(std::string value) { bif_ = std::move(value); }
    void setImgData(std::string value) { imgData_ = std::move(value); }
    void setBootMode(std::string value) { bootMode_ = std::move(value); }
    void setRootFS(std::string value) { rootFS_ = std::move(value); }
    void setMountPath(std::string value) { mountPath_ = std::move(value); }
    void setReadMe(std::string value) { readMe_ = std::move(value); }
    void setQemuArguments(std::string value) { qemuArguments_ = std::move(value); }
    void setQemuBoot(std::string value) { qemuBoot_ = std::move(value); }
    void setQemuDevTree(std::string value) { qemuDevTree_ = std::move(value); }
    void setHwBootBin(std::string value) { hwBootBin_ = std::move(value); }

private:
    std::string name_, type_, bif_, imgData_, bootMode_, rootFS_, mountPath_, readMe_, qemuArguments_, qemuBoot_,
        qemuDevTree_, hwBootBin_;
};
