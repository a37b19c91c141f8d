#include "zip/ArchiveSignature.h"

#include <array>
#include <fstream>
#include <string_view>

#include "util/HUTFile.h"

namespace zip {

bool looksLikeArchive(const std::string& file) {
    if (!HUTFile::isFile(file)) return false;
    std::array<char, 4> start{};
    std::ifstream(file, std::ios::binary).read(start.data(), start.size());
    const std::string_view bytes(start.data(), start.size());
    return bytes == "PK\x03\x04" || bytes == "PK\x05\x06";  // of an empty archive
}

}  // namespace zip
