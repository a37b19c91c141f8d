#pragma once
#include <string>

#include "text/ZrApi.h"

/// File system operations on path texts. Queries return false if the answer cannot be determined: a missing file, a
/// directory without permission, a name that is too long, a loop of links, a text that contains NUL. They never
/// throw.
class ZR_API HUTFile {
public:
    static bool exists(const std::string& path);
    /// A regular file; links are followed.
    static bool isFile(const std::string& path);
    /// A directory; links are followed.
    static bool isDir(const std::string& path);

    /// The part after the last dot of the file name, without the dot: "lfa" for "a.b/x.lfa". Empty without a dot, and
    /// for a name whose only dot is its first character.
    static std::string getExt(const std::string& path);
    /// The part before the last separator: "a/b" for "a/b/c", "." for a name without a separator, "/" for "/x",
    /// empty for an empty path.
    static std::string getParent(const std::string& path);
    /// The absolute path, with links resolved as far as the path exists and without "." and "..". A path that cannot
    /// be resolved (too long, a loop of links) is only made absolute. Empty for an empty path.
    static std::string getCanonicalName(const std::string& path);
    static std::string getDirSeparator() { return "/"; }

    /// Makes the directory and its missing parents; does nothing if it exists. Throws `HEXUserException`.
    static void mkDirRecursive(const std::string& path);
    /// Makes the directory if it is missing. Throws `HEXUserException` if files cannot be made in it.
    static void ensureWritableDirectory(const std::string& path);

    /// Removes one file, link or empty directory. True if the name does not exist afterwards.
    static bool rm(const std::string& path);
    /// The same, including the contents of a directory; links are removed, not followed.
    static bool rmRecursive(const std::string& path);
};
