#pragma once
#include <string>

#include "platform/HTEQEmulationFile.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

/// One named emulation target, which owns the list of the files that it needs.
class ZR_API HTEQEmulation {
public:
    HTEQEmulation() = default;
    explicit HTEQEmulation(const std::string& name) : name_(name) {}

    const std::string& getName() const { return name_; }
    void setName(const std::string& name) { name_ = name; }
    /// Appends a new file.
    HTEQEmulationFile* createFile() { return files_.add(); }
    HTEQEmulationFile* createFile(const std::string& type, const std::string& name) { return files_.add(type, name); }
    const HSTVector<HTEQEmulationFile*>& getFiles() const { return files_.items(); }

private:
    std::string name_;
    Owned<HTEQEmulationFile> files_;
};
