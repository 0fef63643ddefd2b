// Cost per call of building value objects through the VM: getVideoInfo and getAudioInfo with
// sixteen tracks, next to a thin command (closeTeletext) measured in the same run. The player
// is the programmable test double, so the figures are the library's and the VM's share.
#include <benchmark/benchmark.h>

#include <cstring>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "marshal/audio.h"
#include "marshal/picture.h"
#include "playerimpl_host/fake_player.h"

namespace {

struct Setup {
    jobject player = nullptr;
    android::sp<host::FakePlayer> fake;
    jmethodID closeTeletext = nullptr;
    jmethodID videoInfo = nullptr;
    jmethodID audioInfo = nullptr;

    Setup() {
        host::useFakePlayer();
        JNIEnv* e = th::env();
        player = e->NewGlobalRef(th::newPlayer());
        fake = host::lastFakePlayer();
        closeTeletext = th::playerMethod("closeTeletext", "()Z");
        videoInfo =
            th::playerMethod("getVideoInfo", "()Lcom/vireo/android/tvapi/common/vo/VideoInfo;");
        audioInfo =
            th::playerMethod("getAudioInfo", "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;");
        fake->setResult("closeTeletext", 1);
        fake->onCall("getVideoInfo", [](const host::OutArgs& o) {
            auto& r = o.at<VideoInfoRec>(0);
            r.hResolution = 1920;
            r.vResolution = 1080;
            r.frameRate = 50000;
            r.modeIndex = 3;
        });
        fake->onCall("getAudioInfo", [](const host::OutArgs& o) {
            auto& r = o.at<DtvAudioInfoRec>(0);
            r.audioLangNum = kMaxAudioTracks;
            for (int i = 0; i < kMaxAudioTracks; ++i) {
                r.audioInfos[i].audioPid = static_cast<uint32_t>(0x100 + i);
                std::memcpy(r.audioInfos[i].isoLangInfo.isoLangInfo, "eng", 3);
                r.audioInfos[i].isoLangInfo.isValid = 1;
            }
        });
    }
};

Setup& setup() {
    static Setup s;
    return s;
}

// The test double records every call; forget them now and then so memory stays flat.
void forgetCalls(int64_t i) {
    if ((i & 4095) == 0) setup().fake->clearCalls();
}

void BM_closeTeletext(benchmark::State& state) {
    Setup& s = setup();
    JNIEnv* e = th::env();
    int64_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(e->CallBooleanMethod(s.player, s.closeTeletext));
        if (e->ExceptionCheck()) state.SkipWithError("exception");
        forgetCalls(++i);
    }
}

void objectCall(benchmark::State& state, jmethodID method) {
    Setup& s = setup();
    JNIEnv* e = th::env();
    int64_t i = 0;
    for (auto _ : state) {
        jobject o = e->CallObjectMethod(s.player, method);
        benchmark::DoNotOptimize(o);
        if (e->ExceptionCheck()) state.SkipWithError("exception");
        e->DeleteLocalRef(o);
        forgetCalls(++i);
    }
}

void BM_getVideoInfo(benchmark::State& state) { objectCall(state, setup().videoInfo); }
void BM_getAudioInfo16(benchmark::State& state) { objectCall(state, setup().audioInfo); }

BENCHMARK(BM_closeTeletext);
BENCHMARK(BM_getVideoInfo);
BENCHMARK(BM_getAudioInfo16);

}  // namespace

BENCHMARK_MAIN();
