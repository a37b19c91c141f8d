#include "archive/PackedText.h"

#include <libdeflate.h>

#include <algorithm>
#include <memory>
#include <new>

#include "msg/HEXFileFault.h"
#include "util/WholeFile.h"
#include "zip/Request.h"

namespace archive {
namespace {

constexpr std::string_view kMark = "ZRXPACK1";

[[noreturn]] void fail(const std::string& file, const char* text) {
    throw HEXFileFault({.file = file, .text = text});
}

template <auto release>
struct Release {
    void operator()(auto* owned) const { release(owned); }
};
using Compressor = std::unique_ptr<libdeflate_compressor, Release<libdeflate_free_compressor>>;
using Decompressor = std::unique_ptr<libdeflate_decompressor, Release<libdeflate_free_decompressor>>;

}  // namespace

std::string packedText(std::string_view text) {
    const Compressor compressor(libdeflate_alloc_compressor(12));
    if (!compressor) throw std::bad_alloc();
    std::string bytes(kMark.size() + libdeflate_zlib_compress_bound(compressor.get(), text.size()), '\0');
    bytes.replace(0, kMark.size(), kMark);
    const std::size_t size = libdeflate_zlib_compress(compressor.get(), text.data(), text.size(),
                                                      bytes.data() + kMark.size(), bytes.size() - kMark.size());
    bytes.resize(kMark.size() + size);
    return bytes;
}

std::string unpackedText(std::string_view bytes, const std::string& file) {
    if (!bytes.starts_with(kMark)) fail(file, "not a packed text: it does not begin with \"ZRXPACK1\"");
    bytes.remove_prefix(kMark.size());
    const Decompressor decompressor(libdeflate_alloc_decompressor());
    if (!decompressor) throw std::bad_alloc();
    std::string text;
    std::size_t taken = 0, size = 0;
    auto result = LIBDEFLATE_INSUFFICIENT_SPACE;
    for (std::size_t room = 16 << 10; result == LIBDEFLATE_INSUFFICIENT_SPACE; room *= 4) {
        if (text.size() == kMaxPackedText) fail(file, "the packed text is larger than 1 MiB");
        text.resize(std::min(room, kMaxPackedText));
        result = libdeflate_zlib_decompress_ex(decompressor.get(), bytes.data(), bytes.size(), text.data(),
                                               text.size(), &taken, &size);
    }
    if (result != LIBDEFLATE_SUCCESS || taken != bytes.size()) fail(file, "the packed text is damaged");
    text.resize(size);
    if (const auto budget = zip::Request::budget(); budget && !budget->spend(size))
        fail(file, "decompressing it would exceed the budget of the call");
    return text;
}

std::string readPackedText(const std::string& file) {
    return unpackedText(wholefile::read(file, 2 * kMaxPackedText), file);
}

}  // namespace archive
