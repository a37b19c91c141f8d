#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace util {

/// Called with the names that the system looks up for a step of a path. A throw ends the walk.
using Lookups = std::function<void(std::uint64_t names)>;

/// An absolute path with one separator before each name, and none that is ".".
std::string withoutDots(const std::string& path);
/// The same, where ".." removes the name before it.
std::string withoutParents(const std::string& path);

/// Whether the way of a path may follow a link, or whether there are links is not known. One question to the system.
bool mayFollowLinks(const std::string& path);

/// The name of what an absolute path leads to, without links, "." and "..". From the first name that does not exist,
/// ".." removes the name before it. A path that cannot be followed is returned as if it had no links.
std::string withoutLinks(const std::string& path, const Lookups& lookups);

}  // namespace util
