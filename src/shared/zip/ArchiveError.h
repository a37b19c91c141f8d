#pragma once
#include <string>

#include "msg/HEXAll.h"

namespace zip {

/// An archive that cannot be read: missing, damaged, of a form that is not read, or lying about itself. `what` is
/// "ARCHIVE: TEXT" or "ARCHIVE!MEMBER: TEXT", with what was found and what was expected.
class ArchiveError : public HEXDataException {
public:
    ArchiveError(std::string archive, std::string member, std::string text);
    ~ArchiveError() override;

    const std::string& archive() const { return archive_; }
    /// Empty when the fault is the archive's own.
    const std::string& member() const { return member_; }
    const std::string& text() const { return text_; }

private:
    std::string archive_, member_, text_;
};

}  // namespace zip
