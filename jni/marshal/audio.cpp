// Audio tracks of the current DTV programme: a DtvAudioInfo holding one AudioInfo, with its
// LangIso639, per valid track. getAudioInfo and getAudioInfo_ex differ only in the player
// operation that fills the record.
#include "core/log.h"

#include "marshal/audio.h"

#include <cstdio>

#include "core/frame.h"
#include "core/handlers.h"
#include "core/scoped.h"
#include "marshal/marshal_util.h"

namespace {

using pij::Copy;
using pij::Field;

// A track's language. The three characters go whatever isValid says; the bytes are signed,
// so 0x80 gives U+FF80.
constexpr Field<LangIso639Rec> kLangFields[] = {
    PIJ_FIELD(LangIso639Rec, audioMode, S),
    PIJ_FIELD(LangIso639Rec, audioType, S),
    PIJ_FIELD(LangIso639Rec, isValid, Z),
    PIJ_FIELD(LangIso639Rec, isoLangInfo, C),
};
constexpr auto kLangLookup =
    pij::orderOf(kLangFields, "isoLangInfo", "audioMode", "audioType", "isValid");
constexpr auto kLangIso639 =
    pij::valueClass("com/vireo/android/tvapi/dtv/vo/LangIso639", kLangFields, &kLangLookup);

// The ids of the classes nested in DtvAudioInfo, in Copy::nested (see audioInfo).
enum Nested { kNestedTrack, kNestedLang };

// A track's isoLangInfo: a new LangIso639.
bool langOut(const Copy& c, jobject track, jfieldID id, const AudioInfoRec& entry) {
    const pij::FieldIds& ids = c.nested[kNestedLang];
    ScopedLocalRef<jobject> lang(c.env, pij::allocate(c.env, ids));
    if (lang.get() == nullptr ||
        !pij::toObject(c, lang.get(), kLangIso639, ids, entry.isoLangInfo)) {
        return false;
    }
    c.env->SetObjectField(track, id, lang.get());
    return true;
}

constexpr Field<AudioInfoRec> kTrackFields[] = {
    PIJ_FIELD(AudioInfoRec, audioPid, I),
    PIJ_FIELD(AudioInfoRec, audioType, S),
    PIJ_FIELD(AudioInfoRec, aacType, S),
    PIJ_FIELD(AudioInfoRec, aacProfileAndLevel, S),
    PIJ_FIELD(AudioInfoRec, broadcastMixAd, Z),
    pij::customField<AudioInfoRec>("isoLangInfo", "Lcom/vireo/android/tvapi/dtv/vo/LangIso639;",
                                   &langOut),
};
constexpr auto kTrackLookup = pij::orderOf(kTrackFields, "isoLangInfo", "audioPid", "audioType",
                                           "broadcastMixAd", "aacType", "aacProfileAndLevel");
constexpr auto kAudioInfo =
    pij::valueClass("com/vireo/android/tvapi/dtv/vo/AudioInfo", kTrackFields, &kTrackLookup);

// The number of entries to convert. The record holds 16; a larger count would read past it,
// so at most 16 are read, with an ERROR line. A negative count is returned as it is and
// refused by tracksOut.
jsize usableTrackCount(const char* what, int16_t count) {
    if (count > kMaxAudioTracks) {
        ALOGE("%s: audio track count %d exceeds %d, reading %d", what, count, kMaxAudioTracks,
              kMaxAudioTracks);
        return kMaxAudioTracks;
    }
    return count;
}

// audioInfos: one AudioInfo per valid track.
bool tracksOut(const Copy& c, jobject result, jfieldID id, const DtvAudioInfoRec& rec) {
    JNIEnv* env = c.env;
    const jsize count = usableTrackCount(c.caller, rec.audioLangNum);
    // A negative count gets the outcome a refused array length gives the managed caller: a
    // pending NegativeArraySizeException and no loop. The exception is raised here rather
    // than by asking for the array: on the device's runtime NewObjectArray with a negative
    // length aborts the whole process instead of throwing.
    if (count < 0) {
        char length[12];  // any int: a sign, ten digits and the NUL
        snprintf(length, sizeof length, "%d", count);
        ScopedLocalRef<jclass> refused(env, env->FindClass("java/lang/NegativeArraySizeException"));
        // Without the class its own NoClassDefFoundError is pending instead.
        if (refused.get() != nullptr) env->ThrowNew(refused.get(), length);
        return false;
    }
    const pij::FieldIds& trackIds = c.nested[kNestedTrack];
    ScopedLocalRef<jobjectArray> tracks(env, env->NewObjectArray(count, trackIds.cls, nullptr));
    // No array (no memory): the runtime's exception is pending, so no further call goes into
    // the VM; the managed caller gets that exception, not a half-made object.
    if (tracks.get() == nullptr) return false;
    for (jsize i = 0; i < count; ++i) {
        ScopedLocalRef<jobject> track(env, pij::allocate(env, trackIds));
        if (track.get() == nullptr ||
            !pij::toObject(c, track.get(), kAudioInfo, trackIds, rec.audioInfos[i])) {
            return false;
        }
        env->SetObjectArrayElement(tracks.get(), i, track.get());
    }
    env->SetObjectField(result, id, tracks.get());
    return true;
}

constexpr Field<DtvAudioInfoRec> kDtvAudioFields[] = {
    PIJ_FIELD(DtvAudioInfoRec, audioLangNum, S),
    PIJ_FIELD(DtvAudioInfoRec, currentAudioIndex, S),
    PIJ_FIELD(DtvAudioInfoRec, currentChannelMode, S),
    pij::customField<DtvAudioInfoRec>("audioInfos", "[Lcom/vireo/android/tvapi/dtv/vo/AudioInfo;",
                                      &tracksOut),
};
constexpr auto kDtvAudioLookup = pij::orderOf(kDtvAudioFields, "audioLangNum", "audioInfos",
                                              "currentAudioIndex", "currentChannelMode");
constexpr auto kDtvAudioInfo = pij::valueClass("com/vireo/android/tvapi/dtv/vo/DtvAudioInfo",
                                               kDtvAudioFields, &kDtvAudioLookup);

template <typename Query>
jobject audioInfo(JNIEnv* env, jobject thiz, const char* fn, int line, const char* what,
                  Query query) {
    ALOGD("%s", what);
    return pij::withPlayer(
        env, thiz, pij::Site{fn, line, pij::Exc::TvIpc}, jobject{}, [&](PlayerImpl& p) {
            DtvAudioInfoRec rec{};  // cleared; the player fills it
            (p.*query)(rec);
            // The tracks' classes are found with DtvAudioInfo, before the result is made.
            return pij::newObjectWithNested(env, what, kDtvAudioInfo, kAudioInfo, kLangIso639, rec);
        });
}

// The classes above as the check tool reads them.
constexpr pij::ManagedClass kClasses[] = {PIJ_DESCRIBE(kLangIso639), PIJ_DESCRIBE(kAudioInfo),
                                          PIJ_DESCRIBE(kDtvAudioInfo)};

}  // namespace

constexpr pij::ManagedClassList pij::kAudioClasses = pij::classList(kClasses);

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo(JNIEnv* env, jobject thiz) {
    return audioInfo(env, thiz, __func__, 2225, "getAudioInfo", &PlayerImpl::getAudioInfo);
}

PIJ_EXPORT jobject com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo_ex(JNIEnv* env,
                                                                           jobject thiz) {
    return audioInfo(env, thiz, __func__, 2307, "getAudioInfo_ex", &PlayerImpl::getAudioInfo_ex);
}
