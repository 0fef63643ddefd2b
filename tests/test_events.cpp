// Event delivery through a real VM: the generic callback's numbers, known and unknown, against
// the managed codes read from their fields, and service threads posting while players come and
// go. (Every two-integer operation, the notify table as a whole, the signal status and a
// listener without a runtime are in tests/native.)
#include <android/log.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <set>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "core/PlayerImpl.h"
#include "event_rows.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "double/fake_player.h"

namespace {

constexpr int E = ANDROID_LOG_ERROR;

std::string hex(int n) {
    char buf[16];
    snprintf(buf, sizeof buf, "%#x", n);
    return buf;
}

class Events : public th::PlayerTest {
protected:
    Events() : PlayerTest(kSkipInChild | kClearEvents | kWarningsBeforeRelease) {}
};

TEST_F(Events, TheGenericCallbackPostsItsNumbersAndOnlyLogsUnknownOnes) {
    // The numbers it knows, then a gap in the range, a number of the other dispatcher and an
    // extreme, which it does not.
    std::vector<std::pair<int, std::string>> numbers;
    for (const CallbackRow& row : kCallbackRows) {
        numbers.emplace_back(row.number, std::string("TVPLAYER_") + row.field);
    }
    EXPECT_EQ(numbers.size(), 6u);
    for (int unknown : {0x20001024, 0x20001019, -1}) numbers.emplace_back(unknown, "");
    const android::Parcel ignored;
    int i = 0;
    for (const auto& [number, field] : numbers) {
        const int ext1 = INT32_MIN + i, ext2 = -i++;
        th::clearLogs();
        th::clearEvents();
        fake->fire([&](PlayerImplListener& l) { l.notifyCB(number, ext1, ext2, &ignored); }, i);
        auto evs = th::events();
        SCOPED_TRACE("notifyCB " + hex(number));
        EXPECT_EQ(th::countLog(E, "notifyCB event = " + std::to_string(number) + "\n"), 1);
        EXPECT_EQ(th::countLog(E, "Unknown event '" + hex(number) + "'"), field.empty() ? 1 : 0);
        std::vector<std::tuple<int, int, int, jobject>> posted, expected;
        for (const th::Event& ev : evs) posted.emplace_back(ev.what, ev.ext1, ev.ext2, ev.obj);
        if (!field.empty())
            expected.emplace_back(th::staticInt(field.c_str()), ext1, ext2, nullptr);
        EXPECT_EQ(posted, expected);
        th::releaseEvents(evs);
    }
}

// Two service threads deliver events of every shape to the newest player while the managed
// thread tears players down and sets new ones up (which deletes and remakes the shared scan
// objects under the events' feet).
TEST_F(Events, ServiceThreadsKeepPostingWhilePlayersComeAndGo) {
    const jint atvCode = th::staticInt("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO");
    const jint dtvCode = th::staticInt("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO");
    const std::set<jint> codes = {atvCode, dtvCode, th::staticInt("TVPLAYER_HBBTV_UI_EVENT"),
                                  th::staticInt("TVPLAYER_DTV_VIDEO_INFO_READY"),
                                  th::staticInt("TVPLAYER_SIGNAL_LOCK")};
    std::atomic<bool> stop{false};
    std::atomic<int> fired{0};
    for (int t = 0; t < host::kServiceThreads; ++t) {
        host::postToServiceThread(t, [&, t] {
            // 1 to 12: an analogue payload and more, or an HbbTV payload.
            android::Parcel ints, dtv;
            for (int v = 1; v <= 12; ++v) ints.writeInt32(v);
            for (int v = 1; v <= 11; ++v) dtv.writeInt32(v);
            dtv.writeString8(android::String8("RF"));
            dtv.writeInt32(13);
            const std::function<void(PlayerImplListener&, int)> kinds[] = {
                [&](PlayerImplListener& l, int) { l.PostEvent_AtvAutoTuning(ints); },
                [&](PlayerImplListener& l, int) { l.PostEvent_DtvAutoTuning(dtv); },
                [&](PlayerImplListener& l, int) { l.PostEvent_HbbtvEvent(ints); },
                [&](PlayerImplListener& l, int n) { l.notifyCB(0x20001025, n, t, nullptr); },
                [&](PlayerImplListener& l, int n) { l.PostEvent_SignalLock(n, t); },
            };
            for (int n = 0; !stop.load(); ++n) {
                android::sp<th::FakePlayer> newest = th::lastFakePlayer();
                android::sp<PlayerImplListener> l = newest ? newest->listener() : nullptr;
                if (l == nullptr) continue;  // between a player's end and the next one
                ints.setDataPosition(0);
                dtv.setDataPosition(0);
                kinds[(n + t) % 5](*l, n);
                fired.fetch_add(1);
            }
        });
    }
    // Until both threads are well under way (each round waits for some of their events).
    for (int round = 0; round < 200 || fired.load() < 20000; ++round) {
        if (round % 32 == 0) th::clearEvents();
        if (round % 8 == 0) th::clearLogs();
        releasePlayer();
        player = th::newPlayer();
        // Some events reach this player's shared objects before it goes.
        for (const int until = fired.load() + 10; fired.load() < until;) std::this_thread::yield();
    }
    stop = true;
    for (int t = 0; t < host::kServiceThreads; ++t) host::runOnServiceThread(t, [] {});
    EXPECT_GE(fired.load(), 20000);

    auto evs = th::events();
    int atvs = 0, dtvs = 0;
    for (const th::Event& ev : evs) {
        ASSERT_TRUE(codes.count(ev.what)) << "posted code " << ev.what;
        // Both threads send the same values, so the shared objects always hold them.
        if (ev.what == atvCode) {
            ++atvs;
            EXPECT_TRUE(th::isA(ev.obj, "com/vireo/android/tvapi/atv/vo/AtvEventScan"));
            EXPECT_EQ(th::getI(ev.obj, "frequencyKHz"), 2);
            EXPECT_EQ(ev.ext2, 6);
        } else if (ev.what == dtvCode) {
            ++dtvs;
            EXPECT_TRUE(th::isA(ev.obj, "com/vireo/android/tvapi/dtv/vo/DtvEventScan"));
            EXPECT_EQ(th::getStr(ev.obj, "rfSignalName"), "RF");
            EXPECT_EQ(ev.ext2, 13);
        }
        if (HasFailure()) break;
    }
    EXPECT_GT(atvs, 0);
    EXPECT_GT(dtvs, 0);
    th::releaseEvents(evs);
    th::clearEvents();
}

}  // namespace
