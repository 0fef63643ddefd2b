// JNI resources held for a scope and released by their destructor, never by hand.
//
// Local references use the platform's own ScopedLocalRef (libnativehelper). The platform's
// ScopedLocalFrame ignores a failed push and its ScopedUtfChars throws on a null string, and
// this library never throws into its caller, so those two, and the monitor, are ours.
#pragma once

#include <ScopedLocalRef.h>
#include <jni.h>

namespace pij {

// A local frame of `capacity` references, popped when the scope ends. ok() is false when the
// runtime had no room for it: nothing was pushed and nothing is popped.
class ScopedLocalFrame {
public:
    ScopedLocalFrame(JNIEnv* env, jint capacity)
        : mEnv(env), mPushed(env->PushLocalFrame(capacity) == JNI_OK) {}
    ~ScopedLocalFrame() {
        if (mPushed) mEnv->PopLocalFrame(nullptr);
    }
    ScopedLocalFrame(const ScopedLocalFrame&) = delete;
    ScopedLocalFrame& operator=(const ScopedLocalFrame&) = delete;

    bool ok() const { return mPushed; }

private:
    JNIEnv* const mEnv;
    const bool mPushed;
};

// The modified UTF-8 characters of a managed string, or null for a null string (or when the
// runtime had no memory for them; its error is then pending).
class ScopedUtfChars {
public:
    ScopedUtfChars(JNIEnv* env, jstring s)
        : mEnv(env),
          mString(s),
          mChars(s != nullptr ? env->GetStringUTFChars(s, nullptr) : nullptr) {}
    ~ScopedUtfChars() {
        if (mChars != nullptr) mEnv->ReleaseStringUTFChars(mString, mChars);
    }
    ScopedUtfChars(const ScopedUtfChars&) = delete;
    ScopedUtfChars& operator=(const ScopedUtfChars&) = delete;

    const char* c_str() const { return mChars; }

private:
    JNIEnv* const mEnv;
    const jstring mString;
    const char* const mChars;
};

// The monitor of a managed object, held for the scope when entered() is true.
class ScopedMonitor {
public:
    ScopedMonitor(JNIEnv* env, jobject obj)
        : mEnv(env), mObject(obj), mEntered(env->MonitorEnter(obj) == JNI_OK) {}
    ~ScopedMonitor() {
        if (mEntered) mEnv->MonitorExit(mObject);
    }
    ScopedMonitor(const ScopedMonitor&) = delete;
    ScopedMonitor& operator=(const ScopedMonitor&) = delete;

    bool entered() const { return mEntered; }

private:
    JNIEnv* const mEnv;
    const jobject mObject;
    const bool mEntered;
};

}  // namespace pij
