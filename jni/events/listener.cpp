#include "events/listener.h"

#include <atomic>

#include "core/context.h"
#include "core/frame.h"
#include "core/log.h"
#include "events/event_codes.h"
#include "events/payloads.h"

namespace pij {

namespace {

// 0 unstable, 1 unlocked, 2 locked. Process-wide, survives player objects; only read to be
// logged with the screen-saver event.
std::atomic<int> gSignalStatus{0};

enum class Extra { None, SignalUnlock, SignalLock, SignalUnstable, ScreenSaver };

struct Dispatch {
    int number;  // the service's native event number
    EventCode code;
    Extra extra;
};

// Native numbers accepted by notify, in the service's numbering.
constexpr Dispatch kNotifyTable[] = {
    {0x20001003, EATV_AUTO_TUNING_SCAN_INFO, Extra::None},
    {0x20001004, EATV_MANUAL_TUNING_SCAN_INFO, Extra::None},
    {0x20001006, EDTV_AUTO_TUNING_SCAN_INFO, Extra::None},
    {0x2000100b, EDTV_CHANNEL_NAME_READY, Extra::None},
    {0x2000100c, EPROGRAM_INFO_READY, Extra::None},
    {0x2000100e, EDTV_PRI_COMPONENT_MISSING, Extra::None},
    {0x2000100f, EDTV_AUTO_UPDATE_SCAN, Extra::None},
    {0x20001012, EDTV_CHANNEL_INFO_UPDATE, Extra::None},
    {0x20001018, ESIGNAL_UNLOCK, Extra::SignalUnlock},
    {0x20001019, ESIGNAL_LOCK, Extra::SignalLock},
    {0x2000101a, ETS_CHANGE, Extra::None},
    {0x2000101b, EPOPUP_DIALOG, Extra::None},
    {0x2000101c, ESCREEN_SAVER_MODE, Extra::ScreenSaver},
    {0x20001020, EEMERGENCY_ALERT, Extra::None},
    {0x20003003, EEPG_UPDATE_LIST, Extra::None},
    {0x20003006, EEPG_TIMER_SIMULCAST, Extra::None},
    {0x20003009, EEPG_UPDATE, Extra::None},
    {0x20004002, EPVR_PLAYBACK_TIME, Extra::None},
    {0x20004003, EPVR_PLAYBACK_SPEED_CHANGE, Extra::None},
    {0x20004004, EPVR_RECORD_TIME, Extra::None},
    {0x20004005, EPVR_RECORD_SIZE, Extra::None},
    {0x20004007, EPVR_RECORD_STOP, Extra::None},
    {0x20004008, EPVR_PLAYBACK_STOP, Extra::None},
    {0x20004009, EPVR_PLAYBACK_BEGIN, Extra::None},
    {0x2000400b, EPVR_TIMESHIFT_OVERWRITE_BEFORE, Extra::None},
    {0x2000400c, EPVR_TIMESHIFT_OVERWRITE_AFTER, Extra::None},
    {0x2000400d, EPVR_OVERRUN, Extra::None},
    {0x2000400f, EPVR_USB_REMOVED, Extra::None},
    {0x20004011, EPVR_CI_PLUS_PROTECTION, Extra::None},
    {0x20004012, EPVR_CI_PLUS_RETENTION_LIMIT_UPDATE, Extra::None},
    {0x20004016, EPVR_PARENTAL_CONTROL, Extra::None},
    {0x20004024, EPVR_ALWAYS_TIMESHIFT_PROGRAM_READY, Extra::None},
    {0x20004025, EPVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY, Extra::None},
    {0x2000500f, ECI_LOAD_CREDENTIAL_FAIL, Extra::None},
    {0x20005012, ECI_UI_OP_REFRESH_QUERY, Extra::None},
    {0x20010009, ERCT_PRESENCE, Extra::None},
    {0x2001000c, EAUDIO_MODE_CHANGE, Extra::None},
    {0x20010011, ECHANGE_TTX_STATUS, Extra::None},
    {0x20010012, EMHEG5_EVENT_HANDLER, Extra::None},
    {0x20010013, EMHEG5_RETURN_KEY, Extra::None},
    {0x20010014, EMHEG5_STATUS_MODE, Extra::None},
    {0x20010018, EOAD_HANDLER, Extra::None},
    {0x20010019, EOAD_DOWNLOAD, Extra::None},
    {0x2001001b, EOAD_TIMEOUT, Extra::None},
    {0x2001001d, EPOPUP_SCAN_DIALOG_LOSS_SIGNAL, Extra::None},
    {0x2001001e, EPOPUP_SCAN_DIALOG_NEW_MULTIPLEX, Extra::None},
    {0x2001001f, EPOPUP_SCAN_DIALOG_FREQ_CHANGE, Extra::None},
    {0x20010025, EHBBTV_UI_EVENT, Extra::None},
    {0x2001002f, EHBBTV_STATUS_MODE, Extra::None},
    {0x20010030, EGINGA_STATUS_MODE, Extra::None},
    {0x2001201a, ECI_UI_OP_SERVICE_LIST, Extra::None},
    {0x2001201b, ECI_UI_OP_EXIT_SERVICE_LIST, Extra::None},
    {0x3ffffc19, E4K_UHD_HDMI_DISABLE_PIP, Extra::None},
    {0x3ffffc1a, E4K_UHD_HDMI_DISABLE_POP, Extra::None},
    {0x3ffffc1b, E4K_UHD_HDMI_DISABLE_DUAL_VIEW, Extra::None},
    {0x3ffffc1c, E4K_UHD_HDMI_DISABLE_TRAVELING_MODE, Extra::None},
};

// Native numbers accepted by notifyCB, the service's generic callback.
constexpr Dispatch kNotifyCBTable[] = {
    {0x20001022, EINPUT_SOURCE_LOCK, Extra::None},
    {0x20001023, ESIGNAL_UNSTABLE, Extra::SignalUnstable},
    {0x20001025, EDTV_VIDEO_INFO_READY, Extra::None},
    {0x3ffffc38, EDISPLAY_EMERGENCY_SYSTEM, Extra::None},
    {0x3ffffc39, ECLOSE_EMERGENCY_SYSTEM, Extra::None},
    {0x3ffffc3f, EEVENT_EXCEED_CODEC_CAPABILITY, Extra::None},
};

template <size_t N>
const Dispatch* lookup(const Dispatch (&table)[N], int number) {
    for (const Dispatch& row : table) {
        if (row.number == number) {
            return &row;
        }
    }
    return nullptr;
}

void applyExtra(Extra extra, int ext1) {
    switch (extra) {
        case Extra::None:
            break;
        case Extra::SignalUnlock:
            gSignalStatus.store(1);
            ALOGD("Signal status: SIGNAL_UNLOCK");
            break;
        case Extra::SignalLock:
            gSignalStatus.store(2);
            ALOGD("Signal status: SIGNAL_LOCK");
            break;
        case Extra::SignalUnstable:
            gSignalStatus.store(0);
            ALOGD("Signal status: SIGNAL_UNSTABLE");
            break;
        case Extra::ScreenSaver:
            ALOGD("Screen saver mode = %d, Signal status:  = %d", ext1, gSignalStatus.load());
            break;
    }
}

}  // namespace

JNIVSrvListener::JNIVSrvListener(JNIEnv* env, jobject thiz, jobject weakThis) {
    jclass clazz = env->GetObjectClass(thiz);
    if (clazz == nullptr) {
        ALOGE("Can't find com/vireo/android/tvapi/jninative/NativePlayerImpl");
        reportFatal("JNIVSrvListener", 418, Exc::Exception);
        return;  // fields stay null: later events log the attach error
    }
    mClass = static_cast<jclass>(env->NewGlobalRef(clazz));
    mObject = env->NewGlobalRef(weakThis);
    env->GetJavaVM(&mJavaVM);
    env->DeleteLocalRef(clazz);
}

JNIVSrvListener::~JNIVSrvListener() {
    JNIEnv* env = attach("~JNIVSrvListener", 433);
    // On a service thread an exception from the last post may still be pending; deleting
    // references is allowed with it pending, and it stays for the next event to clear. The
    // look is for the workstation VM's checker, which wants one after every post.
    if (env != nullptr) {
        (void)env->ExceptionCheck();
        if (mObject != nullptr) env->DeleteGlobalRef(mObject);
        if (mClass != nullptr) env->DeleteGlobalRef(mClass);
    }
}

JNIEnv* JNIVSrvListener::attach(const char* op, int line) const {
    JNIEnv* env = nullptr;
    if (mJavaVM == nullptr || mJavaVM->AttachCurrentThread(&env, nullptr) != JNI_OK) {
        ALOGE("Error! %s(%d) AttachCurrentThread \n", op, line);
    }
    return env;
}

JNIEnv* JNIVSrvListener::beginEvent(const char* op, int line) const {
    JNIEnv* env = attach(op, line);
    if (env != nullptr && env->ExceptionCheck()) {
        clearStaleException(env);
    }
    return env;
}

// An exception the managed listener threw from an earlier post is still pending on this
// service thread (nothing looks at it after the post). Every JNI call made with it pending
// would be an error, and the device's runtime aborts the process on the first under
// CheckJNI: it is named in a WARN line and cleared before this event makes any other call.
void JNIVSrvListener::clearStaleException(JNIEnv* env) {
    jthrowable pending = env->ExceptionOccurred();
    env->ExceptionClear();
    jclass cls = env->GetObjectClass(pending);
    jclass classClass = env->FindClass("java/lang/Class");
    jmethodID getName = classClass != nullptr
                            ? env->GetMethodID(classClass, "getName", "()Ljava/lang/String;")
                            : nullptr;
    auto name =
        getName != nullptr ? static_cast<jstring>(env->CallObjectMethod(cls, getName)) : nullptr;
    env->ExceptionClear();  // a failure to name it is not worth more than "unknown"
    const char* chars = name != nullptr ? env->GetStringUTFChars(name, nullptr) : nullptr;
    ALOGW("An earlier event's listener left %s pending on this thread; cleared",
          chars != nullptr ? chars : "an exception");
    if (chars != nullptr) env->ReleaseStringUTFChars(name, chars);
    env->DeleteLocalRef(name);
    env->DeleteLocalRef(classClass);
    env->DeleteLocalRef(cls);
    env->DeleteLocalRef(pending);
}

// Without an environment there is nobody to post to: the attach line has been written and
// the event ends here rather than calling through a null environment.
void JNIVSrvListener::post(JNIEnv* env, jint code, jint ext1, jint ext2, jobject obj) const {
    if (env == nullptr || mClass == nullptr) {
        return;
    }
    // An exception the managed listener throws stays pending on this thread; the next event
    // on it clears it first (beginEvent).
    env->CallStaticVoidMethod(mClass, gPlayerFields.postEvent, mObject, code, ext1, ext2, obj);
}

void JNIVSrvListener::notify(int /*msg*/, const android::Parcel& /*obj*/) {}

void JNIVSrvListener::notify(int msg, int ext1, int ext2, jobject obj) {
    JNIEnv* env = beginEvent("notify", 448);
    const Dispatch* row = lookup(kNotifyTable, msg);
    if (row == nullptr) {
        ALOGE("Unknown event '%#x'", msg);
        return;
    }
    applyExtra(row->extra, ext1);
    post(env, eventCode(row->code), ext1, ext2, obj);
}

void JNIVSrvListener::notifyCB(int event, int ext1, int ext2, const android::Parcel* /*obj*/) {
    ALOGE("notifyCB event = %d\n", event);
    JNIEnv* env = beginEvent("notifyCB", 645);
    const Dispatch* row = lookup(kNotifyCBTable, event);
    if (row == nullptr) {
        ALOGE("Unknown event '%#x'", event);
        return;
    }
    applyExtra(row->extra, ext1);
    post(env, eventCode(row->code), ext1, ext2, nullptr);
}

#define PIJ_DECLARE_SIMPLE(handler, code)                                      \
    void JNIVSrvListener::handler(int ext1, int ext2) {                        \
        ALOGD(#handler);                                                       \
        post(beginEvent("notify", 448), eventCode(code), ext1, ext2, nullptr); \
    }
#include "events/simple_events.def"
#undef PIJ_DECLARE_SIMPLE

void JNIVSrvListener::PostEvent_SignalLock(int ext1, int ext2) {
    ALOGD("PostEvent_SignalLock");
    notify(0x20001019, ext1, ext2, nullptr);
}

void JNIVSrvListener::PostEvent_SignalUnlock(int ext1, int ext2) {
    ALOGD("PostEvent_SignalUnlock");
    notify(0x20001018, ext1, ext2, nullptr);
}

// Logs nothing of its own: the screen-saver line comes from notify.
void JNIVSrvListener::PostEvent_ScreenSaverMode(int ext1, int ext2) {
    notify(0x2000101c, ext1, ext2, nullptr);
}

void JNIVSrvListener::PostEvent_OadHandler(int ext1, int ext2) {
    ALOGD("PostEvent_OadHandler ext1 = %d, ext2 = %d", ext1, ext2);
    post(beginEvent("notify", 448), eventCode(EOAD_HANDLER), ext1, ext2, nullptr);
}

void JNIVSrvListener::PostEvent_SnServiceDeadth(int /*ext1*/, int /*ext2*/) {}

void JNIVSrvListener::PostEvent_DtvPsipTsUpdate(int /*ext1*/, int /*ext2*/) {}

void JNIVSrvListener::PostEvent_AtvAutoTuning(const android::Parcel& p) {
    postAtvScan(*this, p, AtvScanKind::Auto);
}

void JNIVSrvListener::PostEvent_ManualTuning(const android::Parcel& p) {
    postAtvScan(*this, p, AtvScanKind::Manual);
}

void JNIVSrvListener::PostEvent_DtvAutoTuning(const android::Parcel& p) { postDtvScan(*this, p); }

void JNIVSrvListener::PostEvent_HbbtvEvent(const android::Parcel& p) { postHbbtvEvent(*this, p); }

}  // namespace pij
