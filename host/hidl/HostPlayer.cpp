#include "playerimpl_host/host_player.h"

#include <condition_variable>
#include <deque>
#include <thread>

namespace host {

std::atomic<int> HostPlayer::sLive{0};
std::atomic<int> HostPlayer::sDisconnects{0};

HostPlayer::HostPlayer() { sLive.fetch_add(1); }
HostPlayer::~HostPlayer() { sLive.fetch_sub(1); }

android::sp<PlayerImplListener> HostPlayer::listener() const {
    std::lock_guard<std::mutex> guard(mListenerLock);
    return mListener;
}

namespace {

std::mutex gFactoryLock;
ConnectFactory gFactory;

// A long-lived thread of the service library. Like the device's callback threads it is
// never ended, so once attached to a runtime it stays attached.
class ServiceThread {
public:
    ServiceThread() : mThread([this] { loop(); }) { mThread.detach(); }

    void post(std::function<void()> work) {
        std::lock_guard<std::mutex> guard(mLock);
        mQueue.push_back(std::move(work));
        mWake.notify_one();
    }

private:
    void loop() {
        for (;;) {
            std::function<void()> work;
            {
                std::unique_lock<std::mutex> guard(mLock);
                mWake.wait(guard, [this] { return !mQueue.empty(); });
                work = std::move(mQueue.front());
                mQueue.pop_front();
            }
            work();
        }
    }

    std::mutex mLock;
    std::condition_variable mWake;
    std::deque<std::function<void()>> mQueue;
    std::thread mThread;
};

ServiceThread& serviceThread(int index) {
    // Leaked on purpose: the threads outlive every static destructor.
    static ServiceThread* threads = new ServiceThread[kServiceThreads];
    return threads[(index % kServiceThreads + kServiceThreads) % kServiceThreads];
}

}  // namespace

void setConnectFactory(ConnectFactory factory) {
    std::lock_guard<std::mutex> guard(gFactoryLock);
    gFactory = std::move(factory);
}

void resetConnectFactory() { setConnectFactory(nullptr); }

void postToServiceThread(int index, std::function<void()> work) {
    serviceThread(index).post(std::move(work));
}

void runOnServiceThread(int index, std::function<void()> work) {
    std::mutex doneLock;
    std::condition_variable doneWake;
    bool done = false;
    serviceThread(index).post([&] {
        work();
        std::lock_guard<std::mutex> guard(doneLock);
        done = true;
        doneWake.notify_one();
    });
    std::unique_lock<std::mutex> guard(doneLock);
    doneWake.wait(guard, [&] { return done; });
}

}  // namespace host

android::sp<PlayerImpl> PlayerImpl::connect() {
    host::ConnectFactory factory;
    {
        std::lock_guard<std::mutex> guard(host::gFactoryLock);
        factory = host::gFactory;
    }
    return factory ? factory() : host::makeSimulatedTv();
}
