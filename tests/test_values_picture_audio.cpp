// Picture, signal and audio value objects built by the library, read back through the VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/audio.h"
#include "marshal/picture.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int E = ANDROID_LOG_ERROR;
const char* kVo = "Lcom/vireo/android/tvapi/common/vo/";

std::string fatal(const char* handler, int line, const char* cls) {
    return th::fatalLine(std::string("com_vireo_android_tvapi_impl_PlayerImpl_") + handler, line,
                         cls);
}

class ValuesPictureAudio : public th::PlayerTest {
protected:
    jobject get(const char* name, const char* cls) {
        return th::callL(player, name, (std::string("()") + cls).c_str());
    }
};

TEST_F(ValuesPictureAudio, WithoutAPlayerEachBuilderLogsItsClassAndReturnsNull) {
    th::callV(player, "release", "()V");
    th::clearLogs();
    const char* ipc = "com/vireo/android/tvapi/common/exception/TvIpcException";
    struct Case {
        const char* method;
        const char* sig;
        const char* handler;
        int line;
        const char* cls;
    } cases[] = {
        {"native_getAspectRatio", "()Lcom/vireo/android/tvapi/common/vo/VideoArcInfo;",
         "getAspectRatio", 1384, ipc},
        {"getVideoInfo", "()Lcom/vireo/android/tvapi/common/vo/VideoInfo;", "getVideoInfo", 1439,
         ipc},
        {"getCurrentSignalInformation",
         "()Lcom/vireo/android/tvapi/common/vo/DtvProgramSignalInfo;",
         "getCurrentSignalInformation", 2907, "java/lang/IllegalStateException"},
        {"getAudioInfo", "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;", "getAudioInfo", 2225,
         ipc},
        {"getAudioInfo_ex", "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;", "getAudioInfo_ex",
         2307, ipc},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.method);
        EXPECT_EQ(th::callL(player, c.method, c.sig), nullptr);
        EXPECT_EQ(th::countLog(E, fatal(c.handler, c.line, c.cls)), 1) << th::dumpLogs();
    }
    EXPECT_TRUE(th::hasLog(D, "native_getAspectRatio"));
    EXPECT_TRUE(fake->calls().empty());
    // Leave a player for TearDown's release.
    renewPlayer();
}

TEST_F(ValuesPictureAudio, AspectRatioCarriesBitsAndTheWholeBooleanByte) {
    uint8_t cusWin = 2;
    fake->onCall("getAspectRatio", [&](const host::OutArgs& o) {
        auto& r = o.at<VideoArcInfoRec>(0);
        r.arcType = 7;
        r.threeDimensionArcType = -3;
        r.adjArcLeft = -1;
        r.adjArcRight = 0x7FFF;
        r.adjArcUp = static_cast<int16_t>(0x8000);
        r.adjArcDown = 12;
        r.bSetCusWin = cusWin;
    });
    std::string sig = std::string(kVo) + "VideoArcInfo;";
    jobject arc = th::callL(player, "native_getAspectRatio", ("()" + sig).c_str());
    ASSERT_NE(arc, nullptr);
    EXPECT_EQ(th::getI(arc, "arcType"), 7);
    EXPECT_EQ(th::getI(arc, "threeDimensionArcType"), -3);
    EXPECT_EQ(th::getS(arc, "adjArcLeft"), -1);
    EXPECT_EQ(th::getS(arc, "adjArcRight"), 0x7FFF);
    EXPECT_EQ(th::getS(arc, "adjArcUp"), -32768);
    EXPECT_EQ(th::getS(arc, "adjArcDown"), 12);
    // The byte 2 is stored as it is: the field reads what a plain store of 2 gives on this VM,
    // not the true that a 0/1 reduction would give.
    EXPECT_EQ(
        th::getZ(arc, "bSetCusWin"),
        th::rawBooleanStore("com/vireo/android/tvapi/common/vo/VideoArcInfo", "bSetCusWin", 2));
    EXPECT_NE(th::getZ(arc, "bSetCusWin"), JNI_TRUE);
    // No constructor ran: the managed-only field the constructor sets is still null.
    EXPECT_EQ(th::getL(arc, "description", "Ljava/lang/String;"), nullptr);
    th::env()->DeleteLocalRef(arc);

    cusWin = 1;
    arc = th::callL(player, "native_getAspectRatio", ("()" + sig).c_str());
    EXPECT_EQ(th::getZ(arc, "bSetCusWin"), JNI_TRUE);
    th::env()->DeleteLocalRef(arc);
    EXPECT_EQ(th::countLog(D, "native_getAspectRatio"), 2);
}

TEST_F(ValuesPictureAudio, VideoInfoSignExtendsAndKeepsScanTypeApartFromModeIndex) {
    std::string sig = std::string(kVo) + "VideoInfo;";
    // A player that writes nothing leaves a zeroed record.
    jobject v = th::callL(player, "getVideoInfo", ("()" + sig).c_str());
    ASSERT_NE(v, nullptr);
    for (const char* f : {"hResolution", "vResolution", "frameRate", "enScanType", "modeIndex",
                          "arcDescriptionType", "arcType", "afdAspectRatio"}) {
        EXPECT_EQ(th::getI(v, f), 0) << f;
    }
    th::env()->DeleteLocalRef(v);

    fake->onCall("getVideoInfo", [](const host::OutArgs& o) {
        auto& r = o.at<VideoInfoRec>(0);
        r.hResolution = static_cast<int16_t>(0xFFFF);
        r.vResolution = 1080;
        r.frameRate = 50000;
        r.modeIndex = static_cast<int8_t>(0x80);
        r.enScanType = 2;
        r.arcDescriptionType = 3;
        r.arcType = 4;
        r.afdAspectRatio = -9;
    });
    v = th::callL(player, "getVideoInfo", ("()" + sig).c_str());
    EXPECT_EQ(th::getI(v, "hResolution"), -1);
    EXPECT_EQ(th::getI(v, "vResolution"), 1080);
    EXPECT_EQ(th::getI(v, "frameRate"), 50000);
    EXPECT_EQ(th::getI(v, "modeIndex"), -128);
    EXPECT_EQ(th::getI(v, "enScanType"), 2);
    EXPECT_EQ(th::getI(v, "arcDescriptionType"), 3);
    EXPECT_EQ(th::getI(v, "arcType"), 4);
    EXPECT_EQ(th::getI(v, "afdAspectRatio"), -9);
    th::env()->DeleteLocalRef(v);
}

TEST_F(ValuesPictureAudio, SignalInformationCarriesShortsAndTheNetworkName) {
    std::string name;
    fake->onCall("getCurrentSignalInformation", [&](const host::OutArgs& o) {
        auto& r = o.at<DtvProgramSignalInfoRec>(0);
        r.rfNumber = 0xFFFF;
        r.modulationMode = 64;
        r.amMode = 0x8001;
        r.quality = 90;
        r.strength = -70;
        r.symbolRate = 6900;
        r.networkName = android::String8(name.c_str());
    });
    std::string sig = std::string(kVo) + "DtvProgramSignalInfo;";
    jobject s = th::callL(player, "getCurrentSignalInformation", ("()" + sig).c_str());
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(th::getS(s, "rfNumber"), -1);
    EXPECT_EQ(th::getI(s, "modulationMode"), 64);
    EXPECT_EQ(th::getS(s, "amMode"), static_cast<jshort>(0x8001));
    EXPECT_EQ(th::getI(s, "quality"), 90);
    EXPECT_EQ(th::getI(s, "strength"), -70);
    EXPECT_EQ(th::getI(s, "symbolRate"), 6900);
    bool isNull = true;
    auto str = static_cast<jstring>(th::getL(s, "networkName", "Ljava/lang/String;"));
    EXPECT_EQ(th::toStdString(str, &isNull), "");
    EXPECT_FALSE(isNull) << "an empty name is an empty string";
    th::env()->DeleteLocalRef(str);
    th::env()->DeleteLocalRef(s);

    name = "Das Erste \xC3\x9C";  // UTF-8 text arrives as the same characters
    s = th::callL(player, "getCurrentSignalInformation", ("()" + sig).c_str());
    str = static_cast<jstring>(th::getL(s, "networkName", "Ljava/lang/String;"));
    EXPECT_EQ(th::toStdString(str), name);
    th::env()->DeleteLocalRef(str);
    th::env()->DeleteLocalRef(s);
}

// ---- Audio ----

void fillTrack(AudioInfoRec& t, int i) {
    t.aacProfileAndLevel = static_cast<uint16_t>(0x100 + i);
    t.aacType = static_cast<uint16_t>(0x200 + i);
    t.audioPid = static_cast<uint32_t>(0x1000 + i);
    t.audioType = static_cast<uint16_t>(0x300 + i);
    t.broadcastMixAd = static_cast<uint8_t>(i & 1);
    t.isoLangInfo.audioMode = static_cast<uint16_t>(0x400 + i);
    t.isoLangInfo.audioType = static_cast<uint16_t>(0x500 + i);
    t.isoLangInfo.isoLangInfo[0] = 'a';
    t.isoLangInfo.isoLangInfo[1] = static_cast<int8_t>('a' + i);
    t.isoLangInfo.isoLangInfo[2] = 'z';
    t.isoLangInfo.isValid = 1;
}

// The whole DtvAudioInfo as text, so that two results compare in one line.
std::string describeAudio(jobject a) {
    JNIEnv* e = th::env();
    std::string s = "n=" + std::to_string(th::getS(a, "audioLangNum")) +
                    " idx=" + std::to_string(th::getS(a, "currentAudioIndex")) +
                    " mode=" + std::to_string(th::getS(a, "currentChannelMode"));
    auto arr = static_cast<jobjectArray>(
        th::getL(a, "audioInfos", "[Lcom/vireo/android/tvapi/dtv/vo/AudioInfo;"));
    if (arr == nullptr) return s + " infos=null";
    jsize n = e->GetArrayLength(arr);
    s += " len=" + std::to_string(n);
    for (jsize i = 0; i < n; ++i) {
        jobject t = e->GetObjectArrayElement(arr, i);
        jobject lang = th::getL(t, "isoLangInfo", "Lcom/vireo/android/tvapi/dtv/vo/LangIso639;");
        auto code = static_cast<jcharArray>(th::getL(lang, "isoLangInfo", "[C"));
        s += " [pid=" + std::to_string(th::getI(t, "audioPid")) +
             " type=" + std::to_string(th::getS(t, "audioType")) +
             " aac=" + std::to_string(th::getS(t, "aacType")) +
             " prof=" + std::to_string(th::getS(t, "aacProfileAndLevel")) +
             " mix=" + std::to_string(th::getZ(t, "broadcastMixAd")) +
             " lmode=" + std::to_string(th::getS(lang, "audioMode")) +
             " ltype=" + std::to_string(th::getS(lang, "audioType")) +
             " valid=" + std::to_string(th::getZ(lang, "isValid")) +
             " code=" + th::numbers<jchar>(code) + "]";
        e->DeleteLocalRef(code);
        e->DeleteLocalRef(lang);
        e->DeleteLocalRef(t);
    }
    e->DeleteLocalRef(arr);
    return s;
}

class AudioValues : public ValuesPictureAudio {
protected:
    void serve(const DtvAudioInfoRec& rec) {
        auto fill = [rec](const host::OutArgs& o) {
            std::memcpy(&o.at<DtvAudioInfoRec>(0), &rec, sizeof rec);
        };
        fake->onCall("getAudioInfo", fill);
        fake->onCall("getAudioInfo_ex", fill);
    }
    std::string query(const char* method) {
        jobject a = th::callL(player, method, "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;");
        if (a == nullptr) return "null";
        std::string s = describeAudio(a);
        th::env()->DeleteLocalRef(a);
        return s;
    }
};

TEST_F(AudioValues, TracksCarryTheirFieldsAndSignedLanguageBytes) {
    DtvAudioInfoRec rec{};
    rec.audioLangNum = 2;
    rec.currentAudioIndex = 1;
    rec.currentChannelMode = 0xFFFF;
    fillTrack(rec.audioInfos[0], 0);
    std::memcpy(rec.audioInfos[0].isoLangInfo.isoLangInfo, "eng", 3);
    rec.audioInfos[0].audioPid = 0x80000001u;
    rec.audioInfos[0].aacType = 0x8000;
    rec.audioInfos[0].broadcastMixAd = 1;
    fillTrack(rec.audioInfos[1], 1);
    rec.audioInfos[1].isoLangInfo.isoLangInfo[0] = static_cast<int8_t>(0x80);
    rec.audioInfos[1].isoLangInfo.isoLangInfo[1] = 0;
    rec.audioInfos[1].isoLangInfo.isoLangInfo[2] = static_cast<int8_t>(0xFF);
    rec.audioInfos[1].isoLangInfo.isValid = 0;  // the code is copied all the same
    fillTrack(rec.audioInfos[2], 2);            // beyond the count: not read
    serve(rec);

    EXPECT_EQ(query("getAudioInfo"),
              "n=2 idx=1 mode=-1 len=2"
              " [pid=-2147483647 type=768 aac=-32768 prof=256 mix=1 lmode=1024 ltype=1280"
              " valid=1 code=101,110,103]"
              " [pid=4097 type=769 aac=513 prof=257 mix=1 lmode=1025 ltype=1281"
              " valid=0 code=65408,0,65535]");
    EXPECT_TRUE(th::hasLog(D, "getAudioInfo"));
}

TEST_F(AudioValues, BothQueriesGiveEqualObjectsFromTheSameRecord) {
    DtvAudioInfoRec rec{};
    rec.audioLangNum = 3;
    rec.currentAudioIndex = 2;
    for (int i = 0; i < 3; ++i) fillTrack(rec.audioInfos[i], i);
    serve(rec);
    std::string plain = query("getAudioInfo");
    EXPECT_EQ(plain, query("getAudioInfo_ex"));
    EXPECT_NE(plain.find("len=3"), std::string::npos) << plain;
    EXPECT_EQ(fake->callsOf("getAudioInfo").size(), 1u);
    EXPECT_EQ(fake->callsOf("getAudioInfo_ex").size(), 1u);
    EXPECT_TRUE(th::hasLog(D, "getAudioInfo_ex"));
}

TEST_F(AudioValues, CountsOutsideTheRecordStayWithinIt) {
    DtvAudioInfoRec rec{};
    rec.currentAudioIndex = 5;
    rec.currentChannelMode = 6;
    serve(rec);
    EXPECT_EQ(query("getAudioInfo"), "n=0 idx=5 mode=6 len=0") << "an empty array, not null";

    // Sixteen tracks: every per-track local reference is deleted in the loop, or the VM
    // warns about the local reference capacity (checked in TearDown).
    rec.audioLangNum = 16;
    for (int i = 0; i < 16; ++i) fillTrack(rec.audioInfos[i], i);
    serve(rec);
    std::string full = query("getAudioInfo");
    EXPECT_NE(full.find("len=16"), std::string::npos);

    th::clearLogs();
    rec.audioLangNum = 17;
    serve(rec);
    std::string over = query("getAudioInfo");
    EXPECT_EQ(over.substr(over.find(" len=")), full.substr(full.find(" len=")))
        << "at most the 16 entries of the record";
    EXPECT_EQ(over.substr(0, 5), "n=17 ");
    EXPECT_EQ(th::logsContaining("exceeds 16").size(), 1u) << th::dumpLogs();

    th::clearLogs();
    rec.audioLangNum = -1;
    serve(rec);
    EXPECT_EQ(query("getAudioInfo_ex"), "n=-1 idx=5 mode=6 len=0");
    EXPECT_FALSE(th::env()->ExceptionCheck());
    ASSERT_EQ(th::logsContaining("negative audio track count").size(), 1u);
    EXPECT_EQ(th::logsContaining("negative audio track count")[0].prio, E);
}

TEST_F(AudioValues, SixteenTracksLeaveOnlyTheResultAndClassReferences) {
    DtvAudioInfoRec rec{};
    rec.audioLangNum = 16;
    for (int i = 0; i < 16; ++i) fillTrack(rec.audioInfos[i], i);
    serve(rec);
    // Called directly, three times in one small local frame: each call may leave its result
    // and its three classes behind, but per-track objects, languages or arrays left behind
    // would take the frame past what -Xcheck:jni allows, and TearDown fails on its warning.
    using Fn = jobject (*)(JNIEnv*, jobject);
    for (const char* name : {"com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo",
                             "com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo_ex"}) {
        auto fn = reinterpret_cast<Fn>(th::librarySymbol(name));
        ASSERT_NE(fn, nullptr) << name;
        JNIEnv* e = th::env();
        ASSERT_EQ(e->PushLocalFrame(1), 0);
        jobject a = nullptr;
        for (int call = 0; call < 3; ++call) a = fn(e, player);
        EXPECT_NE(describeAudio(a).find("len=16"), std::string::npos);
        e->PopLocalFrame(nullptr);
    }
}

}  // namespace
