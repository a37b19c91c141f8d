#include <jni.h>
#include <malloc.h>

#include <cstdint>
#include <new>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "msg/HEXAll.h"
#include "platform/JSONWriter.h"

using namespace teq_platform;

namespace {

std::uint32_t cell;

template <class T>
jlong handle(T* object) {
    return reinterpret_cast<jlong>(object);
}
template <class T>
T& object(jlong handle) {
    return *reinterpret_cast<T*>(handle);
}

class Thrower : public JSONSerializable {
public:
    explicit Thrower(int kind) : kind_(kind) {}
    void toJSON(JSONObjectWriter&) const override {
        switch (kind_) {
            case 0: throw HEXDataException("d\u00e9faut \u20ac");
            case 1: throw std::bad_alloc();
            case 2: throw std::runtime_error("not UTF-8: \xff.");
            default: throw kind_;
        }
    }

private:
    int kind_;
};

}  // namespace

#define ZR_HOOK(Result, name, ...) \
    extern "C" JNIEXPORT Result JNICALL Java_Hooks_##name(JNIEnv* env, jclass, ##__VA_ARGS__)

ZR_HOOK(jlong, objectWriter) { return env ? handle(new JSONObjectWriter) : 0; }
ZR_HOOK(jlong, listWriter) { return env ? handle(new JSONListWriter) : 0; }
ZR_HOOK(jlong, thrower, jint kind) { return env ? handle<JSONSerializable>(new Thrower(kind)) : 0; }
ZR_HOOK(jlong, stream) { return env ? handle<std::ostream>(new std::ostringstream) : 0; }
ZR_HOOK(jstring, textOf, jlong stream) {
    return env->NewStringUTF(dynamic_cast<std::ostringstream&>(object<std::ostream>(stream)).str().c_str());
}
ZR_HOOK(jstring, document, jlong writer) {
    std::ostringstream out;
    object<JSONWriter>(writer).write(out);
    return env->NewStringUTF(std::regex_replace(out.str(), std::regex("\n *"), "").c_str());
}
ZR_HOOK(jlong, cell, jint value) {
    cell = static_cast<std::uint32_t>(value);
    return env ? handle(&cell) : 0;
}
ZR_HOOK(jint, cellValue) { return env ? *reinterpret_cast<unsigned char*>(&cell) : 0; }
ZR_HOOK(jstring, bytesOf, jlong vector) {
    std::string digits;
    for (const unsigned char byte : object<std::vector<std::string>>(vector).front())
        for (const int digit : {byte >> 4, byte & 15}) digits += "0123456789abcdef"[digit];
    return env->NewStringUTF(digits.c_str());
}
ZR_HOOK(jlong, allocated) {
    const struct mallinfo2 now = mallinfo2();
    return env ? static_cast<jlong>(now.uordblks + now.hblkhd) : 0;
}
