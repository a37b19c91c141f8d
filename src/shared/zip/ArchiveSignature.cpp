#include "zip/ArchiveSignature.h"

#include <array>
#include <fstream>

#include "util/HUTFile.h"

namespace zip {

bool beginsAsArchive(std::string_view content) {
    return content.starts_with("PK\x03\x04") || content.starts_with("PK\x05\x06");  // of an empty archive
}

bool looksLikeArchive(const std::string& file) {
    if (!HUTFile::isFile(file)) return false;
    std::array<char, 4> start{};
    std::ifstream(file, std::ios::binary).read(start.data(), start.size());
    return beginsAsArchive({start.data(), start.size()});
}

}  // namespace zip
