// The key-forwarding handlers, run natively: the stand-in VM's player object holds a
// recording player, so the library's own handlers translate every managed key code on
// whichever CPU this runs on. Prints one "key" line per key that reaches the player, with
// what reached it; the cross-build script diffs these lines between x86-64 and AArch64. (What
// each key must become is checked through the VM, in tests/test_keys.cpp.)
#include <jni.h>

#include <cstdint>
#include <cstdio>

#include "core/PlayerImpl.h"
#include "core/context.h"
#include "core/handlers.h"
#include "native_report.h"
#include "double/stand_in_vm.h"

namespace {

class KeyRecorder : public PlayerImpl {
public:
    int calls = 0;
    int32_t lastKey = -1;
    bool lastFlag = false;

    ProxyBool processKey(int32_t key, bool pressed) override {
        ++calls;
        lastKey = key;
        lastFlag = pressed;
        return 3;
    }
    ProxyBool sendMheg5Command(int16_t command) override {
        ++calls;
        lastKey = command;
        return 2;
    }
};

}  // namespace

namespace native_report {

void reportKeys() {
    // As if native_init had run: the context field of the player object holds the player.
    fake::installEnvironment();
    JNIEnv* env = &fake::gEnv;
    jobject thiz = fake::keepLocal(&fake::gPlayerObject);
    android::sp<KeyRecorder> player = new KeyRecorder;
    fake::gPlayerObject.context = reinterpret_cast<jlong>(player.get());

    int general = 0;
    int mheg5 = 0;
    for (jint key = -1; key <= 400; ++key) {
        int before = player->calls;
        jboolean r = com_vireo_android_tvapi_impl_PlayerImpl_processKey(env, thiz, key, JNI_TRUE);
        if (player->calls != before) {
            ++general;
            std::printf("key processKey %d %d %d %d\n", key, player->lastKey, player->lastFlag, r);
        }
        before = player->calls;
        r = com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key(env, thiz, key);
        if (player->calls != before) {
            ++mheg5;
            std::printf("key sendMheg5Key %d %d %d\n", key, player->lastKey, r);
        }
    }
    fake::gPlayerObject.context = 0;
    std::fprintf(stderr, "%d + %d keys forwarded\n", general, mheg5);
}

}  // namespace native_report
