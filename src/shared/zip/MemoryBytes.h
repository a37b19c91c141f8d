#pragma once
#include <cstring>
#include <string>
#include <utility>

#include "zip/ByteSource.h"

namespace zip {

/// An archive in memory.
class MemoryBytes final : public ByteSource {
public:
    explicit MemoryBytes(std::string bytes) : bytes_(std::move(bytes)) {}
    std::uint64_t size() const override { return bytes_.size(); }
    bool read(std::uint64_t offset, char* target, std::size_t count) const override {
        if (offset > bytes_.size() || count > bytes_.size() - offset) return false;
        if (count > 0) std::memcpy(target, bytes_.data() + offset, count);
        return true;
    }

private:
    std::string bytes_;
};

}  // namespace zip
