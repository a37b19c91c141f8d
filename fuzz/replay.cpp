#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "kit/Run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Runs a target over each file of the directories given. A directory without files is a fault: it would test
/// nothing.
int main(int count, char** arguments) {
    for (const std::string& directory : std::vector<std::string>(arguments + 1, arguments + count)) {
        std::size_t files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            // A copy of its own size on the heap, so that a read past its end is detected.
            const std::string text = contentOf(entry.path());
            const std::vector<std::uint8_t> bytes(text.begin(), text.end());
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++files;
        }
        if (files == 0) return std::fprintf(stderr, "no files in %s\n", directory.c_str()), 1;
    }
    return count > 1 ? 0 : 2;
}
