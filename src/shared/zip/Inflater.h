#pragma once
#include <zlib.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace zip {

/// Unpacks deflated bytes piece by piece.
class Inflater {
public:
    /// `block`: how many unpacked bytes are handed out at once, at most.
    explicit Inflater(std::size_t block);
    ~Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    /// Takes all of `packed`. Empty, or what went wrong.
    std::string_view unpack(std::string_view packed, const std::function<void(std::string_view)>& sink);
    /// Whether the end of the packed bytes has been reached.
    bool isDone() const { return isDone_; }

private:
    z_stream stream_{};
    std::size_t block_;
    std::unique_ptr<char[]> buffer_;
    bool isDone_ = false;
};

}  // namespace zip
