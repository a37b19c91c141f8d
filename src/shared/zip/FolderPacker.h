#pragma once
#include <functional>
#include <string>
#include <string_view>

/// Makes an archive of a folder: the same bytes each time and on each machine. Members are sorted by their bytes;
/// empty folders become directory members. It carries a digest (see Digest.h). A folder whose name ends in ".lfa",
/// ".cfa", ".zip" or ".tilprj" becomes a member of that name that is an archive of its own, two deep at most. Throws
/// `HEXUserException`: an empty folder, a link, a device or a name in it that could not be extracted again, or a
/// fault of the disk. The archive appears whole or not at all, and without `mayReplace` only where nothing stands.
/// `accept`, if any, is called with the path of the finished archive before it takes its place, which it prevents by
/// throwing.
void packFolder(const std::string& folder, const std::string& archive, bool mayReplace = true,
                const std::function<void(const std::string&)>& accept = {});

/// Whether a folder of this name inside of a packed one becomes an archive.
bool becomesArchive(std::string_view folder);
