#pragma once
#include <cstdint>
#include <string>

#include "platform/PlatformRequests.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// Requests that make files from others. Where a destination exists, it is an error unless `mayReplace` is true; it is
/// replaced when the new file is complete, and untouched if that fails. `dryRun`: check everything, write nothing.
namespace teq_platform::requests {

struct Labels {
    std::string file;
    std::string partitionMetadata = {}, extMetadata = {};  ///< files to write; empty for none
    std::string partition = "/";                           ///< whose endpoints are in the extended metadata
    bool mayReplace = false;
    bool dryRun = false;
};
/// Makes the documents of semantic labels, and returns the labels by kind as a JSON document. Throws for
/// labels that are not complete, with the location of the first fault.
ZR_API std::string labels(const Labels& request);

/// A file for an archive.
struct NamedFile {
    std::string type, member, source;
};
/// The file of a text "TYPE=MEMBER=FILE".
ZR_API NamedFile namedFile(const std::string& text);

struct FixedArchive {
    std::string archive;  ///< with the extension ".lfa"
    HSTVector<NamedFile> files = {};
    bool mayReplace = false;
    bool dryRun = false;
};
/// Makes an archive of a fixed platform: see `SimpleFixedLFACreator`.
ZR_API void createFixed(const FixedArchive& request);

struct FromDefinition {
    std::string definition;
    std::string archive;  ///< with the extension ".cfa" or ".lfa"
    bool mayReplace = false;
    bool dryRun = false;
};
/// Makes an archive from a hardware definition: see `HDFToCFAConverter`.
ZR_API void fromDefinition(const FromDefinition& request);

/// Whether a module of a reconfigurable design fits a static platform.
struct ModuleFit {
    std::string file;
    std::uint32_t nodeId = 0;
    bool fits = false;
    std::string reason;  ///< for people; empty if it fits
};
/// In the order of `modules`. Each partition takes one module.
ZR_API HSTVector<ModuleFit> moduleFits(const std::string& platform, const HSTVector<std::string>& modules);

struct EmulationForm {
    std::string file, destination;  ///< one with the extension ".xml", the other with ".json"
    bool mayReplace = false;
    bool dryRun = false;
};
/// Writes emulation metadata in its other form. Returns a printable line for each value that this form does not hold.
ZR_API HSTVector<std::string> convertEmulation(const EmulationForm& request);

/// A metadata archive: see `HRQAArchive`.
struct RqaArchive {
    std::string archive;
    HSTVector<NamedFile> files = {};
    std::string instPath = {}, drBdInstName = {}, pfmName = {}, hierName = {};  ///< not used for adding
    bool mayReplace = false;  ///< when adding: the files of types that the archive has
    bool dryRun = false;
};
ZR_API void createRqa(const RqaArchive& request);
ZR_API void addToRqa(const RqaArchive& request);

struct RqaContent {
    std::string instPath, drBdInstName, pfmName, hierName;
    HSTVector<ListedFile> files;      ///< sorted by type
    HSTVector<std::string> problems;  ///< of the index, in printable lines
};
ZR_API RqaContent rqaContent(const std::string& archive);
/// The index as a JSON document, as `HRQAArchive` writes it.
ZR_API std::string rqaIndex(const std::string& archive);
/// Extracts the file or directory of a type below `directory`, and returns its path. Files that exist are an error unless
/// `mayReplace` is true.
ZR_API std::string extractFromRqa(const std::string& archive, const std::string& type, const std::string& directory,
                                  bool mayReplace);

}  // namespace teq_platform::requests
