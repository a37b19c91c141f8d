#include "zip/ExtractionDirectory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "msg/Budget.h"
#include "util/AtomicFile.h"
#include "util/OpenBelow.h"
#include "zip/ArchiveError.h"
#include "zip/MemberName.h"

namespace zip {
namespace {

[[noreturn]] void fail(const std::string& path, int error) {
    throw HEXUserException("directory '" + path + "' cannot be used: " + std::generic_category().message(error));
}

}  // namespace

ExtractionDirectory::ExtractionDirectory(std::string path)
    : path_(std::move(path)), directory_(::open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    if (!directory_.isOpen()) fail(path_, errno);
}

util::Descriptor ExtractionDirectory::openDirectory(std::string_view relativePath) const {
    util::Descriptor directory = util::makeBelow(directory_.get(), relativePath, 0755);
    if (!directory.isOpen()) fail(relativePath.empty() ? path_ : path_ + "/" + std::string(relativePath), errno);
    return directory;
}

util::Descriptor ExtractionDirectory::openOwnFile(std::string_view name) const {
    const std::string path = path_ + "/" + std::string(name);
    util::Descriptor file = util::openBelow(directory_.get(), name, O_RDONLY);
    struct stat status {};
    if (!file.isOpen() && errno == ENOENT) return file;
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) fail(path, errno);
    if (!S_ISREG(status.st_mode) || status.st_nlink != 1 || status.st_uid != ::geteuid())
        throw HEXUserException("file '" + path + "' is not used: it is not owned by this user, or has another name");
    return file;
}

void ExtractionDirectory::extract(const Archive& archive, const Member& member, bool overwrite,
                                  OutputBudget& budget) const {
    const std::string name(member.name);
    if (const auto fault = memberNameFault(name, member.size > 0); !fault.empty())
        throw ArchiveError(archive.name(), name, "the name " + std::string(fault));

    const auto separator = name.rfind('/');
    const bool isNested = separator != std::string::npos;
    const util::Descriptor directory = openDirectory(isNested ? std::string_view(name).substr(0, separator) : "");
    if (member.isDirectory()) return;
    Budget::spend(Cost::inodes);
    util::AtomicFile file(directory.get(), isNested ? name.substr(separator + 1) : name, path_ + "/" + name, 0644);
    archive.copyTo(
        member, [&file](std::string_view piece) { file.append(piece); }, budget);
    file.commit(overwrite);
}

bool ExtractionDirectory::extractAll(const Archive& archive, std::string_view prefix, bool overwrite,
                                     OutputBudget& budget) const {
    bool isFound = false;
    std::uint64_t left = archive.mostUnpacked();
    for (const Member& member : archive.members()) {
        if (!member.name.starts_with(prefix)) continue;
        if (member.size > left)
            throw ArchiveError(archive.name(), std::string(member.name),
                               "the folder has more data than an archive of this size may hold");
        left -= member.size;
        extract(archive, member, overwrite, budget);
        isFound = true;
    }
    return isFound;
}

}  // namespace zip
