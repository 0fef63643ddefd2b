// JNIVSrvListener: the listener the player service calls with events, on its own threads.
// Every event ends in one call of the managed static postEventFromNative.
#pragma once

#include <jni.h>

#include "core/PlayerImpl.h"

namespace pij {

class JNIVSrvListener : public PlayerImplListener {
public:
    JNIVSrvListener(JNIEnv* env, jobject thiz, jobject weakThis);
    ~JNIVSrvListener() override;

    // The parcel form of the service's generic notification is ignored.
    void notify(int msg, const android::Parcel& obj) override;
    void notifyCB(int event, int ext1, int ext2, const android::Parcel* obj) override;

    // The event operations with a native number (service_events.def); the ones with a body
    // of their own are among them.
#define PIJ_EVENT(number, code, operation) void operation(int ext1, int ext2) override;
#define PIJ_EVENT_OWN(number, code, operation) void operation(int ext1, int ext2) override;
#define PIJ_PARCEL_EVENT(number, code)
#define PIJ_CALLBACK_EVENT(number, code)
#include "events/service_events.def"
#undef PIJ_EVENT
#undef PIJ_EVENT_OWN
#undef PIJ_PARCEL_EVENT
#undef PIJ_CALLBACK_EVENT

    void PostEvent_AtvAutoTuning(const android::Parcel& p) override;
    void PostEvent_ManualTuning(const android::Parcel& p) override;
    void PostEvent_DtvAutoTuning(const android::Parcel& p) override;
    void PostEvent_HbbtvEvent(const android::Parcel& p) override;
    void PostEvent_SnServiceDeadth(int ext1, int ext2) override;

    // Not virtual: the dispatcher of native event numbers, and an empty handler. Only the
    // signal and screen-saver operations reach the dispatcher from the service; it stays
    // hidden, and native tests reach it by linking the library's objects.
    void notify(int msg, int ext1, int ext2, jobject obj);
    void PostEvent_DtvPsipTsUpdate(int ext1, int ext2);

    // Obtains this thread's environment, attaching it (for good) if needed. On failure it
    // logs "Error! %s(%d) AttachCurrentThread" with (op, line) and returns what it has.
    JNIEnv* attach(const char* op, int line) const;

    // The delivery step shared by every handler. An exception the managed side throws is
    // cleared before it returns, with a WARN line naming its class: nothing is left pending
    // on the thread.
    void post(JNIEnv* env, jint code, jint ext1, jint ext2, jobject obj) const;

private:
    static void clearPostException(JNIEnv* env);

    jclass mClass = nullptr;
    jobject mObject = nullptr;
    JavaVM* mJavaVM = nullptr;
};

}  // namespace pij
