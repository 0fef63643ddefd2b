// Binding of the TV video window to an android.view.Surface, and the HDMI GPIO command.
#include "core/log.h"

#include "surface/video_surface.h"

#include <algorithm>
#include <cinttypes>
#include <cstddef>
#include <map>
#include <new>

#include "core/context.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "surface/VTvDisaplyImpl.h"

namespace pij {
namespace {

// Source lines of the failure reports.
constexpr int kLineSetSurfaceNoPlayer = 2757;
constexpr int kLineSetSurfaceNoNative = 2763;
constexpr int kLineSetSurfaceNoProducer = 2768;
constexpr int kLineHdmiGpioNoPlayer = 2840;
constexpr int kLineHdmiGpioNullArray = 2844;

// The identity under which the library holds the bound producer's strong reference.
const void* producerRefId() { return reinterpret_cast<const void*>(&releaseVideoSurface); }

// Room for the display object. Our declaration of VTvDisaplyImpl shows no members, but the
// vendor's constructor writes whatever members its own class has, so the object is not made
// with `new` on our size: it is built in place here, in 4 KiB aligned for any scalar, far
// more than a display handle needs. Confirm the vendor's size before the first flash.
constexpr size_t kDisplayStorageSize = 4096;
static_assert(sizeof(VTvDisaplyImpl) <= kDisplayStorageSize, "the display object must fit");
static_assert(alignof(VTvDisaplyImpl) <= alignof(std::max_align_t), "and be aligned in it");

// The one display object, made on first use and never destroyed: threads may still bind
// while the process exits.
VTvDisaplyImpl* display() {
    alignas(std::max_align_t) static unsigned char sStorage[kDisplayStorageSize];
    static VTvDisaplyImpl* const sDisplay = new (sStorage) VTvDisaplyImpl();
    return sDisplay;
}

// The producers the library holds a strong reference on, one per managed player object,
// keyed by the player the object had when it bound. mNativeSurfaceTexture shows the managed
// side the address of the newest bound producer and keeps it after a failed bind or a
// release; this record is what says whether a reference is still held. A reference is
// dropped only by taking it out of here, under the global lock, so each one is dropped
// exactly once: after a failed bind, after several, when two binds or a bind and
// native_finalize run at once. (Dropping again whatever address the field shows would free
// a producer the library no longer holds.)
using Producer = android::IGraphicBufferProducer;
std::map<const PlayerImpl*, Producer*>& heldProducers() {
    // Never destroyed: a service or managed thread may still bind while the process exits.
    static auto* const held = new std::map<const PlayerImpl*, Producer*>();
    return *held;
}

// Under the global lock: makes `next` (or nothing) the producer held for `player`, and
// returns the one held before, whose reference the caller now owns and drops.
Producer* exchangeHeldProducer(const PlayerImpl* player, Producer* next) {
    auto& held = heldProducers();
    auto it = held.find(player);
    Producer* previous = it == held.end() ? nullptr : it->second;
    if (next != nullptr) {
        held[player] = next;
    } else if (it != held.end()) {
        held.erase(it);
    }
    return previous;
}

void dropHeldReference(Producer* producer) {
    if (producer != nullptr) producer->decStrong(producerRefId());
}

}  // namespace

void releaseVideoSurface(JNIEnv* env, jobject thiz) {
    android::sp<PlayerImpl> player = acquirePlayer(env, thiz);
    if (player == nullptr) {
        return;
    }
    Producer* held = nullptr;
    {
        GlobalLockGuard guard;
        held = exchangeHeldProducer(player.get(), nullptr);
    }
    // mNativeSurfaceTexture keeps its value; the next bind overwrites it.
    dropHeldReference(held);
}

}  // namespace pij

android::sp<android::Surface> VndkGetSurface(JNIEnv* env, jobject surface,
                                             jfieldID nativeObjectField, jfieldID lockField) {
    android::sp<android::Surface> result;
    ScopedLocalRef<jobject> lock(env, env->GetObjectField(surface, lockField));
    // A Surface without its lock object is out of contract: no monitor can be entered, so
    // it gives no native surface, as a failed monitor entry does.
    if (lock.get() == nullptr) {
        ALOGE("VndkGetSurface: the Surface has no lock object");
        return result;
    }
    pij::ScopedMonitor monitor(env, lock.get());
    if (monitor.entered()) {
        result = reinterpret_cast<android::Surface*>(env->GetLongField(surface, nativeObjectField));
    }
    return result;
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setVideoSurface(JNIEnv* env, jobject thiz,
                                                                        jobject surface,
                                                                        jint wtype) {
    ALOGD("setVideoSurface wtype: %d", wtype);
    uint64_t surfaceId = 0;
    VTvDisaplyImpl* display = pij::display();
    if (surface == nullptr) {
        ALOGE("jsf == NULL");
        return;
    }
    android::sp<PlayerImpl> player = pij::acquirePlayer(env, thiz);
    if (player == nullptr) {
        pij::reportFatal(__func__, pij::kLineSetSurfaceNoPlayer, pij::Exc::IllegalArgument);
        return;
    }
    // Drop the reference held for the surface bound before, if any.
    pij::releaseVideoSurface(env, thiz);

    android::sp<android::Surface> native =
        VndkGetSurface(env, surface, pij::gSurfaceFields.nativeObject, pij::gSurfaceFields.lock);
    if (native == nullptr) {
        pij::reportFatal(__func__, pij::kLineSetSurfaceNoNative, pij::Exc::IllegalState);
        return;
    }
    android::sp<android::IGraphicBufferProducer> producer = native->getIGraphicBufferProducer();
    if (producer == nullptr) {
        pij::reportFatal(__func__, pij::kLineSetSurfaceNoProducer, pij::Exc::IllegalState);
        return;
    }
    // Held on the field's behalf until the next release step. A bind running at the same
    // time on the same object may have bound its producer since our release step: that
    // one's reference is dropped here, so the object ends with one held reference.
    producer->incStrong(pij::producerRefId());
    pij::Producer* displaced = nullptr;
    {
        pij::GlobalLockGuard guard;
        displaced = pij::exchangeHeldProducer(player.get(), producer.get());
        env->SetLongField(thiz, pij::gPlayerFields.surfaceTexture,
                          reinterpret_cast<jlong>(producer.get()));
    }
    pij::dropHeldReference(displaced);

    native->getUniqueId(&surfaceId);
    int32_t windowId = display->openTvDisplay(native, static_cast<WIN_DEV>(wtype), false);
    ALOGI("setVideoSurface SurfaceID: %" PRIu64 ", eWinId: %d\n", surfaceId, windowId);
    if (windowId == -1) {
        // Reported only: the producer stays bound.
        ALOGE("Get Error window ID");
    }
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_destoryVideoSurfaceTexture(
    JNIEnv* env, jobject, jobject surface) {
    uint64_t surfaceId = 0;
    VTvDisaplyImpl* display = pij::display();
    if (surface == nullptr) {
        ALOGE("jsurface == NULL");
        return JNI_FALSE;
    }
    android::sp<android::Surface> native =
        VndkGetSurface(env, surface, pij::gSurfaceFields.nativeObject, pij::gSurfaceFields.lock);
    // A managed Surface without a native one logs id 0 and closes on the empty pointer.
    if (native != nullptr) native->getUniqueId(&surfaceId);
    jboolean result = static_cast<jboolean>(display->closeTvDisplay(native) & 1u);
    ALOGD("destoryVideoSurfaceTexture, Surface ID: %" PRIu64 ", return: %d", surfaceId, result);
    return result;
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_setHdmiGpio(JNIEnv* env, jobject thiz,
                                                                        jintArray gpio) {
    ALOGD("setHdmiGpio");
    pij::Site site{__func__, pij::kLineHdmiGpioNoPlayer, pij::Exc::TvIpc};
    return pij::withPlayer(env, thiz, site, jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
        if (gpio == nullptr) {
            pij::reportFatal(site.function, pij::kLineHdmiGpioNullArray, pij::Exc::TvCommon);
            return JNI_FALSE;
        }
        // Entries the array does not give stay 0; entries past the fourth are ignored.
        HdmiGpioRec rec{};
        jsize length = env->GetArrayLength(gpio);
        jsize used = std::min<jsize>(length, 4);
        if (used > 0) env->GetIntArrayRegion(gpio, 0, used, rec.values);
        return pij::bit0(p.setHdmiGpio(&rec));
    });
}
