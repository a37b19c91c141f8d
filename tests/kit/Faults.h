#pragma once
#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

/// Stands between a program and the C library: calls that change or read files, and allocations, can be counted, made
/// to fail or end short, kill the process, or be written down. Linked in front of the library under test, or
/// preloaded into a program that the variable ZR_FAULT arms.
namespace faults {

enum class Action {
    none,
    count,    ///< only
    kill,     ///< SIGKILL instead of call `at`
    fail,     ///< call `at` does nothing and gives `error`
    shorten,  ///< call `at`, if it reads or writes, moves half of the bytes
};

/// From now on calls are counted from 1.
void arm(Action action, long at = 0, int error = 0);
/// By a text: "kill:N" or "fail:N:ERRNO", "" for nothing.
void armBy(const char* text);
/// Calls since `arm`, by name.
const std::vector<const char*>& calls();

/// Allocation `at`, counted from 1 from now on, gives no memory; with `andLater` none after it does. 0: none fails.
void armMemory(long at, bool andLater);
long allocations();  ///< since `armMemory`
long live();         ///< blocks that are allocated now
/// The library whose allocation `at` it was, such as "libzip.so.4"; empty when none has failed since `armMemory`.
std::string refused();

/// What the calls since `startLog` did to files.
struct Event {
    enum class Kind { create, write, cut, sync, rename, unlink } kind;
    ino_t file = 0;             ///< for rename and unlink of no use; for sync a directory's, too
    std::string name, newName;  ///< in their directory
    std::uint64_t offset = 0;   ///< of a write; the new size of a cut
    std::string bytes;
};
void startLog();
std::vector<Event> takeLog();

}  // namespace faults
