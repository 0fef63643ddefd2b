// The service's order of virtual operations, for the proxy (PlayerImpl) and for the callback
// interface it calls (PlayerImplListener), and the way to read an operation's slot from the
// compiler. Shared by the layout report and the ABI check, so the order is written down once.
//
// The proxy's order is core/player_operations.def, which declares the class too; the
// listener's is the X-macro below, OP(name) for the next operation. The expected slot of an
// operation is its position in its list; the destructor pair follows the last one.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/PlayerImpl.h"

namespace service_slots {

// A pointer to a virtual member function holds the operation's byte offset in the table of
// virtual operations. The generic C++ ABI (x86-64) marks "virtual" with bit 0 of the pointer
// word (1 + 8 x slot); the ARM variant (AArch64) keeps the pointer word as 8 x slot and marks
// "virtual" with bit 0 of the adjustment word. Returns -1 for a non-virtual member.
template <typename Pmf>
long slotOf(Pmf pmf) {
    static_assert(sizeof(Pmf) == 2 * sizeof(void*), "two-word member function pointer");
    struct {
        uintptr_t ptr;
        intptr_t adj;
    } raw;
    std::memcpy(&raw, &pmf, sizeof raw);
#if defined(__aarch64__) || defined(__arm__)
    if ((raw.adj & 1) == 0) return -1;
    return static_cast<long>(raw.ptr / sizeof(void*));
#else
    if ((raw.ptr & 1) == 0) return -1;
    return static_cast<long>((raw.ptr - 1) / sizeof(void*));
#endif
}

// A class derived with one new virtual operation: that operation lands right after the
// base's last slot, which tells where the base's table (destructor pair included) ends.
struct ProxyProbe : PlayerImpl {
    virtual void probe();
};
struct ListenerProbe : PlayerImplListener {
    virtual void probe();
};

}  // namespace service_slots

// clang-format off
// The callback interface, in the service's declaration order.
#define PIJ_LISTENER_SLOTS(OP) \
    OP(notify) OP(notifyCB) OP(PostEvent_ChannelNameReady) OP(PostEvent_AtvAutoTuning) \
    OP(PostEvent_ManualTuning) OP(PostEvent_DtvAutoTuning) OP(PostEvent_ProgramInfoReady) \
    OP(PostEvent_SignalLock) OP(PostEvent_SignalUnlock) OP(PostEvent_PopupDialog) \
    OP(PostEvent_ScreenSaverMode) OP(PostEvent_CiLoadCredentialFail) OP(PostEvent_EpgTimerSimulcast) \
    OP(PostEvent_HbbtvStatusMode) OP(PostEvent_Mheg5StatusMode) OP(PostEvent_Mheg5ReturnKey) \
    OP(PostEvent_OadHandler) OP(PostEvent_OadDownload) OP(PostEvent_PvrPlaybackTime) \
    OP(PostEvent_PvrPlaybackSpeedChange) OP(PostEvent_PvrRecordTime) OP(PostEvent_PvrRecordSize) \
    OP(PostEvent_PvrRecordStop) OP(PostEvent_PvrPlaybackStop) OP(PostEvent_PvrPlaybackBegin) \
    OP(PostEvent_PvrTimeshiftBefore) OP(PostEvent_PvrTimeshiftAfter) OP(PostEvent_OverRun) \
    OP(PostEvent_UsbRemoved) OP(PostEvent_CiPlusProtection) OP(PostEvent_ParentalControl) \
    OP(PostEvent_AlwaysTimeshiftProgramReady) OP(PostEvent_AlwaysTimeShiftProgramNotReady) \
    OP(PostEvent_PvrCiPlusRetentionLimit) OP(PostEvent_AutoUpdateScan) OP(PostEvent_TsChange) \
    OP(PostEvent_PopupScanDialogLossSignal) OP(PostEvent_PopupScanDialogNewMultiplex) \
    OP(PostEvent_PopupScanDialogFreqChange) OP(PostEvent_RctPresence) OP(PostEvent_ChangeTtxStatus) \
    OP(PostEvent_PriComponentMissing) OP(PostEvent_AudioModeChange) OP(PostEvent_Mheg5EventHandler) \
    OP(PostEvent_OadTimeOut) OP(PostEvent_GingaStatusMode) OP(PostEvent_HbbtvEvent) \
    OP(PostEvent_EpgUpdateList) OP(PostEvent_SnServiceDeadth) OP(PostEvent_4k2kHDMIDisablePip) \
    OP(PostEvent_4k2kHDMIDisablePop) OP(PostEvent_4k2kHDMIDisableDualView) \
    OP(PostEvent_4k2kHDMIDisableTravelingMode) OP(PostEvent_OPRefreshQuery) \
    OP(PostEvent_OPServiceList) OP(PostEvent_ExitOPServiceList) OP(PostEvent_Emerency_Alert) \
    OP(PostEvent_DtvChannelInfoUpdate) OP(PostEvent_EpgUpdate)
// clang-format on
