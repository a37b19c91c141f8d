#pragma once
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HTEQDevice;
class HTEQPlatform;

/// Questions about the active platforms of `HTEQPlatformMgr::getGlobal`, whose first call may scan the default
/// repositories. Names are those of `HTEQPlatformMgr::getPlatform`. The hardware of a platform is its own, else the
/// default partition's. Operations that fill a vector append to it unless they say otherwise. Nothing fails for an
/// unknown name: the answer is false, empty or null.
class ZR_API HTEQPlatformUtils {
public:
    using Platforms = HSTVector<HTEQPlatform*>;
    using Strings = HSTVector<std::string>;

    /// @name Of one platform, by name
    /// @{
    /// For a data center, server managed, or with an external host.
    static bool isDUVPlatform(const std::string& name);
    /// Embedded.
    static bool isWELPlatform(const std::string& name);
    static bool isUnifiedPlatform(const std::string& name);
    static bool isExpandablePlatform(const std::string& name);
    /// Also true of an unknown name.
    static bool isFixedPlatform(const std::string& name) { return !isExpandablePlatform(name); }
    static bool isProcessorGroupRelevant(const std::string& name) { return isWELPlatform(name); }
    static bool isLinuxRootFSPathRelevant(const std::string& name) { return isWELPlatform(name); }
    /// Whether its directory is not an install directory.
    static bool isUserPlatform(const std::string& name);
    /// The first device, or null.
    static HTEQDevice* getDevice(const std::string& name);
    static std::string getFpgaPart(const std::string& name);
    /// Architecture, device, package, speed, temperature grade, static power and revision of the first device; nothing
    /// without one.
    static Strings getFpgaPartAsFields(const std::string& name);
    /// @}

    /// @name Finding platforms
    /// @{
    static HTEQPlatform* getPlatform(const std::string& name);
    /// The first with exactly that base name, or null.
    static HTEQPlatform* getPlatformByZdfFileBaseName(const std::string& name);
    /// The first whose unique name is `name`, or whose base name or file is `name` ignoring case; or null.
    static HTEQPlatform* getPlatformByUniqueName(const std::string& name);
    static void getPlatformsByUniqueName(const std::string& name, Platforms& out);
    /// The first whose file has the same canonical name, or null. If the environment variable
    /// GET_PLATFORM_BY_PATH_DEBUG_VAR is set, the comparisons are printed on standard output.
    static HTEQPlatform* getPlatformByFilePath(const std::string& path);
    /// By the hardware's vendor, board, name and version; an empty text matches all.
    static void getPlatformsByVBNV(const std::string& vendor, const std::string& board, const std::string& name,
                                   const std::string& version, Platforms& out);
    /// The same, and then `out` keeps the latest versions only.
    static void getLatestPlatformsByVBNV(const std::string& vendor, const std::string& board, const std::string& name,
                                         const std::string& version, Platforms& out);
    /// By the architecture of the first device's part.
    static void getPlatformsByPart(const std::string& part, Platforms& out);
    /// Those of the part whose hardware has the vendor and the board (an empty text matches all). Category "fennick":
    /// for a data center, server managed or with an external host; "lorimar": embedded; any other: all. With
    /// `latestOnly`, `out` keeps the latest versions only.
    static void getPlatformsByCategoryFamilyVendorAndBoard(const std::string& category, const std::string& part,
                                                           const std::string& vendor, const std::string& board,
                                                           bool latestOnly, Platforms& out);
    /// The same with a set of design intents, all of which a platform must have: 1 server managed, 2 external host,
    /// 4 embedded, 8 data center.
    static void getPlatformsByDesignIntent(unsigned intent, const std::string& part, const std::string& vendor,
                                           const std::string& board, bool latestOnly, Platforms& out);
    /// The boards of the part's platforms whose own vendor (not the hardware's) is `vendor`, each once.
    static void getBoardsByCategoryFamilyAndVendor(const std::string& category, const std::string& part,
                                                   const std::string& vendor, Strings& out);
    static void getBoardsByPartAndVendor(const std::string& part, const std::string& vendor, Strings& out);
    /// The architecture of each platform's first device, each once.
    static void getSupportedFpgaParts(Strings& out);
    /// @}

    /// @name Directories
    /// @{
    /// `platforms` below each application root as a canonical name, then the system's directory.
    static void getRootInstallPlatformDirs(Strings& out);
    /// Whether `dir` begins, as a text, with one of them.
    static bool isInstallPlatformDir(const std::string& dir);
    /// Of the active platforms, each once: install directories; the others; install directories of unified ones.
    static void getAllFactoryPlatformDirs(Strings& out);
    static void getAllUserPlatformDirs(Strings& out);
    static void getUnifiedPlatformDirs(Strings& out);
    /// Replaces the platforms outside of install directories by those of `dirs`; gives the text for the user.
    static std::string setUserPlatformDirs(const Strings& dirs);
    /// Canonical names of the directories of a search path.
    static Strings splitToFullDirs(const std::string& path);
    /// @}

    /// @name Vocabulary
    /// @{
    /// "Fennick", "Lorimar", and "Teq" for any other type.
    static std::string getPrettyNameForProductType(const std::string& type);
    /// "C-Callable Library", "Shared Library" or "Static Library".
    static std::string getPrettyNameForLibType(const std::string& type);
    static void getAllLibraryTypes(Strings& out);
    /// The runtimes of the platform's system configuration, or of its software if it has no such configuration;
    /// where the result is empty, "ocl" for a platform of `isDUVPlatform`, else "cpp" for an embedded one.
    static void getRuntimes(const std::string& name, const std::string& systemConfig, Strings& out);
    /// The same by pretty names, "OpenCL" and "C/C++".
    static void getRuntimesByPrettyName(const std::string& name, const std::string& systemConfig, Strings& out);
    static std::size_t getNumRuntimes(const std::string& name, const std::string& systemConfig);
    /// Whether there is at least one.
    static bool supportsMultipleRuntimes(const std::string& name);
    /// Whether no platform of `list` (or of the active ones) has the same hardware vendor, board and name and a higher
    /// version; major and minor numbers are compared.
    static bool isLatestVersion(const HTEQPlatform* platform);
    static bool isLatestVersion(const HTEQPlatform* platform, const Platforms& list);
    /// Keeps the latest ones within `list`.
    static void filterOutOldPlatforms(Platforms& list);
    /// @}
};
