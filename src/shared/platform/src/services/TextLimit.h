#pragma once
#include <cstddef>

#include "msg/HEXFileFault.h"

namespace services {

/// Paths repeat the keys above them, so that a small document can have many gigabytes of them.
class TextLimit {
public:
    static constexpr std::size_t kMaxBytes = 16 << 20;

    /// Throws `HEXFileFault` if there would be more than `kMaxBytes`.
    void add(std::size_t bytes) {
        if (bytes > kMaxBytes - used_) throw HEXFileFault({.text = "the document has more than 16 MiB of key paths"});
        used_ += bytes;
    }

private:
    std::size_t used_ = 0;
};

}  // namespace services
