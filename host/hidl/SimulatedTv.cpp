// The simulated TV: the workstation's default player service.
#include "playerimpl_host/host_player.h"

namespace host {
namespace {

class SimulatedTv : public HostPlayer {
public:
    ProxyBool closeTeletext() override {
        mTeletextOpen = false;
        android::sp<PlayerImplListener> l = listener();
        if (l != nullptr) {
            postToServiceThread(0, [l] { l->PostEvent_ChangeTtxStatus(0, 0); });
        }
        return 1;
    }
    int32_t getPhaseRange() override { return 31; }
    int32_t getVideoStandardDetectionState() override { return 2; }
    void getLanguageCode(android::String8& out) override { out = android::String8("eng"); }

private:
    std::atomic<bool> mTeletextOpen{true};
};

}  // namespace

android::sp<PlayerImpl> makeSimulatedTv() { return new SimulatedTv(); }

}  // namespace host
