#pragma once
#include <optional>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// Settings of the host process. Each getter has a default, so that the library also works in a process that sets
/// nothing. Setters must be called before other threads use the library.
class ZR_API HUTEnv {
public:
    /// The environment variable; no value if it is not set.
    static std::optional<std::string> get(const std::string& name);

    /// Where the tools are installed, the most important first. Default: `<prefix>/share/zr_platform`, with the
    /// installation prefix of this library.
    static HSTVector<std::string> getKELAppRootList();
    static void setKELAppRootList(HSTVector<std::string> roots);
    /// The first application root; empty if the host has set an empty list.
    static std::string getJUNAppRoot();

    /// A directory for temporary files of the calling thread only, without a trailing separator. Default: below a
    /// private directory (0700) that the process makes in `TMPDIR`, or in /tmp, on the first call, and that is
    /// removed when the process ends. If something removes or replaces it earlier, the next call makes a new one. A
    /// forked child has its own directory and does not touch its parent's. Throws `HEXUserException` if the directory
    /// cannot be made.
    static std::string getJUNTmpDir();
    /// A directory that the host owns, for all threads; empty restores the default.
    static void setJUNTmpDir(std::string directory);

    /// The tool's version: 2026 and 2 of "2026.2.0". Default: the version of this library.
    static int getMajor();
    static int getMinor();
    static std::string getFullBuildStr();
    static void setVersion(int major, int minor, std::string fullBuild);

    /// The product's name as set by the host, else empty.
    static std::string getProductName();
    static void setProductName(std::string name);
};
