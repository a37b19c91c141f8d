#pragma once
#include <string>

#include "msg/HEXFileFault.h"

namespace zip {

/// An archive that cannot be read: missing, damaged, of a form that is not read, or lying about itself. `what` is
/// "ARCHIVE: TEXT" or "ARCHIVE!MEMBER: TEXT", with what was found and what was expected.
class ArchiveError : public HEXFileFault {
public:
    enum class Fault { other, crc, size };  ///< of a member whose bytes are not those that the directory tells

    ArchiveError(std::string archive, std::string member, std::string text, Fault fault = Fault::other);
    ~ArchiveError() override;

    const std::string& archive() const { return diagnostic().file; }
    /// Empty when the fault is the archive's own.
    const std::string& member() const { return diagnostic().member; }
    const std::string& text() const { return diagnostic().text; }
    Fault fault() const { return fault_; }

private:
    Fault fault_;
};

}  // namespace zip
