#pragma once
#include <jni.h>

#include <new>
#include <string>
#include <utility>

/// What the typemaps of the JVM binding call. Nothing here throws: a failure is a pending Java exception.
namespace jvm {

/// Raises the exception that is being handled: as `CommandFailedException` with its text, or `COutOfMemoryException`.
void raise(JNIEnv* env) noexcept;

/// The text as UTF-8; a surrogate without its partner becomes U+FFFD. False, with an exception pending, if it cannot be
/// read; for null it is a NullPointerException with `ifNull`.
bool toText(JNIEnv* env, jstring text, std::string& out, const char* ifNull) noexcept;

/// One 16-bit unit for each character: of a character above U+FFFF only the lower 16 bits remain. Bytes that are not
/// UTF-8 become U+FFFD. Null with an exception pending on failure.
jstring toJava(JNIEnv* env, const std::string& text) noexcept;

/// A copy on the heap for a proxy, which deletes it if its class has a destructor.
template <class T>
T* copy(JNIEnv* env, T& value) noexcept {
    try {
        return new T(std::move(value));
    } catch (...) {
        raise(env);
        return nullptr;
    }
}

}  // namespace jvm
