#include "zip/FolderPacker.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include "msg/HEXAll.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"
#include "zip/MemberName.h"
#include "zip/ZipWriter.h"

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 4> kArchiveEndings{".lfa", ".cfa", ".zip", ".tilprj"};
constexpr int kDeepestArchive = 2;

/// Where an archive is put together before it takes its name; removed with all in it.
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

/// One folder on its way into one archive.
class Packer {
public:
    Packer(const std::string& folder, int depth)
        : folder_(folder), depth_(depth), work_(HUTEnv::getJUNTmpDir() + "/pack") {}

    void packTo(const std::string& archive) {
        collect();
        if (entries_.empty()) throw HEXUserException("folder '" + folder_ + "' is empty: there is nothing to pack");
        std::ranges::sort(entries_, {}, &Entry::member);
        ZipWriter writer(archive);
        for (const Entry& entry : entries_) {
            if (entry.file.empty())
                writer.addDirectory(entry.member);
            else
                writer.addFile(entry.member, entry.file);
        }
        writer.close();
    }

private:
    [[noreturn]] static void refuse(const fs::path& path, const std::string& text) {
        throw HEXUserException("'" + path.native() + "' cannot be packed: " + text);
    }

    void collect() {
        std::error_code error;
        fs::recursive_directory_iterator at(folder_, error), end;
        while (!error && at != end) {
            add(at);
            at.increment(error);
        }
        if (error) refuse(folder_, error.message());
    }

    void add(fs::recursive_directory_iterator& at) {
        std::error_code error;
        const fs::path& path = at->path();
        std::string member = path.native().substr(folder_.size() + 1);
        if (const auto fault = zip::memberNameFault(member, false); !fault.empty())
            refuse(path, "its name " + std::string(fault));
        const fs::file_status status = at->symlink_status(error);
        if (fs::is_regular_file(status)) {
            entries_.push_back({std::move(member), path.native()});
        } else if (!fs::is_directory(status)) {
            refuse(path, "it is neither a file nor a folder");
        } else if (becomesArchive(member)) {
            at.disable_recursion_pending();
            entries_.push_back({std::move(member), packNested(path)});
        } else if (fs::is_empty(path, error)) {
            entries_.push_back({member + "/", ""});
        }
    }

    std::string packNested(const fs::path& folder) {
        if (depth_ == kDeepestArchive) refuse(folder, "archives are nested at most two deep");
        const std::string file = work_.file(entries_.size());
        Packer(folder.native(), depth_ + 1).packTo(file);
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

void renameDurably(const std::string& from, const std::string& to) {
    const int directory = ::open(HUTFile::getParent(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool isDone = ::rename(from.c_str(), to.c_str()) == 0 && directory >= 0 && ::fsync(directory) == 0;
    const int error = errno;
    if (directory >= 0) ::close(directory);
    if (!isDone)
        throw HEXUserException("archive '" + to +
                               "' could not be written: " + std::generic_category().message(error));
}

}  // namespace

bool becomesArchive(std::string_view folder) {
    return std::ranges::any_of(kArchiveEndings, [folder](auto ending) { return folder.ends_with(ending); });
}

void packFolder(const std::string& folder, const std::string& archive) {
    if (!HUTFile::isDir(folder)) throw HEXUserException("'" + folder + "' is not a folder");
    const std::string beside = HUTFileUtils::uniquifyFilenameInDir(archive + ".new");
    const std::unique_ptr<const std::string, void (*)(const std::string*)> leaveNothing(
        &beside, [](const std::string* file) { HUTFile::rm(*file); });
    Packer(withoutEndSeparator(folder), 0).packTo(beside);
    renameDurably(beside, archive);
}
