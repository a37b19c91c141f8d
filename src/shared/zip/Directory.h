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

/// The central directory of an archive, read and checked as a whole: members have different names, are files or
/// directories of a supported kind, and fill the archive from its first byte to the directory without gaps.
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
    void readEntries(std::uint64_t count);
    std::size_t readEntry(std::string_view rest);
    void readZip64(Member& member, const char* entry) const;
    void checkEntry(const Member& member, const char* entry) const;
    void setLimits(std::uint64_t directoryOffset);
    void checkAdjacent(const ByteSource& bytes, const EndRecord& end) const;
    [[noreturn]] void refuse(std::string_view member, const std::string& text) const;

    const std::string& archive_;
    std::unique_ptr<char[]> bytes_;  ///< the directory's bytes; names point into them
    std::size_t size_ = 0;
    std::string comment_;
    std::vector<Member> members_;
    NameIndex index_;
};

}  // namespace zip
