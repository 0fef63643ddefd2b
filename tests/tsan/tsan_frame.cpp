// ThreadSanitizer run of the call frame, the replacement of the player and the listener,
// without a JVM. A stand-in JNI environment offers only what these paths use: a player
// object with its two long fields, global and local references as heap handles (so that a
// reference used after its deletion is a race TSan sees), thread attachment, and a static
// call that counts posts. Four "managed" threads call handlers while a fifth sets players up
// and finalises them, and two service threads deliver events, payload events included.
//
// Exit status 0 when the run ends with the counts balanced; TSan reports make it 66.
#include <jni.h>

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

#include "core/context.h"
#include "core/frame.h"
#include "core/handlers.h"
#include "core/parcel.h"
#include "fake_jni.h"
#include "playerimpl_host/fake_player.h"

namespace {

using namespace fake;

void fillAtv(android::Parcel& p) {
    for (int v : {200, 474000, 3, 4, 1, 9}) p.writeInt32(v);
    p.setDataPosition(0);
}

}  // namespace

int main(int argc, char** argv) {
    const int seconds = argc > 1 ? atoi(argv[1]) : 5;
    installEnvironment();
    JNIEnv* env = &gEnv;
    jobject thiz = newGlobal(env, keepLocal(&gPlayerObject));
    jobject weak = keepLocal(&gWeakObject);
    const long globalsBefore = gGlobals.load();

    host::useFakePlayer();
    const int fakesBefore = host::FakePlayer::liveFakes();
    std::atomic<bool> stop{false};
    std::atomic<long> calls{0}, events{0}, setups{0};

    // The lifecycle thread owns the "current fake" for the event threads.
    std::mutex currentLock;
    android::sp<host::FakePlayer> current;

    std::thread lifecycle([&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < end) {
            PIJ_IMPL(native_setup)(env, thiz, weak);
            setups.fetch_add(1);
            {
                std::lock_guard<std::mutex> guard(currentLock);
                current = host::lastFakePlayer();
            }
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            PIJ_IMPL(native_finalize)(env, thiz);
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        std::lock_guard<std::mutex> guard(currentLock);
        current = nullptr;
        stop.store(true);
    });

    std::vector<std::thread> callers;
    for (int t = 0; t < 4; ++t) {
        callers.emplace_back([&] {
            while (!stop.load()) {
                PIJ_IMPL(closeTeletext)(env, thiz);
                PIJ_IMPL(getPhaseRange)(env, thiz);
                PIJ_IMPL(native_getVideoStandard)(env, thiz);
                calls.fetch_add(3);
            }
        });
    }

    std::vector<std::thread> services;
    for (int t = 0; t < 2; ++t) {
        services.emplace_back([&, t] {
            while (!stop.load()) {
                android::sp<host::FakePlayer> fake;
                {
                    std::lock_guard<std::mutex> guard(currentLock);
                    fake = current;
                }
                android::sp<PlayerImplListener> l = fake ? fake->listener() : nullptr;
                if (l == nullptr) {
                    std::this_thread::yield();
                    continue;
                }
                // Delivered on this thread, as the service's own threads do.
                l->PostEvent_ChangeTtxStatus(t, 2);
                android::Parcel p;
                fillAtv(p);
                l->PostEvent_AtvAutoTuning(p);
                android::Parcel h;
                for (int v = 0; v < 12; ++v) h.writeInt32(v);
                h.setDataPosition(0);
                l->PostEvent_HbbtvEvent(h);
                events.fetch_add(3);
            }
        });
    }

    lifecycle.join();
    for (auto& c : callers) c.join();
    for (auto& s : services) s.join();

    const bool balanced = host::FakePlayer::liveFakes() == fakesBefore &&
                          gGlobals.load() == globalsBefore && gPlayerObject.context == 0;
    printf(
        "tsan_frame: %d s, %ld calls, %ld events, %ld posts, %ld set-ups; proxies %d -> %d, "
        "global references %ld -> %ld: %s\n",
        seconds, calls.load(), events.load(), gPosts.load(), setups.load(), fakesBefore,
        host::FakePlayer::liveFakes(), globalsBefore, gGlobals.load(),
        balanced ? "balanced" : "NOT BALANCED");
    deleteGlobal(env, thiz);
    return balanced ? 0 : 1;
}
