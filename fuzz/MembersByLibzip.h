#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A member as libzip reads it.
struct LibzipMember {
    std::string name;
    std::uint64_t size = 0;
    bool isRead = false;  ///< the data could be read, and are sound
    std::string data;
};

/// The members of the archive, in its order, with the data of those of at most `most` bytes. `fault` tells why
/// the archive could not be opened, and is else empty. Its source stands apart because the names of libzip's header
/// clash with those of our reader.
std::vector<LibzipMember> membersByLibzip(std::string_view archive, std::uint64_t most, std::string& fault);
