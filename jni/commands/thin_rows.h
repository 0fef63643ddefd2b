// The shape of a thin row: one managed call, one proxy operation, one conversion. A row
// reads as (result type, handler, extra parameters, entry trace, call on the proxy p,
// value without a player, source line, exception class). Every row goes through the
// call frame of core/frame.h.
//
// The trace column is a statement: TRACE(...) for the usual DEBUG entry line (a format
// and its values may follow the text), TRACE_INFO(...) for the one row that traces at
// INFO, NO_TRACE for the rows that write nothing at entry.
//
// Variants, for the rows that behave differently:
//   ROW_THEN_LOG     also logs the converted result after the call (format column `after`);
//   ROW_OR_END       without a player writes the fatal line and ends the process;
//   COMMON_*         exported in the com_vireo_android_tvapi_common_ package form.
#pragma once

#include <utils/String8.h>

#include <cstdint>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"
#include "core/service_text.h"

#define NOARGS
#define ARGS(...) , __VA_ARGS__

#define TRACE(...) ALOGD(__VA_ARGS__)
#define TRACE_INFO(...) ALOGI(__VA_ARGS__)
#define NO_TRACE ((void)0)

// After-call line with the converted result `r` (see PIJ_RESULT_ROW).
#define PIJ_LOG_RESULT(fmt) ALOGD(fmt, static_cast<int>(r))
#define PIJ_NO_RESULT_LOG ((void)0)

#define PIJ_SITE(line, exc) \
    ::pij::Site { __func__, line, ::pij::Exc::exc }

// The signature of a handler. The parameters come last and variadic: by the time a row
// macro passes them on, ARGS(...) has already become ", jint a, ..." with its commas.
#define PIJ_SIGNATURE(ret, fn, ...) PIJ_EXPORT ret fn(JNIEnv* env, jobject thiz __VA_ARGS__)

// The frame with a result: trace, acquire, call and convert, optional after-call line.
#define PIJ_RESULT_BODY(ret, trace, call, after, missing, line, exc)                        \
    {                                                                                       \
        trace;                                                                              \
        return ::pij::withPlayer(env, thiz, PIJ_SITE(line, exc), static_cast<ret>(missing), \
                                 [&](PlayerImpl& p) -> ret {                                \
                                     const ret r = static_cast<ret>(call);                  \
                                     after;                                                 \
                                     return r;                                              \
                                 });                                                        \
    }

#define PIJ_VOID_BODY(trace, call, line, exc)                                            \
    {                                                                                    \
        trace;                                                                           \
        ::pij::withPlayer(env, thiz, PIJ_SITE(line, exc), [&](PlayerImpl& p) { call; }); \
    }

// Without a player these write the fatal line and then end the process (they do not
// return early; going on to the missing player is what ends it).
#define PIJ_OR_END_BODY(ret, trace, call, line, exc)                                              \
    {                                                                                             \
        trace;                                                                                    \
        return ::pij::withPlayerOrEnd(env, thiz, PIJ_SITE(line, exc), [&](PlayerImpl& p) -> ret { \
            return static_cast<ret>(call);                                                        \
        });                                                                                       \
    }

#define ROW(ret, name, params, trace, call, missing, line, exc) \
    PIJ_SIGNATURE(ret, PIJ_IMPL(name), params)                  \
    PIJ_RESULT_BODY(ret, trace, call, PIJ_NO_RESULT_LOG, missing, line, exc)
#define ROW_THEN_LOG(ret, name, params, trace, call, after, missing, line, exc) \
    PIJ_SIGNATURE(ret, PIJ_IMPL(name), params)                                  \
    PIJ_RESULT_BODY(ret, trace, call, PIJ_LOG_RESULT(after), missing, line, exc)
#define COMMON_ROW_THEN_LOG(ret, name, params, trace, call, after, missing, line, exc) \
    PIJ_SIGNATURE(ret, PIJ_COMMON(name), params)                                       \
    PIJ_RESULT_BODY(ret, trace, call, PIJ_LOG_RESULT(after), missing, line, exc)
#define VOID_ROW(name, params, trace, call, line, exc) \
    PIJ_SIGNATURE(void, PIJ_IMPL(name), params) PIJ_VOID_BODY(trace, call, line, exc)
#define COMMON_VOID_ROW(name, params, trace, call, line, exc) \
    PIJ_SIGNATURE(void, PIJ_COMMON(name), params) PIJ_VOID_BODY(trace, call, line, exc)
#define ROW_OR_END(ret, name, params, trace, call, line, exc) \
    PIJ_SIGNATURE(ret, PIJ_IMPL(name), params) PIJ_OR_END_BODY(ret, trace, call, line, exc)
#define VOID_ROW_OR_END(name, params, trace, call, line, exc) \
    PIJ_SIGNATURE(void, PIJ_IMPL(name), params) PIJ_OR_END_BODY(void, trace, call, line, exc)

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
