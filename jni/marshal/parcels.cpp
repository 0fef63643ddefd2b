// Player exchanges through parcels: the RRT, V-chip and BISS program queries pass the
// managed parcels' native parcels to the player, which reads or writes them itself; this
// library never looks inside. The BISS key setter passes a key text as bytes.
#include "core/log.h"

#include "marshal/parcels.h"

#include <cstring>
#include <memory>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Exc;
using pij::Site;

// The one field of the managed parcel the library reads: the address of its native parcel.
struct ParcelPeer {
    int64_t mNativePtr;
};
constexpr pij::Field<ParcelPeer> kParcelFields[] = {PIJ_FIELD(ParcelPeer, mNativePtr, J)};
constexpr auto kParcel = pij::valueClass("android/os/Parcel", kParcelFields);

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kParcel)};

}  // namespace

constexpr pij::ManagedClassList pij::kParcelClasses = pij::classList(kClasses);

android::Parcel* VndkGetParcelForJavaObject(JNIEnv* env, jobject parcel) {
    // Nothing is thrown into the managed caller: a class or field that is not there is
    // cleared and reported, and the parcel goes on as null.
    pij::FieldIds ids;
    if (!pij::lookUp(env, kParcel, &ids)) {
        if (ids.cls == nullptr) {
            env->ExceptionClear();
            ALOGE("[Error] clazz == NULL");
        } else {
            pij::clearMissingField(env, kParcel, ids);
        }
        return nullptr;
    }
    if (parcel == nullptr) return nullptr;
    ParcelPeer peer{};
    pij::toRecord(pij::Copy{env, "VndkGetParcelForJavaObject"}, parcel, kParcel, ids, peer);
    const jlong value = peer.mNativePtr;
    if (value == 0) {
        pij::reportFatal("VndkGetParcelForJavaObject", 111, Exc::IllegalState);
        return nullptr;
    }
    // The line says "[Error]" but is what every successful conversion writes.
    ALOGD("[Error] parcelForJavaObject p != NULL");
    return reinterpret_cast<android::Parcel*>(value);
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_getRRTInformation(JNIEnv* env,
                                                                                 jobject thiz,
                                                                                 jobject reply) {
    ALOGD("getRRTInformation");
    pij::withPlayer(env, thiz, Site{__func__, 3890, Exc::TvUnsupported}, [&](PlayerImpl& p) {
        android::Parcel request;
        p.getRRTInformation(&request, VndkGetParcelForJavaObject(env, reply));
    });
}

// Registered as ()Z; the two ints are never passed by the managed side and never read.
PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_resetRrtInformation(JNIEnv* env,
                                                                                  jobject thiz,
                                                                                  jint, jint) {
    ALOGD("resetRrtInformation");
    return pij::withPlayer(env, thiz, Site{__func__, 3912, Exc::IllegalState}, jboolean{JNI_FALSE},
                           [&](PlayerImpl& p) {
                               jboolean re = pij::bit0(p.resetRrtInformation());
                               ALOGD("re = %d", re);
                               return re;
                           });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo(
    JNIEnv* env, jobject thiz, jobject request, jobject reply) {
    ALOGD("getRating");
    return pij::withPlayer(env, thiz, Site{__func__, 3940, Exc::IllegalState}, jboolean{JNI_FALSE},
                           [&](PlayerImpl& p) {
                               android::Parcel* in = VndkGetParcelForJavaObject(env, request);
                               android::Parcel* out = VndkGetParcelForJavaObject(env, reply);
                               // The whole answer byte, not only bit 0.
                               return static_cast<jboolean>(p.getVChipRatingInfo(in, out));
                           });
}

// Without a player this handler does not return after the report: it converts the reply
// parcel (with its own log line) and goes on to the call, which can only end the process. It
// is ended right after the conversion, instead of calling through a null pointer.
PIJ_EXPORT void com_vireo_android_tvapi_common_PlayerImpl_getAllBISSProgramInfo(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jobject reply) {
    ALOGI("getAllBISSProgramInfo");
    android::sp<PlayerImpl> player = pij::acquirePlayer(env, thiz);
    if (player == nullptr) pij::reportFatal(Site{__func__, 4770, Exc::IllegalState});
    android::Parcel* out = VndkGetParcelForJavaObject(env, reply);
    if (player == nullptr) pij::endProcessWithoutPlayer();
    player->getAllBISSProgramInfo(out);
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_common_PlayerImpl_setProgramBISSKeyByNumber(
    JNIEnv* env, jobject thiz, jint program, jint type, jstring key, jint length) {
    ALOGD("setProgramBISSKeyByNumber");
    return pij::withPlayer(
        env, thiz, Site{__func__, 4790, Exc::IllegalState}, jboolean{JNI_FALSE},
        [&](PlayerImpl& p) -> jboolean {
            // Out of contract: the managed side passes a key text and its length. A null key
            // or a negative length is refused (false, the player is not called); a length
            // past the text is cut to the text, so no byte past it is ever read.
            if (key == nullptr) {
                ALOGE("setProgramBISSKeyByNumber: null key refused");
                return JNI_FALSE;
            }
            if (length < 0) {
                ALOGE("setProgramBISSKeyByNumber: negative key length %d refused", length);
                return JNI_FALSE;
            }
            pij::ScopedUtfChars chars(env, key);
            if (chars.c_str() == nullptr) return JNI_FALSE;  // out of memory; an error is pending
            size_t available = std::strlen(chars.c_str());
            if (static_cast<size_t>(length) > available) {
                ALOGE("setProgramBISSKeyByNumber: key length %d past the %zu-byte key, cut", length,
                      available);
                length = static_cast<jint>(available);
            }
            // Zero-filled and never empty, even for a length of 0.
            std::unique_ptr<uint8_t[]> buffer(new uint8_t[static_cast<size_t>(length) + 1]());
            std::memcpy(buffer.get(), chars.c_str(), static_cast<size_t>(length));
            jboolean re =
                pij::bit0(p.setProgramBISSKeyByNumber(program, type, buffer.get(), length));
            ALOGD("re = %d", re);
            return re;
        });
}
