// Binding of the TV video window to an android.view.Surface, and the HDMI GPIO command.
#include "surface/video_surface.h"

#include "core/context.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"
#include "surface/VTvDisaplyImpl.h"

namespace pij {
namespace {

// The identity under which the library holds the bound producer's strong reference.
const void* producerRefId() { return reinterpret_cast<const void*>(&releaseVideoSurface); }

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
    if (env->MonitorEnter(lock) == JNI_OK) {
        result = reinterpret_cast<android::Surface*>(env->GetLongField(surface, nativeObjectField));
        env->MonitorExit(lock);
    }
    env->DeleteLocalRef(lock);
    return result;
}
