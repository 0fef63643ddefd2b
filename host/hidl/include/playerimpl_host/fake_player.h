// A programmable player proxy for tests: every operation is recorded with its arguments,
// answers what the test set for it and lets a test fill the records and buffers it is
// handed.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

#include "playerimpl_host/host_player.h"

namespace host {

struct Call {
    std::string op;
    std::vector<int64_t> args;  // integers as passed; pointers and references as addresses
};

// The pointers an operation received (records, out values, buffers, parcels), in order.
struct OutArgs {
    std::vector<void*> p;
    template <typename T>
    T& at(size_t i) const {
        return *static_cast<T*>(p.at(i));
    }
};

class FakePlayer : public HostPlayer {
public:
    FakePlayer();
    ~FakePlayer() override;

    // The value an operation returns (narrowed to its return type); 0 by default.
    void setResult(const std::string& op, int64_t value);
    // The text a String8 operation writes or returns.
    void setText(const std::string& op, const std::string& text);
    // Runs when the operation is called, with the pointers it received.
    void onCall(const std::string& op, std::function<void(const OutArgs&)> hook);

    std::vector<Call> calls() const;
    std::vector<Call> callsOf(const std::string& op) const;
    void clearCalls();

    // Calls the installed listener on service thread `thread`, and waits.
    void fire(std::function<void(PlayerImplListener&)> event, int thread = 0);

    static int liveFakes() { return sLiveFakes.load(); }

    // disconnect() is recorded (and runs its hook) as the operation "disconnect".
    void onDisconnect() override;

#define PIJ_PLAYER_OP(result, name, parameters, arguments) result name parameters override;
#define PIJ_PLAYER_PLACEHOLDER(name) void name() override;
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER

private:
    template <typename R, typename... P, typename... A>
    R answer(R (PlayerImpl::*op)(P...), const char* name, std::tuple<A&...> args);
    template <typename A>
    void writeText(A& arg, const char* op) const;
    int64_t record(const char* op, std::vector<int64_t> args, std::vector<void*> outs);
    android::String8 text(const char* op) const;

    mutable std::mutex mLock;
    std::vector<Call> mCalls;
    std::map<std::string, int64_t> mResults;
    std::map<std::string, std::string> mTexts;
    std::map<std::string, std::function<void(const OutArgs&)>> mHooks;
    static std::atomic<int> sLiveFakes;
};

// Makes connect() hand out a new FakePlayer per call and remembers the last one.
void useFakePlayer();
// The FakePlayer most recently handed out by connect() since useFakePlayer().
android::sp<FakePlayer> lastFakePlayer();

}  // namespace host
