// Event dispatch through a real VM: every listener operation and every native event number
// the service uses reaches the managed postEventFromNative with the managed code of the
// expected name, the signal status, unknown numbers, a listener without a runtime, and
// events racing the player's life cycle.
#include <android/log.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <set>
#include <thread>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;

std::string hex(int n) {
    char buf[16];
    snprintf(buf, sizeof buf, "%#x", n);
    return buf;
}

class Events : public th::PlayerTest {
protected:
    Events() : PlayerTest(kSkipInChild | kClearEvents | kWarningsBeforeRelease) {}
    // Runs `event` on a service thread and returns what reached the managed side.
    std::vector<th::Event> fire(std::function<void(PlayerImplListener&)> event, int thread = 0) {
        th::clearEvents();
        fake->fire(std::move(event), thread);
        return th::events();
    }
    void expectOnePost(std::vector<th::Event> evs, const char* field, int ext1, int ext2,
                       const std::string& what) {
        ASSERT_EQ(evs.size(), 1u) << what;
        EXPECT_EQ(evs[0].what, th::staticInt(field)) << what << " should post " << field;
        EXPECT_EQ(evs[0].ext1, ext1) << what;
        EXPECT_EQ(evs[0].ext2, ext2) << what;
        EXPECT_EQ(evs[0].obj, nullptr) << what;
        th::releaseEvents(evs);
    }
};

// ---- The service's listener operations, as its interface documents them ----

using TwoInts = void (PlayerImplListener::*)(int, int);
struct Operation {
    const char* name;  // also the DEBUG line each operation writes
    TwoInts op;
    const char* field;
};
#define OPERATION(name, field) \
    { #name, &PlayerImplListener::name, "TVPLAYER_" field }
const Operation kOperations[] = {
    OPERATION(PostEvent_ChannelNameReady, "DTV_CHANNEL_NAME_READY"),
    OPERATION(PostEvent_ProgramInfoReady, "PROGRAM_INFO_READY"),
    OPERATION(PostEvent_SignalLock, "SIGNAL_LOCK"),
    OPERATION(PostEvent_SignalUnlock, "SIGNAL_UNLOCK"),
    OPERATION(PostEvent_PopupDialog, "POPUP_DIALOG"),
    OPERATION(PostEvent_ScreenSaverMode, "SCREEN_SAVER_MODE"),
    OPERATION(PostEvent_CiLoadCredentialFail, "CI_LOAD_CREDENTIAL_FAIL"),
    OPERATION(PostEvent_EpgTimerSimulcast, "EPG_TIMER_SIMULCAST"),
    OPERATION(PostEvent_HbbtvStatusMode, "HBBTV_STATUS_MODE"),
    OPERATION(PostEvent_Mheg5StatusMode, "MHEG5_STATUS_MODE"),
    OPERATION(PostEvent_Mheg5ReturnKey, "MHEG5_RETURN_KEY"),
    OPERATION(PostEvent_OadHandler, "OAD_HANDLER"),
    OPERATION(PostEvent_OadDownload, "OAD_DOWNLOAD"),
    OPERATION(PostEvent_PvrPlaybackTime, "PVR_PLAYBACK_TIME"),
    OPERATION(PostEvent_PvrPlaybackSpeedChange, "PVR_PLAYBACK_SPEED_CHANGE"),
    OPERATION(PostEvent_PvrRecordTime, "PVR_RECORD_TIME"),
    OPERATION(PostEvent_PvrRecordSize, "PVR_RECORD_SIZE"),
    OPERATION(PostEvent_PvrRecordStop, "PVR_RECORD_STOP"),
    OPERATION(PostEvent_PvrPlaybackStop, "PVR_PLAYBACK_STOP"),
    OPERATION(PostEvent_PvrPlaybackBegin, "PVR_PLAYBACK_BEGIN"),
    OPERATION(PostEvent_PvrTimeshiftBefore, "PVR_TIMESHIFT_OVERWRITE_BEFORE"),
    OPERATION(PostEvent_PvrTimeshiftAfter, "PVR_TIMESHIFT_OVERWRITE_AFTER"),
    OPERATION(PostEvent_OverRun, "PVR_OVERRUN"),
    OPERATION(PostEvent_UsbRemoved, "PVR_USB_REMOVED"),
    OPERATION(PostEvent_CiPlusProtection, "PVR_CI_PLUS_PROTECTION"),
    OPERATION(PostEvent_ParentalControl, "PVR_PARENTAL_CONTROL"),
    OPERATION(PostEvent_AlwaysTimeshiftProgramReady, "PVR_ALWAYS_TIMESHIFT_PROGRAM_READY"),
    OPERATION(PostEvent_AlwaysTimeShiftProgramNotReady, "PVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY"),
    OPERATION(PostEvent_PvrCiPlusRetentionLimit, "PVR_CI_PLUS_RETENTION_LIMIT_UPDATE"),
    OPERATION(PostEvent_AutoUpdateScan, "DTV_AUTO_UPDATE_SCAN"),
    OPERATION(PostEvent_TsChange, "TS_CHANGE"),
    OPERATION(PostEvent_PopupScanDialogLossSignal, "POPUP_SCAN_DIALOG_LOSS_SIGNAL"),
    OPERATION(PostEvent_PopupScanDialogNewMultiplex, "POPUP_SCAN_DIALOG_NEW_MULTIPLEX"),
    OPERATION(PostEvent_PopupScanDialogFreqChange, "POPUP_SCAN_DIALOG_FREQ_CHANGE"),
    OPERATION(PostEvent_RctPresence, "RCT_PRESENCE"),
    OPERATION(PostEvent_ChangeTtxStatus, "CHANGE_TTX_STATUS"),
    OPERATION(PostEvent_PriComponentMissing, "DTV_PRI_COMPONENT_MISSING"),
    OPERATION(PostEvent_AudioModeChange, "AUDIO_MODE_CHANGE"),
    OPERATION(PostEvent_Mheg5EventHandler, "MHEG5_EVENT_HANDLER"),
    OPERATION(PostEvent_OadTimeOut, "OAD_TIMEOUT"),
    OPERATION(PostEvent_GingaStatusMode, "GINGA_STATUS_MODE"),
    OPERATION(PostEvent_EpgUpdateList, "EPG_UPDATE_LIST"),
    OPERATION(PostEvent_4k2kHDMIDisablePip, "4K_UHD_HDMI_DISABLE_PIP"),
    OPERATION(PostEvent_4k2kHDMIDisablePop, "4K_UHD_HDMI_DISABLE_POP"),
    OPERATION(PostEvent_4k2kHDMIDisableDualView, "4K_UHD_HDMI_DISABLE_DUAL_VIEW"),
    OPERATION(PostEvent_4k2kHDMIDisableTravelingMode, "4K_UHD_HDMI_DISABLE_TRAVELING_MODE"),
    OPERATION(PostEvent_OPRefreshQuery, "CI_UI_OP_REFRESH_QUERY"),
    OPERATION(PostEvent_OPServiceList, "CI_UI_OP_SERVICE_LIST"),
    OPERATION(PostEvent_ExitOPServiceList, "CI_UI_OP_EXIT_SERVICE_LIST"),
    OPERATION(PostEvent_Emerency_Alert, "EMERGENCY_ALERT"),
    OPERATION(PostEvent_DtvChannelInfoUpdate, "DTV_CHANNEL_INFO_UPDATE"),
    OPERATION(PostEvent_EpgUpdate, "EPG_UPDATE"),
};
#undef OPERATION

// ---- The service's native event numbers ----
struct Number {
    int number;
    const char* field;
};
const Number kNotifyCBNumbers[] = {
    {0x20001022, "TVPLAYER_INPUT_SOURCE_LOCK"},
    {0x20001023, "TVPLAYER_SIGNAL_UNSTABLE"},
    {0x20001025, "TVPLAYER_DTV_VIDEO_INFO_READY"},
    {0x3ffffc38, "TVPLAYER_DISPLAY_EMERGENCY_SYSTEM"},
    {0x3ffffc39, "TVPLAYER_CLOSE_EMERGENCY_SYSTEM"},
    {0x3ffffc3f, "TVPLAYER_EVENT_EXCEED_CODEC_CAPABILITY"},
};

TEST_F(Events, EveryListenerOperationPostsItsCodeWithBothIntegers) {
    int i = 0;
    for (const Operation& o : kOperations) {
        // Extremes and ordinary values, so no narrowing hides behind a small number.
        const int ext1 = i % 3 == 0 ? INT32_MIN + i : i * 1000 + 7;
        const int ext2 = i % 2 == 0 ? INT32_MAX - i : -i - 1;
        ++i;
        th::clearLogs();
        expectOnePost(fire([&](PlayerImplListener& l) { (l.*o.op)(ext1, ext2); }, i % 2), o.field,
                      ext1, ext2, o.name);
        const std::string name = o.name;
        if (name == "PostEvent_ScreenSaverMode") {
            EXPECT_EQ(th::logsContaining("PostEvent_").size(), 0u) << "logs nothing of its own";
        } else if (name == "PostEvent_OadHandler") {
            EXPECT_TRUE(th::hasLog(D, "PostEvent_OadHandler ext1 = " + std::to_string(ext1) +
                                          ", ext2 = " + std::to_string(ext2)))
                << th::dumpLogs();
        } else {
            EXPECT_TRUE(th::hasLog(D, name)) << th::dumpLogs();
        }
    }
}

TEST_F(Events, EmptyOperationsPostAndLogNothing) {
    android::Parcel parcel;
    parcel.writeInt32(0x20001019);
    parcel.setDataPosition(0);
    th::clearLogs();
    auto evs = fire([&](PlayerImplListener& l) {
        l.PostEvent_SnServiceDeadth(1, 2);
        l.notify(0x20001019, parcel);
    });
    EXPECT_TRUE(evs.empty());
    EXPECT_TRUE(th::logs().empty()) << th::dumpLogs();
}

// The notify table as a whole is walked in tests/native (the service reaches it only through
// the lock, unlock and screen-saver operations, which are covered above).
TEST_F(Events, EveryNativeNumberOfTheGenericCallbackPostsItsCode) {
    int i = 0;
    android::Parcel ignored;
    ignored.writeInt32(99);
    for (const Number& n : kNotifyCBNumbers) {
        const int ext1 = INT32_MIN + i, ext2 = -i++;
        th::clearLogs();
        expectOnePost(
            fire([&](PlayerImplListener& l) { l.notifyCB(n.number, ext1, ext2, &ignored); }, 1),
            n.field, ext1, ext2, "notifyCB " + hex(n.number));
        EXPECT_EQ(th::countLog(E, "notifyCB event = " + std::to_string(n.number) + "\n"), 1)
            << th::dumpLogs();
    }
}

TEST_F(Events, UnknownNumbersAreLoggedAndNotPosted) {
    // Gaps inside the range, the other dispatcher's numbers, and the extremes (notify's own
    // unknown numbers are covered in tests/native).
    const int notifyCBUnknown[] = {0x20001024, 0x20001019, 0x3ffffc19, 0, -1};
    for (int n : notifyCBUnknown) {
        th::clearLogs();
        auto evs = fire([&](PlayerImplListener& l) { l.notifyCB(n, 1, 2, nullptr); });
        EXPECT_TRUE(evs.empty()) << hex(n);
        EXPECT_EQ(th::countLog(E, "Unknown event '" + hex(n) + "'"), 1) << th::dumpLogs();
        EXPECT_EQ(th::countLog(E, "notifyCB event = " + std::to_string(n) + "\n"), 1);
    }
}

TEST_F(Events, SignalStatusFollowsLockUnlockAndUnstableAcrossPlayers) {
    auto screenSaver = [&](int mode) {
        th::clearLogs();
        auto evs = fire([&](PlayerImplListener& l) { l.PostEvent_ScreenSaverMode(mode, 9); });
        th::releaseEvents(evs);
        auto lines = th::logsContaining("Screen saver mode");
        return lines.size() == 1 ? lines[0].text : th::dumpLogs();
    };
    auto signal = [&](TwoInts op) {
        th::clearLogs();
        auto evs = fire([&](PlayerImplListener& l) { (l.*op)(0, 0); });
        th::releaseEvents(evs);
    };

    signal(&PlayerImplListener::PostEvent_SignalLock);
    EXPECT_TRUE(th::hasLog(D, "PostEvent_SignalLock"));
    EXPECT_TRUE(th::hasLog(D, "Signal status: SIGNAL_LOCK"));
    EXPECT_EQ(screenSaver(5), "Screen saver mode = 5, Signal status:  = 2");

    signal(&PlayerImplListener::PostEvent_SignalUnlock);
    EXPECT_TRUE(th::hasLog(D, "Signal status: SIGNAL_UNLOCK"));
    EXPECT_EQ(screenSaver(-3), "Screen saver mode = -3, Signal status:  = 1");

    android::Parcel ignored;
    ignored.writeInt32(7);
    th::clearLogs();
    expectOnePost(fire([&](PlayerImplListener& l) { l.notifyCB(0x20001023, 11, -12, &ignored); }),
                  "TVPLAYER_SIGNAL_UNSTABLE", 11, -12, "unstable");
    EXPECT_TRUE(th::hasLog(D, "Signal status: SIGNAL_UNSTABLE"));
    EXPECT_EQ(screenSaver(0), "Screen saver mode = 0, Signal status:  = 0");

    // The status belongs to the process, not to a player object.
    signal(&PlayerImplListener::PostEvent_SignalLock);
    th::callV(player, "release", "()V");
    th::env()->DeleteLocalRef(player);
    player = th::newPlayer();
    fake = host::lastFakePlayer();
    EXPECT_EQ(screenSaver(1), "Screen saver mode = 1, Signal status:  = 2");
}

// A listener built while the player object's class cannot be had keeps no runtime: every
// event logs the attach error and posts nothing, and its destruction logs it too.
jclass noClass(JNIEnv*, jobject) { return nullptr; }

TEST_F(Events, AListenerWithoutARuntimeLogsTheAttachErrorAndPostsNothing) {
    using SetupFn = void (*)(JNIEnv*, jobject, jobject);
    auto setup = reinterpret_cast<SetupFn>(
        th::librarySymbol("com_vireo_android_tvapi_impl_PlayerImpl_native_setup"));
    ASSERT_NE(setup, nullptr);
    JNIEnv* e = th::env();
    jclass weakClass = th::findClass("java/lang/ref/WeakReference");
    jobject weak = e->NewObject(
        weakClass, e->GetMethodID(weakClass, "<init>", "(Ljava/lang/Object;)V"), player);
    th::failOnPendingException();

    // The same environment, with GetObjectClass answering null for the one set-up call.
    const JNINativeInterface* real = e->functions;
    JNINativeInterface patched = *real;
    patched.GetObjectClass = &noClass;
    th::clearLogs();
    e->functions = &patched;
    setup(e, player, weak);
    e->functions = real;
    e->DeleteLocalRef(weak);

    EXPECT_TRUE(th::hasLog(E, "Can't find com/vireo/android/tvapi/jninative/NativePlayerImpl"));
    EXPECT_TRUE(th::hasLog(E, "[Fatal jni_exception] JNIVSrvListener(418), java/lang/Exception"));
    fake = host::lastFakePlayer();
    ASSERT_NE(fake->listener(), nullptr) << "the listener is registered all the same";

    th::clearLogs();
    EXPECT_TRUE(fire([](PlayerImplListener& l) { l.PostEvent_TsChange(1, 2); }).empty());
    EXPECT_TRUE(fire([](PlayerImplListener& l) { l.notifyCB(0x20001022, 1, 2, nullptr); }).empty());
    android::Parcel p;
    p.writeInt32(1);
    p.setDataPosition(0);
    EXPECT_TRUE(fire([&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(p); }).empty());
    EXPECT_EQ(th::countLog(E, "Error! notify(448) AttachCurrentThread \n"), 1) << th::dumpLogs();
    EXPECT_EQ(th::countLog(E, "Error! notifyCB(645) AttachCurrentThread \n"), 1);
    EXPECT_EQ(th::countLog(E, "Error! PostEvent_HbbtvEvent(862) AttachCurrentThread \n"), 1);

    th::clearLogs();
    th::callV(player, "release", "()V");
    EXPECT_EQ(th::countLog(E, "Error! ~JNIVSrvListener(433) AttachCurrentThread \n"), 1)
        << th::dumpLogs();
}

// Two service threads deliver events of every shape while the managed thread sets players
// up and tears them down (which also deletes and remakes the shared scan objects).
TEST_F(Events, ServiceThreadsKeepPostingWhilePlayersComeAndGo) {
    std::set<int> codes;
    for (const Operation& o : kOperations) codes.insert(th::staticInt(o.field));
    for (const Number& n : kNotifyCBNumbers) codes.insert(th::staticInt(n.field));
    for (const char* f : {"TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO",
                          "TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", "TVPLAYER_HBBTV_UI_EVENT"}) {
        codes.insert(th::staticInt(f));
    }

    std::mutex lock;
    android::sp<PlayerImplListener> current = fake->listener();
    std::atomic<bool> stop{false};
    std::atomic<int> fired{0};
    for (int t = 0; t < host::kServiceThreads; ++t) {
        host::postToServiceThread(t, [&, t] {
            android::Parcel atv, dtv, hbb;
            for (int v = 1; v <= 6; ++v) atv.writeInt32(v);
            for (int v = 1; v <= 11; ++v) dtv.writeInt32(v);
            dtv.writeString8(android::String8("RF"));
            dtv.writeInt32(13);
            for (int v = 1; v <= 12; ++v) hbb.writeInt32(v);
            for (int n = 0; !stop.load(); ++n) {
                android::sp<PlayerImplListener> l;
                {
                    std::lock_guard<std::mutex> g(lock);
                    l = current;
                }
                atv.setDataPosition(0);
                dtv.setDataPosition(0);
                hbb.setDataPosition(0);
                switch ((n + t) % 5) {
                    case 0:
                        l->PostEvent_AtvAutoTuning(atv);
                        break;
                    case 1:
                        l->PostEvent_DtvAutoTuning(dtv);
                        break;
                    case 2:
                        l->PostEvent_HbbtvEvent(hbb);
                        break;
                    case 3:
                        l->notifyCB(0x20001025, n, t, nullptr);
                        break;
                    default:
                        l->PostEvent_SignalLock(n, t);
                        break;
                }
                fired.fetch_add(1);
            }
        });
    }
    // Until both threads are well under way, and for a bounded time.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (int round = 0;
         (round < 200 || fired.load() < 20000) && std::chrono::steady_clock::now() < deadline;
         ++round) {
        jobject next = th::newPlayer();
        {
            std::lock_guard<std::mutex> g(lock);
            current = host::lastFakePlayer()->listener();
        }
        th::callV(player, "release", "()V");
        th::env()->DeleteLocalRef(player);
        player = next;
        if (round % 8 == 0) th::clearLogs();
        if (round % 32 == 0) th::clearEvents();
    }
    stop = true;
    for (int t = 0; t < host::kServiceThreads; ++t) host::runOnServiceThread(t, [] {});
    {
        std::lock_guard<std::mutex> g(lock);
        current.clear();
    }
    fake = host::lastFakePlayer();
    th::clearLogs();

    auto evs = th::events();
    EXPECT_GE(fired.load(), 20000);
    EXPECT_GT(evs.size(), 0u);
    for (const th::Event& ev : evs) {
        ASSERT_TRUE(codes.count(ev.what)) << "posted code " << ev.what;
    }
    th::releaseEvents(evs);
    th::clearEvents();
}

}  // namespace
