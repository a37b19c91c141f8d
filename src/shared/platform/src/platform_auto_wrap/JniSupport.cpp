#include "platform_auto_wrap/JniSupport.h"

#include <emmintrin.h>

#include <exception>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"

namespace jvm {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void append(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    const unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(lead[following] | (c >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) out += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

std::string fromUtf16(const jchar* units, std::size_t size) {
    std::string out;
    out.reserve(size);
    for (std::size_t i = 0; i < size; ++i) {
        char32_t c = units[i];
        if (isHighSurrogate(c) && i + 1 < size && isLowSurrogate(units[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (units[++i] - 0xDC00);
        else if (isHighSurrogate(c) || isLowSurrogate(c))
            c = kReplacement;
        append(out, c);
    }
    return out;
}

/// The character at the start of `text`, which is removed from it.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = HSTStringUtils::utf8Length(text);
    char32_t c = kReplacement;
    if (length == 1) {
        c = byte(0);
    } else if (length > 1) {
        c = byte(0) & (0x7F >> length);
        for (std::size_t i = 1; i < length; ++i) c = (c << 6) | (byte(i) & 0x3F);
    }
    text.remove_prefix(length ? length : 1);
    return c;
}

/// The number of ASCII characters other than zero at the start.
std::size_t plainPrefix(std::string_view text) {
    std::size_t size = 0;
    for (; size + sizeof(__m128i) <= text.size(); size += sizeof(__m128i)) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + size));
        if (_mm_movemask_epi8(_mm_or_si128(bytes, _mm_cmpeq_epi8(bytes, _mm_setzero_si128())))) break;
    }
    while (size < text.size() && text[size] > 0) ++size;
    return size;
}

/// Whether the text is the same in the JVM's own form of UTF-8, in which each unit of UTF-16 stands for itself and zero
/// has two bytes.
bool isModifiedUtf8(std::string_view text) {
    for (;;) {
        text.remove_prefix(plainPrefix(text));
        if (text.empty()) return true;
        const std::size_t length = HSTStringUtils::utf8Length(text);
        if (length != 2 && length != 3) return false;
        text.remove_prefix(length);
    }
}

std::string toModifiedUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        if (const char32_t unit = takeCharacter(text) & 0xFFFF)
            append(out, unit);
        else
            out += "\xC0\x80";
    }
    return out;
}

void throwNew(JNIEnv* env, const char* name, const char* text) {
    env->ExceptionClear();
    if (jclass type = env->FindClass(name)) env->ThrowNew(type, text);
}

void throwCommandFailed(JNIEnv* env, const std::string& text) {
    env->ExceptionClear();
    jstring message = toJava(env, text);
    if (!message) return;
    jclass type = env->FindClass("ui/frmwork/cmd/CommandFailedException");
    if (!type) return;
    const jmethodID constructor = env->GetMethodID(type, "<init>", "(Ljava/lang/String;)V");
    if (!constructor) return;
    if (jobject exception = env->NewObject(type, constructor, message))
        env->Throw(static_cast<jthrowable>(exception));
}

}  // namespace

void raise(JNIEnv* env) noexcept {
    try {
        try {
            throw;
        } catch (const HEXAll& e) {
            throwCommandFailed(env, e.message().text);
        } catch (const std::bad_alloc&) {
            throwNew(env, "ui/frmwork/COutOfMemoryException", "Out of memory");
        } catch (const std::exception& e) {
            throwCommandFailed(env, e.what());
        }
    } catch (const std::bad_alloc&) {
        throwNew(env, "ui/frmwork/COutOfMemoryException", "Out of memory");
    } catch (...) {
        throwNew(env, "ui/frmwork/cmd/CommandFailedException", "Unknown exception occurred");
    }
}

bool toText(JNIEnv* env, jstring text, std::string& out, const char* ifNull) noexcept {
    if (!text) {
        throwNew(env, "java/lang/NullPointerException", ifNull);
        return false;
    }
    const jchar* units = env->GetStringChars(text, nullptr);
    if (!units) return false;
    bool done = true;
    try {
        out = fromUtf16(units, static_cast<std::size_t>(env->GetStringLength(text)));
    } catch (...) {
        done = false;
        raise(env);
    }
    env->ReleaseStringChars(text, units);
    return done;
}

jstring toJava(JNIEnv* env, const std::string& text) noexcept {
    try {
        if (text.size() > std::numeric_limits<jsize>::max() / 3)
            throw std::length_error("the text is too long for Java");
        // Several times faster than NewString, which takes units that are then made bytes again.
        return env->NewStringUTF(isModifiedUtf8(text) ? text.c_str() : toModifiedUtf8(text).c_str());
    } catch (...) {
        raise(env);
        return nullptr;
    }
}

}  // namespace jvm
