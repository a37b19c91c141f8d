#include "archive/TreeSource.h"

#include <algorithm>
#include <filesystem>

#include "archive/ArchiveSource.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"
#include "zip/Destination.h"
#include "zip/FileBytes.h"
#include "zip/FolderPacker.h"
#include "zip/MemberName.h"

namespace fs = std::filesystem;

namespace archive {

/// Empty for a name that no member can have.
std::string TreeSource::pathOf(std::string_view member) const {
    if (member.ends_with('/') || !zip::memberNameFault(member, true).empty()) return {};
    return directory_ + "/" + std::string(member);
}

std::vector<MemberInfo> TreeSource::files() const {
    std::vector<MemberInfo> files;
    for (fs::recursive_directory_iterator at(directory_), end; at != end; ++at) {
        std::string member = at->path().native().substr(directory_.size() + 1);
        if (at->is_regular_file()) {
            files.push_back({std::move(member), at->file_size()});
        } else if (becomesArchive(member)) {
            files.push_back({std::move(member), 0});
            at.disable_recursion_pending();
        }
    }
    std::ranges::sort(files, {}, &MemberInfo::name);
    return files;
}

bool TreeSource::contains(std::string_view member) const {
    const std::string path = pathOf(member);
    return HUTFile::isFile(path) || (becomesArchive(path) && HUTFile::isDir(path));
}

std::optional<std::string> TreeSource::read(std::string_view member, std::uint64_t bound) const {
    if (!contains(member)) return std::nullopt;
    const zip::FileBytes file(pathOf(member));
    if (file.size() > bound) throw zip::ArchiveError(directory_, std::string(member), "it is too large");
    std::string data(file.size(), '\0');
    if (!file.read(0, data.data(), data.size()))
        throw zip::ArchiveError(directory_, std::string(member), "it cannot be read");
    return data;
}

bool TreeSource::copyOut(std::string_view member, const std::string& destination) const {
    if (!contains(member)) return false;
    const std::string path = pathOf(member);
    if (HUTFile::isDir(path)) {
        packFolder(path, destination);
        return true;
    }
    const auto data = read(member, zip::OutputBudget::kOfCall);
    zip::writeDestination(destination, [&data](const auto& take) { take(*data); });
    return true;
}

std::shared_ptr<const MemberSource> TreeSource::openNested(std::string_view member) const {
    if (!contains(member)) return nullptr;
    const std::string path = pathOf(member);
    return HUTFile::isDir(path) ? openTree(path) : openArchive(path);
}

std::shared_ptr<const MemberSource> openTree(const std::string& directory) {
    if (!HUTFile::isDir(directory)) throw zip::ArchiveError(directory, "", "is not a directory");
    return std::make_shared<TreeSource>(HUTFile::getCanonicalName(directory));
}

}  // namespace archive
