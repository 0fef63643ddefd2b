// Fuzzes the parcel reading of the four payload events (analogue auto and manual tuning,
// digital auto tuning, HbbTV) through the real listener, with a stand-in JNI environment.
// The first byte picks the event (bits 0-1) and whether the shared scan objects exist
// (bit 7 clear) or the player has been finalised (bit 7 set); the rest is the parcel.
// Each event posts at most once.
#include <cstdint>

#include "core/context.h"
#include "core/parcel.h"
#include "events/listener.h"
#include "double/stand_in_vm.h"

namespace {

struct Setup {
    JNIEnv* env;
    android::sp<pij::JNIVSrvListener> listener;
    jclass atvClass, dtvClass;
    jobject atv, dtv;
    jobject thiz;  // kept, as the listener's managed object would be

    Setup() {
        fake::installEnvironment();
        env = &fake::gEnv;
        thiz = fake::newGlobal(env, fake::keepLocal(&fake::gPlayerObject));
        jobject weak = fake::keepLocal(&fake::gWeakObject);
        listener = new pij::JNIVSrvListener(env, thiz, weak);
        atvClass = static_cast<jclass>(fake::newHandle(&fake::gClassObject));
        dtvClass = static_cast<jclass>(fake::newHandle(&fake::gClassObject));
        atv = fake::newHandle(new fake::Object);
        dtv = fake::newHandle(new fake::Object);
        fake::resetLocals();
    }

    void scanObjects(bool present) {
        pij::gScan.atvClass.store(present ? atvClass : nullptr);
        pij::gScan.atv.store(present ? atv : nullptr);
        pij::gScan.dtvClass.store(present ? dtvClass : nullptr);
        pij::gScan.dtv.store(present ? dtv : nullptr);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Setup setup;
    if (size < 1) return 0;
    const uint8_t select = data[0];
    setup.scanObjects((select & 0x80) == 0);
    android::Parcel p;
    p.setData(data + 1, size - 1);
    const long postsBefore = fake::gPosts.load();
    switch (select & 3) {
        case 0:
            setup.listener->PostEvent_AtvAutoTuning(p);
            break;
        case 1:
            setup.listener->PostEvent_ManualTuning(p);
            break;
        case 2:
            setup.listener->PostEvent_DtvAutoTuning(p);
            break;
        default:
            setup.listener->PostEvent_HbbtvEvent(p);
            break;
    }
    if (fake::gPosts.load() - postsBefore > 1) __builtin_trap();
    fake::resetLocals();
    return 0;
}
