// Life cycle of the managed player object: native_init, native_setup, native_finalize and
// the exported suspend.
#include "core/log.h"

#include "core/context.h"

#include <thread>
#include <vector>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/player_owner.h"
#include "core/scoped.h"
#include "events/event_codes.h"
#include "events/listener.h"
#include "surface/video_surface.h"

namespace pij {

PlayerFields gPlayerFields;
SurfaceFields gSurfaceFields;
ScanObjects gScan;

const char* const kPostEventSignature = "(Ljava/lang/Object;IIILjava/lang/Object;)V";

namespace {

const char* const kAtvScanClass = "com/vireo/android/tvapi/atv/vo/AtvEventScan";
const char* const kDtvScanClass = "com/vireo/android/tvapi/dtv/vo/DtvEventScan";
const char* const kHbbtvEventInfoClass = "com/vireo/android/tvapi/common/vo/HbbtvEventInfo";

// Finds a scan class and makes one object of it with its no-argument constructor; both are
// kept as global references. A class, constructor or object the runtime cannot give stops it
// at once with the runtime's error pending (false): no further JNI call is made with it.
bool makeScanObject(JNIEnv* env, const char* path, std::atomic<jclass>& cls,
                    std::atomic<jobject>& obj) {
    ScopedLocalRef<jclass> local(env, env->FindClass(path));
    if (local.get() == nullptr) return false;
    jmethodID ctor = env->GetMethodID(local.get(), "<init>", "()V");
    if (ctor == nullptr) return false;
    ScopedLocalRef<jobject> instance(env, env->NewObject(local.get(), ctor));
    if (instance.get() == nullptr) return false;
    cls.store(static_cast<jclass>(env->NewGlobalRef(local.get())));
    obj.store(env->NewGlobalRef(instance.get()));
    return true;
}

// Puts `next` (or nothing) in a slot the service's threads read, and deletes the global
// reference it held once no event is between reading the slot and taking its own local
// reference (see takeLocal in events/payloads.cpp). Sequentially consistent, as the readers'
// side: see ScanObjects::readers.
template <typename T>
void replaceGlobal(JNIEnv* env, std::atomic<T>& slot, T next) {
    T ref = slot.exchange(next, std::memory_order_seq_cst);
    if (ref != nullptr) {
        while (gScan.readers.load(std::memory_order_seq_cst) != 0) {
            std::this_thread::yield();  // a scan event is taking its own reference
        }
        env->DeleteGlobalRef(ref);
    }
}

template <typename T>
void deleteGlobal(JNIEnv* env, std::atomic<T>& slot) {
    replaceGlobal(env, slot, static_cast<T>(nullptr));
}

// The HbbTV event's value class, kept for the events that arrive on the service's threads:
// there the runtime resolves a class by name through the system class loader only, which does
// not see the classes an application or a shared library brings. Taken here, on the managed
// thread, where the class's own loader is found. A class the runtime cannot find is not an
// error of native_setup: the error is cleared, and an HbbTV event that then finds no class
// reports it itself.
void keepHbbtvClass(JNIEnv* env) {
    ScopedLocalRef<jclass> local(env, env->FindClass(kHbbtvEventInfoClass));
    if (local.get() == nullptr) {
        env->ExceptionClear();
        return;
    }
    replaceGlobal(env, gScan.hbbtvClass, static_cast<jclass>(env->NewGlobalRef(local.get())));
}

// Same order in native_finalize and suspend.
void deleteScanObjects(JNIEnv* env) {
    deleteGlobal(env, gScan.atvClass);
    deleteGlobal(env, gScan.atv);
    deleteGlobal(env, gScan.dtvClass);
    deleteGlobal(env, gScan.dtv);
    deleteGlobal(env, gScan.hbbtvClass);
}

// The frame's acquisition for native_finalize: the object's player, unless it has none or
// another native_finalize already has it. That one, at once on another thread or re-entered
// from an event the proxy fires inside disconnect(), goes the way a later call does, without
// a player: the proxy is disconnected once. An object without a player (suspended, or
// finalised before) has nothing left to tear down but its owner, which goes now.
android::sp<PlayerImpl> claimPlayerToFinalize(JNIEnv* env, jobject thiz) {
    if (gPlayerFields.context == nullptr) return nullptr;  // before native_init
    RetiredOwner retired;  // declared before the guard: destroyed after the lock
    GlobalLockGuard lock;
    PlayerOwner* owner = findOwner(lock, env, thiz);
    if (owner != nullptr && owner->finalizing) return nullptr;
    android::sp<PlayerImpl> player = playerOf(lock, env, thiz);
    if (player == nullptr) {
        retired = retireOwner(lock, env, thiz);
    } else if ((owner = ownerFor(lock, env, thiz)) != nullptr) {
        owner->finalizing = true;
    }
    return player;  // a player is never released here: the field still holds it
}

// The end of native_finalize: the owner goes, and with it the reference of a producer bound
// while the player was being torn down.
void finalized(JNIEnv* env, jobject thiz) {
    RetiredOwner retired;  // declared before the guard: destroyed after the lock
    GlobalLockGuard lock;
    retired = retireOwner(lock, env, thiz);
}

// Owners of objects the runtime collected without a native_finalize.
void forgetCollectedObjects(JNIEnv* env) {
    std::vector<RetiredOwner> retired;  // declared before the guard: destroyed after the lock
    GlobalLockGuard lock;
    retired = retireCollected(lock, env);
}

}  // namespace
}  // namespace pij

using namespace pij;

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_init(JNIEnv* env,
                                                                    jobject /*clazz*/) {
    ALOGD("native_init");
    // A member the managed class lacks stops native_init at that look-up, with the runtime's
    // error pending for the class's initialiser. Nothing is kept then: every object stays
    // without a player, as before native_init, instead of going on with a null id.
    ScopedLocalRef<jclass> clazz(env, env->FindClass(kPlayerClass));
    if (clazz.get() == nullptr) return;
    PlayerFields found;
    found.surfaceTexture = env->GetFieldID(clazz.get(), "mNativeSurfaceTexture", "J");
    if (found.surfaceTexture == nullptr) return;
    found.context = env->GetFieldID(clazz.get(), "mNativeContext", "J");
    if (found.context == nullptr) return;
    found.postEvent =
        env->GetStaticMethodID(clazz.get(), "postEventFromNative", kPostEventSignature);
    if (found.postEvent == nullptr || !readEventCodes(env, clazz.get())) return;
    found.playerContext = env->GetFieldID(clazz.get(), "mPlayerContext", "I");
    if (found.playerContext == nullptr) return;
    gPlayerFields = found;
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_setup(JNIEnv* env, jobject thiz,
                                                                     jobject weakThis) {
    ALOGD("native_setup");
    // Out of order: without the fields native_init caches there is nowhere to keep a player.
    if (gPlayerFields.context == nullptr) {
        ALOGE("native_setup before native_init: no player is set up");
        return;
    }
    android::sp<PlayerImpl> player = PlayerImpl::connect();
    if (player == nullptr) {
        reportFatal(__func__, 1260, Exc::Runtime);
        return;
    }
    // A scan class the managed side lacks leaves its error pending for the constructor; the
    // player connected above is let go again, before any listener could reach it.
    if (!makeScanObject(env, kAtvScanClass, gScan.atvClass, gScan.atv) ||
        !makeScanObject(env, kDtvScanClass, gScan.dtvClass, gScan.dtv)) {
        player->disconnect();
        return;
    }
    keepHbbtvClass(env);

    android::sp<JNIVSrvListener> listener = new JNIVSrvListener(env, thiz, weakThis);
    player->setListener(android::sp<PlayerImplListener>(listener.get()));
    forgetCollectedObjects(env);
    setPlayer(env, thiz, player);  // the returned old proxy, if any, is dropped here
}

PIJ_EXPORT void com_vireo_android_tvapi_impl_PlayerImpl_native_finalize(JNIEnv* env, jobject thiz) {
    ALOGD("native_finalize");
    releaseVideoSurface(env, thiz);

    android::sp<PlayerImpl> player = claimPlayerToFinalize(env, thiz);
    if (player == nullptr) {
        reportFatal(__func__, 1296, Exc::TvIpc);
        return;
    }
    player->disconnect();
    android::sp<PlayerImpl> old = setPlayer(env, thiz, nullptr);
    if (old != nullptr) {
        old->setListener(nullptr);
    }
    deleteScanObjects(env);
    finalized(env, thiz);
}

// For other native code of the system: forget the player without disconnecting it. The
// field's strong reference is kept on purpose, so the proxy and its listener stay alive, and
// so is the producer bound for the object: the next bind after a new native_setup drops it,
// or native_finalize does. A bind under way with the forgotten player drops its own.
PIJ_EXPORT void suspend(JNIEnv* env, jobject thiz) {
    ALOGD("playerimpl suspend");
    if (gPlayerFields.context != nullptr) {  // before native_init there is no player to forget
        // The field is written without the global lock, as callers of suspend expect. The new
        // generation follows under the lock: a bind that read the player before the write
        // finds the generation changed when it finishes and drops its own reference; one that
        // reads the field after it finds no player.
        env->SetLongField(thiz, gPlayerFields.context, 0);
        GlobalLockGuard lock;
        newGeneration(lock, env, thiz, false);
    }
    deleteScanObjects(env);
}
