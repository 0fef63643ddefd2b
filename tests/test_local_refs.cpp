// Service threads stay attached for good, so a local reference an event leaves behind is never
// freed. Counted through JVMTI's heap roots: the count must see references made on purpose,
// and must not move over 100,000 events of every kind the listener turns into a managed
// object or a post, nor over events that arrive after the player is gone.
#include <gtest/gtest.h>

#include <atomic>

#include "core/parcel.h"
#include "harness/jvm_harness.h"
#include "harness/local_refs.h"
#include "harness/player_test.h"
#include "playerimpl_host/host_player.h"

namespace {

std::atomic<long> gPosted{0};

void JNICALL counted(JNIEnv*, jclass, jint, jint, jint, jobject) { gPosted.fetch_add(1); }

// Every post reaches counted() through com.vireo.test.EventCounter.
void countPosts() {
    static const bool installed = [] {
        JNIEnv* e = th::env();
        jclass c = th::findClass("com/vireo/test/EventCounter");
        JNINativeMethod nm{const_cast<char*>("counted"),
                           const_cast<char*>("(IIILjava/lang/Object;)V"),
                           reinterpret_cast<void*>(&counted)};
        if (e->RegisterNatives(c, &nm, 1) != JNI_OK) return false;
        e->CallStaticVoidMethod(c, e->GetStaticMethodID(c, "install", "()V"));
        th::failOnPendingException();
        return true;
    }();
    ASSERT_TRUE(installed);
}

void fillDtv(android::Parcel& p) {
    for (int v = 1; v <= 11; ++v) p.writeInt32(v);
    p.writeString8(android::String8("UHF 21"));
    p.writeInt32(13);
}

void fillInts(android::Parcel& p, int n) {
    for (int v = 1; v <= n; ++v) p.writeInt32(v);
}

// One event of kind i % 8: simple, through the dispatcher, through notifyCB, and the four
// payload events. Each posts exactly once while a player is set up.
constexpr int kKinds = 8;
void fireOne(PlayerImplListener& l, int i, android::Parcel& dtv, android::Parcel& atv,
             android::Parcel& hbbtv) {
    switch (i % kKinds) {
        case 0:
            l.PostEvent_ChangeTtxStatus(i, 1);
            break;
        case 1:
            l.PostEvent_SignalLock(i, 0);
            break;
        case 2:
            l.PostEvent_ScreenSaverMode(i, 0);
            break;
        case 3:
            l.notifyCB(0x20001022, i, 0, nullptr);  // input source lock
            break;
        case 4:
            dtv.setDataPosition(0);
            l.PostEvent_DtvAutoTuning(dtv);
            break;
        case 5:
            atv.setDataPosition(0);
            l.PostEvent_AtvAutoTuning(atv);
            break;
        case 6:
            atv.setDataPosition(0);
            l.PostEvent_ManualTuning(atv);
            break;
        default:
            hbbtv.setDataPosition(0);
            l.PostEvent_HbbtvEvent(hbbtv);
            break;
    }
}

class LocalRefs : public th::PlayerTest {
protected:
    // This service thread's live local references, counted on the thread itself.
    static long ownCount() {
        const jlong id = th::currentThreadId(th::env());
        return id < 0 ? -1 : th::liveLocalRefs(th::vm(), id);
    }

    // Fires `n` events of every kind on service thread 0 and returns its local references
    // before and after.
    std::pair<long, long> fireOnServiceThread(PlayerImplListener& l, int n) {
        std::pair<long, long> counts{-1, -1};
        host::runOnServiceThread(0, [&] {
            android::Parcel dtv, atv, hbbtv;
            fillDtv(dtv);
            fillInts(atv, 6);
            fillInts(hbbtv, 12);
            for (int i = 0; i < kKinds; ++i) fireOne(l, i, dtv, atv, hbbtv);  // attached now
            counts.first = ownCount();
            for (int i = 0; i < n; ++i) {
                fireOne(l, i, dtv, atv, hbbtv);
                if (i % 4096 == 0) th::clearLogs();  // the capture keeps every line
            }
            counts.second = ownCount();
        });
        return counts;
    }
};

TEST_F(LocalRefs, CountSeesReferencesMadeOnPurposeOnTheirThreadOnly) {
    long base = -1, held = -1, released = -1, otherThread = -1;
    jobject global = th::env()->NewGlobalRef(player);
    host::runOnServiceThread(1, [&] {
        JNIEnv* e = th::env();
        e->EnsureLocalCapacity(64);  // room for them, so the checker does not warn
        base = ownCount();
        jobject made[50];
        for (jobject& r : made) r = e->NewLocalRef(global);
        held = ownCount();
        for (jobject r : made) e->DeleteLocalRef(r);
        released = ownCount();
    });
    ASSERT_GE(base, 0) << "the VM offers no JVMTI heap walk";
    EXPECT_EQ(held - base, 50);
    EXPECT_EQ(released, base);

    // References this thread makes are not the service thread's.
    JNIEnv* e = th::env();
    e->EnsureLocalCapacity(64);
    jobject mine[20];
    for (jobject& r : mine) r = e->NewLocalRef(global);
    host::runOnServiceThread(1, [&] { otherThread = ownCount(); });
    EXPECT_EQ(otherThread, base);
    EXPECT_GE(th::liveLocalRefs(th::vm()), 20);  // every thread's together
    for (jobject r : mine) e->DeleteLocalRef(r);
    e->DeleteGlobalRef(global);
}

TEST_F(LocalRefs, HundredThousandEventsLeaveNoLocalReference) {
    countPosts();
    constexpr int kEvents = 100000;
    const long postedBefore = gPosted.load();
    const auto [before, after] = fireOnServiceThread(*fake->listener(), kEvents);
    ASSERT_GE(before, 0) << "the VM offers no JVMTI heap walk";
    EXPECT_EQ(after, before);
    // Every event was posted (the warm-up round too), so each went all the way through.
    EXPECT_EQ(gPosted.load() - postedBefore, kEvents + kKinds);
}

TEST_F(LocalRefs, EventsAfterThePlayerIsGoneLeaveNoLocalReference) {
    countPosts();
    android::sp<PlayerImplListener> listener = fake->listener();
    releasePlayer();  // the shared scan objects go; scan events are dropped, HbbTV still posts
    const long postedBefore = gPosted.load();
    const auto [before, after] = fireOnServiceThread(*listener, 8000);
    ASSERT_GE(before, 0) << "the VM offers no JVMTI heap walk";
    EXPECT_EQ(after, before);
    EXPECT_GT(gPosted.load(), postedBefore);
    EXPECT_TRUE(th::hasLog(3, "playerimpl has been finalized"));
}

}  // namespace
