#pragma once
#include <string>

#include "text/ZrApi.h"

/// The file system on path texts. Questions answer false for what cannot be asked: a missing file, a directory
/// without permission, a name that is too long, a loop of links, a text with a NUL in it. None of them throws.
class ZR_API HUTFile {
public:
    static bool exists(const std::string& path);
    /// A regular file, links followed.
    static bool isFile(const std::string& path);
    /// A directory, links followed.
    static bool isDir(const std::string& path);

    /// What follows the last dot of the file name, without the dot: "lfa" for "a.b/x.lfa". Empty without a dot, and
    /// for a name whose only dot is its first character.
    static std::string getExt(const std::string& path);
    /// What stands before the last separator: "a/b" for "a/b/c", "." for a name without a separator, "/" for "/x",
    /// and nothing for nothing.
    static std::string getParent(const std::string& path);
    /// The absolute path, with links resolved as far as the path exists and "." and ".." worked out. The text of a
    /// path that cannot be resolved (too long, a loop of links) is only made absolute. Nothing for nothing.
    static std::string getCanonicalName(const std::string& path);
    static std::string getDirSeparator() { return "/"; }

    /// Makes the directory and its missing parents; nothing happens when it is there. Throws `HEXUserException`.
    static void mkDirRecursive(const std::string& path);
    /// Makes the directory when it is missing, and throws `HEXUserException` unless files can be made in it.
    static void ensureWritableDirectory(const std::string& path);

    /// Removes one file, link or empty directory. True when nothing of that name is there afterwards.
    static bool rm(const std::string& path);
    /// The same with everything in a directory; links are removed, not followed.
    static bool rmRecursive(const std::string& path);
};
