// The service's generic notification numbers. The service reaches the listener's notify
// dispatcher only through the lock, unlock and screen-saver operations, so the rest of its
// table is driven here directly, in the library's own objects, with a stand-in for the VM
// that records what would be posted. The managed codes are looked up by field name, as the
// library reads them in native_init: each field answers a value of its own.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "core/context.h"
#include "core/handlers.h"
#include "events/listener.h"

namespace {

struct LogLine {
    int prio;
    std::string text;
};
std::mutex gLogLock;
std::vector<LogLine> gLogs;

struct Post {
    jint code, ext1, ext2;
    jobject obj;
};
std::vector<Post> gPosts;

// Field ids are 1-based indexes into the names the library asked for.
std::vector<std::string> gStaticFields;
std::map<std::string, jint> gCodes;

jint codeFor(const std::string& field) {
    auto it = gCodes.find(field);
    if (it != gCodes.end()) return it->second;
    jint v = 5000 + static_cast<jint>(gCodes.size()) * 7;  // distinct per field
    gCodes[field] = v;
    return v;
}

jclass JNICALL findClass(JNIEnv*, const char*) { return reinterpret_cast<jclass>(0x10); }
jfieldID JNICALL getFieldID(JNIEnv*, jclass, const char*, const char*) {
    return reinterpret_cast<jfieldID>(0x20);
}
jmethodID JNICALL getStaticMethodID(JNIEnv*, jclass, const char*, const char*) {
    return reinterpret_cast<jmethodID>(0x30);
}
jfieldID JNICALL getStaticFieldID(JNIEnv*, jclass, const char* name, const char*) {
    gStaticFields.emplace_back(name);
    return reinterpret_cast<jfieldID>(gStaticFields.size());
}
jint JNICALL getStaticIntField(JNIEnv*, jclass, jfieldID id) {
    return codeFor(gStaticFields.at(reinterpret_cast<size_t>(id) - 1));
}
void JNICALL deleteLocalRef(JNIEnv*, jobject) {}
jclass JNICALL getObjectClass(JNIEnv*, jobject) { return reinterpret_cast<jclass>(0x10); }
jobject JNICALL newGlobalRef(JNIEnv*, jobject o) { return o; }
void JNICALL deleteGlobalRef(JNIEnv*, jobject) {}
jboolean JNICALL exceptionCheck(JNIEnv*) { return JNI_FALSE; }
void JNICALL callStaticVoidMethodV(JNIEnv*, jclass, jmethodID, va_list args) {
    va_arg(args, jobject);  // the weak reference
    Post p;
    p.code = va_arg(args, jint);
    p.ext1 = va_arg(args, jint);
    p.ext2 = va_arg(args, jint);
    p.obj = va_arg(args, jobject);
    gPosts.push_back(p);
}

JNINativeInterface gFunctions;
JNIEnv gEnv;
JNIInvokeInterface gInvoke;
JavaVM gVm;

jint JNICALL getJavaVM(JNIEnv*, JavaVM** vm) {
    *vm = &gVm;
    return JNI_OK;
}
jint JNICALL attach(JavaVM*, JNIEnv** env, void*) {
    *env = &gEnv;
    return JNI_OK;
}

class NotifyTable : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        std::memset(&gFunctions, 0, sizeof gFunctions);
        gFunctions.FindClass = findClass;
        gFunctions.GetFieldID = getFieldID;
        gFunctions.GetStaticMethodID = getStaticMethodID;
        gFunctions.GetStaticFieldID = getStaticFieldID;
        gFunctions.GetStaticIntField = getStaticIntField;
        gFunctions.DeleteLocalRef = deleteLocalRef;
        gFunctions.GetObjectClass = getObjectClass;
        gFunctions.NewGlobalRef = newGlobalRef;
        gFunctions.DeleteGlobalRef = deleteGlobalRef;
        gFunctions.ExceptionCheck = exceptionCheck;
        gFunctions.CallStaticVoidMethodV = callStaticVoidMethodV;
        gFunctions.GetJavaVM = getJavaVM;
        gEnv.functions = &gFunctions;
        std::memset(&gInvoke, 0, sizeof gInvoke);
        gInvoke.AttachCurrentThread = attach;
        gVm.functions = &gInvoke;
        PIJ_IMPL(native_init)(&gEnv, nullptr);
    }
    void SetUp() override {
        listener = new pij::JNIVSrvListener(&gEnv, reinterpret_cast<jobject>(0x40),
                                            reinterpret_cast<jobject>(0x50));
        gPosts.clear();
        std::lock_guard<std::mutex> guard(gLogLock);
        gLogs.clear();
    }
    int countLog(int prio, const std::string& text) {
        std::lock_guard<std::mutex> guard(gLogLock);
        int n = 0;
        for (const LogLine& l : gLogs) n += l.prio == prio && l.text == text;
        return n;
    }
    android::sp<pij::JNIVSrvListener> listener;
};

struct Number {
    int number;
    const char* field;
};
// The service's numbering of the events it reports through notify.
const Number kNotifyNumbers[] = {
    {0x20001003, "TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO"},
    {0x20001004, "TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO"},
    {0x20001006, "TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO"},
    {0x2000100b, "TVPLAYER_DTV_CHANNEL_NAME_READY"},
    {0x2000100c, "TVPLAYER_PROGRAM_INFO_READY"},
    {0x2000100e, "TVPLAYER_DTV_PRI_COMPONENT_MISSING"},
    {0x2000100f, "TVPLAYER_DTV_AUTO_UPDATE_SCAN"},
    {0x20001012, "TVPLAYER_DTV_CHANNEL_INFO_UPDATE"},
    {0x20001018, "TVPLAYER_SIGNAL_UNLOCK"},
    {0x20001019, "TVPLAYER_SIGNAL_LOCK"},
    {0x2000101a, "TVPLAYER_TS_CHANGE"},
    {0x2000101b, "TVPLAYER_POPUP_DIALOG"},
    {0x2000101c, "TVPLAYER_SCREEN_SAVER_MODE"},
    {0x20001020, "TVPLAYER_EMERGENCY_ALERT"},
    {0x20003003, "TVPLAYER_EPG_UPDATE_LIST"},
    {0x20003006, "TVPLAYER_EPG_TIMER_SIMULCAST"},
    {0x20003009, "TVPLAYER_EPG_UPDATE"},
    {0x20004002, "TVPLAYER_PVR_PLAYBACK_TIME"},
    {0x20004003, "TVPLAYER_PVR_PLAYBACK_SPEED_CHANGE"},
    {0x20004004, "TVPLAYER_PVR_RECORD_TIME"},
    {0x20004005, "TVPLAYER_PVR_RECORD_SIZE"},
    {0x20004007, "TVPLAYER_PVR_RECORD_STOP"},
    {0x20004008, "TVPLAYER_PVR_PLAYBACK_STOP"},
    {0x20004009, "TVPLAYER_PVR_PLAYBACK_BEGIN"},
    {0x2000400b, "TVPLAYER_PVR_TIMESHIFT_OVERWRITE_BEFORE"},
    {0x2000400c, "TVPLAYER_PVR_TIMESHIFT_OVERWRITE_AFTER"},
    {0x2000400d, "TVPLAYER_PVR_OVERRUN"},
    {0x2000400f, "TVPLAYER_PVR_USB_REMOVED"},
    {0x20004011, "TVPLAYER_PVR_CI_PLUS_PROTECTION"},
    {0x20004012, "TVPLAYER_PVR_CI_PLUS_RETENTION_LIMIT_UPDATE"},
    {0x20004016, "TVPLAYER_PVR_PARENTAL_CONTROL"},
    {0x20004024, "TVPLAYER_PVR_ALWAYS_TIMESHIFT_PROGRAM_READY"},
    {0x20004025, "TVPLAYER_PVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY"},
    {0x2000500f, "TVPLAYER_CI_LOAD_CREDENTIAL_FAIL"},
    {0x20005012, "TVPLAYER_CI_UI_OP_REFRESH_QUERY"},
    {0x20010009, "TVPLAYER_RCT_PRESENCE"},
    {0x2001000c, "TVPLAYER_AUDIO_MODE_CHANGE"},
    {0x20010011, "TVPLAYER_CHANGE_TTX_STATUS"},
    {0x20010012, "TVPLAYER_MHEG5_EVENT_HANDLER"},
    {0x20010013, "TVPLAYER_MHEG5_RETURN_KEY"},
    {0x20010014, "TVPLAYER_MHEG5_STATUS_MODE"},
    {0x20010018, "TVPLAYER_OAD_HANDLER"},
    {0x20010019, "TVPLAYER_OAD_DOWNLOAD"},
    {0x2001001b, "TVPLAYER_OAD_TIMEOUT"},
    {0x2001001d, "TVPLAYER_POPUP_SCAN_DIALOG_LOSS_SIGNAL"},
    {0x2001001e, "TVPLAYER_POPUP_SCAN_DIALOG_NEW_MULTIPLEX"},
    {0x2001001f, "TVPLAYER_POPUP_SCAN_DIALOG_FREQ_CHANGE"},
    {0x20010025, "TVPLAYER_HBBTV_UI_EVENT"},
    {0x2001002f, "TVPLAYER_HBBTV_STATUS_MODE"},
    {0x20010030, "TVPLAYER_GINGA_STATUS_MODE"},
    {0x2001201a, "TVPLAYER_CI_UI_OP_SERVICE_LIST"},
    {0x2001201b, "TVPLAYER_CI_UI_OP_EXIT_SERVICE_LIST"},
    {0x3ffffc19, "TVPLAYER_4K_UHD_HDMI_DISABLE_PIP"},
    {0x3ffffc1a, "TVPLAYER_4K_UHD_HDMI_DISABLE_POP"},
    {0x3ffffc1b, "TVPLAYER_4K_UHD_HDMI_DISABLE_DUAL_VIEW"},
    {0x3ffffc1c, "TVPLAYER_4K_UHD_HDMI_DISABLE_TRAVELING_MODE"},
};
std::string hex(int n) {
    char buf[16];
    snprintf(buf, sizeof buf, "%#x", n);
    return buf;
}

TEST_F(NotifyTable, NativeInitReadsEveryCodeOnce) {
    // 63 fields, the discarded one included.
    EXPECT_EQ(gStaticFields.size(), 63u);
    std::map<std::string, int> seen;
    for (const std::string& f : gStaticFields) ++seen[f];
    for (const auto& kv : seen) EXPECT_EQ(kv.second, 1) << kv.first;
    EXPECT_EQ(seen.count("TVPLAYER_DTV_PSIP_TS_UPDATE"), 1u);
}

TEST_F(NotifyTable, EveryNumberPostsTheCodeOfItsFieldWithItsArguments) {
    int i = 0;
    for (const Number& n : kNotifyNumbers) {
        gPosts.clear();
        jobject obj = reinterpret_cast<jobject>(0x1000 + i);
        const int ext1 = -1000 - i, ext2 = 0x7fff0000 + i++;
        listener->notify(n.number, ext1, ext2, obj);
        ASSERT_EQ(gPosts.size(), 1u) << hex(n.number);
        EXPECT_EQ(gPosts[0].code, codeFor(n.field)) << hex(n.number) << " should post " << n.field;
        EXPECT_EQ(gPosts[0].ext1, ext1);
        EXPECT_EQ(gPosts[0].ext2, ext2);
        EXPECT_EQ(gPosts[0].obj, obj) << "notify passes its object through";
    }
}

TEST_F(NotifyTable, UnknownNumbersAreLoggedAndNotPosted) {
    for (int n : {0x20001005, 0x20001023, 0x20001025, 0x20001002, 0x3ffffc1d, 0, -1, INT32_MIN}) {
        gPosts.clear();
        listener->notify(n, 1, 2, nullptr);
        EXPECT_TRUE(gPosts.empty()) << hex(n);
        EXPECT_EQ(countLog(6, "Unknown event '" + hex(n) + "'"), 1) << hex(n);
    }
}

}  // namespace

// The library's log lines land here.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int prio, const char*,
                                                                          const char* fmt, ...) {
    char buf[1024];
    va_list ap;
    va_start(ap, fmt);
    vsnprintf(buf, sizeof buf, fmt, ap);
    va_end(ap);
    std::lock_guard<std::mutex> guard(gLogLock);
    gLogs.push_back(LogLine{prio, buf});
    return 1;
}
