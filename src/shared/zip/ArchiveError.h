#pragma once
#include <string>

#include "msg/HEXFileFault.h"

namespace zip {

/// An archive that cannot be read: missing, damaged, of an unsupported form, or inconsistent. `what` is
/// "ARCHIVE: TEXT" or "ARCHIVE!MEMBER: TEXT", with what was found and what was expected.
class ArchiveError : public HEXFileFault {
public:
    /// Of a member: its bytes differ from its entry, or the file system does not give them.
    enum class Fault { other, crc, size, unreadable };

    ArchiveError(std::string archive, std::string member, std::string text, Fault fault = Fault::other);
    ~ArchiveError() override;

    const std::string& archive() const { return diagnostic().file; }
    /// Empty if the error concerns the archive itself.
    const std::string& member() const { return diagnostic().member; }
    const std::string& text() const { return diagnostic().text; }
    Fault fault() const { return fault_; }

private:
    Fault fault_;
};

}  // namespace zip
