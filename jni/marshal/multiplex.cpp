// Where a DTV service is carried: the multiplex of the current service or of a programme
// number, the RF channel behind a channel index, and the NIT frequency pair of a region.
#include "core/log.h"

#include "marshal/multiplex.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Field;

// DvbMuxInfo, set in the record's order.
constexpr Field<DvbMuxInfoRec> kMuxFields[] = {
    PIJ_FIELD(DvbMuxInfoRec, satTableId, I),
    PIJ_FIELD(DvbMuxInfoRec, networkTableID, I),
    PIJ_FIELD(DvbMuxInfoRec, refCnt, I),
    PIJ_FIELD(DvbMuxInfoRec, transportStreamId, I),
    PIJ_FIELD(DvbMuxInfoRec, originalNetworkId, I),
    PIJ_FIELD(DvbMuxInfoRec, networkId, I),
    PIJ_FIELD(DvbMuxInfoRec, cellID, I),
    PIJ_FIELD(DvbMuxInfoRec, rfNumber, S),
    PIJ_FIELD(DvbMuxInfoRec, frequency, I),
    PIJ_FIELD(DvbMuxInfoRec, lossSignalFrequency, I),
    PIJ_FIELD(DvbMuxInfoRec, lossSignalStartTime, I),
    PIJ_FIELD(DvbMuxInfoRec, symbRate, I),
    PIJ_FIELD(DvbMuxInfoRec, modulationMode, S),
    PIJ_FIELD(DvbMuxInfoRec, plpID, I),
    PIJ_FIELD(DvbMuxInfoRec, lpCoding, Z),
    PIJ_FIELD(DvbMuxInfoRec, satID, S),
    PIJ_FIELD(DvbMuxInfoRec, bandwidth, S),
    PIJ_FIELD(DvbMuxInfoRec, polarityPilotsReserved, I),
};
// getCurrentMuxInfo fetches symbRate before lossSignalStartTime; getMuxInfoByProgramNumber
// fetches the ids in the order they are set.
constexpr auto kCurrentMuxLookup =
    pij::orderOf(kMuxFields, "satTableId", "networkTableID", "refCnt", "transportStreamId",
                 "originalNetworkId", "networkId", "cellID", "rfNumber", "frequency",
                 "lossSignalFrequency", "symbRate", "lossSignalStartTime", "modulationMode",
                 "plpID", "lpCoding", "satID", "bandwidth", "polarityPilotsReserved");
constexpr auto kDvbMuxInfo = pij::valueClass("com/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo",
                                             kMuxFields, &kCurrentMuxLookup);
constexpr uint8_t kByProgramLookup[] = {0, 1,  2,  3,  4,  5,  6,  7,  8,
                                        9, 10, 11, 12, 13, 14, 15, 16, 17};
static_assert(sizeof kByProgramLookup == sizeof kMuxFields / sizeof kMuxFields[0],
              "every row of kMuxFields, in its order");

constexpr Field<RfInfoRec> kRfFields[] = {
    PIJ_FIELD(RfInfoRec, rfPhyNum, S),
    PIJ_FIELD(RfInfoRec, frequency, I),
    PIJ_FIELD(RfInfoRec, isVHF, Z),
    PIJ_FIELD(RfInfoRec, rfName, L),
};
constexpr auto kRfInfo = pij::valueClass("com/vireo/android/tvapi/dtv/vo/RfInfo", kRfFields);

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kDvbMuxInfo), PIJ_DESCRIBE(kRfInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kMultiplexClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getRFInfo(JNIEnv* env, jobject thiz,
                                                                     jint type, jint index) {
    ALOGD("getRFInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 2389, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               RfInfoRec rec{};  // cleared; the name starts empty
                               p.getRfInfo(type, index, rec);
                               return pij::newObject(env, "getRFInfo", kRfInfo, rec);
                           });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getCurrentMuxInfo(JNIEnv* env,
                                                                             jobject thiz) {
    ALOGD("getCurrentMuxInfo");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 2508, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               DvbMuxInfoRec rec{};
                               p.getCurrentMuxInfo(rec);
                               return pij::newObject(env, "getCurrentMuxInfo", kDvbMuxInfo, rec);
                           });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getMuxInfoByProgramNumber(JNIEnv* env,
                                                                                     jobject thiz,
                                                                                     jint program,
                                                                                     jshort type) {
    ALOGD("getMuxInfoByProgramNumber");
    return pij::withPlayer(env, thiz, pij::Site{__func__, 2584, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               DvbMuxInfoRec rec{};
                               p.getMuxInfoByProgramNumber(program, type, rec);
                               return pij::newObject(env, "getMuxInfoByProgramNumber", kDvbMuxInfo,
                                                     rec, kByProgramLookup);
                           });
}

PIJ_EXPORT jintArray com_vireo_android_tvapi_impl_PlayerImpl_native_getNitFrequencyByDtvRegion(
    JNIEnv* env, jobject thiz, jint region) {
    ALOGD("native_getNitFrequencyByDtvRegion");
    const char* fn = __func__;
    return pij::withPlayer(
        env, thiz, pij::Site{fn, 2944, pij::Exc::IllegalState}, jintArray{},
        [&](PlayerImpl& p) -> jintArray {
            int32_t freq[2] = {0, 0};  // cleared: a player that answers true writes both
            if (pij::bit0(p.getNitFrequencyByDtvRegion(region, &freq[0], &freq[1])) == 0) {
                // A refusal is reported like a missing player, naming the same class.
                pij::reportFatal(fn, 2950, pij::Exc::IllegalState);
                return nullptr;
            }
            return static_cast<jintArray>(pij::newArray(env, freq, 2));
        });
}
