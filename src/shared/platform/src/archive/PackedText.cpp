#include "archive/PackedText.h"

#include <zlib.h>

#include <algorithm>
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

}  // namespace

std::string packedText(std::string_view text) {
    uLongf size = ::compressBound(text.size());
    std::string bytes(kMark.size() + size, '\0');
    bytes.replace(0, kMark.size(), kMark);
    const auto* const from = reinterpret_cast<const Bytef*>(text.data());
    auto* const to = reinterpret_cast<Bytef*>(bytes.data() + kMark.size());
    if (::compress2(to, &size, from, text.size(), Z_BEST_COMPRESSION) != Z_OK) throw std::bad_alloc();
    bytes.resize(kMark.size() + size);
    return bytes;
}

std::string unpackedText(std::string_view bytes, const std::string& file) {
    if (!bytes.starts_with(kMark)) fail(file, "not a packed text: it does not begin with \"ZRXPACK1\"");
    bytes.remove_prefix(kMark.size());
    std::string text;
    uLongf size = 0;
    uLong taken = 0;
    int result = Z_BUF_ERROR;
    for (std::size_t room = 16 << 10; result == Z_BUF_ERROR && size == text.size(); room *= 4) {
        if (text.size() == kMaxPackedText) fail(file, "the packed text is larger than 1 MiB");
        text.resize(std::min(room, kMaxPackedText));
        size = text.size();
        taken = bytes.size();
        result = ::uncompress2(reinterpret_cast<Bytef*>(text.data()), &size,
                               reinterpret_cast<const Bytef*>(bytes.data()), &taken);
    }
    if (result == Z_MEM_ERROR) throw std::bad_alloc();
    if (result != Z_OK || taken != bytes.size()) fail(file, "the packed text is damaged");
    text.resize(size);
    if (const auto budget = zip::Request::budget(); budget && !budget->spend(size))
        fail(file, "decompressing it would exceed the budget of the call");
    return text;
}

std::string readPackedText(const std::string& file) {
    return unpackedText(wholefile::read(file, 2 * kMaxPackedText), file);
}

}  // namespace archive
