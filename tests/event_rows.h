// The service's event numbering, shared by the native dispatcher test and the VM test: each
// number the service reports through its generic notification, the listener operation that
// reports the same event, and the managed field that holds the event's code. Written from the
// service's interface, not from the library's tables.
#pragma once

#include "core/PlayerImpl.h"

// The service's numbering of the events it reports through notify, the listener operation
// that reports the same event (none for the four with a parcel), and the field of its code.
struct EventRow {
    int number;
    void (PlayerImplListener::*op)(int, int);
    const char* name;
    const char* field;
};
#define ROW(number, op, field) \
    { number, &PlayerImplListener::PostEvent_##op, #op, field }
inline const EventRow kEventRows[] = {
    {0x20001003, nullptr, nullptr, "ATV_AUTO_TUNING_SCAN_INFO"},
    {0x20001004, nullptr, nullptr, "ATV_MANUAL_TUNING_SCAN_INFO"},
    {0x20001006, nullptr, nullptr, "DTV_AUTO_TUNING_SCAN_INFO"},
    ROW(0x2000100b, ChannelNameReady, "DTV_CHANNEL_NAME_READY"),
    ROW(0x2000100c, ProgramInfoReady, "PROGRAM_INFO_READY"),
    ROW(0x2000100e, PriComponentMissing, "DTV_PRI_COMPONENT_MISSING"),
    ROW(0x2000100f, AutoUpdateScan, "DTV_AUTO_UPDATE_SCAN"),
    ROW(0x20001012, DtvChannelInfoUpdate, "DTV_CHANNEL_INFO_UPDATE"),
    ROW(0x20001018, SignalUnlock, "SIGNAL_UNLOCK"),
    ROW(0x20001019, SignalLock, "SIGNAL_LOCK"),
    ROW(0x2000101a, TsChange, "TS_CHANGE"),
    ROW(0x2000101b, PopupDialog, "POPUP_DIALOG"),
    ROW(0x2000101c, ScreenSaverMode, "SCREEN_SAVER_MODE"),
    ROW(0x20001020, Emerency_Alert, "EMERGENCY_ALERT"),
    ROW(0x20003003, EpgUpdateList, "EPG_UPDATE_LIST"),
    ROW(0x20003006, EpgTimerSimulcast, "EPG_TIMER_SIMULCAST"),
    ROW(0x20003009, EpgUpdate, "EPG_UPDATE"),
    ROW(0x20004002, PvrPlaybackTime, "PVR_PLAYBACK_TIME"),
    ROW(0x20004003, PvrPlaybackSpeedChange, "PVR_PLAYBACK_SPEED_CHANGE"),
    ROW(0x20004004, PvrRecordTime, "PVR_RECORD_TIME"),
    ROW(0x20004005, PvrRecordSize, "PVR_RECORD_SIZE"),
    ROW(0x20004007, PvrRecordStop, "PVR_RECORD_STOP"),
    ROW(0x20004008, PvrPlaybackStop, "PVR_PLAYBACK_STOP"),
    ROW(0x20004009, PvrPlaybackBegin, "PVR_PLAYBACK_BEGIN"),
    ROW(0x2000400b, PvrTimeshiftBefore, "PVR_TIMESHIFT_OVERWRITE_BEFORE"),
    ROW(0x2000400c, PvrTimeshiftAfter, "PVR_TIMESHIFT_OVERWRITE_AFTER"),
    ROW(0x2000400d, OverRun, "PVR_OVERRUN"),
    ROW(0x2000400f, UsbRemoved, "PVR_USB_REMOVED"),
    ROW(0x20004011, CiPlusProtection, "PVR_CI_PLUS_PROTECTION"),
    ROW(0x20004012, PvrCiPlusRetentionLimit, "PVR_CI_PLUS_RETENTION_LIMIT_UPDATE"),
    ROW(0x20004016, ParentalControl, "PVR_PARENTAL_CONTROL"),
    ROW(0x20004024, AlwaysTimeshiftProgramReady, "PVR_ALWAYS_TIMESHIFT_PROGRAM_READY"),
    ROW(0x20004025, AlwaysTimeShiftProgramNotReady, "PVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY"),
    ROW(0x2000500f, CiLoadCredentialFail, "CI_LOAD_CREDENTIAL_FAIL"),
    ROW(0x20005012, OPRefreshQuery, "CI_UI_OP_REFRESH_QUERY"),
    ROW(0x20010009, RctPresence, "RCT_PRESENCE"),
    ROW(0x2001000c, AudioModeChange, "AUDIO_MODE_CHANGE"),
    ROW(0x20010011, ChangeTtxStatus, "CHANGE_TTX_STATUS"),
    ROW(0x20010012, Mheg5EventHandler, "MHEG5_EVENT_HANDLER"),
    ROW(0x20010013, Mheg5ReturnKey, "MHEG5_RETURN_KEY"),
    ROW(0x20010014, Mheg5StatusMode, "MHEG5_STATUS_MODE"),
    ROW(0x20010018, OadHandler, "OAD_HANDLER"),
    ROW(0x20010019, OadDownload, "OAD_DOWNLOAD"),
    ROW(0x2001001b, OadTimeOut, "OAD_TIMEOUT"),
    ROW(0x2001001d, PopupScanDialogLossSignal, "POPUP_SCAN_DIALOG_LOSS_SIGNAL"),
    ROW(0x2001001e, PopupScanDialogNewMultiplex, "POPUP_SCAN_DIALOG_NEW_MULTIPLEX"),
    ROW(0x2001001f, PopupScanDialogFreqChange, "POPUP_SCAN_DIALOG_FREQ_CHANGE"),
    {0x20010025, nullptr, nullptr, "HBBTV_UI_EVENT"},
    ROW(0x2001002f, HbbtvStatusMode, "HBBTV_STATUS_MODE"),
    ROW(0x20010030, GingaStatusMode, "GINGA_STATUS_MODE"),
    ROW(0x2001201a, OPServiceList, "CI_UI_OP_SERVICE_LIST"),
    ROW(0x2001201b, ExitOPServiceList, "CI_UI_OP_EXIT_SERVICE_LIST"),
    ROW(0x3ffffc19, 4k2kHDMIDisablePip, "4K_UHD_HDMI_DISABLE_PIP"),
    ROW(0x3ffffc1a, 4k2kHDMIDisablePop, "4K_UHD_HDMI_DISABLE_POP"),
    ROW(0x3ffffc1b, 4k2kHDMIDisableDualView, "4K_UHD_HDMI_DISABLE_DUAL_VIEW"),
    ROW(0x3ffffc1c, 4k2kHDMIDisableTravelingMode, "4K_UHD_HDMI_DISABLE_TRAVELING_MODE"),
};
#undef ROW
