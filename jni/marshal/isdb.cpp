// ISDB emergency warnings (EWS through parcels, EWBS by area code and operation) and the
// player's list of user locations.
#include "marshal/isdb.h"

#include <algorithm>
#include <climits>
#include <vector>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/log.h"
#include "core/service_text.h"
#include "marshal/parcels.h"
#include "marshal/value_classes.h"

namespace {

using pij::Exc;
using pij::Site;

// Source lines of the failure reports (rows 137 to 140 and 143).
constexpr int kLineGetEws = 4528;
constexpr int kLineGetEwbs = 4548;
constexpr int kLineSetEwbsOp = 4590;
constexpr int kLineGetEwbsOp = 4610;
constexpr int kLineGetUserLocation = 4688;

// codeList always has this many entries; dataLen says how many the player reported.
constexpr jsize kEwbsCodes = 100;

const pij::ManagedClass kEwbsInfoClass{"com/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo",
                                       {{"reqAreaCode", "I"},
                                        {"returnCode", "I"},
                                        {"titleType", "I"},
                                        {"codeList", "[I"},
                                        {"dataLen", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kEwbsInfoClass);
enum EwbsInfoField { kReqAreaCode, kEwbsReturnCode, kTitleType, kCodeList, kDataLen };

const pij::ManagedClass kEwbsOpInfoClass{"com/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsOpInfo",
                                         {{"reqOp", "I"}, {"returnCode", "I"}, {"value", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kEwbsOpInfoClass);
enum EwbsOpInfoField { kReqOp, kOpReturnCode, kOpValue };

const pij::ManagedClass kLocationClass{
    "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/LocationInfo",
    {{"locationName", "Ljava/lang/String;"}, {"longitude", "I"}, {"latitude", "I"}}};
PIJ_REGISTER_VALUE_CLASS(kLocationClass);
enum LocationField { kLocationName, kLongitude, kLatitude };

// A new object of the listed class (no constructor runs) and its field ids, in list order.
struct Built {
    jclass cls;
    jobject obj;
    jfieldID ids[5];
};

Built allocate(JNIEnv* env, const pij::ManagedClass& mc) {
    Built b{};
    b.cls = env->FindClass(mc.path);
    for (size_t i = 0; i < mc.fields.size() && i < 5; ++i) {
        b.ids[i] = env->GetFieldID(b.cls, mc.fields[i].name, mc.fields[i].signature);
    }
    b.obj = env->AllocObject(b.cls);
    return b;
}

}  // namespace

PIJ_EXPORT jboolean PIJ_IMPL(getEWSInfo)(JNIEnv* env, jobject thiz, jobject request,
                                         jobject reply) {
    ALOGI("getEWSInfo");
    return pij::withPlayer(env, thiz, Site{__func__, kLineGetEws, Exc::IllegalState},
                           jboolean{JNI_FALSE}, [&](PlayerImpl& p) {
                               android::Parcel* in = VndkGetParcelForJavaObject(env, request);
                               android::Parcel* out = VndkGetParcelForJavaObject(env, reply);
                               // A parcel that could not be converted goes on as null.
                               return pij::bit0(p.getEWSInfo(in, out));
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getEWBSInfo)(JNIEnv* env, jobject thiz, jint areaCode) {
    ALOGI("getEWBSInfo, code = %d", areaCode);
    Site site{__func__, kLineGetEwbs, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        int32_t titleType = 0;
        std::vector<int32_t> codes;
        int32_t ret = p.getEWBSInfo(areaCode, &titleType, &codes);
        ALOGI("ret = %d", ret);

        Built b = allocate(env, kEwbsInfoClass);
        env->SetIntField(b.obj, b.ids[kReqAreaCode], areaCode);
        env->SetIntField(b.obj, b.ids[kEwbsReturnCode], ret);
        env->SetIntField(b.obj, b.ids[kTitleType], titleType);
        // dataLen is the count as reported, not capped (only a count past the int range,
        // which no player can fill, is held at INT_MAX).
        size_t count = codes.size();
        env->SetIntField(b.obj, b.ids[kDataLen],
                         static_cast<jint>(std::min<size_t>(count, INT_MAX)));
        jsize copied = static_cast<jsize>(std::min<size_t>(count, kEwbsCodes));
        ALOGI("list size = %d", copied);

        jint list[kEwbsCodes] = {};
        for (jsize i = 0; i < copied; ++i) {
            list[i] = codes[static_cast<size_t>(i)];
            ALOGI("code[%d] = %d", i, list[i]);
        }
        jintArray array = env->NewIntArray(kEwbsCodes);
        env->SetIntArrayRegion(array, 0, kEwbsCodes, list);
        env->SetObjectField(b.obj, b.ids[kCodeList], array);
        env->DeleteLocalRef(array);
        env->DeleteLocalRef(b.cls);
        return b.obj;
    });
}

PIJ_EXPORT jint PIJ_IMPL(setEWBSOpInfo)(JNIEnv* env, jobject thiz, jint op, jint value) {
    ALOGD("setEWBSOpInfo, %d %d", op, value);
    return pij::withPlayer(env, thiz, Site{__func__, kLineSetEwbsOp, Exc::IllegalState}, jint{0},
                           [&](PlayerImpl& p) {
                               int32_t ret = p.setEWBSOpInfo(op, value);
                               ALOGD("ret = %d", ret);
                               return static_cast<jint>(ret);
                           });
}

PIJ_EXPORT jobject PIJ_IMPL(getEWBSOpInfo)(JNIEnv* env, jobject thiz, jint op) {
    ALOGI("getEWBSOpInfo, op = %d", op);
    Site site{__func__, kLineGetEwbsOp, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        int32_t value = 0;
        int32_t ret = p.getEWBSOpInfo(op, &value);
        Built b = allocate(env, kEwbsOpInfoClass);
        env->SetIntField(b.obj, b.ids[kReqOp], op);
        env->SetIntField(b.obj, b.ids[kOpReturnCode], ret);
        env->SetIntField(b.obj, b.ids[kOpValue], value);
        ALOGD("ret = %d, value = %d", ret, value);
        env->DeleteLocalRef(b.cls);
        return b.obj;
    });
}

PIJ_EXPORT jobject PIJ_IMPL(getUserLocationInfo)(JNIEnv* env, jobject thiz, jint index) {
    ALOGD("getUserLocationInfo");
    Site site{__func__, kLineGetUserLocation, Exc::IllegalState};
    return pij::withPlayer(env, thiz, site, jobject{nullptr}, [&](PlayerImpl& p) {
        LocationInfoRec rec{};
        p.getUserLocationInfo(index, rec);
        Built b = allocate(env, kLocationClass);
        // Signed 16-bit in the record: western and southern values stay negative.
        env->SetIntField(b.obj, b.ids[kLongitude], rec.longitude);
        env->SetIntField(b.obj, b.ids[kLatitude], rec.latitude);
        jstring name =
            pij::newStringFromService(env, rec.locationName.c_str(), "getUserLocationInfo");
        env->SetObjectField(b.obj, b.ids[kLocationName], name);
        env->DeleteLocalRef(name);
        env->DeleteLocalRef(b.cls);
        return b.obj;
    });
}
