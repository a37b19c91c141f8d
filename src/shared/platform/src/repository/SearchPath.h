#pragma once
#include <string>
#include <vector>

namespace repository {

/// The system's repository: "/opt/torvane/platforms".
std::string systemRepository();
/// `platforms` below an application root.
std::string repositoryBelow(const std::string& appRoot);
/// Appends the canonical name of each piece of a search path; nothing for an empty one.
void splitToFullDirs(const std::string& path, std::vector<std::string>& dirs);

/// The canonical names of those that are directories, or may be if a permission were not missing, each once, in order.
std::vector<std::string> distinctDirectories(const std::vector<std::string>& dirs);

}  // namespace repository
