// The managed event codes: one static int "TVPLAYER_<name>" field of the managed player
// class per entry, read by native_init in this order. The managed class owns the values.
#pragma once

#include <jni.h>

// X(name): read and kept.  D(name): read, value discarded (nothing posts it, but the field
// must exist on the managed class).
#define PIJ_EVENT_CODES(X, D)                 \
    X(DTV_AUTO_TUNING_SCAN_INFO)              \
    X(ATV_MANUAL_TUNING_SCAN_INFO)            \
    X(ATV_AUTO_TUNING_SCAN_INFO)              \
    X(DTV_CHANNEL_NAME_READY)                 \
    X(PROGRAM_INFO_READY)                     \
    X(DTV_CHANNEL_INFO_UPDATE)                \
    X(TS_CHANGE)                              \
    D(DTV_PSIP_TS_UPDATE)                     \
    X(DTV_PRI_COMPONENT_MISSING)              \
    X(EPG_TIMER_SIMULCAST)                    \
    X(EPG_UPDATE_LIST)                        \
    X(EPG_UPDATE)                             \
    X(HBBTV_STATUS_MODE)                      \
    X(HBBTV_UI_EVENT)                         \
    X(MHEG5_STATUS_MODE)                      \
    X(MHEG5_RETURN_KEY)                       \
    X(MHEG5_EVENT_HANDLER)                    \
    X(DTV_AUTO_UPDATE_SCAN)                   \
    X(POPUP_SCAN_DIALOG_LOSS_SIGNAL)          \
    X(POPUP_SCAN_DIALOG_NEW_MULTIPLEX)        \
    X(POPUP_SCAN_DIALOG_FREQ_CHANGE)          \
    X(CHANGE_TTX_STATUS)                      \
    X(AUDIO_MODE_CHANGE)                      \
    X(OAD_TIMEOUT)                            \
    X(OAD_HANDLER)                            \
    X(OAD_DOWNLOAD)                           \
    X(GINGA_STATUS_MODE)                      \
    X(SIGNAL_LOCK)                            \
    X(SIGNAL_UNLOCK)                          \
    X(SIGNAL_UNSTABLE)                        \
    X(CI_LOAD_CREDENTIAL_FAIL)                \
    X(CI_UI_OP_REFRESH_QUERY)                 \
    X(CI_UI_OP_SERVICE_LIST)                  \
    X(CI_UI_OP_EXIT_SERVICE_LIST)             \
    X(SCREEN_SAVER_MODE)                      \
    X(POPUP_DIALOG)                           \
    X(PVR_PLAYBACK_TIME)                      \
    X(PVR_PLAYBACK_SPEED_CHANGE)              \
    X(PVR_PLAYBACK_STOP)                      \
    X(PVR_PLAYBACK_BEGIN)                     \
    X(PVR_RECORD_TIME)                        \
    X(PVR_RECORD_SIZE)                        \
    X(PVR_RECORD_STOP)                        \
    X(PVR_TIMESHIFT_OVERWRITE_BEFORE)         \
    X(PVR_TIMESHIFT_OVERWRITE_AFTER)          \
    X(PVR_OVERRUN)                            \
    X(PVR_USB_REMOVED)                        \
    X(PVR_CI_PLUS_PROTECTION)                 \
    X(PVR_CI_PLUS_RETENTION_LIMIT_UPDATE)     \
    X(PVR_PARENTAL_CONTROL)                   \
    X(PVR_ALWAYS_TIMESHIFT_PROGRAM_READY)     \
    X(PVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY) \
    X(RCT_PRESENCE)                           \
    X(EMERGENCY_ALERT)                        \
    X(4K_UHD_HDMI_DISABLE_PIP)                \
    X(4K_UHD_HDMI_DISABLE_POP)                \
    X(4K_UHD_HDMI_DISABLE_DUAL_VIEW)          \
    X(4K_UHD_HDMI_DISABLE_TRAVELING_MODE)     \
    X(INPUT_SOURCE_LOCK)                      \
    X(DISPLAY_EMERGENCY_SYSTEM)               \
    X(CLOSE_EMERGENCY_SYSTEM)                 \
    X(EVENT_EXCEED_CODEC_CAPABILITY)          \
    X(DTV_VIDEO_INFO_READY)

namespace pij {

// Index of each kept code in gEventCodes ("4K_..." names get an E prefix so that every
// enumerator is an identifier).
enum EventCode : int {
#define PIJ_EV_ENUM(name) E##name,
#define PIJ_EV_SKIP(name)
    PIJ_EVENT_CODES(PIJ_EV_ENUM, PIJ_EV_SKIP)
#undef PIJ_EV_ENUM
#undef PIJ_EV_SKIP
        kEventCodeCount
};

// Filled once by native_init and only read afterwards; 0 before then.
extern jint gEventCodes[kEventCodeCount];

inline jint eventCode(EventCode c) { return gEventCodes[c]; }

// The field names in read order, "TVPLAYER_" included (63 names, the discarded one too).
extern const char* const kEventCodeFields[];
extern const int kEventCodeFieldCount;

// Reads every code from the managed player class, in the order above, for native_init. False
// at the first field the class lacks, with the runtime's error pending; the codes read so far
// are kept.
bool readEventCodes(JNIEnv* env, jclass playerClass);

}  // namespace pij
