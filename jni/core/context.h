// Process-wide caches of managed members and the shared scan objects.
#pragma once

#include <jni.h>

#include <atomic>

namespace pij {

// The managed player class: the table is registered on it and native_init reads its members.
constexpr char kPlayerClass[] = "com/vireo/android/tvapi/impl/PlayerImpl";

// Members of the managed player class cached by native_init.
struct PlayerFields {
    jfieldID surfaceTexture = nullptr;  // mNativeSurfaceTexture "J"
    jfieldID context = nullptr;         // mNativeContext "J"
    jmethodID postEvent = nullptr;      // static postEventFromNative
    jfieldID playerContext = nullptr;   // mPlayerContext "I", cached only
};
extern PlayerFields gPlayerFields;

// Fields of android/view/Surface cached by JNI_OnLoad.
struct SurfaceFields {
    jfieldID nativeObject = nullptr;  // mNativeObject "J"
    jfieldID lock = nullptr;          // mLock "Ljava/lang/Object;"
};
extern SurfaceFields gSurfaceFields;

// The scan-progress objects shared by every scan event. native_setup makes them,
// native_finalize and suspend delete them; service threads read them without a lock,
// so each slot is read and cleared as one step.
struct ScanObjects {
    std::atomic<jclass> atvClass{nullptr};
    std::atomic<jobject> atv{nullptr};
    std::atomic<jclass> dtvClass{nullptr};
    std::atomic<jobject> dtv{nullptr};
    // Service threads between reading a slot and holding their own local reference to it;
    // a slot's global reference is deleted only once none is left.
    std::atomic<int> readers{0};
};
extern ScanObjects gScan;

extern const char* const kPostEventSignature;

}  // namespace pij
