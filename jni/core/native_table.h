#pragma once

#include <jni.h>

namespace pij {

constexpr int kNativeMethodCount = 150;

// The registration table, in registration order (row = index). Exposed so that tools
// which check a managed build against the library read the very rows we register.
const JNINativeMethod* nativeMethods();

}  // namespace pij
