#include "zip/FolderPacker.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "util/AtomicFile.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "util/OpenBelow.h"
#include "util/PrivateTmpDir.h"
#include "zip/Destination.h"
#include "zip/Digest.h"
#include "zip/MemberName.h"
#include "zip/SourceFile.h"
#include "zip/ZipWriter.h"

namespace {

constexpr std::array<std::string_view, 4> kArchiveEndings{".lfa", ".cfa", ".zip", ".tilprj"};
constexpr int kMaxDepth = 2;

struct Entry {
    std::string member;
    enum class Kind { directory, file, archive } kind = Kind::file;
    std::string made;  ///< the path of the archive that was packed for it
};

/// Provides the bytes of a hashed file, and opens it only while they are read: there may be more files than can be
/// open at once.
class LateFile {
public:
    LateFile(std::function<zip::SourceFile()> open, const zip::FileStamp& hashed)
        : open_(std::move(open)), hashed_(hashed) {}

    void operator()(std::uint64_t offset, char* target, std::size_t count) {
        if (!file_) file_ = std::make_shared<const zip::SourceFile>(open_());
        if (!(file_->bytes().stamp() == hashed_)) file_->refuse("it was changed while it was read");
        if (!file_->bytes().read(offset, target, count)) file_->refuse("it cannot be read, or was truncated");
        file_->checkUnchanged();
        if (offset + count == file_->bytes().size()) file_.reset();
    }

private:
    std::function<zip::SourceFile()> open_;
    zip::FileStamp hashed_;
    std::shared_ptr<const zip::SourceFile> file_;
};

/// Packs one folder into one archive. The folder is opened once, and everything in it by names below that, without
/// following links: what lies elsewhere does not get in, even if somebody swaps a folder for a link meanwhile.
class Packer {
public:
    Packer(util::Descriptor folder, std::string shown, int depth)
        : folder_(std::move(folder)), shown_(std::move(shown)), depth_(depth) {
        if (!folder_.isOpen()) refuse(shown_, std::generic_category().message(errno));
    }

    void packTo(const std::string& archive, bool mayReplace = true,
                const std::function<void(const std::string&)>& accept = {}) {
        collect();
        if (entries_.empty()) throw HEXUserException("folder '" + shown_ + "' is empty: there is nothing to pack");
        std::ranges::sort(entries_, {}, &Entry::member);
        util::AtomicFile made(archive, 0666);
        write(made);
        made.sync();
        if (accept) accept(made.path());
        made.commit(mayReplace);
    }

private:
    void write(util::AtomicFile& made) const {
        ZipWriter writer(shown_, {},
                         [&made](std::uint64_t offset, std::string_view bytes) { made.write(offset, bytes); });
        std::vector<zip::DigestRow> rows;
        rows.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            rows.push_back({entry.member, 0, {}});
            const std::uint64_t number = entry.kind == Entry::Kind::directory ? addDirectory(writer, rows.back())
                                                                              : addFile(writer, entry, rows.back());
            writer.setField(number, zip::kDigestField, {rows.back().hash.data(), rows.back().hash.size()});
        }
        writer.setComment(zip::digestLine(rows));
        writer.close();
    }

    static std::uint64_t addDirectory(ZipWriter& writer, zip::DigestRow& row) {
        row.hash = zip::Sha256().finish();
        return writer.addDirectory(std::string(row.name));
    }

    std::uint64_t addFile(ZipWriter& writer, const Entry& entry, zip::DigestRow& row) const {
        const auto open = [this, &entry] {
            if (entry.kind == Entry::Kind::archive) return zip::SourceFile(entry.made);
            return zip::SourceFile(folder_.get(), entry.member, shown_ + "/" + entry.member);
        };
        const zip::SourceFile file = open();
        const auto checksums = zip::checksumsOf(file.bytes());
        if (!checksums) file.refuse("it cannot be read, or was truncated");
        row.size = file.bytes().size();
        row.hash = checksums->hash;
        return writer.add(std::string(row.name), {row.size, LateFile(open, file.bytes().stamp())});
    }

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
            if (names.empty() && !inside.empty()) entries_.push_back({inside, Entry::Kind::directory, ""});
            for (const std::string& name : names) add(opened.get(), name, inside + name, folders);
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
        if (const auto fault = zip::memberNameFault(member, false); !fault.empty())
            refuse(path, "its name " + std::string(fault));
        struct stat status {};
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            refuse(path, std::generic_category().message(errno));
        if (S_ISREG(status.st_mode)) {
            entries_.push_back({std::move(member), Entry::Kind::file, ""});
        } else if (!S_ISDIR(status.st_mode)) {
            refuse(path, "it is neither a file nor a folder");
        } else if (becomesArchive(member)) {
            std::string made = packNested(member);
            entries_.push_back({std::move(member), Entry::Kind::archive, std::move(made)});
        } else {
            folders.push_back(std::move(member) + "/");
        }
    }

    std::string packNested(const std::string& member) {
        const std::string path = shown_ + "/" + member;
        if (depth_ == kMaxDepth) refuse(path, "archives can be nested at most two deep");
        if (!scratch_) scratch_.emplace();
        std::string file = scratch_->path() + "/" + std::to_string(entries_.size());
        Packer(openFolder(member + "/"), path, depth_ + 1).packTo(file);
        return file;
    }

    const util::Descriptor folder_;
    const std::string shown_;
    const int depth_;
    std::optional<util::ScratchDirectory> scratch_;  ///< of the archives in this one
    std::vector<Entry> entries_;
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
                const std::function<void(const std::string&)>& accept) {
    if (!HUTFile::isDir(folder)) throw HEXUserException("'" + folder + "' is not a folder");
    Packer packer(util::Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
                  withoutEndSeparator(folder), 0);
    if (!zip::isStream(archive)) return packer.packTo(archive, mayReplace, accept);
    const util::ScratchDirectory scratch;
    const std::string extension = HUTFile::getExt(archive);
    const std::string made = scratch.path() + "/packed" + (extension.empty() ? "" : "." + extension);
    packer.packTo(made, false, accept);
    zip::copyToDestination(made, archive);
}
