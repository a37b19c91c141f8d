#pragma once
#include <cstdio>
#include <cstdlib>

/// Ends the program when what must always hold does not: to the fuzzer that is a find, to the replay a failed test.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
