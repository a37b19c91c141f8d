#pragma once
#include <memory>
#include <string>

#include "platform/HRQAFiles.h"

namespace util {
class Descriptor;
}

/// A metadata archive: a zip file with files that belong to a platform, and the index member "rqa.json", which has the
/// type of each file and where in a design the content belongs.
class ZR_API HRQAArchive : public teq_platform::JSONSerializable {
public:
    /// A file to add.
    struct Source {
        std::string type;
        std::string name;  ///< of the member
        std::string path;  ///< of the file on disk
        /// If set, an open directory that has the file as `inside`, and `path` is for messages only: no link below the
        /// directory is followed.
        std::shared_ptr<const util::Descriptor> directory{};
        std::string inside{};
    };

    HRQAArchive() = default;
    explicit HRQAArchive(std::string file) : file_(std::move(file)) {}

    static const std::string& getJsonFileName();  ///< "rqa.json"

    /// @name Fields
    /// All are empty at first.
    /// @{
    const std::string& getFile() const { return file_; }  ///< path of the archive
    void setFile(std::string file) { file_ = std::move(file); }
    const HRQAFiles& getFiles() const { return files_; }
    const std::string& getInstPath() const { return instPath_; }
    void setInstPath(const std::string& path) { instPath_ = path; }
    const std::string& getDrBdInstName() const { return drBdInstName_; }
    void setDrBdInstName(const std::string& name) { drBdInstName_ = name; }
    const std::string& getPfmName() const { return pfmName_; }
    void setPfmName(const std::string& name) { pfmName_ = name; }
    const std::string& getHierName() const { return hierName_; }
    void setHierName(const std::string& name) { hierName_ = name; }
    /// @}

    /// @name Reading
    /// @{

    /// Reads the index of the archive. False if it cannot be read, see `readJsonFile`. Throws like `parseJsonString`.
    bool parse();
    /// The text of the index; empty after message "@74-89@%s" if the archive does not exist, or "@74-67@%s%s" if it
    /// has no index or is not an archive.
    std::string readJsonFile() const;
    /// Reads an index in place of what was read before. False for an empty text. Throws the property tree's
    /// `json_parser_error` for a text that is not JSON.
    bool parseJsonString(const std::string& text);
    void parseRoot(const teq_platform::ptree& index);
    /// Extracts the file of a type below the directory `destination`, which is made if it does not exist, and returns
    /// its path; empty if the index has no such type. The types "DR_BD" (always the directory "bd"),
    /// "BOARD_REPO_PATH" and "IP_REPO_PATH" are directories. Existing files are replaced. Throws `HEXUserException`
    /// for an empty destination, a name that leads out of it, and a member that does not exist, and `HEXDataException`
    /// for an invalid archive.
    std::string extract(const std::string& type, const std::string& destination) const;
    /// @}

    /// @name Writing
    /// The archive is replaced atomically; if that fails, neither it nor this object is changed. Throws
    /// `HEXAlgException` if no file is set or it does not exist, and `HEXUserException` for errors of the file system.
    /// @{

    /// Adds to the index only.
    void registerFile(const std::string& type, const std::string& name) { files_.add(type, name); }
    /// Adds the file at `source` as a member to archive, index and digest. The member of an earlier file of the type
    /// stays in the archive.
    void archive(const std::string& type, const std::string& name, const std::string& source);
    void archiveFile(const std::string& type, const std::string& name, const std::string& source) {
        archive(type, name, source);
    }
    /// The same for several files in one rewrite.
    void archive(const HSTVector<Source>& sources);
    /// Makes the archive of these files and the index. Throws `HEXUserException` if it exists, unless `mayReplace` is
    /// true.
    void create(const HSTVector<Source>& sources, bool mayReplace);
    /// Writes the index into the archive. Does nothing if no file is set.
    void writeJSON() const;
    /// Attaches a digest.
    void attachDigest() const;
    /// @}

    /// The index: "version", "instPath", "drBdInstName", "pfmName", "hierName", "files".
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

private:
    std::string indexText() const;

    std::string file_;
    HRQAFiles files_;
    std::string instPath_, drBdInstName_, pfmName_, hierName_;
};
