// Picture, signal and audio value objects built by the library, read back through the VM.
#include <android/log.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <tuple>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/audio.h"
#include "marshal/picture.h"

namespace {

constexpr int E = ANDROID_LOG_ERROR;
const std::string kApi = "com/vireo/android/tvapi/";
const std::string kHandler = "com_vireo_android_tvapi_impl_PlayerImpl_";
const char* kAudioSig = "()Lcom/vireo/android/tvapi/dtv/vo/DtvAudioInfo;";

class ValuesPictureAudio : public th::PlayerTest {
protected:
    // The query `method` returning an object of the API class `cls`; a local reference.
    jobject get(const char* method, const char* cls) {
        return th::callL(player, method, ("()L" + kApi + cls + ";").c_str());
    }
};

TEST_F(ValuesPictureAudio, WithoutAPlayerEachBuilderLogsItsClassAndReturnsNull) {
    th::callV(player, "release", "()V");
    fake->clearCalls();  // the release's disconnect
    th::clearLogs();
    const char* ipc = "com/vireo/android/tvapi/common/exception/TvIpcException";
    // The managed method, its exported handler, the class it returns and the report.
    const std::tuple<const char*, const char*, const char*, int, const char*> cases[] = {
        {"native_getAspectRatio", "getAspectRatio", "common/vo/VideoArcInfo", 1384, ipc},
        {"getVideoInfo", "getVideoInfo", "common/vo/VideoInfo", 1439, ipc},
        {"getCurrentSignalInformation", "getCurrentSignalInformation",
         "common/vo/DtvProgramSignalInfo", 2907, "java/lang/IllegalStateException"},
        {"getAudioInfo", "getAudioInfo", "dtv/vo/DtvAudioInfo", 2225, ipc},
        {"getAudioInfo_ex", "getAudioInfo_ex", "dtv/vo/DtvAudioInfo", 2307, ipc},
    };
    for (const auto& [method, handler, cls, line, exc] : cases) {
        EXPECT_EQ(get(method, cls), nullptr) << method;
        EXPECT_EQ(th::countLog(E, th::fatalLine(kHandler + handler, line, exc)), 1)
            << th::dumpLogs();
    }
    EXPECT_TRUE(fake->calls().empty());
}

TEST_F(ValuesPictureAudio, PictureRecordsKeepTheirSignsAndOrder) {
    // Each record in its field order; every field a value of its own.
    fake->onCall(th::Op::getAspectRatio, [](const th::OutArgs& o) {
        o.at<VideoArcInfoRec>(0) = {7, -3, -1, 0x7FFF, INT16_MIN, 12, /*bSetCusWin*/ 2};
    });
    fake->onCall(th::Op::getVideoInfo, [](const th::OutArgs& o) {
        o.at<VideoInfoRec>(0) = {-1, 1080, 50000, /*modeIndex*/ -128, 2, 3, 4, -9};
    });
    fake->onCall(th::Op::getCurrentSignalInformation, [](const th::OutArgs& o) {
        o.at<DtvProgramSignalInfoRec>(0) = {0xFFFF, 64, 0x8001, 90, -70, 6900, android::String8()};
    });

    // The byte 2 is stored as it is: the flag reads what a plain store of 2 gives on this VM,
    // not the true that a 0/1 reduction would give.
    const std::string arcCls = kApi + "common/vo/VideoArcInfo";
    const std::string arcWant =
        "arcType:I=7 threeDimensionArcType:I=-3 adjArcLeft:S=-1 adjArcRight:S=32767 "
        "adjArcUp:S=-32768 adjArcDown:S=12 bSetCusWin:Z=" +
        std::to_string(th::rawBooleanStore(arcCls.c_str(), "bSetCusWin", 2));
    jobject arc = get("native_getAspectRatio", "common/vo/VideoArcInfo");
    ASSERT_NE(arc, nullptr);
    EXPECT_EQ(th::fields(arc, arcWant), arcWant);
    EXPECT_NE(th::getZ(arc, "bSetCusWin"), JNI_TRUE);
    // No constructor ran: the managed-only field the constructor sets is still null.
    EXPECT_EQ(th::getL(arc, "description", "Ljava/lang/String;"), nullptr);

    const std::string videoWant =
        "hResolution:I=-1 vResolution:I=1080 frameRate:I=50000 modeIndex:I=-128 enScanType:I=2 "
        "arcDescriptionType:I=3 arcType:I=4 afdAspectRatio:I=-9";
    jobject v = get("getVideoInfo", "common/vo/VideoInfo");
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(th::fields(v, videoWant), videoWant);

    const std::string signalWant =
        "rfNumber:S=-1 modulationMode:I=64 amMode:S=-32767 quality:I=90 strength:I=-70 "
        "symbolRate:I=6900";
    jobject s = get("getCurrentSignalInformation", "common/vo/DtvProgramSignalInfo");
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(th::fields(s, signalWant), signalWant);
    bool isNull = true;
    EXPECT_EQ(th::getStr(s, "networkName", &isNull), "");
    EXPECT_FALSE(isNull) << "an empty name is an empty string";
    for (jobject o : {arc, v, s}) th::env()->DeleteLocalRef(o);
}

// ---- Audio ----

// Track i: every field a value of its own, the language "a", 'a' + i, "z".
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
    std::string s = th::fields(a, "audioLangNum:S currentAudioIndex:S currentChannelMode:S");
    auto arr = static_cast<jobjectArray>(
        th::getL(a, "audioInfos", "[Lcom/vireo/android/tvapi/dtv/vo/AudioInfo;"));
    if (arr == nullptr) return s + " audioInfos=null";
    s += " len=" + std::to_string(e->GetArrayLength(arr));
    for (jsize i = 0; i < e->GetArrayLength(arr); ++i) {
        jobject t = e->GetObjectArrayElement(arr, i);
        jobject lang = th::getL(t, "isoLangInfo", "Lcom/vireo/android/tvapi/dtv/vo/LangIso639;");
        const char* trackFields =
            "audioPid:I audioType:S aacType:S aacProfileAndLevel:S "
            "broadcastMixAd:Z";
        s += " [" + th::fields(t, trackFields) + " lang " +
             th::fields(lang, "audioMode:S audioType:S isValid:Z") + " " +
             th::numbers<jchar>(lang, "isoLangInfo", "[C") + "]";
        e->DeleteLocalRef(lang);
        e->DeleteLocalRef(t);
    }
    e->DeleteLocalRef(arr);
    return s;
}

class AudioValues : public ValuesPictureAudio {
protected:
    void serve(const DtvAudioInfoRec& rec) {
        auto fill = [rec](const th::OutArgs& o) {
            std::memcpy(&o.at<DtvAudioInfoRec>(0), &rec, sizeof rec);
        };
        fake->onCall(th::Op::getAudioInfo, fill);
        fake->onCall(th::Op::getAudioInfo_ex, fill);
    }
    // The result as text, or the exception the managed caller received instead (taken and
    // cleared here, so the VM sees it checked).
    std::string query(const char* method) {
        JNIEnv* e = th::env();
        jobject a = e->CallObjectMethod(player, th::playerMethod(method, kAudioSig));
        if (jthrowable t = e->ExceptionOccurred()) {
            e->ExceptionClear();
            jclass negative = th::findClass("java/lang/NegativeArraySizeException");
            std::string s = e->IsInstanceOf(t, negative) ? "NegativeArraySizeException" : "other";
            e->DeleteLocalRef(t);
            return s + (a == nullptr ? "" : " and a result");
        }
        std::string s = a == nullptr ? "null" : describeAudio(a);
        e->DeleteLocalRef(a);
        return s;
    }
};

TEST_F(AudioValues, BothQueriesGiveTheTracksWithSignedLanguageBytes) {
    DtvAudioInfoRec rec{};
    rec.audioLangNum = 2;
    rec.currentAudioIndex = 1;
    rec.currentChannelMode = 0xFFFF;
    for (int i = 0; i < 3; ++i) fillTrack(rec.audioInfos[i], i);  // the third is past the count
    std::memcpy(rec.audioInfos[0].isoLangInfo.isoLangInfo, "eng", 3);
    rec.audioInfos[0].audioPid = 0x80000001u;
    rec.audioInfos[0].aacType = 0x8000;
    LangIso639Rec& lang = rec.audioInfos[1].isoLangInfo;
    lang.isoLangInfo[0] = static_cast<int8_t>(0x80);
    lang.isoLangInfo[1] = 0;
    lang.isoLangInfo[2] = static_cast<int8_t>(0xFF);
    lang.isValid = 0;  // the code is copied all the same
    serve(rec);

    const std::string want =
        "audioLangNum:S=2 currentAudioIndex:S=1 currentChannelMode:S=-1 len=2"
        " [audioPid:I=-2147483647 audioType:S=768 aacType:S=-32768 aacProfileAndLevel:S=256"
        " broadcastMixAd:Z=0 lang audioMode:S=1024 audioType:S=1280 isValid:Z=1 101,110,103]"
        " [audioPid:I=4097 audioType:S=769 aacType:S=513 aacProfileAndLevel:S=257"
        " broadcastMixAd:Z=1 lang audioMode:S=1025 audioType:S=1281 isValid:Z=0 65408,0,65535]";
    EXPECT_EQ(query("getAudioInfo"), want);
    EXPECT_EQ(query("getAudioInfo_ex"), want);
    // Each query asks the player its own operation.
    EXPECT_EQ(fake->callsOf(th::Op::getAudioInfo).size(), 1u);
    EXPECT_EQ(fake->callsOf(th::Op::getAudioInfo_ex).size(), 1u);
}

TEST_F(AudioValues, TrackCountsOutsideTheRecord) {
    DtvAudioInfoRec rec{};
    rec.currentAudioIndex = 5;
    rec.currentChannelMode = 6;
    serve(rec);
    EXPECT_EQ(query("getAudioInfo"),
              "audioLangNum:S=0 currentAudioIndex:S=5 currentChannelMode:S=6 len=0")
        << "an empty array, not null";

    // A negative count: the managed caller gets a NegativeArraySizeException, the player is
    // asked once, and the handler makes no further VM call (-Xcheck:jni would warn, failing
    // TearDown) and writes nothing past its trace line.
    for (int16_t negative : {int16_t{-1}, int16_t{-32768}}) {
        rec.audioLangNum = negative;
        serve(rec);
        fake->clearCalls();
        th::clearLogs();
        EXPECT_EQ(query("getAudioInfo_ex"), "NegativeArraySizeException") << negative;
        EXPECT_EQ(th::logs().size(), 1u) << th::dumpLogs();
        EXPECT_EQ(fake->callsOf(th::Op::getAudioInfo_ex).size(), 1u);
    }

    // More than the record's 16 entries: 16 are read, with an ERROR line. Called straight into
    // the handlers, three times in one small local frame: each call may leave its result and
    // its three classes behind, but per-track objects, languages or arrays left behind would
    // take the frame past what -Xcheck:jni allows.
    rec.audioLangNum = 17;
    for (int i = 0; i < 16; ++i) fillTrack(rec.audioInfos[i], i);
    serve(rec);
    th::clearLogs();
    using Fn = jobject (*)(JNIEnv*, jobject);
    for (const std::string name : {"getAudioInfo", "getAudioInfo_ex"}) {
        auto fn = reinterpret_cast<Fn>(th::librarySymbol((kHandler + name).c_str()));
        ASSERT_NE(fn, nullptr) << name;
        JNIEnv* e = th::env();
        std::string s;
        jobject self = e->NewGlobalRef(player);  // this frame's locals are not the caller's
        th::underManagedCaller([&] {
            ASSERT_EQ(e->PushLocalFrame(1), 0);
            jobject a = nullptr;
            for (int call = 0; call < 3; ++call) a = fn(e, self);
            s = describeAudio(a);
            e->PopLocalFrame(nullptr);
        });
        e->DeleteGlobalRef(self);
        EXPECT_EQ(s.substr(0, s.find(" [")),
                  "audioLangNum:S=17 currentAudioIndex:S=5 currentChannelMode:S=6 len=16");
        EXPECT_NE(s.find("[audioPid:I=4111 audioType:S=783 "), std::string::npos) << s;
    }
    auto over = th::logsContaining("audio track count 17 exceeds 16");
    ASSERT_EQ(over.size(), 6u) << th::dumpLogs();
    EXPECT_EQ(over[0].prio, E);
}

}  // namespace
