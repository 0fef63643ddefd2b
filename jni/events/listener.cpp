#include "core/log.h"

#include "events/listener.h"

#include <atomic>

#include "core/context.h"
#include "core/frame.h"
#include "events/event_codes.h"
#include "events/payloads.h"

namespace pij {

namespace {

// 0 unstable, 1 unlocked, 2 locked. Process-wide, survives player objects; only read to be
// logged with the screen-saver event.
std::atomic<int> gSignalStatus{0};

struct Dispatch {
    int number;  // the service's native event number
    EventCode code;
};

// Native numbers accepted by notify, in the service's numbering.
constexpr Dispatch kNotifyTable[] = {
#define PIJ_EVENT(number, code, operation) {number, code},
#define PIJ_EVENT_OWN(number, code, operation) {number, code},
#define PIJ_PARCEL_EVENT(number, code) {number, code},
#define PIJ_CALLBACK_EVENT(number, code)
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT
};

// Native numbers accepted by notifyCB, the service's generic callback.
constexpr Dispatch kNotifyCBTable[] = {
#define PIJ_EVENT(number, code, operation)
#define PIJ_EVENT_OWN(number, code, operation)
#define PIJ_PARCEL_EVENT(number, code)
#define PIJ_CALLBACK_EVENT(number, code) {number, code},
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT
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

// What the dispatchers do besides posting, for the signal and screen-saver events.
void applyExtra(EventCode code, int ext1) {
    switch (code) {
        case ESIGNAL_UNLOCK:
            gSignalStatus.store(1);
            ALOGD("Signal status: SIGNAL_UNLOCK");
            break;
        case ESIGNAL_LOCK:
            gSignalStatus.store(2);
            ALOGD("Signal status: SIGNAL_LOCK");
            break;
        case ESIGNAL_UNSTABLE:
            gSignalStatus.store(0);
            ALOGD("Signal status: SIGNAL_UNSTABLE");
            break;
        case ESCREEN_SAVER_MODE:
            ALOGD("Screen saver mode = %d, Signal status:  = %d", ext1, gSignalStatus.load());
            break;
        default:
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
    applyExtra(row->code, ext1);
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
    applyExtra(row->code, ext1);
    post(env, eventCode(row->code), ext1, ext2, nullptr);
}

// The two-integer operations that post their code with ext1 and ext2 unchanged.
#define PIJ_EVENT(number, code, operation)                                     \
    void JNIVSrvListener::operation(int ext1, int ext2) {                      \
        ALOGD(#operation);                                                     \
        post(beginEvent("notify", 448), eventCode(code), ext1, ext2, nullptr); \
    }
#define PIJ_EVENT_OWN(number, code, operation)
#define PIJ_PARCEL_EVENT(number, code)
#define PIJ_CALLBACK_EVENT(number, code)
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT

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
