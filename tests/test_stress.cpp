// Stress through the real VM: four managed threads call every kind of native (commands,
// queries, value objects, parcels, surfaces) while a fifth sets players up, finalises and
// suspends them, and two service threads fire every kind of event, payload events included.
// A watchdog ends the run on a deadlock. Afterwards: every answer was one the managed side
// may see, every proxy and listener is gone, nothing keeps a player object, scan object or
// surface producer alive, and every event fired while a player was set up was posted once.
//
// It runs PIJ_SOAK_SECONDS seconds (10 by default); scripts/soak.sh runs it for longer.
#include <gtest/gtest.h>
#include <gui/Surface.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <functional>
#include <mutex>
#include <random>
#include <thread>
#include <unordered_map>

#include "core/parcel.h"
#include "double/fake_player.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"
#include "reliability/native_calls.h"
#include "tvdisplay_host.h"

namespace {

using Clock = std::chrono::steady_clock;
using Event = std::function<void(PlayerImplListener&, int32_t)>;

// The process's resident memory in MB, from /proc.
long residentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string key; status >> key;) {
        if (long kb = 0; key == "VmRSS:" && status >> kb) return kb / 1024;
    }
    return -1;
}

// Where the memory is: the native heap in use (the library, the substitutes, the test's own
// records) and the managed heap in use and committed, in MB.
struct Memory {
    long resident, nativeHeap, managedUsed, managedCommitted;
};
Memory memoryNow(JNIEnv* e) {
    const struct mallinfo2 m = mallinfo2();
    jclass rt = e->FindClass("java/lang/Runtime");
    jmethodID get = e->GetStaticMethodID(rt, "getRuntime", "()Ljava/lang/Runtime;");
    jmethodID total = e->GetMethodID(rt, "totalMemory", "()J");
    jmethodID spare = e->GetMethodID(rt, "freeMemory", "()J");
    jobject r = e->CallStaticObjectMethod(rt, get);
    th::failOnPendingException();
    const jlong committed = e->CallLongMethod(r, total);
    th::failOnPendingException();
    const jlong unused = e->CallLongMethod(r, spare);
    th::failOnPendingException();
    e->DeleteLocalRef(r);
    e->DeleteLocalRef(rt);
    constexpr long kMB = 1024 * 1024;
    return {residentMegabytes(), static_cast<long>((m.uordblks + m.hblkhd) / kMB),
            static_cast<long>((committed - unused) / kMB), static_cast<long>(committed / kMB)};
}

// ---- Posted events, counted by sequence number ----

// Event threads put a fresh sequence number in ext1 (ext2 for the payload events, whose ext1
// is always 0). The counter is told of every post by com.vireo.test.EventCounter.
struct Counter {
    std::mutex lock;
    std::unordered_map<int32_t, int> posts;
    std::vector<jweak> scanObjects;      // every distinct shared scan object seen, weakly
    std::array<jint, 4> payloadCodes{};  // the three scans, then HbbTV
    std::atomic<long> total{0}, wrongObject{0};
} gCounter;

void JNICALL counted(JNIEnv* e, jclass, jint what, jint ext1, jint ext2, jobject obj) {
    const auto& codes = gCounter.payloadCodes;
    const bool payload = std::find(codes.begin(), codes.end(), what) != codes.end();
    // Payload events carry their value object, every other event none.
    if (payload != (obj != nullptr)) gCounter.wrongObject.fetch_add(1);
    gCounter.total.fetch_add(1);
    std::lock_guard<std::mutex> guard(gCounter.lock);
    ++gCounter.posts[payload ? ext2 : ext1];
    std::vector<jweak>& seen = gCounter.scanObjects;
    if (obj == nullptr || what == codes[3] || seen.size() >= 20000) return;
    for (size_t i = seen.size(); i > 0 && i + 4 > seen.size(); --i) {
        if (e->IsSameObject(seen[i - 1], obj)) return;
    }
    seen.push_back(e->NewWeakGlobalRef(obj));
}

// Posts of one sequence number so far; forgets it.
int takePosts(int32_t seq) {
    std::lock_guard<std::mutex> guard(gCounter.lock);
    auto posted = gCounter.posts.extract(seq);
    return posted.empty() ? 0 : posted.mapped();
}

// Weak references whose object is still reachable; all are deleted.
int stillReachable(JNIEnv* e, std::vector<jweak>& refs) {
    int n = 0;
    for (jweak w : refs) {
        n += !e->IsSameObject(w, nullptr);
        e->DeleteWeakGlobalRef(w);
    }
    refs.clear();
    return n;
}

// ---- The player currently set up, published by the life-cycle thread ----

struct Snapshot {
    android::sp<th::FakePlayer> fake;
    long epoch = 0;
    bool up = false;
};
struct {
    std::mutex lock;
    jobject player = nullptr;  // global reference
    Snapshot now;
} gCurrent;

Snapshot snapshot() {
    std::lock_guard<std::mutex> guard(gCurrent.lock);
    return gCurrent.now;
}

// ---- Figures ----

struct Figures {
    std::atomic<long> calls{0}, fired{0}, firedWhileUp{0};
    std::atomic<long> setups{0}, finalizes{0}, suspends{0}, failures{0};
    std::mutex lock;
    std::vector<std::string> messages;

    void fail(const std::string& what) {
        failures.fetch_add(1);
        std::lock_guard<std::mutex> guard(lock);
        if (messages.size() < 20) messages.push_back(what);
    }
    // Clears and records an exception left pending.
    bool threw(JNIEnv* e, const std::string& what) {
        if (!e->ExceptionCheck()) return false;
        e->ExceptionDescribe();
        e->ExceptionClear();
        fail(what);
        return true;
    }
} gFig;

// A managed thread of the test, attached for its life.
template <typename F>
std::thread managedThread(const char* name, F body) {
    return std::thread([name, body] {
        JNIEnv* e = nullptr;
        JavaVMAttachArgs a{JNI_VERSION_1_6, const_cast<char*>(name), nullptr};
        th::vm()->AttachCurrentThread(&e, &a);
        body(e);
        th::vm()->DetachCurrentThread();
    });
}

// A payload event: its parcel holds `values`, a name when one is given, then the sequence
// number.
Event payloadEvent(void (PlayerImplListener::*post)(const android::Parcel&),
                   std::vector<int> values, const char* name = nullptr) {
    return [=](PlayerImplListener& l, int32_t seq) {
        android::Parcel p;
        for (int v : values) p.writeInt32(v);
        if (name != nullptr) p.writeString8(android::String8(name));
        p.writeInt32(seq);
        p.setDataPosition(0);
        (l.*post)(p);
    };
}

TEST(Stress, ManyThreadsPlayersAndEventsLeaveNothingBehind) {
    JNIEnv* env = th::env();
    th::clearVmOutput();
    const char* soak = getenv("PIJ_SOAK_SECONDS");
    const int seconds = soak != nullptr && atoi(soak) > 0 ? atoi(soak) : 10;
    const auto deadline = Clock::now() + std::chrono::seconds(seconds);
    std::atomic<bool> stop{false}, finished{false};

    // The event counter, and the event codes of the four payload events.
    jclass counterClass = th::findClass("com/vireo/test/EventCounter");
    JNINativeMethod nm{const_cast<char*>("counted"), const_cast<char*>("(IIILjava/lang/Object;)V"),
                       reinterpret_cast<void*>(&counted)};
    ASSERT_EQ(env->RegisterNatives(counterClass, &nm, 1), JNI_OK);
    env->CallStaticVoidMethod(counterClass, env->GetStaticMethodID(counterClass, "install", "()V"));
    th::failOnPendingException();
    gCounter.payloadCodes = {th::staticInt("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO"),
                             th::staticInt("TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO"),
                             th::staticInt("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO"),
                             th::staticInt("TVPLAYER_HBBTV_UI_EVENT")};

    // Every native but the life-cycle ones and those that end the process without a player
    // (which the callers will meet, as players come and go under them).
    std::vector<rel::NativeMethod> callable;
    for (const rel::NativeMethod& m : rel::managedNatives()) {
        if (!rel::isLifeCycle(m.name) && !rel::endsProcessWithoutPlayer(m.name)) {
            callable.push_back(m);
        }
    }
    ASSERT_GT(callable.size(), 100u);
    auto indexOf = [&](const std::string& name) {
        auto it = std::find_if(callable.begin(), callable.end(),
                               [&](const rel::NativeMethod& m) { return m.name == name; });
        EXPECT_NE(it, callable.end()) << name;
        return static_cast<size_t>(it - callable.begin());
    };
    const auto kClose = indexOf("closeTeletext"), kPhase = indexOf("getPhaseRange");
    const auto kDetect = indexOf("native_getVideoStandardDetectionState");
    const auto kSetSurface = indexOf("_setVideoSurface");

    // Surfaces with a producer, shared by the callers.
    struct NativeSurface {
        android::sp<android::IGraphicBufferProducer> producer;
        android::sp<android::Surface> surface;
        jobject managed;  // global reference
    };
    std::vector<NativeSurface> surfaces;
    jclass surfaceClass = th::findClass("android/view/Surface");
    for (int i = 0; i < 3; ++i) {
        NativeSurface s{new android::IGraphicBufferProducer(), nullptr, nullptr};
        s.surface = new android::Surface(s.producer, 900 + i);
        jobject o = env->NewObject(surfaceClass, env->GetMethodID(surfaceClass, "<init>", "(J)V"),
                                   reinterpret_cast<jlong>(s.surface.get()));
        th::failOnPendingException();
        s.managed = env->NewGlobalRef(o);
        env->DeleteLocalRef(o);
        surfaces.push_back(s);
    }
    // Classes the threads look up, cached here once.
    th::findClass("android/os/Parcel");
    jclass system = th::findClass("java/lang/System");

    th::useFakePlayer();
    const int fakesBefore = th::FakePlayer::liveFakes();
    const int proxiesBefore = host::HostPlayer::liveCount();
    std::vector<android::wp<PlayerImplListener>> listeners;
    std::vector<jweak> players;
    // Suspended proxies, each with the callers' call counts at its suspension. Once every
    // caller has finished a call since, none can still be between reading the field and
    // taking its own reference, and the proxy is let go (a grace period, so that a long run
    // does not keep every suspended proxy to the end).
    std::array<std::atomic<long>, 4> callsDone{};
    struct Suspended {
        android::sp<th::FakePlayer> fake;
        std::array<long, 4> seen;
    };
    std::deque<Suspended> suspended;
    // Lets go of the suspended proxies every caller has moved past (of all with `all`).
    auto letGoPast = [&](bool all) {
        while (!suspended.empty()) {
            for (int c = 0; c < 4 && !all; ++c) {
                if (callsDone[c].load() <= suspended.front().seen[c]) return;
            }
            th::FakePlayer& f = *suspended.front().fake;
            f.disconnect();
            f.setListener(nullptr);
            f.decStrong(nullptr);  // the reference suspend left in the proxy's keeping
            suspended.pop_front();
        }
    };
    // A long run would otherwise keep a weak reference to every player and listener it ever
    // made: those already gone are forgotten now and then (gone is gone for good, so the
    // final check loses nothing).
    auto forgetGone = [&](JNIEnv* e) {
        listeners.erase(std::remove_if(listeners.begin(), listeners.end(),
                                       [](auto& w) { return w.promote() == nullptr; }),
                        listeners.end());
        players.erase(std::remove_if(players.begin(), players.end(),
                                     [e](jweak w) {
                                         if (!e->IsSameObject(w, nullptr)) return false;
                                         e->DeleteWeakGlobalRef(w);
                                         return true;
                                     }),
                      players.end());
    };
    auto suspendFn = reinterpret_cast<void (*)(JNIEnv*, jobject)>(th::librarySymbol("suspend"));
    ASSERT_NE(suspendFn, nullptr);

    // Watchdog: a run that has not ended well after its length is a deadlock.
    std::thread watchdog([&] {
        const auto limit = deadline + std::chrono::seconds(60 + seconds / 10);
        while (!finished.load()) {
            if (Clock::now() > limit) {
                fprintf(stderr, "DEADLOCK: the stress run did not end; calls %ld events %ld\n",
                        gFig.calls.load(), gFig.fired.load());
                abort();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
        }
    });

    // ---- The fifth managed thread: players come and go ----
    std::thread lifecycle = managedThread("stress-lifecycle", [&](JNIEnv* e) {
        std::mt19937 rng(5);
        jclass pc = th::playerClass();
        while (Clock::now() < deadline) {
            jobject p = e->NewObject(pc, e->GetMethodID(pc, "<init>", "()V"));
            if (gFig.threw(e, "constructing a player threw")) break;
            auto fake = th::lastFakePlayer();
            fake->setResult(th::Op::closeTeletext, 3);
            fake->setResult(th::Op::getPhaseRange, 77);
            fake->setResult(th::Op::getVideoStandardDetectionState, 0x1FE);
            listeners.push_back(fake->listener());
            players.push_back(e->NewWeakGlobalRef(p));
            gFig.setups.fetch_add(1);
            {
                std::lock_guard<std::mutex> guard(gCurrent.lock);
                gCurrent.player = e->NewGlobalRef(p);
                gCurrent.now = Snapshot{fake, gCurrent.now.epoch + 1, true};
            }
            std::this_thread::sleep_for(std::chrono::microseconds(rng() % 4000));
            {
                std::lock_guard<std::mutex> guard(gCurrent.lock);
                gCurrent.now.up = false;
            }
            if (rng() % 4 == 0) {
                // Dropped without disconnecting; the field's reference stays with the proxy.
                // The other native code that suspends a player owns that reference from
                // now on: this test lets go of it once every caller has finished a call
                // since. (suspend clears the field under the lock, so a caller already holds
                // its own reference; the grace period costs nothing and is kept.)
                suspendFn(e, p);
                gFig.suspends.fetch_add(1);
                fake->clearCalls();
                suspended.push_back({fake, {}});
                for (int c = 0; c < 4; ++c) suspended.back().seen[c] = callsDone[c].load();
            }
            // Every managed object is finalised in the end, a suspended one too: that
            // releases its surface binding and, without a player, says so.
            e->CallNonvirtualVoidMethod(p, pc, e->GetMethodID(pc, "release", "()V"));
            gFig.threw(e, "release threw");
            gFig.finalizes.fetch_add(1);
            fake = nullptr;
            letGoPast(false);
            if (gFig.setups.load() % 4096 == 0) forgetGone(e);
            e->DeleteLocalRef(p);
            // Callers still hold the object; it stays without a player until they are done.
            jobject old;
            {
                std::lock_guard<std::mutex> guard(gCurrent.lock);
                old = gCurrent.player;
                gCurrent.player = nullptr;
                gCurrent.now.fake = nullptr;
            }
            e->DeleteGlobalRef(old);
            std::this_thread::sleep_for(std::chrono::microseconds(rng() % 500));
        }
    });

    // ---- Four managed threads calling natives ----
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.push_back(managedThread("stress-caller", [&, t](JNIEnv* e) {
            std::mt19937 rng(100 + t);
            while (!stop.load()) {
                jobject p = nullptr;
                {
                    std::lock_guard<std::mutex> guard(gCurrent.lock);
                    if (gCurrent.player != nullptr) p = e->NewLocalRef(gCurrent.player);
                }
                if (p == nullptr) {
                    std::this_thread::yield();
                    continue;
                }
                for (int n = 0; n < 20; ++n) {
                    const size_t i = rng() % callable.size();
                    // The surface field of a player object is written without a lock by
                    // design: one thread binds, as the managed side does.
                    if (i == kSetSurface && t != 0) continue;
                    const rel::NativeMethod& m = callable[i];
                    // Oversized arguments belong to the bad-input sweep; here the variants
                    // are null, empty and ordinary ones.
                    const int k = (rng() % 3 == 0) ? 0 : (rng() % 2 ? 1 : 3);
                    std::vector<jvalue> args = rel::hostileArgs(e, m, k);
                    if (i == kSetSurface) {
                        e->DeleteLocalRef(args[0].l);
                        args[0].l = e->NewLocalRef(surfaces[rng() % surfaces.size()].managed);
                    }
                    rel::Result r = rel::callRaw(e, p, m, args.data());
                    gFig.calls.fetch_add(1);
                    callsDone[t].fetch_add(1);
                    gFig.threw(e, m.name + " left an exception pending");
                    // Answers are the player's (converted) or the neutral one.
                    const jint v = r.kind == 'Z' ? r.v.z : r.v.i;
                    if ((i == kClose && v != 1 && v != 0) || (i == kPhase && v != 77 && v != -1) ||
                        (i == kDetect && v != 0xFE && v != 255)) {
                        gFig.fail(m.name + " answered " + std::to_string(v));
                    }
                    if (r.kind == 'L' || r.kind == '[') e->DeleteLocalRef(r.v.l);
                    rel::releaseArgs(e, m, args);
                }
                e->DeleteLocalRef(p);
            }
        }));
    }

    // ---- Two drivers firing every kind of event on the two service threads ----
    std::atomic<int32_t> nextSeq{1000};
    for (int t = 0; t < 2; ++t) {
        threads.emplace_back([&, t] {
            std::mt19937 rng(200 + t);
            // Events that post once, each given its sequence number.
            const std::vector<Event> posting = {
#define PIJ_EVENT(number, code, operation) \
    [](PlayerImplListener& l, int32_t s) { l.operation(s, 7); },
#define PIJ_EVENT_OWN PIJ_EVENT
#define PIJ_PARCEL_EVENT(number, code)
#define PIJ_CALLBACK_EVENT(number, code) \
    [](PlayerImplListener& l, int32_t s) { l.notifyCB(number, s, 1, nullptr); },
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT
                payloadEvent(&PlayerImplListener::PostEvent_AtvAutoTuning,
                             {200, 474000, 65537, -3, 1}),
                payloadEvent(&PlayerImplListener::PostEvent_ManualTuning, {50, 1, 2, 3, 0}),
                payloadEvent(&PlayerImplListener::PostEvent_DtvAutoTuning,
                             {300, 600, 900, 1200, 1500, 1800, 2100, 2400, 2700, 3000, 3300},
                             "UHF 21"),
                payloadEvent(&PlayerImplListener::PostEvent_HbbtvEvent,
                             {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}),
            };
            // Events that post nothing.
            const std::vector<std::function<void(PlayerImplListener&)>> silent = {
                [](PlayerImplListener& l) { l.PostEvent_SnServiceDeadth(1, 2); },
                [](PlayerImplListener& l) { l.notifyCB(0x7fffffff, 1, 2, nullptr); },
                [](PlayerImplListener& l) { l.notify(1, android::Parcel()); },
            };
            while (!stop.load()) {
                const Snapshot before = snapshot();
                if (before.fake == nullptr) {
                    std::this_thread::yield();
                } else if (rng() % 16 == 0) {
                    before.fake->fire(silent[rng() % silent.size()], t);
                } else {
                    const int32_t seq = nextSeq.fetch_add(1);
                    const Event& ev = posting[rng() % posting.size()];
                    before.fake->fire([&](PlayerImplListener& l) { ev(l, seq); }, t);
                    gFig.fired.fetch_add(1);
                    const Snapshot after = snapshot();
                    // fire() returns once the listener has run, so every post has arrived.
                    const int n = takePosts(seq);
                    const bool wasUp = before.up && after.up && before.epoch == after.epoch;
                    if (wasUp) gFig.firedWhileUp.fetch_add(1);
                    if (n > 1 || (wasUp && n != 1)) {
                        gFig.fail("event " + std::to_string(seq) + " posted " + std::to_string(n) +
                                  " times" + (wasUp ? " while set up" : ""));
                    }
                }
            }
        });
    }

    // Housekeeping: the fakes' and the display library's call records and the harness's
    // captured log lines would grow without end in a long run (a soak once ran out of memory
    // on the log lines alone; the display record, with the weak references forgotten above,
    // made the native heap grow 250 MB in half an hour).
    // Memory is taken after set-up, half-way and at the end: what a long run keeps growing
    // shows as the difference between the last two.
    const Memory memStart = memoryNow(env);
    const auto halfway = Clock::now() + (deadline - Clock::now()) / 2;
    Memory memHalf = memStart;
    bool halfTaken = false;
    while (Clock::now() < deadline) {
        if (!halfTaken && Clock::now() >= halfway) {
            memHalf = memoryNow(env);
            halfTaken = true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        if (const Snapshot s = snapshot(); s.fake != nullptr) s.fake->clearCalls();
        tvdisplay_host::clearCalls();
        th::clearLogs();
    }
    const Memory memEnd = memoryNow(env);
    lifecycle.join();
    stop.store(true);
    for (auto& t : threads) t.join();
    finished.store(true);
    watchdog.join();
    letGoPast(true);

    printf(
        "STRESS seconds %d calls %ld events %ld (while set up %ld) posted %ld setups %ld "
        "finalizes %ld suspends %ld failures %ld\n",
        seconds, gFig.calls.load(), gFig.fired.load(), gFig.firedWhileUp.load(),
        gCounter.total.load(), gFig.setups.load(), gFig.finalizes.load(), gFig.suspends.load(),
        gFig.failures.load());
    printf(
        "STRESS memory (MB) after set-up / half-way / at the end: resident %ld / %ld / %ld, "
        "native heap %ld / %ld / %ld, managed heap used %ld / %ld / %ld of %ld committed\n",
        memStart.resident, memHalf.resident, memEnd.resident, memStart.nativeHeap,
        memHalf.nativeHeap, memEnd.nativeHeap, memStart.managedUsed, memHalf.managedUsed,
        memEnd.managedUsed, memEnd.managedCommitted);

    for (const std::string& m : gFig.messages) ADD_FAILURE() << m;
    EXPECT_EQ(gFig.failures.load(), 0);
    EXPECT_EQ(gCounter.wrongObject.load(), 0) << "payload events carry an object, others none";
    EXPECT_GT(gFig.calls.load(), 1000);
    EXPECT_GT(gFig.firedWhileUp.load(), 100);
    EXPECT_GT(gFig.setups.load(), 10);
    EXPECT_TRUE(gCounter.posts.empty()) << gCounter.posts.size() << " posts of no firing";

    // Nothing outlives its last reference: proxies, listeners (and so the global references
    // they hold), the producers the surfaces were bound to.
    EXPECT_EQ(th::FakePlayer::liveFakes(), fakesBefore);
    EXPECT_EQ(host::HostPlayer::liveCount(), proxiesBefore);
    int liveListeners = 0;
    for (auto& w : listeners) liveListeners += w.promote() != nullptr;
    EXPECT_EQ(liveListeners, 0);
    // Every player object has been finalised (some suspended first, some while a bind was
    // under way): the library holds no reference on any producer any more.
    long heldReferences = 0;
    for (NativeSurface& s : surfaces) {
        const int32_t held = s.producer->getStrongCount() - 2;  // besides ours and the surface's
        EXPECT_EQ(held, 0) << "references held on producer " << s.producer.get();
        heldReferences += held;
        env->DeleteGlobalRef(s.managed);
    }
    printf("STRESS producer references held once every player was torn down: %ld\n",
           heldReferences);
    fflush(stdout);

    // No global reference keeps a player object or a shared scan object: once collected,
    // every weak reference to them is cleared.
    for (int i = 0; i < 3; ++i) {
        env->CallStaticVoidMethod(system, env->GetStaticMethodID(system, "gc", "()V"));
        th::failOnPendingException();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    EXPECT_EQ(stillReachable(env, players), 0) << "player objects kept by a global reference";
    EXPECT_GT(gCounter.scanObjects.size(), 0u);
    EXPECT_EQ(stillReachable(env, gCounter.scanObjects), 0)
        << "shared scan objects kept after the last player went";
    host::resetConnectFactory();
    th::expectNoJniWarnings();
}

}  // namespace
