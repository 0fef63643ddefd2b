// What every benchmark program shares: a proxy that answers at once and records nothing, the
// log line formatted the way the library's logger formats it, timing on the service's own
// callback threads, and a main that runs in a VM without the checked JNI layer and ends with
// the library's ratio to each of its floors.
//
// Every figure is per call (or per event), from the median of the repetitions (5 unless
// --benchmark_repetitions says otherwise), which run interleaved at random so that a busy
// moment of the machine does not fall on one benchmark only.
#pragma once

#include <benchmark/benchmark.h>
#include <jni.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "marshal/audio.h"
#include "marshal/picture.h"
#include "playerimpl_host/host_player.h"

// liblog's entry point; the program's own definition (device_log_sink.cpp) is the one the
// library calls.
extern "C" int __android_log_print(int prio, const char* tag, const char* fmt, ...);

namespace bench {

constexpr int kDebug = 3;  // ANDROID_LOG_DEBUG
constexpr const char* kTag = "PlayerImpl_JNI";

// The records the proxy hands back: a 1920 x 1080 picture and sixteen audio tracks.
const VideoInfoRec& sampleVideo();
const DtvAudioInfoRec& sampleAudio();

// A player service that answers at once and records nothing.
class QuietPlayer : public host::HostPlayer {
public:
    ProxyBool closeTeletext() override;
    void getVideoInfo(VideoInfoRec& out) override;
    void getAudioInfo(DtvAudioInfoRec& out) override;
};

struct Player {
    jobject object = nullptr;  // global reference to the managed PlayerImpl
    android::sp<QuietPlayer> proxy;
    jobject weak = nullptr;  // global reference to a WeakReference to it, as the listener holds
};
// A managed player set up on a QuietPlayer (native_setup runs as usual).
Player newQuietPlayer();

// A com.vireo.test.BenchFloors object (a global reference) whose context field holds the
// proxy and owns a strong reference to it, as a player object's does; `natives` are
// registered on its class.
struct Floors {
    jclass cls = nullptr;
    jobject object = nullptr;
    jfieldID context = nullptr;
};
bool newFloors(const Player& player, const std::vector<JNINativeMethod>& natives, Floors* out);

// The call frame written out as the design states it, with a lock of the floors' own: lock,
// read the context field, take a strong reference, unlock.
android::sp<PlayerImpl> framedProxy(JNIEnv* env, jobject thiz, jfieldID context);

// A managed static method of a test class, or null with the exception described.
jmethodID staticMethod(jclass c, const char* name, const char* sig);

// Runs `work` on service thread 0 (attached to the VM once and for good, as the device's
// callback threads are) and returns its wall and thread CPU time in nanoseconds.
struct Timed {
    double wallNs = 0;
    double cpuNs = 0;
};
Timed onServiceThread(const std::function<void()>& work);

// Times `perBatch` events per iteration on service thread 0: the iteration's time is the
// service thread's wall time (the hand-over is not counted), and the counter cpu_ns holds
// its CPU time per event.
void timeEventBatches(benchmark::State& state, int perBatch, const std::function<void()>& batch);

// The library's benchmark and one of its floors, compared in the summary.
struct Ratio {
    const char* library;  // benchmark function names
    const char* floor;
    const char* what;  // what the floor is, for the summary line
};

// Runs the benchmarks named on the command line (all by default), each iteration being
// `itemsPerIteration` calls or events, then prints the ratios and, for every benchmark run
// with one and with two threads, the throughput of two threads over one. `setUp` runs once
// the flags are parsed, before any benchmark; false ends the program with status 1.
//
// The VM runs without -Xcheck:jni unless PIJ_BENCH_CHECK_JNI is set.
int run(int argc, char** argv, int itemsPerIteration, const std::vector<Ratio>& ratios,
        const std::function<bool()>& setUp);

// Detaches a benchmark worker thread (not the main thread) from the VM at the end of a run.
void detachWorker();

// Times `batch` calls per iteration of the managed static loop `loop` of `cls` (an int loop
// taking the target and the count); a loop that throws ends the benchmark with an error. A
// worker thread is detached at the end.
void runManagedLoop(benchmark::State& state, jclass cls, jmethodID loop, jobject target,
                    jint batch);

}  // namespace bench
