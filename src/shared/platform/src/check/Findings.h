#pragma once
#include <string>
#include <utility>
#include <vector>

#include "platform/PlatformCheck.h"

namespace check {

using teq_platform::CheckFinding;

inline constexpr std::size_t kMostOfDocument = 1000;

// How much of a text is shown: a path is no use without its end.
inline constexpr std::size_t kMostOfPath = 1000;
inline constexpr std::size_t kMostOfReason = 200;

// The names of what is found behind the syntax of XML, whose own names are `xml::fault`.
inline constexpr char kNotJson[] = "not-json";
inline constexpr char kWrongShape[] = "wrong-shape";
inline constexpr char kMissingKey[] = "missing-key";
inline constexpr char kRefusedValue[] = "refused-value";
inline constexpr char kClashingParameter[] = "clashing-parameter";
inline constexpr char kNotANumber[] = "not-a-number";
inline constexpr char kNotAFlag[] = "not-a-flag";
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

/// One text that is checked: a file, or a member of an archive.
struct Source {
    std::string file;
    std::string member;  ///< empty for the file itself
    std::string text;
};

/// What a check has found so far. The severity of a finding follows from its name.
class Findings {
public:
    /// A finding without a place in a text.
    void add(const char* name, const std::string& file, const std::string& member, std::string text);
    /// A finding of which everything is known but the severity.
    void add(CheckFinding finding);
    void append(Findings&& others);

    std::vector<CheckFinding> take() { return std::move(list_); }

private:
    std::vector<CheckFinding> list_;
};

}  // namespace check
