// Workstation side of the player service: what connect() hands out, the base of every
// workstation proxy, and the service's own callback threads.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>

#include "core/PlayerImpl.h"

namespace host {

// The base of the workstation proxies: keeps the listener setListener installed and
// whether disconnect() was called, and counts live proxies.
class HostPlayer : public PlayerImpl {
public:
    HostPlayer();
    ~HostPlayer() override;

    android::sp<PlayerImplListener> listener() const;
    bool isDisconnected() const { return mDisconnected.load(); }

    // Called by PlayerImpl::setListener / disconnect after the state has changed.
    virtual void onListenerChanged() {}
    virtual void onDisconnect() {}

    static int liveCount() { return sLive.load(); }
    // How many times any workstation proxy was disconnected.
    static int disconnectCount() { return sDisconnects.load(); }

private:
    friend class ::PlayerImpl;
    mutable std::mutex mListenerLock;
    android::sp<PlayerImplListener> mListener;
    std::atomic<bool> mDisconnected{false};
    static std::atomic<int> sLive;
    static std::atomic<int> sDisconnects;
};

// What PlayerImpl::connect() returns. Without a factory, the simulated TV is connected;
// a factory returning an empty pointer makes connect() fail.
using ConnectFactory = std::function<android::sp<PlayerImpl>()>;
void setConnectFactory(ConnectFactory factory);
void resetConnectFactory();

// The simulated TV, the default service of the workstation.
android::sp<PlayerImpl> makeSimulatedTv();

// The service's callback threads: long-lived threads of the service library on which
// events reach the listener (index 0 and 1; any index is folded onto them). run() waits
// for the work to finish; post() does not.
constexpr int kServiceThreads = 2;
void runOnServiceThread(int index, std::function<void()> work);
void postToServiceThread(int index, std::function<void()> work);

}  // namespace host
