// Events delivered per second from the service's callback threads (one or two at once): a
// simple two-integer event, a digital scan event with its parcel, and, as the floor, a bare
// call of the managed postEventFromNative from the same threads.
#include <benchmark/benchmark.h>

#include <condition_variable>
#include <functional>
#include <mutex>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int kBatch = 2000;  // events per service thread per iteration

struct World {
    jobject player = nullptr;  // global
    jobject weak = nullptr;    // global WeakReference to it, as native_setup receives
    jmethodID postEvent = nullptr;
    android::sp<PlayerImplListener> listener;
};

World& world() {
    static World w = [] {
        World w;
        host::useFakePlayer();
        JNIEnv* e = th::env();
        jobject p = th::newPlayer();
        w.player = e->NewGlobalRef(p);
        e->DeleteLocalRef(p);
        jclass weakClass = th::findClass("java/lang/ref/WeakReference");
        jobject weak = e->NewObject(
            weakClass, e->GetMethodID(weakClass, "<init>", "(Ljava/lang/Object;)V"), w.player);
        w.weak = e->NewGlobalRef(weak);
        e->DeleteLocalRef(weak);
        w.postEvent = e->GetStaticMethodID(th::playerClass(), "postEventFromNative",
                                           "(Ljava/lang/Object;IIILjava/lang/Object;)V");
        w.listener = host::lastFakePlayer()->listener();
        return w;
    }();
    return w;
}

// Runs `work(thread)` on `threads` service threads at once and waits for all of them.
void onServiceThreads(int threads, const std::function<void(int)>& work) {
    std::mutex m;
    std::condition_variable cv;
    int left = threads;
    for (int t = 0; t < threads; ++t) {
        host::postToServiceThread(t, [&, t] {
            work(t);
            std::lock_guard<std::mutex> g(m);
            if (--left == 0) cv.notify_one();
        });
    }
    std::unique_lock<std::mutex> g(m);
    cv.wait(g, [&] { return left == 0; });
}

void finish(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * kBatch * state.range(0));
}

void BM_SimpleEvent(benchmark::State& state) {
    const int threads = static_cast<int>(state.range(0));
    PlayerImplListener& l = *world().listener;
    for (auto _ : state) {
        onServiceThreads(threads, [&](int t) {
            for (int i = 0; i < kBatch; ++i) l.PostEvent_ChangeTtxStatus(i, t);
        });
        th::clearLogs();  // the workstation keeps every log line in memory
    }
    finish(state);
}

void BM_DtvScanEvent(benchmark::State& state) {
    const int threads = static_cast<int>(state.range(0));
    PlayerImplListener& l = *world().listener;
    android::Parcel parcels[host::kServiceThreads];
    for (android::Parcel& p : parcels) {
        for (int v = 1; v <= 11; ++v) p.writeInt32(v * 7);
        p.writeString8(android::String8("UHF 21"));
        p.writeInt32(13);
    }
    for (auto _ : state) {
        onServiceThreads(threads, [&](int t) {
            for (int i = 0; i < kBatch; ++i) {
                parcels[t].setDataPosition(0);
                l.PostEvent_DtvAutoTuning(parcels[t]);
            }
        });
        th::clearLogs();
    }
    finish(state);
}

// The floor: what the runtime charges for the one managed call every event ends in.
void BM_BarePostEventFromNative(benchmark::State& state) {
    const int threads = static_cast<int>(state.range(0));
    World& w = world();
    jclass clazz = th::playerClass();
    for (auto _ : state) {
        onServiceThreads(threads, [&](int t) {
            JNIEnv* e = nullptr;
            th::vm()->AttachCurrentThread(&e, nullptr);
            for (int i = 0; i < kBatch; ++i) {
                e->CallStaticVoidMethod(clazz, w.postEvent, w.weak, 1021, i, t, nullptr);
                if (e->ExceptionCheck()) e->ExceptionClear();
            }
        });
    }
    finish(state);
}

}  // namespace

BENCHMARK(BM_BarePostEventFromNative)->Arg(1)->Arg(2)->UseRealTime();
BENCHMARK(BM_SimpleEvent)->Arg(1)->Arg(2)->UseRealTime();
BENCHMARK(BM_DtvScanEvent)->Arg(1)->Arg(2)->UseRealTime();

BENCHMARK_MAIN();
