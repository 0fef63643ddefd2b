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
#include <thread>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "playerimpl_host/fake_player.h"
#include "playerimpl_host/host_player.h"
#include "playerimpl_host/simulator.h"

namespace {

using Clock = std::chrono::steady_clock;

// Writes a scenario to a temporary file and returns its path.
std::string writeScenario(const std::string& name, const std::string& text) {
    std::string path = ::testing::TempDir() + "sim_" + std::to_string(getpid()) + "_" + name;
    std::ofstream(path) << text;
    return path;
}

int intField(jobject o, const char* cls, const char* name, const char* sig = "I") {
    JNIEnv* e = th::env();
    jfieldID f = e->GetFieldID(th::findClass(cls), name, sig);
    th::failOnPendingException();
    if (sig[0] == 'S') return e->GetShortField(o, f);
    return e->GetIntField(o, f);
}

constexpr const char* kMux = "com/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo";
constexpr const char* kSat = "com/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo";

int currentTsid(jobject p) {
    jobject mux =
        th::callL(p, "getCurrentMuxInfo", "()Lcom/vireo/android/tvapi/dtv/dvb/vo/DvbMuxInfo;");
    if (mux == nullptr) return -1;
    int tsid = intField(mux, kMux, "transportStreamId");
    th::env()->DeleteLocalRef(mux);
    return tsid;
}

// Waits until the simulator's timeline has been delivered, or the time runs out.
bool waitTimeline(int ms = 10000) {
    auto end = Clock::now() + std::chrono::milliseconds(ms);
    while (!host::sim::timelineDone() && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return host::sim::timelineDone();
}

// The events recorded so far with this code.
int countEvents(const char* code) {
    auto evs = th::events();
    int n = 0;
    for (const auto& e : evs) n += e.what == th::staticInt(code);
    th::releaseEvents(evs);
    return n;
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
        waitTimeline();
        host::runOnServiceThread(0, [] {});
        EXPECT_EQ(host::sim::useScenarioFile(""), "");
        th::expectNoJniWarnings();
    }
    // A player on a simulator running the given scenario text (a quiet one by default).
    jobject player(const std::string& scenario = R"({"timeline": []})") {
        std::string path = writeScenario("player.json", scenario);
        EXPECT_EQ(host::sim::useScenarioFile(path), "");
        std::remove(path.c_str());
        mPlayer = th::newPlayer();
        return mPlayer;
    }
    jobject mPlayer = nullptr;
};

// ---- state that commands change and queries answer from ----

TEST_F(Simulator, ChannelChangesMoveTheMultiplexInformationAndSignalTheNewLock) {
    jobject p = player(R"({"multiplexes": [
        {"rf": 21, "tsid": 100, "channels": [{"number": 1}, {"number": 2}]},
        {"rf": 35, "tsid": 200, "channels": [{"number": 3}]}],
        "start_channel": 2})");
    EXPECT_EQ(currentTsid(p), 100) << "the start channel's multiplex";

    EXPECT_TRUE(th::callZ(p, "processKey", "(IZ)Z", 166, JNI_TRUE)) << "CHANNEL_UP";
    EXPECT_EQ(currentTsid(p), 200);
    EXPECT_TRUE(th::callZ(p, "processKey", "(IZ)Z", 166, JNI_TRUE)) << "wraps round";
    EXPECT_EQ(currentTsid(p), 100);
    EXPECT_TRUE(th::callZ(p, "processKey", "(IZ)Z", 167, JNI_TRUE)) << "CHANNEL_DOWN";
    EXPECT_EQ(currentTsid(p), 200);
    EXPECT_TRUE(th::callZ(p, "setManualTuneByRf", "(S)Z", jshort(21)));
    EXPECT_EQ(currentTsid(p), 100);
    EXPECT_FALSE(th::callZ(p, "setManualTuneByRf", "(S)Z", jshort(60))) << "nothing on RF 60";
    EXPECT_EQ(currentTsid(p), 100);
    EXPECT_FALSE(th::callZ(p, "processKey", "(IZ)Z", 16, JNI_TRUE)) << "digit 9: no channel 9";

    // Events come from the service thread after the command returned.
    auto end = Clock::now() + std::chrono::seconds(5);
    while (countEvents("TVPLAYER_PROGRAM_INFO_READY") < 4 && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
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

    JNIEnv* e = th::env();
    jclass cls = th::findClass(kSat);
    jobject rec = e->AllocObject(cls);
    th::failOnPendingException();
    jstring name = e->NewStringUTF("Hotbird");
    e->SetObjectField(rec, e->GetFieldID(cls, "satName", "Ljava/lang/String;"), name);
    e->SetIntField(rec, e->GetFieldID(cls, "angle", "I"), 130);
    e->SetIntField(rec, e->GetFieldID(cls, "lowLOF", "I"), 9750);
    th::failOnPendingException();
    const char* sig = "(Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;)Z";
    ASSERT_TRUE(th::callZ(p, "addSatelliteInfo", sig, rec));
    ASSERT_EQ(th::callI(p, "getCurrentSatelliteCount", "()I"), 2);

    const char* getSig = "(I)Lcom/vireo/android/tvapi/dtv/dvb/dvbs/vo/SatelliteInfo;";
    jobject back = th::callL(p, "getSatelliteInfo", getSig, 1);
    ASSERT_NE(back, nullptr);
    auto text = static_cast<jstring>(
        e->GetObjectField(back, e->GetFieldID(cls, "satName", "Ljava/lang/String;")));
    EXPECT_EQ(th::toStdString(text), "Hotbird");
    EXPECT_EQ(intField(back, kSat, "angle"), 130);
    EXPECT_EQ(intField(back, kSat, "numberOfTp"), 0);

    // Transponders of the new satellite.
    EXPECT_EQ(th::callI(p, "getTransponderCount", "(I)I", 1), 0);
    EXPECT_EQ(th::callI(p, "getTransponderCount", "(I)I", 0), 1);

    // Deleting the first moves the new one to index 0.
    EXPECT_TRUE(th::callZ(p, "deleteSatelliteInfo", "(I)Z", 0));
    EXPECT_FALSE(th::callZ(p, "deleteSatelliteInfo", "(I)Z", 5)) << "no such satellite";
    EXPECT_EQ(th::callI(p, "getCurrentSatelliteCount", "()I"), 1);
    jobject first = th::callL(p, "getSatelliteInfo", getSig, 0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(intField(first, kSat, "angle"), 130);
    EXPECT_FALSE(th::callZ(p, "setCurrentSatelliteNumber", "(I)Z", 1)) << "out of range";
    EXPECT_TRUE(th::callZ(p, "setCurrentSatelliteNumber", "(I)Z", 0));
}

TEST_F(Simulator, TeletextGingaAndVChipFollowTheCommands) {
    jobject p = player(R"({"multiplexes": [{"channels": [
        {"number": 1, "teletext": true}, {"number": 2}]}],
        "timeline": [{"event": "SignalLock"}]})");
    ASSERT_TRUE(waitTimeline());
    EXPECT_TRUE(th::callZ(p, "hasTeletextSignal", "()Z"));
    EXPECT_TRUE(th::callZ(p, "native_openTeletext", "(I)Z", 1));
    EXPECT_TRUE(th::callZ(p, "isTeletextDisplayed", "()Z"));
    EXPECT_TRUE(th::callZ(p, "closeTeletext", "()Z"));
    EXPECT_FALSE(th::callZ(p, "isTeletextDisplayed", "()Z"));
    EXPECT_TRUE(th::callZ(p, "processKey", "(IZ)Z", 9, JNI_TRUE)) << "digit 2";
    EXPECT_FALSE(th::callZ(p, "hasTeletextSignal", "()Z")) << "channel 2 has none";
    EXPECT_FALSE(th::callZ(p, "native_openTeletext", "(I)Z", 1));

    EXPECT_FALSE(th::callZ(p, "isGingaEnabled", "()Z"));
    EXPECT_TRUE(th::callZ(p, "enableGinga", "()Z"));
    EXPECT_TRUE(th::callZ(p, "isGingaEnabled", "()Z"));
    EXPECT_TRUE(th::callZ(p, "disableGigna", "()Z"));
    EXPECT_FALSE(th::callZ(p, "isGingaEnabled", "()Z"));

    EXPECT_FALSE(th::callZ(p, "getCurrentVChipBlockStatus", "()Z"));
    EXPECT_TRUE(
        th::callZ(p, "setVChipGuideline", "(SSSS)Z", jshort(4), jshort(0), jshort(0), jshort(0)));
    EXPECT_TRUE(th::callZ(p, "getCurrentVChipBlockStatus", "()Z"));
    EXPECT_TRUE(th::callZ(p, "enterPassToUnlockByUser", "(Z)Z", JNI_TRUE));
    EXPECT_FALSE(th::callZ(p, "getCurrentVChipBlockStatus", "()Z"));

    th::callV(p, "setUserLocationCode", "(I)V", 27);
    EXPECT_EQ(th::callI(p, "getUserLocationCode", "()I"), 27);
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
    ASSERT_TRUE(waitTimeline());
    auto evs = th::events();
    std::vector<int> whats;
    for (const auto& e : evs) whats.push_back(e.what);
    int atv = th::staticInt("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO");
    int dtv = th::staticInt("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO");
    int rec = th::staticInt("TVPLAYER_PVR_RECORD_TIME");
    int hbb = th::staticInt("TVPLAYER_HBBTV_UI_EVENT");
    ASSERT_EQ(std::count(whats.begin(), whats.end(), atv), 11) << "0 % to 100 % in tenths";
    ASSERT_EQ(std::count(whats.begin(), whats.end(), dtv), 3) << "two multiplexes and the end";
    ASSERT_EQ(std::count(whats.begin(), whats.end(), rec), 3);
    ASSERT_EQ(std::count(whats.begin(), whats.end(), hbb), 1);
    // Order: the whole analogue scan, the digital scan, the ticks, the HbbTV event.
    std::vector<int> kinds;
    for (int w : whats) {
        if (kinds.empty() || kinds.back() != w) kinds.push_back(w);
    }
    EXPECT_EQ(kinds, (std::vector<int>{atv, dtv, rec, hbb}));
    size_t i = 0;
    for (const auto& e : evs) {
        if (e.what == atv) {
            EXPECT_EQ(e.ext2, 9) << "the step's ext2 closes the parcel";
        }
        if (e.what == rec) {
            EXPECT_EQ(e.ext1, 10 + static_cast<int>(i++)) << "ticks count up";
        }
        if (e.what == hbb) {
            EXPECT_EQ(e.ext2, 6);
            ASSERT_NE(e.obj, nullptr);
            EXPECT_EQ(intField(e.obj, "com/vireo/android/tvapi/common/vo/HbbtvEventInfo", "eEvent"),
                      4);
        }
    }
    th::releaseEvents(evs);
}

TEST_F(Simulator, FinalizeStopsARunningTimelineAndNothingArrivesAfterwards) {
    jobject p = player(R"({"timeline": [{"event": "PvrPlaybackTime", "repeat": 1000,
                                         "every_ms": 5}]})");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    th::callV(p, "native_finalize", "()V");
    th::env()->DeleteLocalRef(mPlayer);
    mPlayer = nullptr;
    ASSERT_TRUE(waitTimeline(2000)) << "the timeline ends with the connection";
    int seen = countEvents("TVPLAYER_PVR_PLAYBACK_TIME");
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
            JNIEnv* e = th::env();
            for (int i = 0; i < 200; ++i) {
                th::callZ(global, "processKey", "(IZ)Z", (i + t) % 2 ? 166 : 167, JNI_TRUE);
                int tsid = currentTsid(global);
                if (tsid != 1 && tsid != 2) bad++;
            }
            (void)e;
            th::vm()->DetachCurrentThread();
        });
    }
    for (auto& t : threads) t.join();
    th::env()->DeleteGlobalRef(global);
    EXPECT_EQ(bad.load(), 0);
    ASSERT_TRUE(waitTimeline());
    EXPECT_EQ(countEvents("TVPLAYER_EPG_UPDATE"), 300);
}

// ---- scenario files ----

std::string refusal(const std::string& name, const std::string& text) {
    std::string path = writeScenario(name, text);
    host::sim::Scenario s;
    std::string error;
    bool ok = host::sim::loadScenarioFile(path, s, error);
    std::remove(path.c_str());
    return ok ? "accepted" : error;
}

TEST(ScenarioFiles, RefusalsNameTheFileThePlaceAndWhatWasExpected) {
    std::string e = refusal("syntax.json", "{\n  \"name\": \"x\",\n  \"speed\": ,\n}");
    EXPECT_NE(e.find("syntax.json: line 3, column 12: malformed JSON"), std::string::npos) << e;

    e = refusal("member.json", R"({"timeline": [{"event": "SignalLock", "ext3": 1}]})");
    EXPECT_NE(e.find("at /timeline/0/ext3: unknown member; expected one of at_ms, event"),
              std::string::npos)
        << e;

    e = refusal("range.json", R"({"timeline": [{"at_ms": -5, "event": "SignalLock"}]})");
    EXPECT_NE(e.find("at /timeline/0/at_ms: expected an integer from 0 to 600000, got an "
                     "integer"),
              std::string::npos)
        << e;

    e = refusal("lang.json", R"({"multiplexes": [{"channels": [{"number": 1,
                                "audio": [{"language": "EN"}]}]}]})");
    EXPECT_NE(e.find("/multiplexes/0/channels/0/audio/0/language: expected a three-letter"),
              std::string::npos)
        << e;

    e = refusal("start.json", R"({"start_channel": 9, "multiplexes": [{"channels":
                                 [{"number": 1}]}]})");
    EXPECT_NE(e.find("at /start_channel: expected the number of a channel"), std::string::npos)
        << e;

    e = refusal("root.json", "[1, 2]");
    EXPECT_NE(e.find("root.json: at : expected an object, got an array"), std::string::npos) << e;

    EXPECT_EQ(refusal("empty_ok.json", "{}"), "accepted") << "every member has a default";
}

TEST(ScenarioFiles, ARefusedFileKeepsThePreviousChoiceAndTheShippedExamplesLoad) {
    std::string bad = writeScenario("bad.json", R"({"speed": "fast"})");
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
