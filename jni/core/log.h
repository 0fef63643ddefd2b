// Logging and export conventions shared by every source file of the library.
#pragma once

#ifndef LOG_TAG
#define LOG_TAG "PlayerImpl_JNI"
#endif
#include <log/log.h>

// Every handler of the native table, JNI_OnLoad, suspend and VndkGetSurface are visible to
// the rest of the system under their unmangled names; everything else stays hidden.
#define PIJ_EXPORT extern "C" __attribute__((visibility("default")))
