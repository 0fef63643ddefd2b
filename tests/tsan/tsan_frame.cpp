// ThreadSanitizer run of the call frame, the replacement of the player and the listener,
// without a JVM (double/stand_in_vm.h stands in for the environment). Four "managed" threads call
// handlers and a fifth binds surfaces while a sixth sets players up, suspends some and
// finalises them, and two service threads deliver events, payload events included.
//
// Exit status 0 when the run ends with the counts balanced (proxies, global references and
// the references on the bound producers); TSan reports make it 66.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include <gui/Surface.h>
#include "core/handlers.h"
#include "core/parcel.h"
#include "double/fake_player.h"
#include "double/stand_in_vm.h"

using namespace fake;

// Exported for other native code of the system; no header of the library declares it.
PIJ_EXPORT void suspend(JNIEnv* env, jobject thiz);

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
    std::atomic<long> calls{0}, events{0}, setups{0}, binds{0};

    // Two surfaces to bind, each with a producer.
    std::vector<android::sp<android::IGraphicBufferProducer>> producers;
    std::vector<android::sp<android::Surface>> natives;
    std::vector<fake::Object> surfaceObjects(2);
    std::vector<jobject> surfaces;
    for (int i = 0; i < 2; ++i) {
        producers.push_back(new android::IGraphicBufferProducer());
        natives.push_back(new android::Surface(producers.back(), 700 + i));
        surfaceObjects[i].nativeObject = reinterpret_cast<jlong>(natives.back().get());
        surfaces.push_back(keepLocal(&surfaceObjects[i]));
    }

    std::thread lifecycle([&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < end) {
            com_vireo_android_tvapi_impl_PlayerImpl_native_setup(env, thiz, weak);
            setups.fetch_add(1);
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            if (setups.load() % 3 == 0) {
                // Suspended, then finalised without a player; the code that suspends owns
                // the field's reference and lets the proxy go.
                android::sp<th::FakePlayer> proxy = th::lastFakePlayer();
                suspend(env, thiz);
                proxy->disconnect();
                proxy->setListener(nullptr);
                proxy->decStrong(nullptr);
            }
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
    threads.emplace_back([&] {
        for (long n = 0; !stop.load(); ++n) {
            com_vireo_android_tvapi_impl_PlayerImpl_setVideoSurface(env, thiz, surfaces[n % 2], 0);
            binds.fetch_add(1);
        }
    });
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

    // Each producer: referenced by the test and by its surface, and by nothing else.
    int32_t producerRefs = 0;
    for (auto& p : producers) producerRefs += p->getStrongCount() - 2;
    const bool balanced = th::FakePlayer::liveFakes() == fakesBefore &&
                          gGlobals.load() == globalsBefore && gPlayerObject.context == 0 &&
                          producerRefs == 0;
    printf(
        "tsan_frame: %d s, %ld calls, %ld binds, %ld events, %ld posts, %ld set-ups; proxies "
        "%d -> %d, global references %ld -> %ld, producer references left %d: %s\n",
        seconds, calls.load(), binds.load(), events.load(), gPosts.load(), setups.load(),
        fakesBefore, th::FakePlayer::liveFakes(), globalsBefore, gGlobals.load(), producerRefs,
        balanced ? "balanced" : "NOT BALANCED");
    deleteGlobal(env, thiz);
    return balanced ? 0 : 1;
}
