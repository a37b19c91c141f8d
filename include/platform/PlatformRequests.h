#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileKind.h"
#include "platform/HTEQPlatform.h"
#include "platform/HwMetadataMode.h"
#include "platform/PlatformExplanation.h"
#include "platform/RequestFailure.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HPLPlatform;
class SharedBudget;
namespace zip {
class Request;
}

/// The operations of the C interface and the tool, as functions of plain values: the two only convert arguments and
/// results. Failures are exceptions, which `currentFailure` turns into a kind and a diagnostic.
namespace teq_platform::requests {

/// One request: during its lifetime, its thread opens each archive once, and all decompressed bytes count against one
/// budget. Create it on the stack.
class ZR_API Scope {
public:
    /// `budget`: in bytes; 0 for the library's limit.
    explicit Scope(std::uint64_t budget = 0);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    std::unique_ptr<zip::Request> request_;
};

/// Several requests, one for each of many files: during its lifetime, those of its thread together may cost as much as one,
/// and more for each byte of the files that they open. Create it on the stack.
class ZR_API SharedScope {
public:
    SharedScope();
    ~SharedScope();
    SharedScope(const SharedScope&) = delete;
    SharedScope& operator=(const SharedScope&) = delete;

private:
    std::unique_ptr<SharedBudget> budget_;
};

/// A path that belongs to `file`, such as one of `fields`, as a user who named `file` would write it.
ZR_API std::string shownPath(const std::string& path, const std::string& file);

/// The platform of a file, see `PlatformLoader::open`. A missing file is `noSuchFile`. A failure has the location that
/// `PlatformCheck` finds, and the path as `shownPath` writes it.
ZR_API std::shared_ptr<HTEQPlatform> load(const std::string& file, HwMetadataMode mode);

enum class Form {
    full,   ///< the whole document
    brief,  ///< only unique name, file and description
    xml,    ///< the hardware metadata in the form of older archives
};
/// A document of the platform, which was loaded from `file`.
ZR_API std::string document(const HTEQPlatform& platform, const std::string& file, Form form);

/// What identifies a platform; values as in `zr_field`.
enum class Field {
    name,
    vendor,
    library,
    version,
    description,
    type,
    file,
    hardwareFile,
    emulationFile,
    softwareFile,
    count_
};
using Fields = std::array<std::string, static_cast<std::size_t>(Field::count_)>;
/// For a descriptor, its own values; for an archive alone, those of its hardware platform.
ZR_API Fields fields(const HTEQPlatform& platform);

/// Throws if `destination` exists and may not be replaced, or if its directory does not exist.
ZR_API void checkDestination(const std::string& destination, bool mayReplace);
/// Writes a file completely or not at all. To a device or a pipe, the bytes are written directly.
ZR_API void writeFile(const std::string& destination, std::string_view bytes, bool mayReplace);

struct Pack {
    std::string folder, archive;
    bool mayReplace = false;  ///< overwrite the archive
    /// The archive may have any extension, the folder no metadata, and listed files may be missing.
    bool mayLack = false;
    HSTVector<std::string> exclude = {};  ///< patterns of files to leave out, see `PlatformPacker::Options`
};
/// Returns warnings, which name the folder, a file in it, or the archive: files that probably do not belong into the
/// archive, those that readers would ignore because of an error, and what only `mayLack` accepts.
ZR_API std::vector<HEXDiagnostic> pack(const Pack& request);

struct SetFile {
    std::string archive, type, member, source;
    HwMetadataMode mode = HwMetadataMode::Default;
    bool mayLose = false;  ///< write although keys of the metadata are lost or changed
    bool mayTake = false;  ///< replace a member although the metadata lists it under another type
    bool stripPaths = false;
    bool dryRun = false;
};
struct SetFileResult {
    HSTVector<std::string> losses;   ///< a printable line for each key that is lost or changed
    HSTVector<std::string> changes;  ///< the same for what else changes: the member, and the list of files
    bool isRefused = false;          ///< because of the losses; nothing was written
};
/// Refuses a metadata member, and a type that is neither known nor listed already.
ZR_API SetFileResult setFile(const SetFile& request);

/// A file that the metadata of a hardware platform lists.
struct ListedFile {
    enum class State { file, folder, missing };

    std::string type;
    std::string member;  ///< its name in the archive
    State state = State::missing;
    std::uint64_t size = 0;  ///< of a file, in bytes
};
/// In the order of the metadata. Throws `HEXFileFault` if the archive cannot be read.
ZR_API HSTVector<ListedFile> listedFiles(const HPLPlatform& platform);

struct Extract {
    std::string archive;
    std::string name;  ///< of a member or a file type, or "OUTER!INNER" for a member of a nested archive
    std::string destination;
    HwMetadataMode mode = HwMetadataMode::Default;
    bool isType = false;      ///< `name` is a file type, even if a member has that name
    bool repairHpfm = false;  ///< mark all HBM banks of an hpfm as default if only some are
    bool mayReplace = false;
};
ZR_API void extract(const Extract& request);

/// What a finding or a message means. An unknown name is `unknownName`, and the text suggests the nearest ones.
ZR_API std::string explain(const std::string& name);
/// The same in parts.
ZR_API Explanation explanation(const std::string& name);
/// The W3C XML Schema of a format, or, of "emu-json", the JSON Schema. An unknown format is `unknownFormat`, and the text lists the formats.
ZR_API std::string schema(const std::string& format);

/// "; nearest: a, b, c" with the known names most similar to `name`; empty if there are none.
ZR_API std::string nearest(const std::string& name, const HSTVector<std::string>& known);

}  // namespace teq_platform::requests
