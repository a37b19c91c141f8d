#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zip/Digest.h"
#include "zip/LateFile.h"

class ZipWriter;

namespace util {
class AtomicFile;
}

namespace zip {

/// An archive that is made of given members, sorted by the bytes of their names, with a digest: equal members give
/// equal bytes. Its bytes are written once, and no member is held in memory. Throws `HEXUserException`.
class NewArchive {
public:
    /// `shown` is used in messages.
    explicit NewArchive(std::string shown) : shown_(std::move(shown)) {}

    // A name that could not be extracted again is refused.

    /// `open` opens the file of the member, see `LateFile`.
    void addFile(std::string member, LateFile::Open open);
    /// Of the regular file at `path`.
    void addFile(std::string member, const std::string& path);
    void addText(std::string member, std::string bytes);
    /// `member` ends in "/".
    void addDirectory(std::string member);

    bool empty() const { return members_.empty(); }
    /// Writes the file at `archive` completely or not at all. Two members of one name are refused. `accept`, if any, is
    /// called with the path of the finished archive before it takes its name; it can prevent that by throwing.
    void commit(const std::string& archive, bool mayReplace,
                const std::function<void(const std::string&)>& accept = {});

private:
    struct Member {
        std::string name;
        LateFile::Open open;  ///< null for a text and a directory
        std::string text;
    };

    void add(Member member, bool hasData);
    void sort();
    void write(util::AtomicFile& made) const;
    static std::uint64_t addTo(ZipWriter& writer, const Member& member, DigestRow& row);

    std::string shown_;
    std::vector<Member> members_;
};

}  // namespace zip
