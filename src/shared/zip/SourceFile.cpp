#include "zip/SourceFile.h"

#include <utility>

#include "msg/HEXAll.h"
#include "zip/ArchiveError.h"

namespace zip {

SourceFile::SourceFile(std::string path) : path_(std::move(path)) {
    try {
        bytes_ = std::make_unique<FileBytes>(path_);
    } catch (const ArchiveError& error) {
        refuse("it " + error.text());
    }
}

void SourceFile::refuse(const std::string& text) const {
    throw HEXUserException("file '" + path_ + "' cannot be put into an archive: " + text);
}

void SourceFile::checkUnchanged() const {
    if (!bytes_->isAsOpened()) refuse("it was changed while it was read");
}

}  // namespace zip
