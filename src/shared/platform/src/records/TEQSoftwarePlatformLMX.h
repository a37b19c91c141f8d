#pragma once
#include <optional>
#include <string>
#include <vector>

#include "xml/XmlRecord.h"

/// Records of a software platform file, a `.spfm` file. A record is named after its element, a member after its
/// attribute or child element.
namespace TEQSoftwarePlatform {

using xml::Attr;

struct Prebuilt {
    Attr<std::string> data;  ///< a directory
    bool operator==(const Prebuilt&) const = default;
};

struct Image {
    Attr<std::string> name;
    Attr<std::string> type;
    Attr<std::string> bif;
    Attr<std::string> imageData;
    Attr<std::string> bootmode;
    Attr<std::string> rootfs;
    Attr<std::string> mountPath;
    Attr<std::string> readme;
    Attr<std::string> qemuDevicetree;
    Attr<std::string> qemuBoot;
    Attr<std::string> qemuArguments;
    Attr<std::string> hwBootBin;
    bool operator==(const Image&) const = default;
};

struct BootImages {
    Attr<std::string> default_;  ///< name of an image
    Image image;
    bool operator==(const BootImages&) const = default;
};

struct Os {
    Attr<std::string> name;
    Attr<std::string> displayName;
    Attr<std::string> hypervisorGuest;  ///< "yes" in any case means true
    Attr<std::string> includePaths;
    Attr<std::string> libraryPaths;
    Attr<std::string> libraryNames;
    Attr<std::string> ldscript;
    Attr<std::string> sysRoot;
    Attr<std::string> bspConfig;
    Attr<std::string> bspLibraryPaths;
    Attr<std::string> bspIncludePaths;
    Attr<std::string> bspRepo;
    Attr<std::string> compilerOptions;
    Attr<std::string> linkerOptions;
    Attr<std::string> osDependency;
    Attr<std::string> crossCompilerType;
    Attr<std::string> toolConfig;
    bool operator==(const Os&) const = default;
};

struct ProcessorGroup {
    Attr<std::string> name;
    Attr<std::string> displayName;
    Attr<std::string> cpuType;
    Attr<std::string> architecture;
    Attr<std::string> cpuInstance;
    Os os;
    bool operator==(const ProcessorGroup&) const = default;
};

struct Configuration {
    Attr<std::string> name;
    Attr<std::string> displayName;
    Attr<std::string> defaultProcessorGroup;
    Attr<std::string> runtimes;  ///< separated by commas
    std::string description;
    std::optional<Prebuilt> prebuilt;
    std::optional<BootImages> bootImages;
    std::vector<ProcessorGroup> processorGroups;
    bool operator==(const Configuration&) const = default;
};

struct SystemConfigurations {
    Attr<std::string> defaultConfiguration;
    std::vector<Configuration> configurations;
    bool operator==(const SystemConfigurations&) const = default;
};

struct Platform {
    Attr<std::string> vendor;
    Attr<std::string> library;
    Attr<std::string> name;
    Attr<xml::Decimal> version;
    Attr<xml::Decimal> schemaVersion;
    std::string description;
    SystemConfigurations systemConfigurations;
    bool operator==(const Platform&) const = default;
};

/// The whole format, for `xml::read` and `xml::write`.
extern const xml::Document<Platform> kDocument;

}  // namespace TEQSoftwarePlatform
