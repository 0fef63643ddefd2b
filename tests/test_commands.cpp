// The thin commands and queries, walked through a real VM. The walks find the natives by
// reflection on the managed class and check properties every row must have; a few rows of
// each family are then checked line for line.
#include <android/log.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;
constexpr int E = ANDROID_LOG_ERROR;

const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";
const char* kState = "java/lang/IllegalStateException";

// Natives with primitive-only signatures that are not thin commands: the alert, rating and
// warning handlers (their own files) and the two key handlers (test_keys.cpp).
const std::set<std::string> kNotThin = {
    "setEasProgressDone", "setEasAudioDesired", "getEasProgressSatus", "resetRrtInformation",
    "setEWBSOpInfo",      "processKey",         "sendMheg5Key"};

// Without a player these end the process (checked in child processes below).
const std::set<std::string> kEndsProcess = {"native_atsc_setAntennaType", "setCcMode", "getCcMode",
                                            "getAirChannelType", "_setCurrentEventStatus"};

struct Native {
    std::string name;
    std::string sig;
    std::string params;  // one letter per parameter: Z S I J
    char ret;            // Z I V, or T for a String
};

bool parseSig(const std::string& sig, Native& n) {
    size_t close = sig.find(')');
    n.params = sig.substr(1, close - 1);
    for (char c : n.params) {
        if (c != 'Z' && c != 'S' && c != 'I' && c != 'J') return false;
    }
    std::string r = sig.substr(close + 1);
    if (r == "Ljava/lang/String;") {
        n.ret = 'T';
        return true;
    }
    if (r == "Z" || r == "I" || r == "V") {
        n.ret = r[0];
        return true;
    }
    return false;
}

// Every public native of the managed player class that takes and answers only primitives
// or a String, less the ones listed in kNotThin.
std::vector<Native> thinNatives() {
    JNIEnv* e = th::env();
    jclass lister = th::findClass("com/vireo/test/NativeMethods");
    jmethodID of = e->GetStaticMethodID(lister, "of", "(Ljava/lang/Class;)[Ljava/lang/String;");
    auto arr = static_cast<jobjectArray>(e->CallStaticObjectMethod(lister, of, th::playerClass()));
    th::failOnPendingException();
    std::vector<Native> out;
    for (jsize i = 0; i < e->GetArrayLength(arr); ++i) {
        auto s = static_cast<jstring>(e->GetObjectArrayElement(arr, i));
        std::string line = th::toStdString(s);
        e->DeleteLocalRef(s);
        Native n;
        n.name = line.substr(0, line.find(' '));
        n.sig = line.substr(line.find(' ') + 1);
        if (kNotThin.count(n.name) == 0 && parseSig(n.sig, n)) out.push_back(n);
    }
    e->DeleteLocalRef(arr);
    return out;
}

// The operation a row calls is named after the managed method without "native_" or the
// leading underscore.
std::string opName(const std::string& managed) {
    if (managed.rfind("native_", 0) == 0) return managed.substr(7);
    if (managed[0] == '_') return managed.substr(1);
    return managed;
}

// The handler's exported name carries the managed name without a leading underscore.
std::string handlerName(const std::string& managed) {
    return managed[0] == '_' ? managed.substr(1) : managed;
}

// Distinct argument values per position: negative shorts to see sign extension, int64
// values that do not fit 32 bits, and true for booleans.
jvalue argFor(char type, size_t i) {
    jvalue v{};
    switch (type) {
        case 'Z':
            v.z = JNI_TRUE;
            break;
        case 'S':
            v.s = static_cast<jshort>(-2 - static_cast<int>(i));
            break;
        case 'I':
            v.i = -123456 - static_cast<jint>(i) * 1000;
            break;
        case 'J':
            v.j = i == 0 ? 0x1122334455667788LL : -0x0102030405060708LL;
            break;
    }
    return v;
}

// What the player should record for an argument (booleans as exactly 1).
int64_t recordedFor(char type, const jvalue& v) {
    switch (type) {
        case 'Z':
            return 1;
        case 'S':
            return v.s;
        case 'I':
            return v.i;
        default:
            return v.j;
    }
}

struct Answer {
    jint value = 0;  // Z and I
    bool isNull = false;
    std::string text;
};

Answer invoke(jobject p, const Native& n, const std::vector<jvalue>& args) {
    JNIEnv* e = th::env();
    jmethodID m = th::playerMethod(n.name.c_str(), n.sig.c_str());
    Answer a;
    switch (n.ret) {
        case 'Z':
            a.value = e->CallBooleanMethodA(p, m, args.data());
            break;
        case 'I':
            a.value = e->CallIntMethodA(p, m, args.data());
            break;
        case 'V':
            e->CallVoidMethodA(p, m, args.data());
            break;
        case 'T': {
            auto s = static_cast<jstring>(e->CallObjectMethodA(p, m, args.data()));
            th::failOnPendingException();
            a.text = th::toStdString(s, &a.isNull);
            if (s) e->DeleteLocalRef(s);
            return a;
        }
    }
    th::failOnPendingException();
    return a;
}

std::vector<jvalue> argsFor(const Native& n) {
    std::vector<jvalue> args;
    for (size_t i = 0; i < n.params.size(); ++i) args.push_back(argFor(n.params[i], i));
    return args;
}

std::vector<th::LogLine> linesOf(int prio) {
    std::vector<th::LogLine> out;
    for (auto& l : th::logs()) {
        if (l.prio == prio) out.push_back(l);
    }
    return out;
}

void* handlerSymbol(const std::string& managed) {
    std::string h = handlerName(managed);
    void* s = th::librarySymbol(("com_vireo_android_tvapi_impl_PlayerImpl_" + h).c_str());
    return s ? s : th::librarySymbol(("com_vireo_android_tvapi_common_PlayerImpl_" + h).c_str());
}

// Calls a boolean handler directly (not through the VM) and returns its raw byte.
jboolean callRawZ(void* sym, jobject p, const Native& n, const std::vector<jvalue>& a) {
    JNIEnv* e = th::env();
    using O = jobject;
    if (sym == nullptr) return 0xEE;
    const std::string& k = n.params;
    if (k.empty()) return reinterpret_cast<jboolean (*)(JNIEnv*, O)>(sym)(e, p);
    if (k == "I") return reinterpret_cast<jboolean (*)(JNIEnv*, O, jint)>(sym)(e, p, a[0].i);
    if (k == "S") return reinterpret_cast<jboolean (*)(JNIEnv*, O, jshort)>(sym)(e, p, a[0].s);
    if (k == "Z") return reinterpret_cast<jboolean (*)(JNIEnv*, O, jboolean)>(sym)(e, p, a[0].z);
    if (k == "II") {
        return reinterpret_cast<jboolean (*)(JNIEnv*, O, jint, jint)>(sym)(e, p, a[0].i, a[1].i);
    }
    if (k == "IS") {
        return reinterpret_cast<jboolean (*)(JNIEnv*, O, jint, jshort)>(sym)(e, p, a[0].i, a[1].s);
    }
    if (k == "JJ") {
        return reinterpret_cast<jboolean (*)(JNIEnv*, O, jlong, jlong)>(sym)(e, p, a[0].j, a[1].j);
    }
    if (k == "SSSS") {
        return reinterpret_cast<jboolean (*)(JNIEnv*, O, jshort, jshort, jshort, jshort)>(sym)(
            e, p, a[0].s, a[1].s, a[2].s, a[3].s);
    }
    ADD_FAILURE() << "no raw call for (" << k << ")Z";
    return 0xEE;
}

class ThinCommands : public th::VmTest {
protected:
    ThinCommands() : VmTest(kSkipInChild) {}
    // A managed player whose service could not be reached.
    jobject playerWithoutService() {
        host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
        jobject p = th::newPlayer();
        th::clearLogs();
        return p;
    }
    jobject playerWithFake(android::sp<host::FakePlayer>& fake) {
        host::useFakePlayer();
        jobject p = th::newPlayer();
        fake = host::lastFakePlayer();
        th::clearLogs();
        return p;
    }
};

TEST_F(ThinCommands, TheWalkFindsEveryThinNativeOnce) {
    auto natives = thinNatives();
    std::set<std::string> names;
    for (auto& n : natives) names.insert(n.name);
    EXPECT_EQ(names.size(), natives.size());
    // 105 handlers; startAutoStandardDetection is one managed method bound at two rows.
    EXPECT_EQ(natives.size(), 105u);
    for (auto& n : kEndsProcess) EXPECT_EQ(names.count(n), 1u) << n;
}

TEST_F(ThinCommands, WithoutAPlayerEveryRowLogsOneFatalLineAndReturnsItsNeutralValue) {
    jobject p = playerWithoutService();
    const std::set<std::string> minusOne = {"getPhaseRange", "native_getVideoStandard",
                                            "getDtvRouteCount", "native_getChinaDvbcRegion",
                                            "getAntennaType"};
    const std::set<std::string> classes = {kIpc, kState};
    const std::regex line(
        R"(\[Fatal jni_exception\] com_vireo_android_tvapi_(impl|common)_PlayerImpl_(\w+)\((\d+)\), (\S+))");
    std::set<int> sourceLines;
    int walked = 0;
    for (const Native& n : thinNatives()) {
        if (kEndsProcess.count(n.name)) continue;
        SCOPED_TRACE(n.name + n.sig);
        th::clearLogs();
        Answer a = invoke(p, n, argsFor(n));
        ++walked;

        auto errors = linesOf(E);
        ASSERT_EQ(errors.size(), 1u) << th::dumpLogs();
        std::smatch m;
        ASSERT_TRUE(std::regex_match(errors[0].text, m, line)) << errors[0].text;
        EXPECT_EQ(m[2].str(), handlerName(n.name));
        EXPECT_EQ(classes.count(m[4].str()), 1u) << m[4].str();
        EXPECT_EQ(errors[0].tag, "PlayerImpl_JNI");
        // Each handler reports its own source line: two rows sharing one is a copied row.
        EXPECT_TRUE(sourceLines.insert(std::stoi(m[3].str())).second) << m[3].str();
        // At most the entry trace besides, and no after-call line without a player.
        EXPECT_LE(th::logs().size(), 2u) << th::dumpLogs();

        switch (n.ret) {
            case 'Z':
                EXPECT_EQ(a.value, JNI_FALSE);
                break;
            case 'T':
                EXPECT_TRUE(a.isNull);
                break;
            case 'I': {
                jint want = minusOne.count(n.name)                              ? -1
                            : n.name == "native_getVideoStandardDetectionState" ? 255
                                                                                : 0;
                EXPECT_EQ(a.value, want);
                break;
            }
        }
    }
    EXPECT_EQ(walked, 100);
    th::env()->DeleteLocalRef(p);
}

TEST_F(ThinCommands, FailureLinesAndEntryLinesOfEachFamily) {
    jobject p = playerWithoutService();
    const std::string impl = "com_vireo_android_tvapi_impl_PlayerImpl_";
    const std::string common = "com_vireo_android_tvapi_common_PlayerImpl_";

    // Teletext family: TvIpcException; the entry text drops "native_".
    EXPECT_EQ(th::callZ(p, "native_openTeletext", "(I)Z", 1), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(D, "openTeletext"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "native_openTeletext", 1642, kIpc)));
    // Traced at INFO.
    th::callZ(p, "setTeletextLanguageGroup", "(I)Z", 2);
    EXPECT_TRUE(th::hasLog(I, "setTeletextLanguageGroup"));
    EXPECT_FALSE(th::hasLog(D, "setTeletextLanguageGroup"));
    // The MHEG-5 family's odd one out names IllegalStateException.
    th::callZ(p, "isMheg5Running", "()Z");
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "isMheg5Running", 2174, kState)));
    th::callZ(p, "sendMheg5IcsCommand", "(IS)Z", 1, static_cast<jshort>(2));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "sendMheg5IcsCommand", 2158, kIpc)));
    // A formatted entry line.
    th::callZ(p, "setAudioMode", "(I)Z", -5);
    EXPECT_TRUE(th::hasLog(D, "setAudioMode, mode = -5"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "setAudioMode", 2000, kIpc)));
    // The detection family: no entry line, IllegalStateException; input source stays TvIpc.
    th::clearLogs();
    th::callV(p, "startAutoStandardDetection", "()V");
    th::callV(p, "native_forceVideoStandard", "(I)V", 3);
    ASSERT_EQ(th::logs().size(), 2u) << th::dumpLogs();
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "startAutoStandardDetection", 2725, kState)));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "native_forceVideoStandard", 2735, kState)));
    th::callZ(p, "native_detectInputSource", "(I)Z", 4);
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "native_detectInputSource", 2824, kIpc)));
    // Ratings: capital S in the entry line.
    th::callZ(p, "setVChipGuideline", "(SSSS)Z", jshort(1), jshort(2), jshort(3), jshort(4));
    EXPECT_TRUE(th::hasLog(D, "SetVChipGuideline"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "setVChipGuideline", 3154, kState)));
    // The event-status query: entry and handler name without the underscore.
    EXPECT_EQ(th::callI(p, "_getCurrentEventStatus", "(I)I", 9), 0);
    EXPECT_TRUE(th::hasLog(D, "getCurrentEventStatus"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "getCurrentEventStatus", 3527, kState)));
    // Satellites family and the late TvIpc row.
    th::callI(p, "getTransponderCount", "(I)I", 1);
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "getTransponderCount", 4069, kState)));
    th::callV(p, "changeSetting", "(I)V", 1);
    EXPECT_TRUE(th::hasLog(D, "native_changeSetting"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "changeSetting", 4715, kIpc)));
    // After-call lines are not written without a player.
    th::clearLogs();
    th::callZ(p, "isSignalStable", "()Z");
    th::callI(p, "getUserLocationCode", "()I");
    ASSERT_EQ(th::logs().size(), 2u) << th::dumpLogs();
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(impl + "isSignalStable", 1551, kIpc)));
    // The common package form.
    th::clearLogs();
    EXPECT_EQ(th::callI(p, "getHdmiEdidVersionBySource", "(I)I", 7), 0);
    EXPECT_TRUE(th::hasLog(D, "getHdmiEdidVersionBySource inputSource = 7"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(common + "getHdmiEdidVersionBySource", 4732, kState)));
    EXPECT_EQ(th::logsContaining("re = ").size(), 0u);
    th::callV(p, "clearProgramBISSKeyByNumber", "(II)V", 12, -3);
    EXPECT_TRUE(th::hasLog(D, "clearProgramBISSKeyByNumber progNumber = 12, progType = -3"));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(common + "clearProgramBISSKeyByNumber", 4814, kState)));
    th::env()->DeleteLocalRef(p);
}

TEST_F(ThinCommands, WithAPlayerEveryRowCallsItsOneOperationWithItsArguments) {
    android::sp<host::FakePlayer> fake;
    jobject p = playerWithFake(fake);
    for (const Native& n : thinNatives()) {
        SCOPED_TRACE(n.name + n.sig);
        const std::string op = opName(n.name);
        auto args = argsFor(n);
        if (n.name == "_setCurrentEventStatus") args[1].i = 0x100;  // an int passed as a bool
        fake->setResult(op, 0x18081);
        fake->setText(op, "text of " + op);
        fake->clearCalls();
        th::clearLogs();
        Answer a = invoke(p, n, args);

        auto calls = fake->calls();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].op, op);
        ASSERT_GE(calls[0].args.size(), n.params.size());
        for (size_t i = 0; i < n.params.size(); ++i) {
            int64_t want = recordedFor(n.params[i], args[i]);
            if (n.name == "_setCurrentEventStatus" && i == 1) want = 1;
            EXPECT_EQ(calls[0].args[i], want) << "argument " << i + 1;
        }
        EXPECT_TRUE(linesOf(E).empty()) << th::dumpLogs();
        if (n.ret == 'T') {
            EXPECT_EQ(a.text, "text of " + op);
            fake->setText(op, "");
            Answer empty = invoke(p, n, args);
            EXPECT_EQ(empty.text, "");
            EXPECT_FALSE(empty.isNull) << "an empty text is an empty string";
        }
        if (n.ret == 'I') {
            // Narrowing rows keep the low 8 or 16 bits; everything else passes unchanged.
            jint want = n.name == "native_getVideoStandardDetectionState" ? 0x81
                        : n.name == "getAntennaType"                      ? 0x8081
                        : n.name == "getHdmiEdidVersionBySource"          ? -0x7F7F
                                                                          : 0x18081;
            EXPECT_EQ(a.value, want);
        }
    }
    th::callV(p, "release", "()V");
    th::env()->DeleteLocalRef(p);
}

// Boolean answers keep bit 0: checked on the raw byte the handler returns (called
// directly), since the VM may itself normalise what it hands back to managed code.
TEST_F(ThinCommands, BooleanAnswersKeepOnlyBitZero) {
    android::sp<host::FakePlayer> fake;
    jobject p = playerWithFake(fake);
    int checked = 0;
    for (const Native& n : thinNatives()) {
        if (n.ret != 'Z') continue;
        SCOPED_TRACE(n.name);
        const std::string op = opName(n.name);
        auto args = argsFor(n);
        for (int64_t answer : {2, 3, 0xFE, 0x81}) {
            fake->setResult(op, answer);
            jboolean raw = callRawZ(handlerSymbol(n.name), p, n, args);
            if (n.name == "native_atsc_setAntennaType") {
                EXPECT_EQ(raw, JNI_TRUE) << "always true";
            } else if (n.name == "getCurrentVChipBlockStatus") {
                EXPECT_EQ(raw, JNI_FALSE) << "the out byte, not the answer";
            } else {
                EXPECT_EQ(raw, answer & 1) << answer;
            }
        }
        ++checked;
    }
    EXPECT_GT(checked, 60);
    th::callV(p, "release", "()V");
    th::env()->DeleteLocalRef(p);
}

// A managed boolean that reaches a handler as any non-zero byte is passed on as true.
TEST_F(ThinCommands, BooleanArgumentsReachThePlayerAsExactlyZeroOrOne) {
    android::sp<host::FakePlayer> fake;
    jobject p = playerWithFake(fake);
    int checked = 0;
    for (const Native& n : thinNatives()) {
        if (n.params != "Z") continue;
        SCOPED_TRACE(n.name);
        void* sym = handlerSymbol(n.name);
        ASSERT_NE(sym, nullptr);
        for (jboolean in : {jboolean{2}, jboolean{0x80}, jboolean{0xFF}, jboolean{0}}) {
            fake->clearCalls();
            if (n.ret == 'Z') {
                reinterpret_cast<jboolean (*)(JNIEnv*, jobject, jboolean)>(sym)(th::env(), p, in);
            } else {
                reinterpret_cast<void (*)(JNIEnv*, jobject, jboolean)>(sym)(th::env(), p, in);
            }
            auto calls = fake->calls();
            ASSERT_EQ(calls.size(), 1u);
            ASSERT_EQ(calls[0].args.size(), 1u);
            EXPECT_EQ(calls[0].args[0], in != 0 ? 1 : 0) << int(in);
        }
        ++checked;
    }
    EXPECT_EQ(checked, 6);
    th::callV(p, "release", "()V");
    th::env()->DeleteLocalRef(p);
}

TEST_F(ThinCommands, ConversionsOfIndividualRows) {
    android::sp<host::FakePlayer> fake;
    jobject p = playerWithFake(fake);

    // int16 arguments are sign-extended, int64 pass unchanged.
    th::callZ(p, "setManualTuneByRf", "(S)Z", jshort(-32768));
    EXPECT_EQ(fake->callsOf("setManualTuneByRf").at(0).args.at(0), -32768);
    th::callV(p, "setDtvRoute", "(S)V", jshort(-1));
    EXPECT_EQ(fake->callsOf("setDtvRoute").at(0).args.at(0), -1);
    th::callZ(p, "setVChipGuideline", "(SSSS)Z", jshort(-1), jshort(32767), jshort(-32768),
              jshort(0));
    EXPECT_EQ(fake->callsOf("setVChipGuideline").at(0).args,
              (std::vector<int64_t>{-1, 32767, -32768, 0}));
    th::callZ(p, "startApplication", "(JJ)Z", jlong(INT64_MIN), jlong(INT64_MAX));
    EXPECT_EQ(fake->callsOf("startApplication").at(0).args,
              (std::vector<int64_t>{INT64_MIN, INT64_MAX}));

    // The input-source query adds a constant 0.
    th::callZ(p, "native_detectInputSource", "(I)Z", 23);
    EXPECT_EQ(fake->callsOf("detectInputSource").at(0).args, (std::vector<int64_t>{23, 0}));

    // Narrowing: low 8 bits zero-extended, low 16 bits zero- or sign-extended.
    fake->setResult("getVideoStandardDetectionState", -1);
    EXPECT_EQ(th::callI(p, "native_getVideoStandardDetectionState", "()I"), 255);
    fake->setResult("getAntennaType", -2);
    EXPECT_EQ(th::callI(p, "getAntennaType", "()I"), 0xFFFE);
    fake->setResult("getHdmiEdidVersionBySource", 0x12347FFF);
    EXPECT_EQ(th::callI(p, "getHdmiEdidVersionBySource", "(I)I", 1), 0x7FFF);
    fake->setResult("getHdmiEdidVersionBySource", 0xFFFE);
    EXPECT_EQ(th::callI(p, "getHdmiEdidVersionBySource", "(I)I", 1), -2);
    EXPECT_TRUE(th::hasLog(D, "re = -2")) << "the converted result is logged";
    fake->setResult("getPhaseRange", INT32_MIN);
    EXPECT_EQ(th::callI(p, "getPhaseRange", "()I"), INT32_MIN);

    // After-call lines carry the converted result.
    th::clearLogs();
    fake->setResult("isSignalStable", 3);
    EXPECT_EQ(th::callZ(p, "isSignalStable", "()Z"), JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "isSignalStable, ret = 1"));
    fake->setResult("getUserLocationCode", 77);
    EXPECT_EQ(th::callI(p, "getUserLocationCode", "()I"), 77);
    EXPECT_TRUE(th::hasLog(D, "getUserLocationCode, code = 77"));
    EXPECT_EQ(th::logs().size(), 2u) << "neither writes an entry line: " << th::dumpLogs();
    fake->setResult("setHdmiEdidVersionBySource", 2);
    EXPECT_EQ(th::callZ(p, "setHdmiEdidVersionBySource", "(II)Z", 3, 4), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(D, "setHdmiEdidVersionBySource inputSource = 3, hdmiEdidVersion = 4"));
    EXPECT_TRUE(th::hasLog(D, "re = 0"));

    // The block status returns the byte the operation stored, whole.
    fake->onCall("getCurrentVChipBlockStatus",
                 [](const host::OutArgs& o) { o.at<uint8_t>(0) = 2; });
    fake->setResult("getCurrentVChipBlockStatus", 1);
    auto vchip = reinterpret_cast<jboolean (*)(JNIEnv*, jobject)>(
        th::librarySymbol("com_vireo_android_tvapi_impl_PlayerImpl_getCurrentVChipBlockStatus"));
    EXPECT_EQ(vchip(th::env(), p), 2);

    // The rating text is returned by the operation rather than written to a buffer.
    fake->setText("getCurrentRatingInformation", "TV-PG-V");
    auto s =
        static_cast<jstring>(th::callL(p, "getCurrentRatingInformation", "()Ljava/lang/String;"));
    EXPECT_EQ(th::toStdString(s), "TV-PG-V");
    th::env()->DeleteLocalRef(s);

    // Both managed rows of standard detection reach the one handler; it logs nothing.
    th::clearLogs();
    fake->clearCalls();
    th::callV(p, "startAutoStandardDetection", "()V");
    EXPECT_EQ(fake->callsOf("startAutoStandardDetection").size(), 1u);
    EXPECT_TRUE(th::logs().empty()) << th::dumpLogs();

    th::callV(p, "release", "()V");
    th::env()->DeleteLocalRef(p);
}

// ---- The rows that end the process without a player, each in a fresh process ----

TEST(EndsChild, CallWithoutPlayer) {
    if (!th::isChild()) GTEST_SKIP();
    const char* which = getenv("PIJ_END_METHOD");
    ASSERT_NE(which, nullptr);
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    jobject p = th::newPlayer();
    for (const Native& n : thinNatives()) {
        if (n.name != which) continue;
        printf("CALLING %s\n", which);
        fflush(stdout);
        invoke(p, n, argsFor(n));
        printf("SURVIVED\n");
        fflush(stdout);
    }
}

TEST(Ends, TheFiveRowsWriteTheFatalLineThenAbort) {
    if (th::isChild()) GTEST_SKIP();
    const std::regex fatalLine(
        R"(LOG 6 \[Fatal jni_exception\] com_vireo_android_tvapi_impl_PlayerImpl_(\w+)\((\d+)\), java/lang/IllegalStateException)");
    for (const std::string& name : kEndsProcess) {
        SCOPED_TRACE(name);
        auto r = th::runChild("EndsChild.CallWithoutPlayer", {{"PIJ_END_METHOD", name}});
        EXPECT_TRUE(r.signaled) << r.output;
        EXPECT_EQ(r.signal, SIGABRT) << r.output;
        size_t calling = r.output.find("CALLING " + name);
        ASSERT_NE(calling, std::string::npos) << r.output;
        std::smatch m;
        std::string after = r.output.substr(calling);
        ASSERT_TRUE(std::regex_search(after, m, fatalLine)) << r.output;
        EXPECT_EQ(m[1].str(), handlerName(name));
        EXPECT_EQ(r.output.find("SURVIVED"), std::string::npos);
        if (name == "getCcMode") {
            EXPECT_EQ(m[2].str(), "3348");
        }
        if (name == "_setCurrentEventStatus") {
            EXPECT_EQ(m[2].str(), "3544");
        }
    }
}

}  // namespace
