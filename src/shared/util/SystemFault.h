#pragma once
#include <string>

/// Errors of the system, as opposed to errors in files: too many open files, no permission, a failing disk. Many
/// functions answer that a file or a member is missing when it cannot be opened. Whoever needs to know the difference
/// asks here afterwards.
namespace util {

struct SystemFault {
    std::string path;
    int number = 0;    ///< see `errno`
    std::string text;  ///< "cannot be opened: Permission denied"
};

/// Remembers the first error of the thread, if `number` is one of the system. Never throws.
void noteSystemFault(const std::string& path, int number, const char* action = "opened") noexcept;
/// Likewise, if the system does not say what this path leads to: a file that seems to be missing may be in a directory that
/// may not be searched.
void noteWhyMissing(const std::string& path) noexcept;
/// Null if there was none since the last call of `forgetSystemFaults`.
const SystemFault* systemFault();
void forgetSystemFaults();
/// Forgets an error that concerns one file only (no permission, a failing disk): the next file may be read. Others, such
/// as too many open files, remain.
void forgetFaultOfOneFile();

}  // namespace util
