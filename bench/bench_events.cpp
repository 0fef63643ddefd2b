// Events as the service delivers them, on its own callback thread (attached once, for good),
// against what each event must cost on that same thread (figures are per event, kBatch events
// per iteration, timed on the service thread itself):
//   bare post - one CallStaticVoidMethod of postEventFromNative;
//   required  - everything the event must do, written out plainly: its trace lines, the
//               attaches, reading the parcel, the field (and, for HbbTV, class, constructor
//               and array) look-ups made on every event, the stores, and the post.
// Events: a simple two-integer event (teletext status), the digital scan progress with its
// parcel (filling the one shared scan object) and an HbbTV event (a new object each).
#include <utils/String8.h>

#include <cstdint>

#include "bench_support.h"
#include "core/parcel.h"
#include "harness/jvm_harness.h"

namespace {

constexpr int kBatch = 2000;
constexpr int kHbbtvParams = 10;

struct Fixture {
    bench::Player player;
    android::sp<PlayerImplListener> listener;
    jclass playerClass = nullptr;  // global
    jmethodID postEvent = nullptr;
    jint ttxCode = 0, dtvCode = 0, hbbtvCode = 0;
    jclass dtvClass = nullptr;  // global, as the shared scan class is
    jobject dtvObject = nullptr;
    android::Parcel dtvParcel;
    android::Parcel hbbtvParcel;
};
Fixture gFx;

JNIEnv* attach() {
    JNIEnv* env = nullptr;
    th::vm()->AttachCurrentThread(&env, nullptr);
    return env;
}

void post(JNIEnv* env, jint code, jint ext1, jint ext2, jobject obj) {
    env->CallStaticVoidMethod(gFx.playerClass, gFx.postEvent, gFx.player.weak, code, ext1, ext2,
                              obj);
}

// ---- Required work, as plainly as it can be written ----

void simpleRequired(int ext1, int ext2) {
    __android_log_print(bench::kDebug, bench::kTag, "PostEvent_ChangeTtxStatus");
    post(attach(), gFx.ttxCode, ext1, ext2, nullptr);
}

void dtvRequired(const android::Parcel& p) {
    __android_log_print(bench::kDebug, bench::kTag, "PostEvent_DtvAutoTuning");
    JNIEnv* env = attach();
    const uint32_t scanStatus = static_cast<uint32_t>(p.readInt32());
    const uint8_t rf = static_cast<uint8_t>(p.readInt32());
    const uint8_t percent = static_cast<uint8_t>(p.readInt32());
    const uint16_t tv = static_cast<uint16_t>(p.readInt32());
    const uint16_t radio = static_cast<uint16_t>(p.readInt32());
    const uint16_t data = static_cast<uint16_t>(p.readInt32());
    const uint16_t quality = static_cast<uint16_t>(p.readInt32());
    const uint16_t strength = static_cast<uint16_t>(p.readInt32());
    const uint32_t frequency = static_cast<uint32_t>(p.readInt32());
    const uint32_t userData = static_cast<uint32_t>(p.readInt32());
    const bool vhf = p.readInt32() != 0;
    const android::String8 name = p.readString8();
    const int32_t ext2 = p.readInt32();
    __android_log_print(bench::kDebug, bench::kTag, "DtvAutoTuning: %d, %d, %d, %d, %d, %d, %d",
                        static_cast<int>(scanStatus), rf, percent, tv, radio, data, vhf ? 1 : 0);
    jclass c = gFx.dtvClass;
    jobject o = gFx.dtvObject;
    jfieldID fStatus = env->GetFieldID(c, "scanStatus", "I");
    jfieldID fRf = env->GetFieldID(c, "currRFCh", "S");
    jfieldID fPercent = env->GetFieldID(c, "scanPercentageNum", "S");
    jfieldID fTv = env->GetFieldID(c, "dtvSrvCount", "S");
    jfieldID fRadio = env->GetFieldID(c, "radioSrvCount", "S");
    jfieldID fData = env->GetFieldID(c, "dataSrvCount", "S");
    jfieldID fQuality = env->GetFieldID(c, "signalQuality", "S");
    jfieldID fStrength = env->GetFieldID(c, "signalStrength", "S");
    jfieldID fFrequency = env->GetFieldID(c, "currFrequency", "I");
    jfieldID fUser = env->GetFieldID(c, "userData", "I");
    jfieldID fVhf = env->GetFieldID(c, "isVHF", "Z");
    jfieldID fName = env->GetFieldID(c, "rfSignalName", "Ljava/lang/String;");
    env->SetIntField(o, fStatus, static_cast<jint>(scanStatus));
    env->SetShortField(o, fRf, rf);
    env->SetShortField(o, fPercent, percent);
    env->SetShortField(o, fTv, static_cast<jshort>(tv));
    env->SetShortField(o, fRadio, static_cast<jshort>(radio));
    env->SetShortField(o, fData, static_cast<jshort>(data));
    env->SetShortField(o, fQuality, static_cast<jshort>(quality));
    env->SetShortField(o, fStrength, static_cast<jshort>(strength));
    env->SetIntField(o, fFrequency, static_cast<jint>(frequency));
    env->SetIntField(o, fUser, static_cast<jint>(userData));
    env->SetBooleanField(o, fVhf, vhf ? JNI_TRUE : JNI_FALSE);
    jstring s = env->NewStringUTF(name.c_str());
    env->SetObjectField(o, fName, s);
    env->DeleteLocalRef(s);
    post(attach(), gFx.dtvCode, 0, ext2, o);
}

// The thread never returns to the VM, so the class, object and array are deleted after the
// post; a thread that kept them would fill its reference table.
void hbbtvRequired(const android::Parcel& p) {
    __android_log_print(bench::kDebug, bench::kTag, "PostEvent_HbbtvEvent");
    JNIEnv* env = attach();
    const jint event = p.readInt32();
    jint params[kHbbtvParams];
    for (jint& v : params) v = p.readInt32();
    const jint ext2 = p.readInt32();
    jclass c = env->FindClass("com/vireo/android/tvapi/common/vo/HbbtvEventInfo");
    jobject o = env->NewObject(c, env->GetMethodID(c, "<init>", "()V"));
    jfieldID fEvent = env->GetFieldID(c, "eEvent", "I");
    jfieldID fParam = env->GetFieldID(c, "param", "[I");
    env->SetIntField(o, fEvent, event);
    jintArray a = env->NewIntArray(kHbbtvParams);
    env->SetIntArrayRegion(a, 0, kHbbtvParams, params);
    env->SetObjectField(o, fParam, a);
    post(attach(), gFx.hbbtvCode, 0, ext2, o);
    env->DeleteLocalRef(a);
    env->DeleteLocalRef(o);
    env->DeleteLocalRef(c);
}

// ---- Set-up ----

bool setUp() {
    JNIEnv* e = th::env();
    gFx.player = bench::newQuietPlayer();
    gFx.listener = gFx.player.proxy->listener();
    gFx.playerClass = th::playerClass();
    gFx.postEvent = e->GetStaticMethodID(gFx.playerClass, "postEventFromNative",
                                         "(Ljava/lang/Object;IIILjava/lang/Object;)V");
    gFx.ttxCode = th::staticInt("TVPLAYER_CHANGE_TTX_STATUS");
    gFx.dtvCode = th::staticInt("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO");
    gFx.hbbtvCode = th::staticInt("TVPLAYER_HBBTV_UI_EVENT");
    gFx.dtvClass = th::findClass("com/vireo/android/tvapi/dtv/vo/DtvEventScan");
    if (gFx.dtvClass == nullptr || gFx.postEvent == nullptr || gFx.listener == nullptr)
        return false;
    jobject scan = e->NewObject(gFx.dtvClass, e->GetMethodID(gFx.dtvClass, "<init>", "()V"));
    gFx.dtvObject = e->NewGlobalRef(scan);
    e->DeleteLocalRef(scan);

    for (int v = 1; v <= 11; ++v) gFx.dtvParcel.writeInt32(v * 7);
    gFx.dtvParcel.writeString8(android::String8("UHF 21"));
    gFx.dtvParcel.writeInt32(13);
    for (int v = 1; v <= 12; ++v) gFx.hbbtvParcel.writeInt32(v);
    return !e->ExceptionCheck();
}

// ---- Benchmarks ----

void BM_BarePost(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        JNIEnv* e = attach();
        for (int i = 0; i < kBatch; ++i) post(e, gFx.ttxCode, i, 0, nullptr);
    });
}

void BM_SimpleRequired(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        for (int i = 0; i < kBatch; ++i) simpleRequired(i, 0);
    });
}

void BM_SimpleEvent(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        PlayerImplListener& l = *gFx.listener;
        for (int i = 0; i < kBatch; ++i) l.PostEvent_ChangeTtxStatus(i, 0);
    });
}

void BM_DtvScanRequired(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        for (int i = 0; i < kBatch; ++i) {
            gFx.dtvParcel.setDataPosition(0);
            dtvRequired(gFx.dtvParcel);
        }
    });
}

void BM_DtvScanEvent(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        PlayerImplListener& l = *gFx.listener;
        for (int i = 0; i < kBatch; ++i) {
            gFx.dtvParcel.setDataPosition(0);
            l.PostEvent_DtvAutoTuning(gFx.dtvParcel);
        }
    });
}

void BM_HbbtvRequired(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        for (int i = 0; i < kBatch; ++i) {
            gFx.hbbtvParcel.setDataPosition(0);
            hbbtvRequired(gFx.hbbtvParcel);
        }
    });
}

void BM_HbbtvEvent(benchmark::State& state) {
    bench::timeEventBatches(state, kBatch, [] {
        PlayerImplListener& l = *gFx.listener;
        for (int i = 0; i < kBatch; ++i) {
            gFx.hbbtvParcel.setDataPosition(0);
            l.PostEvent_HbbtvEvent(gFx.hbbtvParcel);
        }
    });
}

BENCHMARK(BM_BarePost)->UseManualTime();
BENCHMARK(BM_SimpleRequired)->UseManualTime();
BENCHMARK(BM_SimpleEvent)->UseManualTime();
BENCHMARK(BM_DtvScanRequired)->UseManualTime();
BENCHMARK(BM_DtvScanEvent)->UseManualTime();
BENCHMARK(BM_HbbtvRequired)->UseManualTime();
BENCHMARK(BM_HbbtvEvent)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, kBatch,
                      {
                          {"BM_SimpleEvent", "BM_BarePost", "bare post"},
                          {"BM_SimpleEvent", "BM_SimpleRequired", "required"},
                          {"BM_DtvScanEvent", "BM_BarePost", "bare post"},
                          {"BM_DtvScanEvent", "BM_DtvScanRequired", "required"},
                          {"BM_HbbtvEvent", "BM_BarePost", "bare post"},
                          {"BM_HbbtvEvent", "BM_HbbtvRequired", "required"},
                      },
                      setUp);
}
