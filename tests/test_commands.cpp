// The thin commands and queries, walked through a real VM. The walks find the natives by
// reflection on the managed class and check what every row must do; a few rows of each
// family are checked line for line on the way.
#include <android/log.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "reliability/native_calls.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;
const char* kIpc = "com/vireo/android/tvapi/common/exception/TvIpcException";
const char* kState = "java/lang/IllegalStateException";
const std::string kString = "Ljava/lang/String;";

// Natives with primitive-only signatures that are not thin commands: the alert, rating and
// warning handlers (their own files) and the two key handlers (test_keys.cpp).
const std::set<std::string> kNotThin = {
    "setEasProgressDone", "setEasAudioDesired", "getEasProgressSatus", "resetRrtInformation",
    "setEWBSOpInfo",      "processKey",         "sendMheg5Key"};

// Every public native taking and answering only primitives or a String, less kNotThin.
const std::vector<rel::NativeMethod>& thinNatives() {
    static const std::vector<rel::NativeMethod> thin = [] {
        std::vector<rel::NativeMethod> out;
        for (const rel::NativeMethod& m : rel::managedNatives()) {
            bool primitive = (m.ret == "Z" || m.ret == "I" || m.ret == "V" || m.ret == kString);
            for (const std::string& p : m.params) {
                primitive &= (p == "Z" || p == "S" || p == "I" || p == "J");
            }
            if (primitive && !rel::isLifeCycle(m.name) && !kNotThin.count(m.name)) out.push_back(m);
        }
        return out;
    }();
    return thin;
}

// The operation a row calls is named after the managed method without "native_" or the
// leading underscore.
th::Op opOf(const std::string& managed) {
    std::string name = managed.rfind("native_", 0) == 0 ? managed.substr(7) : managed;
    if (name[0] == '_') name = name.substr(1);
    const std::optional<th::Op> op = th::opNamed(name);
    EXPECT_TRUE(op.has_value()) << "no operation " << name;
    return op.value_or(th::Op::disconnect);
}

// The handler's exported name: the managed name without a leading underscore, in the second
// package form for the three late rows.
std::string exported(const std::string& managed) {
    static const std::set<std::string> common = {
        "getHdmiEdidVersionBySource", "setHdmiEdidVersionBySource", "clearProgramBISSKeyByNumber"};
    return std::string("com_vireo_android_tvapi_") + (common.count(managed) ? "common" : "impl") +
           "_PlayerImpl_" + (managed[0] == '_' ? managed.substr(1) : managed);
}

// Distinct arguments per position: negative shorts show sign extension, the int64 values need
// all 64 bits, and booleans arrive as `z`.
std::vector<jvalue> argsFor(const rel::NativeMethod& m, jboolean z = JNI_TRUE) {
    std::vector<jvalue> args(m.params.size());
    for (size_t i = 0; i < args.size(); ++i) {
        const char t = m.params[i][0];
        if (t == 'Z') args[i].z = z;
        if (t == 'S') args[i].s = static_cast<jshort>(-2 - static_cast<int>(i));
        if (t == 'I') args[i].i = -123456 - static_cast<jint>(i) * 1000;
        if (t == 'J') args[i].j = i == 0 ? 0x1122334455667788LL : -0x0102030405060708LL;
    }
    return args;
}

// What the player should record for an argument: booleans as exactly 0 or 1.
int64_t recorded(const std::string& type, const jvalue& v) {
    return type == "Z" ? int64_t{v.z != 0} : type == "S" ? v.s : type == "I" ? v.i : v.j;
}

// Calls a handler directly, not through the VM (which may normalise a boolean it hands back
// or passes on), with the arguments as their own types.
template <typename R, typename... A>
R callHandler(const rel::NativeMethod& m, jobject p, const std::vector<jvalue>& v, A... a) {
    constexpr size_t i = sizeof...(A);
    if (i == m.params.size()) {
        if (void* f = th::librarySymbol(exported(m.name).c_str())) {
            return reinterpret_cast<R (*)(JNIEnv*, jobject, A...)>(f)(th::env(), p, a...);
        }
    } else if constexpr (i < 4) {
        const char t = m.params[i][0];
        if (t == 'Z') return callHandler<R>(m, p, v, a..., v[i].z);
        if (t == 'S') return callHandler<R>(m, p, v, a..., v[i].s);
        if (t == 'I') return callHandler<R>(m, p, v, a..., v[i].i);
        if (t == 'J') return callHandler<R>(m, p, v, a..., v[i].j);
    }
    ADD_FAILURE() << "no exported handler or no direct call for " << m.name << m.sig;
    return R();
}

// Every log line as "<priority> <text>".
std::vector<std::string> lines() {
    std::vector<std::string> out;
    for (const th::LogLine& l : th::logs()) out.push_back(std::to_string(l.prio) + " " + l.text);
    return out;
}

// Rows checked line for line. Without a player: the entry line (if any), then the failure
// line. With a player answering 0x18081 (and the arguments of argsFor): the entry line, then
// the after-call line (if any).
struct Spot {
    const char* entry;  // with its priority
    int line;
    const char* cls;
    const char* after = nullptr;
};
const std::map<std::string, Spot> kSpots = {
    {"closeTeletext", {"3 closeTeletext", 1349, kIpc}},
    {"native_openTeletext", {"3 openTeletext", 1642, kIpc}},
    {"setTeletextLanguageGroup", {"4 setTeletextLanguageGroup", 1678, kIpc}},
    {"isSignalStable", {nullptr, 1551, kIpc, "3 isSignalStable, ret = 1"}},
    {"setAudioMode", {"3 setAudioMode, mode = -123456", 2000, kIpc}},
    {"sendMheg5IcsCommand", {"3 sendMheg5IcsCommand", 2158, kIpc}},
    {"isMheg5Running", {"3 isMheg5Running", 2174, kState}},
    {"startAutoStandardDetection", {nullptr, 2725, kState}},
    {"native_forceVideoStandard", {nullptr, 2735, kState}},
    {"native_detectInputSource", {"3 native_detectInputSource", 2824, kIpc}},
    {"setVChipGuideline", {"3 SetVChipGuideline", 3154, kState}},
    {"_getCurrentEventStatus", {"3 getCurrentEventStatus", 3527, kState}},
    {"getTransponderCount", {"3 getTransponderCount", 4069, kState}},
    {"getUserLocationCode", {nullptr, 4512, kState, "3 getUserLocationCode, code = 98433"}},
    {"changeSetting", {"3 native_changeSetting", 4715, kIpc}},
    {"getHdmiEdidVersionBySource",
     {"3 getHdmiEdidVersionBySource inputSource = -123456", 4732, kState, "3 re = -32639"}},
    {"setHdmiEdidVersionBySource",
     {"3 setHdmiEdidVersionBySource inputSource = -123456, hdmiEdidVersion = -124456", 4751, kState,
      "3 re = 1"}},
    {"clearProgramBISSKeyByNumber",
     {"3 clearProgramBISSKeyByNumber progNumber = -123456, progType = -124456", 4814, kState}},
};
const Spot* spotOf(const std::string& name) {
    auto s = kSpots.find(name);
    return s == kSpots.end() ? nullptr : &s->second;
}

class ThinCommands : public th::PlayerTest {};

TEST_F(ThinCommands, WithoutAPlayerEveryRowLogsOneFailureLineAndReturnsItsNeutralValue) {
    releasePlayer();
    host::setConnectFactory([] { return android::sp<PlayerImpl>(); });
    player = th::newPlayer();
    const std::set<std::string> minusOne = {"getPhaseRange", "native_getVideoStandard",
                                            "getDtvRouteCount", "native_getChinaDvbcRegion",
                                            "getAntennaType"};
    const std::regex fatal(R"(\[Fatal jni_exception\] (\w+)\((\d+)\), (\S+))");
    std::set<int> sourceLines;
    int walked = 0;
    // 105 handlers: startAutoStandardDetection is declared once and bound at two rows.
    ASSERT_EQ(thinNatives().size(), 105u);
    for (const rel::NativeMethod& m : thinNatives()) {
        // These five end the process (test_bad_input.cpp runs them in child processes).
        if (rel::endsProcessWithoutPlayer(m.name)) continue;
        SCOPED_TRACE(m.name + m.sig);
        th::clearLogs();
        ++walked;
        rel::Result r = rel::callRaw(th::env(), player, m, argsFor(m).data());
        th::failOnPendingException();
        // false, null, 0, or -1 and 255 for the queries that answer those.
        const int64_t got = m.ret == "Z" ? r.v.z : m.ret == "I" ? r.v.i : r.v.l != nullptr;
        const bool detection = m.name == "native_getVideoStandardDetectionState";
        EXPECT_EQ(got, minusOne.count(m.name) ? -1 : detection ? 255 : 0);

        // The failure line comes last and names this very handler, its own source line (two
        // rows sharing one is a copied row) and one of the two classes of the thin rows.
        auto logs = th::logs();
        std::smatch f;
        ASSERT_FALSE(logs.empty());
        ASSERT_TRUE(std::regex_match(logs.back().text, f, fatal)) << th::dumpLogs();
        EXPECT_EQ(logs.back().prio, E);
        EXPECT_EQ(logs.back().tag, "PlayerImpl_JNI");
        EXPECT_EQ(f[1].str(), exported(m.name));
        EXPECT_TRUE(f[3] == kIpc || f[3] == kState) << f[3];
        EXPECT_TRUE(sourceLines.insert(std::stoi(f[2])).second) << f[2];
        if (const Spot* s = spotOf(m.name)) {
            std::vector<std::string> want;
            if (s->entry) want.push_back(s->entry);
            want.push_back("6 " + th::fatalLine(exported(m.name), s->line, s->cls));
            EXPECT_EQ(lines(), want);
        } else {
            ASSERT_EQ(logs.size(), 2u) << "one entry line, nothing after: " << th::dumpLogs();
            EXPECT_EQ(logs[0].prio, D);
        }
    }
    EXPECT_EQ(walked, 100);
}

TEST_F(ThinCommands, WithAPlayerEveryRowCallsItsOneOperationWithItsArguments) {
    const std::map<std::string, jint> narrowed = {{"native_getVideoStandardDetectionState", 0x81},
                                                  {"getAntennaType", 0x8081},
                                                  {"getHdmiEdidVersionBySource", -0x7F7F}};
    for (const rel::NativeMethod& m : thinNatives()) {
        SCOPED_TRACE(m.name + m.sig);
        const th::Op op = opOf(m.name);
        const std::string text = std::string("text of ") + th::nameOf(op);
        auto args = argsFor(m);
        // An int the operation takes as a boolean: true, though its low byte is 0.
        if (m.name == "_setCurrentEventStatus") args[1].i = 0x100;
        fake->setResult(op, 0x18081);
        fake->setText(op, text);
        fake->clearCalls();
        th::clearLogs();
        rel::Result r = rel::callRaw(th::env(), player, m, args.data());
        th::failOnPendingException();

        auto calls = fake->calls();
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].op, op);
        ASSERT_GE(calls[0].args.size(), args.size());
        for (size_t i = 0; i < args.size(); ++i) {
            const bool asBool = m.name == "_setCurrentEventStatus" && i == 1;
            EXPECT_EQ(calls[0].args[i], asBool ? 1 : recorded(m.params[i], args[i])) << "arg " << i;
        }
        if (const Spot* s = spotOf(m.name)) {
            std::vector<std::string> want;
            if (s->entry) want.push_back(s->entry);
            if (s->after) want.push_back(s->after);
            EXPECT_EQ(lines(), want);
        } else {
            ASSERT_EQ(th::logs().size(), 1u) << "the entry line alone: " << th::dumpLogs();
            EXPECT_EQ(th::logs()[0].prio, D);
        }
        if (m.name == "native_detectInputSource") {
            EXPECT_EQ(calls[0].args.at(1), 0) << "a constant 0 follows";
        }
        if (m.ret == "I") {
            // Narrowing rows keep the low 8 or 16 bits; the others pass the answer unchanged.
            EXPECT_EQ(r.v.i, narrowed.count(m.name) ? narrowed.at(m.name) : 0x18081);
        }
        if (m.ret == kString) {
            auto s = static_cast<jstring>(r.v.l);
            EXPECT_EQ(th::toStdString(s), text);
            th::env()->DeleteLocalRef(s);
            fake->setText(op, "");
            s = static_cast<jstring>(rel::callRaw(th::env(), player, m, args.data()).v.l);
            th::failOnPendingException();
            bool isNull = true;
            EXPECT_EQ(th::toStdString(s, &isNull), "");
            EXPECT_FALSE(isNull) << "an empty text is an empty string";
            th::env()->DeleteLocalRef(s);
        }
    }
}

// Checked on the handlers themselves: a boolean answer keeps bit 0 alone (2 is false), and a
// boolean argument arriving as any non-zero byte reaches the player as exactly true.
TEST_F(ThinCommands, BooleansAreCutToBitZeroBothWays) {
    // Two rows answer whatever the player says: the antenna type true, the block status the
    // byte the operation stored, whole.
    const std::map<std::string, jboolean> fixed = {{"native_atsc_setAntennaType", 1},
                                                   {"getCurrentVChipBlockStatus", 2}};
    fake->onCall(th::Op::getCurrentVChipBlockStatus,
                 [](const th::OutArgs& o) { o.at<uint8_t>(0) = 2; });
    int rows = 0;
    for (const rel::NativeMethod& m : thinNatives()) {
        const bool boolArgs = m.sig.find('Z') < m.sig.find(')');
        if (m.ret != "Z" && !boolArgs) continue;
        SCOPED_TRACE(m.name);
        ++rows;
        for (auto [answer, byte] :
             {std::pair<int64_t, jboolean>{2, 0x80}, {3, 2}, {0xFE, 0xFF}, {0x81, 0}}) {
            fake->setResult(opOf(m.name), answer);
            fake->clearCalls();
            auto args = argsFor(m, byte);
            if (m.ret == "V") {
                callHandler<void>(m, player, args);
            } else {
                EXPECT_EQ(callHandler<jboolean>(m, player, args),
                          fixed.count(m.name) ? fixed.at(m.name) : answer & 1)
                    << answer;
            }
            auto calls = fake->calls();
            ASSERT_EQ(calls.size(), 1u);
            for (size_t i = 0; i < args.size(); ++i) {
                EXPECT_EQ(calls[0].args.at(i), recorded(m.params[i], args[i])) << int(byte);
            }
        }
    }
    EXPECT_GT(rows, 65);
}

}  // namespace
