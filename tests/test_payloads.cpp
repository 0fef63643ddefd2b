// The scan-progress and HbbTV payloads through a real VM: what each parcel becomes in its
// managed value object, parcels read on from where they are and running short, the
// finalized player, and a long run of events on one service thread that must not leave
// references or memory behind.
#include <android/log.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
using ParcelEvent = void (PlayerImplListener::*)(const android::Parcel&);
constexpr ParcelEvent kAtvAuto = &PlayerImplListener::PostEvent_AtvAutoTuning;
constexpr ParcelEvent kAtvManual = &PlayerImplListener::PostEvent_ManualTuning;
constexpr ParcelEvent kDtvAuto = &PlayerImplListener::PostEvent_DtvAutoTuning;
constexpr ParcelEvent kHbbtv = &PlayerImplListener::PostEvent_HbbtvEvent;

// Fills `p` with int32 values, optionally a string and more values, and rewinds it.
void fill(android::Parcel& p, const std::vector<int32_t>& ints, const char* str = nullptr,
          const std::vector<int32_t>& more = {}) {
    for (int32_t v : ints) p.writeInt32(v);
    if (str != nullptr) p.writeString8(android::String8(str));
    for (int32_t v : more) p.writeInt32(v);
    p.setDataPosition(0);
}

// The fields of an analogue and of a digital progress object, the name aside, in order.
std::vector<jint> atvFields(jobject o) {
    return {th::getS(o, "percent"), th::getI(o, "frequencyKHz"), th::getS(o, "scannedChannelNum"),
            th::getS(o, "curScannedChannel"), th::getZ(o, "bIsScaningEnable")};
}
std::vector<jint> dtvFields(jobject o) {
    std::vector<jint> v{th::getI(o, "scanStatus")};
    for (const char* f : {"currRFCh", "scanPercentageNum", "dtvSrvCount", "radioSrvCount",
                          "dataSrvCount", "signalQuality", "signalStrength"}) {
        v.push_back(th::getS(o, f));
    }
    v.insert(v.end(),
             {th::getI(o, "currFrequency"), th::getI(o, "userData"), th::getZ(o, "isVHF")});
    return v;
}

class Payloads : public th::PlayerTest {
protected:
    Payloads() : PlayerTest(kSkipInChild | kClearEvents | kWarningsBeforeRelease) {}
    void TearDown() override {
        th::releaseEvents(evs);
        PlayerTest::TearDown();
    }
    // Runs one event on a service thread, on the player's listener unless another is given,
    // and keeps what reached the managed side in `evs` (and its log lines).
    void fire(ParcelEvent op, const android::Parcel& p, android::sp<PlayerImplListener> l = {}) {
        th::releaseEvents(evs);
        th::clearEvents();
        th::clearLogs();
        if (l == nullptr) l = fake->listener();
        host::runOnServiceThread(0, [&] { ((*l).*op)(p); });
        evs = th::events();
    }
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

TEST_F(Payloads, AnalogueProgressNarrowsLikeTheServiceIntoOneSharedObject) {
    android::Parcel p;
    // 200 is -56 as a signed byte; 0x18000 keeps its low 16 bits (-32768), 65535 too (-1);
    // 2 is on. Nothing follows, so a second event finds the parcel short.
    fill(p, {200, 474250, 0x18000, 65535, 2, -77});
    fire(kAtvManual, p);
    jobject o = posted("TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO", -77);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(atvFields(o), (std::vector<jint>{-56, 474250, -32768, -1, 1}));
    EXPECT_TRUE(th::hasLog(D, "PostEvent_ManualTuning"));
    EXPECT_TRUE(th::hasLog(D, "AtvManualTuning: -56, 474250, -32768, -1, 1")) << th::dumpLogs();
    jobject shared = th::env()->NewGlobalRef(o);

    // The automatic kind fills the same object, and writes 0 for what the parcel lacks.
    fire(kAtvAuto, p);
    o = posted("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO", 0);
    EXPECT_TRUE(th::env()->IsSameObject(o, shared));
    th::env()->DeleteGlobalRef(shared);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(atvFields(o), (std::vector<jint>{0, 0, 0, 0, 0}));
    EXPECT_TRUE(th::hasLog(D, "PostEvent_AtvAutoTuning"));
    EXPECT_TRUE(th::hasLog(D, "AtvAutoTuning: 0, 0, 0, 0, 0")) << th::dumpLogs();
}

TEST_F(Payloads, DigitalProgressGoesThroughTheServiceRecordWidths) {
    android::Parcel p;
    fill(p, {-2147483647, 300, 250, 65537, 40000, 3, 70001, 65535, -1, 123456, 7}, "UHF 21",
         {99, 11, 12, 13});  // a second, short payload follows the first
    fire(kDtvAuto, p);
    jobject o = posted("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", 99);
    ASSERT_NE(o, nullptr);
    // Unsigned truncation to 8 or 16 bits, then zero extension: 300 is 44, 250 stays 250,
    // 65537 is 1; 40000 and 70001 & 0xffff then wrap in the 16-bit managed field.
    EXPECT_EQ(dtvFields(o),
              (std::vector<jint>{-2147483647, 44, 250, 1, -25536, 3, 4465, -1, -1, 123456, 1}));
    EXPECT_EQ(th::getStr(o, "rfSignalName"), "UHF 21");
    // The progress line shows the record's unsigned 16-bit count as a positive number.
    EXPECT_TRUE(th::hasLog(D, "PostEvent_DtvAutoTuning"));
    EXPECT_TRUE(th::hasLog(D, "DtvAutoTuning: -2147483647, 44, 250, 1, 40000, 3, 1"))
        << th::dumpLogs();

    // The short payload: zeros and an empty name written over the values above.
    fire(kDtvAuto, p);
    o = posted("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", 0);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(dtvFields(o), (std::vector<jint>{11, 12, 13, 0, 0, 0, 0, 0, 0, 0, 0}));
    bool isNull = true;
    EXPECT_EQ(th::getStr(o, "rfSignalName", &isNull), "");
    EXPECT_FALSE(isNull) << "an empty name, not a missing one";
}

TEST_F(Payloads, AnEmptyScanNameIsItsLengthAloneOnTheWire) {
    // As the device's Parcel has it: an empty String8 is the length 0 and nothing else, so
    // the value after it starts at the next word.
    android::Parcel p;
    p.writeString8(android::String8(""));
    EXPECT_EQ(p.dataSize(), 4u);
    p.writeInt32(77);
    p.setDataPosition(0);
    EXPECT_EQ(std::string(p.readString8().c_str()), "");
    EXPECT_EQ(p.readInt32(), 77);

    android::Parcel scan;
    fill(scan, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1}, "", {55});
    EXPECT_EQ(scan.dataSize(), 13 * 4u);
    fire(kDtvAuto, scan);
    jobject o = posted("TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO", 55);
    ASSERT_NE(o, nullptr);
    bool isNull = true;
    EXPECT_EQ(th::getStr(o, "rfSignalName", &isNull), "");
    EXPECT_FALSE(isNull);
    EXPECT_EQ(dtvFields(o), (std::vector<jint>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1}));
}

TEST_F(Payloads, HbbtvEventsGetANewObjectEach) {
    android::Parcel p;
    fill(p, {5, 10, 11, 12, 13, 14, 15, 16, 17, 18, -19, 1234, 9, 1});  // then a short one
    fire(kHbbtv, p);
    jobject first = posted("TVPLAYER_HBBTV_UI_EVENT", 1234);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(th::isA(first, "com/vireo/android/tvapi/common/vo/HbbtvEventInfo"));
    EXPECT_EQ(th::getI(first, "eEvent"), 5);
    EXPECT_EQ(th::getInts(first, "param"),
              (std::vector<jint>{10, 11, 12, 13, 14, 15, 16, 17, 18, -19}));
    EXPECT_TRUE(th::hasLog(D, "PostEvent_HbbtvEvent"));
    jobject kept = th::env()->NewGlobalRef(first);

    fire(kHbbtv, p);
    jobject second = posted("TVPLAYER_HBBTV_UI_EVENT", 0);
    ASSERT_NE(second, nullptr);
    EXPECT_FALSE(th::env()->IsSameObject(kept, second));
    EXPECT_EQ(th::getI(second, "eEvent"), 9);
    EXPECT_EQ(th::getInts(second, "param"), (std::vector<jint>{1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(th::getI(kept, "eEvent"), 5) << "the earlier object is left as it was";
    th::env()->DeleteGlobalRef(kept);
}

// After native_finalize the scan events find no shared objects. The HbbTV event makes its own
// object: it posts wherever its class is found by name (a managed thread, through the
// caller's loader); on a service thread, which finds only what the system class loader
// sees, the class native_setup kept went with the scan objects, and the event is dropped
// with its ERROR line.
TEST_F(Payloads, AfterFinalizeScanEventsAreReadAndLoggedButOnlyHbbtvPosts) {
    android::Parcel p;
    fill(p, {10, 20, 30, 40, 1, 6, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}, "x",
         {13, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    android::sp<PlayerImplListener> listener = fake->listener();
    th::callV(player, "release", "()V");  // also deletes the shared scan objects
    ASSERT_NE(listener, nullptr);

    fire(kAtvAuto, p, listener);
    EXPECT_TRUE(evs.empty());
    EXPECT_TRUE(th::hasLog(D, "AtvAutoTuning: 10, 20, 30, 40, 1")) << "read and logged first";
    EXPECT_EQ(th::countLog(D, "playerimpl has been finalized"), 1);
    fire(kDtvAuto, p, listener);
    EXPECT_TRUE(evs.empty());
    EXPECT_TRUE(th::hasLog(D, "DtvAutoTuning: 1, 2, 3, 4, 5, 6, 0")) << "read on after six";
    EXPECT_EQ(th::countLog(D, "playerimpl has been finalized"), 1);
    const size_t hbbtvAt = p.dataPosition();
    fire(kHbbtv, p, listener);
    if (th::apiInOwnLoader()) {
        EXPECT_TRUE(evs.empty());
        EXPECT_EQ(th::countLog(ANDROID_LOG_ERROR,
                               "com/vireo/android/tvapi/common/vo/HbbtvEventInfo: no class, "
                               "constructor or memory for the event object"),
                  1)
            << th::dumpLogs();
        th::releaseEvents(evs);
        th::clearEvents();
        p.setDataPosition(hbbtvAt);
        th::underManagedCaller([&] { listener->PostEvent_HbbtvEvent(p); });
        evs = th::events();
    }
    EXPECT_NE(posted("TVPLAYER_HBBTV_UI_EVENT", 12), nullptr);
    listener.clear();

    // A new player brings the shared objects back.
    renewPlayer();
    fake = th::lastFakePlayer();
    p.setDataPosition(0);
    fire(kAtvAuto, p);
    EXPECT_NE(posted("TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO", 6), nullptr);
}

// ---- A long run on one service thread ----

jlong usedHeapAfterGc() {
    JNIEnv* e = th::env();
    jclass rt = th::findClass("java/lang/Runtime");
    jobject r = e->CallStaticObjectMethod(
        rt, e->GetStaticMethodID(rt, "getRuntime", "()Ljava/lang/Runtime;"));
    th::failOnPendingException();
    for (int i = 0; i < 3; ++i) {
        e->CallVoidMethod(r, e->GetMethodID(rt, "gc", "()V"));
        th::failOnPendingException();
    }
    auto memory = [&](const char* name) {
        jlong v = e->CallLongMethod(r, e->GetMethodID(rt, name, "()J"));
        th::failOnPendingException();
        return v;
    };
    const jlong used = memory("totalMemory") - memory("freeMemory");
    e->DeleteLocalRef(r);
    return used;
}

TEST_F(Payloads, AHundredThousandEventsOfEachKindLeaveNothingBehind) {
    android::Parcel hbb, dtv;
    fill(hbb, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    fill(dtv, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1}, "channel name", {13});
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
