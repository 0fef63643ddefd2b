// Loading, the call frame, the player's life cycle and event delivery, through a real VM.
#include <gtest/gtest.h>

#include <android/log.h>

#include <dlfcn.h>

#include <cstring>
#include <thread>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;

jboolean callZ(jobject p, const char* name) { return th::callZ(p, name, "()Z"); }
jint callI(jobject p, const char* name) { return th::callI(p, name, "()I"); }
void callV(jobject p, const char* name) { th::callV(p, name, "()V"); }
std::string callS(jobject p, const char* name, bool* isNull) {
    auto s = static_cast<jstring>(th::callL(p, name, "()Ljava/lang/String;"));
    std::string out = th::toStdString(s, isNull);
    if (s) th::env()->DeleteLocalRef(s);
    return out;
}

const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";

class Foundation : public th::VmTest {
protected:
    Foundation() : VmTest(kSkipInChild) {}
    void SetUp() override {
        VmTest::SetUp();
        if (skipped()) return;
        host::useFakePlayer();
    }
};

TEST_F(Foundation, LoadsAndSetsUpAPlayerThatAnswersThroughTheFrame) {
    jobject p = th::newPlayer();
    auto fake = host::lastFakePlayer();
    ASSERT_NE(fake, nullptr);
    EXPECT_TRUE(th::hasLog(D, "native_setup"));
    EXPECT_NE(fake->listener(), nullptr) << "setListener installs the listener";

    fake->setResult("closeTeletext", 2);
    EXPECT_EQ(callZ(p, "closeTeletext"), JNI_FALSE) << "bit 0 of 2";
    fake->setResult("closeTeletext", 3);
    EXPECT_EQ(callZ(p, "closeTeletext"), JNI_TRUE) << "bit 0 of 3";
    EXPECT_EQ(th::countLog(D, "closeTeletext"), 2);

    fake->setResult("getVideoStandardDetectionState", 0x1FE);
    EXPECT_EQ(callI(p, "native_getVideoStandardDetectionState"), 0xFE);
    fake->setResult("getPhaseRange", -7);
    EXPECT_EQ(callI(p, "getPhaseRange"), -7);

    bool isNull = true;
    EXPECT_EQ(callS(p, "getLanguageCode", &isNull), "");
    EXPECT_FALSE(isNull) << "an empty text is an empty string";
    fake->setText("getLanguageCode", "deu");
    EXPECT_EQ(callS(p, "getLanguageCode", &isNull), "deu");

    fake->clearCalls();
    callV(p, "initAtvVif");
    ASSERT_EQ(fake->calls().size(), 1u);
    EXPECT_EQ(fake->calls()[0].op, "initAtvVif");

    callV(p, "release");
    EXPECT_TRUE(fake->isDisconnected());
    EXPECT_EQ(fake->listener(), nullptr) << "native_finalize removes the listener";
    th::env()->DeleteLocalRef(p);
}

TEST_F(Foundation, WithoutAPlayerEveryCallLogsItsLineAndReturnsNeutral) {
    jobject p = th::newPlayer();
    callV(p, "release");
    th::clearLogs();

    EXPECT_EQ(callZ(p, "closeTeletext"), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext", 1349, kIpc)));
    EXPECT_EQ(callI(p, "getPhaseRange"), -1);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_getPhaseRange", 1422, kIpc)));
    EXPECT_EQ(callI(p, "native_getVideoStandardDetectionState"), 255);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine(
               "com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandardDetectionState",
               1498, kIpc)));
    bool isNull = false;
    callS(p, "getLanguageCode", &isNull);
    EXPECT_TRUE(isNull);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_getLanguageCode", 1910, kIpc)));
    callV(p, "initAtvVif");
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_initAtvVif", 1839, kIpc)));
    EXPECT_FALSE(th::env()->ExceptionCheck()) << "nothing is thrown";

    // A second finalize finds no player.
    callV(p, "release");
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_native_finalize", 1296, kIpc)));
    th::env()->DeleteLocalRef(p);
}

TEST_F(Foundation, ConnectFailureLeavesTheObjectWithoutAPlayer) {
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    jobject p = th::newPlayer();
    EXPECT_EQ(th::countLog(E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_native_setup",
                                            1260, "java/lang/RuntimeException")),
              1);
    EXPECT_EQ(callZ(p, "closeTeletext"), JNI_FALSE);
    callV(p, "release");
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine("com_vireo_android_tvapi_impl_PlayerImpl_native_finalize", 1296, kIpc)));
    th::env()->DeleteLocalRef(p);
}

TEST_F(Foundation, SuspendForgetsThePlayerButKeepsItConnected) {
    jobject p = th::newPlayer();
    auto fake = host::lastFakePlayer();
    using SuspendFn = void (*)(JNIEnv*, jobject);
    auto suspendFn = reinterpret_cast<SuspendFn>(th::librarySymbol("suspend"));
    ASSERT_NE(suspendFn, nullptr);
    suspendFn(th::env(), p);
    EXPECT_TRUE(th::hasLog(D, "playerimpl suspend"));
    EXPECT_EQ(callZ(p, "closeTeletext"), JNI_FALSE);
    EXPECT_FALSE(fake->isDisconnected());
    EXPECT_NE(fake->listener(), nullptr);
    // The field's reference was kept on purpose: the proxy is still alive.
    EXPECT_GE(fake->getStrongCount(), 2);
    th::env()->DeleteLocalRef(p);
}

TEST_F(Foundation, SecondSetupReleasesTheFirstProxysFieldReference) {
    jobject p = th::newPlayer();
    android::wp<host::FakePlayer> first = host::lastFakePlayer();
    int disconnectsBefore = host::HostPlayer::disconnectCount();
    JNIEnv* e = th::env();
    jclass weak = th::findClass("java/lang/ref/WeakReference");
    jobject ref = e->NewObject(weak, e->GetMethodID(weak, "<init>", "(Ljava/lang/Object;)V"), p);
    th::callV(p, "native_setup", "(Ljava/lang/Object;)V", ref);
    auto second = host::lastFakePlayer();
    EXPECT_EQ(first.promote(), nullptr) << "the field's reference was its last one";
    EXPECT_EQ(host::HostPlayer::disconnectCount(), disconnectsBefore) << "replaced, not disconnected";
    EXPECT_NE(second, nullptr);
    callZ(p, "closeTeletext");
    EXPECT_EQ(second->callsOf("closeTeletext").size(), 1u);
    callV(p, "release");
    e->DeleteLocalRef(ref);
    e->DeleteLocalRef(p);
}

TEST_F(Foundation, FinalizeRacingCallsNeverCrashesAndDestroysTheProxyOnce) {
    int before = host::FakePlayer::liveFakes();
    for (int round = 0; round < 20; ++round) {
        jobject p = th::newPlayer();
        jobject g = th::env()->NewGlobalRef(p);
        std::atomic<bool> stop{false};
        std::vector<std::thread> callers;
        for (int t = 0; t < 3; ++t) {
            callers.emplace_back([&] {
                JNIEnv* e = th::env();
                (void)e;
                while (!stop.load()) {
                    jint r = th::callI(g, "getPhaseRange", "()I");
                    EXPECT_TRUE(r == 0 || r == -1) << r;
                }
                th::vm()->DetachCurrentThread();
            });
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        callV(g, "release");
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        stop = true;
        for (auto& t : callers) t.join();
        th::env()->DeleteGlobalRef(g);
        th::env()->DeleteLocalRef(p);
        EXPECT_EQ(host::FakePlayer::liveFakes(), before) << "round " << round;
    }
}

TEST_F(Foundation, AnEventOnAServiceThreadReachesTheManagedListener) {
    jobject p = th::newPlayer();
    th::clearEvents();
    auto fake = host::lastFakePlayer();
    fake->fire([](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(7, -9); });
    auto evs = th::events();
    ASSERT_EQ(evs.size(), 1u);
    EXPECT_EQ(evs[0].what, th::staticInt("TVPLAYER_CHANGE_TTX_STATUS"));
    EXPECT_EQ(evs[0].ext1, 7);
    EXPECT_EQ(evs[0].ext2, -9);
    EXPECT_EQ(evs[0].obj, nullptr);
    EXPECT_TRUE(th::hasLog(D, "PostEvent_ChangeTtxStatus"));

    // The service thread stays attached after the event.
    jint attached = JNI_ERR;
    host::runOnServiceThread(0, [&] {
        JNIEnv* e = nullptr;
        attached = th::vm()->GetEnv(reinterpret_cast<void**>(&e), JNI_VERSION_1_6);
    });
    EXPECT_EQ(attached, JNI_OK);
    th::releaseEvents(evs);
    callV(p, "release");
    th::env()->DeleteLocalRef(p);
}

// ---- Loading failures, each in a fresh process ----

// Loads the library in a fresh VM: through a plain loader class when the managed player
// class is absent, otherwise as the device does, by initialising the player class.
TEST(LoadChild, LoadLibrary) {
    if (!th::isChild()) GTEST_SKIP();
    JNIEnv* e = th::env();
    if (getenv("PIJ_LOAD_VIA_LOADER") != nullptr) {
        jclass loader = th::findClass("com/vireo/test/Loader");
        jstring path = e->NewStringUTF(PIJ_LIBRARY);
        auto r = static_cast<jstring>(e->CallStaticObjectMethod(
            loader, e->GetStaticMethodID(loader, "load", "(Ljava/lang/String;)Ljava/lang/String;"),
            path));
        th::failOnPendingException();
        printf("RESULT %s\n", th::toStdString(r).c_str());
    } else {
        jclass c = e->FindClass("com/vireo/android/tvapi/impl/PlayerImpl");
        jthrowable t = e->ExceptionOccurred();
        e->ExceptionClear();
        if (c != nullptr) {
            printf("RESULT loaded\n");
        } else if (t != nullptr) {
            jclass tc = e->GetObjectClass(t);
            jmethodID cause = e->GetMethodID(tc, "getCause", "()Ljava/lang/Throwable;");
            jobject inner = e->CallObjectMethod(t, cause);
            th::failOnPendingException();
            jobject shown = inner != nullptr ? inner : t;
            jclass sc = e->GetObjectClass(shown);
            jmethodID toString = e->GetMethodID(sc, "toString", "()Ljava/lang/String;");
            auto text = static_cast<jstring>(e->CallObjectMethod(shown, toString));
            th::failOnPendingException();
            printf("RESULT %s\n", th::toStdString(text).c_str());
        }
    }
    fflush(stdout);
}

TEST(Load, MissingManagedClassFailsWithTwoLines) {
    if (th::isChild()) GTEST_SKIP();
    auto r = th::runChild("LoadChild.LoadLibrary", {{"PIJ_CLASSPATH", PIJ_TESTJAVA_JAR}, {"PIJ_LOAD_VIA_LOADER", "1"}});
    ASSERT_TRUE(r.exited) << r.output;
    const std::string first =
        "LOG 6 Native registration unable to find class 'com/vireo/android/tvapi/impl/PlayerImpl'\n"
        "LOG 6 ERROR: registerNatives failed\n";
    EXPECT_NE(r.output.find(first), std::string::npos) << r.output;
    // The library leaves the runtime's own pending error to the managed caller.
    EXPECT_NE(r.output.find("RESULT java.lang.NoClassDefFoundError"), std::string::npos) << r.output;
}

TEST(Load, SurfaceWithoutLockFailsAfterRegistering) {
    if (th::isChild()) GTEST_SKIP();
    std::string cp = std::string(PIJ_BROKEN_SURFACE_JAR) + ":" + PIJ_MANAGED_JAR + ":" + PIJ_TESTJAVA_JAR;
    auto r = th::runChild("LoadChild.LoadLibrary", {{"PIJ_CLASSPATH", cp}});
    ASSERT_TRUE(r.exited) << r.output;
    EXPECT_NE(r.output.find("LOG 6 [Error] Get a gLock fail!"), std::string::npos) << r.output;
    EXPECT_EQ(r.output.find("registerNatives failed"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("RESULT java.lang.NoSuchFieldError"), std::string::npos) << r.output;
}

TEST(Load, ASuccessfulLoadLogsItsLine) {
    if (th::isChild()) GTEST_SKIP();
    auto r = th::runChild("LoadChild.LoadLibrary");
    EXPECT_NE(r.output.find("LOG 3 JNI_OnLoad"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("RESULT loaded"), std::string::npos) << r.output;
}

}  // namespace
