// Where a DTV service is carried: the multiplex of the current service or of a programme
// number, the RF channel behind a channel index, and the NIT frequency pair of a region.
#include "marshal/multiplex.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/service_text.h"
#include "marshal/marshal_util.h"

namespace {

using pij::FieldCopy;
using pij::Jt;
using pij::ManagedClass;

// DvbMuxInfo, listed in the order getCurrentMuxInfo looks the fields up (symbRate before
// lossSignalStartTime); the set order is the record's, kMuxRows.
enum MuxField : uint8_t {
    kSatTable,
    kNetTable,
    kRefCnt,
    kTsId,
    kOnId,
    kNetId,
    kCell,
    kRfNumber,
    kFrequency,
    kLossFreq,
    kSymbRate,
    kLossStart,
    kModulation,
    kPlp,
    kLpCoding,
    kSatId,
    kBandwidth,
    kPolarity,
};
const ManagedClass kDvbMuxInfo{"com/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo",
                               {{"satTableId", "I"},
                                {"networkTableID", "I"},
                                {"refCnt", "I"},
                                {"transportStreamId", "I"},
                                {"originalNetworkId", "I"},
                                {"networkId", "I"},
                                {"cellID", "I"},
                                {"rfNumber", "S"},
                                {"frequency", "I"},
                                {"lossSignalFrequency", "I"},
                                {"symbRate", "I"},
                                {"lossSignalStartTime", "I"},
                                {"modulationMode", "S"},
                                {"plpID", "I"},
                                {"lpCoding", "Z"},
                                {"satID", "S"},
                                {"bandwidth", "S"},
                                {"polarityPilotsReserved", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kDvbMuxInfo);

// getMuxInfoByProgramNumber looks symbRate up after lossSignalStartTime.
const uint8_t kByProgramLookupOrder[] = {
    kSatTable, kNetTable,  kRefCnt,   kTsId,       kOnId, kNetId,    kCell,  kRfNumber,  kFrequency,
    kLossFreq, kLossStart, kSymbRate, kModulation, kPlp,  kLpCoding, kSatId, kBandwidth, kPolarity,
};

const FieldCopy<DvbMuxInfoRec> kMuxRows[] = {
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::satTableId)(kSatTable),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::networkTableID)(kNetTable),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::refCnt)(kRefCnt),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::transportStreamId)(kTsId),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::originalNetworkId)(kOnId),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::networkId)(kNetId),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::cellID)(kCell),
    PIJ_COPY(Jt::S, &DvbMuxInfoRec::rfNumber)(kRfNumber),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::frequency)(kFrequency),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::lossSignalFrequency)(kLossFreq),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::lossSignalStartTime)(kLossStart),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::symbRate)(kSymbRate),
    PIJ_COPY(Jt::S, &DvbMuxInfoRec::modulationMode)(kModulation),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::plpID)(kPlp),
    PIJ_COPY(Jt::Z, &DvbMuxInfoRec::lpCoding)(kLpCoding),
    PIJ_COPY(Jt::S, &DvbMuxInfoRec::satID)(kSatId),
    PIJ_COPY(Jt::S, &DvbMuxInfoRec::bandwidth)(kBandwidth),
    PIJ_COPY(Jt::I, &DvbMuxInfoRec::polarityPilotsReserved)(kPolarity),
};

enum RfField : uint8_t { kPhyNum, kRfFrequency, kVhf, kRfName };
const ManagedClass kRfInfo{
    "com/vireo/android/tvapi/dtv/vo/RfInfo",
    {{"rfPhyNum", "S"}, {"frequency", "I"}, {"isVHF", "Z"}, {"rfName", "Ljava/lang/String;"}}};
PIJ_REGISTER_VALUE_CLASS(kRfInfo);

const FieldCopy<RfInfoRec> kRfRows[] = {
    PIJ_COPY(Jt::S, &RfInfoRec::rfPhyNum)(kPhyNum),
    PIJ_COPY(Jt::I, &RfInfoRec::frequency)(kRfFrequency),
    PIJ_COPY(Jt::Z, &RfInfoRec::isVHF)(kVhf),
};

// Source lines the failure reports carry.
constexpr int kLineRfInfo = 2389;
constexpr int kLineCurrentMux = 2508;
constexpr int kLineMuxByProgram = 2584;
constexpr int kLineNitNoPlayer = 2944;
constexpr int kLineNitRefused = 2950;

jobject buildMuxInfo(JNIEnv* env, const DvbMuxInfoRec& rec, const uint8_t* lookupOrder) {
    jclass cls = env->FindClass(kDvbMuxInfo.path);
    const pij::FieldIds ids = pij::lookupFields(env, cls, kDvbMuxInfo, lookupOrder);
    jobject obj = env->AllocObject(cls);
    pij::copyFields(env, obj, ids, kMuxRows, rec);
    return obj;
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getRFInfo)(JNIEnv* env, jobject thiz, jint type, jint index) {
    ALOGD("getRFInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineRfInfo, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               RfInfoRec rec{};  // cleared; the name starts empty
                               p.getRfInfo(type, index, rec);
                               jclass cls = env->FindClass(kRfInfo.path);
                               const pij::FieldIds ids = pij::lookupFields(env, cls, kRfInfo);
                               jobject obj = env->AllocObject(cls);
                               pij::copyFields(env, obj, ids, kRfRows, rec);
                               env->SetObjectField(
                                   obj, ids[kRfName],
                                   pij::newStringFromService(env, rec.rfName.c_str(), "getRFInfo"));
                               return obj;
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getCurrentMuxInfo)(JNIEnv* env, jobject thiz) {
    ALOGD("getCurrentMuxInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineCurrentMux, pij::Exc::TvIpc},
                           jobject{}, [&](PlayerImpl& p) {
                               DvbMuxInfoRec rec{};
                               p.getCurrentMuxInfo(rec);
                               return buildMuxInfo(env, rec, nullptr);
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getMuxInfoByProgramNumber)(JNIEnv* env, jobject thiz, jint program,
                                                       jshort type) {
    ALOGD("getMuxInfoByProgramNumber");
    return pij::withPlayer(env, thiz, pij::Site{__func__, kLineMuxByProgram, pij::Exc::TvIpc},
                           jobject{}, [&](PlayerImpl& p) {
                               DvbMuxInfoRec rec{};
                               p.getMuxInfoByProgramNumber(program, type, rec);
                               return buildMuxInfo(env, rec, kByProgramLookupOrder);
                           });
}

PIJ_EXPORT jintArray PIJ_IMPL(native_getNitFrequencyByDtvRegion)(JNIEnv* env, jobject thiz,
                                                                 jint region) {
    ALOGD("native_getNitFrequencyByDtvRegion");
    const char* fn = __func__;
    return pij::withPlayer(
        env, thiz, pij::Site{fn, kLineNitNoPlayer, pij::Exc::IllegalState}, jintArray{},
        [&](PlayerImpl& p) -> jintArray {
            int32_t freq[2] = {0, 0};  // cleared: a player that answers true writes both
            if (pij::bit0(p.getNitFrequencyByDtvRegion(region, &freq[0], &freq[1])) == 0) {
                // A refusal is reported like a missing player, naming the same class.
                pij::reportFatal(fn, kLineNitRefused, pij::Exc::IllegalState);
                return nullptr;
            }
            return pij::newWidenedArray<jint>(env, freq, 2);
        });
}
