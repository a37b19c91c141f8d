#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// One entry of the metadata's list of files: a member of the archive and what it is for.
class ZR_API HPLFile : public teq_platform::JSONSerializable {
public:
    HPLFile() = default;
    HPLFile(std::string type, std::string name) : name_(std::move(name)), type_(std::move(type)) {}
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    /// Member name in the archive, as in the metadata: untrusted, not to be used as a path.
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    /// A name of HTEQPfmFileTypes, or any other text.
    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }
    const std::string& getUsedIn() const { return usedIn_; }
    void setUsedIn(std::string value) { usedIn_ = std::move(value); }
    const std::string& getProcessingOrder() const { return processingOrder_; }
    void setProcessingOrder(std::string value) { processingOrder_ = std::move(value); }

private:
    std::string name_, type_, usedIn_, processingOrder_;
};
