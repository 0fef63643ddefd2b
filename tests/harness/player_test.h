// Shared gtest fixtures for cases that run against the VM.
#pragma once

#include <gtest/gtest.h>
#include <jni.h>

#include "double/fake_player.h"

namespace th {

// A case on the VM: log lines and the VM's output start empty, the VM must print no JNI
// warning during the case, and the connection factory is reset afterwards.
class VmTest : public ::testing::Test {
public:
    enum Flags : unsigned {
        kNone = 0,
        // SetUp skips the case, and TearDown does nothing, in a child process.
        kSkipInChild = 1u << 0,
        // SetUp also forgets the events recorded so far.
        kClearEvents = 1u << 1,
        // TearDown checks for JNI warnings before it releases the player, so what the release
        // prints goes unchecked.
        kWarningsBeforeRelease = 1u << 2,
    };

protected:
    explicit VmTest(unsigned flags = kNone) : flags_(flags) {}
    void SetUp() override;
    void TearDown() override;
    bool has(Flags f) const { return (flags_ & f) != 0; }
    // True where SetUp skipped the case or TearDown should do nothing.
    bool skipped() const;

private:
    unsigned flags_;
};

// A case with a managed player on a FakePlayer: SetUp makes both (and fails when no fake
// was handed out); TearDown releases the player, unless a case has set it to null.
class PlayerTest : public VmTest {
protected:
    explicit PlayerTest(unsigned flags = kNone) : VmTest(flags) {}
    void SetUp() override;
    void TearDown() override;
    // Releases the player and deletes its local reference; the player becomes null.
    void releasePlayer();
    // Deletes the player's local reference without releasing it, and makes a new player.
    void renewPlayer();

    jobject player = nullptr;
    android::sp<th::FakePlayer> fake;
};

}  // namespace th
