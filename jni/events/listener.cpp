#include "core/log.h"

#include "events/listener.h"

#include <atomic>

#include "core/context.h"
#include "core/frame.h"
#include "core/scoped.h"
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

// The service's number for an event that notify() dispatches, from the table above.
template <size_t N>
constexpr int numberOf(const Dispatch (&table)[N], EventCode code) {
    for (const Dispatch& row : table) {
        if (row.code == code) return row.number;
    }
    return 0;
}
constexpr int kSignalLockNumber = numberOf(kNotifyTable, ESIGNAL_LOCK);
constexpr int kSignalUnlockNumber = numberOf(kNotifyTable, ESIGNAL_UNLOCK);
constexpr int kScreenSaverNumber = numberOf(kNotifyTable, ESCREEN_SAVER_MODE);
static_assert(kSignalLockNumber != 0 && kSignalUnlockNumber != 0 && kScreenSaverNumber != 0,
              "the signal and screen-saver operations go through notify's table");

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
    ScopedLocalRef<jclass> clazz(env, env->GetObjectClass(thiz));
    if (clazz.get() == nullptr) {
        ALOGE("Can't find com/vireo/android/tvapi/jninative/NativePlayerImpl");
        reportFatal("JNIVSrvListener", 418, Exc::Exception);
        return;  // fields stay null: later events log the attach error
    }
    mClass = static_cast<jclass>(env->NewGlobalRef(clazz.get()));
    mObject = env->NewGlobalRef(weakThis);
    env->GetJavaVM(&mJavaVM);
}

JNIVSrvListener::~JNIVSrvListener() {
    JNIEnv* env = attach("~JNIVSrvListener", 433);
    if (env != nullptr) {
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

// The managed listener threw from postEventFromNative. Left pending, the exception would
// poison the next JNI call on this thread, which may be another library's (the service's
// threads are shared with other native code of the process) or, for an event fired inside
// disconnect(), the rest of native_finalize; the device's runtime aborts the process on such
// a call. So it is cleared at once and named in one WARN line.
void JNIVSrvListener::clearPostException(JNIEnv* env) {
    ScopedLocalRef<jthrowable> thrown(env, env->ExceptionOccurred());
    env->ExceptionClear();
    // The class's name through Class.getName; each step may itself fail (no memory), and
    // then the line says "an exception" rather than making a call with that error pending.
    ScopedLocalRef<jclass> cls(env, env->GetObjectClass(thrown.get()));
    ScopedLocalRef<jclass> classClass(env, env->FindClass("java/lang/Class"));
    jmethodID getName = classClass.get() != nullptr
                            ? env->GetMethodID(classClass.get(), "getName", "()Ljava/lang/String;")
                            : nullptr;
    ScopedLocalRef<jstring> name(
        env, getName != nullptr ? static_cast<jstring>(env->CallObjectMethod(cls.get(), getName))
                                : nullptr);
    if (env->ExceptionCheck()) env->ExceptionClear();
    ScopedUtfChars chars(env, name.get());
    if (env->ExceptionCheck()) env->ExceptionClear();
    ALOGW("postEventFromNative threw %s; cleared",
          chars.c_str() != nullptr ? chars.c_str() : "an exception");
}

// Without an environment there is nobody to post to: the attach line has been written and
// the event ends here rather than calling through a null environment.
void JNIVSrvListener::post(JNIEnv* env, jint code, jint ext1, jint ext2, jobject obj) const {
    if (env == nullptr || mClass == nullptr) {
        return;
    }
    env->CallStaticVoidMethod(mClass, gPlayerFields.postEvent, mObject, code, ext1, ext2, obj);
    if (env->ExceptionCheck()) {
        clearPostException(env);
    }
}

void JNIVSrvListener::notify(int /*msg*/, const android::Parcel& /*obj*/) {}

void JNIVSrvListener::notify(int msg, int ext1, int ext2, jobject obj) {
    JNIEnv* env = attach("notify", 448);
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
    JNIEnv* env = attach("notifyCB", 645);
    const Dispatch* row = lookup(kNotifyCBTable, event);
    if (row == nullptr) {
        ALOGE("Unknown event '%#x'", event);
        return;
    }
    applyExtra(row->code, ext1);
    post(env, eventCode(row->code), ext1, ext2, nullptr);
}

// The two-integer operations that post their code with ext1 and ext2 unchanged.
#define PIJ_EVENT(number, code, operation)                                 \
    void JNIVSrvListener::operation(int ext1, int ext2) {                  \
        ALOGD(#operation);                                                 \
        post(attach("notify", 448), eventCode(code), ext1, ext2, nullptr); \
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
    notify(kSignalLockNumber, ext1, ext2, nullptr);
}

void JNIVSrvListener::PostEvent_SignalUnlock(int ext1, int ext2) {
    ALOGD("PostEvent_SignalUnlock");
    notify(kSignalUnlockNumber, ext1, ext2, nullptr);
}

// Logs nothing of its own: the screen-saver line comes from notify.
void JNIVSrvListener::PostEvent_ScreenSaverMode(int ext1, int ext2) {
    notify(kScreenSaverNumber, ext1, ext2, nullptr);
}

void JNIVSrvListener::PostEvent_OadHandler(int ext1, int ext2) {
    ALOGD("PostEvent_OadHandler ext1 = %d, ext2 = %d", ext1, ext2);
    post(attach("notify", 448), eventCode(EOAD_HANDLER), ext1, ext2, nullptr);
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
