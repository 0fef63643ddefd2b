// Cost per call of the satellite record in both directions, the 40 x 40 ARGB channel logo,
// a full EWBS code list and a surface rebind, through the VM. The player is the programmable
// test double, which records each call (the record is emptied every 4096 calls); these have no
// floors of their own yet.
#include <benchmark/benchmark.h>
#include <gui/IGraphicBufferProducer.h>
#include <gui/Surface.h>

#include <vector>

#include "bench_support.h"
#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "marshal/satellite.h"
#include "double/fake_player.h"

namespace {

const char* kSatSig = "Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;";

struct Setup {
    jobject player = nullptr;
    jobject satellite = nullptr;
    jobject surface = nullptr;
    android::sp<th::FakePlayer> fake;
    android::sp<android::IGraphicBufferProducer> producer = new android::IGraphicBufferProducer();
    android::sp<android::Surface> native = new android::Surface(producer, 1);

    Setup() {
        th::useFakePlayer();
        JNIEnv* e = th::env();
        player = e->NewGlobalRef(th::newPlayer());
        fake = th::lastFakePlayer();
        fake->onCall(th::Op::getSatelliteInfo, [](const th::OutArgs& o) {
            auto& r = o.at<SatelliteInfoRec>(0);
            r.satName.setTo("Astra 19.2E");
            r.lowLOF = 9750;
            r.hiLOF = 10600;
            r.position = 3;
        });
        fake->onCall(th::Op::getChannelLogoARGB, [](const th::OutArgs& o) {
            o.at<int32_t>(1) = 39;
            o.at<int32_t>(2) = 40;
        });
        fake->setResult(th::Op::getChannelLogoARGB, 1);
        fake->onCall(th::Op::getEWBSInfo,
                     [](const th::OutArgs& o) { o.at<std::vector<int32_t>>(1).assign(100, 7); });
        satellite = e->NewGlobalRef(
            th::callL(player, "getSatelliteInfo", (std::string("(I)") + kSatSig).c_str(), 0));
        jclass c = th::findClass("android/view/Surface");
        surface = e->NewGlobalRef(e->NewObject(c, e->GetMethodID(c, "<init>", "(J)V"),
                                               reinterpret_cast<jlong>(native.get())));
        th::failOnPendingException();
    }
};

Setup& setup() {
    static Setup s;
    return s;
}

void forgetCalls(int64_t i) {
    if ((i & 4095) == 0) setup().fake->clearCalls();
}

template <typename Call>
void run(benchmark::State& state, Call&& call) {
    JNIEnv* e = th::env();
    int64_t i = 0;
    for (auto _ : state) {
        call(e);
        if (e->ExceptionCheck()) state.SkipWithError("exception");
        forgetCalls(++i);
    }
}

void BM_getSatelliteInfo(benchmark::State& state) {
    Setup& s = setup();
    jmethodID m = th::playerMethod("getSatelliteInfo", (std::string("(I)") + kSatSig).c_str());
    run(state, [&](JNIEnv* e) { e->DeleteLocalRef(e->CallObjectMethod(s.player, m, 1)); });
}

void BM_addSatelliteInfo(benchmark::State& state) {
    Setup& s = setup();
    jmethodID m = th::playerMethod("addSatelliteInfo", (std::string("(") + kSatSig + ")Z").c_str());
    run(state, [&](JNIEnv* e) {
        benchmark::DoNotOptimize(e->CallBooleanMethod(s.player, m, s.satellite));
    });
}

void BM_getChannelLogoARGB40x40(benchmark::State& state) {
    Setup& s = setup();
    jmethodID m = th::playerMethod("getChannelLogoARGB", "()[I");
    run(state, [&](JNIEnv* e) { e->DeleteLocalRef(e->CallObjectMethod(s.player, m)); });
}

void BM_getEWBSInfo100(benchmark::State& state) {
    Setup& s = setup();
    jmethodID m =
        th::playerMethod("getEWBSInfo", "(I)Lcom/vireo/android/tvapi/dtv/dvb/isdb/vo/EwbsInfo;");
    run(state, [&](JNIEnv* e) { e->DeleteLocalRef(e->CallObjectMethod(s.player, m, 1)); });
}

void BM_setVideoSurfaceRebind(benchmark::State& state) {
    Setup& s = setup();
    jmethodID m = th::playerMethod("_setVideoSurface", "(Landroid/view/Surface;I)V");
    run(state, [&](JNIEnv* e) { e->CallVoidMethod(s.player, m, s.surface, 0); });
}

BENCHMARK(BM_getSatelliteInfo);
BENCHMARK(BM_addSatelliteInfo);
BENCHMARK(BM_getChannelLogoARGB40x40);
BENCHMARK(BM_getEWBSInfo100);
BENCHMARK(BM_setVideoSurfaceRebind);

}  // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, 1, {}, [] { return setup().player != nullptr; });
}
