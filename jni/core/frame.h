// The call frame every handler goes through: take a strong reference to the player proxy
// under the one global lock, release the lock, call, convert, drop the reference. Without
// a player the handler writes one fatal line and returns its neutral value; the library
// never throws into the managed caller.
#pragma once

#include <jni.h>

#include <cstdlib>
#include <utility>

#include "core/PlayerImpl.h"

namespace pij {

// The exception class a failure line names. It is a label in the log, nothing is thrown.
enum class Exc {
    TvIpc,
    TvCommon,
    TvUnsupported,
    IllegalState,
    IllegalArgument,
    Runtime,
    Exception,
};

const char* exceptionPath(Exc cls);

// ERROR "[Fatal jni_exception] %s(%d), %s".
void reportFatal(const char* function, int line, Exc cls);

// Where a handler reports a missing player: its exported name, source line and class.
struct Site {
    const char* function;
    int line;
    Exc cls;
};

inline void reportFatal(const Site& site) { reportFatal(site.function, site.line, site.cls); }

// Holds the library's one global lock for its scope. Nothing is logged, no player is called
// and no managed object is built while it is held. Functions that must run under the lock
// take a reference to the guard.
class GlobalLockGuard {
public:
    GlobalLockGuard();
    ~GlobalLockGuard();
    GlobalLockGuard(const GlobalLockGuard&) = delete;
    GlobalLockGuard& operator=(const GlobalLockGuard&) = delete;
};

// The object's player, referenced, as mNativeContext shows it under the lock.
android::sp<PlayerImpl> playerOf(const GlobalLockGuard& lock, JNIEnv* env, jobject thiz);

// The player a handler calls: taken under the lock and referenced for the length of the
// call, so that a native_finalize meanwhile cannot destroy it. Before native_init has cached
// the field, every object is without a player.
android::sp<PlayerImpl> acquirePlayer(JNIEnv* env, jobject thiz);

// Replaces the proxy held by the managed object and returns the previous one; the object's
// player starts a new generation (see core/player_owner.h).
android::sp<PlayerImpl> setPlayer(JNIEnv* env, jobject thiz, const android::sp<PlayerImpl>& p);

// A boolean answered by the proxy keeps bit 0 only.
inline jboolean bit0(ProxyBool b) { return static_cast<jboolean>(b & 1u); }

// The frame for a handler with a result: `body(PlayerImpl&)` runs with the reference held
// and returns the managed value; `missing` is returned after the fatal line.
template <typename R, typename Body>
R withPlayer(JNIEnv* env, jobject thiz, const Site& site, R missing, Body&& body) {
    android::sp<PlayerImpl> player = acquirePlayer(env, thiz);
    if (player == nullptr) {
        reportFatal(site);
        return missing;
    }
    return std::forward<Body>(body)(*player);
}

// The frame for a void handler.
template <typename Body>
void withPlayer(JNIEnv* env, jobject thiz, const Site& site, Body&& body) {
    android::sp<PlayerImpl> player = acquirePlayer(env, thiz);
    if (player == nullptr) {
        reportFatal(site);
        return;
    }
    std::forward<Body>(body)(*player);
}

// The handful of handlers that, without a player, write the fatal line and go on to call
// the missing player. Calling through a null pointer would be undefined; the process is
// ended here instead, right after the line, which is what such a call comes to.
[[noreturn]] void endProcessWithoutPlayer();

template <typename Body>
decltype(auto) withPlayerOrEnd(JNIEnv* env, jobject thiz, const Site& site, Body&& body) {
    android::sp<PlayerImpl> player = acquirePlayer(env, thiz);
    if (player == nullptr) {
        reportFatal(site);
        endProcessWithoutPlayer();
    }
    return std::forward<Body>(body)(*player);
}

}  // namespace pij
