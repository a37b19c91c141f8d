#include "zip/SourceFile.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "msg/HEXAll.h"
#include "util/OpenBelow.h"
#include "zip/ArchiveError.h"

namespace zip {

SourceFile::SourceFile(std::string path) : path_(std::move(path)) {
    try {
        bytes_ = std::make_unique<FileBytes>(path_);
    } catch (const ArchiveError& error) {
        refuse(error.text());
    }
}

SourceFile::SourceFile(int folder, std::string_view path, std::string shown) : path_(std::move(shown)) {
    util::Descriptor file = util::openBelow(folder, path, O_RDONLY);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        refuse("cannot be opened: " + std::generic_category().message(errno));
    if (!S_ISREG(status.st_mode)) refuse("is not a regular file");
    bytes_ = std::make_unique<FileBytes>(std::move(file));
}

void SourceFile::refuse(const std::string& text) const {
    throw HEXUserException("file '" + path_ + "' cannot be put into an archive: " + text);
}

void SourceFile::checkUnchanged() const {
    if (!bytes_->isAsOpened()) refuse("was changed while it was read");
}

}  // namespace zip
