#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "text/HSTVector.h"

/// The files of a folder that are left out of its archive, or probably should be.
namespace loading {

class PackPatterns {
public:
    /// `patterns`: see `PlatformPacker::Options`; those of the folder's ".zrignore" are added.
    PackPatterns(const HSTVector<std::string>& patterns, const std::string& folder);

    /// Whether the file or folder of this path in the folder is left out.
    bool exclude(const std::string& path);

private:
    struct Pattern {
        std::string text;
        bool isFolderOnly, isPath;
    };
    void add_(std::string_view pattern);

    std::string folder_;
    HSTVector<Pattern> patterns_;
    std::size_t comparisons_ = 0;
};

/// Whether a part of the path begins with a dot.
bool isHidden(const std::string& path);
/// Whether editors and merge tools give backups such names.
bool isBackup(const std::string& path);

}  // namespace loading
