// The calls that Speed.java measures, as they would be written by hand.
#include <jni.h>

#include <chrono>

#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatformHelper.h"

namespace {

HTEQHardwarePlatform& platformAt(jlong handle) { return *reinterpret_cast<HTEQHardwarePlatform*>(handle); }

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_Speed_count(JNIEnv*, jclass, jlong handle) { return platformAt(handle).getBRAMCount(); }

JNIEXPORT jstring JNICALL Java_Speed_name(JNIEnv* env, jclass, jlong handle) {
    return env->NewStringUTF(platformAt(handle).getName().c_str());
}

JNIEXPORT jstring JNICALL Java_Speed_document(JNIEnv* env, jclass, jlong handle) {
    return env->NewStringUTF(platformAt(handle).getDescription().c_str());
}

JNIEXPORT jlong JNICALL Java_Speed_child(JNIEnv*, jclass, jlong handle) {
    return reinterpret_cast<jlong>(platformAt(handle).getDefaultClock());
}

/// Nanoseconds of so many loads in C++.
JNIEXPORT jlong JNICALL Java_Speed_loads(JNIEnv* env, jclass, jstring file, jint times) {
    const char* const text = env->GetStringUTFChars(file, nullptr);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i) {
        const HTEQPlatformHelper helper(text, {}, {});
        if (!helper.isValid()) return 0;
    }
    const std::chrono::nanoseconds time = std::chrono::steady_clock::now() - start;
    env->ReleaseStringUTFChars(file, text);
    return time.count();
}

}  // extern "C"
