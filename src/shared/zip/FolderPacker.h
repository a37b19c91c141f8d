#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Makes an archive of a folder, reproducibly: the same bytes each time and on each machine. Members are sorted by
/// the bytes of their names; empty folders become directory members. It carries a digest (see Digest.h). A folder
/// whose name ends in ".lfa", ".cfa", ".zip" or ".tilprj" becomes a member of that name that is itself an archive, at
/// most two deep. Throws `HEXUserException` for an empty folder, a link, a device, a name in it that could not be
/// extracted again, and errors of the file system. No link in it is followed, even if it is
/// changed meanwhile. The archive appears complete or not at all, and without `mayReplace` replaces nothing; to a
/// device or a pipe, its bytes are written. `accept`, if any, is called with the path of the finished archive before it takes
/// its name; it can prevent that by throwing. `added`: further files, which become members without being in the folder,
/// as pairs of member and path. `isExcluded`, if any, says which files and folders are left out, by their paths in
/// `folder`.
void packFolder(const std::string& folder, const std::string& archive, bool mayReplace = true,
                const std::function<void(const std::string&)>& accept = {},
                const std::vector<std::pair<std::string, std::string>>& added = {},
                const std::function<bool(const std::string& member)>& isExcluded = {});

/// Whether a folder of this name inside a packed folder becomes an archive.
bool becomesArchive(std::string_view folder);
