// ATSC emergency alerts: the alert in progress as a MwAtscEasInfo with its location codes,
// exception channels and texts, and the four alert and TS-update methods the service does
// not support on this platform.
#include "core/log.h"

#include "marshal/atsc_eas.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Copy;
using pij::Field;

// Widening follows each member's declared signedness (see atsc_eas.h).
constexpr Field<VapiPsipEasExceptionRec> kExceptionFields[] = {
    PIJ_FIELD(VapiPsipEasExceptionRec, bInBandRef, Z),
    PIJ_FIELD(VapiPsipEasExceptionRec, u16ExcMajorNum, I),
    PIJ_FIELD(VapiPsipEasExceptionRec, u16ExcMinorNum, I),
    PIJ_FIELD(VapiPsipEasExceptionRec, u16ExcOOB_SrcID, I),
};
constexpr auto kExceptionLookup = pij::orderOf(kExceptionFields, "u16ExcMajorNum", "u16ExcMinorNum",
                                               "u16ExcOOB_SrcID", "bInBandRef");
constexpr auto kEasException = pij::valueClass(
    "com/vireo/android/tvapi/dtv/vo/VapiPsipEasException", kExceptionFields, &kExceptionLookup);

constexpr Field<VapiPsipEasLocationCodeRec> kLocationFields[] = {
    PIJ_FIELD(VapiPsipEasLocationCodeRec, u8StateCode, I),
    PIJ_FIELD(VapiPsipEasLocationCodeRec, u8CountySubdivision, I),
    PIJ_FIELD(VapiPsipEasLocationCodeRec, u16CountyCode, I),
};
constexpr auto kEasLocation =
    pij::valueClass("com/vireo/android/tvapi/dtv/vo/VapiPsipEasLocationCode", kLocationFields);

// The ids of the entry classes, in Copy::nested (see getEASInProgress).
enum Nested { kNestedException, kNestedLocation };

// An array of all 31 entries, whatever the record's count says.
template <typename Entry>
bool setEntries(const Copy& c, jobject obj, jfieldID id, const pij::ValueClass<Entry>& vc,
                const pij::FieldIds& ids, const Entry (&entries)[kEasEntries]) {
    JNIEnv* env = c.env;
    ScopedLocalRef<jobjectArray> array(env, env->NewObjectArray(kEasEntries, ids.cls, nullptr));
    if (array.get() == nullptr) return false;  // no memory: the runtime's exception is pending
    for (jsize i = 0; i < kEasEntries; ++i) {
        ScopedLocalRef<jobject> element(env, pij::allocate(env, ids));
        if (element.get() == nullptr || !pij::toObject(c, element.get(), vc, ids, entries[i])) {
            return false;
        }
        env->SetObjectArrayElement(array.get(), i, element.get());
    }
    env->SetObjectField(obj, id, array.get());
    return true;
}

bool exceptionsOut(const Copy& c, jobject obj, jfieldID id, const MwAtscEasInfoRec& rec) {
    return setEntries(c, obj, id, kEasException, c.nested[kNestedException], rec.astException);
}

bool locationsOut(const Copy& c, jobject obj, jfieldID id, const MwAtscEasInfoRec& rec) {
    return setEntries(c, obj, id, kEasLocation, c.nested[kNestedLocation], rec.astLocationCode);
}

// Looked up and set in this order. The originator code goes as ints, the three texts whole,
// as signed byte values in short arrays.
constexpr Field<MwAtscEasInfoRec> kEasFields[] = {
    pij::customField<MwAtscEasInfoRec>(
        "astException", "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasException;", &exceptionsOut),
    pij::customField<MwAtscEasInfoRec>("astLocationCode",
                                       "[Lcom/vireo/android/tvapi/dtv/vo/VapiPsipEasLocationCode;",
                                       &locationsOut),
    PIJ_FIELD(MwAtscEasInfoRec, u8VerNum, I),
    PIJ_FIELD(MwAtscEasInfoRec, u16EAS_EventID, I),
    PIJ_FIELD(MwAtscEasInfoRec, au8EAS_OriginatorCode, I),
    PIJ_FIELD(MwAtscEasInfoRec, u8AlertTimeRemain, I),
    PIJ_FIELD(MwAtscEasInfoRec, u32EventStartTime, I),
    PIJ_FIELD(MwAtscEasInfoRec, u16EventDuration, I),
    PIJ_FIELD(MwAtscEasInfoRec, u8AlertPriority, I),
    PIJ_FIELD(MwAtscEasInfoRec, u16DetailsMajorNum, I),
    PIJ_FIELD(MwAtscEasInfoRec, u16DetailsMinorNum, I),
    PIJ_FIELD(MwAtscEasInfoRec, u8LocationCodeCount, I),
    PIJ_FIELD(MwAtscEasInfoRec, u8ExceptionCount, I),
    PIJ_FIELD(MwAtscEasInfoRec, au8EAS_EventCode, S),
    PIJ_FIELD(MwAtscEasInfoRec, au8NatActText, S),
    PIJ_FIELD(MwAtscEasInfoRec, au8AlertText, S),
};
constexpr auto kEasInfo =
    pij::valueClass("com/vireo/android/tvapi/dtv/vo/MwAtscEasInfo", kEasFields);

// The unsupported methods neither lock nor touch the player: a trace line, the report line.
void reportUnsupported(const char* what, const char* fn, int line) {
    ALOGD("%s", what);
    pij::reportFatal(fn, line, pij::Exc::TvUnsupported);
}

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kEasException), PIJ_DESCRIBE(kEasLocation),
                                          PIJ_DESCRIBE(kEasInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kAtscEasClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getTSUpdateInfo(JNIEnv*, jobject, jint) {
    reportUnsupported("getTSUpdateInfo", __func__, 3668);
    return nullptr;
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setEasProgressDone(JNIEnv*, jobject) {
    reportUnsupported("setEasProgressDone", __func__, 3681);
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_setEasAudioDesired(JNIEnv*, jobject,
                                                                           jboolean) {
    reportUnsupported("setEasAudioDesired", __func__, 3693);
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_getEasProgressSatus(JNIEnv*, jobject) {
    reportUnsupported("getEasProgressSatus", __func__, 3705);
    return JNI_FALSE;
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEASInProgress(JNIEnv* env,
                                                                            jobject thiz) {
    ALOGD("getEASInProgress");
    return pij::withPlayer(
        env, thiz, pij::Site{__func__, 3721, pij::Exc::TvIpc}, jobject{}, [&](PlayerImpl& p) {
            MwAtscEasInfoRec rec{};  // cleared; the player fills all of it
            p.getEASInProgress(rec);

            // The alert's class, then its two entry classes, each with its ids.
            jobject obj = pij::newObjectWithNested(env, "getEASInProgress", kEasInfo, kEasException,
                                                   kEasLocation, rec);
            if (obj == nullptr) return obj;
            ALOGD("RETURN  jobject_EasInfo");
            return obj;
        });
}
