// Library load: the 150-row native table of the managed player class and the Surface
// field cache.
#include "core/native_table.h"

#include "core/context.h"
#include "core/handlers.h"
#include "core/log.h"

namespace pij {
namespace {

const char* const kPlayerClass = "com/vireo/android/tvapi/impl/PlayerImpl";

#define ROW(name, sig, handler) {name, sig, reinterpret_cast<void*>(handler)}
#define VO "Lcom/vireo/android/tvapi/"

// Registration order is the managed side's contract; keep every row where it stands.
JNINativeMethod gMethods[] = {
    ROW("native_init", "()V", PIJ_IMPL(native_init)),                                   // 0
    ROW("native_setup", "(Ljava/lang/Object;)V", PIJ_IMPL(native_setup)),              // 1
    ROW("native_finalize", "()V", PIJ_IMPL(native_finalize)),                          // 2
    ROW("_setVideoSurface", "(Landroid/view/Surface;I)V", PIJ_IMPL(setVideoSurface)),   // 3
    ROW("_destoryVideoSurface", "(Landroid/view/Surface;)Z",
        PIJ_IMPL(destoryVideoSurfaceTexture)),                                          // 4
    ROW("startPcModeAtuoTune", "()Z", PIJ_IMPL(startPcModeAtuoTune)),                   // 5
    ROW("closeTeletext", "()Z", PIJ_IMPL(closeTeletext)),                               // 6
    ROW("stopCc", "()Z", PIJ_IMPL(stopCc)),                                             // 7
    ROW("native_getAspectRatio", "()" VO "common/vo/VideoArcInfo;",
        PIJ_IMPL(getAspectRatio)),                                                      // 8
    ROW("getPhaseRange", "()I", PIJ_IMPL(getPhaseRange)),                               // 9
    ROW("getVideoInfo", "()" VO "common/vo/VideoInfo;", PIJ_IMPL(getVideoInfo)),        // 10
    ROW("native_getVideoStandard", "()I", PIJ_IMPL(native_getVideoStandard)),           // 11
    ROW("native_getVideoStandardDetectionState", "()I",
        PIJ_IMPL(native_getVideoStandardDetectionState)),                               // 12
    ROW("doesCcExist", "()Z", PIJ_IMPL(doesCcExist)),                                   // 13
    ROW("isHdmiMode", "()Z", PIJ_IMPL(isHdmiMode)),                                     // 14
    ROW("isSignalStable", "()Z", PIJ_IMPL(isSignalStable)),                             // 15
    ROW("hasTeletextSignal", "()Z", PIJ_IMPL(hasTeletextSignal)),                       // 16
    ROW("hasTeletextClockSignal", "()Z", PIJ_IMPL(hasTeletextClockSignal)),             // 17
    ROW("isTeletextDisplayed", "()Z", PIJ_IMPL(isTeletextDisplayed)),                   // 18
    ROW("isTeletextSubtitleChannel", "()Z", PIJ_IMPL(isTeletextSubtitleChannel)),       // 19
    ROW("native_openTeletext", "(I)Z", PIJ_IMPL(native_openTeletext)),                  // 20
    ROW("native_sendTeletextCommand", "(I)Z", PIJ_IMPL(native_sendTeletextCommand)),    // 21
    ROW("setTeletextLanguageGroup", "(I)Z", PIJ_IMPL(setTeletextLanguageGroup)),        // 22
    ROW("native_openPAT", "(I)Z", PIJ_IMPL(native_openPAT)),                            // 23
    ROW("setHPosition", "(I)Z", PIJ_IMPL(setHPosition)),                                // 24
    ROW("setPhase", "(I)Z", PIJ_IMPL(setPhase)),                                        // 25
    ROW("setSize", "(I)Z", PIJ_IMPL(setSize)),                                          // 26
    ROW("setVPosition", "(I)Z", PIJ_IMPL(setVPosition)),                                // 27
    ROW("startCc", "()Z", PIJ_IMPL(startCc)),                                           // 28
    ROW("disableAft", "()Z", PIJ_IMPL(disableAft)),                                     // 29
    ROW("enableAft", "()Z", PIJ_IMPL(enableAft)),                                       // 30
    ROW("initAtvVif", "()V", PIJ_IMPL(initAtvVif)),                                     // 31
    ROW("isAftEnabled", "()Z", PIJ_IMPL(isAftEnabled)),                                 // 32
    ROW("saveAtvProgram", "(I)Z", PIJ_IMPL(saveAtvProgram)),                            // 33
    ROW("getAudioInfo", "()" VO "dtv/vo/DtvAudioInfo;", PIJ_IMPL(getAudioInfo)),        // 34
    ROW("getAudioInfo_ex", "()" VO "dtv/vo/DtvAudioInfo;", PIJ_IMPL(getAudioInfo_ex)),  // 35
    ROW("native_getRfInfo", "(II)" VO "dtv/vo/RfInfo;", PIJ_IMPL(getRFInfo)),           // 36
    ROW("playCurrentProgram", "()Z", PIJ_IMPL(playCurrentProgram)),                     // 37
    ROW("setManualTuneByFreq", "(I)Z", PIJ_IMPL(setManualTuneByFreq)),                  // 38
    ROW("setManualTuneByRf", "(S)Z", PIJ_IMPL(setManualTuneByRf)),                      // 39
    ROW("changeManualScanRF", "(I)Z", PIJ_IMPL(changeManualScanRF)),                    // 40
    ROW("switchAudioTrack", "(I)V", PIJ_IMPL(switchAudioTrack)),                        // 41
    ROW("getCurrentMuxInfo", "()" VO "dtv/dvb/vo/DvbMuxInfo;",
        PIJ_IMPL(getCurrentMuxInfo)),                                                   // 42
    ROW("getDtvRouteCount", "()I", PIJ_IMPL(getDtvRouteCount)),                         // 43
    ROW("getMuxInfoByProgramNumber", "(IS)" VO "dtv/dvb/vo/DvbMuxInfo;",
        PIJ_IMPL(getMuxInfoByProgramNumber)),                                           // 44
    ROW("setDtvRoute", "(S)V", PIJ_IMPL(setDtvRoute)),                                  // 45
    ROW("setFavoriteRegion", "(I)V", PIJ_IMPL(setFavoriteRegion)),                      // 46
    ROW("switchDtvRoute", "(S)Z", PIJ_IMPL(switchDtvRoute)),                            // 47
    ROW("unlockChannel", "()Z", PIJ_IMPL(unlockChannel)),                               // 48
    ROW("setMirror", "(Z)Z", PIJ_IMPL(setMirror)),                                      // 49
    ROW("native_setParental", "(I)V", PIJ_IMPL(native_setParental)),                    // 50
    ROW("getLanguageCode", "()Ljava/lang/String;", PIJ_IMPL(getLanguageCode)),          // 51
    ROW("native_setCountry", "(I)Z", PIJ_IMPL(native_setCountry)),                      // 52
    ROW("getCountryCode", "()Ljava/lang/String;", PIJ_IMPL(getCountryCode)),            // 53
    ROW("enableAutoClock", "()V", PIJ_IMPL(enableAutoClock)),                           // 54
    ROW("disableAutoClock", "()V", PIJ_IMPL(disableAutoClock)),                         // 55
    ROW("setAudioMode", "(I)Z", PIJ_IMPL(setAudioMode)),                                // 56
    ROW("native_setTimeZone", "(I)V", PIJ_IMPL(native_setTimeZone)),                    // 57
    ROW("enableAutoScartOut", "()Z", PIJ_IMPL(enableAutoScartOut)),                     // 58
    ROW("disableAutoScartOut", "()Z", PIJ_IMPL(disableAutoScartOut)),                   // 59
    ROW("sendMheg5Command", "(S)Z", PIJ_IMPL(sendMheg5Command)),                        // 60
    ROW("sendMheg5IcsCommand", "(IS)Z", PIJ_IMPL(sendMheg5IcsCommand)),                 // 61
    ROW("isMheg5Running", "()Z", PIJ_IMPL(isMheg5Running)),                             // 62
    ROW("getMheg5PfgContent", "()Ljava/lang/String;", PIJ_IMPL(getMheg5PfgContent)),    // 63
    ROW("native_setChannelChangeFreezeMode", "(Z)V",
        PIJ_IMPL(native_setChannelChangeFreezeMode)),                                   // 64
    // Rows 65 and 70 both bind startAutoStandardDetection; the runtime accepts the repeat.
    ROW("startAutoStandardDetection", "()V", PIJ_IMPL(startAutoStandardDetection)),     // 65
    ROW("native_forceVideoStandard", "(I)V", PIJ_IMPL(native_forceVideoStandard)),      // 66
    ROW("native_detectInputSource", "(I)Z", PIJ_IMPL(native_detectInputSource)),        // 67
    ROW("setHdmiGpio", "([I)Z", PIJ_IMPL(setHdmiGpio)),                                 // 68
    ROW("initOfflineDetection", "()V", PIJ_IMPL(initOfflineDetection)),                 // 69
    ROW("startAutoStandardDetection", "()V", PIJ_IMPL(startAutoStandardDetection)),     // 70
    ROW("setDebugMode", "(Z)V", PIJ_IMPL(setDebugMode)),                                // 71
    ROW("getCurrentSignalInformation", "()" VO "common/vo/DtvProgramSignalInfo;",
        PIJ_IMPL(getCurrentSignalInformation)),                                         // 72
    ROW("native_getNitFrequencyByDtvRegion", "(I)[I",
        PIJ_IMPL(native_getNitFrequencyByDtvRegion)),                                   // 73
    ROW("native_getChinaDvbcRegion", "()I", PIJ_IMPL(native_getChinaDvbcRegion)),       // 74
    ROW("native_setChinaDvbcRegion", "(I)V", PIJ_IMPL(native_setChinaDvbcRegion)),      // 75
    ROW("autostartApplication", "()Z", PIJ_IMPL(autostartApplication)),                 // 76
    ROW("startApplication", "(JJ)Z", PIJ_IMPL(startApplication)),                       // 77
    ROW("stopApplication", "()Z", PIJ_IMPL(stopApplication)),                           // 78
    ROW("enableGinga", "()Z", PIJ_IMPL(enableGinga)),                                   // 79
    ROW("disableGigna", "()Z", PIJ_IMPL(disableGigna)),                                 // 80
    ROW("isGingaEnabled", "()Z", PIJ_IMPL(isGingaEnabled)),                             // 81
    ROW("isGingaRunning", "()Z", PIJ_IMPL(isGingaRunning)),                             // 82
    ROW("processKey", "(IZ)Z", PIJ_IMPL(processKey)),                                   // 83
    ROW("setVChipGuideline", "(SSSS)Z", PIJ_IMPL(setVChipGuideline)),                   // 84
    ROW("getCurrentVChipBlockStatus", "()Z", PIJ_IMPL(getCurrentVChipBlockStatus)),     // 85
    ROW("enterPassToUnlockUnratedByUser", "(Z)Z",
        PIJ_IMPL(enterPassToUnlockUnratedByUser)),                                      // 86
    ROW("enterPassToUnlockByUser", "(Z)Z", PIJ_IMPL(enterPassToUnlockByUser)),          // 87
    ROW("getCurrentRatingInformation", "()Ljava/lang/String;",
        PIJ_IMPL(getCurrentRatingInformation)),                                         // 88
    ROW("native_setAudioMute", "(II)Z", PIJ_IMPL(native_setAudioMute)),                 // 89
    ROW("native_atsc_setAntennaType", "(I)Z", PIJ_IMPL(native_atsc_setAntennaType)),    // 90
    ROW("native_getDTVDemodVersion", "(I)" VO "dtv/vo/DtvDemodVersion;",
        PIJ_IMPL(getDTVDemodVersion)),                                                  // 91
    ROW("setCcMode", "(I)V", PIJ_IMPL(setCcMode)),                                      // 92
    ROW("getCcMode", "()I", PIJ_IMPL(getCcMode)),                                       // 93
    ROW("getAirChannelType", "()I", PIJ_IMPL(getAirChannelType)),                       // 94
    ROW("getAntennaType", "()I", PIJ_IMPL(getAntennaType)),                             // 95
    ROW("getDemodDVBTInfo", "()" VO "dtv/dvb/dvbt/DtvDemodDvbtInfo;",
        PIJ_IMPL(getDemodDVBTInfo)),                                                    // 96
    ROW("getDemodDVBCInfo", "()" VO "dtv/dvb/dvbc/DtvDemodDvbcInfo;",
        PIJ_IMPL(getDemodDVBCInfo)),                                                    // 97
    ROW("_getCurrentEventStatus", "(I)I", PIJ_IMPL(getCurrentEventStatus)),             // 98
    ROW("_setCurrentEventStatus", "(II)V", PIJ_IMPL(setCurrentEventStatus)),            // 99
    ROW("setAutoSync", "(Z)Z", PIJ_IMPL(setAutoSync)),                                  // 100
    ROW("getLogoData", "()[I", PIJ_IMPL(getLogoData)),                                  // 101
    ROW("getChannelLogoARGB", "()[I", PIJ_IMPL(getChannelLogoARGB)),                    // 102
    ROW("getTSUpdateInfo", "(I)" VO "dtv/atsc/vo/AtscScanChannelNotify;",
        PIJ_IMPL(getTSUpdateInfo)),                                                     // 103
    ROW("setEasProgressDone", "()V", PIJ_IMPL(setEasProgressDone)),                     // 104
    ROW("setEasAudioDesired", "(Z)V", PIJ_IMPL(setEasAudioDesired)),                    // 105
    ROW("getEasProgressSatus", "()Z", PIJ_IMPL(getEasProgressSatus)),                   // 106
    ROW("getEASInProgress", "()" VO "dtv/vo/MwAtscEasInfo;", PIJ_IMPL(getEASInProgress)),  // 107
    ROW("createPreviewCCWin", "()Z", PIJ_IMPL(createPreviewCCWin)),                     // 108
    ROW("exitPreviewCCWin", "()Z", PIJ_IMPL(exitPreviewCCWin)),                         // 109
    ROW("drawPreviewCCWin", "(" VO "common/vo/CaptionOptionSetting;)Z",
        PIJ_IMPL(drawPreviewCCWin)),                                                    // 110
    ROW("native_getRRTInformation", "(Landroid/os/Parcel;)V",
        PIJ_IMPL(native_getRRTInformation)),                                            // 111
    // The handler is written with two ints more; "()Z" stays, they are never read.
    ROW("resetRrtInformation", "()Z", PIJ_COMMON(resetRrtInformation)),                 // 112
    ROW("sendMheg5Key", "(I)Z", PIJ_IMPL(sendMheg5Key)),                                // 113
    ROW("native_getVChipRatingInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z",
        PIJ_IMPL(native_getVChipRatingInfo)),                                           // 114
    ROW("getCurrentSatelliteCount", "()I", PIJ_IMPL(getCurrentSatelliteCount)),         // 115
    ROW("getSatelliteInfo", "(I)" VO "dtv/dvb/dvbs/vo/SatelliteInfo;",
        PIJ_IMPL(getSatelliteInfo)),                                                    // 116
    ROW("getCurrentSatelliteNumber", "()I", PIJ_IMPL(getCurrentSatelliteNumber)),       // 117
    ROW("setCurrentSatelliteNumber", "(I)Z", PIJ_IMPL(setCurrentSatelliteNumber)),      // 118
    ROW("getTransponderCount", "(I)I", PIJ_IMPL(getTransponderCount)),                  // 119
    ROW("getCurrentTransponderNumber", "()I", PIJ_IMPL(getCurrentTransponderNumber)),   // 120
    ROW("setCurrentTransponderNumber", "(I)Z", PIJ_IMPL(setCurrentTransponderNumber)),  // 121
    ROW("getTransponderInfo", "(II)" VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;",
        PIJ_IMPL(getTransponderInfo)),                                                  // 122
    ROW("updateSatelliteInfo", "(I" VO "dtv/dvb/dvbs/vo/SatelliteInfo;)Z",
        PIJ_IMPL(updateSatelliteInfo)),                                                 // 123
    ROW("updateTransponderInfo", "(II" VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z",
        PIJ_IMPL(updateTransponderInfo)),                                               // 124
    ROW("addSatelliteInfo", "(" VO "dtv/dvb/dvbs/vo/SatelliteInfo;)Z",
        PIJ_IMPL(addSatelliteInfo)),                                                    // 125
    ROW("addTransponderInfo", "(I" VO "dtv/dvb/dvbs/vo/DvbsTransponderInfo;)Z",
        PIJ_IMPL(addTransponderInfo)),                                                  // 126
    ROW("deleteSatelliteInfo", "(I)Z", PIJ_IMPL(deleteSatelliteInfo)),                  // 127
    ROW("deleteTransponderInfo", "(II)Z", PIJ_IMPL(deleteTransponderInfo)),             // 128
    ROW("verifySlotFrequency", "()Z", PIJ_IMPL(verifySlotFrequency)),                   // 129
    ROW("setDishLNBPowerMode", "(I)Z", PIJ_IMPL(setDishLNBPowerMode)),                  // 130
    ROW("setDish22KMode", "(I)Z", PIJ_IMPL(setDish22KMode)),                            // 131
    ROW("setDishToneburstMode", "(I)Z", PIJ_IMPL(setDishToneburstMode)),                // 132
    ROW("setDiSEqCSwitchPort", "(II)Z", PIJ_IMPL(setDiSEqCSwitchPort)),                 // 133
    ROW("sendDiSEqCMotorCommand", "(I)Z", PIJ_IMPL(sendDiSEqCMotorCommand)),            // 134
    ROW("setUserLocationCode", "(I)V", PIJ_IMPL(setUserLocationCode)),                  // 135
    ROW("getUserLocationCode", "()I", PIJ_IMPL(getUserLocationCode)),                   // 136
    ROW("getEWSInfo", "(Landroid/os/Parcel;Landroid/os/Parcel;)Z", PIJ_IMPL(getEWSInfo)),  // 137
    ROW("getEWBSInfo", "(I)" VO "dtv/dvb/isdb/vo/EwbsInfo;", PIJ_IMPL(getEWBSInfo)),    // 138
    ROW("setEWBSOpInfo", "(II)I", PIJ_IMPL(setEWBSOpInfo)),                             // 139
    ROW("getEWBSOpInfo", "(I)" VO "dtv/dvb/isdb/vo/EwbsOpInfo;", PIJ_IMPL(getEWBSOpInfo)),  // 140
    ROW("setProgramSortByType", "(I)Z", PIJ_IMPL(setProgramSortByType)),                // 141
    ROW("getUserLocationCount", "()I", PIJ_IMPL(getUserLocationCount)),                 // 142
    ROW("getUserLocationInfo", "(I)" VO "dtv/dvb/dvbs/vo/LocationInfo;",
        PIJ_IMPL(getUserLocationInfo)),                                                 // 143
    ROW("changeSetting", "(I)V", PIJ_IMPL(changeSetting)),                              // 144
    ROW("getHdmiEdidVersionBySource", "(I)I", PIJ_COMMON(getHdmiEdidVersionBySource)),  // 145
    ROW("setHdmiEdidVersionBySource", "(II)Z",
        PIJ_COMMON(setHdmiEdidVersionBySource)),                                        // 146
    ROW("getAllBISSProgramInfo", "(Landroid/os/Parcel;)V",
        PIJ_COMMON(getAllBISSProgramInfo)),                                             // 147
    ROW("setProgramBISSKeyByNumber", "(IILjava/lang/String;I)Z",
        PIJ_COMMON(setProgramBISSKeyByNumber)),                                         // 148
    ROW("clearProgramBISSKeyByNumber", "(II)V",
        PIJ_COMMON(clearProgramBISSKeyByNumber)),                                       // 149
};

#undef VO
#undef ROW

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

    jclass player = env->FindClass(kPlayerClass);
    if (player == nullptr) {
        ALOGE("Native registration unable to find class '%s'", kPlayerClass);
        ALOGE("ERROR: registerNatives failed");
        return -1;
    }
    if (env->RegisterNatives(player, gMethods, kNativeMethodCount) < 0) {
        ALOGE("RegisterNatives failed for '%s'", kPlayerClass);
        ALOGE("ERROR: registerNatives failed");
        return -1;
    }

    jclass surface = env->FindClass("android/view/Surface");
    if (surface == nullptr) {
        ALOGE("[Error] android/view/Surface clazz == NULL");
        return -1;
    }
    // Kept for the life of the process; never stored or released.
    jclass surfaceGlobal = static_cast<jclass>(env->NewGlobalRef(surface));
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
