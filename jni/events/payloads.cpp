// The four events that carry a parcel instead of two integers: analogue auto and manual
// tuning progress, digital auto tuning progress and HbbTV user-interface events. Each reads
// its parcel in the service's fixed order, fills a managed value object and posts it.
//
// Service threads stay attached for ever, so every local reference made here lives inside a
// local frame that is popped before the handler returns; otherwise each event would leave
// its references in the thread's table until the process ends.
#include "core/log.h"

#include "events/payloads.h"

#include <cstdint>
#include <thread>

#include "core/context.h"
#include "core/scoped.h"
#include "events/event_codes.h"
#include "events/listener.h"
#include "marshal/marshal_util.h"

// The digital scan progress as the service lays it out in its parcel; the record's widths
// decide the narrowing (unsigned truncation) and the widening (zero extension).
struct DtvEventScanRec {
    uint32_t scanStatus = 0;
    uint8_t currRFCh = 0;
    uint8_t scanPercentageNum = 0;
    uint16_t dtvSrvCount = 0;
    uint16_t radioSrvCount = 0;
    uint16_t dataSrvCount = 0;
    uint16_t signalQuality = 0;
    uint16_t signalStrength = 0;
    uint32_t currFrequency = 0;
    uint32_t userData = 0;
    bool isVHF = false;
    android::String8 rfSignalName;
};

namespace pij {

namespace {

// ---- Managed value classes, each described by the values it is filled from ----

// Analogue progress: six int32 values, the sixth becoming ext2.
struct AtvValues {
    int8_t percent;  // the service sends a signed percentage in an int32
    int32_t frequencyKHz;
    int16_t scannedChannelNum;
    int16_t curScannedChannel;
    bool bIsScaningEnable;
    int32_t ext2;
};

constexpr Field<AtvValues> kAtvFields[] = {
    PIJ_FIELD(AtvValues, percent, S),           PIJ_FIELD(AtvValues, frequencyKHz, I),
    PIJ_FIELD(AtvValues, scannedChannelNum, S), PIJ_FIELD(AtvValues, curScannedChannel, S),
    PIJ_FIELD(AtvValues, bIsScaningEnable, Z),
};
constexpr auto kAtvEventScan =
    valueClass("com/vireo/android/tvapi/atv/vo/AtvEventScan", kAtvFields);

// Zero extension of the record's unsigned fields, then the managed field's width.
constexpr Field<DtvEventScanRec> kDtvFields[] = {
    PIJ_FIELD(DtvEventScanRec, scanStatus, I),
    PIJ_FIELD(DtvEventScanRec, currRFCh, S),
    PIJ_FIELD(DtvEventScanRec, scanPercentageNum, S),
    PIJ_FIELD(DtvEventScanRec, dtvSrvCount, S),
    PIJ_FIELD(DtvEventScanRec, radioSrvCount, S),
    PIJ_FIELD(DtvEventScanRec, dataSrvCount, S),
    PIJ_FIELD(DtvEventScanRec, signalQuality, S),
    PIJ_FIELD(DtvEventScanRec, signalStrength, S),
    PIJ_FIELD(DtvEventScanRec, currFrequency, I),
    PIJ_FIELD(DtvEventScanRec, userData, I),
    PIJ_FIELD(DtvEventScanRec, isVHF, Z),
    PIJ_FIELD(DtvEventScanRec, rfSignalName, L),
};
constexpr auto kDtvEventScan =
    valueClass("com/vireo/android/tvapi/dtv/vo/DtvEventScan", kDtvFields);

constexpr int kHbbtvParams = 10;
struct HbbtvValues {
    int32_t eEvent;
    int32_t param[kHbbtvParams];
};
constexpr Field<HbbtvValues> kHbbtvFields[] = {
    PIJ_FIELD(HbbtvValues, eEvent, I),
    PIJ_FIELD(HbbtvValues, param, I),
};
constexpr auto kHbbtvEventInfo =
    valueClass("com/vireo/android/tvapi/common/vo/HbbtvEventInfo", kHbbtvFields);

// References made per event: class, object, array or string, with room to spare.
constexpr jint kEventFrame = 8;

// Fills `obj`, of the class `clazz`, from `values`; the ids are looked up on every event (not
// cached: the service may outlive a managed class). A field the managed class lacks is a
// build mismatch, not data: the runtime's error is cleared (nobody on a service thread would
// ever see it, and it would poison every later call on the thread), one ERROR line is
// written and the event is dropped instead of writing through a null field id. No memory
// for a string or array drops the event the same way.
template <typename Rec>
bool fillEventObject(JNIEnv* env, jclass clazz, jobject obj, const ValueClass<Rec>& vc,
                     const Rec& values, const char* what) {
    FieldIds ids;
    if (!lookUpOn(env, clazz, vc, &ids)) {
        clearMissingField(env, vc, ids);
        return false;
    }
    if (!toObject(Copy{env, what}, obj, vc, ids, values)) {
        env->ExceptionClear();
        ALOGE("%s: no memory for the event object", what);
        return false;
    }
    return true;
}

// Takes this thread's own local reference to a shared global one (a scan class or object,
// the HbbTV class). The slots may be cleared and their global references deleted by
// native_finalize or suspend on a managed thread at any moment: the reader count tells the
// deleting side to wait until we hold local references, which stay valid whatever happens to
// the global ones. The count and the slots are sequentially consistent atomics: a deleting
// side that has cleared a slot and then reads a count of 0 knows every reader that saw the
// old value has already taken its local reference.
template <typename T>
T takeLocal(JNIEnv* env, const std::atomic<T>& slot) {
    gScan.readers.fetch_add(1);
    T global = slot.load();
    T local = global != nullptr ? static_cast<T>(env->NewLocalRef(global)) : nullptr;
    gScan.readers.fetch_sub(1);
    return local;
}

AtvValues readAtv(const android::Parcel& p) {
    AtvValues v{};
    v.percent = static_cast<int8_t>(p.readInt32());
    v.frequencyKHz = p.readInt32();
    v.scannedChannelNum = static_cast<int16_t>(p.readInt32());
    v.curScannedChannel = static_cast<int16_t>(p.readInt32());
    v.bIsScaningEnable = p.readInt32() != 0;
    v.ext2 = p.readInt32();
    return v;
}

struct AtvKindInfo {
    const char* name;      // the handler's trace line and attach-failure name
    int attachLine;        // its attach-failure line number
    const char* progress;  // what the progress line starts with
    EventCode code;
};

const AtvKindInfo& atvKind(AtvScanKind kind) {
    static const AtvKindInfo kAuto{"PostEvent_AtvAutoTuning", 691, "AtvAutoTuning",
                                   EATV_AUTO_TUNING_SCAN_INFO};
    static const AtvKindInfo kManual{"PostEvent_ManualTuning", 729, "AtvManualTuning",
                                     EATV_MANUAL_TUNING_SCAN_INFO};
    return kind == AtvScanKind::Auto ? kAuto : kManual;
}

// Fills the shared scan object in `objectSlot` and posts it, unless native_finalize or
// suspend has taken the shared objects away.
template <typename Rec>
void postScanObject(const JNIVSrvListener& listener, JNIEnv* env,
                    const std::atomic<jclass>& classSlot, const std::atomic<jobject>& objectSlot,
                    const ValueClass<Rec>& vc, const Rec& values, const char* what, EventCode code,
                    jint ext2) {
    jclass clazz = takeLocal(env, classSlot);
    jobject obj = takeLocal(env, objectSlot);
    if (clazz == nullptr || obj == nullptr) {
        ALOGD("playerimpl has been finalized");
    } else if (fillEventObject(env, clazz, obj, vc, values, what)) {
        listener.post(listener.attach("notify", 448), eventCode(code), 0, ext2, obj);
    }
}

// The HbbTV event's class, by name first. On a thread the service attached, the runtime
// looks names up through the system class loader only, which does not see an application's
// classes: the class native_setup kept on its managed thread is used then.
jclass findHbbtvClass(JNIEnv* env) {
    jclass byName = env->FindClass(kHbbtvEventInfo.path);
    if (byName != nullptr) return byName;
    env->ExceptionClear();
    return takeLocal(env, gScan.hbbtvClass);
}

// The classes above as the check tool reads them.
constexpr ManagedClass kClasses[] = {PIJ_DESCRIBE(kAtvEventScan), PIJ_DESCRIBE(kDtvEventScan),
                                     PIJ_DESCRIBE(kHbbtvEventInfo)};

}  // namespace

constexpr ManagedClassList kPayloadClasses = classList(kClasses);

void postAtvScan(const JNIVSrvListener& listener, const android::Parcel& p, AtvScanKind kind) {
    const AtvKindInfo& k = atvKind(kind);
    ALOGD("%s", k.name);
    JNIEnv* env = listener.attach(k.name, k.attachLine);
    const AtvValues v = readAtv(p);
    ALOGD("%s: %d, %d, %d, %d, %d", k.progress, v.percent, v.frequencyKHz, v.scannedChannelNum,
          v.curScannedChannel, v.bIsScaningEnable ? 1 : 0);
    // Without an environment there is no managed side to fill: the attach line has been
    // written; the event ends here rather than calling through a null environment.
    if (env == nullptr) return;
    ScopedLocalFrame frame(env, kEventFrame);
    if (!frame.ok()) return;
    postScanObject(listener, env, gScan.atvClass, gScan.atv, kAtvEventScan, v, k.name, k.code,
                   v.ext2);
}

void postDtvScan(const JNIVSrvListener& listener, const android::Parcel& p) {
    ALOGD("PostEvent_DtvAutoTuning");
    JNIEnv* env = listener.attach("PostEvent_DtvAutoTuning", 768);
    DtvEventScanRec rec;
    rec.scanStatus = static_cast<uint32_t>(p.readInt32());
    rec.currRFCh = static_cast<uint8_t>(p.readInt32());
    rec.scanPercentageNum = static_cast<uint8_t>(p.readInt32());
    rec.dtvSrvCount = static_cast<uint16_t>(p.readInt32());
    rec.radioSrvCount = static_cast<uint16_t>(p.readInt32());
    rec.dataSrvCount = static_cast<uint16_t>(p.readInt32());
    rec.signalQuality = static_cast<uint16_t>(p.readInt32());
    rec.signalStrength = static_cast<uint16_t>(p.readInt32());
    rec.currFrequency = static_cast<uint32_t>(p.readInt32());
    rec.userData = static_cast<uint32_t>(p.readInt32());
    rec.isVHF = p.readInt32() != 0;
    rec.rfSignalName = p.readString8();
    const int32_t ext2 = p.readInt32();
    ALOGD("DtvAutoTuning: %d, %d, %d, %d, %d, %d, %d", static_cast<int>(rec.scanStatus),
          rec.currRFCh, rec.scanPercentageNum, rec.dtvSrvCount, rec.radioSrvCount, rec.dataSrvCount,
          rec.isVHF ? 1 : 0);
    if (env == nullptr) return;  // as in postAtvScan
    ScopedLocalFrame frame(env, kEventFrame);
    if (!frame.ok()) return;
    postScanObject(listener, env, gScan.dtvClass, gScan.dtv, kDtvEventScan, rec,
                   "PostEvent_DtvAutoTuning", EDTV_AUTO_TUNING_SCAN_INFO, ext2);
}

// No "finalized" guard here: the object is new for every event, not a shared one.
void postHbbtvEvent(const JNIVSrvListener& listener, const android::Parcel& p) {
    ALOGD("PostEvent_HbbtvEvent");
    JNIEnv* env = listener.attach("PostEvent_HbbtvEvent", 862);
    HbbtvValues values{};
    values.eEvent = p.readInt32();
    for (int32_t& v : values.param) {
        v = p.readInt32();
    }
    const jint ext2 = p.readInt32();
    if (env == nullptr) return;  // as in postAtvScan
    ScopedLocalFrame frame(env, kEventFrame);
    if (!frame.ok()) return;
    // Class, constructor and object first, then the fields, as the service's own order of
    // work; a missing class, constructor or field, or no memory, drops the event with an
    // ERROR line instead of writing through a null id (see fillEventObject).
    jclass clazz = findHbbtvClass(env);
    jmethodID init = clazz != nullptr ? env->GetMethodID(clazz, "<init>", "()V") : nullptr;
    jobject obj = init != nullptr ? env->NewObject(clazz, init) : nullptr;
    if (obj == nullptr) {
        env->ExceptionClear();
        ALOGE("%s: no class, constructor or memory for the event object", kHbbtvEventInfo.path);
    } else if (fillEventObject(env, clazz, obj, kHbbtvEventInfo, values, "PostEvent_HbbtvEvent")) {
        listener.post(listener.attach("notify", 448), eventCode(EHBBTV_UI_EVENT), 0, ext2, obj);
    }
}

}  // namespace pij
