#include "bench_support.h"

#include <pthread.h>
#include <time.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <thread>
#include <utility>

#include "harness/jvm_harness.h"

namespace bench {

const VideoInfoRec& sampleVideo() {
    static const VideoInfoRec rec = [] {
        VideoInfoRec r{};
        r.hResolution = 1920;
        r.vResolution = 1080;
        r.frameRate = 50000;
        r.modeIndex = 3;
        r.enScanType = 1;
        r.arcDescriptionType = 2;
        r.arcType = 4;
        r.afdAspectRatio = 8;
        return r;
    }();
    return rec;
}

const DtvAudioInfoRec& sampleAudio() {
    static const DtvAudioInfoRec rec = [] {
        DtvAudioInfoRec r{};
        r.audioLangNum = kMaxAudioTracks;
        for (int i = 0; i < kMaxAudioTracks; ++i) {
            AudioInfoRec& t = r.audioInfos[i];
            t.audioPid = static_cast<uint32_t>(0x100 + i);
            t.audioType = static_cast<uint16_t>(i % 4);
            t.aacType = 1;
            t.aacProfileAndLevel = 2;
            t.broadcastMixAd = 1;
            t.isoLangInfo.audioMode = 1;
            t.isoLangInfo.audioType = 2;
            std::memcpy(t.isoLangInfo.isoLangInfo, i % 2 ? "deu" : "eng", 3);
            t.isoLangInfo.isValid = 1;
        }
        r.currentAudioIndex = 1;
        r.currentChannelMode = 2;
        return r;
    }();
    return rec;
}

ProxyBool QuietPlayer::closeTeletext() { return 1; }
void QuietPlayer::getVideoInfo(VideoInfoRec& out) { out = sampleVideo(); }
void QuietPlayer::getAudioInfo(DtvAudioInfoRec& out) { out = sampleAudio(); }

Player newQuietPlayer() {
    Player p;
    host::setConnectFactory([&p] {
        p.proxy = new QuietPlayer();
        return android::sp<PlayerImpl>(p.proxy);
    });
    JNIEnv* e = th::env();
    jobject local = th::newPlayer();
    host::resetConnectFactory();
    p.object = e->NewGlobalRef(local);
    e->DeleteLocalRef(local);
    jclass weakClass = e->FindClass("java/lang/ref/WeakReference");
    jobject weak = e->NewObject(
        weakClass, e->GetMethodID(weakClass, "<init>", "(Ljava/lang/Object;)V"), p.object);
    p.weak = e->NewGlobalRef(weak);
    e->DeleteLocalRef(weak);
    e->DeleteLocalRef(weakClass);
    return p;
}

bool newFloors(const Player& player, const std::vector<JNINativeMethod>& natives, Floors* out) {
    JNIEnv* e = th::env();
    out->cls = th::findClass("com/vireo/test/BenchFloors");
    if (out->cls == nullptr ||
        e->RegisterNatives(out->cls, natives.data(), static_cast<jint>(natives.size())) != JNI_OK) {
        return false;
    }
    jobject f = e->AllocObject(out->cls);
    out->object = e->NewGlobalRef(f);
    e->DeleteLocalRef(f);
    out->context = e->GetFieldID(out->cls, "mNativeContext", "J");
    player.proxy->incStrong(out);  // the field's own reference, never dropped
    e->SetLongField(out->object, out->context, reinterpret_cast<jlong>(player.proxy.get()));
    return out->context != nullptr;
}

namespace {
pthread_mutex_t gFloorLock = PTHREAD_MUTEX_INITIALIZER;
}  // namespace

android::sp<PlayerImpl> framedProxy(JNIEnv* env, jobject thiz, jfieldID context) {
    pthread_mutex_lock(&gFloorLock);
    android::sp<PlayerImpl> p(reinterpret_cast<PlayerImpl*>(env->GetLongField(thiz, context)));
    pthread_mutex_unlock(&gFloorLock);
    return p;
}

jmethodID staticMethod(jclass c, const char* name, const char* sig) {
    JNIEnv* e = th::env();
    jmethodID m = c != nullptr ? e->GetStaticMethodID(c, name, sig) : nullptr;
    if (m == nullptr && e->ExceptionCheck()) {
        e->ExceptionDescribe();
        e->ExceptionClear();
    }
    if (m == nullptr) fprintf(stderr, "no static method %s%s\n", name, sig);
    return m;
}

namespace {

double nowNs(clockid_t clock) {
    timespec ts{};
    clock_gettime(clock, &ts);
    return static_cast<double>(ts.tv_sec) * 1e9 + static_cast<double>(ts.tv_nsec);
}

std::thread::id gMainThread;

// Per call or per event, in nanoseconds.
struct Figures {
    double wall = 0;  // with several threads: the inverse of their joint throughput
    double cpu = 0;   // CPU time of one call on its thread
};
using Key = std::pair<std::string, int64_t>;  // benchmark function, threads

// The usual table, then the summary: each library benchmark against each of its floors, and
// two threads against one.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter(int items, std::vector<Ratio> ratios)
        : ConsoleReporter(OO_Tabular), mItems(items), mRatios(std::move(ratios)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs) {
            if (r.error_occurred) continue;
            const Key key{r.run_name.function_name, r.threads};
            if (r.run_type == Run::RT_Aggregate && r.aggregate_name == "median") {
                mMedian[key] = figures(r);
                mRepetitions = r.repetitions;
            } else if (r.run_type == Run::RT_Iteration) {
                mSingle[key] = figures(r);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        const auto& got = mMedian.empty() ? mSingle : mMedian;
        if (!mRatios.empty()) {
            printf("\nPer call, %s; the library's ratio to each floor (wall, cpu):\n",
                   mMedian.empty() ? "one run" : "median of the repetitions");
        }
        for (const Ratio& ratio : mRatios) {
            for (int64_t threads : {1, 2}) {
                auto lib = got.find({ratio.library, threads});
                auto floor = got.find({ratio.floor, threads});
                if (lib == got.end() || floor == got.end()) continue;
                printf(
                    "  %-28s %2lld thr  %9.1f ns  /  %-40s %9.1f ns  = %6.2fx wall  %6.2fx cpu\n",
                    ratio.library, static_cast<long long>(threads), lib->second.wall, ratio.what,
                    floor->second.wall, lib->second.wall / floor->second.wall,
                    lib->second.cpu / floor->second.cpu);
            }
        }
        bool header = false;
        for (const auto& [key, one] : got) {
            if (key.second != 1) continue;
            auto two = got.find({key.first, 2});
            if (two == got.end()) continue;
            if (!header) {
                printf("\nThroughput of two threads over one (calls per second, both threads):\n");
                header = true;
            }
            printf("  %-28s one %9.1f ns/call  two %9.1f ns/call  = %5.2fx\n", key.first.c_str(),
                   one.wall, two->second.wall, one.wall / two->second.wall);
        }
        fflush(stdout);
    }

private:
    Figures figures(const Run& r) const {
        Figures f;
        f.wall = r.GetAdjustedRealTime() / mItems;  // manual time where the benchmark uses it
        auto cpu = r.counters.find("cpu_ns");
        f.cpu = cpu != r.counters.end() ? cpu->second.value : r.GetAdjustedCPUTime() / mItems;
        return f;
    }

    int mItems;
    std::vector<Ratio> mRatios;
    std::map<Key, Figures> mMedian;
    std::map<Key, Figures> mSingle;
    int64_t mRepetitions = 0;
};

}  // namespace

Timed onServiceThread(const std::function<void()>& work) {
    Timed t;
    host::runOnServiceThread(0, [&] {
        const double w0 = nowNs(CLOCK_MONOTONIC);
        const double c0 = nowNs(CLOCK_THREAD_CPUTIME_ID);
        work();
        t.cpuNs = nowNs(CLOCK_THREAD_CPUTIME_ID) - c0;
        t.wallNs = nowNs(CLOCK_MONOTONIC) - w0;
    });
    return t;
}

void timeEventBatches(benchmark::State& state, int perBatch, const std::function<void()>& batch) {
    double cpu = 0;
    for (auto _ : state) {
        const Timed t = onServiceThread(batch);
        state.SetIterationTime(t.wallNs * 1e-9);
        cpu += t.cpuNs;
    }
    const double events = static_cast<double>(state.iterations()) * perBatch;
    state.SetItemsProcessed(static_cast<int64_t>(events));
    state.counters["cpu_ns"] = benchmark::Counter(cpu / events);
}

void detachWorker() {
    if (std::this_thread::get_id() != gMainThread) th::vm()->DetachCurrentThread();
}

void runManagedLoop(benchmark::State& state, jclass cls, jmethodID loop, jobject target,
                    jint batch) {
    JNIEnv* e = th::env();
    for (auto _ : state) {
        const jint n = e->CallStaticIntMethod(cls, loop, target, batch);
        if (e->ExceptionCheck()) {
            e->ExceptionDescribe();
            e->ExceptionClear();
            state.SkipWithError("the managed loop threw");
            break;
        }
        benchmark::DoNotOptimize(n);
    }
    state.SetItemsProcessed(state.iterations() * batch);
    detachWorker();
}

int run(int argc, char** argv, int itemsPerIteration, const std::vector<Ratio>& ratios,
        const std::function<bool()>& setUp) {
    gMainThread = std::this_thread::get_id();
    const bool checked = getenv("PIJ_BENCH_CHECK_JNI") != nullptr;
    // The figures are the library's: no judging layer of the tests on the JNI table, and the
    // API on the class path, where the reference code's FindClass finds it.
    setenv("PIJ_JNI_RULES", "off", 0);
    setenv("PIJ_SYSTEM_CLASS_PATH", "1", 0);
    if (checked) {
        unsetenv("PIJ_NO_CHECK_JNI");
    } else {
        setenv("PIJ_NO_CHECK_JNI", "1", 1);
    }
    // Defaults first, so that the same flags given on the command line win.
    std::vector<char*> args{argv[0]};
    char reps[] = "--benchmark_repetitions=5";
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    char aggregates[] = "--benchmark_display_aggregates_only=true";
    args.insert(args.end(), {reps, interleave, aggregates});
    args.insert(args.end(), argv + 1, argv + argc);
    int n = static_cast<int>(args.size());
    args.push_back(nullptr);
    benchmark::Initialize(&n, args.data());
    if (benchmark::ReportUnrecognizedArguments(n, args.data())) return 1;
    printf("VM %s -Xcheck:jni; log lines formatted into a 1024-byte buffer and dropped\n",
           checked ? "with" : "without");
    if (!setUp()) {
        fprintf(stderr, "benchmark set-up failed\n");
        return 1;
    }
    RatioReporter reporter(itemsPerIteration, ratios);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace bench
