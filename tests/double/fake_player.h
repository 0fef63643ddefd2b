// A programmable player proxy for tests: every operation is recorded with its arguments,
// answers what the test set for it and lets a test fill the records and buffers it is
// handed. Operations are named by th::Op, made from the proxy's own list of operations, so
// a misspelt or removed operation fails to compile.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "playerimpl_host/host_player.h"

namespace th {

// Every operation of the proxy, and disconnect(), which is recorded too.
enum class Op {
#define PIJ_PLAYER_OP(result, name, parameters, arguments) name,
#define PIJ_PLAYER_PLACEHOLDER(name) name,
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER
    disconnect,
};

const char* nameOf(Op op);
// The operation of that name, for tests that derive it from a managed method's name.
std::optional<Op> opNamed(const std::string& name);

struct Call {
    Op op;
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

class FakePlayer : public host::HostPlayer {
public:
    FakePlayer();
    ~FakePlayer() override;

    // The value an operation returns (narrowed to its return type); 0 by default.
    void setResult(Op op, int64_t value);
    // The text a String8 operation writes or returns.
    void setText(Op op, const std::string& text);
    // Runs when the operation is called, with the pointers it received.
    void onCall(Op op, std::function<void(const OutArgs&)> hook);
    std::vector<Call> calls() const;
    std::vector<Call> callsOf(Op op) const;
    void clearCalls();

    // Calls the installed listener on service thread `thread`, and waits.
    void fire(std::function<void(PlayerImplListener&)> event, int thread = 0);

    static int liveFakes() { return sLiveFakes.load(); }

#define PIJ_PLAYER_OP(result, name, parameters, arguments) result name parameters override;
#define PIJ_PLAYER_PLACEHOLDER(name) void name() override;
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER
    void onDisconnect() override;

private:
    template <typename R, typename... P, typename... A>
    R answer(R (PlayerImpl::*)(P...), Op op, std::tuple<A&...> args);
    template <typename A>
    void writeText(A& arg, Op op) const;
    int64_t record(Op op, std::vector<int64_t> args, std::vector<void*> outs);
    android::String8 text(Op op) const;

    mutable std::mutex mLock;
    std::vector<Call> mCalls;
    std::map<Op, int64_t> mResults;
    std::map<Op, std::string> mTexts;
    std::map<Op, std::function<void(const OutArgs&)>> mHooks;
    static std::atomic<int> sLiveFakes;
};

// Makes connect() hand out a new FakePlayer per call and remembers the last one.
void useFakePlayer();
// The FakePlayer most recently handed out by connect() since useFakePlayer().
android::sp<FakePlayer> lastFakePlayer();

}  // namespace th
