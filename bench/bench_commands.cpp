// The cost of one thin boolean command (closeTeletext) called from managed code, against
// the floor: an empty boolean native registered on a test class, called the same way in
// the same run. Both are called from a managed loop (so the VM's own call path is the one
// a device uses) in batches of kBatch; figures are per call. Single-threaded and with two
// threads calling at once, which share the library's one lock.
//
// The player behind the command is a quiet proxy that answers at once, so the figure is
// the library's frame (trace line, lock, context read, reference, call, conversion).
// Log lines go to the workstation's log capture, which is emptied between batches.
//
// By default the VM runs without -Xcheck:jni (set PIJ_BENCH_CHECK_JNI=1 to keep it).
#include <benchmark/benchmark.h>
#include <jni.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>
#include <utility>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"

namespace {

constexpr int kBatch = 1000;

// Answers closeTeletext at once and records nothing.
class QuietPlayer : public host::HostPlayer {
public:
    ProxyBool closeTeletext() override { return 1; }
};

jboolean JNICALL emptyNative(JNIEnv*, jobject) { return JNI_TRUE; }

struct Fixture {
    jclass loops = nullptr;
    jmethodID loopNop = nullptr;
    jmethodID loopCommand = nullptr;
    jobject empty = nullptr;   // global
    jobject player = nullptr;  // global
    std::thread::id mainThread;
};
Fixture gFx;

bool setUp() {
    gFx.mainThread = std::this_thread::get_id();
    JNIEnv* e = th::env();
    host::setConnectFactory([] { return android::sp<PlayerImpl>(new QuietPlayer()); });
    jobject p = th::newPlayer();
    gFx.player = e->NewGlobalRef(p);
    e->DeleteLocalRef(p);

    gFx.loops = th::findClass("com/vireo/test/EmptyNative");
    JNINativeMethod nop{const_cast<char*>("nop"), const_cast<char*>("()Z"),
                        reinterpret_cast<void*>(&emptyNative)};
    if (e->RegisterNatives(gFx.loops, &nop, 1) != JNI_OK) return false;
    jobject obj = e->AllocObject(gFx.loops);
    gFx.empty = e->NewGlobalRef(obj);
    e->DeleteLocalRef(obj);
    gFx.loopNop = e->GetStaticMethodID(gFx.loops, "loopNop", "(Lcom/vireo/test/EmptyNative;I)I");
    gFx.loopCommand = e->GetStaticMethodID(gFx.loops, "loopCloseTeletext",
                                           "(Lcom/vireo/android/tvapi/impl/PlayerImpl;I)I");
    if (e->ExceptionCheck()) {
        e->ExceptionDescribe();
        return false;
    }
    return gFx.loopNop != nullptr && gFx.loopCommand != nullptr;
}

void runLoop(benchmark::State& state, jmethodID loop, jobject target) {
    JNIEnv* e = th::env();
    for (auto _ : state) {
        jint n = e->CallStaticIntMethod(gFx.loops, loop, target, kBatch);
        if (e->ExceptionCheck()) {
            e->ExceptionDescribe();
            e->ExceptionClear();
            state.SkipWithError("managed loop threw");
            break;
        }
        benchmark::DoNotOptimize(n);
        state.PauseTiming();
        th::clearLogs();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
    if (std::this_thread::get_id() != gFx.mainThread) th::vm()->DetachCurrentThread();
}

void BM_EmptyNative(benchmark::State& state) { runLoop(state, gFx.loopNop, gFx.empty); }
void BM_CloseTeletext(benchmark::State& state) { runLoop(state, gFx.loopCommand, gFx.player); }

// Five repetitions each; the ratio uses the medians (the workstation is shared).
BENCHMARK(BM_EmptyNative)->Threads(1)->Threads(2)->UseRealTime()->Repetitions(5);
BENCHMARK(BM_CloseTeletext)->Threads(1)->Threads(2)->UseRealTime()->Repetitions(5);

// Prints the usual table, then the command's cost over the floor for each thread count,
// from the median repetition: wall time and CPU time of one call as one thread sees it.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs) {
            if (r.run_type != Run::RT_Aggregate || r.aggregate_name != "median") continue;
            // The library reports time per iteration summed over threads; scale back by the
            // thread count, and down by the batch.
            const double scale = static_cast<double>(r.threads) / kBatch;
            mPerCall[{r.run_name.function_name, r.threads}] = {r.GetAdjustedRealTime() * scale,
                                                               r.GetAdjustedCPUTime() * scale};
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        for (int64_t threads : {1, 2}) {
            auto floor = mPerCall.find({"BM_EmptyNative", threads});
            auto cmd = mPerCall.find({"BM_CloseTeletext", threads});
            if (floor == mPerCall.end() || cmd == mPerCall.end()) continue;
            printf(
                "threads=%lld  wall: empty %.1f ns, closeTeletext %.1f ns, ratio %.1f;"
                "  cpu: empty %.1f ns, closeTeletext %.1f ns, ratio %.1f\n",
                static_cast<long long>(threads), floor->second.first, cmd->second.first,
                cmd->second.first / floor->second.first, floor->second.second, cmd->second.second,
                cmd->second.second / floor->second.second);
        }
    }

private:
    std::map<std::pair<std::string, int64_t>, std::pair<double, double>> mPerCall;
};

}  // namespace

int main(int argc, char** argv) {
    if (getenv("PIJ_BENCH_CHECK_JNI") == nullptr) setenv("PIJ_NO_CHECK_JNI", "1", 1);
    benchmark::Initialize(&argc, argv);
    if (!setUp()) {
        fprintf(stderr, "benchmark set-up failed\n");
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
