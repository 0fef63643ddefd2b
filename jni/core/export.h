// Every handler of the native table, JNI_OnLoad, suspend and VndkGetSurface are visible to
// the rest of the system under their unmangled names; everything else stays hidden.
#pragma once

#define PIJ_EXPORT extern "C" __attribute__((visibility("default")))
