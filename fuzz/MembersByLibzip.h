#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A member as libzip reads it.
struct LibzipMember {
    std::string name;
    std::uint64_t size = 0;
    bool isRead = false;  ///< the data could be read and are valid
    std::string data;
};

/// The members of the archive, in its order, with the data of those of at most `most` bytes. `fault` says why
/// the archive could not be opened, and is otherwise empty. It has its own source file because names in libzip's
/// header clash with those of our reader.
std::vector<LibzipMember> membersByLibzip(std::string_view archive, std::uint64_t most, std::string& fault);
