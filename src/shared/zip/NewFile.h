#pragma once
#include <sys/types.h>

#include <string>
#include <string_view>

namespace zip {

/// A file that comes into being whole or not at all: it is written under a name of its own in an open directory, and
/// takes its name when it is complete. Throws `HEXUserException`.
class NewFile {
public:
    /// `directory` is an open descriptor and stays the caller's; `name` has no separator; `shown` stands in messages.
    NewFile(int directory, std::string name, std::string shown, mode_t mode);
    /// Removes what has not been committed.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void write(std::string_view bytes);
    /// Takes the place of a file or link of this name; of nothing, when `overwrite` is false.
    void commit(bool overwrite);

private:
    [[noreturn]] void fail(int error) const;

    int directory_;
    std::string name_, shown_, temporary_;
    int descriptor_ = -1;
    bool isCommitted_ = false;
};

}  // namespace zip
