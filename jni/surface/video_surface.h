#pragma once

#include <jni.h>

#include <cstdint>

#include <gui/Surface.h>
#include <utils/StrongPointer.h>

// The record setHdmiGpio passes to the player.
struct HdmiGpioRec {
    int32_t values[4];
};
static_assert(sizeof(HdmiGpioRec) == 16, "four int32 GPIO values");

namespace pij {

// Drops the producer reference the library holds for mNativeSurfaceTexture (the surface
// release step of native_finalize and of every new bind).
void releaseVideoSurface(JNIEnv* env, jobject thiz);

}  // namespace pij

// Exported for other native code under its plain name: the native Surface behind a managed
// android.view.Surface, or an empty pointer.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
extern "C" __attribute__((visibility("default"))) android::sp<android::Surface> VndkGetSurface(
    JNIEnv* env, jobject surface, jfieldID nativeObjectField, jfieldID lockField);
#if defined(__clang__)
#pragma clang diagnostic pop
#endif
