// The library's logging, included first by every source file of the library.
//
// Every line the library writes carries the tag "PlayerImpl_JNI". liblog's macros read
// LOG_TAG where they are expanded and its header defines a null one if none is set, so every
// source file of the library includes this header first, before any platform header (one
// that comes earlier and sets LOG_TAG makes the definition below a redefinition, which the
// build refuses).
#pragma once

#define LOG_TAG "PlayerImpl_JNI"
#include <log/log.h>
