// The scan-progress and HbbTV payloads through a real VM: what each parcel becomes in its
// managed value object, short parcels, the finalized player, and a long run of events on
// one service thread that must not leave references or memory behind.
#include <android/log.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "core/PlayerImpl.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;

// A parcel of int32 values, optionally a string after the first `split` of them, positioned
// at its start.
struct ParcelBuilder {
    android::Parcel p;
    ParcelBuilder& ints(std::initializer_list<int32_t> values) {
        for (int32_t v : values) p.writeInt32(v);
        return *this;
    }
    ParcelBuilder& str(const char* s) {
        p.writeString8(android::String8(s));
        return *this;
    }
    android::Parcel& done() {
        p.setDataPosition(0);
        return p;
    }
};

const char* kAtv = "com/vireo/android/tvapi/atv/vo/AtvEventScan";
const char* kDtv = "com/vireo/android/tvapi/dtv/vo/DtvEventScan";
const char* kHbbtv = "com/vireo/android/tvapi/common/vo/HbbtvEventInfo";

class Payloads : public th::PlayerTest {
protected:
    Payloads() : PlayerTest(kSkipInChild | kClearEvents | kWarningsBeforeRelease) {}
    void TearDown() override {
        releaseEvents();
        PlayerTest::TearDown();
    }
    // Fires one event and keeps what reached the managed side in `evs`.
    void fire(std::function<void(PlayerImplListener&)> event) {
        releaseEvents();
        th::clearEvents();
        fake->fire(std::move(event));
        evs = th::events();
    }
    // The same for a listener the player no longer holds.
    void fireOn(const android::sp<PlayerImplListener>& l,
                std::function<void(PlayerImplListener&)> event) {
        releaseEvents();
        th::clearEvents();
        host::runOnServiceThread(0, [&] { event(*l); });
        evs = th::events();
    }
    void releaseEvents() { th::releaseEvents(evs); }
    // The one posted event: its code, ext1 0 and the given ext2, and its object.
    jobject posted(const char* field, int ext2) {
        EXPECT_EQ(evs.size(), 1u);
        if (evs.size() != 1u) return nullptr;
        EXPECT_EQ(evs[0].what, th::staticInt(field));
        EXPECT_EQ(evs[0].ext1, 0);
        EXPECT_EQ(evs[0].ext2, ext2);
        return evs[0].obj;
    }

    std::vector<th::Event> evs;
};

TEST_F(Payloads, AnalogueProgressNarrowsAndPostsTheSixthValue) {
    struct Kind {
        void (PlayerImplListener::*op)(const android::Parcel&);
        const char* code;
        const char* trace;
        const char* progress;
    } kinds[] = {
        {&PlayerImplListener::PostEvent_AtvAutoTuning, "TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO",
         "PostEvent_AtvAutoTuning", "AtvAutoTuning: "},
        {&PlayerImplListener::PostEvent_ManualTuning, "TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO",
         "PostEvent_ManualTuning", "AtvManualTuning: "},
    };
    for (const Kind& k : kinds) {
        SCOPED_TRACE(k.trace);
        // percent 200 is -56 as a signed byte; 70000 keeps its low 16 bits (4464); 2 is on.
        ParcelBuilder b;
        android::Parcel& p = b.ints({200, 474250, 70000, -3, 2, -77}).done();
        th::clearLogs();
        fire([&](PlayerImplListener& l) { (l.*k.op)(p); });
        jobject o = posted(k.code, -77);
        ASSERT_NE(o, nullptr);
        EXPECT_TRUE(th::isA(o, kAtv));
        EXPECT_EQ(th::getS(o, "percent"), -56);
        EXPECT_EQ(th::getI(o, "frequencyKHz"), 474250);
        EXPECT_EQ(th::getS(o, "scannedChannelNum"), 4464);
        EXPECT_EQ(th::getS(o, "curScannedChannel"), -3);
        EXPECT_EQ(th::getZ(o, "bIsScaningEnable"), JNI_TRUE);
        EXPECT_TRUE(th::hasLog(D, k.trace));
        EXPECT_TRUE(th::hasLog(D, std::string(k.progress) + "-56, 474250, 4464, -3, 1"))
            << th::dumpLogs();

        // 0x180 is -128 as a signed byte; 0x18000 keeps 0x8000 (-32768).
        ParcelBuilder b2;
        android::Parcel& p2 = b2.ints({0x180, -1, 0x18000, 65535, 0, 5}).done();
        th::clearLogs();
        fire([&](PlayerImplListener& l) { (l.*k.op)(p2); });
        o = posted(k.code, 5);
        ASSERT_NE(o, nullptr);
        EXPECT_EQ(th::getS(o, "percent"), -128);
        EXPECT_EQ(th::getS(o, "scannedChannelNum"), -32768);
        EXPECT_EQ(th::getS(o, "curScannedChannel"), -1);
        EXPECT_EQ(th::getZ(o, "bIsScaningEnable"), JNI_FALSE);
        EXPECT_TRUE(th::hasLog(D, std::string(k.progress) + "-128, -1, -32768, -1, 0"))
            << th::dumpLogs();
    }
}

TEST_F(Payloads, DigitalProgressGoesThroughTheServiceRecordWidths) {
    ParcelBuilder b;
    android::Parcel& p =
        b.ints({-2147483647, 300, 250, 65537, 40000, 3, 70001, 65535, -1, 123456, 7})
            .str("UHF 21")
            .ints({99})
            .done();
    fire([&](PlayerImplListener& l) { l.PostEvent_DtvAutoTuning(p); });
    jobject o = posted("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", 99);
    ASSERT_NE(o, nullptr);
    EXPECT_TRUE(th::isA(o, kDtv));
    EXPECT_EQ(th::getI(o, "scanStatus"), -2147483647);
    EXPECT_EQ(th::getS(o, "currRFCh"), 44) << "300 in an unsigned byte";
    EXPECT_EQ(th::getS(o, "scanPercentageNum"), 250) << "zero-extended, not sign-extended";
    EXPECT_EQ(th::getS(o, "dtvSrvCount"), 1) << "65537 in 16 bits";
    EXPECT_EQ(th::getS(o, "radioSrvCount"), static_cast<jshort>(40000));
    EXPECT_EQ(th::getS(o, "dataSrvCount"), 3);
    EXPECT_EQ(th::getS(o, "signalQuality"), static_cast<jshort>(70001 & 0xffff));
    EXPECT_EQ(th::getS(o, "signalStrength"), -1);
    EXPECT_EQ(th::getI(o, "currFrequency"), -1);
    EXPECT_EQ(th::getI(o, "userData"), 123456);
    EXPECT_EQ(th::getZ(o, "isVHF"), JNI_TRUE);
    bool isNull = true;
    EXPECT_EQ(th::getStr(o, "rfSignalName", &isNull), "UHF 21");
    // The progress line shows the record's unsigned 16-bit count as a positive number.
    EXPECT_TRUE(th::hasLog(D, "PostEvent_DtvAutoTuning"));
    EXPECT_TRUE(th::hasLog(D, "DtvAutoTuning: -2147483647, 44, 250, 1, 40000, 3, 1"))
        << th::dumpLogs();
}

TEST_F(Payloads, HbbtvEventsGetANewObjectEach) {
    ParcelBuilder b;
    android::Parcel& p = b.ints({5, 10, 11, 12, 13, 14, 15, 16, 17, 18, -19, 1234}).done();
    fire([&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(p); });
    jobject first = posted("TVPLAYER_HBBTV_UI_EVENT", 1234);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(th::isA(first, kHbbtv));
    EXPECT_EQ(th::getI(first, "eEvent"), 5);
    EXPECT_EQ(th::getInts(first, "param"),
              (std::vector<jint>{10, 11, 12, 13, 14, 15, 16, 17, 18, -19}));
    EXPECT_TRUE(th::hasLog(D, "PostEvent_HbbtvEvent"));
    jobject kept = th::env()->NewGlobalRef(first);

    ParcelBuilder b2;
    android::Parcel& p2 = b2.ints({6, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2}).done();
    fire([&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(p2); });
    jobject second = posted("TVPLAYER_HBBTV_UI_EVENT", 2);
    ASSERT_NE(second, nullptr);
    EXPECT_FALSE(th::env()->IsSameObject(kept, second));
    EXPECT_EQ(th::getI(kept, "eEvent"), 5) << "the earlier object is left as it was";
    EXPECT_EQ(th::getInts(second, "param").back(), 1);
    th::env()->DeleteGlobalRef(kept);
}

TEST_F(Payloads, ShortParcelsYieldZerosAndAnEmptyName) {
    ParcelBuilder dtvB;
    android::Parcel& dtv = dtvB.ints({1, 2, 3}).done();
    fire([&](PlayerImplListener& l) { l.PostEvent_DtvAutoTuning(dtv); });
    jobject o = posted("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", 0);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(th::getS(o, "scanPercentageNum"), 3);
    EXPECT_EQ(th::getS(o, "dtvSrvCount"), 0);
    EXPECT_EQ(th::getI(o, "userData"), 0);
    EXPECT_EQ(th::getZ(o, "isVHF"), JNI_FALSE);
    bool isNull = true;
    EXPECT_EQ(th::getStr(o, "rfSignalName", &isNull), "");
    EXPECT_FALSE(isNull) << "an empty name, not a missing one";

    android::Parcel empty;
    fire([&](PlayerImplListener& l) { l.PostEvent_AtvAutoTuning(empty); });
    o = posted("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO", 0);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(th::getS(o, "percent"), 0);
    EXPECT_EQ(th::getI(o, "frequencyKHz"), 0);

    ParcelBuilder hbbB;
    android::Parcel& hbb = hbbB.ints({9, 1}).done();
    fire([&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(hbb); });
    o = posted("TVPLAYER_HBBTV_UI_EVENT", 0);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(th::getI(o, "eEvent"), 9);
    EXPECT_EQ(th::getInts(o, "param"), (std::vector<jint>{1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Payloads, ParcelsAreReadFromWhereTheServiceLeftThem) {
    ParcelBuilder b;
    android::Parcel& p = b.ints({111, 222, 50, 1000, 1, 2, 1, 8}).done();
    p.setDataPosition(2 * sizeof(int32_t));  // the service already consumed a header
    fire([&](PlayerImplListener& l) { l.PostEvent_ManualTuning(p); });
    jobject o = posted("TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO", 8);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(th::getS(o, "percent"), 50);
    EXPECT_EQ(th::getI(o, "frequencyKHz"), 1000);
}

TEST_F(Payloads, AfterFinalizeScanEventsAreDroppedButHbbtvStillPosts) {
    ParcelBuilder atvB, dtvB, hbbB;
    android::Parcel& atv = atvB.ints({10, 20, 30, 40, 1, 6}).done();
    android::Parcel& dtv = dtvB.ints({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}).str("x").ints({13}).done();
    android::Parcel& hbb = hbbB.ints({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}).done();
    android::sp<PlayerImplListener> listener = fake->listener();
    th::callV(player, "release", "()V");  // also deletes the shared scan objects
    ASSERT_NE(listener, nullptr);

    th::clearLogs();
    fireOn(listener, [&](PlayerImplListener& l) { l.PostEvent_AtvAutoTuning(atv); });
    EXPECT_TRUE(evs.empty());
    EXPECT_TRUE(th::hasLog(D, "AtvAutoTuning: 10, 20, 30, 40, 1")) << "read and logged first";
    EXPECT_EQ(th::countLog(D, "playerimpl has been finalized"), 1);
    EXPECT_EQ(atv.dataPosition(), 6 * sizeof(int32_t));

    th::clearLogs();
    fireOn(listener, [&](PlayerImplListener& l) { l.PostEvent_DtvAutoTuning(dtv); });
    EXPECT_TRUE(evs.empty());
    EXPECT_TRUE(th::hasLog(D, "DtvAutoTuning: 1, 2, 3, 4, 5, 6, 0"));
    EXPECT_EQ(th::countLog(D, "playerimpl has been finalized"), 1);

    fireOn(listener, [&](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(hbb); });
    EXPECT_NE(posted("TVPLAYER_HBBTV_UI_EVENT", 12), nullptr);
    listener.clear();

    // A new player brings the shared objects back.
    th::env()->DeleteLocalRef(player);
    player = th::newPlayer();
    fake = host::lastFakePlayer();
    atv.setDataPosition(0);
    fire([&](PlayerImplListener& l) { l.PostEvent_AtvAutoTuning(atv); });
    EXPECT_NE(posted("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO", 6), nullptr);
}

TEST_F(Payloads, ScanEventsShareOneObjectPerKind) {
    ParcelBuilder b1, b2;
    android::Parcel& p1 = b1.ints({1, 2, 3, 4, 1, 0}).done();
    android::Parcel& p2 = b2.ints({9, 8, 7, 6, 0, 0}).done();
    fire([&](PlayerImplListener& l) { l.PostEvent_AtvAutoTuning(p1); });
    jobject first = th::env()->NewGlobalRef(posted("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO", 0));
    fire([&](PlayerImplListener& l) { l.PostEvent_ManualTuning(p2); });
    jobject second = posted("TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO", 0);
    EXPECT_TRUE(th::env()->IsSameObject(first, second));
    EXPECT_EQ(th::getS(first, "percent"), 9) << "the shared object was refilled";
    th::env()->DeleteGlobalRef(first);
}

// ---- A long run on one service thread ----

jlong usedHeapAfterGc() {
    JNIEnv* e = th::env();
    jclass rt = th::findClass("java/lang/Runtime");
    jobject r = e->CallStaticObjectMethod(
        rt, e->GetStaticMethodID(rt, "getRuntime", "()Ljava/lang/Runtime;"));
    th::failOnPendingException();
    jmethodID gc = e->GetMethodID(rt, "gc", "()V");
    for (int i = 0; i < 3; ++i) {
        e->CallVoidMethod(r, gc);
        th::failOnPendingException();
    }
    jlong total = e->CallLongMethod(r, e->GetMethodID(rt, "totalMemory", "()J"));
    th::failOnPendingException();
    jlong free = e->CallLongMethod(r, e->GetMethodID(rt, "freeMemory", "()J"));
    th::failOnPendingException();
    e->DeleteLocalRef(r);
    return total - free;
}

TEST_F(Payloads, AHundredThousandEventsOfEachKindLeaveNothingBehind) {
    ParcelBuilder hbbB, dtvB;
    android::Parcel& hbb = hbbB.ints({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}).done();
    android::Parcel& dtv =
        dtvB.ints({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1}).str("channel name").ints({13}).done();
    constexpr int kBatch = 10000;
    auto batch = [&](int n) {
        fake->fire([&](PlayerImplListener& l) {
            for (int i = 0; i < n; ++i) {
                hbb.setDataPosition(0);
                l.PostEvent_HbbtvEvent(hbb);
                dtv.setDataPosition(0);
                l.PostEvent_DtvAutoTuning(dtv);
            }
        });
        th::clearEvents();  // the recorder would otherwise keep every object
        th::clearLogs();
    };
    // Warm-up: the thread's first attach, class loading, compiled code. A leak shows here
    // already as the runtime's warning; stop then, since every later event would be
    // checked against an ever longer reference table.
    batch(kBatch / 10);
    th::expectNoJniWarnings();
    if (HasFailure()) return;
    batch(kBatch - kBatch / 10);
    const jlong before = usedHeapAfterGc();
    for (int i = 1; i < 100000 / kBatch; ++i) batch(kBatch);
    const jlong after = usedHeapAfterGc();
    // A leaked reference per event would keep 90,000 objects and arrays (several MB) alive.
    EXPECT_LT(after - before, 1 << 20) << "heap grew from " << before << " to " << after;
}

}  // namespace
