// Satellites and transponders between the player's records and the managed value objects,
// in both directions, from one description of each class.
#include "core/log.h"

#include "marshal/satellite.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Copy;
using pij::Exc;
using pij::Field;
using pij::Site;

// The managed name into the record, copied whole (a satellite name has no length limit).
bool satNameIn(const Copy& c, jobject info, jfieldID id, SatelliteInfoRec& rec) {
    ScopedLocalRef<jstring> name(c.env, static_cast<jstring>(c.env->GetObjectField(info, id)));
    if (name.get() == nullptr) {
        ALOGD("Attention the Dtv_DVBS_Satellite_Info Satellite Name is null");
        return true;
    }
    pij::ScopedUtfChars chars(c.env, name.get());
    if (chars.c_str() == nullptr) return false;  // no memory: the runtime's exception is pending
    rec.satName.setTo(chars.c_str());
    return true;
}

// Copied in this order both ways: the flag, then the int fields, then the short fields, the
// name last. The record keeps the LNB type ahead of the LNB frequency; each row names its own
// member, so the order of either side does not matter. Every record member is unsigned: it
// zero-extends on the way out and is cut to its width on the way in.
constexpr Field<SatelliteInfoRec> kSatelliteFields[] = {
    // The one managed boolean the library reduces: the service takes mdu as 0 or 1.
    PIJ_FLAG_ZERO_OR_ONE_IN(SatelliteInfoRec, mdu),
    PIJ_FIELD(SatelliteInfoRec, lowLOF, I),
    PIJ_FIELD(SatelliteInfoRec, hiLOF, I),
    PIJ_FIELD(SatelliteInfoRec, lnbFreq, I),
    PIJ_FIELD(SatelliteInfoRec, lnbType, I),
    PIJ_FIELD(SatelliteInfoRec, angle, I),
    PIJ_FIELD(SatelliteInfoRec, numberOfTp, I),
    PIJ_FIELD(SatelliteInfoRec, frequency, I),
    PIJ_FIELD(SatelliteInfoRec, diseqcLevel, S),
    PIJ_FIELD(SatelliteInfoRec, toneburstType, S),
    PIJ_FIELD(SatelliteInfoRec, swt10Port, S),
    PIJ_FIELD(SatelliteInfoRec, swt11Port, S),
    PIJ_FIELD(SatelliteInfoRec, e22KOnOff, S),
    PIJ_FIELD(SatelliteInfoRec, lnbPwrOnOff, S),
    PIJ_FIELD(SatelliteInfoRec, ov12VOnOff, S),
    PIJ_FIELD(SatelliteInfoRec, position, S),
    PIJ_FIELD(SatelliteInfoRec, satelliteId, S),
    PIJ_FIELD(SatelliteInfoRec, channelId, S),
    PIJ_FIELD(SatelliteInfoRec, pin, S),
    PIJ_FIELD(SatelliteInfoRec, lnbIdx, S),
    pij::customField<SatelliteInfoRec>(
        "satName", "Ljava/lang/String;",
        &pij::stringOut<SatelliteInfoRec, android::String8, &SatelliteInfoRec::satName, pij::Jt::L>,
        &satNameIn),
};
// The ids are fetched name first, then in the managed class's order.
constexpr auto kSatelliteLookup = pij::orderOf(
    kSatelliteFields, "satName", "lowLOF", "hiLOF", "lnbFreq", "lnbType", "diseqcLevel",
    "toneburstType", "swt10Port", "swt11Port", "e22KOnOff", "lnbPwrOnOff", "ov12VOnOff", "position",
    "angle", "numberOfTp", "satelliteId", "channelId", "frequency", "mdu", "pin", "lnbIdx");
constexpr auto kSatelliteInfo = pij::valueClass(
    "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo", kSatelliteFields, &kSatelliteLookup);

// The frequency is signed 32 bits and crosses bit for bit; the rest are unsigned. Each
// managed value is read with the accessor of its declared type. (The service's own reader
// takes every transponder field as an int; reading a byte or short field that way is
// undefined in JNI, and the typed read gives the same record for every value the managed
// side is allowed to hold.)
constexpr Field<DvbsTransponderInfoRec> kTransponderFields[] = {
    PIJ_FIELD(DvbsTransponderInfoRec, frequency, I),
    PIJ_FIELD(DvbsTransponderInfoRec, symbolRate, I),
    PIJ_FIELD(DvbsTransponderInfoRec, polarity, B),
    PIJ_FIELD(DvbsTransponderInfoRec, satelliteId, S),
    PIJ_FIELD(DvbsTransponderInfoRec, rf, S),
    PIJ_FIELD(DvbsTransponderInfoRec, tpId, I),
};
constexpr auto kTransponderInfo = pij::valueClass(
    "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/DvbsTransponderInfo", kTransponderFields);

// Out of contract: a null value object has no fields to read (reading one is a fatal JNI
// error). It is refused with an ERROR line and false; the player is not called.
jboolean refuseNullInfo(const Site& site) {
    ALOGE("%s: null value object refused", site.function);
    return JNI_FALSE;
}

// Update and add share everything but the operation. The class and its ids are looked up
// before anything is read; a class that does not match leaves the runtime's error pending,
// and the player is not called.
template <typename Rec, typename Call>
jboolean toPlayer(JNIEnv* env, jobject thiz, jobject info, const Site& site,
                  const pij::ValueClass<Rec>& vc, Call&& call) {
    return pij::withPlayer(env, thiz, site, jboolean{JNI_FALSE}, [&](PlayerImpl& p) -> jboolean {
        if (info == nullptr) return refuseNullInfo(site);
        pij::FieldIds ids;
        if (!pij::lookUp(env, vc, &ids)) return JNI_FALSE;
        Rec rec{};
        if (!pij::toRecord(Copy{env, site.function}, info, vc, ids, rec)) return JNI_FALSE;
        return pij::bit0(call(p, rec));
    });
}

// Get: the class and its ids are looked up before the player is asked; the record is
// cleared first, so a player that does not know the index leaves zeros, not stack bytes.
template <typename Rec, typename Call>
jobject fromPlayer(JNIEnv* env, jobject thiz, const Site& site, const char* what,
                   const pij::ValueClass<Rec>& vc, Call&& call) {
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) -> jobject {
        pij::FieldIds ids;
        if (!pij::lookUp(env, vc, &ids)) return nullptr;
        Rec rec{};
        call(p, rec);
        jobject obj = pij::allocate(env, ids);
        if (obj == nullptr || !pij::toObject(Copy{env, what}, obj, vc, ids, rec)) return nullptr;
        return obj;
    });
}

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kSatelliteInfo),
                                          PIJ_DESCRIBE(kTransponderInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kSatelliteClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getSatelliteInfo(JNIEnv* env,
                                                                            jobject thiz,
                                                                            jint index) {
    ALOGD("getSatelliteInfo");
    return fromPlayer(
        env, thiz, Site{__func__, 3976, Exc::IllegalState}, "getSatelliteInfo", kSatelliteInfo,
        [&](PlayerImpl& p, SatelliteInfoRec& rec) { p.getSatelliteInfo(index, rec); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_updateSatelliteInfo(JNIEnv* env,
                                                                                jobject thiz,
                                                                                jint index,
                                                                                jobject info) {
    ALOGD("updateSatelliteInfo");
    return toPlayer(
        env, thiz, info, Site{__func__, 4216, Exc::IllegalState}, kSatelliteInfo,
        [&](PlayerImpl& p, SatelliteInfoRec& rec) { return p.updateSatelliteInfo(index, rec); });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_addSatelliteInfo(JNIEnv* env,
                                                                             jobject thiz,
                                                                             jobject info) {
    ALOGD("addSatelliteInfo");
    return toPlayer(env, thiz, info, Site{__func__, 4308, Exc::IllegalState}, kSatelliteInfo,
                    [&](PlayerImpl& p, SatelliteInfoRec& rec) { return p.addSatelliteInfo(rec); });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getTransponderInfo(JNIEnv* env,
                                                                              jobject thiz,
                                                                              jint satellite,
                                                                              jint index) {
    ALOGD("getTransponderInfo");
    return fromPlayer(env, thiz, Site{__func__, 4180, Exc::IllegalState}, "getTransponderInfo",
                      kTransponderInfo, [&](PlayerImpl& p, DvbsTransponderInfoRec& rec) {
                          p.getTransponderInfo(satellite, index, rec);
                      });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_updateTransponderInfo(
    JNIEnv* env, jobject thiz, jint satellite, jint index, jobject info) {
    ALOGD("updateTransponderInfo");
    return toPlayer(env, thiz, info, Site{__func__, 4282, Exc::IllegalState}, kTransponderInfo,
                    [&](PlayerImpl& p, DvbsTransponderInfoRec& rec) {
                        return p.updateTransponderInfo(satellite, index, rec);
                    });
}

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_addTransponderInfo(JNIEnv* env,
                                                                               jobject thiz,
                                                                               jint satellite,
                                                                               jobject info) {
    ALOGD("addTransponderInfo");
    return toPlayer(env, thiz, info, Site{__func__, 4352, Exc::IllegalState}, kTransponderInfo,
                    [&](PlayerImpl& p, DvbsTransponderInfoRec& rec) {
                        return p.addTransponderInfo(satellite, rec);
                    });
}
