#pragma once
#include <map>
#include <string>

#include "kit/ZipBuilder.h"
#include "readers/Capture.h"

/// Archives of a test, in a directory of their own.
class CfaArchives {
public:
    /// Writes an archive with these members; gives its path.
    std::string put(const std::string& name, const std::map<std::string, std::string>& members) const {
        builder::Zip zip;
        for (const auto& [member, content] : members) zip.entries.emplace_back(member, content);
        return scratch_.put(name, zip.build());
    }
    /// The same for a file that is not an archive.
    std::string text(const std::string& name, const std::string& content) const {
        return scratch_.put(name, content);
    }
    std::string path(const std::string& name) const { return scratch_.path(name); }

private:
    Scratch scratch_;
};
