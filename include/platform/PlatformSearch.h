#pragma once
#include <functional>
#include <optional>
#include <string>

#include "platform/RequestFailure.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// Finding platforms in repositories by name and by what they are, as functions of plain values. Paths are given as
/// found: the canonical name of the repository, then the names below it. Failures are exceptions, see
/// `RequestFailure.h`; a platform that cannot be read is a result with its reason.
namespace teq_platform::requests {

/// Where platforms are looked for.
struct Repositories {
    HSTVector<std::string> dirs = {};  ///< searched first, in this order
    bool withDefaults = true;          ///< then the default repositories
};

/// The directories that are searched, in order: canonical names, each once, without those that do not exist.
ZR_API HSTVector<std::string> searchPath(const Repositories& where);

/// What a search found at one path.
struct FoundPlatform {
    enum class State {
        good,
        shadowed,  ///< an earlier platform has the same name (ignoring case)
        broken,    ///< it cannot be read; it shadows no other one
    };
    /// Known only if the search has loaded the hardware.
    struct Hardware {
        std::string type = {};                ///< "fennick", "lorimar", "acceleration" or "undefined"
        std::string part = {};                ///< composed name of the first device's part
        std::string architecture = {};        ///< first field of that part
        std::string board = {};               ///< board id, at most 4,000 bytes, then "..."
        std::string vbnv = {};                ///< "vendor:board:name:version", likewise
        HSTVector<std::string> intents = {};  ///< design intents, names as in `Find::intent`
    };

    std::string name;  ///< of the file, without ".zdf"
    std::string file, repository;
    State state = State::good;
    std::string shadowedBy = {};  ///< the file of the platform that has the name
    HEXDiagnostic reason = {};    ///< why it is broken
    /// From the descriptor.
    std::string vendor = {}, library = {}, descriptorName = {}, version = {}, description = {};
    std::optional<Hardware> hardware = {};
};

struct Find {
    Repositories where = {};
    std::string name = {};  ///< ignoring case; may have "*", "?" and "[...]"; empty for all
    /// Filters; an empty one accepts everything. With any of them, and with `latest`, the platforms are loaded.
    std::string type = {};   ///< ignoring case
    std::string part = {};   ///< architecture or name of the part, ignoring case
    std::string board = {};  ///< exactly
    std::string vbnv = {};   ///< "vendor:board:name:version", whose empty fields accept everything
    std::string intent =
        {};               ///< "server-managed", "external-host", "embedded", "data-center"; all of a list with ","
    bool latest = false;  ///< of each vendor, board and name only the highest version
    bool usable = false;  ///< only those that the support policy accepts for this tool
    /// Called before a repository is searched.
    std::function<void(const std::string& repository)> progress = {};
    /// Called for each good platform in its turn, as soon as it is known.
    std::function<void(const FoundPlatform&)> found = {};
};
struct FindResult {
    /// Those that pass the filters, repository by repository and sorted by path within each.
    HSTVector<FoundPlatform> platforms;
    /// In the same order, of those whose name fits: shadowed ones (also by a platform that no filter accepts), and
    /// ones that cannot be read.
    HSTVector<FoundPlatform> shadowed, broken;
    bool isNameKnown = false;  ///< some descriptor has the name, accepted by the filters or not
    /// Directories that could not be searched completely.
    HSTVector<HEXDiagnostic> problems;
};
/// Reads only descriptors unless there is a filter. Each platform that is loaded is a request of its own, unless the
/// caller is in one. Throws `wrongUse` for an unknown type or intent and for a vbnv
/// without three colons.
ZR_API FindResult find(const Find& request);

/// What a name resolves to.
struct Location {
    HSTVector<std::string> searched;  ///< as `searchPath`
    std::string file;                 ///< empty if no platform has the name
    HSTVector<FoundPlatform> others;  ///< with the same name: shadowed ones, and ones that cannot be read
};
/// The first good platform of that name (ignoring case), else the first one that cannot be read.
ZR_API Location locate(const std::string& name, const Repositories& where);

/// The file for an argument that is a file or the name of a platform. A text with a "/" or with an extension of the
/// library's files, and the name of an existing file, is returned unchanged. A name without a platform is
/// `unknownName`, with the directories searched and the nearest names.
ZR_API std::string resolve(const std::string& fileOrName, const Repositories& where);

/// The failure of a name that no platform has: `unknownName`, with the directories searched and the nearest names.
ZR_API RequestError noPlatform(const std::string& name, const Repositories& where);

/// Why a search does not find a file.
struct WhyNot {
    std::string rule;  ///< name of the rule that applies; "found" if none does
    std::string text;  ///< for people
    bool isFound = false;
};
/// The rules: "missing", "outside", "depth", "extension", "permission", "broken-link", "loop", "duplicate",
/// "not-valid".
ZR_API WhyNot whyNot(const std::string& path, const Repositories& where);

}  // namespace teq_platform::requests
