// Records the player fills for the audio tracks of the current DTV programme.
#pragma once

#include <cstddef>
#include <cstdint>

struct LangIso639Rec {
    uint16_t audioMode;
    uint16_t audioType;
    int8_t isoLangInfo[3];  // ISO 639 code, not terminated; bytes are signed
    uint8_t isValid;        // boolean byte, carried whole
};
static_assert(sizeof(LangIso639Rec) == 8, "LangIso639Rec size");
static_assert(alignof(LangIso639Rec) == 2, "LangIso639Rec alignment");
static_assert(offsetof(LangIso639Rec, audioType) == 2, "LangIso639Rec layout");
static_assert(offsetof(LangIso639Rec, isoLangInfo) == 4, "LangIso639Rec layout");
static_assert(offsetof(LangIso639Rec, isValid) == 7, "LangIso639Rec layout");

struct AudioInfoRec {
    uint16_t aacProfileAndLevel;
    uint16_t aacType;
    uint32_t audioPid;
    uint16_t audioType;
    uint8_t broadcastMixAd;  // boolean byte, carried whole
    LangIso639Rec isoLangInfo;
};
static_assert(sizeof(AudioInfoRec) == 20, "AudioInfoRec size");
static_assert(offsetof(AudioInfoRec, aacType) == 2, "AudioInfoRec layout");
static_assert(offsetof(AudioInfoRec, audioPid) == 4, "AudioInfoRec layout");
static_assert(offsetof(AudioInfoRec, audioType) == 8, "AudioInfoRec layout");
static_assert(offsetof(AudioInfoRec, broadcastMixAd) == 10, "AudioInfoRec layout");
static_assert(offsetof(AudioInfoRec, isoLangInfo) == 12, "AudioInfoRec layout");

// Capacity of the track array; audioLangNum counts the valid entries.
constexpr int kMaxAudioTracks = 16;

struct DtvAudioInfoRec {
    int16_t audioLangNum;
    AudioInfoRec audioInfos[kMaxAudioTracks];
    uint16_t currentAudioIndex;
    uint16_t currentChannelMode;
};
static_assert(sizeof(DtvAudioInfoRec) == 328, "DtvAudioInfoRec size");
static_assert(offsetof(DtvAudioInfoRec, audioInfos) == 4, "DtvAudioInfoRec layout");
static_assert(offsetof(DtvAudioInfoRec, currentAudioIndex) == 324, "DtvAudioInfoRec layout");
static_assert(offsetof(DtvAudioInfoRec, currentChannelMode) == 326, "DtvAudioInfoRec layout");
