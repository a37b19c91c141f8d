#pragma once
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zip/ByteSource.h"
#include "zip/Member.h"
#include "zip/NameIndex.h"

namespace zip {

struct EndRecord;

/// The central directory of an archive, read at once and checked whole: members do not overlap, lie between the
/// archive's first byte and the directory, have different names, and are of a kind that can be read.
class Directory {
public:
    /// Throws `ArchiveError` with the name `archive`.
    Directory(const ByteSource& bytes, const std::string& archive);
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    /// In the order of the directory.
    std::span<const Member> members() const { return members_; }
    const Member* find(std::string_view name) const { return index_.find(name); }
    const std::string& comment() const { return comment_; }

private:
    void load(const ByteSource& bytes, const EndRecord& end);
    void readRows(std::uint64_t count);
    std::size_t readRow(std::string_view rest);
    void readZip64(Member& member, const char* row) const;
    void checkRow(const Member& member, const char* row) const;
    void setLimits(std::uint64_t directoryOffset);
    [[noreturn]] void refuse(std::string_view member, const std::string& text) const;

    const std::string& archive_;
    std::unique_ptr<char[]> bytes_;  ///< the directory as it stands; names point into it
    std::size_t size_ = 0;
    std::string comment_;
    std::vector<Member> members_;
    NameIndex index_;
};

}  // namespace zip
