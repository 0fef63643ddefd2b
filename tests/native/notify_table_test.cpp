// The listener's dispatch of the service's events, in the library's own objects, with the
// stand-in VM recording what would be posted. The service reaches the notify
// dispatcher only through the lock, unlock and screen-saver operations, so its table is
// driven here directly, together with every two-integer operation, the signal status the
// dispatchers keep, and a listener that has no runtime. The managed codes are looked up by
// field name, as native_init reads them: each field answers a value of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "core/context.h"
#include "core/handlers.h"
#include "event_rows.h"
#include "events/listener.h"
#include "double/stand_in_vm.h"

namespace {

std::vector<std::pair<int, std::string>> gLogs;  // priority and text

using Post = std::tuple<jint, jint, jint, jobject>;  // code, ext1, ext2, object
std::vector<Post> gPosts;

// The managed code native_init read from the field of this name.
jint codeFor(const std::string& field) { return fake::codeOf(field); }

// The managed player object and its weak reference, as native_setup hands them over.
jobject gThiz;
jobject gWeak;

class NotifyTable : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        fake::installEnvironment();
        fake::gOnLog = [](int prio, const char* text) { gLogs.emplace_back(prio, text); };
        fake::gOnPost = [](jint code, jint ext1, jint ext2, jobject obj) {
            gPosts.push_back(Post{code, ext1, ext2, obj});
        };
        gThiz = fake::keepLocal(&fake::gPlayerObject);
        gWeak = fake::keepLocal(&fake::gWeakObject);
        com_vireo_android_tvapi_impl_PlayerImpl_native_init(&fake::gEnv, nullptr);
    }
    void SetUp() override {
        listener = new pij::JNIVSrvListener(&fake::gEnv, gThiz, gWeak);
        gPosts.clear();
        gLogs.clear();
    }
    static int countLog(int prio, const std::string& text) {
        return std::count(gLogs.begin(), gLogs.end(), std::make_pair(prio, text));
    }
    android::sp<pij::JNIVSrvListener> listener;
};

std::string hex(int n) {
    char buf[16];
    snprintf(buf, sizeof buf, "%#x", n);
    return buf;
}

TEST_F(NotifyTable, EveryNumberAndOperationPostsTheCodeOfItsFieldWithItsArguments) {
    int i = 0;
    for (const EventRow& row : kEventRows) {
        SCOPED_TRACE(hex(row.number) + " " + row.field);
        const jint code = codeFor(std::string("TVPLAYER_") + row.field);
        // Extremes and ordinary values, so no narrowing hides behind a small number.
        const int ext1 = i % 3 == 0 ? INT32_MIN + i : -1000 - i;
        const int ext2 = i % 2 == 0 ? INT32_MAX - i : 0x7fff0000 + i;
        jobject obj = reinterpret_cast<jobject>(0x1000 + i++);
        gPosts.clear();
        listener->notify(row.number, ext1, ext2, obj);
        EXPECT_EQ(gPosts, (std::vector<Post>{{code, ext1, ext2, obj}}));
        if (row.op == nullptr) continue;

        const std::string name = std::string("PostEvent_") + row.name;
        gPosts.clear();
        gLogs.clear();
        ((*listener).*row.op)(ext1, ext2);
        EXPECT_EQ(gPosts, (std::vector<Post>{{code, ext1, ext2, nullptr}})) << name;
        // Each logs its name (the OAD handler with its arguments); the screen saver logs only
        // the signal status line, checked below.
        const std::string line =
            name != "PostEvent_OadHandler"
                ? name
                : name + " ext1 = " + std::to_string(ext1) + ", ext2 = " + std::to_string(ext2);
        EXPECT_EQ(countLog(3, line), name == "PostEvent_ScreenSaverMode" ? 0 : 1) << name;
    }
}

TEST_F(NotifyTable, UnknownNumbersOnlyLogAndEmptyHandlersDoNothing) {
    for (int n : {0x20001005, 0x20001023, 0x20001025, 0x20001002, 0x3ffffc1d, 0, -1, INT32_MIN}) {
        listener->notify(n, 1, 2, nullptr);
        EXPECT_EQ(countLog(6, "Unknown event '" + hex(n) + "'"), 1) << hex(n);
    }
    gLogs.clear();
    listener->notify(0x20001019, android::Parcel());
    listener->PostEvent_SnServiceDeadth(1, 2);
    listener->PostEvent_DtvPsipTsUpdate(3, 4);
    EXPECT_TRUE(gPosts.empty());
    EXPECT_TRUE(gLogs.empty());
}

// The status belongs to the process: the screen-saver line shows the last one any listener
// saw (2 locked, 1 unlocked, 0 unstable).
TEST_F(NotifyTable, TheScreenSaverLineShowsTheLastSignalStatus) {
    auto screenSaverAfter = [&](const char* status, int mode) {
        EXPECT_EQ(countLog(3, std::string("Signal status: ") + status), 1);
        gLogs.clear();
        listener->PostEvent_ScreenSaverMode(mode, 9);
        return gLogs.size() == 1 ? gLogs[0].second : "";
    };
    listener->PostEvent_SignalLock(0, 0);
    EXPECT_EQ(screenSaverAfter("SIGNAL_LOCK", 5), "Screen saver mode = 5, Signal status:  = 2");
    listener->PostEvent_SignalUnlock(0, 0);
    EXPECT_EQ(screenSaverAfter("SIGNAL_UNLOCK", -3), "Screen saver mode = -3, Signal status:  = 1");
    android::Parcel ignored;
    listener->notifyCB(0x20001023, 11, -12, &ignored);
    EXPECT_EQ(screenSaverAfter("SIGNAL_UNSTABLE", 0), "Screen saver mode = 0, Signal status:  = 0");
    listener->PostEvent_SignalLock(0, 0);
    listener = new pij::JNIVSrvListener(&fake::gEnv, gThiz, gWeak);  // another player's
    EXPECT_EQ(screenSaverAfter("SIGNAL_LOCK", 1), "Screen saver mode = 1, Signal status:  = 2");
}

// A listener built while the player object's class cannot be had keeps no runtime: every
// event logs the attach error of its handler and posts nothing, and so does its end.
TEST_F(NotifyTable, AListenerWithoutARuntimeLogsTheAttachErrorAndPostsNothing) {
    const auto getObjectClass = fake::gFunctions.GetObjectClass;
    fake::gFunctions.GetObjectClass = [](JNIEnv*, jobject) -> jclass { return nullptr; };
    listener = new pij::JNIVSrvListener(&fake::gEnv, gThiz, gWeak);
    fake::gFunctions.GetObjectClass = getObjectClass;
    EXPECT_EQ(countLog(6, "Can't find com/vireo/android/tvapi/jninative/NativePlayerImpl"), 1);
    EXPECT_EQ(countLog(6, "[Fatal jni_exception] JNIVSrvListener(418), java/lang/Exception"), 1);

    android::Parcel empty;
    listener->PostEvent_TsChange(1, 2);
    listener->notifyCB(0x20001022, 1, 2, nullptr);
    listener->PostEvent_AtvAutoTuning(empty);
    listener->PostEvent_ManualTuning(empty);
    listener->PostEvent_DtvAutoTuning(empty);
    listener->PostEvent_HbbtvEvent(empty);
    listener.clear();
    EXPECT_TRUE(gPosts.empty());
    for (const char* at : {"notify(448)", "notifyCB(645)", "PostEvent_AtvAutoTuning(691)",
                           "PostEvent_ManualTuning(729)", "PostEvent_DtvAutoTuning(768)",
                           "PostEvent_HbbtvEvent(862)", "~JNIVSrvListener(433)"}) {
        EXPECT_EQ(countLog(6, std::string("Error! ") + at + " AttachCurrentThread \n"), 1) << at;
    }
}

}  // namespace
