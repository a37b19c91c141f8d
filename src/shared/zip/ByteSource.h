#pragma once
#include <cstddef>
#include <cstdint>

namespace zip {

/// The bytes that an archive is read from.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual std::uint64_t size() const = 0;
    /// Fills `target` with `count` bytes starting at `offset`. False if there are fewer, or they cannot be read.
    virtual bool read(std::uint64_t offset, char* target, std::size_t count) const = 0;
};

}  // namespace zip
