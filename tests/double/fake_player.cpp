#include "double/fake_player.h"

#include <tuple>
#include <type_traits>

namespace th {

using host::runOnServiceThread;
using host::setConnectFactory;

namespace {

const char* const kOpNames[] = {
#define PIJ_PLAYER_OP(result, name, parameters, arguments) #name,
#define PIJ_PLAYER_PLACEHOLDER(name) #name,
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER
    "disconnect",
};

}  // namespace

const char* nameOf(Op op) { return kOpNames[static_cast<size_t>(op)]; }

std::optional<Op> opNamed(const std::string& name) {
    for (size_t i = 0; i < sizeof kOpNames / sizeof kOpNames[0]; ++i) {
        if (name == kOpNames[i]) return static_cast<Op>(i);
    }
    return std::nullopt;
}

std::atomic<int> FakePlayer::sLiveFakes{0};

FakePlayer::FakePlayer() { sLiveFakes.fetch_add(1); }
FakePlayer::~FakePlayer() { sLiveFakes.fetch_sub(1); }

void FakePlayer::onDisconnect() { record(Op::disconnect, {}, {}); }

void FakePlayer::setResult(Op op, int64_t value) {
    std::lock_guard<std::mutex> guard(mLock);
    mResults[op] = value;
}

void FakePlayer::setText(Op op, const std::string& text) {
    std::lock_guard<std::mutex> guard(mLock);
    mTexts[op] = text;
}

void FakePlayer::onCall(Op op, std::function<void(const OutArgs&)> hook) {
    std::lock_guard<std::mutex> guard(mLock);
    mHooks[op] = std::move(hook);
}

std::vector<Call> FakePlayer::calls() const {
    std::lock_guard<std::mutex> guard(mLock);
    return mCalls;
}

std::vector<Call> FakePlayer::callsOf(Op op) const {
    std::vector<Call> out;
    for (const Call& c : calls()) {
        if (c.op == op) out.push_back(c);
    }
    return out;
}

void FakePlayer::clearCalls() {
    std::lock_guard<std::mutex> guard(mLock);
    mCalls.clear();
}

void FakePlayer::fire(std::function<void(PlayerImplListener&)> event, int thread) {
    android::sp<PlayerImplListener> l = listener();
    if (l == nullptr) return;
    runOnServiceThread(thread, [&] { event(*l); });
}

int64_t FakePlayer::record(Op op, std::vector<int64_t> args, std::vector<void*> outs) {
    std::function<void(const OutArgs&)> hook;
    int64_t result = 0;
    {
        std::lock_guard<std::mutex> guard(mLock);
        mCalls.push_back(Call{op, std::move(args)});
        auto r = mResults.find(op);
        if (r != mResults.end()) result = r->second;
        auto h = mHooks.find(op);
        if (h != mHooks.end()) hook = h->second;
    }
    if (hook) hook(OutArgs{std::move(outs)});
    return result;
}

android::String8 FakePlayer::text(Op op) const {
    std::lock_guard<std::mutex> guard(mLock);
    auto t = mTexts.find(op);
    return t == mTexts.end() ? android::String8() : android::String8(t->second.c_str());
}

namespace {
std::mutex gLastLock;
android::wp<FakePlayer> gLast;
}  // namespace

void useFakePlayer() {
    setConnectFactory([]() -> android::sp<PlayerImpl> {
        android::sp<FakePlayer> fake = new FakePlayer();
        std::lock_guard<std::mutex> guard(gLastLock);
        gLast = fake;
        return fake;
    });
}

android::sp<FakePlayer> lastFakePlayer() {
    std::lock_guard<std::mutex> guard(gLastLock);
    return gLast.promote();
}

namespace {

// How a call's arguments are recorded, by the declared parameter type: numbers as their
// value; pointers and references (records, out values, buffers, parcels) as their address,
// and handed to the test's hook.
template <typename P, typename A>
void note(A& arg, std::vector<int64_t>& values, std::vector<void*>& outs) {
    if constexpr (std::is_pointer_v<P>) {
        values.push_back(reinterpret_cast<int64_t>(arg));
        outs.push_back(const_cast<void*>(static_cast<const void*>(arg)));
    } else if constexpr (std::is_reference_v<P>) {
        values.push_back(reinterpret_cast<int64_t>(&arg));
        outs.push_back(const_cast<void*>(static_cast<const void*>(&arg)));
    } else {
        values.push_back(static_cast<int64_t>(arg));
    }
}

}  // namespace

template <typename A>
void FakePlayer::writeText(A& arg, Op op) const {
    if constexpr (std::is_same_v<A, android::String8>) arg = text(op);
}

// Every operation: record, run the test's hook, write the test's text into a String8 it is
// handed, answer the test's value (or text).
template <typename R, typename... P, typename... A>
R FakePlayer::answer(R (PlayerImpl::*)(P...), Op op, std::tuple<A&...> args) {
    std::vector<int64_t> values;
    std::vector<void*> outs;
    std::apply([&](A&... a) { (note<P>(a, values, outs), ...); }, args);
    const int64_t result = record(op, std::move(values), std::move(outs));
    std::apply([&](A&... a) { (writeText(a, op), ...); }, args);
    if constexpr (std::is_same_v<R, android::String8>) {
        return text(op);
    } else if constexpr (!std::is_void_v<R>) {
        return static_cast<R>(result);
    }
}

#define PIJ_PLAYER_OP(result, name, parameters, arguments)                           \
    result FakePlayer::name parameters {                                             \
        return answer(&PlayerImpl::name, Op::name, std::forward_as_tuple arguments); \
    }
#define PIJ_PLAYER_PLACEHOLDER(name) \
    void FakePlayer::name() { record(Op::name, {}, {}); }
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER

}  // namespace th
