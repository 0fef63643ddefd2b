// Binding the TV video window to a Surface, the producer reference the library holds for
// the player object, its release at finalisation, and the HDMI GPIO command.
#include <android/log.h>
#include <gtest/gtest.h>
#include <gui/IGraphicBufferProducer.h>
#include <gui/Surface.h>

#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "harness/jvm_harness.h"
#include "harness/player_test.h"
#include "playerimpl_host/fake_player.h"
#include "surface/video_surface.h"
#include "tvdisplay_host.h"

namespace {

constexpr int D = ANDROID_LOG_DEBUG;
constexpr int I = ANDROID_LOG_INFO;
constexpr int E = ANDROID_LOG_ERROR;

const char* kSetVideo = "com_vireo_android_tvapi_impl_PlayerImpl_setVideoSurface";
const char* kGpio = "com_vireo_android_tvapi_impl_PlayerImpl_setHdmiGpio";

// A native surface (with or without a producer) and the managed Surface in front of it.
// The test holds a strong reference on the native surface for the managed object.
struct TestSurface {
    android::sp<android::IGraphicBufferProducer> producer;
    android::sp<android::Surface> native;
    jobject managed = nullptr;

    TestSurface(bool withProducer, uint64_t id) {
        if (withProducer) producer = new android::IGraphicBufferProducer();
        native = new android::Surface(producer, id);
        managed = make(reinterpret_cast<jlong>(native.get()));
    }
    ~TestSurface() { th::env()->DeleteLocalRef(managed); }

    static jobject make(jlong nativeObject) {
        jclass c = th::findClass("android/view/Surface");
        jobject o =
            th::env()->NewObject(c, th::env()->GetMethodID(c, "<init>", "(J)V"), nativeObject);
        th::failOnPendingException();
        return o;
    }
    // References on the producer besides the test's own and the native surface's.
    int32_t libraryRefs() const { return producer->getStrongCount() - 2; }
};

class Surface : public th::PlayerTest {
protected:
    void SetUp() override {
        PlayerTest::SetUp();
        if (HasFatalFailure()) return;
        tvdisplay_host::setWindowId(1);
        tvdisplay_host::setCloseResult(1);
        tvdisplay_host::clearCalls();
    }
    void bind(jobject surface, jint type) {
        th::callV(player, "_setVideoSurface", "(Landroid/view/Surface;I)V", surface, type);
    }
    jboolean unbind(jobject surface) {
        return th::callZ(player, "_destoryVideoSurface", "(Landroid/view/Surface;)Z", surface);
    }
    jlong heldProducer() {
        jclass c = th::playerClass();
        return th::env()->GetLongField(player,
                                       th::env()->GetFieldID(c, "mNativeSurfaceTexture", "J"));
    }
    void forgetProducer() {
        jclass c = th::playerClass();
        th::env()->SetLongField(player, th::env()->GetFieldID(c, "mNativeSurfaceTexture", "J"), 0);
    }
    jboolean gpio(std::vector<jint> values, bool null = false) {
        jintArray a = nullptr;
        if (!null) {
            a = th::env()->NewIntArray(static_cast<jsize>(values.size()));
            th::env()->SetIntArrayRegion(a, 0, static_cast<jsize>(values.size()), values.data());
        }
        jboolean r = th::callZ(player, "setHdmiGpio", "([I)Z", a);
        if (a) th::env()->DeleteLocalRef(a);
        return r;
    }
};

TEST_F(Surface, EachBindHoldsOneReferenceOnTheNewestProducerOnly) {
    TestSurface first(true, 77), second(true, 78);
    bind(first.managed, 0);
    EXPECT_EQ(first.libraryRefs(), 1);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(first.producer.get()));
    EXPECT_TRUE(th::hasLog(D, "setVideoSurface wtype: 0"));
    EXPECT_TRUE(th::hasLog(I, "setVideoSurface SurfaceID: 77, eWinId: 1\n"));

    bind(second.managed, -5);
    EXPECT_EQ(first.libraryRefs(), 0) << "the earlier producer is let go";
    EXPECT_EQ(second.libraryRefs(), 1);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(second.producer.get()));

    auto calls = tvdisplay_host::calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_TRUE(calls[1].open);
    EXPECT_EQ(calls[1].surface, second.native.get());
    EXPECT_EQ(calls[1].type, -5) << "the window type passes unchanged";
    EXPECT_FALSE(calls[1].flag);
    EXPECT_TRUE(fake->calls().empty()) << "binding calls no player operation";

    // Finalising the player releases the bound producer.
    th::callV(player, "release", "()V");
    EXPECT_EQ(second.libraryRefs(), 0);
    EXPECT_EQ(first.libraryRefs(), 0);
}

TEST_F(Surface, NoWindowIsReportedButTheProducerStaysBound) {
    TestSurface s(true, 5);
    tvdisplay_host::setWindowId(-1);
    bind(s.managed, 2);
    EXPECT_TRUE(th::hasLog(I, "setVideoSurface SurfaceID: 5, eWinId: -1\n"));
    EXPECT_TRUE(th::hasLog(E, "Get Error window ID"));
    EXPECT_EQ(s.libraryRefs(), 1);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(s.producer.get()));
}

TEST_F(Surface, BindsThatCannotGoAheadReportAndHoldNothingNew) {
    TestSurface bound(true, 1);
    bind(bound.managed, 0);
    th::clearLogs();
    tvdisplay_host::clearCalls();

    // A null Surface: logged before the player is looked at; the binding is untouched.
    bind(nullptr, 3);
    EXPECT_TRUE(th::hasLog(D, "setVideoSurface wtype: 3"));
    EXPECT_TRUE(th::hasLog(E, "jsf == NULL"));
    EXPECT_EQ(bound.libraryRefs(), 1);

    // A Surface without a producer: the old reference is already dropped.
    TestSurface bare(false, 2);
    bind(bare.managed, 0);
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(kSetVideo, 2768, "java/lang/IllegalStateException")));
    EXPECT_EQ(bound.libraryRefs(), 0);
    EXPECT_EQ(heldProducer(), reinterpret_cast<jlong>(bound.producer.get()))
        << "a failed bind leaves the old address behind";
    // That stale address would be dropped once more by the next bind; start afresh.
    forgetProducer();

    // A managed Surface with no native one.
    jobject empty = TestSurface::make(0);
    bind(empty, 0);
    EXPECT_TRUE(th::hasLog(E, th::fatalLine(kSetVideo, 2763, "java/lang/IllegalStateException")));
    th::env()->DeleteLocalRef(empty);
    EXPECT_TRUE(tvdisplay_host::calls().empty()) << "no window opened";

    // No player at all.
    TestSurface later(true, 3);
    th::callV(player, "release", "()V");
    th::clearLogs();
    bind(later.managed, 0);
    EXPECT_TRUE(
        th::hasLog(E, th::fatalLine(kSetVideo, 2757, "java/lang/IllegalArgumentException")));
    EXPECT_EQ(later.libraryRefs(), 0);
}

TEST_F(Surface, UnbindClosesTheWindowAndLeavesTheReference) {
    TestSurface s(true, 4242);
    bind(s.managed, 0);
    tvdisplay_host::clearCalls();
    tvdisplay_host::setCloseResult(3);
    EXPECT_EQ(unbind(s.managed), JNI_TRUE);
    EXPECT_TRUE(th::hasLog(D, "destoryVideoSurfaceTexture, Surface ID: 4242, return: 1"));
    auto calls = tvdisplay_host::calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_FALSE(calls[0].open);
    EXPECT_EQ(calls[0].surface, s.native.get());
    EXPECT_EQ(s.libraryRefs(), 1) << "left to the next bind";

    tvdisplay_host::setCloseResult(2);
    EXPECT_EQ(unbind(s.managed), JNI_FALSE) << "bit 0 of the answer";

    th::clearLogs();
    EXPECT_EQ(unbind(nullptr), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(E, "jsurface == NULL"));

    // No native surface: id 0, and the display library gets the empty pointer.
    tvdisplay_host::clearCalls();
    tvdisplay_host::setCloseResult(1);
    jobject empty = TestSurface::make(0);
    unbind(empty);
    EXPECT_TRUE(th::hasLog(D, "destoryVideoSurfaceTexture, Surface ID: 0, return: 1"));
    ASSERT_EQ(tvdisplay_host::calls().size(), 1u);
    EXPECT_EQ(tvdisplay_host::calls()[0].surface, nullptr);
    th::env()->DeleteLocalRef(empty);

    // The player plays no part in unbinding.
    th::callV(player, "release", "()V");
    tvdisplay_host::clearCalls();
    EXPECT_EQ(unbind(s.managed), JNI_TRUE);
    EXPECT_EQ(tvdisplay_host::calls().size(), 1u);
}

TEST_F(Surface, HdmiGpioPassesUpToFourValuesAndZeroesTheRest) {
    std::vector<HdmiGpioRec> seen;
    fake->onCall("setHdmiGpio",
                 [&](const host::OutArgs& o) { seen.push_back(o.at<HdmiGpioRec>(0)); });
    fake->setResult("setHdmiGpio", 3);
    EXPECT_EQ(gpio({1, 2, 3, 4, 5, 6}), JNI_TRUE);
    EXPECT_EQ(gpio({}), JNI_TRUE);
    EXPECT_EQ(gpio({-9, 8}), JNI_TRUE);
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(std::vector<int32_t>(seen[0].values, seen[0].values + 4),
              (std::vector<int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(std::vector<int32_t>(seen[1].values, seen[1].values + 4),
              (std::vector<int32_t>{0, 0, 0, 0}));
    EXPECT_EQ(std::vector<int32_t>(seen[2].values, seen[2].values + 4),
              (std::vector<int32_t>{-9, 8, 0, 0}));
    EXPECT_EQ(th::countLog(D, "setHdmiGpio"), 3);

    fake->setResult("setHdmiGpio", 2);
    EXPECT_EQ(gpio({1}), JNI_FALSE);

    fake->clearCalls();
    EXPECT_EQ(gpio({}, true), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(
        E,
        th::fatalLine(kGpio, 2844, "com/vireo/android/tvapi/common/exception/TvCommonException")));
    EXPECT_TRUE(fake->callsOf("setHdmiGpio").empty());

    th::callV(player, "release", "()V");
    EXPECT_EQ(gpio({1, 2}), JNI_FALSE);
    EXPECT_TRUE(th::hasLog(
        E, th::fatalLine(kGpio, 2840, "com/vireo/android/tvapi/common/exception/TvIpcException")));
}

}  // namespace
