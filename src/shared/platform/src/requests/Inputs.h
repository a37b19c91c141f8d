#pragma once
#include <string>

#include "platform/DerivedFiles.h"

/// What the requests that make files have in common. Functions throw unless they return.
namespace teq_platform::requests {

/// The maximum number of lines in a list for people: problems, losses.
inline constexpr std::size_t kMaxLines = 1000;

/// Opens the archive once for this request, for the reads and for the change that follows.
void openForChange(const std::string& archive);
/// Expects an existing file.
void checkInput(const std::string& file);
/// Expects that nothing has this name, not even a dangling link.
void checkFree(const std::string& destination);
/// Expects a destination with one of the extensions, that may be written and is not the input.
void checkOutput(const std::string& destination, const HSTVector<std::string>& extensions, bool mayReplace,
                 const HSTVector<std::string>& inputs);
/// Expects files that can be read, and types and members of different names that can be extracted again, none of which is
/// `reserved`.
void checkFiles(const HSTVector<NamedFile>& files, const std::string& reserved);

/// The diagnostic of a failure to load `file`, with the path as the user of `file` writes it, and the name of its finding.
/// The model refuses a value without knowing its location; the check of the file does.
HEXDiagnostic located(HEXDiagnostic diagnostic, const std::string& file);

}  // namespace teq_platform::requests
