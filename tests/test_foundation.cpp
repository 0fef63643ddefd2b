// Loading, the call frame, the player's life cycle and event delivery, through a real VM.
#include <android/log.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include <binder/Parcel.h>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/host_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;

// Whether the failure line of the PlayerImpl native `fn` at `line` was logged exactly once.
bool failedOnce(const char* fn, int line,
                const char* cls = "com/vireo/android/tvapi/common/exception/TvIpcException") {
    const std::string name = std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + fn;
    return th::countLog(ANDROID_LOG_ERROR, th::fatalLine(name, line, cls)) == 1;
}

class Foundation : public th::PlayerTest {
protected:
    Foundation() : PlayerTest(kSkipInChild | kClearEvents) {}
};

TEST_F(Foundation, TheFrameAsksTheProxyOrWithoutOneLogsAndAnswersNeutral) {
    EXPECT_NE(fake->listener(), nullptr) << "native_setup installs the listener";
    fake->setResult(th::Op::closeTeletext, 2);
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_FALSE) << "bit 0 of 2";
    fake->setResult(th::Op::closeTeletext, 3);
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_TRUE) << "bit 0 of 3";

    th::callV(player, "release", "()V");
    EXPECT_TRUE(fake->isDisconnected());
    EXPECT_EQ(fake->listener(), nullptr) << "native_finalize removes the listener";
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_FALSE);
    EXPECT_TRUE(failedOnce("closeTeletext", 1349));
    EXPECT_EQ(th::callI(player, "native_getVideoStandardDetectionState", "()I"), 255);
    EXPECT_TRUE(failedOnce("native_getVideoStandardDetectionState", 1498));
    EXPECT_EQ(th::callL(player, "getLanguageCode", "()Ljava/lang/String;"), nullptr);
    EXPECT_TRUE(failedOnce("getLanguageCode", 1910));
    th::callV(player, "initAtvVif", "()V");
    EXPECT_TRUE(failedOnce("initAtvVif", 1839));
    releasePlayer();  // a second finalize finds no player
    EXPECT_TRUE(failedOnce("native_finalize", 1296));
}

TEST_F(Foundation, ConnectFailureLeavesTheObjectWithoutAPlayer) {
    releasePlayer();
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    player = th::newPlayer();
    EXPECT_TRUE(failedOnce("native_setup", 1260, "java/lang/RuntimeException"));
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_FALSE);
    EXPECT_TRUE(failedOnce("closeTeletext", 1349));
}

TEST_F(Foundation, SuspendForgetsThePlayerButLeavesItConnectedAndListening) {
    auto suspend = reinterpret_cast<void (*)(JNIEnv*, jobject)>(th::librarySymbol("suspend"));
    ASSERT_NE(suspend, nullptr);
    suspend(th::env(), player);
    EXPECT_TRUE(th::hasLog(D, "playerimpl suspend"));
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_FALSE);
    EXPECT_TRUE(failedOnce("closeTeletext", 1349));
    EXPECT_FALSE(fake->isDisconnected());
    EXPECT_NE(fake->listener(), nullptr);
    EXPECT_GE(fake->getStrongCount(), 2) << "the field keeps its reference, on purpose";
}

TEST_F(Foundation, ASecondSetupReleasesTheFirstProxysFieldReference) {
    android::wp<th::FakePlayer> first = fake;
    fake.clear();
    const int disconnects = host::HostPlayer::disconnectCount();
    // No weak reference is needed: no event reaches the new listener.
    th::callV(player, "native_setup", "(Ljava/lang/Object;)V", nullptr);
    EXPECT_EQ(first.promote(), nullptr) << "the field's reference was its last one";
    EXPECT_EQ(host::HostPlayer::disconnectCount(), disconnects) << "replaced, not disconnected";
    fake = th::lastFakePlayer();
    th::callZ(player, "closeTeletext", "()Z");
    EXPECT_EQ(fake->callsOf(th::Op::closeTeletext).size(), 1u);
}

// native_finalize while a call is inside the proxy: the call finishes against the proxy it
// holds, calls made afterwards find no player, and the proxy goes with the last reference.
TEST_F(Foundation, FinalizeDuringACallLetsItFinishAndDestroysTheProxyOnce) {
    const int live = th::FakePlayer::liveFakes();
    std::promise<void> inside, leave;
    std::shared_future<void> left = leave.get_future().share();
    fake->setResult(th::Op::getPhaseRange, 42);
    fake->onCall(th::Op::getPhaseRange, [&](const th::OutArgs&) {
        inside.set_value();
        left.wait();
    });
    android::wp<th::FakePlayer> proxy = fake;
    fake.clear();
    jobject global = th::env()->NewGlobalRef(player);
    std::future<jint> answer = std::async(std::launch::async, [&] {
        jint r = th::callI(global, "getPhaseRange", "()I");
        th::vm()->DetachCurrentThread();
        return r;
    });
    inside.get_future().wait();
    releasePlayer();
    EXPECT_EQ(th::FakePlayer::liveFakes(), live) << "the running call keeps the proxy";
    EXPECT_EQ(th::callI(global, "getPhaseRange", "()I"), -1);
    EXPECT_TRUE(failedOnce("getPhaseRange", 1422));
    leave.set_value();
    EXPECT_EQ(answer.get(), 42) << "the call finished against its proxy";
    th::env()->DeleteGlobalRef(global);
    EXPECT_EQ(proxy.promote(), nullptr);
    EXPECT_EQ(th::FakePlayer::liveFakes(), live - 1) << "destroyed exactly once";
}

TEST_F(Foundation, AnEventAttachesItsServiceThreadForGoodAndReachesTheListener) {
    jint before = JNI_ERR, after = JNI_ERR;
    fake->fire([&](PlayerImplListener& l) {
        th::vm()->DetachCurrentThread();  // in case an earlier case in this process attached it
        JNIEnv* e = nullptr;
        before = th::vm()->GetEnv(reinterpret_cast<void**>(&e), JNI_VERSION_1_6);
        l.PostEvent_ChangeTtxStatus(7, -9);
        after = th::vm()->GetEnv(reinterpret_cast<void**>(&e), JNI_VERSION_1_6);
    });
    EXPECT_EQ(before, JNI_EDETACHED);
    EXPECT_EQ(after, JNI_OK) << "the event leaves its thread attached";
    auto evs = th::events();
    ASSERT_EQ(evs.size(), 1u);
    EXPECT_EQ(evs[0].what, th::staticInt("TVPLAYER_CHANGE_TTX_STATUS"));
    EXPECT_EQ(evs[0].ext1, 7);
    EXPECT_EQ(evs[0].ext2, -9);
    EXPECT_EQ(evs[0].obj, nullptr);
    th::releaseEvents(evs);
}

TEST_F(Foundation, FinalizeTearsDownOnceWhenCalledTwiceAtOnceOrFromInsideDisconnect) {
    JNIEnv* e = th::env();
    // From an event the proxy fires inside disconnect(): the listener's thread releases the
    // same player again, and finds it already on its way out.
    jobject self = e->NewGlobalRef(player);
    bool fired = false;
    fake->onCall(th::Op::disconnect, [&](const th::OutArgs&) {
        if (fired) return;
        fired = true;
        host::runOnServiceThread(0, [&] {
            th::callV(self, "release", "()V");
        });
    });
    th::callV(player, "release", "()V");
    EXPECT_EQ(fake->callsOf(th::Op::disconnect).size(), 1u);
    EXPECT_TRUE(failedOnce("native_finalize", 1296)) << th::dumpLogs();
    e->DeleteGlobalRef(self);

    // From two threads at once, many times over.
    for (int round = 0; round < 100; ++round) {
        renewPlayer();
        jobject p = e->NewGlobalRef(player);
        const int before = host::HostPlayer::disconnectCount();
        th::clearLogs();
        std::atomic<int> ready{0};
        auto finalize = [&] {
            th::env();
            ready.fetch_add(1);
            while (ready.load() < 2) std::this_thread::yield();
            th::callV(p, "release", "()V");
            th::vm()->DetachCurrentThread();
        };
        std::thread a(finalize), b(finalize);
        a.join();
        b.join();
        ASSERT_EQ(host::HostPlayer::disconnectCount() - before, 1) << "round " << round;
        ASSERT_TRUE(failedOnce("native_finalize", 1296)) << "round " << round;
        e->DeleteGlobalRef(p);
    }
    e->DeleteLocalRef(player);
    player = nullptr;
}

// A listener that throws: the exception is named in one WARN line and cleared before the
// listener operation returns, so nothing is pending on the service's thread (which other
// native code of the process shares) nor on a managed thread the proxy fired the event on.
TEST_F(Foundation, AnExceptionThrownByTheListenerIsClearedRightAfterThePost) {
    jclass throwing = th::findClass("com/vireo/test/ThrowingListener");
    th::env()->CallStaticVoidMethod(
        throwing,
        th::env()->GetStaticMethodID(throwing, "install",
                                     "(Lcom/vireo/android/tvapi/impl/PlayerImpl;I)V"),
        player, 3);
    th::failOnPendingException();
    th::clearLogs();
    const std::string warning =
        "postEventFromNative threw java.lang.IllegalStateException; cleared";
    std::vector<int> pendingAfter;
    auto firePendingAfter = [&](std::function<void(PlayerImplListener&)> event) {
        fake->fire([&](PlayerImplListener& l) {
            event(l);
            pendingAfter.push_back(th::env()->ExceptionCheck());
        });
    };
    firePendingAfter([](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(0, 0); });
    EXPECT_EQ(th::countLog(ANDROID_LOG_WARN, warning), 1) << "named right after the post";
    // The payload events post the same way.
    android::Parcel hbbtv;
    for (int i = 0; i < 12; ++i) hbbtv.writeInt32(i);
    hbbtv.setDataPosition(0);
    firePendingAfter([&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(hbbtv); });
    EXPECT_EQ(th::countLog(ANDROID_LOG_WARN, warning), 2) << th::dumpLogs();
    for (int i = 1; i < 5; ++i) {
        firePendingAfter([i](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(i, 0); });
    }
    EXPECT_EQ(pendingAfter, std::vector<int>(6, 0)) << "nothing is left on the service thread";
    EXPECT_EQ(th::countLog(ANDROID_LOG_WARN, warning), 3) << th::dumpLogs();
    auto evs = th::events();
    EXPECT_EQ(evs.size(), 6u) << "every event is posted, the ones after a throw too";
    th::releaseEvents(evs);

    // Fired by the proxy inside disconnect(), on the managed thread that runs native_finalize:
    // the rest of native_finalize and its managed caller find nothing pending.
    th::clearLogs();
    th::env()->CallStaticVoidMethod(
        throwing,
        th::env()->GetStaticMethodID(throwing, "install",
                                     "(Lcom/vireo/android/tvapi/impl/PlayerImpl;I)V"),
        player, 1);
    th::failOnPendingException();
    fake->onCall(th::Op::disconnect, [&](const th::OutArgs&) {
        fake->listener()->PostEvent_ChangeTtxStatus(9, 9);
    });
    th::callV(player, "release", "()V");  // fails the test if anything is pending
    EXPECT_EQ(th::countLog(ANDROID_LOG_WARN, warning), 1) << th::dumpLogs();
    EXPECT_TRUE(fake->isDisconnected());
    EXPECT_EQ(fake->listener(), nullptr) << "native_finalize went on to remove the listener";
}

// Natives called before the managed class ran native_init: the library is loaded here
// without the class (so native_init never runs) and its handlers are called directly.
TEST(BeforeInitChild, NativesBeforeNativeInit) {
    if (!th::isChild()) GTEST_SKIP();
    JNIEnv* e = th::env();
    void* lib = dlopen(PIJ_LIBRARY, RTLD_NOW);
    ASSERT_NE(lib, nullptr);
    auto sym = [&](const char* name) { return dlsym(lib, name); };
    jclass objectClass = e->FindClass("java/lang/Object");
    jobject thiz = e->AllocObject(objectClass);
    using Bool = jboolean (*)(JNIEnv*, jobject);
    using Setup = void (*)(JNIEnv*, jobject, jobject);
    using Void = void (*)(JNIEnv*, jobject);
    auto closeTeletext =
        reinterpret_cast<Bool>(sym("com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext"));
    printf("RESULT closeTeletext %d\n", closeTeletext(e, thiz));
    reinterpret_cast<Setup>(sym("com_vireo_android_tvapi_impl_PlayerImpl_native_setup"))(e, thiz,
                                                                                         thiz);
    reinterpret_cast<Void>(sym("com_vireo_android_tvapi_impl_PlayerImpl_native_finalize"))(e, thiz);
    reinterpret_cast<Void>(sym("suspend"))(e, thiz);
    printf("RESULT done %d\n", e->ExceptionCheck());
    fflush(stdout);
}

TEST(BeforeInit, NativesBehaveAsWithoutAPlayer) {
    if (th::isChild()) GTEST_SKIP();
    const th::ChildResult r = th::runChild("BeforeInitChild.NativesBeforeNativeInit");
    EXPECT_TRUE(r.exited && r.exitCode == 0) << r.output;
    for (const char* shown :
         {"LOG 6 [Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext(1349)"
          ", com/vireo/android/tvapi/common/exception/TvIpcException\nRESULT closeTeletext 0\n",
          "LOG 3 native_setup\nLOG 6 native_setup before native_init: no player is set up\n"
          "LOG 3 native_finalize\nLOG 6 [Fatal jni_exception] "
          "com_vireo_android_tvapi_impl_PlayerImpl_native_finalize(1296), "
          "com/vireo/android/tvapi/common/exception/TvIpcException\n"
          "LOG 3 playerimpl suspend\nRESULT done 0\n"}) {
        EXPECT_NE(r.output.find(shown), std::string::npos) << r.output;
    }
    EXPECT_EQ(r.output.find("WARNING"), std::string::npos) << r.output;
    EXPECT_EQ(r.output.find("FATAL"), std::string::npos) << r.output;
}

// ---- Loading, each in a fresh process ----

// Loads the library in a fresh VM as the device does, by initialising the player class, and
// prints what the managed side saw; or, when the player class is absent, calls the loaded
// library's JNI_OnLoad and prints its answer.
TEST(LoadChild, LoadLibrary) {
    if (!th::isChild()) GTEST_SKIP();
    JNIEnv* e = th::env();
    if (getenv("PIJ_CALL_ONLOAD") != nullptr) {
        auto onLoad = reinterpret_cast<jint (*)(JavaVM*, void*)>(
            dlsym(dlopen(PIJ_LIBRARY, RTLD_NOW), "JNI_OnLoad"));
        printf("RESULT %d\n", onLoad(th::vm(), nullptr));
    } else if (th::loadClass("com/vireo/android/tvapi/impl/PlayerImpl") != nullptr) {
        printf("RESULT loaded\n");
    }
    fflush(stdout);
    e->ExceptionDescribe();  // what the managed caller would meet, on stderr
    e->ExceptionClear();
}

TEST(Load, InAFreshVmTheLibraryLoadsOrFailsWithItsLines) {
    if (th::isChild()) GTEST_SKIP();
    const struct {
        std::map<std::string, std::string> env;
        std::vector<std::string> shown;  // each a run of whole lines
    } cases[] = {
        {{}, {"LOG 3 JNI_OnLoad\n", "RESULT loaded\n"}},
        // The runtime's own error is left pending for the managed caller.
        {{{"PIJ_CLASSPATH", PIJ_TESTJAVA_JAR}, {"PIJ_CALL_ONLOAD", "1"}},
         {"LOG 6 Native registration unable to find class "
          "'com/vireo/android/tvapi/impl/PlayerImpl'\nLOG 6 ERROR: registerNatives failed\n"
          "RESULT -1\n",
          "java.lang.NoClassDefFoundError"}},
        // Registering went well: nothing between the entry line and the lock's.
        {{{"PIJ_CLASSPATH",
           std::string(PIJ_BROKEN_SURFACE_JAR) + ":" + PIJ_MANAGED_JAR + ":" + PIJ_TESTJAVA_JAR}},
         {"LOG 3 JNI_OnLoad\nLOG 6 [Error] Get a gLock fail!\n", "java.lang.NoSuchFieldError"}},
    };
    for (const auto& c : cases) {
        const th::ChildResult r = th::runChild("LoadChild.LoadLibrary", c.env);
        EXPECT_TRUE(r.exited && r.exitCode == 0) << r.output;
        for (const std::string& s : c.shown) {
            EXPECT_NE(r.output.find(s), std::string::npos) << r.output;
        }
    }
}

}  // namespace
