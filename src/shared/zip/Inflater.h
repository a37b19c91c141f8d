#pragma once
#include <zlib.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace zip {

/// Decompresses deflated bytes piece by piece.
class Inflater {
public:
    /// `block`: the maximum number of bytes passed on at once.
    explicit Inflater(std::size_t block);
    ~Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    /// Consumes all of `packed`. Returns an empty text or the error.
    std::string_view unpack(std::string_view packed, const std::function<void(std::string_view)>& sink);
    /// Whether the end of the compressed bytes has been reached.
    bool isDone() const { return isDone_; }

private:
    z_stream stream_{};
    std::size_t block_;
    std::unique_ptr<char[]> buffer_;
    bool isDone_ = false;
};

}  // namespace zip
