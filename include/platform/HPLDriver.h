#pragma once
#include <string>
#include <utility>

#include "text/ZrApi.h"

/// A host driver of a board. It has no form in the document; see `HPLBoard::toJSON`.
class ZR_API HPLDriver {
public:
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getVendor() const { return vendor_; }
    void setVendor(std::string value) { vendor_ = std::move(value); }
    const std::string& getVersion() const { return version_; }
    void setVersion(std::string value) { version_ = std::move(value); }
    const std::string& getPlatform() const { return platform_; }
    void setPlatform(std::string value) { platform_ = std::move(value); }
    const std::string& getFile() const { return file_; }
    void setFile(std::string value) { file_ = std::move(value); }

private:
    std::string name_, vendor_, version_, platform_ = "lin", file_;
};
