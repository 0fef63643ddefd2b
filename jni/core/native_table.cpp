// Library load: the 150-row native table of the managed player class and the Surface
// field cache.
#include "core/log.h"

#include "core/native_table.h"

#include "core/context.h"
#include "core/handlers.h"
#include "core/native_row.h"
#include "core/scoped.h"

namespace pij {
namespace {

// Row 112 is registered "()Z", but its exported handler is declared with two further ints,
// which the runtime never passes and the handler never reads: the row binds this function of
// the registered type, which passes zeros for them.
jboolean resetRrtInformationRow(JNIEnv* env, jobject thiz) {
    return com_vireo_android_tvapi_common_PlayerImpl_resetRrtInformation(env, thiz, 0, 0);
}

#define PIJ_VO "Lcom/vireo/android/tvapi/"

// Registration order is the managed side's contract; keep every row where it stands. Each
// row: managed name and signature, then the handler, whose C++ type the compiler checks
// against the signature (core/native_row.h).
// clang-format off
JNINativeMethod gMethods[] = {
    PIJ_NATIVE("native_init", "()V",  // 0
               com_vireo_android_tvapi_impl_PlayerImpl_native_init),
    PIJ_NATIVE("native_setup", "(Ljava/lang/Object;)V",  // 1
               com_vireo_android_tvapi_impl_PlayerImpl_native_setup),
    PIJ_NATIVE("native_finalize", "()V",  // 2
               com_vireo_android_tvapi_impl_PlayerImpl_native_finalize),
    PIJ_NATIVE("_setVideoSurface", "(Landroid/view/Surface;I)V",  // 3
               com_vireo_android_tvapi_impl_PlayerImpl_setVideoSurface),
    PIJ_NATIVE("_destoryVideoSurface", "(Landroid/view/Surface;)Z",  // 4
               com_vireo_android_tvapi_impl_PlayerImpl_destoryVideoSurfaceTexture),
    PIJ_NATIVE("startPcModeAtuoTune", "()Z",  // 5
               com_vireo_android_tvapi_impl_PlayerImpl_startPcModeAtuoTune),
    PIJ_NATIVE("closeTeletext", "()Z",  // 6
               com_vireo_android_tvapi_impl_PlayerImpl_closeTeletext),
    PIJ_NATIVE("stopCc", "()Z",  // 7
               com_vireo_android_tvapi_impl_PlayerImpl_stopCc),
    PIJ_NATIVE("native_getAspectRatio", "()" PIJ_VO "common/vo/VideoArcInfo;",  // 8
               com_vireo_android_tvapi_impl_PlayerImpl_getAspectRatio),
    PIJ_NATIVE("getPhaseRange", "()I",  // 9
               com_vireo_android_tvapi_impl_PlayerImpl_getPhaseRange),
    PIJ_NATIVE("getVideoInfo", "()" PIJ_VO "common/vo/VideoInfo;",  // 10
               com_vireo_android_tvapi_impl_PlayerImpl_getVideoInfo),
    PIJ_NATIVE("native_getVideoStandard", "()I",  // 11
               com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandard),
    PIJ_NATIVE("native_getVideoStandardDetectionState", "()I",  // 12
               com_vireo_android_tvapi_impl_PlayerImpl_native_getVideoStandardDetectionState),
    PIJ_NATIVE("doesCcExist", "()Z",  // 13
               com_vireo_android_tvapi_impl_PlayerImpl_doesCcExist),
    PIJ_NATIVE("isHdmiMode", "()Z",  // 14
               com_vireo_android_tvapi_impl_PlayerImpl_isHdmiMode),
    PIJ_NATIVE("isSignalStable", "()Z",  // 15
               com_vireo_android_tvapi_impl_PlayerImpl_isSignalStable),
    PIJ_NATIVE("hasTeletextSignal", "()Z",  // 16
               com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextSignal),
    PIJ_NATIVE("hasTeletextClockSignal", "()Z",  // 17
               com_vireo_android_tvapi_impl_PlayerImpl_hasTeletextClockSignal),
    PIJ_NATIVE("isTeletextDisplayed", "()Z",  // 18
               com_vireo_android_tvapi_impl_PlayerImpl_isTeletextDisplayed),
    PIJ_NATIVE("isTeletextSubtitleChannel", "()Z",  // 19
               com_vireo_android_tvapi_impl_PlayerImpl_isTeletextSubtitleChannel),
    PIJ_NATIVE("native_openTeletext", "(I)Z",  // 20
               com_vireo_android_tvapi_impl_PlayerImpl_native_openTeletext),
    PIJ_NATIVE("native_sendTeletextCommand", "(I)Z",  // 21
               com_vireo_android_tvapi_impl_PlayerImpl_native_sendTeletextCommand),
    PIJ_NATIVE("setTeletextLanguageGroup", "(I)Z",  // 22
               com_vireo_android_tvapi_impl_PlayerImpl_setTeletextLanguageGroup),
    PIJ_NATIVE("native_openPAT", "(I)Z",  // 23
               com_vireo_android_tvapi_impl_PlayerImpl_native_openPAT),
    PIJ_NATIVE("setHPosition", "(I)Z",  // 24
               com_vireo_android_tvapi_impl_PlayerImpl_setHPosition),
    PIJ_NATIVE("setPhase", "(I)Z",  // 25
               com_vireo_android_tvapi_impl_PlayerImpl_setPhase),
    PIJ_NATIVE("setSize", "(I)Z",  // 26
               com_vireo_android_tvapi_impl_PlayerImpl_setSize),
    PIJ_NATIVE("setVPosition", "(I)Z",  // 27
               com_vireo_android_tvapi_impl_PlayerImpl_setVPosition),
    PIJ_NATIVE("startCc", "()Z",  // 28
               com_vireo_android_tvapi_impl_PlayerImpl_startCc),
    PIJ_NATIVE("disableAft", "()Z",  // 29
               com_vireo_android_tvapi_impl_PlayerImpl_disableAft),
    PIJ_NATIVE("enableAft", "()Z",  // 30
               com_vireo_android_tvapi_impl_PlayerImpl_enableAft),
    PIJ_NATIVE("initAtvVif", "()V",  // 31
               com_vireo_android_tvapi_impl_PlayerImpl_initAtvVif),
    PIJ_NATIVE("isAftEnabled", "()Z",  // 32
               com_vireo_android_tvapi_impl_PlayerImpl_isAftEnabled),
    PIJ_NATIVE("saveAtvProgram", "(I)Z",  // 33
               com_vireo_android_tvapi_impl_PlayerImpl_saveAtvProgram),
    PIJ_NATIVE("getAudioInfo", "()" PIJ_VO "dtv/vo/DtvAudioInfo;",  // 34
               com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo),
    PIJ_NATIVE("getAudioInfo_ex", "()" PIJ_VO "dtv/vo/DtvAudioInfo;",  // 35
               com_vireo_android_tvapi_impl_PlayerImpl_getAudioInfo_ex),
    PIJ_NATIVE("native_getRfInfo", "(II)" PIJ_VO "dtv/vo/RfInfo;",  // 36
               com_vireo_android_tvapi_impl_PlayerImpl_getRFInfo),
    PIJ_NATIVE("playCurrentProgram", "()Z",  // 37
               com_vireo_android_tvapi_impl_PlayerImpl_playCurrentProgram),
    PIJ_NATIVE("setManualTuneByFreq", "(I)Z",  // 38
               com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByFreq),
    PIJ_NATIVE("setManualTuneByRf", "(S)Z",  // 39
               com_vireo_android_tvapi_impl_PlayerImpl_setManualTuneByRf),
    PIJ_NATIVE("changeManualScanRF", "(I)Z",  // 40
               com_vireo_android_tvapi_impl_PlayerImpl_changeManualScanRF),
    PIJ_NATIVE("switchAudioTrack", "(I)V",  // 41
               com_vireo_android_tvapi_impl_PlayerImpl_switchAudioTrack),
    PIJ_NATIVE("getCurrentMuxInfo", "()" PIJ_VO "dtv/dvb/vo/DvbMuxInfo;",  // 42
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentMuxInfo),
    PIJ_NATIVE("getDtvRouteCount", "()I",  // 43
               com_vireo_android_tvapi_impl_PlayerImpl_getDtvRouteCount),
    PIJ_NATIVE("getMuxInfoByProgramNumber", "(IS)" PIJ_VO "dtv/dvb/vo/DvbMuxInfo;",  // 44
               com_vireo_android_tvapi_impl_PlayerImpl_getMuxInfoByProgramNumber),
    PIJ_NATIVE("setDtvRoute", "(S)V",  // 45
               com_vireo_android_tvapi_impl_PlayerImpl_setDtvRoute),
    PIJ_NATIVE("setFavoriteRegion", "(I)V",  // 46
               com_vireo_android_tvapi_impl_PlayerImpl_setFavoriteRegion),
    PIJ_NATIVE("switchDtvRoute", "(S)Z",  // 47
               com_vireo_android_tvapi_impl_PlayerImpl_switchDtvRoute),
    PIJ_NATIVE("unlockChannel", "()Z",  // 48
               com_vireo_android_tvapi_impl_PlayerImpl_unlockChannel),
    PIJ_NATIVE("setMirror", "(Z)Z",  // 49
               com_vireo_android_tvapi_impl_PlayerImpl_setMirror),
    PIJ_NATIVE("native_setParental", "(I)V",  // 50
               com_vireo_android_tvapi_impl_PlayerImpl_native_setParental),
    PIJ_NATIVE("getLanguageCode", "()Ljava/lang/String;",  // 51
               com_vireo_android_tvapi_impl_PlayerImpl_getLanguageCode),
    PIJ_NATIVE("native_setCountry", "(I)Z",  // 52
               com_vireo_android_tvapi_impl_PlayerImpl_native_setCountry),
    PIJ_NATIVE("getCountryCode", "()Ljava/lang/String;",  // 53
               com_vireo_android_tvapi_impl_PlayerImpl_getCountryCode),
    PIJ_NATIVE("enableAutoClock", "()V",  // 54
               com_vireo_android_tvapi_impl_PlayerImpl_enableAutoClock),
    PIJ_NATIVE("disableAutoClock", "()V",  // 55
               com_vireo_android_tvapi_impl_PlayerImpl_disableAutoClock),
    PIJ_NATIVE("setAudioMode", "(I)Z",  // 56
               com_vireo_android_tvapi_impl_PlayerImpl_setAudioMode),
    PIJ_NATIVE("native_setTimeZone", "(I)V",  // 57
               com_vireo_android_tvapi_impl_PlayerImpl_native_setTimeZone),
    PIJ_NATIVE("enableAutoScartOut", "()Z",  // 58
               com_vireo_android_tvapi_impl_PlayerImpl_enableAutoScartOut),
    PIJ_NATIVE("disableAutoScartOut", "()Z",  // 59
               com_vireo_android_tvapi_impl_PlayerImpl_disableAutoScartOut),
    PIJ_NATIVE("sendMheg5Command", "(S)Z",  // 60
               com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Command),
    PIJ_NATIVE("sendMheg5IcsCommand", "(IS)Z",  // 61
               com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5IcsCommand),
    PIJ_NATIVE("isMheg5Running", "()Z",  // 62
               com_vireo_android_tvapi_impl_PlayerImpl_isMheg5Running),
    PIJ_NATIVE("getMheg5PfgContent", "()Ljava/lang/String;",  // 63
               com_vireo_android_tvapi_impl_PlayerImpl_getMheg5PfgContent),
    PIJ_NATIVE("native_setChannelChangeFreezeMode", "(Z)V",  // 64
               com_vireo_android_tvapi_impl_PlayerImpl_native_setChannelChangeFreezeMode),
    PIJ_NATIVE("startAutoStandardDetection", "()V",  // 65
               com_vireo_android_tvapi_impl_PlayerImpl_startAutoStandardDetection),
    PIJ_NATIVE("native_forceVideoStandard", "(I)V",  // 66
               com_vireo_android_tvapi_impl_PlayerImpl_native_forceVideoStandard),
    PIJ_NATIVE("native_detectInputSource", "(I)Z",  // 67
               com_vireo_android_tvapi_impl_PlayerImpl_native_detectInputSource),
    PIJ_NATIVE("setHdmiGpio", "([I)Z",  // 68
               com_vireo_android_tvapi_impl_PlayerImpl_setHdmiGpio),
    PIJ_NATIVE("initOfflineDetection", "()V",  // 69
               com_vireo_android_tvapi_impl_PlayerImpl_initOfflineDetection),
    PIJ_NATIVE("startAutoStandardDetection", "()V",  // 70
               com_vireo_android_tvapi_impl_PlayerImpl_startAutoStandardDetection),
    PIJ_NATIVE("setDebugMode", "(Z)V",  // 71
               com_vireo_android_tvapi_impl_PlayerImpl_setDebugMode),
    PIJ_NATIVE("getCurrentSignalInformation", "()" PIJ_VO "common/vo/DtvProgramSignalInfo;",  // 72
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSignalInformation),
    PIJ_NATIVE("native_getNitFrequencyByDtvRegion", "(I)[I",  // 73
               com_vireo_android_tvapi_impl_PlayerImpl_native_getNitFrequencyByDtvRegion),
    PIJ_NATIVE("native_getChinaDvbcRegion", "()I",  // 74
               com_vireo_android_tvapi_impl_PlayerImpl_native_getChinaDvbcRegion),
    PIJ_NATIVE("native_setChinaDvbcRegion", "(I)V",  // 75
               com_vireo_android_tvapi_impl_PlayerImpl_native_setChinaDvbcRegion),
    PIJ_NATIVE("autostartApplication", "()Z",  // 76
               com_vireo_android_tvapi_impl_PlayerImpl_autostartApplication),
    PIJ_NATIVE("startApplication", "(JJ)Z",  // 77
               com_vireo_android_tvapi_impl_PlayerImpl_startApplication),
    PIJ_NATIVE("stopApplication", "()Z",  // 78
               com_vireo_android_tvapi_impl_PlayerImpl_stopApplication),
    PIJ_NATIVE("enableGinga", "()Z",  // 79
               com_vireo_android_tvapi_impl_PlayerImpl_enableGinga),
    PIJ_NATIVE("disableGigna", "()Z",  // 80
               com_vireo_android_tvapi_impl_PlayerImpl_disableGigna),
    PIJ_NATIVE("isGingaEnabled", "()Z",  // 81
               com_vireo_android_tvapi_impl_PlayerImpl_isGingaEnabled),
    PIJ_NATIVE("isGingaRunning", "()Z",  // 82
               com_vireo_android_tvapi_impl_PlayerImpl_isGingaRunning),
    PIJ_NATIVE("processKey", "(IZ)Z",  // 83
               com_vireo_android_tvapi_impl_PlayerImpl_processKey),
    PIJ_NATIVE("setVChipGuideline", "(SSSS)Z",  // 84
               com_vireo_android_tvapi_impl_PlayerImpl_setVChipGuideline),
    PIJ_NATIVE("getCurrentVChipBlockStatus", "()Z",  // 85
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentVChipBlockStatus),
    PIJ_NATIVE("enterPassToUnlockUnratedByUser", "(Z)Z",  // 86
               com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockUnratedByUser),
    PIJ_NATIVE("enterPassToUnlockByUser", "(Z)Z",  // 87
               com_vireo_android_tvapi_impl_PlayerImpl_enterPassToUnlockByUser),
    PIJ_NATIVE("getCurrentRatingInformation", "()Ljava/lang/String;",  // 88
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentRatingInformation),
    PIJ_NATIVE("native_setAudioMute", "(II)Z",  // 89
               com_vireo_android_tvapi_impl_PlayerImpl_native_setAudioMute),
    PIJ_NATIVE("native_atsc_setAntennaType", "(I)Z",  // 90
               com_vireo_android_tvapi_impl_PlayerImpl_native_atsc_setAntennaType),
    PIJ_NATIVE("native_getDTVDemodVersion", "(I)" PIJ_VO "dtv/vo/DtvDemodVersion;",  // 91
               com_vireo_android_tvapi_impl_PlayerImpl_getDTVDemodVersion),
    PIJ_NATIVE("setCcMode", "(I)V",  // 92
               com_vireo_android_tvapi_impl_PlayerImpl_setCcMode),
    PIJ_NATIVE("getCcMode", "()I",  // 93
               com_vireo_android_tvapi_impl_PlayerImpl_getCcMode),
    PIJ_NATIVE("getAirChannelType", "()I",  // 94
               com_vireo_android_tvapi_impl_PlayerImpl_getAirChannelType),
    PIJ_NATIVE("getAntennaType", "()I",  // 95
               com_vireo_android_tvapi_impl_PlayerImpl_getAntennaType),
    PIJ_NATIVE("getDemodDVBTInfo", "()" PIJ_VO "dtv/dvb/dvbt/DtvDemodDvbtInfo;",  // 96
               com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBTInfo),
    PIJ_NATIVE("getDemodDVBCInfo", "()" PIJ_VO "dtv/dvb/dvbc/DtvDemodDvbcInfo;",  // 97
               com_vireo_android_tvapi_impl_PlayerImpl_getDemodDVBCInfo),
    PIJ_NATIVE("_getCurrentEventStatus", "(I)I",  // 98
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentEventStatus),
    PIJ_NATIVE("_setCurrentEventStatus", "(II)V",  // 99
               com_vireo_android_tvapi_impl_PlayerImpl_setCurrentEventStatus),
    PIJ_NATIVE("setAutoSync", "(Z)Z",  // 100
               com_vireo_android_tvapi_impl_PlayerImpl_setAutoSync),
    PIJ_NATIVE("getLogoData", "()[I",  // 101
               com_vireo_android_tvapi_impl_PlayerImpl_getLogoData),
    PIJ_NATIVE("getChannelLogoARGB", "()[I",  // 102
               com_vireo_android_tvapi_impl_PlayerImpl_getChannelLogoARGB),
    PIJ_NATIVE("getTSUpdateInfo", "(I)" PIJ_VO "dtv/atsc/vo/AtscScanChannelNotify;",  // 103
               com_vireo_android_tvapi_impl_PlayerImpl_getTSUpdateInfo),
    PIJ_NATIVE("setEasProgressDone", "()V",  // 104
               com_vireo_android_tvapi_impl_PlayerImpl_setEasProgressDone),
    PIJ_NATIVE("setEasAudioDesired", "(Z)V",  // 105
               com_vireo_android_tvapi_impl_PlayerImpl_setEasAudioDesired),
    PIJ_NATIVE("getEasProgressSatus", "()Z",  // 106
               com_vireo_android_tvapi_impl_PlayerImpl_getEasProgressSatus),
    PIJ_NATIVE("getEASInProgress", "()" PIJ_VO "dtv/vo/MwAtscEasInfo;",  // 107
               com_vireo_android_tvapi_impl_PlayerImpl_getEASInProgress),
    PIJ_NATIVE("createPreviewCCWin", "()Z",  // 108
               com_vireo_android_tvapi_impl_PlayerImpl_createPreviewCCWin),
    PIJ_NATIVE("exitPreviewCCWin", "()Z",  // 109
               com_vireo_android_tvapi_impl_PlayerImpl_exitPreviewCCWin),
    PIJ_NATIVE("drawPreviewCCWin", "(" PIJ_VO "common/vo/CaptionOptionSetting;)Z",  // 110
               com_vireo_android_tvapi_impl_PlayerImpl_drawPreviewCCWin),
    PIJ_NATIVE("native_getRRTInformation", "(Landroid/os/Parcel;)V",  // 111
               com_vireo_android_tvapi_impl_PlayerImpl_native_getRRTInformation),
    PIJ_NATIVE("resetRrtInformation", "()Z",  // 112
               resetRrtInformationRow),
    PIJ_NATIVE("sendMheg5Key", "(I)Z",  // 113
               com_vireo_android_tvapi_impl_PlayerImpl_sendMheg5Key),
    PIJ_NATIVE("native_getVChipRatingInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z",  // 114
               com_vireo_android_tvapi_impl_PlayerImpl_native_getVChipRatingInfo),
    PIJ_NATIVE("getCurrentSatelliteCount", "()I",  // 115
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteCount),
    PIJ_NATIVE("getSatelliteInfo", "(I)" PIJ_VO "dtv/dvb/dvbs/vo/SatelliteInfo;",  // 116
               com_vireo_android_tvapi_impl_PlayerImpl_getSatelliteInfo),
    PIJ_NATIVE("getCurrentSatelliteNumber", "()I",  // 117
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentSatelliteNumber),
    PIJ_NATIVE("setCurrentSatelliteNumber", "(I)Z",  // 118
               com_vireo_android_tvapi_impl_PlayerImpl_setCurrentSatelliteNumber),
    PIJ_NATIVE("getTransponderCount", "(I)I",  // 119
               com_vireo_android_tvapi_impl_PlayerImpl_getTransponderCount),
    PIJ_NATIVE("getCurrentTransponderNumber", "()I",  // 120
               com_vireo_android_tvapi_impl_PlayerImpl_getCurrentTransponderNumber),
    PIJ_NATIVE("setCurrentTransponderNumber", "(I)Z",  // 121
               com_vireo_android_tvapi_impl_PlayerImpl_setCurrentTransponderNumber),
    PIJ_NATIVE("getTransponderInfo", "(II)" PIJ_VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;",  // 122
               com_vireo_android_tvapi_impl_PlayerImpl_getTransponderInfo),
    PIJ_NATIVE("updateSatelliteInfo", "(I" PIJ_VO "dtv/dvb/dvbs/vo/SatelliteInfo;)Z",  // 123
               com_vireo_android_tvapi_impl_PlayerImpl_updateSatelliteInfo),
    PIJ_NATIVE("updateTransponderInfo", "(II" PIJ_VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z",  // 124
               com_vireo_android_tvapi_impl_PlayerImpl_updateTransponderInfo),
    PIJ_NATIVE("addSatelliteInfo", "(" PIJ_VO "dtv/dvb/dvbs/vo/SatelliteInfo;)Z",  // 125
               com_vireo_android_tvapi_impl_PlayerImpl_addSatelliteInfo),
    PIJ_NATIVE("addTransponderInfo", "(I" PIJ_VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z",  // 126
               com_vireo_android_tvapi_impl_PlayerImpl_addTransponderInfo),
    PIJ_NATIVE("deleteSatelliteInfo", "(I)Z",  // 127
               com_vireo_android_tvapi_impl_PlayerImpl_deleteSatelliteInfo),
    PIJ_NATIVE("deleteTransponderInfo", "(II)Z",  // 128
               com_vireo_android_tvapi_impl_PlayerImpl_deleteTransponderInfo),
    PIJ_NATIVE("verifySlotFrequency", "()Z",  // 129
               com_vireo_android_tvapi_impl_PlayerImpl_verifySlotFrequency),
    PIJ_NATIVE("setDishLNBPowerMode", "(I)Z",  // 130
               com_vireo_android_tvapi_impl_PlayerImpl_setDishLNBPowerMode),
    PIJ_NATIVE("setDish22KMode", "(I)Z",  // 131
               com_vireo_android_tvapi_impl_PlayerImpl_setDish22KMode),
    PIJ_NATIVE("setDishToneburstMode", "(I)Z",  // 132
               com_vireo_android_tvapi_impl_PlayerImpl_setDishToneburstMode),
    PIJ_NATIVE("setDiSEqCSwitchPort", "(II)Z",  // 133
               com_vireo_android_tvapi_impl_PlayerImpl_setDiSEqCSwitchPort),
    PIJ_NATIVE("sendDiSEqCMotorCommand", "(I)Z",  // 134
               com_vireo_android_tvapi_impl_PlayerImpl_sendDiSEqCMotorCommand),
    PIJ_NATIVE("setUserLocationCode", "(I)V",  // 135
               com_vireo_android_tvapi_impl_PlayerImpl_setUserLocationCode),
    PIJ_NATIVE("getUserLocationCode", "()I",  // 136
               com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCode),
    PIJ_NATIVE("getEWSInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z",  // 137
               com_vireo_android_tvapi_impl_PlayerImpl_getEWSInfo),
    PIJ_NATIVE("getEWBSInfo", "(I)" PIJ_VO "dtv/dvb/isdb/vo/EwbsInfo;",  // 138
               com_vireo_android_tvapi_impl_PlayerImpl_getEWBSInfo),
    PIJ_NATIVE("setEWBSOpInfo", "(II)I",  // 139
               com_vireo_android_tvapi_impl_PlayerImpl_setEWBSOpInfo),
    PIJ_NATIVE("getEWBSOpInfo", "(I)" PIJ_VO "dtv/dvb/isdb/vo/EwbsOpInfo;",  // 140
               com_vireo_android_tvapi_impl_PlayerImpl_getEWBSOpInfo),
    PIJ_NATIVE("setProgramSortByType", "(I)Z",  // 141
               com_vireo_android_tvapi_impl_PlayerImpl_setProgramSortByType),
    PIJ_NATIVE("getUserLocationCount", "()I",  // 142
               com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationCount),
    PIJ_NATIVE("getUserLocationInfo", "(I)" PIJ_VO "dtv/dvb/dvbs/vo/LocationInfo;",  // 143
               com_vireo_android_tvapi_impl_PlayerImpl_getUserLocationInfo),
    PIJ_NATIVE("changeSetting", "(I)V",  // 144
               com_vireo_android_tvapi_impl_PlayerImpl_changeSetting),
    PIJ_NATIVE("getHdmiEdidVersionBySource", "(I)I",  // 145
               com_vireo_android_tvapi_common_PlayerImpl_getHdmiEdidVersionBySource),
    PIJ_NATIVE("setHdmiEdidVersionBySource", "(II)Z",  // 146
               com_vireo_android_tvapi_common_PlayerImpl_setHdmiEdidVersionBySource),
    PIJ_NATIVE("getAllBISSProgramInfo", "(Landroid/os/Parcel;)V",  // 147
               com_vireo_android_tvapi_common_PlayerImpl_getAllBISSProgramInfo),
    PIJ_NATIVE("setProgramBISSKeyByNumber", "(IILjava/lang/String;I)Z",  // 148
               com_vireo_android_tvapi_common_PlayerImpl_setProgramBISSKeyByNumber),
    PIJ_NATIVE("clearProgramBISSKeyByNumber", "(II)V",  // 149
               com_vireo_android_tvapi_common_PlayerImpl_clearProgramBISSKeyByNumber),
};
// clang-format on

#undef PIJ_VO

static_assert(sizeof(gMethods) / sizeof(gMethods[0]) == kNativeMethodCount,
              "the managed class has 150 native rows");

}  // namespace

const JNINativeMethod* nativeMethods() { return gMethods; }

}  // namespace pij

PIJ_EXPORT jint JNI_OnLoad(JavaVM* vm, void* /*reserved*/) {
    using namespace pij;
    ALOGD("JNI_OnLoad");

    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_4) != JNI_OK) {
        ALOGE("ERROR: GetEnv failed");
        return -1;
    }

    ScopedLocalRef<jclass> player(env, env->FindClass(kPlayerClass));
    if (player.get() == nullptr) {
        ALOGE("Native registration unable to find class '%s'", kPlayerClass);
        ALOGE("ERROR: registerNatives failed");
        return -1;
    }
    if (env->RegisterNatives(player.get(), gMethods, kNativeMethodCount) < 0) {
        ALOGE("RegisterNatives failed for '%s'", kPlayerClass);
        ALOGE("ERROR: registerNatives failed");
        return -1;
    }

    ScopedLocalRef<jclass> surface(env, env->FindClass("android/view/Surface"));
    if (surface.get() == nullptr) {
        ALOGE("[Error] android/view/Surface clazz == NULL");
        return -1;
    }
    // Kept for the life of the process; never stored or released.
    jclass surfaceGlobal = static_cast<jclass>(env->NewGlobalRef(surface.get()));
    if (surfaceGlobal == nullptr) {
        ALOGE("[Error] Get the jclass fail!");
        return -1;
    }
    gSurfaceFields.nativeObject = env->GetFieldID(surfaceGlobal, "mNativeObject", "J");
    if (gSurfaceFields.nativeObject == nullptr) {
        ALOGE("[Error] Get a gNativeObject fail!");
        return -1;
    }
    gSurfaceFields.lock = env->GetFieldID(surfaceGlobal, "mLock", "Ljava/lang/Object;");
    if (gSurfaceFields.lock == nullptr) {
        ALOGE("[Error] Get a gLock fail!");
        return -1;
    }
    return JNI_VERSION_1_4;
}
