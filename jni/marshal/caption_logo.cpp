// The caption preview style going to the player, and the current channel's logo coming back
// as a managed int array, in two layouts: bytes with their two sizes behind, or ARGB words
// with the sizes in front.
#include "core/log.h"

#include "marshal/caption_logo.h"

#include <cstdint>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Exc;
using pij::kLogoCapacity;
using pij::Site;

// Read in this order, each id fetched just before its field; each short keeps its low 8
// bits, with no range test: 258 becomes 2.
constexpr pij::Field<CaptionOptionSettingRec> kCaptionFields[] = {
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoFGColor, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoBGColor, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoFGOpacity, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoBGOpacity, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoFontSize, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoFontStyle, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoEdgeStyle, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoEdgeColor, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoItalicsAttr, S),
    PIJ_FIELD(CaptionOptionSettingRec, currProgInfoUnderlineAttr, S),
};
constexpr auto kCaptionOptionSetting =
    pij::valueClass("com/vireo/android/tvapi/common/vo/CaptionOptionSetting", kCaptionFields);

// Byte logo: the bytes, then A and B.
constexpr jsize kLogoDataLength = kLogoCapacity + 2;

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kCaptionOptionSetting)};

}  // namespace

constexpr pij::ManagedClassList pij::kCaptionLogoClasses = pij::classList(kClasses);

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_drawPreviewCCWin(JNIEnv* env,
                                                                             jobject thiz,
                                                                             jobject setting) {
    ALOGD("drawPreviewCCWin");
    const char* fn = __func__;  // inside the body below __func__ would name the lambda
    return pij::withPlayer(env, thiz, Site{__func__, 3851, Exc::IllegalState}, jboolean{JNI_FALSE},
                           [&](PlayerImpl& p) -> jboolean {
                               if (setting == nullptr) {
                                   pij::reportFatal(fn, 3855, Exc::IllegalState);
                                   return JNI_FALSE;
                               }
                               // The object's own class, so that a subclass is accepted.
                               ScopedLocalRef<jclass> cls(env, env->GetObjectClass(setting));
                               if (cls.get() == nullptr) {
                                   pij::reportFatal(fn, 3861, Exc::IllegalState);
                                   return JNI_FALSE;
                               }
                               // A field the class lacks leaves the runtime's error pending for the
                               // managed caller, and the player is not called.
                               pij::FieldIds ids;
                               ids.cls = cls.get();
                               CaptionOptionSettingRec rec{};
                               if (!pij::toRecordFetchingEach(pij::Copy{env, fn}, setting,
                                                              kCaptionOptionSetting, &ids, rec)) {
                                   return JNI_FALSE;
                               }
                               return pij::bit0(p.drawPreviewCCWin(rec));
                           });
}

PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_getLogoData(JNIEnv* env,
                                                                         jobject thiz) {
    ALOGD("getLogoData");
    Site site{__func__, 3640, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jintArray{nullptr}, [&](PlayerImpl& p) -> jintArray {
        uint8_t bytes[kLogoCapacity] = {};
        int32_t a = 0;
        int32_t b = 0;
        if (pij::bit0(p.getLogoData(bytes, &a, &b)) == 0) return nullptr;
        jint out[kLogoDataLength];
        for (jsize i = 0; i < kLogoCapacity; ++i) out[i] = bytes[i];  // zero-extended
        out[kLogoCapacity] = a;
        out[kLogoCapacity + 1] = b;
        jintArray array = env->NewIntArray(kLogoDataLength);
        if (array == nullptr) return nullptr;  // no memory: the runtime's error is pending
        env->SetIntArrayRegion(array, 0, kLogoDataLength, out);
        return array;
    });
}

PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_getChannelLogoARGB(JNIEnv* env,
                                                                                jobject thiz) {
    ALOGD("getChannelLogoARGB");
    Site site{__func__, 3690, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jintArray{nullptr}, [&](PlayerImpl& p) -> jintArray {
        uint32_t pixels[kLogoCapacity] = {};
        int32_t a = 0;
        int32_t b = 0;
        if (pij::bit0(p.getChannelLogoARGB(pixels, kLogoCapacity, &a, &b)) == 0) return nullptr;
        // Out of contract: the player must keep (A + 1) x B within the buffer. A negative A
        // or B (whose product can still look small), an A + 1 that does not fit the header's
        // int, or a size larger than the buffer (worked out in 64 bits, so it cannot wrap)
        // is refused with an ERROR line and a null result, as a failed call would give; no
        // word past the buffer is ever read.
        int64_t width = static_cast<int64_t>(a) + 1;
        int64_t pixelCount = width * static_cast<int64_t>(b);
        if (a < 0 || b < 0 || width > INT32_MAX || pixelCount > kLogoCapacity) {
            ALOGE("getChannelLogoARGB: logo size %lld x %d outside the %d-word buffer, refused",
                  static_cast<long long>(width), b, kLogoCapacity);
            return nullptr;
        }
        auto n = static_cast<jsize>(pixelCount);
        jintArray array = env->NewIntArray(n + 2);
        if (array == nullptr) return nullptr;  // no memory: the runtime's error is pending
        jint header[2] = {static_cast<jint>(width), b};
        env->SetIntArrayRegion(array, 0, 2, header);
        if (n > 0) env->SetIntArrayRegion(array, 2, n, reinterpret_cast<const jint*>(pixels));
        return array;
    });
}
