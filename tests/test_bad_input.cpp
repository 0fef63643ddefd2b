// Every native of the managed player class called with hostile arguments (nulls, empty and
// oversized arrays and strings, extreme integers), with and without a player behind the
// object: each answers with its failure line and a neutral value, or does its work, and
// never crashes, leaves an exception pending or draws a JNI warning from the VM. The few
// natives that end the process without a player are run in child processes.
#include <android/log.h>
#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <regex>
#include <sstream>

#include "double/fake_player.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"
#include "reliability/native_calls.h"

namespace {

constexpr int E = ANDROID_LOG_ERROR;
const char* kImpl = "com_vireo_android_tvapi_impl_PlayerImpl_";
const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";

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

// The managed name without "native_" or a leading underscore: the operation's name, and the
// handler's as its failure line prints it, but for case ("native_getRfInfo" is reported as
// "...getRFInfo").
std::string stem(std::string name) {
    if (name.rfind("native_", 0) == 0) name = name.substr(7);
    return name[0] == '_' ? name.substr(1) : name;
}

// Whether a line names the handler of managed method `name`, compared without case.
bool names(std::string line, const std::string& name) {
    std::string s = stem(name);
    for (std::string* t : {&line, &s}) {
        for (char& c : *t) c = static_cast<char>(tolower(c));
    }
    return line.find(s) != std::string::npos;
}

bool isNeutral(const rel::Result& r) {
    if (r.kind == 'V') return true;
    if (r.kind == 'Z') return r.v.z == JNI_FALSE;
    if (r.kind == 'I') return r.v.i == 0 || r.v.i == -1 || r.v.i == 255;
    return r.v.l == nullptr;
}

// Calls `m` with hostile argument set `k`, checks nothing is left pending and frees what the
// call made.
rel::Result callHostile(jobject player, const rel::NativeMethod& m, int k) {
    JNIEnv* e = th::env();
    std::vector<jvalue> args = rel::hostileArgs(e, m, k);
    rel::Result r = rel::callRaw(e, player, m, args.data());
    th::failOnPendingException();
    if ((r.kind == 'L' || r.kind == '[') && r.v.l != nullptr) e->DeleteLocalRef(r.v.l);
    rel::releaseArgs(e, m, args);
    return r;
}

class BadInput : public ::testing::Test {
protected:
    void SetUp() override {
        if (th::isChild()) GTEST_SKIP();
        // 150 rows of the native table; startAutoStandardDetection is bound at two rows. The
        // sweeps below call every one of them, so an unbound native fails them.
        ASSERT_EQ(natives().size(), 149u) << "the managed class declares its natives";
        th::clearLogs();
        th::clearVmOutput();
    }
    void TearDown() override {
        th::expectNoJniWarnings();
        host::resetConnectFactory();
    }
};

TEST_F(BadInput, WithoutAPlayerEveryNativeLogsItsFailureAndReturnsANeutralValue) {
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    jobject player = th::newPlayer();
    int calls = 0;
    for (const rel::NativeMethod& m : natives()) {
        if (rel::isLifeCycle(m.name) || rel::endsProcessWithoutPlayer(m.name)) continue;
        // Releasing a surface binding needs no player: it answers true and logs no failure.
        if (m.name == "_destoryVideoSurface") continue;
        for (int k = 0; k < rel::kVariants; ++k, ++calls) {
            SCOPED_TRACE(m.name + m.sig + " variant " + std::to_string(k));
            th::clearLogs();
            EXPECT_TRUE(isNeutral(callHostile(player, m, k)));
            // One failure line naming this very handler (or, for a null Surface, its own
            // plain line): a handler wired to the wrong row would name another.
            int fatal = 0;
            bool named = false;
            for (const th::LogLine& l : th::logs()) {
                if (l.prio != E) continue;
                ++fatal;
                named |= l.text == "jsf == NULL" ||
                         (l.text.rfind("[Fatal jni_exception] com_vireo_android_tvapi_", 0) == 0 &&
                          names(l.text, m.name));
            }
            EXPECT_EQ(fatal, 1) << th::dumpLogs();
            EXPECT_TRUE(named) << th::dumpLogs();
        }
    }
    EXPECT_GT(calls, 4 * 130);
    th::env()->DeleteLocalRef(player);
}

// Hostile arguments, while the operation called answers a value at a limit of 64 bits.
TEST_F(BadInput, WithAPlayerHostileCallsAndExtremeAnswersNeitherCrashNorLeaveAnythingPending) {
    th::useFakePlayer();
    const int fakesBefore = th::FakePlayer::liveFakes();
    jobject player = th::newPlayer();
    auto fake = th::lastFakePlayer();
    ASSERT_NE(fake, nullptr);
    const int64_t answers[rel::kVariants] = {-1, INT64_MAX, INT64_MIN, 2};
    for (const rel::NativeMethod& m : natives()) {
        if (rel::isLifeCycle(m.name)) continue;
        for (int k = 0; k < rel::kVariants; ++k) {
            SCOPED_TRACE(m.name + m.sig + " variant " + std::to_string(k));
            if (auto op = th::opNamed(stem(m.name))) fake->setResult(*op, answers[k]);
            callHostile(player, m, k);
        }
        fake->clearCalls();
    }
    // Nothing the calls did keeps the proxy: finalising releases the last reference.
    th::callV(player, "release", "()V");
    fake = nullptr;
    EXPECT_EQ(th::FakePlayer::liveFakes(), fakesBefore);
    th::env()->DeleteLocalRef(player);
}

TEST_F(BadInput, LifeCycleCallsOutOfOrderOrWithoutAWeakReference) {
    th::useFakePlayer();
    JNIEnv* e = th::env();
    const int fakesBefore = th::FakePlayer::liveFakes();
    jobject player = th::newPlayer();
    const rel::NativeMethod* setup = nativeNamed("native_setup");
    const rel::NativeMethod* finalize = nativeNamed("native_finalize");
    ASSERT_TRUE(setup && finalize);

    // A second set-up with a null weak reference replaces the proxy; events of the new one
    // reach the managed side with no player object and nothing breaks.
    jvalue nullArg{};
    rel::callRaw(e, player, *setup, &nullArg);
    th::failOnPendingException();
    auto fake = th::lastFakePlayer();
    th::clearEvents();
    fake->fire([](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(5, 6); });
    auto evs = th::events();
    ASSERT_EQ(evs.size(), 1u);
    EXPECT_EQ(evs[0].ext1, 5);
    th::releaseEvents(evs);

    // Finalising twice: the second call finds no player and says so once.
    rel::callRaw(e, player, *finalize, nullptr);
    th::failOnPendingException();
    th::clearLogs();
    rel::callRaw(e, player, *finalize, nullptr);
    th::failOnPendingException();
    const std::string fn = std::string(kImpl) + "native_finalize";
    EXPECT_EQ(th::countLog(E, th::fatalLine(fn, 1296, kIpc)), 1) << th::dumpLogs();
    // The proxy replaced by the second set-up keeps the reference the first one left in the
    // field's place only until it is disconnected; the current one is gone.
    fake = nullptr;
    EXPECT_LE(th::FakePlayer::liveFakes(), fakesBefore + 1);
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
    // Their failure lines, each naming IllegalStateException.
    const std::map<std::string, int> sourceLines = {{"native_atsc_setAntennaType", 3254},
                                                    {"setCcMode", 3333},
                                                    {"getCcMode", 3348},
                                                    {"getAirChannelType", 3363},
                                                    {"_setCurrentEventStatus", 3544},
                                                    {"getAllBISSProgramInfo", 4770}};
    ASSERT_EQ(rel::processEnding().size(), sourceLines.size());
    for (const std::string& name : rel::processEnding()) {
        SCOPED_TRACE(name);
        th::ChildResult r = th::runChild("BadInputChild.CallWithoutAPlayer", {{"PIJ_CALL", name}});
        EXPECT_TRUE(r.signaled && r.signal == SIGABRT) << r.output;
        EXPECT_EQ(r.output.find("SURVIVED"), std::string::npos);
        const size_t called = r.output.find("CALLING\n");
        ASSERT_NE(called, std::string::npos) << r.output;
        // The library's lines after the call: the trace line, the failure line and, for the
        // parcel handler alone, the conversion of its parcel it still makes before the call.
        std::istringstream after(r.output.substr(called));
        std::vector<std::string> logs;
        for (std::string line; std::getline(after, line);) {
            if (line.rfind("LOG ", 0) == 0) logs.push_back(line);
        }
        const bool parcel = name == "getAllBISSProgramInfo";
        const std::string handler = name[0] == '_' ? name.substr(1) : name;
        const std::string fn = std::string("com_vireo_android_tvapi_") +
                               (parcel ? "common" : "impl") + "_PlayerImpl_" + handler;
        std::vector<std::string> want = {
            (parcel ? "LOG 4 " : "LOG 3 ") + handler,
            "LOG 6 " + th::fatalLine(fn, sourceLines.at(name), "java/lang/IllegalStateException")};
        if (parcel) want.push_back("LOG 3 [Error] parcelForJavaObject p != NULL");
        EXPECT_EQ(logs, want) << r.output;
    }
}

}  // namespace
