// Life cycle of the managed player object: native_init, native_setup, native_finalize and
// the exported suspend.
#include "core/log.h"

#include "core/context.h"

#include <algorithm>
#include <thread>
#include <vector>

#include "core/frame.h"
#include "core/handlers.h"
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
// reference (see takeLocal in events/payloads.cpp; the slots and the count are sequentially
// consistent atomics, which is what makes a count of 0 after the exchange conclusive).
template <typename T>
void replaceGlobal(JNIEnv* env, std::atomic<T>& slot, T next) {
    T ref = slot.exchange(next);
    if (ref != nullptr) {
        while (gScan.readers.load() != 0) {
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

// Players that a native_finalize is tearing down, under the global lock. A second
// native_finalize of the same object, at once on another thread or re-entered from an event
// the proxy fires inside disconnect(), finds its player here and goes the way a later call
// does, without a player: the proxy is disconnected once.
std::vector<const PlayerImpl*>& finalizing() {
    // Never destroyed: a managed thread may still finalize while the process exits.
    static auto* const players = new std::vector<const PlayerImpl*>();
    return *players;
}

// The frame's acquisition for native_finalize: the object's player, unless it has none or
// another native_finalize already has it.
android::sp<PlayerImpl> claimPlayerToFinalize(JNIEnv* env, jobject thiz) {
    if (gPlayerFields.context == nullptr) return nullptr;  // before native_init
    android::sp<PlayerImpl> player;
    GlobalLockGuard guard;
    auto* p = reinterpret_cast<PlayerImpl*>(env->GetLongField(thiz, gPlayerFields.context));
    auto& claimed = finalizing();
    if (p != nullptr && std::find(claimed.begin(), claimed.end(), p) == claimed.end()) {
        claimed.push_back(p);
        player = p;
    }
    return player;  // a player is never released here: the field still holds it
}

void finalized(const PlayerImpl* player) {
    GlobalLockGuard guard;
    auto& claimed = finalizing();
    claimed.erase(std::find(claimed.begin(), claimed.end(), player));
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
    ScopedLocalRef<jclass> clazz(env, env->FindClass("com/vireo/android/tvapi/impl/PlayerImpl"));
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
    finalized(player.get());
}

// For other native code of the system: forget the player without disconnecting it. The
// field's strong reference is kept on purpose, so the proxy and its listener stay alive.
PIJ_EXPORT void suspend(JNIEnv* env, jobject thiz) {
    ALOGD("playerimpl suspend");
    if (gPlayerFields.context != nullptr) {  // before native_init there is no player to forget
        env->SetLongField(thiz, gPlayerFields.context, 0);
    }
    deleteScanObjects(env);
}
