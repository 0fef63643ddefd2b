// ISDB emergency warnings (EWS through parcels, EWBS by area code and operation) and the
// player's list of user locations.
#include "core/log.h"

#include "marshal/isdb.h"

#include <algorithm>
#include <climits>
#include <vector>

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"
#include "marshal/parcels.h"

namespace {

using pij::Copy;
using pij::Exc;
using pij::Field;
using pij::Site;

// codeList always has this many entries; dataLen says how many the player reported.
constexpr jsize kEwbsCodes = 100;

// What getEWBSInfo hands over: the request, the player's answer and its codes.
struct EwbsInfoValues {
    int32_t reqAreaCode;
    int32_t returnCode;
    int32_t titleType;
    // The count as reported, not capped (only a count past the int range, which no player
    // can fill, is held at INT_MAX).
    int32_t dataLen;
    const std::vector<int32_t>* codes;
};

// codeList: always 100 entries, the first min(count, 100) of them the player's codes.
bool codeListOut(const Copy& c, jobject obj, jfieldID id, const EwbsInfoValues& v) {
    const size_t count = v.codes->size();
    jsize copied = static_cast<jsize>(std::min<size_t>(count, kEwbsCodes));
    ALOGI("list size = %d", copied);
    jint list[kEwbsCodes] = {};
    for (jsize i = 0; i < copied; ++i) {
        list[i] = (*v.codes)[static_cast<size_t>(i)];
        ALOGI("code[%d] = %d", i, list[i]);
    }
    return pij::setArrayField<pij::Jt::I>(c.env, obj, id, list);
}

// Looked up in the managed class's order; dataLen is set before the list.
constexpr Field<EwbsInfoValues> kEwbsInfoFields[] = {
    PIJ_FIELD(EwbsInfoValues, reqAreaCode, I),
    PIJ_FIELD(EwbsInfoValues, returnCode, I),
    PIJ_FIELD(EwbsInfoValues, titleType, I),
    PIJ_FIELD(EwbsInfoValues, dataLen, I),
    pij::customField<EwbsInfoValues>("codeList", "[I", &codeListOut),
};
constexpr auto kEwbsInfoLookup =
    pij::orderOf(kEwbsInfoFields, "reqAreaCode", "returnCode", "titleType", "codeList", "dataLen");
constexpr auto kEwbsInfo = pij::valueClass("com/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo",
                                           kEwbsInfoFields, &kEwbsInfoLookup);

struct EwbsOpInfoValues {
    int32_t reqOp;
    int32_t returnCode;
    int32_t value;
};
constexpr Field<EwbsOpInfoValues> kEwbsOpInfoFields[] = {
    PIJ_FIELD(EwbsOpInfoValues, reqOp, I),
    PIJ_FIELD(EwbsOpInfoValues, returnCode, I),
    PIJ_FIELD(EwbsOpInfoValues, value, I),
};
constexpr auto kEwbsOpInfo =
    pij::valueClass("com/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsOpInfo", kEwbsOpInfoFields);

// Signed 16-bit in the record: western and southern values stay negative. The name is set
// last and fetched first.
constexpr Field<LocationInfoRec> kLocationFields[] = {
    PIJ_FIELD(LocationInfoRec, longitude, I),
    PIJ_FIELD(LocationInfoRec, latitude, I),
    PIJ_FIELD(LocationInfoRec, locationName, L),
};
constexpr auto kLocationLookup =
    pij::orderOf(kLocationFields, "locationName", "longitude", "latitude");
constexpr auto kLocationInfo = pij::valueClass(
    "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/LocationInfo", kLocationFields, &kLocationLookup);

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kEwbsInfo), PIJ_DESCRIBE(kEwbsOpInfo),
                                          PIJ_DESCRIBE(kLocationInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kIsdbClasses = pij::classList(kClasses);

PIJ_EXPORT jboolean com_vireo_android_tvapi_impl_PlayerImpl_getEWSInfo(JNIEnv* env, jobject thiz,
                                                                       jobject request,
                                                                       jobject reply) {
    ALOGI("getEWSInfo");
    return pij::withPlayer(env, thiz, Site{__func__, 4528, Exc::IllegalState}, jboolean{JNI_FALSE},
                           [&](PlayerImpl& p) {
                               android::Parcel* in = VndkGetParcelForJavaObject(env, request);
                               android::Parcel* out = VndkGetParcelForJavaObject(env, reply);
                               // A parcel that could not be converted goes on as null.
                               return pij::bit0(p.getEWSInfo(in, out));
                           });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEWBSInfo(JNIEnv* env, jobject thiz,
                                                                       jint areaCode) {
    ALOGI("getEWBSInfo, code = %d", areaCode);
    Site site{__func__, 4548, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        int32_t titleType = 0;
        std::vector<int32_t> codes;
        int32_t ret = p.getEWBSInfo(areaCode, &titleType, &codes);
        ALOGI("ret = %d", ret);

        const EwbsInfoValues values{areaCode, ret, titleType,
                                    static_cast<int32_t>(std::min<size_t>(codes.size(), INT_MAX)),
                                    &codes};
        return pij::newObject(env, "getEWBSInfo", kEwbsInfo, values);
    });
}

PIJ_EXPORT jint com_vireo_android_tvapi_impl_PlayerImpl_setEWBSOpInfo(JNIEnv* env, jobject thiz,
                                                                      jint op, jint value) {
    ALOGD("setEWBSOpInfo, %d %d", op, value);
    return pij::withPlayer(env, thiz, Site{__func__, 4590, Exc::IllegalState}, jint{0},
                           [&](PlayerImpl& p) {
                               int32_t ret = p.setEWBSOpInfo(op, value);
                               ALOGD("ret = %d", ret);
                               return static_cast<jint>(ret);
                           });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getEWBSOpInfo(JNIEnv* env, jobject thiz,
                                                                         jint op) {
    ALOGI("getEWBSOpInfo, op = %d", op);
    Site site{__func__, 4610, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        int32_t value = 0;
        int32_t ret = p.getEWBSOpInfo(op, &value);
        jobject obj =
            pij::newObject(env, "getEWBSOpInfo", kEwbsOpInfo, EwbsOpInfoValues{op, ret, value});
        ALOGD("ret = %d, value = %d", ret, value);
        return obj;
    });
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationInfo(JNIEnv* env,
                                                                               jobject thiz,
                                                                               jint index) {
    ALOGD("getUserLocationInfo");
    Site site{__func__, 4688, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        LocationInfoRec rec{};
        p.getUserLocationInfo(index, rec);
        return pij::newObject(env, "getUserLocationInfo", kLocationInfo, rec);
    });
}
