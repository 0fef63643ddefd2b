// Memory over a long life of events: 1,000,000 simple events, then 200,000 digital scan events
// with their parcel, then 200,000 HbbTV events, all from one service thread that stays attached
// (as the device's callback threads do). Before and after each phase: resident memory, the
// managed heap in use after a collection, and the live JNI local references of the service
// thread, counted through JVMTI's heap roots. Before anything, the count is shown to work:
// references made on purpose on that thread are seen, and gone once deleted.
//
// Flat is the expected answer; nothing here is asserted.
#include <cstdio>
#include <fstream>
#include <string>

#include "bench_support.h"
#include "core/parcel.h"
#include "harness/jvm_harness.h"
#include "harness/local_refs.h"

namespace {

constexpr int kSimple = 1000000;
constexpr int kScan = 200000;
constexpr int kHbbtv = 200000;
constexpr int kOnPurpose = 100;

long residentKb() {
    std::ifstream status("/proc/self/status");
    for (std::string key; status >> key;) {
        if (long kb = 0; key == "VmRSS:" && status >> kb) return kb;
    }
    return -1;
}

// The managed heap in use after a full collection, in kB.
long managedHeapKb() {
    JNIEnv* e = th::env();
    jclass rt = e->FindClass("java/lang/Runtime");
    jobject r = e->CallStaticObjectMethod(
        rt, e->GetStaticMethodID(rt, "getRuntime", "()Ljava/lang/Runtime;"));
    e->CallVoidMethod(r, e->GetMethodID(rt, "gc", "()V"));
    const jlong total = e->CallLongMethod(r, e->GetMethodID(rt, "totalMemory", "()J"));
    const jlong spare = e->CallLongMethod(r, e->GetMethodID(rt, "freeMemory", "()J"));
    e->DeleteLocalRef(r);
    e->DeleteLocalRef(rt);
    return static_cast<long>((total - spare) / 1024);
}

struct Snapshot {
    long residentKb, heapKb, localRefs;
};

jlong gServiceThread = -1;

Snapshot snapshot() {
    // The service thread is idle between phases, so its count cannot move meanwhile.
    return {residentKb(), managedHeapKb(), th::liveLocalRefs(th::vm(), gServiceThread)};
}

void print(const char* when, const Snapshot& s) {
    printf("  %-36s resident %7ld kB  managed heap %7ld kB  local refs %ld\n", when, s.residentKb,
           s.heapKb, s.localRefs);
}

void BM_LongLife(benchmark::State& state) {
    bench::Player player = bench::newQuietPlayer();
    android::sp<PlayerImplListener> listener = player.proxy->listener();
    android::Parcel dtv, hbbtv;
    for (int v = 1; v <= 11; ++v) dtv.writeInt32(v * 7);
    dtv.writeString8(android::String8("UHF 21"));
    dtv.writeInt32(13);
    for (int v = 1; v <= 12; ++v) hbbtv.writeInt32(v);

    // One event of each kind attaches the thread and settles what the first ones make.
    long probeBase = -1, probeHeld = -1, probeReleased = -1;
    bench::onServiceThread([&] {
        listener->PostEvent_ChangeTtxStatus(0, 0);
        listener->PostEvent_DtvAutoTuning(dtv);
        listener->PostEvent_HbbtvEvent(hbbtv);
        JNIEnv* e = th::env();
        gServiceThread = th::currentThreadId(e);
        probeBase = th::liveLocalRefs(th::vm(), gServiceThread);
        e->EnsureLocalCapacity(kOnPurpose + 16);  // so a checked VM does not warn
        jobject made[kOnPurpose];
        for (jobject& r : made) r = e->NewLocalRef(player.object);
        probeHeld = th::liveLocalRefs(th::vm(), gServiceThread);
        for (jobject r : made) e->DeleteLocalRef(r);
        probeReleased = th::liveLocalRefs(th::vm(), gServiceThread);
    });
    printf(
        "\nLocal references of the service thread: %ld; with %d made on purpose %ld; "
        "deleted again %ld\n",
        probeBase, kOnPurpose, probeHeld, probeReleased);

    Snapshot start{}, afterSimple{}, afterScan{}, end{};
    for (auto _ : state) {
        start = snapshot();
        bench::Timed simple = bench::onServiceThread([&] {
            for (int i = 0; i < kSimple; ++i) listener->PostEvent_ChangeTtxStatus(i, 0);
        });
        afterSimple = snapshot();
        bench::Timed scan = bench::onServiceThread([&] {
            for (int i = 0; i < kScan; ++i) {
                dtv.setDataPosition(0);
                listener->PostEvent_DtvAutoTuning(dtv);
            }
        });
        afterScan = snapshot();
        bench::Timed hbb = bench::onServiceThread([&] {
            for (int i = 0; i < kHbbtv; ++i) {
                hbbtv.setDataPosition(0);
                listener->PostEvent_HbbtvEvent(hbbtv);
            }
        });
        end = snapshot();
        state.SetIterationTime((simple.wallNs + scan.wallNs + hbb.wallNs) * 1e-9);
    }
    printf("Memory over the run:\n");
    print("start", start);
    print("after 1,000,000 simple events", afterSimple);
    print("after 200,000 DTV scan events", afterScan);
    print("after 200,000 HbbTV events", end);
    fflush(stdout);
    state.counters["probe_seen"] = static_cast<double>(probeHeld - probeBase);
    state.counters["rss_growth_kB"] = static_cast<double>(end.residentKb - start.residentKb);
    state.counters["heap_growth_kB"] = static_cast<double>(end.heapKb - start.heapKb);
    state.counters["local_refs_growth"] = static_cast<double>(end.localRefs - start.localRefs);
    state.SetItemsProcessed(kSimple + kScan + kHbbtv);
}

BENCHMARK(BM_LongLife)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, kSimple + kScan + kHbbtv, {}, [] { return true; });
}
