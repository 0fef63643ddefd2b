// ATSC emergency alerts: the alert in progress as a MwAtscEasInfo with its location codes,
// exception channels and texts, and the four alert and TS-update methods the service does
// not support on this platform.
#include "marshal/atsc_eas.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"

namespace {

using pij::FieldCopy;
using pij::Jt;
using pij::ManagedClass;

// Source lines the failure reports carry, in the order of the methods in this file.
constexpr int kLineTsUpdateInfo = 3668;
constexpr int kLineEasProgressDone = 3681;
constexpr int kLineEasAudioDesired = 3693;
constexpr int kLineEasProgressStatus = 3705;
constexpr int kLineEasInProgress = 3721;

enum EasField : uint8_t {
    kExceptions,
    kLocations,
    kVerNum,
    kEventId,
    kOriginator,
    kTimeRemain,
    kStartTime,
    kDuration,
    kPriority,
    kDetailsMajor,
    kDetailsMinor,
    kLocationCount,
    kExceptionCount,
    kEventCode,
    kNatActText,
    kAlertText,
};
const ManagedClass kEasInfo{
    "com/vireo/android/tvapi/dtv/vo/MwAtscEasInfo",
    {{"astException", "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasException;"},
     {"astLocationCode", "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasLocationCode;"},
     {"u8VerNum", "I"},
     {"u16EAS_EventID", "I"},
     {"au8EAS_OriginatorCode", "[I"},
     {"u8AlertTimeRemain", "I"},
     {"u32EventStartTime", "I"},
     {"u16EventDuration", "I"},
     {"u8AlertPriority", "I"},
     {"u16DetailsMajorNum", "I"},
     {"u16DetailsMinorNum", "I"},
     {"u8LocationCodeCount", "I"},
     {"u8ExceptionCount", "I"},
     {"au8EAS_EventCode", "[S"},
     {"au8NatActText", "[S"},
     {"au8AlertText", "[S"}}};
PIJ_REGISTER_VALUE_CLASS(kEasInfo);

enum ExceptionField : uint8_t { kExcMajor, kExcMinor, kExcOobSrc, kExcInBand };
const ManagedClass kEasException{"com/vireo/android/tvapi/dtv/vo/VapiPsipEasException",
                                 {{"u16ExcMajorNum", "I"},
                                  {"u16ExcMinorNum", "I"},
                                  {"u16ExcOOB_SrcID", "I"},
                                  {"bInBandRef", "Z"}}};
PIJ_REGISTER_VALUE_CLASS(kEasException);

enum LocationField : uint8_t { kState, kSubdivision, kCounty };
const ManagedClass kEasLocation{
    "com/vireo/android/tvapi/dtv/vo/VapiPsipEasLocationCode",
    {{"u8StateCode", "I"}, {"u8CountySubdivision", "I"}, {"u16CountyCode", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kEasLocation);

// Widening follows each member's declared signedness (see atsc_eas.h).
const FieldCopy<VapiPsipEasExceptionRec> kExceptionRows[] = {
    PIJ_COPY(Jt::Z, &VapiPsipEasExceptionRec::bInBandRef)(kExcInBand),
    PIJ_COPY(Jt::I, &VapiPsipEasExceptionRec::u16ExcMajorNum)(kExcMajor),
    PIJ_COPY(Jt::I, &VapiPsipEasExceptionRec::u16ExcMinorNum)(kExcMinor),
    PIJ_COPY(Jt::I, &VapiPsipEasExceptionRec::u16ExcOOB_SrcID)(kExcOobSrc),
};

const FieldCopy<VapiPsipEasLocationCodeRec> kLocationRows[] = {
    PIJ_COPY(Jt::I, &VapiPsipEasLocationCodeRec::u8StateCode)(kState),
    PIJ_COPY(Jt::I, &VapiPsipEasLocationCodeRec::u8CountySubdivision)(kSubdivision),
    PIJ_COPY(Jt::I, &VapiPsipEasLocationCodeRec::u16CountyCode)(kCounty),
};

// The scalars set before the originator code, and those after it.
const FieldCopy<MwAtscEasInfoRec> kLeadingRows[] = {
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u8VerNum)(kVerNum),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u16EAS_EventID)(kEventId),
};
const FieldCopy<MwAtscEasInfoRec> kTrailingRows[] = {
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u8AlertTimeRemain)(kTimeRemain),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u32EventStartTime)(kStartTime),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u16EventDuration)(kDuration),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u8AlertPriority)(kPriority),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u16DetailsMajorNum)(kDetailsMajor),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u16DetailsMinorNum)(kDetailsMinor),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u8LocationCodeCount)(kLocationCount),
    PIJ_COPY(Jt::I, &MwAtscEasInfoRec::u8ExceptionCount)(kExceptionCount),
};

// The three texts, each handed over whole as signed byte values in a short array.
struct TextRow {
    uint8_t field;
    size_t offset;
    jsize length;
};
const TextRow kTextRows[] = {
    {kEventCode, offsetof(MwAtscEasInfoRec, au8EAS_EventCode), kEasEventCodeLen},
    {kNatActText, offsetof(MwAtscEasInfoRec, au8NatActText), kEasNatActTextLen},
    {kAlertText, offsetof(MwAtscEasInfoRec, au8AlertText), kEasAlertTextLen},
};

// An array of all 31 entries, whatever the record's count says.
template <typename Entry, size_t N>
void setEntryArray(JNIEnv* env, jobject obj, jfieldID field, jclass cls, const pij::FieldIds& ids,
                   const FieldCopy<Entry> (&rows)[N], const Entry (&entries)[kEasEntries]) {
    jobjectArray array = env->NewObjectArray(kEasEntries, cls, nullptr);
    for (jsize i = 0; i < kEasEntries; ++i) {
        jobject element = env->AllocObject(cls);
        pij::copyFields(env, element, ids, rows, entries[i]);
        env->SetObjectArrayElement(array, i, element);
        env->DeleteLocalRef(element);
    }
    env->SetObjectField(obj, field, array);
    env->DeleteLocalRef(array);
}

// The unsupported methods neither lock nor touch the player: a trace line, the report line.
void reportUnsupported(const char* what, const char* fn, int line) {
    ALOGD("%s", what);
    pij::reportFatal(fn, line, pij::Exc::TvUnsupported);
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getTSUpdateInfo)(JNIEnv*, jobject, jint) {
    reportUnsupported("getTSUpdateInfo", __func__, kLineTsUpdateInfo);
    return nullptr;
}

PIJ_EXPORT void PIJ_IMPL(setEasProgressDone)(JNIEnv*, jobject) {
    reportUnsupported("setEasProgressDone", __func__, kLineEasProgressDone);
}

PIJ_EXPORT void PIJ_IMPL(setEasAudioDesired)(JNIEnv*, jobject, jboolean) {
    reportUnsupported("setEasAudioDesired", __func__, kLineEasAudioDesired);
}

PIJ_EXPORT jboolean PIJ_IMPL(getEasProgressSatus)(JNIEnv*, jobject) {
    reportUnsupported("getEasProgressSatus", __func__, kLineEasProgressStatus);
    return JNI_FALSE;
}

PIJ_EXPORT jobject PIJ_IMPL(getEASInProgress)(JNIEnv* env, jobject thiz) {
    ALOGD("getEASInProgress");
    return pij::withPlayer(
        env, thiz, pij::Site{__func__, kLineEasInProgress, pij::Exc::TvIpc}, jobject{},
        [&](PlayerImpl& p) {
            MwAtscEasInfoRec rec{};  // cleared; the player fills all of it
            p.getEASInProgress(rec);

            jclass easCls = env->FindClass(kEasInfo.path);
            const pij::FieldIds ids = pij::lookupFields(env, easCls, kEasInfo);
            jclass excCls = env->FindClass(kEasException.path);
            const pij::FieldIds excIds = pij::lookupFields(env, excCls, kEasException);
            jclass locCls = env->FindClass(kEasLocation.path);
            const pij::FieldIds locIds = pij::lookupFields(env, locCls, kEasLocation);

            jobject obj = env->AllocObject(easCls);
            setEntryArray(env, obj, ids[kExceptions], excCls, excIds, kExceptionRows,
                          rec.astException);
            setEntryArray(env, obj, ids[kLocations], locCls, locIds, kLocationRows,
                          rec.astLocationCode);
            pij::copyFields(env, obj, ids, kLeadingRows, rec);
            pij::setWidenedArrayField<jint>(env, obj, ids[kOriginator], rec.au8EAS_OriginatorCode,
                                            3);
            pij::copyFields(env, obj, ids, kTrailingRows, rec);
            const auto* base = reinterpret_cast<const int8_t*>(&rec);
            for (const TextRow& text : kTextRows) {
                pij::setWidenedArrayField<jshort>(env, obj, ids[text.field], base + text.offset,
                                                  text.length);
            }
            ALOGD("RETURN  jobject_EasInfo");
            return obj;
        });
}
