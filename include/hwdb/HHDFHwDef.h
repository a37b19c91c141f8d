#pragma once
#include <string>

#include "text/ZrApi.h"

/// A hardware definition file.
class ZR_API HHDFHwDef {
public:
    HHDFHwDef(std::string file, std::string topModule) : file_(std::move(file)), topModule_(std::move(topModule)) {}

    /// The file it was read from.
    const std::string& getFile() const { return file_; }
    /// The attribute "top" of the root element of the member "sysdef.xml", or else of "hwdef.xml".
    const std::string& getHierTopModuleName() const { return topModule_; }
    /// Puts the file into a directory under its own name, by a link if that is possible, since definitions are large.
    /// False if it cannot be copied, or the name exists.
    bool write(const std::string& directory) const;

private:
    std::string file_, topModule_;
};
