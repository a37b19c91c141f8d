#pragma once
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <string>

/// Walking the directories of repositories. Untrusted: they may hold anything, and may change during the walk.
namespace repository {

inline constexpr std::size_t kMaxEntries = 1'000'000;  ///< of one walk
/// Of one walk: names that the system looks up to follow links and to reach what is in deep directories.
inline constexpr std::uint64_t kMaxNames = 1'000'000;
inline constexpr std::size_t kMaxLevels = 3;  ///< a repository and two levels of subdirectories

/// Something in a directory that is not a directory itself.
struct Entry {
    const std::string& directory;  ///< as walked: the path given, and the names below it
    const std::string& name;
    bool isRegular;  ///< a regular file; links are followed
    std::string path() const;
    /// The path with "/" for each backslash, and nothing if the name does not end in exactly ".zdf" after other
    /// characters.
    std::string descriptorPath() const;
    /// The name without its extension.
    std::string stem() const { return name.substr(0, name.rfind('.')); }
};

/// Why the walk does not enter a directory or use an entry.
enum class Skip {
    brokenLink,  ///< a link whose target cannot be reached
    tooDeep,
    loop,  ///< a directory that the way to it already passes
};

struct WalkRules {
    bool followsLinks = true;            ///< to directories
    std::size_t maxLevels = kMaxLevels;  ///< of directories, the first one included
};
inline constexpr WalkRules kDescriptorRules{};
inline constexpr WalkRules kArchiveRules{.followsLinks = false, .maxLevels = static_cast<std::size_t>(-1)};

struct Visitor {
    std::function<void(const Entry&)> file;
    /// A directory that cannot be read, an exception of `file`, or too many entries. The walk continues with what it
    /// can reach; only after too many entries it ends.
    std::function<void(const std::string& path, const std::exception&)> failed;
    std::function<void(const std::string& path, Skip)> skipped = [](const std::string&, Skip) {};
};

/// Visits what is in `directory` and below it, in the order of the file system, a subdirectory at the position of its
/// entry. Only std::bad_alloc leaves it, and what the visitor's other functions throw.
void walk(const std::string& directory, const WalkRules& rules, const Visitor& visitor);

}  // namespace repository
