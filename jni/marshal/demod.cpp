// Demodulator information for service screens: the firmware version of a demodulator and the
// internal state of the DVB-T and DVB-C demodulators.
#include "marshal/demod.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"

namespace {

using pij::FieldCopy;
using pij::Jt;
using pij::ManagedClass;

// DtvDemodVersion: four character arrays, looked up and set in this order.
const ManagedClass kDemodVersion{
    "com/vireo/android/tvapi/dtv/vo/DtvDemodVersion",
    {{"name", "[C"}, {"version", "[C"}, {"build", "[C"}, {"changelist", "[C"}}};
PIJ_REGISTER_VALUE_CLASS(kDemodVersion);

struct VersionPart {
    size_t offset;
    jsize length;
};
// One row per field of kDemodVersion, in its order.
const VersionPart kVersionParts[] = {
    {offsetof(DtvDemodVersionRec, name), sizeof(DtvDemodVersionRec::name)},
    {offsetof(DtvDemodVersionRec, version), sizeof(DtvDemodVersionRec::version)},
    {offsetof(DtvDemodVersionRec, build), sizeof(DtvDemodVersionRec::build)},
    {offsetof(DtvDemodVersionRec, changelist), sizeof(DtvDemodVersionRec::changelist)},
};

// DtvDemodDvbtInfo: each id is fetched just before its field is set, in this order.
enum DvbtField : uint8_t {
    kTVersion,
    kTDemodState,
    kTSfo,
    kTTotalCfo,
    kTChannelLength,
    kTFft,
    kTConstel,
    kTGi,
    kTHpCr,
    kTLpCr,
    kTHierarchy,
    kTFd,
    kTChLen,
    kTSnrSel,
    kTPertoneNum,
    kTDigAci,
    kTFlagCi,
    kTTdCoef,
};
const ManagedClass kDvbtInfo{"com/vireo/android/tvapi/dtv/dvb/dvbt/DtvDemodDvbtInfo",
                             {{"u16Version", "S"},
                              {"u16DemodState", "B"},
                              {"SfoValue", "F"},
                              {"TotalCfo", "F"},
                              {"u16ChannelLength", "S"},
                              {"u8Fft", "B"},
                              {"u8Constel", "B"},
                              {"u8Gi", "B"},
                              {"u8HpCr", "B"},
                              {"u8LpCr", "B"},
                              {"u8Hiearchy", "B"},
                              {"u8Fd", "B"},
                              {"u8ChLen", "B"},
                              {"u8SnrSel", "B"},
                              {"u8PertoneNum", "B"},
                              {"u8DigAci", "B"},
                              {"u8FlagCi", "B"},
                              {"u8TdCoef", "B"}}};
PIJ_REGISTER_VALUE_CLASS(kDvbtInfo);

const FieldCopy<DtvDemodDvbtInfoRec> kDvbtRows[] = {
    PIJ_COPY(Jt::S, &DtvDemodDvbtInfoRec::u16Version)(kTVersion),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u16DemodState)(kTDemodState),
    PIJ_COPY(Jt::F, &DtvDemodDvbtInfoRec::SfoValue)(kTSfo),
    PIJ_COPY(Jt::F, &DtvDemodDvbtInfoRec::TotalCfo)(kTTotalCfo),
    PIJ_COPY(Jt::S, &DtvDemodDvbtInfoRec::u16ChannelLength)(kTChannelLength),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8Fft)(kTFft),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8Constel)(kTConstel),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8Gi)(kTGi),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8HpCr)(kTHpCr),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8LpCr)(kTLpCr),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8Hiearchy)(kTHierarchy),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8Fd)(kTFd),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8ChLen)(kTChLen),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8SnrSel)(kTSnrSel),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8PertoneNum)(kTPertoneNum),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8DigAci)(kTDigAci),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8FlagCi)(kTFlagCi),
    PIJ_COPY(Jt::B, &DtvDemodDvbtInfoRec::u8TdCoef)(kTTdCoef),
};

// DtvDemodDvbcInfo: likewise fetched and set one by one, in this order.
enum DvbcField : uint8_t {
    kCVersion,
    kCSymbolRate,
    kCQamMode,
    kCIfFreq,
    kCSpecInv,
    kCSerialTs,
    kCSarValue,
    kCChkScanTimeStart,
    kCLockStatus,
    kCStrength,
    kCQuality,
    kCIntp,
    kCFcFs,
    kCQam,
    kCSymbolRateHal,
};
const ManagedClass kDvbcInfo{"com/vireo/android/tvapi/dtv/dvb/dvbc/DtvDemodDvbcInfo",
                             {{"u16Version", "S"},
                              {"u16SymbolRate", "S"},
                              {"eQamMode", "B"},
                              {"u32IFFreq", "I"},
                              {"bSpecInv", "Z"},
                              {"bSerialTS", "Z"},
                              {"u8SarValue", "B"},
                              {"u32ChkScanTimeStart", "I"},
                              {"eLockStatus", "B"},
                              {"u16Strength", "S"},
                              {"u16Quality", "S"},
                              {"u32Intp", "I"},
                              {"u32FcFs", "I"},
                              {"u8Qam", "B"},
                              {"u16SymbolRateHal", "S"}}};
PIJ_REGISTER_VALUE_CLASS(kDvbcInfo);

const FieldCopy<DtvDemodDvbcInfoRec> kDvbcRows[] = {
    PIJ_COPY(Jt::S, &DtvDemodDvbcInfoRec::u16Version)(kCVersion),
    PIJ_COPY(Jt::S, &DtvDemodDvbcInfoRec::u16SymbolRate)(kCSymbolRate),
    PIJ_COPY(Jt::B, &DtvDemodDvbcInfoRec::eQamMode)(kCQamMode),
    PIJ_COPY(Jt::I, &DtvDemodDvbcInfoRec::u32IFFreq)(kCIfFreq),
    PIJ_COPY(Jt::Z, &DtvDemodDvbcInfoRec::bSpecInv)(kCSpecInv),
    PIJ_COPY(Jt::Z, &DtvDemodDvbcInfoRec::bSerialTS)(kCSerialTs),
    PIJ_COPY(Jt::B, &DtvDemodDvbcInfoRec::u8SarValue)(kCSarValue),
    PIJ_COPY(Jt::I, &DtvDemodDvbcInfoRec::u32ChkScanTimeStart)(kCChkScanTimeStart),
    PIJ_COPY(Jt::B, &DtvDemodDvbcInfoRec::eLockStatus)(kCLockStatus),
    PIJ_COPY(Jt::S, &DtvDemodDvbcInfoRec::u16Strength)(kCStrength),
    PIJ_COPY(Jt::S, &DtvDemodDvbcInfoRec::u16Quality)(kCQuality),
    PIJ_COPY(Jt::I, &DtvDemodDvbcInfoRec::u32Intp)(kCIntp),
    PIJ_COPY(Jt::I, &DtvDemodDvbcInfoRec::u32FcFs)(kCFcFs),
    PIJ_COPY(Jt::B, &DtvDemodDvbcInfoRec::u8Qam)(kCQam),
    PIJ_COPY(Jt::S, &DtvDemodDvbcInfoRec::u16SymbolRateHal)(kCSymbolRateHal),
};

// Source lines the failure reports carry.
constexpr int kLineVersion = 3270;
constexpr int kLineDvbt = 3378;
constexpr int kLineDvbc = 3457;

// The DVB-T and DVB-C queries: a false answer gives null without any log line; otherwise
// the object is allocated first and each field is fetched and set in turn.
template <typename Rec, size_t N>
jobject demodInfo(JNIEnv* env, jobject thiz, const char* fn, int line, const char* what,
                  ProxyBool (PlayerImpl::*query)(Rec&), const ManagedClass& mc,
                  const FieldCopy<Rec> (&rows)[N]) {
    ALOGD("%s", what);
    return pij::withPlayer(env, thiz, pij::Site{fn, line, pij::Exc::IllegalState}, jobject{},
                           [&](PlayerImpl& p) -> jobject {
                               Rec rec{};
                               if (pij::bit0((p.*query)(rec)) == 0) return nullptr;
                               jclass cls = env->FindClass(mc.path);
                               jobject obj = env->AllocObject(cls);
                               pij::copyFieldsFetchingEach(env, cls, obj, mc, rows, rec);
                               return obj;
                           });
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getDTVDemodVersion)(JNIEnv* env, jobject thiz, jint type) {
    ALOGD("getDTVDemodVersion");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineVersion, pij::Exc::IllegalState},
                           jobject{}, [&](PlayerImpl& p) {
                               DtvDemodVersionRec rec{};
                               p.getDTVDemodVersion(type, rec);  // the answer is not looked at
                               jclass cls = env->FindClass(kDemodVersion.path);
                               const pij::FieldIds ids = pij::lookupFields(env, cls, kDemodVersion);
                               jobject obj = env->AllocObject(cls);
                               const auto* bytes = reinterpret_cast<const uint8_t*>(&rec);
                               size_t field = 0;
                               for (const VersionPart& part : kVersionParts) {
                                   // Unsigned bytes: 0xC3 gives U+00C3; a zero byte stays a U+0000
                                   // character.
                                   pij::setWidenedArrayField<jchar>(
                                       env, obj, ids[field++], bytes + part.offset, part.length);
                               }
                               return obj;
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBTInfo)(JNIEnv* env, jobject thiz) {
    return demodInfo(env, thiz, __func__, kLineDvbt, "getDemodDVBTInfo",
                     &PlayerImpl::getDemodDVBTInfo, kDvbtInfo, kDvbtRows);
}

PIJ_EXPORT jobject PIJ_IMPL(getDemodDVBCInfo)(JNIEnv* env, jobject thiz) {
    return demodInfo(env, thiz, __func__, kLineDvbc, "getDemodDVBCInfo",
                     &PlayerImpl::getDemodDVBCInfo, kDvbcInfo, kDvbcRows);
}
