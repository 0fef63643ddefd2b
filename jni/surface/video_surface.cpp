// Binding of the TV video window to an android.view.Surface, and the HDMI GPIO command.
#include "core/log.h"

#include "surface/video_surface.h"

#include <algorithm>
#include <cinttypes>
#include <cstddef>
#include <new>

#include "core/context.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/player_owner.h"
#include "core/scoped.h"
#include "surface/VTvDisaplyImpl.h"

namespace pij {
namespace {

// The identity under which the library holds a bound producer's strong reference.
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

// A bind that has a player: the generation of that player, to tell at the end of the bind
// whether the player was replaced, suspended or finalised meanwhile.
struct BindStart {
    android::sp<PlayerImpl> player;
    uint64_t generation;
};

// Takes the object's player and, in the same step, the reference held for the surface bound
// before (the release step of every bind), which is dropped once the lock is let go. Without
// a player nothing is released.
BindStart startBind(JNIEnv* env, jobject thiz) {
    HeldProducer released;  // declared before the guard: dropped after the lock
    GlobalLockGuard lock;
    BindStart start{playerOf(lock, env, thiz), 0};
    if (start.player != nullptr) {
        if (PlayerOwner* owner = ownerFor(lock, env, thiz)) {
            start.generation = owner->generation;
            released.swap(owner->producer);
        }
    }
    return start;
}

// Hands the reference taken on the bound producer to the object's owner and shows the
// producer's address in mNativeSurfaceTexture. What `bound` holds afterwards is dropped by
// the caller: the reference of a bind that ran at the same time on the same object (so the
// object ends with one), or, when the player this bind started with is gone, its own.
void finishBind(JNIEnv* env, jobject thiz, const BindStart& start, HeldProducer& bound,
                jlong address) {
    GlobalLockGuard lock;
    PlayerOwner* owner = findOwner(lock, env, thiz);
    if (owner != nullptr && owner->generation == start.generation) owner->producer.swap(bound);
    env->SetLongField(thiz, gPlayerFields.surfaceTexture, address);
}

}  // namespace

HeldProducer::HeldProducer(const android::sp<android::IGraphicBufferProducer>& producer)
    : mProducer(producer.get()) {
    if (mProducer != nullptr) mProducer->incStrong(producerRefId());
}

HeldProducer::~HeldProducer() {
    if (mProducer != nullptr) mProducer->decStrong(producerRefId());
}

void releaseVideoSurface(JNIEnv* env, jobject thiz) {
    HeldProducer released;  // declared before the guard: dropped after the lock
    GlobalLockGuard lock;
    if (PlayerOwner* owner = findOwner(lock, env, thiz)) released.swap(owner->producer);
    // mNativeSurfaceTexture keeps its value; the next bind overwrites it.
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
    const pij::BindStart start = pij::startBind(env, thiz);
    if (start.player == nullptr) {
        pij::reportFatal(__func__, 2757, pij::Exc::IllegalArgument);
        return;
    }
    android::sp<android::Surface> native =
        VndkGetSurface(env, surface, pij::gSurfaceFields.nativeObject, pij::gSurfaceFields.lock);
    if (native == nullptr) {
        pij::reportFatal(__func__, 2763, pij::Exc::IllegalState);
        return;
    }
    android::sp<android::IGraphicBufferProducer> producer = native->getIGraphicBufferProducer();
    if (producer == nullptr) {
        pij::reportFatal(__func__, 2768, pij::Exc::IllegalState);
        return;
    }
    {
        pij::HeldProducer bound(producer);  // held on the field's behalf until the next release
        pij::finishBind(env, thiz, start, bound, reinterpret_cast<jlong>(producer.get()));
    }
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
    pij::Site site{__func__, 2840, pij::Exc::TvIpc};
    return pij::withPlayer(env, thiz, site, jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
        if (gpio == nullptr) {
            pij::reportFatal(site.function, 2844, pij::Exc::TvCommon);
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
