// Binding the TV video window to a Surface, the producer reference the library holds for
// the player object, its release at finalisation, and the HDMI GPIO command.
#include <android/log.h>
#include <gtest/gtest.h>
#include <gui/IGraphicBufferProducer.h>
#include <gui/Surface.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "surface/video_surface.h"
#include "tvdisplay_host.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;
constexpr int E = ANDROID_LOG_ERROR;

const char* kIse = "java/lang/IllegalStateException";

std::string fatal(const char* handler, int line, const char* cls) {
    return th::fatalLine(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + handler, line,
                         cls);
}

// A managed Surface in front of the native surface at `nativeObject` (0 for none).
jobject managedSurface(jlong nativeObject) {
    jclass c = th::findClass("android/view/Surface");
    jobject o = th::env()->NewObject(c, th::env()->GetMethodID(c, "<init>", "(J)V"), nativeObject);
    th::failOnPendingException();
    return o;
}

// A native surface (with or without a producer) and the managed Surface in front of it; the
// test holds the strong reference the managed object stands for.
struct TestSurface {
    android::sp<android::IGraphicBufferProducer> producer;
    android::sp<android::Surface> native;
    jobject managed;

    TestSurface(bool withProducer, uint64_t id)
        : producer(withProducer ? new android::IGraphicBufferProducer() : nullptr),
          native(new android::Surface(producer, id)),
          managed(managedSurface(reinterpret_cast<jlong>(native.get()))) {}
    ~TestSurface() { th::env()->DeleteLocalRef(managed); }
    // References on the producer besides the test's own and the native surface's.
    int32_t libraryRefs() const { return producer->getStrongCount() - 2; }
};

class Surface : public th::PlayerTest {
protected:
    void SetUp() override {
        PlayerTest::SetUp();
        tvdisplay_host::setWindowId(1);
        tvdisplay_host::setCloseResult(1);
        tvdisplay_host::clearCalls();
    }
    void bind(jobject surface, jint type) {
        th::callV(player, "_setVideoSurface", "(Landroid/view/Surface;I)V", surface, type);
    }
    jboolean unbind(jobject surface) {
        return th::callZ(player, "_destoryVideoSurface", "(Landroid/view/Surface;)Z", surface);
    }
    jlong heldProducer() {
        return th::env()->GetLongField(player, th::fieldId(player, "mNativeSurfaceTexture", "J"));
    }
    jboolean gpio(const std::vector<jint>& values) {
        jintArray a = th::env()->NewIntArray(static_cast<jsize>(values.size()));
        th::env()->SetIntArrayRegion(a, 0, static_cast<jsize>(values.size()), values.data());
        jboolean r = th::callZ(player, "setHdmiGpio", "([I)Z", a);
        th::env()->DeleteLocalRef(a);
        return r;
    }
};

TEST_F(Surface, EachBindHoldsOneReferenceOnTheNewestProducerUntilFinalisation) {
    TestSurface first(true, 77), second(true, 78);
    bind(first.managed, 0);
    EXPECT_EQ(first.libraryRefs(), 1);
    EXPECT_TRUE(th::hasLog(I, "setVideoSurface SurfaceID: 77, eWinId: 1\n"));

    // No window for the second: reported, and its producer is bound all the same.
    tvdisplay_host::setWindowId(-1);
    bind(second.managed, -5);
    EXPECT_TRUE(th::hasLog(I, "setVideoSurface SurfaceID: 78, eWinId: -1\n"));
    EXPECT_TRUE(th::hasLog(E, "Get Error window ID"));
    EXPECT_EQ(first.libraryRefs(), 0) << "the earlier producer is let go";
    EXPECT_EQ(second.libraryRefs(), 1);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(second.producer.get()));
    auto calls = tvdisplay_host::calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_TRUE(calls[1].open);
    EXPECT_EQ(calls[1].surface, second.native.get());
    EXPECT_EQ(calls[1].type, -5) << "the window type passes unchanged";
    EXPECT_TRUE(fake->calls().empty()) << "binding calls no player operation";

    // native_finalize (through release) lets the bound producer go.
    th::callV(player, "release", "()V");
    EXPECT_EQ(second.libraryRefs(), 0);
}

TEST_F(Surface, BindsThatCannotGoAheadReportAndHoldNothingNew) {
    TestSurface bound(true, 1), bare(false, 2);
    bind(bound.managed, 0);
    tvdisplay_host::clearCalls();

    // A null Surface: reported before the player is looked at; the binding stays.
    bind(nullptr, 3);
    EXPECT_TRUE(th::hasLog(E, "jsf == NULL"));
    EXPECT_EQ(bound.libraryRefs(), 1);

    // A Surface without a producer: the old reference is dropped all the same. (The field
    // keeps the old address, which the next bind would drop once more: start afresh.)
    bind(bare.managed, 0);
    EXPECT_TRUE(th::hasLog(E, fatal("setVideoSurface", 2768, kIse)));
    EXPECT_EQ(bound.libraryRefs(), 0);
    th::env()->SetLongField(player, th::fieldId(player, "mNativeSurfaceTexture", "J"), 0);

    // A managed Surface with no native one, then no player at all.
    jobject empty = managedSurface(0);
    bind(empty, 0);
    EXPECT_TRUE(th::hasLog(E, fatal("setVideoSurface", 2763, kIse)));
    th::callV(player, "release", "()V");
    bind(bound.managed, 0);
    EXPECT_TRUE(
        th::hasLog(E, fatal("setVideoSurface", 2757, "java/lang/IllegalArgumentException")));
    EXPECT_EQ(bound.libraryRefs(), 0);
    EXPECT_TRUE(tvdisplay_host::calls().empty()) << "no window opened";
    th::env()->DeleteLocalRef(empty);
}

TEST_F(Surface, TheLibraryDropsOnlyAReferenceItHolds) {
    TestSurface s(true, 5);
    bind(s.managed, 0);
    ASSERT_EQ(s.libraryRefs(), 1);
    // The platform lets the native surface go: binding the same Surface again drops the
    // library's reference and then fails, leaving the old address in the field.
    th::env()->SetLongField(s.managed, th::fieldId(s.managed, "mNativeObject", "J"), 0);
    for (int failed = 0; failed < 3; ++failed) {
        bind(s.managed, 0);
        EXPECT_EQ(s.libraryRefs(), 0) << "failed bind " << failed;
    }
    EXPECT_EQ(th::countLog(E, fatal("setVideoSurface", 2763, kIse)), 3);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(s.producer.get())) << "the field keeps it";
    // Finalisation has nothing left to drop on that producer.
    th::callV(player, "release", "()V");
    EXPECT_EQ(s.libraryRefs(), 0);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(s.producer.get()));
}

// Runs `a` and `b` at once on two attached threads, started together.
void atOnce(const std::function<void()>& a, const std::function<void()>& b) {
    std::atomic<int> ready{0};
    auto run = [&](const std::function<void()>& f) {
        return std::thread([&ready, &f] {
            th::env();  // attached before the start
            ready.fetch_add(1);
            while (ready.load() < 2) std::this_thread::yield();
            f();
            th::vm()->DetachCurrentThread();
        });
    };
    std::thread ta = run(a), tb = run(b);
    ta.join();
    tb.join();
}

TEST_F(Surface, BindsAndFinalisationAtOnceDropEachReferenceOnce) {
    JNIEnv* e = th::env();
    jobject target = e->NewGlobalRef(player);
    TestSurface old(true, 10);
    bind(old.managed, 0);
    for (int round = 0; round < 200; ++round) {
        TestSurface a(true, 11), b(true, 12);
        jobject ga = e->NewGlobalRef(a.managed), gb = e->NewGlobalRef(b.managed);
        auto bindOn = [&](jobject surface) {
            th::callV(target, "_setVideoSurface", "(Landroid/view/Surface;I)V", surface, 0);
        };
        atOnce([&] { bindOn(ga); }, [&] { bindOn(gb); });
        // One of the two is bound, with one reference; the field shows it.
        ASSERT_EQ(a.libraryRefs() + b.libraryRefs(), 1) << "round " << round;
        ASSERT_TRUE(a.libraryRefs() >= 0 && b.libraryRefs() >= 0) << "round " << round;
        const TestSurface& held = a.libraryRefs() == 1 ? a : b;
        ASSERT_EQ(heldProducer(), reinterpret_cast<jlong>(held.producer.get()));
        ASSERT_EQ(old.libraryRefs(), 0);
        // Unbound again for the next round: bound to `old`, then released by the next bind.
        bind(old.managed, 0);
        ASSERT_EQ(a.libraryRefs() + b.libraryRefs(), 0);
        e->DeleteGlobalRef(ga);
        e->DeleteGlobalRef(gb);
    }
    // A bind and native_finalize at once, each round on a new player: whichever comes
    // first, once both have returned the object is torn down and holds nothing.
    releasePlayer();
    for (int round = 0; round < 100; ++round) {
        jobject local = th::newPlayer();
        jobject p = e->NewGlobalRef(local);
        e->DeleteLocalRef(local);
        TestSurface s(true, 13);
        jobject gs = e->NewGlobalRef(s.managed);
        th::callV(p, "_setVideoSurface", "(Landroid/view/Surface;I)V", gs, 0);
        TestSurface next(true, 14);
        jobject gn = e->NewGlobalRef(next.managed);
        atOnce([&] { th::callV(p, "_setVideoSurface", "(Landroid/view/Surface;I)V", gn, 0); },
               [&] { th::callV(p, "release", "()V"); });
        ASSERT_EQ(s.libraryRefs(), 0) << "round " << round;
        ASSERT_EQ(next.libraryRefs(), 0) << "round " << round;
        for (jobject g : {p, gs, gn}) e->DeleteGlobalRef(g);
    }
    e->DeleteGlobalRef(target);
}

// ---- suspend, and a new native_setup on the same object ----

// The exported suspend, as other native code of the system calls it. It leaves the proxy
// connected with the field's reference in that code's keeping; the test is that code and lets
// go of it, as the service would at its end.
void suspendAndLetGo(jobject object, const android::sp<th::FakePlayer>& proxy) {
    static auto* const suspend =
        reinterpret_cast<void (*)(JNIEnv*, jobject)>(th::librarySymbol("suspend"));
    ASSERT_NE(suspend, nullptr);
    suspend(th::env(), object);
    proxy->disconnect();
    proxy->setListener(nullptr);
    proxy->decStrong(nullptr);
}

void setUpAgain(jobject object) {
    th::callV(object, "native_setup", "(Ljava/lang/Object;)V", nullptr);
}

TEST_F(Surface, ASuspendedObjectKeepsItsBindingUntilTheNextBindOrItsFinalisation) {
    TestSurface first(true, 21), second(true, 22);
    bind(first.managed, 0);
    suspendAndLetGo(player, fake);
    EXPECT_EQ(first.libraryRefs(), 1) << "the binding outlives the player, as the field does";

    // Without a player a bind goes no further: nothing is released, nothing taken.
    bind(second.managed, 0);
    EXPECT_TRUE(
        th::hasLog(E, fatal("setVideoSurface", 2757, "java/lang/IllegalArgumentException")));
    EXPECT_EQ(first.libraryRefs(), 1);
    EXPECT_EQ(second.libraryRefs(), 0);

    // A new player on the same object: its first bind lets the earlier producer go.
    setUpAgain(player);
    fake = th::lastFakePlayer();
    EXPECT_EQ(first.libraryRefs(), 1);
    bind(second.managed, 0);
    EXPECT_EQ(first.libraryRefs(), 0);
    EXPECT_EQ(second.libraryRefs(), 1);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(second.producer.get()));
    th::callV(player, "release", "()V");
    EXPECT_EQ(second.libraryRefs(), 0);

    // Finalising a suspended object finds no player, says so, and lets its binding go.
    renewPlayer();
    fake = th::lastFakePlayer();
    bind(first.managed, 0);
    suspendAndLetGo(player, fake);
    th::clearLogs();
    th::callV(player, "release", "()V");
    EXPECT_EQ(first.libraryRefs(), 0);
    EXPECT_EQ(th::countLog(E, fatal("native_finalize", 1296,
                                    "com/vireo/android/tvapi/common/exception/TvIpcException")),
              1);
}

TEST_F(Surface, AnotherObjectNeverReleasesThisOnesBinding) {
    // The first object's player is suspended and destroyed; the next player made may well
    // reuse its address, and its object's binds must not take the first object's binding.
    TestSurface mine(true, 31), theirs(true, 32);
    bind(mine.managed, 0);
    suspendAndLetGo(player, fake);
    fake = nullptr;
    jobject other = th::newPlayer();
    th::callV(other, "_setVideoSurface", "(Landroid/view/Surface;I)V", theirs.managed, 0);
    th::callV(other, "_setVideoSurface", "(Landroid/view/Surface;I)V", theirs.managed, 0);
    EXPECT_EQ(mine.libraryRefs(), 1);
    EXPECT_EQ(theirs.libraryRefs(), 1);
    th::callV(other, "release", "()V");
    EXPECT_EQ(mine.libraryRefs(), 1);
    EXPECT_EQ(theirs.libraryRefs(), 0);
    th::env()->DeleteLocalRef(other);
    th::callV(player, "release", "()V");
    EXPECT_EQ(mine.libraryRefs(), 0);
}

// A new player object, held by a global reference, with the fake behind it.
struct Target {
    jobject object;
    android::sp<th::FakePlayer> proxy;
    Target() : object(nullptr), proxy(nullptr) {
        jobject local = th::newPlayer();
        object = th::env()->NewGlobalRef(local);
        th::env()->DeleteLocalRef(local);
        proxy = th::lastFakePlayer();
    }
    ~Target() { th::env()->DeleteGlobalRef(object); }
    void bind(jobject surface) const {
        th::callV(object, "_setVideoSurface", "(Landroid/view/Surface;I)V", surface, 0);
    }
};

// A TestSurface whose managed Surface other threads may use.
struct SharedSurface : TestSurface {
    jobject global;
    explicit SharedSurface(uint64_t id)
        : TestSurface(true, id), global(th::env()->NewGlobalRef(managed)) {}
    ~SharedSurface() { th::env()->DeleteGlobalRef(global); }
};

// Rounds on new player objects, each bound to `before` first: `race` runs the case's calls at
// once with a bind of `next` and checks the references then; afterwards the object is
// finalised and must hold none.
using Race = std::function<void(const Target&, const TestSurface& before, const TestSurface& next,
                                jobject nextSurface)>;
void raceOnNewObjects(const Race& race) {
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Target t;
        SharedSurface before(41), next(42);
        t.bind(before.global);
        race(t, before, next, next.global);
        if (::testing::Test::HasFatalFailure()) return;
        th::callV(t.object, "release", "()V");
        ASSERT_EQ(before.libraryRefs() + next.libraryRefs(), 0);
    }
}

TEST_F(Surface, BindsAndSuspendAtOnceLeaveOneReferenceAtMostAndNoneAfterFinalisation) {
    releasePlayer();
    raceOnNewObjects([](const Target& t, const TestSurface& before, const TestSurface& next,
                        jobject nextSurface) {
        atOnce([&] { t.bind(nextSurface); }, [&] { suspendAndLetGo(t.object, t.proxy); });
        // Suspended first: the bind found no player and released nothing. Otherwise the bind
        // released the earlier producer and keeps its own only if it ended before suspend.
        const int b = before.libraryRefs(), n = next.libraryRefs();
        ASSERT_TRUE((b == 1 && n == 0) || (b == 0 && (n == 0 || n == 1))) << b << ", " << n;
    });
}

TEST_F(Surface, SetUpAgainAndBindAtOnceAfterSuspendLeaveOneBinding) {
    releasePlayer();
    raceOnNewObjects([](const Target& t, const TestSurface& before, const TestSurface& next,
                        jobject nextSurface) {
        suspendAndLetGo(t.object, t.proxy);
        atOnce([&] { setUpAgain(t.object); }, [&] { t.bind(nextSurface); });
        // Bound before the new player came: refused, the earlier binding stays. Bound after:
        // the earlier binding is let go for the new one.
        const int b = before.libraryRefs(), n = next.libraryRefs();
        ASSERT_TRUE((b == 1 && n == 0) || (b == 0 && n == 1)) << b << ", " << n;
    });
}

TEST_F(Surface, UnbindClosesTheWindowAndLeavesTheReference) {
    TestSurface s(true, 4242);
    bind(s.managed, 0);
    tvdisplay_host::clearCalls();
    tvdisplay_host::setCloseResult(3);
    EXPECT_EQ(unbind(s.managed), JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "destoryVideoSurfaceTexture, Surface ID: 4242, return: 1"));
    auto calls = tvdisplay_host::calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_FALSE(calls[0].open);
    EXPECT_EQ(calls[0].surface, s.native.get());
    EXPECT_EQ(s.libraryRefs(), 1) << "left to the next bind";

    // Bit 0 of the answer; a null Surface; and no player needed at all.
    tvdisplay_host::setCloseResult(2);
    EXPECT_EQ(unbind(s.managed), JNI_FALSE);
    EXPECT_EQ(unbind(nullptr), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(E, "jsurface == NULL"));
    th::callV(player, "release", "()V");
    tvdisplay_host::setCloseResult(1);
    EXPECT_EQ(unbind(s.managed), JNI_TRUE);
}

TEST_F(Surface, HdmiGpioPassesUpToFourValuesAndZeroesTheRest) {
    std::vector<std::vector<int32_t>> seen;
    fake->onCall(th::Op::setHdmiGpio, [&](const th::OutArgs& o) {
        const int32_t* v = o.at<HdmiGpioRec>(0).values;
        seen.emplace_back(v, v + 4);
    });
    fake->setResult(th::Op::setHdmiGpio, 3);
    EXPECT_EQ(gpio({1, 2, 3, 4, 5, 6}), JNI_TRUE);
    EXPECT_EQ(gpio({}), JNI_TRUE);
    EXPECT_EQ(gpio({-9, 8}), JNI_TRUE);
    EXPECT_EQ(seen, (std::vector<std::vector<int32_t>>{{1, 2, 3, 4}, {0, 0, 0, 0}, {-9, 8, 0, 0}}));

    // A null array is refused before the player; without a player, the frame's report.
    fake->clearCalls();
    EXPECT_EQ(th::callZ(player, "setHdmiGpio", "([I)Z", nullptr), JNI_FALSE);
    EXPECT_TRUE(fake->calls().empty());
    EXPECT_TRUE(th::hasLog(E, fatal("setHdmiGpio", 2844,
                                    "com/vireo/android/tvapi/common/exception/TvCommonException")));
    th::callV(player, "release", "()V");
    EXPECT_EQ(gpio({1, 2}), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(
        E, fatal("setHdmiGpio", 2840, "com/vireo/android/tvapi/common/exception/TvIpcException")));
}

}  // namespace
