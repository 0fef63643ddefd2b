// Every native of the managed player class called with hostile arguments (nulls, empty and
// oversized arrays and strings, extreme integers), with and without a player behind the
// object: each answers with its failure line and a neutral value, or does its work, and
// never crashes, leaves an exception pending or draws a JNI warning from the VM. The few
// natives that end the process without a player are run in child processes.
#include <android/log.h>
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "harness/jvm_harness.h"
#include "playerimpl_host/fake_player.h"
#include "playerimpl_host/host_player.h"
#include "reliability/native_calls.h"

namespace {

constexpr int E = ANDROID_LOG_ERROR;

const std::vector<rel::NativeMethod>& natives() {
    static const std::vector<rel::NativeMethod> all = rel::managedNatives();
    return all;
}

const rel::NativeMethod* nativeNamed(const std::string& name) {
    for (const auto& m : natives()) {
        if (m.name == name) return &m;
    }
    return nullptr;
}

// The handler's own name as its failure line prints it, from the managed name:
// "native_getAspectRatio" -> "getAspectRatio", "_setVideoSurface" -> "setVideoSurface".
// Compared without case ("native_getRfInfo" is reported as "...getRFInfo").
std::string handlerStem(std::string name) {
    if (name.rfind("native_", 0) == 0) name = name.substr(7);
    if (!name.empty() && name[0] == '_') name = name.substr(1);
    for (char& c : name) c = static_cast<char>(tolower(c));
    return name;
}

bool names(std::string line, const std::string& stem) {
    for (char& c : line) c = static_cast<char>(tolower(c));
    return line.find(stem) != std::string::npos;
}

// Releasing a surface binding needs no player: it answers true and logs no failure.
bool needsNoPlayer(const std::string& name) { return name == "_destoryVideoSurface"; }

std::string describe(const rel::NativeMethod& m, int variant) {
    std::ostringstream s;
    s << m.name << m.sig << " variant " << variant;
    return s.str();
}

// Clears and reports an exception left pending by a native.
bool takePendingException(JNIEnv* e) {
    if (!e->ExceptionCheck()) return false;
    e->ExceptionDescribe();
    e->ExceptionClear();
    return true;
}

bool isNeutral(const rel::Result& r) {
    switch (r.kind) {
        case 'V':
            return true;
        case 'Z':
            return r.v.z == JNI_FALSE;
        case 'I':
            return r.v.i == 0 || r.v.i == -1 || r.v.i == 255;
        default:
            return r.v.l == nullptr;
    }
}

class BadInput : public ::testing::Test {
protected:
    void SetUp() override {
        if (th::isChild()) GTEST_SKIP();
        ASSERT_GT(natives().size(), 100u) << "the managed class declares its natives";
        th::clearLogs();
        th::clearVmOutput();
    }
    void TearDown() override {
        th::expectNoJniWarnings();
        host::resetConnectFactory();
    }

    // A managed player object whose set-up found no service.
    jobject playerWithoutService() {
        host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
        jobject p = th::newPlayer();
        host::resetConnectFactory();
        return p;
    }
};

TEST_F(BadInput, WithoutAPlayerEveryNativeLogsItsFailureAndReturnsANeutralValue) {
    jobject player = playerWithoutService();
    JNIEnv* e = th::env();
    int calls = 0;
    for (const rel::NativeMethod& m : natives()) {
        if (rel::isLifeCycle(m.name) || rel::endsProcessWithoutPlayer(m.name)) continue;
        if (needsNoPlayer(m.name)) continue;
        for (int k = 0; k < rel::kVariants; ++k) {
            th::clearLogs();
            std::vector<jvalue> args = rel::hostileArgs(e, m, k);
            rel::Result r = rel::callRaw(e, player, m, args.data());
            EXPECT_FALSE(takePendingException(e)) << describe(m, k);
            ++calls;
            EXPECT_TRUE(isNeutral(r)) << describe(m, k) << " returned a non-neutral value";
            if ((r.kind == 'L' || r.kind == '[') && r.v.l != nullptr) e->DeleteLocalRef(r.v.l);
            releaseArgs(e, m, args);

            // One failure line naming this very handler (or, for a null Surface, its own
            // plain line): a handler wired to the wrong row would name another.
            int fatal = 0;
            bool named = false;
            for (const th::LogLine& l : th::logs()) {
                if (l.prio != E) continue;
                if (l.text.rfind("[Fatal jni_exception] com_vireo_android_tvapi_", 0) == 0) {
                    ++fatal;
                    named = named || names(l.text, handlerStem(m.name));
                } else if (l.text == "jsf == NULL") {
                    ++fatal;
                    named = true;
                }
            }
            EXPECT_EQ(fatal, 1) << describe(m, k) << "\n" << th::dumpLogs();
            EXPECT_TRUE(named) << describe(m, k) << "\n" << th::dumpLogs();
        }
    }
    EXPECT_GT(calls, 4 * 130);
    e->DeleteLocalRef(player);
}

TEST_F(BadInput, WithAPlayerHostileArgumentsNeitherCrashNorLeaveAnythingPending) {
    host::useFakePlayer();
    const int fakesBefore = host::FakePlayer::liveFakes();
    jobject player = th::newPlayer();
    auto fake = host::lastFakePlayer();
    ASSERT_NE(fake, nullptr);
    JNIEnv* e = th::env();
    for (const rel::NativeMethod& m : natives()) {
        if (rel::isLifeCycle(m.name)) continue;
        for (int k = 0; k < rel::kVariants; ++k) {
            std::vector<jvalue> args = rel::hostileArgs(e, m, k);
            rel::Result r = rel::callRaw(e, player, m, args.data());
            EXPECT_FALSE(takePendingException(e)) << describe(m, k);
            if (r.kind == 'Z') {
                EXPECT_LE(r.v.z, 1) << describe(m, k);
            }
            if ((r.kind == 'L' || r.kind == '[') && r.v.l != nullptr) e->DeleteLocalRef(r.v.l);
            releaseArgs(e, m, args);
        }
        fake->clearCalls();
    }
    // Nothing the calls did keeps the proxy: finalising releases the last reference.
    th::callV(player, "release", "()V");
    fake = nullptr;
    EXPECT_EQ(host::FakePlayer::liveFakes(), fakesBefore);
    e->DeleteLocalRef(player);
}

TEST_F(BadInput, AnswersFromThePlayerAtTheLimitsOfTheirTypesStayInRange) {
    host::useFakePlayer();
    jobject player = th::newPlayer();
    auto fake = host::lastFakePlayer();
    JNIEnv* e = th::env();
    // A few operations answer values at the limits of 64 bits: booleans and integers must
    // still come back as the managed types allow, and no query may fail on them.
    for (int64_t answer : {int64_t{-1}, int64_t{INT64_MAX}, int64_t{INT64_MIN}, int64_t{2}}) {
        for (const char* op : {"closeTeletext", "getPhaseRange", "getVideoStandardDetectionState",
                               "getVideoStandard", "isHdmiMode", "getDtvRouteCount"}) {
            fake->setResult(op, answer);
        }
        for (const rel::NativeMethod& m : natives()) {
            if (rel::isLifeCycle(m.name) || !m.params.empty()) continue;
            rel::Result r = rel::callRaw(e, player, m, nullptr);
            EXPECT_FALSE(takePendingException(e)) << m.name << " answer " << answer;
            if (r.kind == 'Z') {
                EXPECT_LE(r.v.z, 1) << m.name;
            }
            if ((r.kind == 'L' || r.kind == '[') && r.v.l != nullptr) e->DeleteLocalRef(r.v.l);
        }
        fake->clearCalls();
    }
    // Bit 0 only, whatever the proxy's byte holds.
    fake->setResult("closeTeletext", 0xFE);
    EXPECT_EQ(th::callZ(player, "closeTeletext", "()Z"), JNI_FALSE);
    fake->setResult("getVideoStandardDetectionState", -1);
    EXPECT_EQ(th::callI(player, "native_getVideoStandardDetectionState", "()I"), 255);
    th::callV(player, "release", "()V");
    e->DeleteLocalRef(player);
}

TEST_F(BadInput, LifeCycleCallsOutOfOrderOrWithoutAWeakReference) {
    host::useFakePlayer();
    JNIEnv* e = th::env();
    const int fakesBefore = host::FakePlayer::liveFakes();
    jobject player = th::newPlayer();
    const rel::NativeMethod* setup = nativeNamed("native_setup");
    const rel::NativeMethod* finalize = nativeNamed("native_finalize");
    ASSERT_NE(setup, nullptr);
    ASSERT_NE(finalize, nullptr);

    // A second set-up with a null weak reference replaces the proxy; events of the new one
    // reach the managed side with no player object and nothing breaks.
    jvalue nullArg{};
    rel::callRaw(e, player, *setup, &nullArg);
    EXPECT_FALSE(takePendingException(e));
    auto fake = host::lastFakePlayer();
    th::clearEvents();
    fake->fire([](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(5, 6); });
    auto evs = th::events();
    ASSERT_EQ(evs.size(), 1u);
    EXPECT_EQ(evs[0].ext1, 5);
    th::releaseEvents(evs);

    // Finalising twice: the second call finds no player and says so once.
    rel::callRaw(e, player, *finalize, nullptr);
    EXPECT_FALSE(takePendingException(e));
    th::clearLogs();
    rel::callRaw(e, player, *finalize, nullptr);
    EXPECT_FALSE(takePendingException(e));
    EXPECT_EQ(th::countLog(E,
                           "[Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_"
                           "native_finalize(1296), "
                           "com/vireo/android/tvapi/common/exception/TvIpcException"),
              1)
        << th::dumpLogs();
    // The proxy replaced by the second set-up keeps the reference the first one left in the
    // field's place only until it is disconnected; the current one is gone.
    fake = nullptr;
    EXPECT_LE(host::FakePlayer::liveFakes(), fakesBefore + 1);
    e->DeleteLocalRef(player);
}

// ---- The natives that end the process without a player ----

// Runs in a child: one native named by PIJ_CALL on an object without a player.
TEST(BadInputChild, CallWithoutAPlayer) {
    if (!th::isChild()) GTEST_SKIP();
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    jobject player = th::newPlayer();
    const rel::NativeMethod* m = nativeNamed(getenv("PIJ_CALL"));
    ASSERT_NE(m, nullptr);
    std::vector<jvalue> args = rel::hostileArgs(th::env(), *m, 2);
    printf("CALLING\n");
    fflush(stdout);
    rel::callRaw(th::env(), player, *m, args.data());
    printf("SURVIVED\n");
    fflush(stdout);
}

TEST(BadInputEnding, TheProcessEndingPathsEndRightAfterTheirFailureLine) {
    if (th::isChild()) GTEST_SKIP();
    for (const std::string& name : rel::processEnding()) {
        ASSERT_NE(nativeNamed(name), nullptr) << name;
        th::ChildResult r = th::runChild("BadInputChild.CallWithoutAPlayer", {{"PIJ_CALL", name}});
        EXPECT_TRUE(r.signaled && r.signal == SIGABRT) << name << "\n" << r.output;
        EXPECT_EQ(r.output.find("SURVIVED"), std::string::npos) << name;
        // The last thing the library said is the failure line naming this handler.
        const size_t called = r.output.find("CALLING\n");
        ASSERT_NE(called, std::string::npos) << r.output;
        std::istringstream after(r.output.substr(called));
        std::string line, lastLog;
        int logLines = 0;
        while (std::getline(after, line)) {
            if (line.rfind("LOG ", 0) == 0) {
                lastLog = line;
                ++logLines;
            }
        }
        EXPECT_EQ(lastLog.rfind("LOG 6 [Fatal jni_exception] com_vireo_android_tvapi_", 0), 0u)
            << name << "\n"
            << r.output;
        EXPECT_TRUE(names(lastLog, handlerStem(name))) << name << "\n" << lastLog;
        EXPECT_LE(logLines, 2) << "a trace line at most before the failure line\n" << r.output;
    }
}

}  // namespace
