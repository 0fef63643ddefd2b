// Value objects built by the library, getVideoInfo and getAudioInfo with sixteen tracks, against
// natives of the same signatures called from managed loops of the same shape (figures are per
// call, kBatch calls per iteration):
//   physical - AllocObject and the same field stores, class and field ids cached;
//   look-ups - the same with the class and every field id looked up on each call, as the
//              design requires (the managed classes are found by path on every call);
//   required - the look-ups plus the handler's trace line and call frame and the proxy's fill
//              of the record: everything the handler must do.
// The library's ratio to "required" is what its own code adds.
#include "bench_support.h"
#include "harness/jvm_harness.h"

namespace {

constexpr int kBatch = 1000;

const char* const kVideoInfo = "com/vireo/android/tvapi/common/vo/VideoInfo";
const char* const kDtvAudioInfo = "com/vireo/android/tvapi/dtv/vo/DtvAudioInfo";
const char* const kAudioInfo = "com/vireo/android/tvapi/dtv/vo/AudioInfo";
const char* const kLangIso639 = "com/vireo/android/tvapi/dtv/vo/LangIso639";

// ---- getVideoInfo's work ----

struct VideoIds {
    jclass cls;
    jfieldID hRes, vRes, frameRate, scanType, modeIndex, arcDesc, arcType, afd;
};

VideoIds findVideo(JNIEnv* e) {
    VideoIds k;
    k.cls = e->FindClass(kVideoInfo);
    k.hRes = e->GetFieldID(k.cls, "hResolution", "I");
    k.vRes = e->GetFieldID(k.cls, "vResolution", "I");
    k.frameRate = e->GetFieldID(k.cls, "frameRate", "I");
    k.scanType = e->GetFieldID(k.cls, "enScanType", "I");
    k.modeIndex = e->GetFieldID(k.cls, "modeIndex", "I");
    k.arcDesc = e->GetFieldID(k.cls, "arcDescriptionType", "I");
    k.arcType = e->GetFieldID(k.cls, "arcType", "I");
    k.afd = e->GetFieldID(k.cls, "afdAspectRatio", "I");
    return k;
}

jobject buildVideo(JNIEnv* e, const VideoIds& k, const VideoInfoRec& r) {
    jobject o = e->AllocObject(k.cls);
    e->SetIntField(o, k.hRes, r.hResolution);
    e->SetIntField(o, k.vRes, r.vResolution);
    e->SetIntField(o, k.frameRate, r.frameRate);
    e->SetIntField(o, k.scanType, r.enScanType);
    e->SetIntField(o, k.modeIndex, r.modeIndex);
    e->SetIntField(o, k.arcDesc, r.arcDescriptionType);
    e->SetIntField(o, k.arcType, r.arcType);
    e->SetIntField(o, k.afd, r.afdAspectRatio);
    return o;
}

// ---- getAudioInfo's work ----

struct AudioIds {
    jclass dtvCls;
    jfieldID langNum, infos, curIndex, curMode;
    jclass audioCls;
    jfieldID lang, pid, type, mixAd, aacType, aacProfile;
    jclass langCls;
    jfieldID chars, mode, langType, valid;
};

AudioIds findAudio(JNIEnv* e) {
    AudioIds k;
    k.dtvCls = e->FindClass(kDtvAudioInfo);
    k.langNum = e->GetFieldID(k.dtvCls, "audioLangNum", "S");
    k.infos = e->GetFieldID(k.dtvCls, "audioInfos", "[Lcom/vireo/android/tvapi/dtv/vo/AudioInfo;");
    k.curIndex = e->GetFieldID(k.dtvCls, "currentAudioIndex", "S");
    k.curMode = e->GetFieldID(k.dtvCls, "currentChannelMode", "S");
    k.audioCls = e->FindClass(kAudioInfo);
    k.lang =
        e->GetFieldID(k.audioCls, "isoLangInfo", "Lcom/vireo/android/tvapi/dtv/vo/LangIso639;");
    k.pid = e->GetFieldID(k.audioCls, "audioPid", "I");
    k.type = e->GetFieldID(k.audioCls, "audioType", "S");
    k.mixAd = e->GetFieldID(k.audioCls, "broadcastMixAd", "Z");
    k.aacType = e->GetFieldID(k.audioCls, "aacType", "S");
    k.aacProfile = e->GetFieldID(k.audioCls, "aacProfileAndLevel", "S");
    k.langCls = e->FindClass(kLangIso639);
    k.chars = e->GetFieldID(k.langCls, "isoLangInfo", "[C");
    k.mode = e->GetFieldID(k.langCls, "audioMode", "S");
    k.langType = e->GetFieldID(k.langCls, "audioType", "S");
    k.valid = e->GetFieldID(k.langCls, "isValid", "Z");
    return k;
}

// In the design's order; each track's local references are deleted as they are stored.
jobject buildAudio(JNIEnv* e, const AudioIds& k, const DtvAudioInfoRec& r) {
    jobject result = e->AllocObject(k.dtvCls);
    e->SetShortField(result, k.langNum, r.audioLangNum);
    e->SetShortField(result, k.curIndex, static_cast<jshort>(r.currentAudioIndex));
    e->SetShortField(result, k.curMode, static_cast<jshort>(r.currentChannelMode));
    const jsize count = r.audioLangNum;
    jobjectArray tracks = e->NewObjectArray(count, k.audioCls, nullptr);
    for (jsize i = 0; i < count; ++i) {
        const AudioInfoRec& t = r.audioInfos[i];
        jobject track = e->AllocObject(k.audioCls);
        e->SetIntField(track, k.pid, static_cast<jint>(t.audioPid));
        e->SetShortField(track, k.type, static_cast<jshort>(t.audioType));
        e->SetShortField(track, k.aacType, static_cast<jshort>(t.aacType));
        e->SetShortField(track, k.aacProfile, static_cast<jshort>(t.aacProfileAndLevel));
        e->SetBooleanField(track, k.mixAd, t.broadcastMixAd);
        jobject lang = e->AllocObject(k.langCls);
        e->SetShortField(lang, k.mode, static_cast<jshort>(t.isoLangInfo.audioMode));
        e->SetShortField(lang, k.langType, static_cast<jshort>(t.isoLangInfo.audioType));
        e->SetBooleanField(lang, k.valid, t.isoLangInfo.isValid);
        jcharArray chars = e->NewCharArray(3);
        jchar* c = e->GetCharArrayElements(chars, nullptr);
        for (int j = 0; j < 3; ++j) c[j] = static_cast<jchar>(t.isoLangInfo.isoLangInfo[j]);
        e->ReleaseCharArrayElements(chars, c, 0);
        e->SetObjectField(lang, k.chars, chars);
        e->DeleteLocalRef(chars);
        e->SetObjectField(track, k.lang, lang);
        e->DeleteLocalRef(lang);
        e->SetObjectArrayElement(tracks, i, track);
        e->DeleteLocalRef(track);
    }
    e->SetObjectField(result, k.infos, tracks);
    e->DeleteLocalRef(tracks);
    return result;
}

// ---- The floors' natives ----

struct Fixture {
    bench::Player player;
    bench::Floors floors;
    VideoIds video{};  // with global class references
    AudioIds audio{};
};
Fixture gFx;

jobject JNICALL videoPhysical(JNIEnv* e, jobject) {
    return buildVideo(e, gFx.video, bench::sampleVideo());
}

jobject JNICALL videoLookups(JNIEnv* e, jobject) {
    return buildVideo(e, findVideo(e), bench::sampleVideo());
}

jobject JNICALL videoRequired(JNIEnv* e, jobject thiz) {
    __android_log_print(bench::kDebug, bench::kTag, "getVideoInfo");
    android::sp<PlayerImpl> p = bench::framedProxy(e, thiz, gFx.floors.context);
    if (p == nullptr) return nullptr;
    VideoInfoRec rec{};
    p->getVideoInfo(rec);
    return buildVideo(e, findVideo(e), rec);
}

jobject JNICALL audioPhysical(JNIEnv* e, jobject) {
    return buildAudio(e, gFx.audio, bench::sampleAudio());
}

jobject JNICALL audioLookups(JNIEnv* e, jobject) {
    return buildAudio(e, findAudio(e), bench::sampleAudio());
}

jobject JNICALL audioRequired(JNIEnv* e, jobject thiz) {
    __android_log_print(bench::kDebug, bench::kTag, "getAudioInfo");
    android::sp<PlayerImpl> p = bench::framedProxy(e, thiz, gFx.floors.context);
    if (p == nullptr) return nullptr;
    DtvAudioInfoRec rec{};
    p->getAudioInfo(rec);
    return buildAudio(e, findAudio(e), rec);
}

struct Loops {
    jmethodID videoPhysical, videoLookups, videoRequired, getVideoInfo;
    jmethodID audioPhysical, audioLookups, audioRequired, getAudioInfo;
};
Loops gLoops{};

jclass globalClass(JNIEnv* e, jclass local) {
    auto g = static_cast<jclass>(e->NewGlobalRef(local));
    e->DeleteLocalRef(local);
    return g;
}

bool setUp() {
    JNIEnv* e = th::env();
    gFx.player = bench::newQuietPlayer();
    const char* videoSig = "()Lcom/vireo/android/tvapi/common/vo/VideoInfo;";
    const char* audioSig = "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;";
    auto native = [](const char* name, const char* sig, void* fn) {
        return JNINativeMethod{const_cast<char*>(name), const_cast<char*>(sig), fn};
    };
    const std::vector<JNINativeMethod> natives = {
        native("videoPhysical", videoSig, reinterpret_cast<void*>(&videoPhysical)),
        native("videoLookups", videoSig, reinterpret_cast<void*>(&videoLookups)),
        native("videoRequired", videoSig, reinterpret_cast<void*>(&videoRequired)),
        native("audioPhysical", audioSig, reinterpret_cast<void*>(&audioPhysical)),
        native("audioLookups", audioSig, reinterpret_cast<void*>(&audioLookups)),
        native("audioRequired", audioSig, reinterpret_cast<void*>(&audioRequired)),
    };
    if (!bench::newFloors(gFx.player, natives, &gFx.floors)) return false;

    gFx.video = findVideo(e);
    gFx.video.cls = globalClass(e, gFx.video.cls);
    gFx.audio = findAudio(e);
    gFx.audio.dtvCls = globalClass(e, gFx.audio.dtvCls);
    gFx.audio.audioCls = globalClass(e, gFx.audio.audioCls);
    gFx.audio.langCls = globalClass(e, gFx.audio.langCls);

    const jclass c = gFx.floors.cls;
    const char* floorSig = "(Lcom/vireo/test/BenchFloors;I)I";
    const char* playerSig = "(Lcom/vireo/android/tvapi/impl/PlayerImpl;I)I";
    gLoops = {bench::staticMethod(c, "loopVideoPhysical", floorSig),
              bench::staticMethod(c, "loopVideoLookups", floorSig),
              bench::staticMethod(c, "loopVideoRequired", floorSig),
              bench::staticMethod(c, "loopGetVideoInfo", playerSig),
              bench::staticMethod(c, "loopAudioPhysical", floorSig),
              bench::staticMethod(c, "loopAudioLookups", floorSig),
              bench::staticMethod(c, "loopAudioRequired", floorSig),
              bench::staticMethod(c, "loopGetAudioInfo", playerSig)};
    for (jmethodID m :
         {gLoops.videoPhysical, gLoops.videoLookups, gLoops.videoRequired, gLoops.getVideoInfo,
          gLoops.audioPhysical, gLoops.audioLookups, gLoops.audioRequired, gLoops.getAudioInfo}) {
        if (m == nullptr) return false;
    }
    return !e->ExceptionCheck();
}

void runLoop(benchmark::State& state, jmethodID loop, jobject target) {
    bench::runManagedLoop(state, gFx.floors.cls, loop, target, kBatch);
}

jobject floors() { return gFx.floors.object; }
jobject player() { return gFx.player.object; }

void BM_VideoPhysical(benchmark::State& s) { runLoop(s, gLoops.videoPhysical, floors()); }
void BM_VideoLookups(benchmark::State& s) { runLoop(s, gLoops.videoLookups, floors()); }
void BM_VideoRequired(benchmark::State& s) { runLoop(s, gLoops.videoRequired, floors()); }
void BM_GetVideoInfo(benchmark::State& s) { runLoop(s, gLoops.getVideoInfo, player()); }
void BM_AudioPhysical(benchmark::State& s) { runLoop(s, gLoops.audioPhysical, floors()); }
void BM_AudioLookups(benchmark::State& s) { runLoop(s, gLoops.audioLookups, floors()); }
void BM_AudioRequired(benchmark::State& s) { runLoop(s, gLoops.audioRequired, floors()); }
void BM_GetAudioInfo16(benchmark::State& s) { runLoop(s, gLoops.getAudioInfo, player()); }

BENCHMARK(BM_VideoPhysical)->UseRealTime();
BENCHMARK(BM_VideoLookups)->UseRealTime();
BENCHMARK(BM_VideoRequired)->UseRealTime();
BENCHMARK(BM_GetVideoInfo)->UseRealTime();
BENCHMARK(BM_AudioPhysical)->UseRealTime();
BENCHMARK(BM_AudioLookups)->UseRealTime();
BENCHMARK(BM_AudioRequired)->UseRealTime();
BENCHMARK(BM_GetAudioInfo16)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, kBatch,
                      {
                          {"BM_GetVideoInfo", "BM_VideoPhysical", "physical: alloc + stores"},
                          {"BM_GetVideoInfo", "BM_VideoLookups", "+ class and field look-ups"},
                          {"BM_GetVideoInfo", "BM_VideoRequired", "+ trace, frame: required"},
                          {"BM_GetAudioInfo16", "BM_AudioPhysical", "physical: alloc + stores"},
                          {"BM_GetAudioInfo16", "BM_AudioLookups", "+ class and field look-ups"},
                          {"BM_GetAudioInfo16", "BM_AudioRequired", "+ trace, frame: required"},
                      },
                      setUp);
}
