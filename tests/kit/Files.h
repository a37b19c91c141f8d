#pragma once
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

/// The bytes of a file; empty when it cannot be read.
inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Writes a file, and the directories above it; gives its path.
inline std::string write(const std::string& path, std::string_view content) {
    if (const auto folder = std::filesystem::path(path).parent_path(); !folder.empty())
        std::filesystem::create_directories(folder);
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

inline std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

/// How many descriptors this process has open.
inline std::size_t openFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd"), end;
    return static_cast<std::size_t>(std::distance(files, end));
}
