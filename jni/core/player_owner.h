// What the library keeps for one managed player object: the producer held for its surface
// binding, its tear-down state and the generation of its player. One owner per object, whose
// life is the object's: made when the object first gets a player, destroyed by its
// native_finalize (or once the object has been collected without one).
//
// Owners are found by the managed object's identity, a weak global reference compared with
// IsSameObject: a collected object or another one never matches, whatever addresses the
// runtime, the proxies or the producers get later.
//
// Every function here takes the global lock's guard: it is called with the lock held, and so
// does no logging, calls no proxy and builds no managed object. An owner taken out of the
// registry is destroyed once the lock is let go, which drops its producer reference.
#pragma once

#include <jni.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "core/frame.h"
#include "surface/video_surface.h"

namespace pij {

class PlayerOwner {
public:
    PlayerOwner(JNIEnv* env, jobject object);
    ~PlayerOwner();  // drops the held producer and the weak reference
    PlayerOwner(const PlayerOwner&) = delete;
    PlayerOwner& operator=(const PlayerOwner&) = delete;

    bool isFor(JNIEnv* env, jobject object) const;
    bool collected(JNIEnv* env) const;

    // Changes whenever the object's player is replaced, suspended or finalised. Numbers are
    // never given twice in the process, so an owner made later for the same object does not
    // repeat one either.
    uint64_t generation = 0;
    // A native_finalize is tearing the player down; another one finds no player.
    bool finalizing = false;
    // The producer bound for mNativeSurfaceTexture, if a reference on it is held.
    HeldProducer producer;

private:
    JavaVM* mVm = nullptr;
    jweak mObject = nullptr;
};

using RetiredOwner = std::unique_ptr<PlayerOwner>;

// The owner of `object`, or null.
PlayerOwner* findOwner(const GlobalLockGuard& lock, JNIEnv* env, jobject object);

// The owner of `object`, made if there is none yet (null only when the runtime has no room for
// the weak reference).
PlayerOwner* ownerFor(const GlobalLockGuard& lock, JNIEnv* env, jobject object);

// Starts a new generation of the object's player (making its owner first with `make`). A bind
// that started under the old one then drops its own reference.
void newGeneration(const GlobalLockGuard& lock, JNIEnv* env, jobject object, bool make);

// Takes the owner of `object` out of the registry, for the caller to destroy after the lock.
RetiredOwner retireOwner(const GlobalLockGuard& lock, JNIEnv* env, jobject object);

// Takes out the owners of objects the runtime has collected without a native_finalize.
std::vector<RetiredOwner> retireCollected(const GlobalLockGuard& lock, JNIEnv* env);

}  // namespace pij
