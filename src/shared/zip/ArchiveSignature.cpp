#include "zip/ArchiveSignature.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>

#include "util/Descriptor.h"

namespace zip {

bool beginsAsArchive(std::string_view content) {
    return content.starts_with("PK\x03\x04") || content.starts_with("PK\x05\x06");  // of an empty archive
}

bool looksLikeArchive(const std::string& file) {
    const util::Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!opened.isOpen() || ::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    std::array<char, 4> start{};
    const ssize_t size = ::pread(opened.get(), start.data(), start.size(), 0);
    return size > 0 && beginsAsArchive({start.data(), static_cast<std::size_t>(size)});
}

}  // namespace zip
