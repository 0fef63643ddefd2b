// Picture and signal queries: the aspect-ratio state, the timing of the current source and
// the signal of the current DTV programme, each handed back as a new managed value object.
#include "core/log.h"

#include "marshal/picture.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Field;

// VideoArcInfo: fields looked up and set in the same order.
constexpr Field<VideoArcInfoRec> kArcFields[] = {
    PIJ_FIELD(VideoArcInfoRec, arcType, I),    PIJ_FIELD(VideoArcInfoRec, threeDimensionArcType, I),
    PIJ_FIELD(VideoArcInfoRec, adjArcLeft, S), PIJ_FIELD(VideoArcInfoRec, adjArcRight, S),
    PIJ_FIELD(VideoArcInfoRec, adjArcUp, S),   PIJ_FIELD(VideoArcInfoRec, adjArcDown, S),
    PIJ_FIELD(VideoArcInfoRec, bSetCusWin, Z),
};
constexpr auto kVideoArcInfo =
    pij::valueClass("com/vireo/android/tvapi/common/vo/VideoArcInfo", kArcFields);

// VideoInfo: the managed order puts the scan type before the mode index, unlike the record.
constexpr Field<VideoInfoRec> kVideoFields[] = {
    PIJ_FIELD(VideoInfoRec, hResolution, I), PIJ_FIELD(VideoInfoRec, vResolution, I),
    PIJ_FIELD(VideoInfoRec, frameRate, I),   PIJ_FIELD(VideoInfoRec, enScanType, I),
    PIJ_FIELD(VideoInfoRec, modeIndex, I),   PIJ_FIELD(VideoInfoRec, arcDescriptionType, I),
    PIJ_FIELD(VideoInfoRec, arcType, I),     PIJ_FIELD(VideoInfoRec, afdAspectRatio, I),
};
constexpr auto kVideoInfo =
    pij::valueClass("com/vireo/android/tvapi/common/vo/VideoInfo", kVideoFields);

// DtvProgramSignalInfo: set in this order, the network name last; the ids are fetched in
// the managed class's own order.
constexpr Field<DtvProgramSignalInfoRec> kSignalFields[] = {
    PIJ_FIELD(DtvProgramSignalInfoRec, modulationMode, I),
    PIJ_FIELD(DtvProgramSignalInfoRec, quality, I),
    PIJ_FIELD(DtvProgramSignalInfoRec, strength, I),
    PIJ_FIELD(DtvProgramSignalInfoRec, symbolRate, I),
    PIJ_FIELD(DtvProgramSignalInfoRec, rfNumber, S),
    PIJ_FIELD(DtvProgramSignalInfoRec, amMode, S),
    PIJ_FIELD(DtvProgramSignalInfoRec, networkName, L),
};
constexpr auto kSignalLookup = pij::orderOf(kSignalFields, "rfNumber", "modulationMode", "amMode",
                                            "quality", "strength", "symbolRate", "networkName");
constexpr auto kSignalInfo = pij::valueClass(
    "com/vireo/android/tvapi/common/vo/DtvProgramSignalInfo", kSignalFields, &kSignalLookup);

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kVideoArcInfo), PIJ_DESCRIBE(kVideoInfo),
                                          PIJ_DESCRIBE(kSignalInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kPictureClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAspectRatio(JNIEnv* env,
                                                                          jobject thiz) {
    ALOGD("native_getAspectRatio");
    return pij::withPlayer(
        env, thiz, pij::Site{__func__, 1384, pij::Exc::TvIpc}, jobject{}, [&](PlayerImpl& p) {
            // Cleared, so a field the player leaves alone reads 0
            // rather than whatever the stack held.
            VideoArcInfoRec rec{};
            p.getAspectRatio(rec);
            return pij::newObject(env, "native_getAspectRatio", kVideoArcInfo, rec);
        });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getVideoInfo(JNIEnv* env, jobject thiz) {
    ALOGD("getVideoInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 1439, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               // Zeroed, so fields the player leaves alone read 0.
                               VideoInfoRec rec{};
                               p.getVideoInfo(rec);
                               return pij::newObject(env, "getVideoInfo", kVideoInfo, rec);
                           });
}

PIJ_EXPORT jobject
com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSignalInformation(JNIEnv* env, jobject thiz) {
    ALOGD("getCurrentSignalInformation");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 2907, pij::Exc::IllegalState}, jobject{},
                           [&](PlayerImpl& p) {
                               DtvProgramSignalInfoRec rec{};  // cleared; the name starts empty
                               p.getCurrentSignalInformation(rec);
                               // An empty name gives an empty string, never null.
                               return pij::newObject(env, "getCurrentSignalInformation",
                                                     kSignalInfo, rec);
                           });
}
