// ThreadSanitizer run of the call frame, the replacement of the player and the listener,
// without a JVM (double/stand_in_vm.h stands in for the environment). Four "managed" threads call
// handlers while a fifth sets players up and finalises them, and two service threads deliver
// events, payload events included.
//
// Exit status 0 when the run ends with the counts balanced; TSan reports make it 66.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "core/handlers.h"
#include "core/parcel.h"
#include "double/fake_player.h"
#include "double/stand_in_vm.h"

using namespace fake;

int main(int argc, char** argv) {
    const int seconds = argc > 1 ? atoi(argv[1]) : 5;
    installEnvironment();
    JNIEnv* env = &gEnv;
    jobject thiz = newGlobal(env, keepLocal(&gPlayerObject));
    jobject weak = keepLocal(&gWeakObject);
    const long globalsBefore = gGlobals.load();
    th::useFakePlayer();
    const int fakesBefore = th::FakePlayer::liveFakes();
    std::atomic<bool> stop{false};
    std::atomic<long> calls{0}, events{0}, setups{0};

    std::thread lifecycle([&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < end) {
            com_vireo_android_tvapi_impl_PlayerImpl_native_setup(env, thiz, weak);
            setups.fetch_add(1);
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            com_vireo_android_tvapi_impl_PlayerImpl_native_finalize(env, thiz);
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        stop.store(true);
    });

    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            while (!stop.load()) {
                com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext(env, thiz);
                com_vireo_android_tvapi_impl_PlayerImpl_getPhaseRange(env, thiz);
                com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandard(env, thiz);
                calls.fetch_add(3);
            }
        });
    }
    for (int t = 0; t < 2; ++t) {
        threads.emplace_back([&, t] {
            while (!stop.load()) {
                // The last proxy set up, if it still lives: the service may outlive it.
                android::sp<th::FakePlayer> fake = th::lastFakePlayer();
                android::sp<PlayerImplListener> l = fake ? fake->listener() : nullptr;
                if (l == nullptr) {
                    std::this_thread::yield();
                    continue;
                }
                // Delivered on this thread, as the service's own threads do.
                android::Parcel atv, hbbtv;
                for (int v : {200, 474000, 3, 4, 1, 9}) atv.writeInt32(v);
                for (int v = 0; v < 12; ++v) hbbtv.writeInt32(v);
                atv.setDataPosition(0);
                hbbtv.setDataPosition(0);
                l->PostEvent_ChangeTtxStatus(t, 2);
                l->PostEvent_AtvAutoTuning(atv);
                l->PostEvent_HbbtvEvent(hbbtv);
                events.fetch_add(3);
            }
        });
    }
    lifecycle.join();
    for (auto& t : threads) t.join();

    const bool balanced = th::FakePlayer::liveFakes() == fakesBefore &&
                          gGlobals.load() == globalsBefore && gPlayerObject.context == 0;
    printf(
        "tsan_frame: %d s, %ld calls, %ld events, %ld posts, %ld set-ups; proxies %d -> %d, "
        "global references %ld -> %ld: %s\n",
        seconds, calls.load(), events.load(), gPosts.load(), setups.load(), fakesBefore,
        th::FakePlayer::liveFakes(), globalsBefore, gGlobals.load(),
        balanced ? "balanced" : "NOT BALANCED");
    deleteGlobal(env, thiz);
    return balanced ? 0 : 1;
}
