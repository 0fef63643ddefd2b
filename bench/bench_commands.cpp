// A thin boolean command, closeTeletext, against what any such command must cost, all called
// from managed loops of the same shape in batches of kBatch (figures are per call):
//   (a) an empty boolean native;
//   (b) (a) plus the handler's trace line, formatted as the library formats it;
//   (c) (b) plus the rest of the call frame: the lock, the read of the context field, a strong
//       reference on the proxy, the proxy's virtual operation, bit 0 of its answer.
// Beyond (c) the command has nothing left to do, so its ratio to (c) is what the library adds.
// One thread, and two threads at once on one player object next to two on the empty native:
// the frame's one lock and the proxy's one reference count are shared by every caller.
#include "bench_support.h"
#include "harness/jvm_harness.h"

namespace {

constexpr int kBatch = 1000;

struct Fixture {
    bench::Player player;
    bench::Floors floors;
    jmethodID loopNop = nullptr;
    jmethodID loopNopTrace = nullptr;
    jmethodID loopNopFrame = nullptr;
    jmethodID loopCloseTeletext = nullptr;
};
Fixture gFx;

jboolean JNICALL nop(JNIEnv*, jobject) { return JNI_TRUE; }

jboolean JNICALL nopTrace(JNIEnv*, jobject) {
    __android_log_print(bench::kDebug, bench::kTag, "closeTeletext");
    return JNI_TRUE;
}

jboolean JNICALL nopFrame(JNIEnv* env, jobject thiz) {
    __android_log_print(bench::kDebug, bench::kTag, "closeTeletext");
    android::sp<PlayerImpl> p = bench::framedProxy(env, thiz, gFx.floors.context);
    if (p == nullptr) return JNI_FALSE;
    return static_cast<jboolean>(p->closeTeletext() & 1u);
}

bool setUp() {
    gFx.player = bench::newQuietPlayer();
    const std::vector<JNINativeMethod> natives = {
        {const_cast<char*>("nop"), const_cast<char*>("()Z"), reinterpret_cast<void*>(&nop)},
        {const_cast<char*>("nopTrace"), const_cast<char*>("()Z"),
         reinterpret_cast<void*>(&nopTrace)},
        {const_cast<char*>("nopFrame"), const_cast<char*>("()Z"),
         reinterpret_cast<void*>(&nopFrame)},
    };
    if (!bench::newFloors(gFx.player, natives, &gFx.floors)) return false;
    const jclass c = gFx.floors.cls;
    const char* floorSig = "(Lcom/vireo/test/BenchFloors;I)I";
    gFx.loopNop = bench::staticMethod(c, "loopNop", floorSig);
    gFx.loopNopTrace = bench::staticMethod(c, "loopNopTrace", floorSig);
    gFx.loopNopFrame = bench::staticMethod(c, "loopNopFrame", floorSig);
    gFx.loopCloseTeletext = bench::staticMethod(c, "loopCloseTeletext",
                                                "(Lcom/vireo/android/tvapi/impl/PlayerImpl;I)I");
    return gFx.loopNop && gFx.loopNopTrace && gFx.loopNopFrame && gFx.loopCloseTeletext;
}

void runLoop(benchmark::State& state, jmethodID loop, jobject target) {
    bench::runManagedLoop(state, gFx.floors.cls, loop, target, kBatch);
}

void BM_EmptyNative(benchmark::State& s) { runLoop(s, gFx.loopNop, gFx.floors.object); }
void BM_EmptyNativeTrace(benchmark::State& s) { runLoop(s, gFx.loopNopTrace, gFx.floors.object); }
void BM_FrameFloor(benchmark::State& s) { runLoop(s, gFx.loopNopFrame, gFx.floors.object); }
void BM_CloseTeletext(benchmark::State& s) { runLoop(s, gFx.loopCloseTeletext, gFx.player.object); }

BENCHMARK(BM_EmptyNative)->Threads(1)->Threads(2)->UseRealTime();
BENCHMARK(BM_EmptyNativeTrace)->UseRealTime();
BENCHMARK(BM_FrameFloor)->Threads(1)->Threads(2)->UseRealTime();
BENCHMARK(BM_CloseTeletext)->Threads(1)->Threads(2)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, kBatch,
                      {
                          {"BM_CloseTeletext", "BM_EmptyNative", "(a) empty native"},
                          {"BM_CloseTeletext", "BM_EmptyNativeTrace", "(b) (a) + trace line"},
                          {"BM_CloseTeletext", "BM_FrameFloor", "(c) (b) + frame: required"},
                          {"BM_FrameFloor", "BM_EmptyNative", "(a) empty native"},
                      },
                      setUp);
}
