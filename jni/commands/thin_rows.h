// The shape of a thin row: one managed call, one proxy operation, one conversion. A row
// reads as (result type, handler, extra parameters, entry trace, call on the proxy p,
// value without a player, source line, exception class). Every row goes through the
// call frame of core/frame.h.
#pragma once

#include <utils/String8.h>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"

#define NOARGS
#define ARGS(...) , __VA_ARGS__

// Entry trace at DEBUG, then the frame.
#define ROW(ret, name, params, text, call, missing, line, exc)                                \
    PIJ_EXPORT ret PIJ_IMPL(name)(JNIEnv * env, jobject thiz params) {                        \
        ALOGD(text);                                                                          \
        return ::pij::withPlayer(env, thiz, ::pij::Site{__func__, line, ::pij::Exc::exc},     \
                                 static_cast<ret>(missing),                                   \
                                 [&](PlayerImpl & p) -> ret { return static_cast<ret>(call); }); \
    }

#define VOID_ROW(name, params, text, call, line, exc)                                      \
    PIJ_EXPORT void PIJ_IMPL(name)(JNIEnv * env, jobject thiz params) {                    \
        ALOGD(text);                                                                       \
        ::pij::withPlayer(env, thiz, ::pij::Site{__func__, line, ::pij::Exc::exc},         \
                          [&](PlayerImpl & p) { call; });                                  \
    }

namespace pij {

// An out text buffer: an empty String8 handed to the operation, then a new managed string
// of its characters (an empty text gives an empty string).
template <typename Op>
jstring textFrom(JNIEnv* env, Op&& op) {
    android::String8 text;
    op(text);
    return env->NewStringUTF(text.c_str());
}

}  // namespace pij
