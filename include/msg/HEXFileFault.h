#pragma once
#include <cstdint>
#include <string>

#include "msg/HEXAll.h"

/// What is wrong with a file, and where, as far as that is known.
struct ZR_API FileProblem {
    std::string file = {};               ///< path as it was given, or as a descriptor names it
    std::string member = {};             ///< of an archive: a stranger's text; empty for the file itself
    std::uint64_t line = 0, column = 0;  ///< from 1; 0 when there is no place in the text
    std::string text = {};               ///< what was found and what was expected
    std::string id = {};                 ///< of the message that told it, as "74-60"; may be empty

    /// "file!member:line:column: text", fit for a terminal but for `file` and `text`.
    std::string describe() const;
};

/// Malformed input whose place is known. The words are `FileProblem::describe`.
class ZR_API HEXFileFault : public HEXDataException {
public:
    explicit HEXFileFault(FileProblem problem);
    ~HEXFileFault() override;
    const FileProblem& problem() const { return problem_; }

private:
    FileProblem problem_;
};
