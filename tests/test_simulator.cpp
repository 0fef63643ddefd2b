// The workstation's simulated TV, driven through the real VM and library: the state that
// commands change and queries read back, its timeline of events, and the checking of
// scenario files.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <thread>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"
#include "playerimpl_host/simulator.h"

namespace {

// Writes a scenario to a temporary file and returns its path.
std::string writeScenario(const std::string& name, const std::string& text) {
    std::string path = ::testing::TempDir() + "sim_" + std::to_string(getpid()) + "_" + name;
    std::ofstream(path) << text;
    return path;
}

// Waits until `done` holds, or the time runs out.
bool waitFor(const std::function<bool()>& done, int ms = 10000) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (!done() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return done();
}

// The events recorded so far with this code.
int countEvents(const char* code) {
    const int what = th::staticInt(code);
    auto evs = th::events();
    const int n =
        std::count_if(evs.begin(), evs.end(), [&](const th::Event& e) { return e.what == what; });
    th::releaseEvents(evs);
    return n;
}

int currentTsid(jobject p) {
    jobject mux =
        th::callL(p, "getCurrentMuxInfo", "()Lcom/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo;");
    if (mux == nullptr) return -1;
    const int tsid = th::getI(mux, "transportStreamId");
    th::env()->DeleteLocalRef(mux);
    return tsid;
}

class Simulator : public ::testing::Test {
protected:
    void SetUp() override {
        host::resetConnectFactory();
        host::runOnServiceThread(0, [] {});  // events still queued by an earlier case
        th::clearEvents();
        th::clearVmOutput();
    }
    void TearDown() override {
        if (mPlayer) {
            th::callV(mPlayer, "native_finalize", "()V");
            th::env()->DeleteLocalRef(mPlayer);
        }
        waitFor(host::sim::timelineDone);
        host::runOnServiceThread(0, [] {});
        EXPECT_EQ(host::sim::useScenarioFile(""), "");
        th::expectNoJniWarnings();
    }
    // A player on a simulator running the given scenario text (a quiet one by default).
    jobject player(const std::string& scenario = R"({"timeline": []})") {
        std::string path = writeScenario("player.json", scenario);
        EXPECT_EQ(host::sim::useScenarioFile(path), "");
        std::remove(path.c_str());
        return mPlayer = th::newPlayer();
    }
    jobject mPlayer = nullptr;
};

// ---- state that commands change and queries answer from ----

TEST_F(Simulator, ChannelChangesMoveTheMultiplexInformationAndSignalTheNewLock) {
    jobject p = player(R"({"multiplexes": [
        {"rf": 21, "tsid": 100, "channels": [{"number": 1}, {"number": 2}]},
        {"rf": 35, "tsid": 200, "channels": [{"number": 3}]}],
        "start_channel": 2})");
    auto key = [&](int code) { return th::callZ(p, "processKey", "(IZ)Z", code, JNI_TRUE); };
    auto tuneRf = [&](int rf) { return th::callZ(p, "setManualTuneByRf", "(S)Z", jshort(rf)); };
    EXPECT_EQ(currentTsid(p), 100) << "the start channel's multiplex";
    EXPECT_TRUE(key(166)) << "CHANNEL_UP";
    EXPECT_EQ(currentTsid(p), 200);
    EXPECT_TRUE(key(166)) << "wraps round";
    EXPECT_EQ(currentTsid(p), 100);
    EXPECT_TRUE(key(167)) << "CHANNEL_DOWN";
    EXPECT_EQ(currentTsid(p), 200);
    EXPECT_TRUE(tuneRf(21));
    EXPECT_EQ(currentTsid(p), 100);
    EXPECT_FALSE(tuneRf(60)) << "nothing on RF 60";
    EXPECT_FALSE(key(16)) << "digit 9: no channel 9";
    EXPECT_EQ(currentTsid(p), 100);

    // Events come from the service thread after the command returned.
    waitFor([] { return countEvents("TVPLAYER_PROGRAM_INFO_READY") >= 4; }, 5000);
    EXPECT_EQ(countEvents("TVPLAYER_PROGRAM_INFO_READY"), 4);
    EXPECT_EQ(countEvents("TVPLAYER_TS_CHANGE"), 4) << "every change above crossed multiplexes";
    EXPECT_EQ(countEvents("TVPLAYER_SIGNAL_LOCK"), 4);
    EXPECT_EQ(countEvents("TVPLAYER_SIGNAL_UNLOCK"), 5) << "four changes and the failed tune";
    EXPECT_TRUE(th::callZ(p, "isSignalStable", "()Z"));
}

TEST_F(Simulator, SatellitesAddedUpdatedAndDeletedAreReadBack) {
    jobject p = player(R"({"satellites": [{"name": "Astra", "longitude": 192,
                           "transponders": [{"frequency_mhz": 11494}]}]})");
    ASSERT_EQ(th::callI(p, "getCurrentSatelliteCount", "()I"), 1);
    jobject rec = th::env()->AllocObject(
        th::findClass("com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo"));
    th::failOnPendingException();
    th::setStr(rec, "satName", "Hotbird");
    th::setI(rec, "angle", 130);
    th::setI(rec, "lowLOF", 9750);
    const char* sig = "(Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;)Z";
    ASSERT_TRUE(th::callZ(p, "addSatelliteInfo", sig, rec));
    ASSERT_EQ(th::callI(p, "getCurrentSatelliteCount", "()I"), 2);

    const char* getSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;";
    jobject back = th::callL(p, "getSatelliteInfo", getSig, 1);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(th::getStr(back, "satName"), "Hotbird");
    EXPECT_EQ(th::getI(back, "angle"), 130);
    EXPECT_EQ(th::callI(p, "getTransponderCount", "(I)I", 1), 0) << "the new satellite has none";
    EXPECT_EQ(th::callI(p, "getTransponderCount", "(I)I", 0), 1);

    // Deleting the first moves the new one to index 0.
    EXPECT_TRUE(th::callZ(p, "deleteSatelliteInfo", "(I)Z", 0));
    EXPECT_FALSE(th::callZ(p, "deleteSatelliteInfo", "(I)Z", 5)) << "no such satellite";
    EXPECT_EQ(th::callI(p, "getCurrentSatelliteCount", "()I"), 1);
    jobject first = th::callL(p, "getSatelliteInfo", getSig, 0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(th::getI(first, "angle"), 130);
    EXPECT_FALSE(th::callZ(p, "setCurrentSatelliteNumber", "(I)Z", 1)) << "out of range";
    EXPECT_TRUE(th::callZ(p, "setCurrentSatelliteNumber", "(I)Z", 0));
}

TEST_F(Simulator, TeletextFollowsTheChannelAndVChipBlocksUntilUnlocked) {
    jobject p = player(R"({"multiplexes": [{"channels": [
        {"number": 1, "teletext": true}, {"number": 2}]}],
        "timeline": [{"event": "SignalLock"}]})");
    ASSERT_TRUE(waitFor(host::sim::timelineDone));
    auto is = [&](const char* query) { return th::callZ(p, query, "()Z"); };
    EXPECT_TRUE(is("hasTeletextSignal"));
    EXPECT_TRUE(th::callZ(p, "native_openTeletext", "(I)Z", 1));
    EXPECT_TRUE(is("isTeletextDisplayed"));
    EXPECT_TRUE(is("closeTeletext"));
    EXPECT_FALSE(is("isTeletextDisplayed"));
    EXPECT_TRUE(th::callZ(p, "processKey", "(IZ)Z", 9, JNI_TRUE)) << "digit 2";
    EXPECT_FALSE(is("hasTeletextSignal")) << "channel 2 has none";
    EXPECT_FALSE(th::callZ(p, "native_openTeletext", "(I)Z", 1));

    EXPECT_FALSE(is("getCurrentVChipBlockStatus"));
    EXPECT_TRUE(
        th::callZ(p, "setVChipGuideline", "(SSSS)Z", jshort(4), jshort(0), jshort(0), jshort(0)));
    EXPECT_TRUE(is("getCurrentVChipBlockStatus"));
    EXPECT_TRUE(th::callZ(p, "enterPassToUnlockByUser", "(Z)Z", JNI_TRUE));
    EXPECT_FALSE(is("getCurrentVChipBlockStatus"));
}

// ---- the timeline ----

TEST_F(Simulator, TimelineDeliversScansWithParcelsThenEventsInOrder) {
    player(R"({"speed": 10, "analogue": [{"frequency_khz": 175250}],
               "multiplexes": [{"rf": 21, "name": "PSB1", "channels": [{"number": 1}]},
                               {"rf": 35, "channels": [{"number": 2}, {"number": 3}]}],
               "timeline": [{"event": "AtvAutoTuning", "ext2": 9},
                            {"at_ms": 100, "event": "DtvAutoTuning"},
                            {"at_ms": 200, "event": "PvrRecordTime", "ext1": 10, "repeat": 3},
                            {"at_ms": 300, "event": "HbbtvEvent", "code": 4, "ext2": 6,
                             "params": [7, 8]}]})");
    ASSERT_TRUE(waitFor(host::sim::timelineDone));
    const int atv = th::staticInt("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO");
    const int dtv = th::staticInt("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO");
    const int rec = th::staticInt("TVPLAYER_PVR_RECORD_TIME");
    const int hbb = th::staticInt("TVPLAYER_HBBTV_UI_EVENT");
    // The whole analogue scan (0 % to 100 % in tenths), the digital scan (two multiplexes
    // and the end), the ticks counting up, the HbbTV event with its object.
    auto label = [&](const th::Event& e) -> std::string {
        if (e.what == atv) return "atv " + std::to_string(e.ext2);
        if (e.what == dtv) return "dtv";
        if (e.what == rec) return "rec " + std::to_string(e.ext1);
        if (e.what != hbb || e.obj == nullptr) return "other " + std::to_string(e.what);
        return "hbb " + std::to_string(e.ext2) + " " + std::to_string(th::getI(e.obj, "eEvent"));
    };
    std::vector<std::string> seen;
    auto evs = th::events();
    for (const th::Event& e : evs) seen.push_back(label(e));
    th::releaseEvents(evs);
    std::vector<std::string> expected(11, "atv 9");
    expected.insert(expected.end(), {"dtv", "dtv", "dtv", "rec 10", "rec 11", "rec 12", "hbb 6 4"});
    EXPECT_EQ(seen, expected);
}

TEST_F(Simulator, FinalizeStopsARunningTimelineAndNothingArrivesAfterwards) {
    jobject p = player(R"({"timeline": [{"event": "PvrPlaybackTime", "repeat": 1000,
                                         "every_ms": 5}]})");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    th::callV(p, "native_finalize", "()V");
    th::env()->DeleteLocalRef(p);
    mPlayer = nullptr;
    ASSERT_TRUE(waitFor(host::sim::timelineDone, 2000)) << "the timeline ends with the connection";
    const int seen = countEvents("TVPLAYER_PVR_PLAYBACK_TIME");
    EXPECT_GT(seen, 0);
    EXPECT_LT(seen, 1000);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(countEvents("TVPLAYER_PVR_PLAYBACK_TIME"), seen);
    EXPECT_EQ(host::HostPlayer::liveCount(), 0) << "the simulator was released";
}

TEST_F(Simulator, CommandsFromManyThreadsWhileTheTimelineFires) {
    jobject p = player(R"({"multiplexes": [{"rf": 21, "tsid": 1, "channels": [{"number": 1}]},
                                           {"rf": 22, "tsid": 2, "channels": [{"number": 2}]}],
                           "timeline": [{"event": "EpgUpdate", "repeat": 300, "every_ms": 1}]})");
    jobject global = th::env()->NewGlobalRef(p);
    std::atomic<int> bad{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; ++i) {
                th::callZ(global, "processKey", "(IZ)Z", (i + t) % 2 ? 166 : 167, JNI_TRUE);
                const int tsid = currentTsid(global);
                bad += tsid != 1 && tsid != 2;
            }
            th::vm()->DetachCurrentThread();
        });
    }
    for (auto& t : threads) t.join();
    th::env()->DeleteGlobalRef(global);
    EXPECT_EQ(bad.load(), 0);
    ASSERT_TRUE(waitFor(host::sim::timelineDone));
    EXPECT_EQ(countEvents("TVPLAYER_EPG_UPDATE"), 300);
}

// ---- scenario files ----

TEST(ScenarioFiles, RefusalsNameTheFileThePlaceAndWhatWasExpected) {
    const struct {
        const char* file;
        const char* text;
        const char* refusal;
    } cases[] = {
        {"syntax.json", "{\n  \"name\": \"x\",\n  \"speed\": ,\n}",
         "syntax.json: line 3, column 12: malformed JSON"},
        {"member.json", R"({"timeline": [{"event": "SignalLock", "ext3": 1}]})",
         "at /timeline/0/ext3: unknown member; expected one of at_ms, event"},
        {"range.json", R"({"timeline": [{"at_ms": -5, "event": "SignalLock"}]})",
         "at /timeline/0/at_ms: expected an integer from 0 to 600000, got an integer"},
        {"lang.json", R"({"multiplexes": [{"channels": [{"number": 1, "audio": [
                          {"language": "EN"}]}]}]})",
         "/multiplexes/0/channels/0/audio/0/language: expected a three-letter"},
        {"start.json", R"({"start_channel": 9, "multiplexes": [{"channels": [{"number": 1}]}]})",
         "at /start_channel: expected the number of a channel"},
        {"root.json", "[1, 2]", "root.json: at : expected an object, got an array"},
        {"empty.json", "{}", ""},  // every member has a default
    };
    for (const auto& c : cases) {
        const std::string path = writeScenario(c.file, c.text);
        host::sim::Scenario s;
        std::string error;
        EXPECT_EQ(host::sim::loadScenarioFile(path, s, error), *c.refusal == '\0') << c.file;
        EXPECT_NE(error.find(c.refusal), std::string::npos) << error;
        std::remove(path.c_str());
    }
}

TEST(ScenarioFiles, ARefusedFileKeepsThePreviousChoiceAndTheShippedExamplesLoad) {
    const std::string bad = writeScenario("bad.json", R"({"speed": "fast"})");
    EXPECT_NE(host::sim::useScenarioFile(bad).find("at /speed: expected a number"),
              std::string::npos);
    std::remove(bad.c_str());
    for (const char* f :
         {"ci_plus_failure.json", "ewbs_alert.json", "usb_pulled_while_recording.json"}) {
        host::sim::Scenario s;
        std::string error;
        EXPECT_TRUE(host::sim::loadScenarioFile(std::string(PIJ_SCENARIO_DIR "/") + f, s, error))
            << error;
        EXPECT_FALSE(s.timeline.empty()) << f;
    }
}

}  // namespace
