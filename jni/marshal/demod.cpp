// Demodulator information for service screens: the firmware version of a demodulator and the
// internal state of the DVB-T and DVB-C demodulators.
#include "core/log.h"

#include "marshal/demod.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Field;

// DtvDemodVersion: four character arrays, looked up and set in this order. The bytes are
// unsigned: 0xC3 gives U+00C3, and a zero byte stays a U+0000 character.
constexpr Field<DtvDemodVersionRec> kVersionFields[] = {
    PIJ_FIELD(DtvDemodVersionRec, name, C),
    PIJ_FIELD(DtvDemodVersionRec, version, C),
    PIJ_FIELD(DtvDemodVersionRec, build, C),
    PIJ_FIELD(DtvDemodVersionRec, changelist, C),
};
constexpr auto kDemodVersion =
    pij::valueClass("com/vireo/android/tvapi/dtv/vo/DtvDemodVersion", kVersionFields);

// DtvDemodDvbtInfo: each id is fetched just before its field is set, in this order.
constexpr Field<DtvDemodDvbtInfoRec> kDvbtFields[] = {
    PIJ_FIELD(DtvDemodDvbtInfoRec, u16Version, S),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u16DemodState, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, SfoValue, F),
    PIJ_FIELD(DtvDemodDvbtInfoRec, TotalCfo, F),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u16ChannelLength, S),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8Fft, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8Constel, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8Gi, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8HpCr, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8LpCr, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8Hiearchy, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8Fd, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8ChLen, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8SnrSel, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8PertoneNum, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8DigAci, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8FlagCi, B),
    PIJ_FIELD(DtvDemodDvbtInfoRec, u8TdCoef, B),
};
constexpr auto kDvbtInfo =
    pij::valueClass("com/vireo/android/tvapi/dtv/dvb/dvbt/DtvDemodDvbtInfo", kDvbtFields);

// DtvDemodDvbcInfo: likewise fetched and set one by one, in this order.
constexpr Field<DtvDemodDvbcInfoRec> kDvbcFields[] = {
    PIJ_FIELD(DtvDemodDvbcInfoRec, u16Version, S),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u16SymbolRate, S),
    PIJ_FIELD(DtvDemodDvbcInfoRec, eQamMode, B),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u32IFFreq, I),
    PIJ_FIELD(DtvDemodDvbcInfoRec, bSpecInv, Z),
    PIJ_FIELD(DtvDemodDvbcInfoRec, bSerialTS, Z),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u8SarValue, B),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u32ChkScanTimeStart, I),
    PIJ_FIELD(DtvDemodDvbcInfoRec, eLockStatus, B),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u16Strength, S),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u16Quality, S),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u32Intp, I),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u32FcFs, I),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u8Qam, B),
    PIJ_FIELD(DtvDemodDvbcInfoRec, u16SymbolRateHal, S),
};
constexpr auto kDvbcInfo =
    pij::valueClass("com/vireo/android/tvapi/dtv/dvb/dvbc/DtvDemodDvbcInfo", kDvbcFields);

// The DVB-T and DVB-C queries: a false answer gives null without any log line; otherwise
// the object is allocated first and each field is fetched and set in turn.
template <typename Rec>
jobject demodInfo(JNIEnv* env, jobject thiz, const char* fn, int line, const char* what,
                  ProxyBool (PlayerImpl::*query)(Rec&), const pij::ValueClass<Rec>& vc) {
    ALOGD("%s", what);
    return pij::withPlayer(
        env, thiz, pij::Site{fn, line, pij::Exc::IllegalState}, jobject{},
        [&](PlayerImpl& p) -> jobject {
            Rec rec{};
            if (pij::bit0((p.*query)(rec)) == 0) return nullptr;
            pij::FieldIds ids;
            ids.own(env, env->FindClass(vc.path));
            if (ids.cls == nullptr) return nullptr;
            jobject obj = pij::allocate(env, ids);
            if (obj == nullptr ||
                !pij::toObjectFetchingEach(pij::Copy{env, what}, obj, vc, &ids, rec)) {
                return nullptr;
            }
            return obj;
        });
}

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kDemodVersion), PIJ_DESCRIBE(kDvbtInfo),
                                          PIJ_DESCRIBE(kDvbcInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kDemodClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDTVDemodVersion(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jint type) {
    ALOGD("getDTVDemodVersion");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 3270, pij::Exc::IllegalState}, jobject{},
                           [&](PlayerImpl& p) {
                               DtvDemodVersionRec rec{};
                               p.getDTVDemodVersion(type, rec);  // the answer is not looked at
                               return pij::newObject(env, "getDTVDemodVersion", kDemodVersion, rec);
                           });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBTInfo(JNIEnv* env,
                                                                            jobject thiz) {
    return demodInfo(env, thiz, __func__, 3378, "getDemodDVBTInfo", &PlayerImpl::getDemodDVBTInfo,
                     kDvbtInfo);
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBCInfo(JNIEnv* env,
                                                                            jobject thiz) {
    return demodInfo(env, thiz, __func__, 3457, "getDemodDVBCInfo", &PlayerImpl::getDemodDVBCInfo,
                     kDvbcInfo);
}
