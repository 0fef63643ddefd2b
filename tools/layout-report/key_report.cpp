// The key-forwarding handlers, run natively: the stand-in VM's player object holds a
// recording player, so the library's own handlers translate every managed key code on
// whichever CPU this runs on. Prints one "key" line per key that reaches the player (the
// cross-build script diffs these between x86-64 and AArch64) and checks the translations
// the remote-control documentation pins down.
#include <jni.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/PlayerImpl.h"
#include "core/context.h"
#include "core/handlers.h"
#include "native_report.h"
#include "tsan/fake_jni.h"

namespace {

std::string gLastLog;

class KeyRecorder : public PlayerImpl {
public:
    int calls = 0;
    int32_t lastKey = -1;
    bool lastFlag = false;

    ProxyBool processKey(int32_t key, bool pressed) override {
        ++calls;
        lastKey = key;
        lastFlag = pressed;
        return 3;  // only bit 0 may reach the managed side
    }
    ProxyBool sendMheg5Command(int16_t command) override {
        ++calls;
        lastKey = command;
        return 2;  // bit 0 clear: the managed side sees false
    }
};

jobject fakeThis() {
    static jobject thiz = fake::keepLocal(&fake::gPlayerObject);
    return thiz;
}

void expect(bool ok, const char* what, int key) {
    if (!ok) {
        std::printf("FAIL keys: %s (key %d)\n", what, key);
        ++native_report::failures;
    }
}

}  // namespace

namespace native_report {

void reportKeys() {
    // As if native_init had run: the context field of the player object holds the player.
    fake::installEnvironment();
    fake::gOnLog = [](int, const char* text) { gLastLog = text; };
    JNIEnv* env = &fake::gEnv;
    android::sp<KeyRecorder> player = new KeyRecorder;
    fake::gPlayerObject.context = reinterpret_cast<jlong>(player.get());

    int general = 0;
    int mheg5 = 0;
    for (jint key = -1; key <= 400; ++key) {
        int before = player->calls;
        jboolean r = PIJ_IMPL(processKey)(env, fakeThis(), key, JNI_TRUE);
        if (player->calls != before) {
            ++general;
            std::printf("key processKey %d %d\n", key, player->lastKey);
            expect(r == JNI_TRUE, "processKey keeps bit 0 of the answer", key);
            expect(player->lastFlag, "processKey passes the flag", key);
        } else {
            expect(r == JNI_FALSE, "an unknown key answers false", key);
        }
        before = player->calls;
        r = PIJ_IMPL(sendMheg5Key)(env, fakeThis(), key);
        if (player->calls != before) {
            ++mheg5;
            std::printf("key sendMheg5Key %d %d\n", key, player->lastKey);
            expect(r == JNI_FALSE, "sendMheg5Key keeps bit 0 of the answer", key);
        }
    }
    expect(general == 38, "38 keys reach the general key handling", general);
    expect(mheg5 == 32, "32 keys reach the MHEG-5 engine", mheg5);

    auto translate = [&](jint key, bool mheg) -> int32_t {
        int before = player->calls;
        if (mheg) {
            PIJ_IMPL(sendMheg5Key)(env, fakeThis(), key);
        } else {
            PIJ_IMPL(processKey)(env, fakeThis(), key, JNI_FALSE);
        }
        return player->calls == before ? -1 : player->lastKey;
    };
    // Centre and enter are the same key to the player; key 0 is forwarded, not dropped.
    expect(translate(23, false) == 0x0D && translate(66, false) == 0x0D, "select keys", 23);
    expect(translate(0, false) == 0 && !player->lastFlag, "key 0 with its flag", 0);
    expect(translate(7, false) == '0' && translate(16, false) == '9', "digits as ASCII", 7);
    expect(translate(7, true) == 16 && translate(16, true) == 25, "MHEG-5 digits", 7);
    expect(translate(166, true) == -1, "channel up is not an MHEG-5 key", 166);
    expect(translate(-1, false) == -1, "negative key", -1);

    // Without a player: false and the failure line, naming each handler's own class.
    fake::gPlayerObject.context = 0;
    expect(PIJ_IMPL(processKey)(env, fakeThis(), 19, JNI_TRUE) == JNI_FALSE, "no player", 19);
    expect(gLastLog ==
               "[Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_processKey(3131), "
               "java/lang/IllegalStateException",
           "processKey failure line", 19);
    expect(PIJ_IMPL(sendMheg5Key)(env, fakeThis(), 19) == JNI_FALSE, "no player", 19);
    expect(gLastLog ==
               "[Fatal jni_exception] com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key(2133), "
               "com/vireo/android/tvapi/common/exception/TvIpcException",
           "sendMheg5Key failure line", 19);
    std::fprintf(stderr, "%d + %d keys forwarded\n", general, mheg5);
}

}  // namespace native_report
