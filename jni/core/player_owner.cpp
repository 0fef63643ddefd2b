// The registry of per-object owners. A TV runs a handful of players at a time, so a short
// list searched by identity is all it needs; it is searched only by the set-up, tear-down and
// surface calls, never by the frame of the ordinary commands.
#include "core/log.h"

#include "core/player_owner.h"

#include <algorithm>

namespace pij {
namespace {

// Under the global lock.
std::vector<std::unique_ptr<PlayerOwner>>& registry() {
    // Never destroyed: a managed thread may still finalise a player while the process exits.
    static auto* const owners = new std::vector<std::unique_ptr<PlayerOwner>>();
    return *owners;
}

uint64_t gLastGeneration = 0;  // under the global lock

}  // namespace

PlayerOwner::PlayerOwner(JNIEnv* env, jobject object) : mObject(env->NewWeakGlobalRef(object)) {
    env->GetJavaVM(&mVm);
}

PlayerOwner::~PlayerOwner() {
    // Destroyed on a managed thread, which is attached; the producer goes with `producer`.
    JNIEnv* env = nullptr;
    if (mObject != nullptr && mVm != nullptr &&
        mVm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_4) == JNI_OK) {
        env->DeleteWeakGlobalRef(mObject);
    }
}

bool PlayerOwner::isFor(JNIEnv* env, jobject object) const {
    // A cleared weak reference compares equal to null only, never to a live object.
    return env->IsSameObject(mObject, object) == JNI_TRUE;
}

bool PlayerOwner::collected(JNIEnv* env) const { return isFor(env, nullptr); }

PlayerOwner* findOwner(const GlobalLockGuard&, JNIEnv* env, jobject object) {
    for (const auto& owner : registry()) {
        if (owner->isFor(env, object)) return owner.get();
    }
    return nullptr;
}

PlayerOwner* ownerFor(const GlobalLockGuard& lock, JNIEnv* env, jobject object) {
    if (PlayerOwner* found = findOwner(lock, env, object)) return found;
    RetiredOwner made(new PlayerOwner(env, object));
    if (made->collected(env)) return nullptr;  // no weak reference could be had
    made->generation = ++gLastGeneration;
    registry().push_back(std::move(made));
    return registry().back().get();
}

void newGeneration(const GlobalLockGuard& lock, JNIEnv* env, jobject object, bool make) {
    PlayerOwner* owner = make ? ownerFor(lock, env, object) : findOwner(lock, env, object);
    if (owner != nullptr) owner->generation = ++gLastGeneration;
}

RetiredOwner retireOwner(const GlobalLockGuard&, JNIEnv* env, jobject object) {
    auto& owners = registry();
    auto it = std::find_if(owners.begin(), owners.end(),
                           [&](const auto& o) { return o->isFor(env, object); });
    if (it == owners.end()) return nullptr;
    RetiredOwner retired = std::move(*it);
    owners.erase(it);
    return retired;
}

std::vector<RetiredOwner> retireCollected(const GlobalLockGuard&, JNIEnv* env) {
    auto& owners = registry();
    auto gone = std::stable_partition(owners.begin(), owners.end(),
                                      [&](const auto& o) { return !o->collected(env); });
    std::vector<RetiredOwner> retired(std::make_move_iterator(gone),
                                      std::make_move_iterator(owners.end()));
    owners.erase(gone, owners.end());
    return retired;
}

}  // namespace pij
