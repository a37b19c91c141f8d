#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "Check.h"
#include "zip/MemberName.h"

namespace {

/// The shortest form of a code point.
std::string encoded(std::uint32_t point) {
    const auto tail = [point](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) return {static_cast<char>(point)};
    if (point < 0x800) return {static_cast<char>(0xC0 | (point >> 6)), tail(0)};
    if (point < 0x10000) return {static_cast<char>(0xE0 | (point >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (point >> 18)), tail(12), tail(6), tail(0)};
}

/// Whether decoding without care and encoding again gives the text back.
bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t size = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        std::uint32_t point = size == 1 ? first : first & (0x7Fu >> size);
        for (const char c : text.substr(at, size).substr(1)) point = point << 6 | (c & 0x3F);
        const bool isPoint = point < 0xD800 || (point > 0xDFFF && point < 0x110000);
        if (!isPoint || text.substr(at, size) != encoded(point)) return false;
        at += size;
    }
    return true;
}

/// Whether the name, by the rules of the file system's own library, stays below a directory and is as short as it can
/// be.
bool isPlainBelow(const std::filesystem::path& name, std::string_view text) {
    const std::string directory = "/a/b/";
    const std::string whole = std::filesystem::path(directory + name.native()).lexically_normal();
    if (name.is_absolute() || whole != directory + std::string(text) || whole == directory) return false;
    for (const std::string part : name) {
        const bool isShown = part.empty() || part.find_first_not_of(". ") != part.npos;
        if (part.size() > 255 || part.starts_with("..") || part.ends_with("..") || !isShown) return false;
    }
    return true;
}

bool mayBeWritten(std::string_view name, bool hasData) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    if (name.empty() || name.size() > 1024 || (hasData && name.back() == '/')) return false;
    if (name.substr(1, 1) == ":" && kLetters.find(name[0]) != std::string_view::npos) return false;
    for (std::string_view rest = name; !rest.empty() && rest.back() != '/'; rest.remove_suffix(1)) {
        if (rest.back() == ';') return false;
        if (rest.back() < '0' || rest.back() > '9') break;
    }
    for (const char c : name)
        if (c == '\\' || c == 0x7f || (c >= 0 && c < ' ')) return false;
    return isUtf8(name) && isPlainBelow(name, name);
}

}  // namespace

/// The judgement of names agrees with a slower one that is made in another way.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view name(reinterpret_cast<const char*>(data), size);
    for (const bool hasData : {false, true})
        require(zip::memberNameFault(name, hasData).empty() == mayBeWritten(name, hasData), "both judgements agree");
    return 0;
}
