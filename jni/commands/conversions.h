// Conversions the thin commands make between managed values and the proxy's.
#pragma once

#include <jni.h>
#include <utils/String8.h>

#include <cstdint>

#include "core/service_text.h"

namespace pij {

// A managed boolean reaches the proxy as true exactly when its byte (or int) is non-zero.
template <typename T>
inline bool asBool(T v) {
    return v != 0;
}

// An out text buffer: an empty String8 handed to the operation, then a new managed string
// of its characters (an empty text gives an empty string; see newStringFromService).
template <typename Op>
jstring textFrom(JNIEnv* env, const char* what, Op&& op) {
    android::String8 text;
    op(text);
    return newStringFromService(env, text.c_str(), what);
}

// A String8 the operation returns, as a new managed string.
inline jstring textOf(JNIEnv* env, const char* what, const android::String8& text) {
    return newStringFromService(env, text.c_str(), what);
}

// An out byte: the operation stores one byte and the handler returns it whole. The byte
// starts at 0 so that an operation that stores nothing answers false rather than whatever
// the stack held.
template <typename Op>
jboolean byteFrom(Op&& op) {
    uint8_t byte = 0;
    op(byte);
    return static_cast<jboolean>(byte);
}

}  // namespace pij
