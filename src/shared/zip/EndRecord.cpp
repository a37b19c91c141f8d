#include "zip/EndRecord.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "zip/ArchiveError.h"
#include "zip/LittleEndian.h"

namespace zip {
namespace {

constexpr std::string_view kSignature = "PK\5\6";
constexpr std::string_view kLocatorSignature = "PK\6\7";
constexpr std::string_view kRecord64Signature = "PK\6\6";
constexpr std::uint64_t kSize = 22, kLocatorSize = 20, kRecord64Size = 56;
constexpr std::uint64_t kMaxMembers = 1'000'000;
constexpr std::uint64_t kMaxDirectory = 256UL * 1024 * 1024;

class EndReader {
public:
    EndReader(const ByteSource& bytes, const std::string& archive) : bytes_(bytes), archive_(archive) {}

    EndRecord read() {
        if (bytes_.size() < kSize)
            refuse(fmt::format("{} bytes are not a zip archive: the smallest has {}", bytes_.size(), kSize));
        loadTail();
        if (!find()) refuseWithoutEnd();
        readRecord();
        refuseOthers();
        refuseOtherLocators();
        return std::move(end_);
    }

private:
    [[noreturn]] void refuse(const std::string& text) const { throw ArchiveError(archive_, "", text); }

    void loadTail() {
        end_.tail.resize(std::min(kEndRecordReach, bytes_.size()));
        end_.tailOffset = bytes_.size() - end_.tail.size();
        if (!bytes_.read(end_.tailOffset, end_.tail.data(), end_.tail.size())) refuse("its end cannot be read");
    }

    /// From the tail if it has the bytes, which is nearly always true.
    bool fetch(std::uint64_t offset, char* target, std::size_t count) const {
        if (offset < end_.tailOffset) return bytes_.read(offset, target, count);
        std::copy_n(end_.tail.data() + (offset - end_.tailOffset), count, target);
        return true;
    }

    /// The record whose comment reaches the end of the archive. A reader that searches from the other side must not
    /// find another one.
    bool find() {
        bool found = false;
        const std::string_view tail = end_.tail;
        for (auto at = tail.find(kSignature); at != tail.npos; at = tail.find(kSignature, at + 1)) {
            if (at + kSize > tail.size() || at + kSize + u16(&tail[at + 20]) != tail.size()) continue;
            if (found) refuse("it has two ends of central directory");
            found = true;
            at_ = at;
        }
        return found;
    }

    /// Data of members may contain whole archives, but none whose offsets are those of this file: a reader that scans
    /// forward, or repairs archives, would see its members.
    void refuseOthers() const {
        const std::string_view before = std::string_view(end_.tail).substr(0, at_);
        for (auto at = before.find(kSignature); at != before.npos; at = before.find(kSignature, at + 1))
            if (const std::uint64_t offset = end_.tailOffset + at;
                at + kSize <= end_.tail.size() && (endsDirectory(offset, &end_.tail[at]) || endsDirectory64(offset)))
                refuse(fmt::format("it has two ends of central directory, the first at byte {}", offset));
    }
    static bool endsDirectory(std::uint64_t offset, const char* record) {
        return std::uint64_t{u32(record + 12)} + u32(record + 16) == offset;
    }

    /// Some readers take the last locator of the archive that leads to a zip64 record, wherever it is.
    void refuseOtherLocators() const {
        const std::string_view tail = end_.tail;
        for (auto at = tail.find(kLocatorSignature); at != tail.npos; at = tail.find(kLocatorSignature, at + 1)) {
            std::array<char, 4> target;
            if (at + kLocatorSize == at_ || at + 16 > tail.size()) continue;
            const std::uint64_t offset = u64(&tail[at + 8]);
            if (offset <= bytes_.size() - target.size() && fetch(offset, target.data(), target.size()) &&
                std::string_view(target.data(), target.size()) == kRecord64Signature)
                refuse(fmt::format("it has a second zip64 locator, at byte {}", end_.tailOffset + at));
        }
    }
    bool endsDirectory64(std::uint64_t offset) const {
        std::array<char, kLocatorSize> locator;
        std::array<char, kRecord64Size> record;
        if (offset < kLocatorSize || !fetch(offset - kLocatorSize, locator.data(), locator.size()) ||
            !std::string_view(locator.data(), locator.size()).starts_with(kLocatorSignature))
            return false;
        const std::uint64_t at = u64(&locator[8]);
        return at <= offset && offset - at >= kLocatorSize + kRecord64Size &&
               fetch(at, record.data(), record.size()) &&
               std::string_view(record.data(), record.size()).starts_with(kRecord64Signature) &&
               u64(&record[40]) + u64(&record[48]) == at;
    }

    [[noreturn]] void refuseWithoutEnd() const {
        const auto at = std::string_view(end_.tail).rfind(kSignature);
        if (at == std::string::npos || at + kSize > end_.tail.size())
            refuse("no end of central directory: this is not a zip archive, or its end is missing");
        refuse(fmt::format("the end of central directory declares a comment of {} bytes, but {} bytes follow it",
                           u16(&end_.tail[at + 20]), end_.tail.size() - at - kSize));
    }

    void readRecord() {
        const char* const record = &end_.tail[at_];
        end_.comment = end_.tail.substr(at_ + kSize);
        // Readers that search from the end of the file take the last one, even if it begins inside of this record.
        if (const auto at = end_.tail.find(kSignature, at_ + 1); at != std::string::npos)
            refuse(fmt::format("its {} holds a second end of central directory",
                               at < at_ + kSize ? "end of central directory" : "comment"));
        if (u16(record + 4) != 0 || u16(record + 6) != 0 || u16(record + 8) != u16(record + 10))
            refuse("it is one part of a split archive, which is not supported");
        end_.members = u16(record + 10);
        end_.directorySize = u32(record + 12);
        end_.directoryOffset = u32(record + 16);
        std::uint64_t directoryEnd = end_.tailOffset + at_;
        readLocator(directoryEnd);
        checkDirectory(directoryEnd);
    }

    /// A zip64 locator directly precedes the end of central directory; if there is one, `directoryEnd` becomes the
    /// start of its record.
    void readLocator(std::uint64_t& directoryEnd) {
        std::array<char, kLocatorSize> locator;
        if (directoryEnd < kLocatorSize + kRecord64Size ||
            !fetch(directoryEnd - kLocatorSize, locator.data(), locator.size()) ||
            !std::string_view(locator.data(), locator.size()).starts_with(kLocatorSignature))
            return;
        if (u32(&locator[4]) != 0 || u32(&locator[16]) != 1)
            refuse("it is one part of a split archive, which is not supported");
        const std::uint64_t expected = directoryEnd - kLocatorSize - kRecord64Size;
        if (u64(&locator[8]) != expected)
            refuse(fmt::format(
                "the zip64 locator points to byte {}, but the zip64 end of central directory must be at {}",
                u64(&locator[8]), expected));
        readRecord64(expected);
        directoryEnd = expected;
    }

    void readRecord64(std::uint64_t offset) {
        std::array<char, kRecord64Size> record;
        if (!fetch(offset, record.data(), record.size()) ||
            !std::string_view(record.data(), record.size()).starts_with(kRecord64Signature))
            refuse(fmt::format("there is no zip64 end of central directory at byte {}, where its locator points",
                               offset));
        if (u64(&record[4]) != kRecord64Size - 12)
            refuse(fmt::format("the zip64 end of central directory gives {} as its size instead of {}",
                               u64(&record[4]), kRecord64Size - 12));
        if (u32(&record[16]) != 0 || u32(&record[20]) != 0 || u64(&record[24]) != u64(&record[32]))
            refuse("it is one part of a split archive, which is not supported");
        take("number of members", end_.members, kIn64As16, u64(&record[32]));
        take("size of the central directory", end_.directorySize, kIn64As32, u64(&record[40]));
        take("offset of the central directory", end_.directoryOffset, kIn64As32, u64(&record[48]));
    }

    void take(const char* what, std::uint64_t& value, std::uint64_t in64, std::uint64_t value64) const {
        if (value != in64 && value != value64)
            refuse(fmt::format("the {} is {} in the end of central directory and {} in the zip64 one", what, value,
                               value64));
        value = value64;
    }

    void checkDirectory(std::uint64_t directoryEnd) const {
        if (end_.directorySize > directoryEnd || end_.directoryOffset != directoryEnd - end_.directorySize)
            refuse(
                fmt::format("a central directory of {} bytes at byte {} does not end at {}, where the end of "
                            "central directory begins",
                            end_.directorySize, end_.directoryOffset, directoryEnd));
        if (end_.members > kMaxMembers)
            refuse(fmt::format("it has {} members; at most {} are read", end_.members, kMaxMembers));
        if (end_.directorySize > kMaxDirectory)
            refuse(fmt::format("its central directory has {} bytes; at most {} are read", end_.directorySize,
                               kMaxDirectory));
    }

    const ByteSource& bytes_;
    const std::string& archive_;
    EndRecord end_;
    std::size_t at_ = 0;  ///< of the end of central directory in the tail
};

}  // namespace

EndRecord readEndRecord(const ByteSource& bytes, const std::string& archive) {
    return EndReader(bytes, archive).read();
}

}  // namespace zip
