#include "zip/FolderPacker.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "msg/HEXFileFault.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "util/OpenBelow.h"
#include "util/PrivateTmpDir.h"
#include "zip/Destination.h"
#include "zip/MemberName.h"
#include "zip/NewArchive.h"

namespace {

constexpr std::array<std::string_view, 4> kArchiveEndings{".lfa", ".cfa", ".zip", ".tilprj"};
constexpr int kMaxDepth = 2;

/// Packs one folder into one archive. The folder is opened once, and everything in it by names below that, without
/// following links: what lies elsewhere does not get in, even if somebody swaps a folder for a link meanwhile.
class Packer {
public:
    using IsExcluded = std::function<bool(const std::string&)>;

    /// `inside`: the path of a nested archive in the outermost folder, with a final "/".
    Packer(util::Descriptor folder, std::string shown, int depth, const IsExcluded& isExcluded,
           std::string inside = "")
        : folder_(std::move(folder)),
          shown_(std::move(shown)),
          depth_(depth),
          isExcluded_(isExcluded),
          inside_(std::move(inside)),
          members_(shown_) {
        if (!folder_.isOpen()) refuse(shown_, std::generic_category().message(errno));
    }

    void add(const std::vector<std::pair<std::string, std::string>>& files) {
        for (const auto& [member, path] : files) members_.addFile(member, path);
    }

    void packTo(const std::string& archive, bool mayReplace = true,
                const std::function<void(const std::string&)>& accept = {}) {
        collect();
        if (members_.empty()) throw HEXUserException("folder '" + shown_ + "' is empty: there is nothing to pack");
        members_.commit(archive, mayReplace, accept);
    }

private:
    [[noreturn]] static void refuse(const std::string& path, const std::string& text) {
        throw HEXUserException("'" + path + "' cannot be packed: " + text);
    }

    void collect() {
        std::vector<std::string> folders{""};
        while (!folders.empty()) {
            const std::string inside = std::exchange(folders.back(), {});
            folders.pop_back();
            const util::Descriptor opened = openFolder(inside);
            const std::vector<std::string> names = folderNames(opened.get(), shown_ + "/" + inside);
            if (names.empty() && !inside.empty()) members_.addDirectory(inside);
            for (const std::string& name : names)
                if (!isExcluded_ || !isExcluded_(inside_ + inside + name))
                    add(opened.get(), name, inside + name, folders);
        }
    }

    /// `inside` ends in "/" or is empty.
    util::Descriptor openFolder(std::string_view inside) const {
        util::Descriptor opened = util::openBelow(
            folder_.get(), inside.substr(0, inside.empty() ? 0 : inside.size() - 1), O_RDONLY | O_DIRECTORY);
        if (!opened.isOpen()) refuse(shown_ + "/" + std::string(inside), std::generic_category().message(errno));
        return opened;
    }

    /// A folder that does not become an archive is appended to `folders`, with a final "/".
    void add(int folder, const std::string& name, std::string member, std::vector<std::string>& folders) {
        const std::string path = shown_ + "/" + member;
        if (const auto fault = zip::digestNameFault(member, false); !fault.empty())
            throw HEXFileFault({.text = "'" + path + "' cannot be packed: its name " + std::string(fault)});
        struct stat status {};
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            refuse(path, std::generic_category().message(errno));
        if (S_ISREG(status.st_mode)) {
            members_.addFile(
                member, [this, member] { return zip::SourceFile(folder_.get(), member, shown_ + "/" + member); });
        } else if (!S_ISDIR(status.st_mode)) {
            refuse(path, "it is neither a file nor a folder");
        } else if (becomesArchive(member)) {
            members_.addFile(member, packNested(member));
        } else {
            folders.push_back(std::move(member) + "/");
        }
    }

    std::string packNested(const std::string& member) {
        const std::string path = shown_ + "/" + member;
        if (depth_ == kMaxDepth) refuse(path, "archives can be nested at most two deep");
        if (!scratch_) scratch_.emplace();
        std::string file = scratch_->path() + "/" + std::to_string(nested_++);
        Packer(openFolder(member + "/"), path, depth_ + 1, isExcluded_, inside_ + member + "/").packTo(file);
        return file;
    }

    const util::Descriptor folder_;
    const std::string shown_;
    const int depth_;
    const IsExcluded& isExcluded_;
    const std::string inside_;
    std::optional<util::ScratchDirectory> scratch_;  ///< of the archives in this one
    int nested_ = 0;
    zip::NewArchive members_;
};

std::string withoutEndSeparator(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

}  // namespace

bool becomesArchive(std::string_view folder) {
    return std::ranges::any_of(kArchiveEndings, [folder](auto ending) { return folder.ends_with(ending); });
}

void packFolder(const std::string& folder, const std::string& archive, bool mayReplace,
                const std::function<void(const std::string&)>& accept,
                const std::vector<std::pair<std::string, std::string>>& added,
                const std::function<bool(const std::string&)>& isExcluded) {
    if (!HUTFile::isDir(folder)) throw HEXUserException("'" + folder + "' is not a folder");
    Packer packer(util::Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
                  withoutEndSeparator(folder), 0, isExcluded);
    packer.add(added);
    packer.packTo(archive, mayReplace, accept);
}
