#pragma once
#include <cstdint>
#include <string>

#include "msg/HEXAll.h"

/// What is wrong with a file, and where, as far as known.
struct ZR_API FileProblem {
    std::string file = {};               ///< path as given, or as named by a descriptor
    std::string member = {};             ///< of an archive: untrusted text; empty for the file itself
    std::uint64_t line = 0, column = 0;  ///< from 1; 0 if there is no location in the text
    std::string text = {};               ///< what was found and what was expected
    std::string id = {};                 ///< of the message that reported it, as "74-60"; may be empty

    /// "file!member:line:column: text". Safe to print on a terminal, except `file` and `text`.
    std::string describe() const;
};

/// Malformed input with a known location. The text is `FileProblem::describe`.
class ZR_API HEXFileFault : public HEXDataException {
public:
    explicit HEXFileFault(FileProblem problem);
    ~HEXFileFault() override;
    const FileProblem& problem() const { return problem_; }

private:
    FileProblem problem_;
};
