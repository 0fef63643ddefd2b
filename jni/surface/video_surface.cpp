// Binding of the TV video window to an android.view.Surface, and the HDMI GPIO command.
#include "surface/video_surface.h"

#include <algorithm>
#include <cinttypes>

#include "core/context.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"
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

// The one display object, made on first use and kept for the life of the process.
VTvDisaplyImpl* display() {
    static VTvDisaplyImpl* const sDisplay = new VTvDisaplyImpl();
    return sDisplay;
}

}  // namespace

void releaseVideoSurface(JNIEnv* env, jobject thiz) {
    android::sp<PlayerImpl> player = acquirePlayer(env, thiz);
    if (player == nullptr) {
        return;
    }
    jlong producer = env->GetLongField(thiz, gPlayerFields.surfaceTexture);
    if (producer != 0) {
        // The field keeps its value; the next bind overwrites it.
        reinterpret_cast<android::IGraphicBufferProducer*>(producer)->decStrong(producerRefId());
    }
}

}  // namespace pij

android::sp<android::Surface> VndkGetSurface(JNIEnv* env, jobject surface,
                                             jfieldID nativeObjectField, jfieldID lockField) {
    android::sp<android::Surface> result;
    jobject lock = env->GetObjectField(surface, lockField);
    // A Surface without its lock object is out of contract: no monitor can be entered, so
    // it gives no native surface, as a failed monitor entry does.
    if (lock == nullptr) {
        ALOGE("VndkGetSurface: the Surface has no lock object");
        return result;
    }
    if (env->MonitorEnter(lock) == JNI_OK) {
        result = reinterpret_cast<android::Surface*>(env->GetLongField(surface, nativeObjectField));
        env->MonitorExit(lock);
    }
    env->DeleteLocalRef(lock);
    return result;
}

PIJ_EXPORT void PIJ_IMPL(setVideoSurface)(JNIEnv* env, jobject thiz, jobject surface, jint wtype) {
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
    // Held on the field's behalf until the next release step.
    producer->incStrong(pij::producerRefId());
    env->SetLongField(thiz, pij::gPlayerFields.surfaceTexture,
                      reinterpret_cast<jlong>(producer.get()));

    native->getUniqueId(&surfaceId);
    int32_t windowId = display->openTvDisplay(native, static_cast<WIN_DEV>(wtype), false);
    ALOGI("setVideoSurface SurfaceID: %" PRIu64 ", eWinId: %d\n", surfaceId, windowId);
    if (windowId == -1) {
        // Reported only: the producer stays bound.
        ALOGE("Get Error window ID");
    }
}

PIJ_EXPORT jboolean PIJ_IMPL(destoryVideoSurfaceTexture)(JNIEnv* env, jobject, jobject surface) {
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

PIJ_EXPORT jboolean PIJ_IMPL(setHdmiGpio)(JNIEnv* env, jobject thiz, jintArray gpio) {
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
