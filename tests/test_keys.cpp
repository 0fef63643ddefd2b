// Remote-key translation through a real VM: what reaches the player for each managed key,
// which keys are dropped, and the failure lines of the two key natives.
#include <android/log.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;

using ProcessKeyFn = jboolean (*)(JNIEnv*, jobject, jint, jboolean);

class Keys : public th::PlayerTest {
protected:
    jboolean processKey(jint key, bool flag) {
        return th::callZ(player, "processKey", "(IZ)Z", key, flag ? JNI_TRUE : JNI_FALSE);
    }
    jboolean mheg5Key(jint key) { return th::callZ(player, "sendMheg5Key", "(I)Z", key); }

    // Every managed code in [from, to] that reaches the player, with the code it became.
    std::map<int, int64_t> translations(bool mheg5, int from, int to) {
        std::map<int, int64_t> out;
        const std::string op = mheg5 ? "sendMheg5Command" : "processKey";
        for (int key = from; key <= to; ++key) {
            fake->clearCalls();
            th::clearLogs();
            if (mheg5) {
                mheg5Key(key);
            } else {
                processKey(key, true);
            }
            auto calls = fake->calls();
            EXPECT_LE(calls.size(), 1u) << key;
            if (calls.empty()) {
                EXPECT_TRUE(th::logsContaining("translate").empty()) << key;
                continue;
            }
            EXPECT_EQ(calls[0].op, op);
            out[key] = calls[0].args.at(0);
            const std::string line =
                mheg5 ? "sendMheg5Key translate from " : "processKey translate trom ";
            EXPECT_TRUE(th::hasLog(
                D, line + std::to_string(key) + " to " + std::to_string(calls[0].args[0])))
                << th::dumpLogs();
        }
        return out;
    }
};

TEST_F(Keys, GeneralKeysReachThePlayerTranslated) {
    auto t = translations(false, -300, 400);
    EXPECT_EQ(t.size(), 38u);
    EXPECT_EQ(t.at(23), 0x000D);
    EXPECT_EQ(t.at(66), 0x000D) << "centre and enter are one key to the player";
    EXPECT_EQ(t.at(0), 0) << "0 is forwarded, not dropped";
    for (int digit = 0; digit <= 9; ++digit) EXPECT_EQ(t.at(7 + digit), '0' + digit);
    EXPECT_EQ(t.at(19), 0xF002);
    EXPECT_EQ(t.at(167), 0xF047);
    EXPECT_EQ(t.at(255), 0xF022);
    EXPECT_EQ(t.count(-1), 0u);
    // Apart from the two enter keys, no two managed keys share a player code.
    std::map<int64_t, int> seen;
    for (auto& kv : t) ++seen[kv.second];
    for (auto& kv : seen) EXPECT_EQ(kv.second, kv.first == 0x000D ? 2 : 1) << kv.first;
}

TEST_F(Keys, Mheg5KeysReachTheEngineTranslatedAndOthersAreNotOffered) {
    auto t = translations(true, -300, 400);
    EXPECT_EQ(t.size(), 32u);
    EXPECT_EQ(t.at(23), 13);
    EXPECT_EQ(t.at(66), 13);
    EXPECT_EQ(t.at(0), 0);
    for (int digit = 0; digit <= 9; ++digit) EXPECT_EQ(t.at(7 + digit), 16 + digit);
    EXPECT_EQ(t.at(233), 53);
    // Channel, menu, record, last-channel and zoom keys are not the engine's.
    for (int key : {166, 167, 82, 130, 229, 255}) EXPECT_EQ(t.count(key), 0u) << key;
    // Every engine key is also a general key.
    auto general = translations(false, -300, 400);
    for (auto& kv : t) EXPECT_EQ(general.count(kv.first), 1u) << kv.first;
}

TEST_F(Keys, TheAnswerKeepsBitZeroAndTheFlagPassesAsABoolean) {
    fake->setResult("processKey", 3);
    EXPECT_EQ(processKey(0, false), JNI_TRUE) << "key 0 is sent and answered";
    ASSERT_EQ(fake->callsOf("processKey").size(), 1u);
    EXPECT_EQ(fake->callsOf("processKey")[0].args, (std::vector<int64_t>{0, 0}));
    fake->setResult("processKey", 2);
    EXPECT_EQ(processKey(23, true), JNI_FALSE);

    // Any non-zero byte is true; called directly, since the VM normalises booleans.
    auto direct = reinterpret_cast<ProcessKeyFn>(
        th::librarySymbol("com_vireo_android_tvapi_impl_PlayerImpl_processKey"));
    ASSERT_NE(direct, nullptr);
    for (jboolean flag : {jboolean{2}, jboolean{0x80}, jboolean{1}, jboolean{0}}) {
        fake->clearCalls();
        fake->setResult("processKey", 0xFF);
        EXPECT_EQ(direct(th::env(), player, 4, flag), 1) << "bit 0 of the raw answer";
        auto calls = fake->callsOf("processKey");
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].args, (std::vector<int64_t>{0xF062, flag != 0 ? 1 : 0})) << int(flag);
    }

    fake->setResult("sendMheg5Command", 0xFE);
    EXPECT_EQ(mheg5Key(4), JNI_FALSE);
    EXPECT_EQ(fake->callsOf("sendMheg5Command").at(0).args, (std::vector<int64_t>{9}));
}

TEST_F(Keys, UnknownKeysAreDroppedSilently) {
    fake->setResult("processKey", 1);
    fake->setResult("sendMheg5Command", 1);
    EXPECT_EQ(processKey(-1, true), JNI_FALSE);
    EXPECT_EQ(mheg5Key(166), JNI_FALSE) << "channel up is not an engine key";
    EXPECT_EQ(mheg5Key(INT32_MIN), JNI_FALSE);
    EXPECT_TRUE(fake->calls().empty());
    // Only the entry lines: no translation, no failure.
    EXPECT_EQ(th::logs().size(), 3u) << th::dumpLogs();
    EXPECT_EQ(th::countLog(D, "processKey"), 1);
    EXPECT_EQ(th::countLog(D, "sendMheg5Key"), 2);
}

TEST_F(Keys, WithoutAPlayerEachNamesItsOwnClass) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    EXPECT_EQ(processKey(23, true), JNI_FALSE);
    EXPECT_EQ(mheg5Key(23), JNI_FALSE);
    EXPECT_TRUE(
        th::hasLog(E,
                   "[Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_processKey"
                   "(3131), java/lang/IllegalStateException"));
    EXPECT_TRUE(
        th::hasLog(E,
                   "[Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key"
                   "(2133), com/vireo/android/tvapi/common/exception/TvIpcException"));
    EXPECT_TRUE(th::logsContaining("translate").empty());
    EXPECT_EQ(th::logs().size(), 4u) << th::dumpLogs();
}

}  // namespace
