#pragma once
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/PlatformCheck.h"

namespace check {

using teq_platform::CheckFinding;

inline constexpr std::size_t kMaxFindingsPerDocument = 1000;
inline constexpr std::size_t kMaxFindings = 2000;

// Characters of a text that are shown: a path is useless without its end.
inline constexpr std::size_t kMaxPathText = 1000;
inline constexpr std::size_t kMaxReasonText = 200;
inline constexpr std::size_t kMaxText = 4000;

// The names of all findings except the syntax of XML, whose names are in `xml::fault`.
inline constexpr char kNotJson[] = "not-json";
inline constexpr char kWrongShape[] = "wrong-shape";
inline constexpr char kMissingKey[] = "missing-key";
inline constexpr char kRefusedValue[] = "refused-value";
inline constexpr char kClashingParameter[] = "clashing-parameter";
inline constexpr char kNotANumber[] = "not-a-number";
inline constexpr char kNotAFlag[] = "not-a-flag";
inline constexpr char kNumberOutOfRange[] = "number-out-of-range";
inline constexpr char kUnknownKey[] = "unknown-key";
inline constexpr char kDuplicateKey[] = "duplicate-key";
inline constexpr char kEmptyDocument[] = "empty-document";
inline constexpr char kUnknownMemoryType[] = "unknown-memory-type";
inline constexpr char kReversedRange[] = "reversed-range";
inline constexpr char kOverlappingMemory[] = "overlapping-memory";
inline constexpr char kRepeatedName[] = "repeated-name";
inline constexpr char kBadFrequency[] = "bad-frequency";
inline constexpr char kUnknownClockStatus[] = "unknown-clock-status";
inline constexpr char kNoDefaultClock[] = "no-default-clock";
inline constexpr char kRepeatedDefaultClock[] = "repeated-default-clock";
inline constexpr char kUnknownHost[] = "unknown-host";
inline constexpr char kUnknownValue[] = "unknown-value";
inline constexpr char kUnknownFileType[] = "unknown-file-type";
inline constexpr char kDifferentClock[] = "different-clock";
inline constexpr char kUnknownReference[] = "unknown-reference";
inline constexpr char kDifferentIdentity[] = "different-identity";
inline constexpr char kUnsafeMember[] = "unsafe-member";
inline constexpr char kMissingFile[] = "missing-file";
inline constexpr char kWrongExtension[] = "wrong-extension";
inline constexpr char kNewerSchema[] = "newer-schema";
inline constexpr char kNoMetadata[] = "no-metadata";
inline constexpr char kDamagedMember[] = "damaged-member";
inline constexpr char kMissingMember[] = "missing-member";
inline constexpr char kMissingEmulationMember[] = "missing-emulation-member";
inline constexpr char kRepeatedClockId[] = "repeated-clock-id";
inline constexpr char kUnknownDefaultPartition[] = "unknown-default-partition";
inline constexpr char kIdOutOfRange[] = "id-out-of-range";
inline constexpr char kUncountedMemory[] = "uncounted-memory";
inline constexpr char kPartlyDefaultHbm[] = "partly-default-hbm";

/// A text to check: a file, or a member of an archive.
struct Source {
    std::string file;
    std::string member;  ///< empty for the file itself
    std::string text;
};

/// What the metadata of an archive has that its hpfm may refer to or repeat. Without any names of a kind, these are
/// unknown.
struct KnownNames {
    std::set<std::string> slrs, clocks, devices = {};
    /// Of the clocks by id; no value if the platform's clocks are not those of the metadata.
    std::optional<std::map<long long, std::string>> frequencies = {};
};

/// What a descriptor says of its platform, for comparison with the files that it names.
struct Identity {
    std::string vendor, version;
};

/// The findings of a check so far. The name of a finding determines its severity. Of more than `kMaxFindings`, the last
/// one says how many there are; it has the name of the worst of these.
class Findings {
public:
    /// Adds a finding without line and column.
    void add(const char* name, const std::string& file, const std::string& member, std::string text);
    /// Adds a finding; sets its severity.
    void add(CheckFinding finding);
    void append(Findings&& others);
    /// Changes the file of the findings that are in `file`.
    void rename(const std::string& file, const std::string& to);
    /// Counts findings of a document that has more than `kMaxFindingsPerDocument`; `first` is the first of them.
    void addMore(std::size_t count, CheckFinding first);

    std::vector<CheckFinding> take();

private:
    void keep(CheckFinding finding);

    std::vector<CheckFinding> list_;
    std::size_t more_ = 0;  ///< than the list has
    CheckFinding first_;    ///< the first of the worst of these
};

}  // namespace check
