// A scratch native table with one row whose signature disagrees with its handler: row 112
// bound straight to its exported handler, which is written with two ints that "()Z" never
// passes. It must not compile (ctest native_row_mismatch*); the real table binds an adapter.
#include "core/log.h"

#include "core/handlers.h"
#include "core/native_row.h"

JNINativeMethod gScratchMethods[] = {
    PIJ_NATIVE("closeTeletext", "()Z", com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext),
    PIJ_NATIVE("resetRrtInformation", "()Z",
               com_vireo_android_tvapi_common_PlayerImpl_resetRrtInformation),
};
