// The player service proxy and its callback interface, as the closed PlayerImpl_hidl
// library lays them out. Only the order of the virtual operations matters to us: we call
// every operation through the proxy's table of virtual operations, so each declaration
// sits at the slot the service library gives it. The proxy's operations are listed once,
// in player_operations.def; slots the bridge never calls are kept there as placeholders so
// that the ones after them stay where they are.
//
// Slot numbers in the comments are 0-based positions in each class's primary table.
#pragma once

#include <cstdint>
#include <vector>

#include "core/parcel.h"
#include <utils/RefBase.h>
#include <utils/String8.h>

// Booleans answered by the proxy travel as one byte; the service does not promise 0 or 1
// in it, so we read the byte as a number and keep bit 0 ourselves.
using ProxyBool = uint8_t;

// Native records exchanged with the proxy; each is laid out by the file that marshals it.
struct VideoArcInfoRec;
struct VideoInfoRec;
struct DtvProgramSignalInfoRec;
struct DtvAudioInfoRec;
struct RfInfoRec;
struct DvbMuxInfoRec;
struct MwAtscEasInfoRec;
struct DtvDemodVersionRec;
struct DtvDemodDvbtInfoRec;
struct DtvDemodDvbcInfoRec;
struct SatelliteInfoRec;
struct DvbsTransponderInfoRec;
struct LocationInfoRec;
struct CaptionOptionSettingRec;
struct HdmiGpioRec;

class PlayerImplListener;

class PlayerImpl : public virtual android::RefBase {
public:
    // Non-virtual members, imported by name.
    static android::sp<PlayerImpl> connect();
    void disconnect();
    void setListener(const android::sp<PlayerImplListener>& listener);

    // Slots 0 to 166, in the service's order (player_operations.def).
#define PIJ_PLAYER_OP(result, name, parameters, arguments) virtual result name parameters;
#define PIJ_PLAYER_PLACEHOLDER(name) virtual void name();
#include "core/player_operations.def"
#undef PIJ_PLAYER_OP
#undef PIJ_PLAYER_PLACEHOLDER

    // Slots 167 and 168: the destructor pair.
    virtual ~PlayerImpl();

protected:
    PlayerImpl();
};

// The callback interface the proxy calls with events. All operations but the destructor
// are pure; JNIVSrvListener implements them.
class PlayerImplListener : public virtual android::RefBase {
public:
    virtual void notify(int msg, const android::Parcel& obj) = 0;                          // 0
    virtual void notifyCB(int event, int ext1, int ext2, const android::Parcel* obj) = 0;  // 1
    virtual void PostEvent_ChannelNameReady(int ext1, int ext2) = 0;                       // 2
    virtual void PostEvent_AtvAutoTuning(const android::Parcel& p) = 0;                    // 3
    virtual void PostEvent_ManualTuning(const android::Parcel& p) = 0;                     // 4
    virtual void PostEvent_DtvAutoTuning(const android::Parcel& p) = 0;                    // 5
    virtual void PostEvent_ProgramInfoReady(int ext1, int ext2) = 0;                       // 6
    virtual void PostEvent_SignalLock(int ext1, int ext2) = 0;                             // 7
    virtual void PostEvent_SignalUnlock(int ext1, int ext2) = 0;                           // 8
    virtual void PostEvent_PopupDialog(int ext1, int ext2) = 0;                            // 9
    virtual void PostEvent_ScreenSaverMode(int ext1, int ext2) = 0;                        // 10
    virtual void PostEvent_CiLoadCredentialFail(int ext1, int ext2) = 0;                   // 11
    virtual void PostEvent_EpgTimerSimulcast(int ext1, int ext2) = 0;                      // 12
    virtual void PostEvent_HbbtvStatusMode(int ext1, int ext2) = 0;                        // 13
    virtual void PostEvent_Mheg5StatusMode(int ext1, int ext2) = 0;                        // 14
    virtual void PostEvent_Mheg5ReturnKey(int ext1, int ext2) = 0;                         // 15
    virtual void PostEvent_OadHandler(int ext1, int ext2) = 0;                             // 16
    virtual void PostEvent_OadDownload(int ext1, int ext2) = 0;                            // 17
    virtual void PostEvent_PvrPlaybackTime(int ext1, int ext2) = 0;                        // 18
    virtual void PostEvent_PvrPlaybackSpeedChange(int ext1, int ext2) = 0;                 // 19
    virtual void PostEvent_PvrRecordTime(int ext1, int ext2) = 0;                          // 20
    virtual void PostEvent_PvrRecordSize(int ext1, int ext2) = 0;                          // 21
    virtual void PostEvent_PvrRecordStop(int ext1, int ext2) = 0;                          // 22
    virtual void PostEvent_PvrPlaybackStop(int ext1, int ext2) = 0;                        // 23
    virtual void PostEvent_PvrPlaybackBegin(int ext1, int ext2) = 0;                       // 24
    virtual void PostEvent_PvrTimeshiftBefore(int ext1, int ext2) = 0;                     // 25
    virtual void PostEvent_PvrTimeshiftAfter(int ext1, int ext2) = 0;                      // 26
    virtual void PostEvent_OverRun(int ext1, int ext2) = 0;                                // 27
    virtual void PostEvent_UsbRemoved(int ext1, int ext2) = 0;                             // 28
    virtual void PostEvent_CiPlusProtection(int ext1, int ext2) = 0;                       // 29
    virtual void PostEvent_ParentalControl(int ext1, int ext2) = 0;                        // 30
    virtual void PostEvent_AlwaysTimeshiftProgramReady(int ext1, int ext2) = 0;            // 31
    virtual void PostEvent_AlwaysTimeShiftProgramNotReady(int ext1, int ext2) = 0;         // 32
    virtual void PostEvent_PvrCiPlusRetentionLimit(int ext1, int ext2) = 0;                // 33
    virtual void PostEvent_AutoUpdateScan(int ext1, int ext2) = 0;                         // 34
    virtual void PostEvent_TsChange(int ext1, int ext2) = 0;                               // 35
    virtual void PostEvent_PopupScanDialogLossSignal(int ext1, int ext2) = 0;              // 36
    virtual void PostEvent_PopupScanDialogNewMultiplex(int ext1, int ext2) = 0;            // 37
    virtual void PostEvent_PopupScanDialogFreqChange(int ext1, int ext2) = 0;              // 38
    virtual void PostEvent_RctPresence(int ext1, int ext2) = 0;                            // 39
    virtual void PostEvent_ChangeTtxStatus(int ext1, int ext2) = 0;                        // 40
    virtual void PostEvent_PriComponentMissing(int ext1, int ext2) = 0;                    // 41
    virtual void PostEvent_AudioModeChange(int ext1, int ext2) = 0;                        // 42
    virtual void PostEvent_Mheg5EventHandler(int ext1, int ext2) = 0;                      // 43
    virtual void PostEvent_OadTimeOut(int ext1, int ext2) = 0;                             // 44
    virtual void PostEvent_GingaStatusMode(int ext1, int ext2) = 0;                        // 45
    virtual void PostEvent_HbbtvEvent(const android::Parcel& p) = 0;                       // 46
    virtual void PostEvent_EpgUpdateList(int ext1, int ext2) = 0;                          // 47
    virtual void PostEvent_SnServiceDeadth(int ext1, int ext2) = 0;                        // 48
    virtual void PostEvent_4k2kHDMIDisablePip(int ext1, int ext2) = 0;                     // 49
    virtual void PostEvent_4k2kHDMIDisablePop(int ext1, int ext2) = 0;                     // 50
    virtual void PostEvent_4k2kHDMIDisableDualView(int ext1, int ext2) = 0;                // 51
    virtual void PostEvent_4k2kHDMIDisableTravelingMode(int ext1, int ext2) = 0;           // 52
    virtual void PostEvent_OPRefreshQuery(int ext1, int ext2) = 0;                         // 53
    virtual void PostEvent_OPServiceList(int ext1, int ext2) = 0;                          // 54
    virtual void PostEvent_ExitOPServiceList(int ext1, int ext2) = 0;                      // 55
    virtual void PostEvent_Emerency_Alert(int ext1, int ext2) = 0;                         // 56
    virtual void PostEvent_DtvChannelInfoUpdate(int ext1, int ext2) = 0;                   // 57
    virtual void PostEvent_EpgUpdate(int ext1, int ext2) = 0;                              // 58

    // Slots 59 and 60: the destructor pair.
    virtual ~PlayerImplListener();
};
