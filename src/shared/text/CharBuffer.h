#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace text {

/// A text that grows at its end. Unlike a std::string, it leaves new bytes uninitialized and its memory can be given
/// away; it asks for far more memory than it needs, because pages that nobody writes to cost nothing.
class CharBuffer {
public:
    explicit CharBuffer(std::size_t expected = 0) {
        if (expected > 0) reserve_(expected);
    }

    std::size_t size() const { return size_; }
    std::string_view view() const { return {bytes_.get(), size_}; }
    /// `count` more bytes, which the caller fills in.
    char* extend(std::size_t count) {
        if (count > capacity_ - size_) reserve_(size_ + count);
        return bytes_.get() + std::exchange(size_, size_ + count);
    }
    CharBuffer& operator+=(std::string_view text) {
        std::copy(text.begin(), text.end(), extend(text.size()));
        return *this;
    }
    CharBuffer& operator+=(char c) {
        *extend(1) = c;
        return *this;
    }
    /// Keeps the first `size` bytes.
    void cut(std::size_t size) { size_ = size; }
    /// The bytes with a final NUL; the buffer is empty afterwards.
    std::unique_ptr<char[]> take() {
        *this += '\0';
        size_ = capacity_ = 0;
        return std::move(bytes_);
    }

private:
    void reserve_(std::size_t needed) {
        constexpr std::size_t kMin = 256, kSmall = 16 << 10, kLarge = 1 << 20;
        const std::size_t more = capacity_ < kSmall ? std::max(2 * capacity_, kMin) : std::max(4 * capacity_, kLarge);
        const std::size_t capacity = std::max(needed, more);
        auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
        if (size_ > 0) std::memcpy(bytes.get(), bytes_.get(), size_);
        bytes_ = std::move(bytes);
        capacity_ = capacity;
    }

    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0, capacity_ = 0;
};

}  // namespace text
