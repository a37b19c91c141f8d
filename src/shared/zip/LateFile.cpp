#include "zip/LateFile.h"

#include <utility>

namespace zip {

LateFile::LateFile(Open open) : open_(std::move(open)), stamp_(open_().bytes().stamp()) {}

bool LateFile::read(std::uint64_t offset, char* target, std::size_t count) const {
    if (!file_) file_.emplace(open_());
    if (!(file_->bytes().stamp() == stamp_)) file_->refuse("it was changed while it was read");
    if (!file_->bytes().read(offset, target, count)) file_->refuse("it cannot be read, or was truncated");
    file_->checkUnchanged();
    if (offset + count == size()) file_.reset();
    return true;
}

}  // namespace zip
