#pragma once
#include <string>

#include "text/ZrApi.h"

/// A file of an emulation target. The setters take null as the empty text.
class ZR_API HTEQEmulationFile {
public:
    HTEQEmulationFile() = default;
    HTEQEmulationFile(const std::string& type, const std::string& name) : type_(type), name_(name) {}

    /// For instance "EMU_HPFM".
    const std::string& getType() const { return type_; }
    /// Member name in the platform's archive.
    const std::string& getName() const { return name_; }
    /// Only in the JSON form of the metadata.
    const std::string& getInstPath() const { return instPath_; }
    void setType(const char* type) { type_ = type ? type : ""; }
    void setName(const char* name) { name_ = name ? name : ""; }
    void setInstPath(const char* path) { instPath_ = path ? path : ""; }

private:
    std::string type_, name_, instPath_;
};
