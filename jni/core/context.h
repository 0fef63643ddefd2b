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

// The scan-progress objects shared by every scan event, and the HbbTV event's class. native_setup
// makes them, native_finalize and suspend delete them; service threads read them without a lock, so
// each slot is read and cleared as one step.
struct ScanObjects {
    std::atomic<jclass> atvClass{nullptr};
    std::atomic<jobject> atv{nullptr};
    std::atomic<jclass> dtvClass{nullptr};
    std::atomic<jobject> dtv{nullptr};
    // The HbbTV event's class, for events whose thread cannot find it by name.
    std::atomic<jclass> hbbtvClass{nullptr};
    // Service threads between reading a slot and holding their own local reference to it;
    // a slot's global reference is deleted only once none is left. This gate is correct only
    // because every access to the slots and to this count is sequentially consistent: a
    // reader counts itself, then loads a slot; the deleting side empties the slot, then
    // loads the count. In the one order of those four operations, either the reader's load
    // comes after the slot was emptied (it finds null) or its count comes before the count
    // is loaded (the deleting side waits for it). Acquire and release alone would let both
    // loads see the old values, and the reader copy a reference being deleted.
    std::atomic<int> readers{0};
};
extern ScanObjects gScan;

extern const char* const kPostEventSignature;

}  // namespace pij
