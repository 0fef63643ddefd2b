#pragma once

#include <jni.h>

#include <cstdint>
#include <utility>

#include <gui/Surface.h>
#include <utils/StrongPointer.h>

// The record setHdmiGpio passes to the player.
struct HdmiGpioRec {
    int32_t values[4];
};
static_assert(sizeof(HdmiGpioRec) == 16, "four int32 GPIO values");

namespace pij {

// One strong reference on a buffer producer, held on a managed object's behalf under the
// library's own identity and dropped when this goes. It moves and swaps, and is never
// assigned: whoever holds the global lock swaps a reference in or out, and the one taken out
// is dropped after the lock is let go.
class HeldProducer {
public:
    HeldProducer() = default;
    explicit HeldProducer(const android::sp<android::IGraphicBufferProducer>& producer);
    HeldProducer(HeldProducer&& other) noexcept : mProducer(other.mProducer) {
        other.mProducer = nullptr;
    }
    ~HeldProducer();
    HeldProducer(const HeldProducer&) = delete;
    HeldProducer& operator=(const HeldProducer&) = delete;
    HeldProducer& operator=(HeldProducer&&) = delete;

    void swap(HeldProducer& other) noexcept { std::swap(mProducer, other.mProducer); }

private:
    android::IGraphicBufferProducer* mProducer = nullptr;
};

// The surface release step of native_finalize: drops the producer reference held for the
// object's binding, whatever the state of its player.
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
