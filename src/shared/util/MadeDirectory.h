#pragma once
#include <sys/types.h>

#include <optional>
#include <string>

#include "util/Descriptor.h"

namespace util {

/// Recognises a directory that only this user can use.
struct DirectoryStamp {
    dev_t device = 0;
    ino_t inode = 0;

    /// No value for anything else, such as a link, or if the system cannot say.
    static std::optional<DirectoryStamp> of(const std::string& path);
    static std::optional<DirectoryStamp> of(int directory);
    bool operator==(const DirectoryStamp&) const = default;
};

/// An error of the system with a temporary directory, as `HEXUserException`.
[[noreturn]] void failToMake(const std::string& directory, int error);

/// A directory with mode 0700 and a random name, which is removed with its contents. It is opened as soon as it is
/// made: whoever may write to the directory around it can put another one in its place, which is neither used nor
/// emptied. Functions throw `HEXUserException`.
class MadeDirectory {
public:
    /// `form`: its path, with "XXXXXX" at the end.
    explicit MadeDirectory(std::string form);
    ~MadeDirectory();
    MadeDirectory(const MadeDirectory&) = delete;
    MadeDirectory& operator=(const MadeDirectory&) = delete;

    /// Checked each time: throws if the path no longer is this directory.
    const std::string& path() const;
    /// For what must be in this directory whatever becomes of the path.
    int descriptor() const { return opened_.get(); }

private:
    void open();

    std::string path_;
    Descriptor opened_;
    std::optional<DirectoryStamp> stamp_;
};

}  // namespace util
