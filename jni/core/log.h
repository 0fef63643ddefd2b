// Logging and export conventions shared by every source file of the library.
#pragma once

#include <log/log.h>

// A platform header included earlier may have set the default (null) tag; the ALOG macros
// read LOG_TAG where they are used, so setting it here covers every line of the file.
#undef LOG_TAG
#define LOG_TAG "PlayerImpl_JNI"

// Every handler of the native table, JNI_OnLoad, suspend and VndkGetSurface are visible to
// the rest of the system under their unmangled names; everything else stays hidden.
#define PIJ_EXPORT extern "C" __attribute__((visibility("default")))
