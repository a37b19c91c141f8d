#pragma once
#include <functional>
#include <random>
#include <string>
#include <string_view>

/// What Tcl reads in a way of its own.
inline constexpr std::string_view kSpecial = "[]{}()$\"\\;#*~-+=:/.,'&|<>? \n\t\x1a\x7f!";

/// Sanitizers make the tests twenty times as slow: there, a part of the texts is used.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr int kPart = 20;
#else
inline constexpr int kPart = 1;
#endif

/// Each text of up to three of the special characters, then random ones.
inline void forEachText(const std::function<void(const std::string&)>& use) {
    int number = 0;
    for (const char a : kSpecial) {
        use({a});
        for (const char b : kSpecial) {
            use({a, b});
            for (const char c : kSpecial)
                if (number++ % kPart == 0) use({a, b, c});
        }
    }
    std::mt19937 random(16);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (int i = 0; i < 100'000 / kPart; ++i) {
        std::string text;
        for (std::size_t length = 1 + below(12); length > 0; --length) {
            const std::size_t kind = below(8);
            text += kind == 0   ? std::string(1, static_cast<char>(1 + below(0x7F)))
                    : kind == 1 ? std::string{static_cast<char>(0xC3), static_cast<char>(0x80 + below(0x40))}
                    : kind == 2 ? "\xE2\x82\xAC"
                    : kind < 5  ? std::string(1, static_cast<char>('a' + below(26)))
                                : std::string(1, kSpecial[below(kSpecial.size())]);
        }
        use(text);
    }
}

/// As Tcl's `binary encode hex`.
inline std::string hex(std::string_view text) {
    std::string digits;
    for (const unsigned char c : text) digits += "0123456789abcdef"[c >> 4], digits += "0123456789abcdef"[c & 15];
    return digits;
}
