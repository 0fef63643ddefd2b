// The events a scenario's timeline can name: every two-integer listener operation under
// its name without the "PostEvent_" prefix, plus the steps that carry a parcel or change
// the simulated state.
#include "sim_events.h"

namespace host {
namespace sim {

namespace {

using L = PlayerImplListener;

// Two-integer listener operations, by name.
const SimpleEvent kSimpleEvents[] = {
    {"ChannelNameReady", &L::PostEvent_ChannelNameReady},
    {"ProgramInfoReady", &L::PostEvent_ProgramInfoReady},
    {"SignalLock", &L::PostEvent_SignalLock},
    {"SignalUnlock", &L::PostEvent_SignalUnlock},
    {"PopupDialog", &L::PostEvent_PopupDialog},
    {"ScreenSaverMode", &L::PostEvent_ScreenSaverMode},
    {"CiLoadCredentialFail", &L::PostEvent_CiLoadCredentialFail},
    {"EpgTimerSimulcast", &L::PostEvent_EpgTimerSimulcast},
    {"HbbtvStatusMode", &L::PostEvent_HbbtvStatusMode},
    {"Mheg5StatusMode", &L::PostEvent_Mheg5StatusMode},
    {"Mheg5ReturnKey", &L::PostEvent_Mheg5ReturnKey},
    {"OadHandler", &L::PostEvent_OadHandler},
    {"OadDownload", &L::PostEvent_OadDownload},
    {"PvrPlaybackTime", &L::PostEvent_PvrPlaybackTime},
    {"PvrPlaybackSpeedChange", &L::PostEvent_PvrPlaybackSpeedChange},
    {"PvrRecordTime", &L::PostEvent_PvrRecordTime},
    {"PvrRecordSize", &L::PostEvent_PvrRecordSize},
    {"PvrRecordStop", &L::PostEvent_PvrRecordStop},
    {"PvrPlaybackStop", &L::PostEvent_PvrPlaybackStop},
    {"PvrPlaybackBegin", &L::PostEvent_PvrPlaybackBegin},
    {"PvrTimeshiftBefore", &L::PostEvent_PvrTimeshiftBefore},
    {"PvrTimeshiftAfter", &L::PostEvent_PvrTimeshiftAfter},
    {"OverRun", &L::PostEvent_OverRun},
    {"UsbRemoved", &L::PostEvent_UsbRemoved},
    {"CiPlusProtection", &L::PostEvent_CiPlusProtection},
    {"ParentalControl", &L::PostEvent_ParentalControl},
    {"AlwaysTimeshiftProgramReady", &L::PostEvent_AlwaysTimeshiftProgramReady},
    {"AlwaysTimeShiftProgramNotReady", &L::PostEvent_AlwaysTimeShiftProgramNotReady},
    {"PvrCiPlusRetentionLimit", &L::PostEvent_PvrCiPlusRetentionLimit},
    {"AutoUpdateScan", &L::PostEvent_AutoUpdateScan},
    {"TsChange", &L::PostEvent_TsChange},
    {"PopupScanDialogLossSignal", &L::PostEvent_PopupScanDialogLossSignal},
    {"PopupScanDialogNewMultiplex", &L::PostEvent_PopupScanDialogNewMultiplex},
    {"PopupScanDialogFreqChange", &L::PostEvent_PopupScanDialogFreqChange},
    {"RctPresence", &L::PostEvent_RctPresence},
    {"ChangeTtxStatus", &L::PostEvent_ChangeTtxStatus},
    {"PriComponentMissing", &L::PostEvent_PriComponentMissing},
    {"AudioModeChange", &L::PostEvent_AudioModeChange},
    {"Mheg5EventHandler", &L::PostEvent_Mheg5EventHandler},
    {"OadTimeOut", &L::PostEvent_OadTimeOut},
    {"GingaStatusMode", &L::PostEvent_GingaStatusMode},
    {"EpgUpdateList", &L::PostEvent_EpgUpdateList},
    {"SnServiceDeadth", &L::PostEvent_SnServiceDeadth},
    {"4k2kHDMIDisablePip", &L::PostEvent_4k2kHDMIDisablePip},
    {"4k2kHDMIDisablePop", &L::PostEvent_4k2kHDMIDisablePop},
    {"4k2kHDMIDisableDualView", &L::PostEvent_4k2kHDMIDisableDualView},
    {"4k2kHDMIDisableTravelingMode", &L::PostEvent_4k2kHDMIDisableTravelingMode},
    {"OPRefreshQuery", &L::PostEvent_OPRefreshQuery},
    {"OPServiceList", &L::PostEvent_OPServiceList},
    {"ExitOPServiceList", &L::PostEvent_ExitOPServiceList},
    {"Emerency_Alert", &L::PostEvent_Emerency_Alert},
    {"DtvChannelInfoUpdate", &L::PostEvent_DtvChannelInfoUpdate},
    {"EpgUpdate", &L::PostEvent_EpgUpdate},
};

// Steps the simulator carries out itself (see SimulatedTv::runStep).
const char* const kSpecialSteps[] = {"AtvAutoTuning", "ManualTuning", "DtvAutoTuning",
                                     "HbbtvEvent",    "notifyCB",     "Channel"};

}  // namespace

const SimpleEvent* findSimpleEvent(const std::string& name) {
    for (const auto& e : kSimpleEvents) {
        if (name == e.name) return &e;
    }
    return nullptr;
}

std::vector<std::string> eventNames() {
    std::vector<std::string> names(std::begin(kSpecialSteps), std::end(kSpecialSteps));
    for (const auto& e : kSimpleEvents) names.emplace_back(e.name);
    return names;
}

}  // namespace sim
}  // namespace host
