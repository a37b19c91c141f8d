#include "zip/FolderPacker.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "util/AtomicFile.h"
#include "util/FolderNames.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"
#include "zip/Digest.h"
#include "zip/MemberName.h"
#include "zip/SourceFile.h"
#include "zip/ZipWriter.h"

namespace {

constexpr std::array<std::string_view, 4> kArchiveEndings{".lfa", ".cfa", ".zip", ".tilprj"};
constexpr int kMaxDepth = 2;

/// Where an archive is assembled before it takes its name; removed with its contents.
class WorkDirectory {
public:
    explicit WorkDirectory(const std::string& path) : path_(HUTFileUtils::uniquifyFilenameInDir(path)) {
        HUTFile::mkDirRecursive(path_);
    }
    ~WorkDirectory() { HUTFile::rmRecursive(path_); }
    WorkDirectory(const WorkDirectory&) = delete;
    WorkDirectory& operator=(const WorkDirectory&) = delete;
    std::string file(std::size_t number) const { return path_ + "/" + std::to_string(number); }

private:
    std::string path_;
};

struct Entry {
    std::string member;
    std::string file;  ///< empty for a directory
};

/// Provides the bytes of a hashed file, and opens it only while they are read: there may be more files than can be
/// open at once.
class LateFile {
public:
    LateFile(std::string path, const zip::FileStamp& hashed) : path_(std::move(path)), hashed_(hashed) {}

    void operator()(std::uint64_t offset, char* target, std::size_t count) {
        if (!file_) file_ = std::make_shared<const zip::SourceFile>(path_);
        if (!(file_->bytes().stamp() == hashed_)) file_->refuse("it was changed while it was read");
        if (!file_->bytes().read(offset, target, count)) file_->refuse("it cannot be read, or was truncated");
        file_->checkUnchanged();
        if (offset + count == file_->bytes().size()) file_.reset();
    }

private:
    std::string path_;
    zip::FileStamp hashed_;
    std::shared_ptr<const zip::SourceFile> file_;
};

/// Packs one folder into one archive.
class Packer {
public:
    Packer(const std::string& folder, int depth)
        : folder_(folder), depth_(depth), work_(HUTEnv::getJUNTmpDir() + "/pack") {}

    void packTo(const std::string& archive, bool mayReplace = true,
                const std::function<void(const std::string&)>& accept = {}) {
        collect();
        if (entries_.empty()) throw HEXUserException("folder '" + folder_ + "' is empty: there is nothing to pack");
        std::ranges::sort(entries_, {}, &Entry::member);
        util::AtomicFile made(archive, 0666);
        write(made);
        made.sync();
        if (accept) accept(made.path());
        made.commit(mayReplace);
    }

private:
    void write(util::AtomicFile& made) const {
        ZipWriter writer(folder_, {},
                         [&made](std::uint64_t offset, std::string_view bytes) { made.write(offset, bytes); });
        std::vector<zip::DigestRow> rows;
        rows.reserve(entries_.size());
        for (const Entry& entry : entries_) {
            rows.push_back({entry.member, 0, {}});
            const std::uint64_t number =
                entry.file.empty() ? addDirectory(writer, rows.back()) : addFile(writer, entry.file, rows.back());
            writer.setField(number, zip::kDigestField, {rows.back().hash.data(), rows.back().hash.size()});
        }
        writer.setComment(zip::digestLine(rows));
        writer.close();
    }

    static std::uint64_t addDirectory(ZipWriter& writer, zip::DigestRow& row) {
        row.hash = zip::Sha256().finish();
        return writer.addDirectory(std::string(row.name));
    }

    static std::uint64_t addFile(ZipWriter& writer, const std::string& path, zip::DigestRow& row) {
        const zip::SourceFile file(path);
        const auto checksums = zip::checksumsOf(file.bytes());
        if (!checksums) file.refuse("it cannot be read, or was truncated");
        row.size = file.bytes().size();
        row.hash = checksums->hash;
        return writer.add(std::string(row.name), {row.size, LateFile(path, file.bytes().stamp())});
    }

    [[noreturn]] static void refuse(const std::string& path, const std::string& text) {
        throw HEXUserException("'" + path + "' cannot be packed: " + text);
    }

    void collect() {
        std::vector<std::string> folders{""};
        while (!folders.empty()) {
            const std::string inside = std::exchange(folders.back(), {});
            folders.pop_back();
            const std::vector<std::string> names = folderNames(folder_ + "/" + inside);
            if (names.empty() && !inside.empty()) entries_.push_back({inside, ""});
            for (const std::string& name : names) add(inside + name, folders);
        }
    }

    /// A folder that does not become an archive is appended to `folders`, with a final "/".
    void add(std::string member, std::vector<std::string>& folders) {
        const std::string path = folder_ + "/" + member;
        if (const auto fault = zip::memberNameFault(member, false); !fault.empty())
            refuse(path, "its name " + std::string(fault));
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0) refuse(path, std::generic_category().message(errno));
        if (S_ISREG(status.st_mode)) {
            entries_.push_back({std::move(member), path});
        } else if (!S_ISDIR(status.st_mode)) {
            refuse(path, "it is neither a file nor a folder");
        } else if (becomesArchive(member)) {
            entries_.push_back({std::move(member), packNested(path)});
        } else {
            folders.push_back(std::move(member) + "/");
        }
    }

    std::string packNested(const std::string& folder) {
        if (depth_ == kMaxDepth) refuse(folder, "archives can be nested at most two deep");
        std::string file = work_.file(entries_.size());
        Packer(folder, depth_ + 1).packTo(file);
        return file;
    }

    const std::string folder_;
    const int depth_;
    const WorkDirectory work_;
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
    Packer(withoutEndSeparator(folder), 0).packTo(archive, mayReplace, accept);
}
