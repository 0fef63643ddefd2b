// Picture and signal queries: the aspect-ratio state, the timing of the current source and
// the signal of the current DTV programme, each handed back as a new managed value object.
#include "marshal/picture.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/service_text.h"
#include "marshal/marshal_util.h"

namespace {

using pij::FieldCopy;
using pij::Jt;
using pij::ManagedClass;

// VideoArcInfo: fields looked up and set in the same order.
enum ArcField : uint8_t { kArcType, kThreeD, kAdjLeft, kAdjRight, kAdjUp, kAdjDown, kCusWin };
const ManagedClass kVideoArcInfo{"com/vireo/android/tvapi/common/vo/VideoArcInfo",
                                 {{"arcType", "I"},
                                  {"threeDimensionArcType", "I"},
                                  {"adjArcLeft", "S"},
                                  {"adjArcRight", "S"},
                                  {"adjArcUp", "S"},
                                  {"adjArcDown", "S"},
                                  {"bSetCusWin", "Z"}}};
PIJ_REGISTER_VALUE_CLASS(kVideoArcInfo);

const FieldCopy<VideoArcInfoRec> kArcRows[] = {
    PIJ_COPY(Jt::I, &VideoArcInfoRec::arcType)(kArcType),
    PIJ_COPY(Jt::I, &VideoArcInfoRec::threeDimensionArcType)(kThreeD),
    PIJ_COPY(Jt::S, &VideoArcInfoRec::adjArcLeft)(kAdjLeft),
    PIJ_COPY(Jt::S, &VideoArcInfoRec::adjArcRight)(kAdjRight),
    PIJ_COPY(Jt::S, &VideoArcInfoRec::adjArcUp)(kAdjUp),
    PIJ_COPY(Jt::S, &VideoArcInfoRec::adjArcDown)(kAdjDown),
    PIJ_COPY(Jt::Z, &VideoArcInfoRec::bSetCusWin)(kCusWin),
};

// VideoInfo: the managed order puts the scan type before the mode index, unlike the record.
enum VideoField : uint8_t {
    kHRes,
    kVRes,
    kFrameRate,
    kScanType,
    kModeIndex,
    kArcDesc,
    kVArc,
    kAfd
};
const ManagedClass kVideoInfo{"com/vireo/android/tvapi/common/vo/VideoInfo",
                              {{"hResolution", "I"},
                               {"vResolution", "I"},
                               {"frameRate", "I"},
                               {"enScanType", "I"},
                               {"modeIndex", "I"},
                               {"arcDescriptionType", "I"},
                               {"arcType", "I"},
                               {"afdAspectRatio", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kVideoInfo);

const FieldCopy<VideoInfoRec> kVideoRows[] = {
    PIJ_COPY(Jt::I, &VideoInfoRec::hResolution)(kHRes),
    PIJ_COPY(Jt::I, &VideoInfoRec::vResolution)(kVRes),
    PIJ_COPY(Jt::I, &VideoInfoRec::frameRate)(kFrameRate),
    PIJ_COPY(Jt::I, &VideoInfoRec::enScanType)(kScanType),
    PIJ_COPY(Jt::I, &VideoInfoRec::modeIndex)(kModeIndex),
    PIJ_COPY(Jt::I, &VideoInfoRec::arcDescriptionType)(kArcDesc),
    PIJ_COPY(Jt::I, &VideoInfoRec::arcType)(kVArc),
    PIJ_COPY(Jt::I, &VideoInfoRec::afdAspectRatio)(kAfd),
};

// DtvProgramSignalInfo: looked up in this order, set in the order of kSignalRows, then the
// network name last.
enum SignalField : uint8_t { kRf, kModulation, kAm, kQuality, kStrength, kSymbolRate, kNetName };
const ManagedClass kSignalInfo{"com/vireo/android/tvapi/common/vo/DtvProgramSignalInfo",
                               {{"rfNumber", "S"},
                                {"modulationMode", "I"},
                                {"amMode", "S"},
                                {"quality", "I"},
                                {"strength", "I"},
                                {"symbolRate", "I"},
                                {"networkName", "Ljava/lang/String;"}}};
PIJ_REGISTER_VALUE_CLASS(kSignalInfo);

const FieldCopy<DtvProgramSignalInfoRec> kSignalRows[] = {
    PIJ_COPY(Jt::I, &DtvProgramSignalInfoRec::modulationMode)(kModulation),
    PIJ_COPY(Jt::I, &DtvProgramSignalInfoRec::quality)(kQuality),
    PIJ_COPY(Jt::I, &DtvProgramSignalInfoRec::strength)(kStrength),
    PIJ_COPY(Jt::I, &DtvProgramSignalInfoRec::symbolRate)(kSymbolRate),
    PIJ_COPY(Jt::S, &DtvProgramSignalInfoRec::rfNumber)(kRf),
    PIJ_COPY(Jt::S, &DtvProgramSignalInfoRec::amMode)(kAm),
};

// Source lines the failure reports carry.
constexpr int kLineAspectRatio = 1384;
constexpr int kLineVideoInfo = 1439;
constexpr int kLineSignalInfo = 2907;

// Builds `mc`'s object from `rec` with the rows, ids looked up in the list's order.
template <typename Rec, size_t N>
jobject build(JNIEnv* env, const ManagedClass& mc, const pij::FieldCopy<Rec> (&rows)[N],
              const Rec& rec, pij::FieldIds* idsOut = nullptr) {
    jclass cls = env->FindClass(mc.path);
    pij::FieldIds ids = pij::lookupFields(env, cls, mc);
    jobject obj = env->AllocObject(cls);
    pij::copyFields(env, obj, ids, rows, rec);
    if (idsOut != nullptr) *idsOut = ids;
    return obj;
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getAspectRatio)(JNIEnv* env, jobject thiz) {
    ALOGD("native_getAspectRatio");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineAspectRatio, pij::Exc::TvIpc},
                           jobject{}, [&](PlayerImpl& p) {
                               // Cleared, so a field the player leaves alone reads 0
                               // rather than whatever the stack held.
                               VideoArcInfoRec rec{};
                               p.getAspectRatio(rec);
                               return build(env, kVideoArcInfo, kArcRows, rec);
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getVideoInfo)(JNIEnv* env, jobject thiz) {
    ALOGD("getVideoInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineVideoInfo, pij::Exc::TvIpc},
                           jobject{}, [&](PlayerImpl& p) {
                               // Zeroed, so fields the player leaves alone read 0.
                               VideoInfoRec rec{};
                               p.getVideoInfo(rec);
                               return build(env, kVideoInfo, kVideoRows, rec);
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getCurrentSignalInformation)(JNIEnv* env, jobject thiz) {
    ALOGD("getCurrentSignalInformation");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineSignalInfo, pij::Exc::IllegalState},
                           jobject{}, [&](PlayerImpl& p) {
                               DtvProgramSignalInfoRec rec{};  // cleared; the name starts empty
                               p.getCurrentSignalInformation(rec);
                               pij::FieldIds ids;
                               jobject obj = build(env, kSignalInfo, kSignalRows, rec, &ids);
                               // An empty name gives an empty string, never null.
                               env->SetObjectField(
                                   obj, ids[kNetName],
                                   pij::newStringFromService(env, rec.networkName.c_str(),
                                                             "getCurrentSignalInformation"));
                               return obj;
                           });
}
