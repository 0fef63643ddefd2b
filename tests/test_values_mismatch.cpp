// Managed value classes of another build than the library's, each lacking one field the
// library looks up. Run in a child VM whose class path puts those classes ahead of the real
// ones: the managed caller must get its neutral value with the runtime's NoSuchFieldError,
// the player must not be called with a record read from such an object, an event on a
// service thread must be dropped with one ERROR line, and the VM must neither end nor warn.
#include <android/log.h>
#include <gtest/gtest.h>
#include <jni.h>

#include <cstdio>
#include <string>

#include "core/PlayerImpl.h"
#include "double/fake_player.h"
#include "harness/fields.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "marshal/picture.h"

namespace {

const std::string kVo = "com/vireo/android/tvapi/";

// In the child: each call through the managed player, one RESULT line per call with what the
// caller got, the exception it met and how often the player was asked.
class MismatchChild : public th::PlayerTest {};

TEST_F(MismatchChild, CallsOnClassesLackingAField) {
    if (!th::isChild()) GTEST_SKIP();
    JNIEnv* e = th::env();

    // Record -> object: VideoArcInfo lacks adjArcUp.
    fake->onCall(th::Op::getAspectRatio,
                 [](const th::OutArgs& o) { o.at<VideoArcInfoRec>(0) = {7, -3, -1, 2, 3, 4, 1}; });
    jobject arc = e->CallObjectMethod(
        player, th::playerMethod("native_getAspectRatio",
                                 ("()L" + kVo + "common/vo/VideoArcInfo;").c_str()));
    printf("RESULT getAspectRatio %s %s\n", arc == nullptr ? "null" : "object",
           th::takeExceptionName().c_str());

    // Object -> record: SatelliteInfo lacks pin, CaptionOptionSetting lacks its edge colour.
    // Each object is filled so that only the missing field stands in the way.
    jobject sat = th::newObject((kVo + "dtv/dvb/dvbs/vo/SatelliteInfo").c_str());
    th::setStr(sat, "satName", "Astra 19.2E");
    jboolean added = e->CallBooleanMethod(
        player,
        th::playerMethod("addSatelliteInfo",
                         ("(L" + kVo + "dtv/dvb/dvbs/vo/SatelliteInfo;)Z").c_str()),
        sat);
    printf("RESULT addSatelliteInfo %d %s calls %zu\n", added, th::takeExceptionName().c_str(),
           fake->callsOf(th::Op::addSatelliteInfo).size());

    jobject caption = th::newObject((kVo + "common/vo/CaptionOptionSetting").c_str());
    jboolean drawn = e->CallBooleanMethod(
        player,
        th::playerMethod("drawPreviewCCWin",
                         ("(L" + kVo + "common/vo/CaptionOptionSetting;)Z").c_str()),
        caption);
    printf("RESULT drawPreviewCCWin %d %s calls %zu\n", drawn, th::takeExceptionName().c_str(),
           fake->callsOf(th::Op::drawPreviewCCWin).size());

    // The thread goes on as before: a class that matches still comes back whole.
    jobject video = e->CallObjectMethod(
        player, th::playerMethod("getVideoInfo", ("()L" + kVo + "common/vo/VideoInfo;").c_str()));
    printf("RESULT getVideoInfo %s %s\n", video == nullptr ? "null" : "object",
           th::takeExceptionName().c_str());

    // An event on a service thread: the shared DtvEventScan lacks signalQuality. The event is
    // dropped; the HbbTV event after it on the same thread still arrives.
    th::clearEvents();
    android::Parcel dtv;
    for (int32_t v : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1}) dtv.writeInt32(v);
    dtv.writeString8(android::String8("UHF 21"));
    dtv.writeInt32(13);
    dtv.setDataPosition(0);
    android::Parcel hbbtv;
    for (int32_t v = 0; v < 12; ++v) hbbtv.writeInt32(v);
    hbbtv.setDataPosition(0);
    fake->fire([&](PlayerImplListener& l) {
        l.PostEvent_DtvAutoTuning(dtv);
        l.PostEvent_HbbtvEvent(hbbtv);
    });
    std::vector<th::Event> evs = th::events();
    printf("RESULT events %zu first %d\n", evs.size(),
           evs.empty() ? -1
                       : static_cast<int>(evs[0].what == th::staticInt("TVPLAYER_HBBTV_UI_EVENT")));
    th::releaseEvents(evs);
    fflush(stdout);
}

TEST(Mismatch, ACallerGetsTheRuntimesErrorAndTheVmGoesOn) {
    if (th::isChild()) GTEST_SKIP();
    const th::ChildResult r = th::runChild(
        "MismatchChild.*", {{"PIJ_CLASSPATH", std::string(PIJ_BROKEN_VALUES_JAR) + ":" +
                                                  PIJ_MANAGED_JAR + ":" + PIJ_TESTJAVA_JAR}});
    EXPECT_TRUE(r.exited && r.exitCode == 0) << r.output;
    EXPECT_EQ(r.output.find("FATAL"), std::string::npos) << r.output;
    EXPECT_EQ(r.output.find("WARNING"), std::string::npos) << r.output;
    for (const char* shown : {
             "RESULT getAspectRatio null java.lang.NoSuchFieldError\n",
             "RESULT addSatelliteInfo 0 java.lang.NoSuchFieldError calls 0\n",
             "RESULT drawPreviewCCWin 0 java.lang.NoSuchFieldError calls 0\n",
             "RESULT getVideoInfo object none\n",
             "LOG 6 com/vireo/android/tvapi/dtv/vo/DtvEventScan has no field signalQuality S\n",
             "RESULT events 1 first 1\n",
         }) {
        EXPECT_NE(r.output.find(shown), std::string::npos) << shown << "\n" << r.output;
    }
    // The mismatch is the managed caller's to see, not a line of the library's.
    EXPECT_EQ(r.output.find("[Fatal jni_exception]"), std::string::npos) << r.output;
}

}  // namespace
