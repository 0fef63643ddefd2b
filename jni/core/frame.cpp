#include "core/log.h"

#include "core/frame.h"

#include <pthread.h>

#include "core/context.h"
#include "core/player_owner.h"

namespace pij {
namespace {

// The one lock of the library. Its static initialiser runs when the library is loaded,
// before JNI_OnLoad; its destructor runs when the library is unloaded.
class GlobalLock {
public:
    GlobalLock() { pthread_mutex_init(&mMutex, nullptr); }
    ~GlobalLock() { pthread_mutex_destroy(&mMutex); }
    GlobalLock(const GlobalLock&) = delete;
    GlobalLock& operator=(const GlobalLock&) = delete;

private:
    friend class pij::GlobalLockGuard;

    pthread_mutex_t mMutex;
};

GlobalLock gLock;

}  // namespace

GlobalLockGuard::GlobalLockGuard() { pthread_mutex_lock(&gLock.mMutex); }
GlobalLockGuard::~GlobalLockGuard() { pthread_mutex_unlock(&gLock.mMutex); }

const char* exceptionPath(Exc cls) {
    switch (cls) {
        case Exc::TvIpc:
            return "com/vireo/android/tvapi/common/exception/TvIpcException";
        case Exc::TvCommon:
            return "com/vireo/android/tvapi/common/exception/TvCommonException";
        case Exc::TvUnsupported:
            return "com/vireo/android/tvapi/common/exception/TvUnsupportedException";
        case Exc::IllegalState:
            return "java/lang/IllegalStateException";
        case Exc::IllegalArgument:
            return "java/lang/IllegalArgumentException";
        case Exc::Runtime:
            return "java/lang/RuntimeException";
        case Exc::Exception:
            return "java/lang/Exception";
    }
    return "java/lang/Exception";
}

void reportFatal(const char* function, int line, Exc cls) {
    ALOGE("[Fatal jni_exception] %s(%d), %s", function, line, exceptionPath(cls));
}

android::sp<PlayerImpl> playerOf(const GlobalLockGuard&, JNIEnv* env, jobject thiz) {
    auto* p = reinterpret_cast<PlayerImpl*>(env->GetLongField(thiz, gPlayerFields.context));
    return android::sp<PlayerImpl>(p);  // strong reference taken with the holder as id
}

android::sp<PlayerImpl> acquirePlayer(JNIEnv* env, jobject thiz) {
    // Before native_init there is no context field id to read through: no player, as with a
    // field that holds 0 (reading through a null id ends the process on the device).
    if (gPlayerFields.context == nullptr) return nullptr;
    GlobalLockGuard lock;
    return playerOf(lock, env, thiz);
}

android::sp<PlayerImpl> setPlayer(JNIEnv* env, jobject thiz, const android::sp<PlayerImpl>& p) {
    GlobalLockGuard lock;
    android::sp<PlayerImpl> previous = playerOf(lock, env, thiz);
    if (p != nullptr) {
        p->incStrong(reinterpret_cast<void*>(&setPlayer));  // the field's own reference
    }
    if (previous != nullptr) {
        // The reference the field owned; `previous` keeps the proxy alive past the lock.
        previous->decStrong(reinterpret_cast<void*>(&setPlayer));
    }
    env->SetLongField(thiz, gPlayerFields.context, reinterpret_cast<jlong>(p.get()));
    newGeneration(lock, env, thiz, p != nullptr);
    return previous;
}

void endProcessWithoutPlayer() { abort(); }

}  // namespace pij
