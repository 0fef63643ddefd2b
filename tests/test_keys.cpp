// Remote-key translation through a real VM: what reaches the player for each managed key,
// which keys are dropped, and the failure lines of the two key natives.
#include <android/log.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "double/fake_player.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;
const std::string kHandler = "com_vireo_android_tvapi_impl_PlayerImpl_";

class Keys : public th::PlayerTest {
protected:
    jboolean send(bool mheg5, jint key) {
        return mheg5 ? th::callZ(player, "sendMheg5Key", "(I)Z", key)
                     : th::callZ(player, "processKey", "(IZ)Z", key, JNI_TRUE);
    }
};

// Every managed code from -300 to 400 through each handler: a key of the handler's table
// reaches the player translated, after a translation line; any other is answered false with
// no call and no line besides the entry line.
TEST_F(Keys, EachHandlerTranslatesItsOwnKeysAndDropsTheRest) {
    fake->setResult(th::Op::processKey, 1);
    fake->setResult(th::Op::sendMheg5Command, 1);
    for (bool mheg5 : {false, true}) {
        SCOPED_TRACE(mheg5 ? "sendMheg5Key" : "processKey");
        const std::string line =
            mheg5 ? "sendMheg5Key translate from " : "processKey translate trom ";
        std::map<int, int64_t> sent;
        for (int key = -300; key <= 400; ++key) {
            fake->clearCalls();
            th::clearLogs();
            const jboolean answer = send(mheg5, key);
            auto calls = fake->calls();
            ASSERT_LE(calls.size(), 1u) << key;
            EXPECT_EQ(answer, calls.empty() ? JNI_FALSE : JNI_TRUE) << key;
            if (calls.empty()) {
                EXPECT_EQ(th::logs().size(), 1u) << key << ": " << th::dumpLogs();
                continue;
            }
            EXPECT_EQ(calls[0].op, mheg5 ? th::Op::sendMheg5Command : th::Op::processKey);
            sent[key] = calls[0].args.at(0);
            const std::string translated = std::to_string(key) + " to " + std::to_string(sent[key]);
            EXPECT_TRUE(th::hasLog(D, line + translated)) << th::dumpLogs();
        }
        EXPECT_EQ(sent.size(), mheg5 ? 32u : 38u);
        const int64_t enter = mheg5 ? 13 : 0x000D;
        EXPECT_EQ(sent.at(23), enter);
        EXPECT_EQ(sent.at(66), enter) << "centre and enter are one key to the player";
        EXPECT_EQ(sent.at(0), 0) << "0 is forwarded, not dropped";
        EXPECT_EQ(sent.count(-1), 0u);
        for (int digit = 0; digit <= 9; ++digit) {
            EXPECT_EQ(sent.at(7 + digit), (mheg5 ? 16 : '0') + digit);
        }
        // Channel, menu, record, last-channel and zoom keys are not the engine's.
        for (int key : {166, 167, 82, 130, 229, 255}) {
            EXPECT_EQ(sent.count(key), mheg5 ? 0u : 1u) << key;
        }
        // Apart from the two enter keys, no two managed keys share a player code.
        std::map<int64_t, int> seen;
        for (auto& kv : sent) ++seen[kv.second];
        for (auto& kv : seen) EXPECT_EQ(kv.second, kv.first == enter ? 2 : 1) << kv.first;
    }
}

// On the handlers themselves, since the VM normalises booleans both ways: the flag reaches
// the player as true for any non-zero byte, and the answer keeps bit 0 alone.
TEST_F(Keys, TheFlagPassesAsABooleanAndTheAnswerKeepsBitZero) {
    auto processKey = reinterpret_cast<jboolean (*)(JNIEnv*, jobject, jint, jboolean)>(
        th::librarySymbol((kHandler + "processKey").c_str()));
    auto mheg5Key = reinterpret_cast<jboolean (*)(JNIEnv*, jobject, jint)>(
        th::librarySymbol((kHandler + "sendMheg5Key").c_str()));
    ASSERT_TRUE(processKey && mheg5Key);
    for (auto [answer, flag] :
         {std::pair<int64_t, jboolean>{2, 0x80}, {3, 2}, {0xFF, 0}, {0xFE, 1}}) {
        fake->clearCalls();
        fake->setResult(th::Op::processKey, answer);
        fake->setResult(th::Op::sendMheg5Command, answer);
        EXPECT_EQ(processKey(th::env(), player, 0, flag), answer & 1);
        EXPECT_EQ(mheg5Key(th::env(), player, 4), answer & 1);
        EXPECT_EQ(fake->callsOf(th::Op::processKey).at(0).args,
                  (std::vector<int64_t>{0, flag != 0}));
        EXPECT_EQ(fake->callsOf(th::Op::sendMheg5Command).at(0).args, (std::vector<int64_t>{9}));
    }
}

TEST_F(Keys, WithoutAPlayerEachNamesItsOwnClass) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    EXPECT_EQ(send(false, 23), JNI_FALSE);
    EXPECT_EQ(send(true, 23), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine(kHandler + "processKey", 3131, "java/lang/IllegalStateException")));
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(kHandler + "sendMheg5Key", 2133,
                                            "com/vireo/android/tvapi/common/exception/"
                                            "TvIpcException")));
    EXPECT_EQ(th::logs().size(), 4u) << "two entry lines, two failure lines: " << th::dumpLogs();
}

}  // namespace
