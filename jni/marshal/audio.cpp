// Audio tracks of the current DTV programme: a DtvAudioInfo holding one AudioInfo, with its
// LangIso639, per valid track. getAudioInfo and getAudioInfo_ex differ only in the player
// operation that fills the record.
#include "marshal/audio.h"

#include <cstdio>

#include "core/frame.h"
#include "core/handlers.h"
#include "marshal/marshal_util.h"

namespace {

using pij::FieldCopy;
using pij::Jt;
using pij::ManagedClass;

enum DtvAudioField : uint8_t { kLangNum, kInfos, kCurIndex, kCurMode };
const ManagedClass kDtvAudioInfo{"com/vireo/android/tvapi/dtv/vo/DtvAudioInfo",
                                 {{"audioLangNum", "S"},
                                  {"audioInfos", "[Lcom/vireo/android/tvapi/dtv/vo/AudioInfo;"},
                                  {"currentAudioIndex", "S"},
                                  {"currentChannelMode", "S"}}};
PIJ_REGISTER_VALUE_CLASS(kDtvAudioInfo);

enum AudioField : uint8_t { kLang, kPid, kType, kMixAd, kAacType, kAacProfile };
const ManagedClass kAudioInfo{"com/vireo/android/tvapi/dtv/vo/AudioInfo",
                              {{"isoLangInfo", "Lcom/vireo/android/tvapi/dtv/vo/LangIso639;"},
                               {"audioPid", "I"},
                               {"audioType", "S"},
                               {"broadcastMixAd", "Z"},
                               {"aacType", "S"},
                               {"aacProfileAndLevel", "S"}}};
PIJ_REGISTER_VALUE_CLASS(kAudioInfo);

enum LangField : uint8_t { kLangChars, kLangMode, kLangType, kLangValid };
const ManagedClass kLangIso639{
    "com/vireo/android/tvapi/dtv/vo/LangIso639",
    {{"isoLangInfo", "[C"}, {"audioMode", "S"}, {"audioType", "S"}, {"isValid", "Z"}}};
PIJ_REGISTER_VALUE_CLASS(kLangIso639);

const FieldCopy<DtvAudioInfoRec> kDtvAudioRows[] = {
    PIJ_COPY(Jt::S, &DtvAudioInfoRec::audioLangNum)(kLangNum),
    PIJ_COPY(Jt::S, &DtvAudioInfoRec::currentAudioIndex)(kCurIndex),
    PIJ_COPY(Jt::S, &DtvAudioInfoRec::currentChannelMode)(kCurMode),
};

const FieldCopy<AudioInfoRec> kAudioRows[] = {
    PIJ_COPY(Jt::I, &AudioInfoRec::audioPid)(kPid),
    PIJ_COPY(Jt::S, &AudioInfoRec::audioType)(kType),
    PIJ_COPY(Jt::S, &AudioInfoRec::aacType)(kAacType),
    PIJ_COPY(Jt::S, &AudioInfoRec::aacProfileAndLevel)(kAacProfile),
    PIJ_COPY(Jt::Z, &AudioInfoRec::broadcastMixAd)(kMixAd),
};

const FieldCopy<LangIso639Rec> kLangRows[] = {
    PIJ_COPY(Jt::S, &LangIso639Rec::audioMode)(kLangMode),
    PIJ_COPY(Jt::S, &LangIso639Rec::audioType)(kLangType),
    PIJ_COPY(Jt::Z, &LangIso639Rec::isValid)(kLangValid),
};

// Source lines the failure reports carry.
constexpr int kLineAudioInfo = 2225;
constexpr int kLineAudioInfoEx = 2307;

// The number of entries to convert. The record holds 16; a larger count would read past it,
// so at most 16 are read, with an ERROR line. A negative count is returned as it is and
// refused by buildAudioInfo.
jsize usableTrackCount(const char* what, int16_t count) {
    if (count > kMaxAudioTracks) {
        ALOGE("%s: audio track count %d exceeds %d, reading %d", what, count, kMaxAudioTracks,
              kMaxAudioTracks);
        return kMaxAudioTracks;
    }
    return count;
}

jobject buildAudioInfo(JNIEnv* env, const char* what, const DtvAudioInfoRec& rec) {
    jclass dtvCls = env->FindClass(kDtvAudioInfo.path);
    const pij::FieldIds dtvIds = pij::lookupFields(env, dtvCls, kDtvAudioInfo);
    jclass audioCls = env->FindClass(kAudioInfo.path);
    const pij::FieldIds audioIds = pij::lookupFields(env, audioCls, kAudioInfo);
    jclass langCls = env->FindClass(kLangIso639.path);
    const pij::FieldIds langIds = pij::lookupFields(env, langCls, kLangIso639);

    jobject result = env->AllocObject(dtvCls);
    pij::copyFields(env, result, dtvIds, kDtvAudioRows, rec);

    const jsize count = usableTrackCount(what, rec.audioLangNum);
    // A negative count gets the outcome a refused array length gives the managed caller: a
    // pending NegativeArraySizeException and no loop. The exception is raised here rather
    // than by asking for the array: on the device's runtime NewObjectArray with a negative
    // length aborts the whole process instead of throwing.
    if (count < 0) {
        char length[8];
        snprintf(length, sizeof length, "%d", count);
        env->ThrowNew(env->FindClass("java/lang/NegativeArraySizeException"), length);
        return result;
    }
    jobjectArray tracks = env->NewObjectArray(count, audioCls, nullptr);
    // No array (no memory): the VM's exception is pending, so no further call goes into the
    // VM; the managed caller gets that exception, not the half-made object.
    if (tracks == nullptr) return result;
    for (jsize i = 0; i < count; ++i) {
        const AudioInfoRec& entry = rec.audioInfos[i];
        jobject track = env->AllocObject(audioCls);
        pij::copyFields(env, track, audioIds, kAudioRows, entry);

        jobject lang = env->AllocObject(langCls);
        pij::copyFields(env, lang, langIds, kLangRows, entry.isoLangInfo);
        // All three characters, whatever isValid says; signed bytes, so 0x80 gives U+FF80.
        pij::setWidenedArrayField<jchar>(env, lang, langIds[kLangChars],
                                         entry.isoLangInfo.isoLangInfo, 3);
        env->SetObjectField(track, audioIds[kLang], lang);
        env->DeleteLocalRef(lang);

        env->SetObjectArrayElement(tracks, i, track);
        env->DeleteLocalRef(track);
    }
    env->SetObjectField(result, dtvIds[kInfos], tracks);
    env->DeleteLocalRef(tracks);
    return result;
}

template <typename Query>
jobject audioInfo(JNIEnv* env, jobject thiz, const char* fn, int line, const char* what,
                  Query query) {
    ALOGD("%s", what);
    return pij::withPlayer(env, thiz, pij::Site{fn, line, pij::Exc::TvIpc}, jobject{},
                           [&](PlayerImpl& p) {
                               DtvAudioInfoRec rec{};  // cleared; the player fills it
                               (p.*query)(rec);
                               return buildAudioInfo(env, what, rec);
                           });
}

}  // namespace

PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo)(JNIEnv* env, jobject thiz) {
    return audioInfo(env, thiz, __func__, kLineAudioInfo, "getAudioInfo",
                     &PlayerImpl::getAudioInfo);
}

PIJ_EXPORT jobject PIJ_IMPL(getAudioInfo_ex)(JNIEnv* env, jobject thiz) {
    return audioInfo(env, thiz, __func__, kLineAudioInfoEx, "getAudioInfo_ex",
                     &PlayerImpl::getAudioInfo_ex);
}
