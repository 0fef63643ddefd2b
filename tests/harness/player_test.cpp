#include "harness/player_test.h"

#include "harness/jvm_harness.h"
#include "playerimpl_host/host_player.h"

namespace th {

bool VmTest::skipped() const { return has(kSkipInChild) && isChild(); }

void VmTest::SetUp() {
    if (skipped()) GTEST_SKIP();
    clearLogs();
    if (has(kClearEvents)) clearEvents();
    clearVmOutput();
}

void VmTest::TearDown() {
    if (skipped()) return;
    expectNoJniWarnings();
    host::resetConnectFactory();
}

void PlayerTest::SetUp() {
    if (skipped()) GTEST_SKIP();
    th::useFakePlayer();
    player = newPlayer();
    fake = th::lastFakePlayer();
    ASSERT_NE(fake, nullptr);
    VmTest::SetUp();
}

void PlayerTest::TearDown() {
    if (skipped()) return;
    if (has(kWarningsBeforeRelease)) expectNoJniWarnings();
    releasePlayer();
    if (!has(kWarningsBeforeRelease)) expectNoJniWarnings();
    host::resetConnectFactory();
}

void PlayerTest::releasePlayer() {
    if (player == nullptr) return;
    callV(player, "release", "()V");
    env()->DeleteLocalRef(player);
    player = nullptr;
}

void PlayerTest::renewPlayer() {
    env()->DeleteLocalRef(player);
    player = newPlayer();
}

}  // namespace th
