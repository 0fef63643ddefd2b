// Placeholder handlers, registered so the native table is whole while the real ones are
// written. Each answers its neutral value without touching the player. Delete a line when
// its handler lands; delete the file when it is empty.
#include "core/handlers.h"

PIJ_EXPORT jboolean PIJ_IMPL(startPcModeAtuoTune)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(stopCc)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(native_getVideoStandard)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(doesCcExist)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isHdmiMode)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isSignalStable)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(hasTeletextSignal)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(hasTeletextClockSignal)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isTeletextDisplayed)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isTeletextSubtitleChannel)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_openTeletext)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_sendTeletextCommand)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setTeletextLanguageGroup)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_openPAT)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setHPosition)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setPhase)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setSize)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setVPosition)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(startCc)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(disableAft)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(enableAft)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isAftEnabled)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(saveAtvProgram)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(playCurrentProgram)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setManualTuneByFreq)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setManualTuneByRf)(JNIEnv*, jobject, jshort) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(changeManualScanRF)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(switchAudioTrack)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jint PIJ_IMPL(getDtvRouteCount)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT void PIJ_IMPL(setDtvRoute)(JNIEnv*, jobject, jshort) {}
PIJ_EXPORT void PIJ_IMPL(setFavoriteRegion)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(switchDtvRoute)(JNIEnv*, jobject, jshort) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(unlockChannel)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setMirror)(JNIEnv*, jobject, jboolean) { return {}; }
PIJ_EXPORT void PIJ_IMPL(native_setParental)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(native_setCountry)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jstring PIJ_IMPL(getCountryCode)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT void PIJ_IMPL(enableAutoClock)(JNIEnv*, jobject) {}
PIJ_EXPORT void PIJ_IMPL(disableAutoClock)(JNIEnv*, jobject) {}
PIJ_EXPORT jboolean PIJ_IMPL(setAudioMode)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(native_setTimeZone)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(enableAutoScartOut)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(disableAutoScartOut)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5Command)(JNIEnv*, jobject, jshort) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5IcsCommand)(JNIEnv*, jobject, jint, jshort) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isMheg5Running)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jstring PIJ_IMPL(getMheg5PfgContent)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT void PIJ_IMPL(native_setChannelChangeFreezeMode)(JNIEnv*, jobject, jboolean) {}
PIJ_EXPORT void PIJ_IMPL(startAutoStandardDetection)(JNIEnv*, jobject) {}
PIJ_EXPORT void PIJ_IMPL(native_forceVideoStandard)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(native_detectInputSource)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(initOfflineDetection)(JNIEnv*, jobject) {}
PIJ_EXPORT void PIJ_IMPL(setDebugMode)(JNIEnv*, jobject, jboolean) {}
PIJ_EXPORT jint PIJ_IMPL(native_getChinaDvbcRegion)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT void PIJ_IMPL(native_setChinaDvbcRegion)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(autostartApplication)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(startApplication)(JNIEnv*, jobject, jlong, jlong) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(stopApplication)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(enableGinga)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(disableGigna)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isGingaEnabled)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(isGingaRunning)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setVChipGuideline)(JNIEnv*, jobject, jshort, jshort, jshort, jshort) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(getCurrentVChipBlockStatus)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(enterPassToUnlockUnratedByUser)(JNIEnv*, jobject, jboolean) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(enterPassToUnlockByUser)(JNIEnv*, jobject, jboolean) { return {}; }
PIJ_EXPORT jstring PIJ_IMPL(getCurrentRatingInformation)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_setAudioMute)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(native_atsc_setAntennaType)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(setCcMode)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jint PIJ_IMPL(getCcMode)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getAirChannelType)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getAntennaType)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getCurrentEventStatus)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(setCurrentEventStatus)(JNIEnv*, jobject, jint, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(setAutoSync)(JNIEnv*, jobject, jboolean) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(createPreviewCCWin)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(exitPreviewCCWin)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getCurrentSatelliteCount)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getCurrentSatelliteNumber)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setCurrentSatelliteNumber)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getTransponderCount)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getCurrentTransponderNumber)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setCurrentTransponderNumber)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(deleteSatelliteInfo)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(deleteTransponderInfo)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(verifySlotFrequency)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setDishLNBPowerMode)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setDish22KMode)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setDishToneburstMode)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setDiSEqCSwitchPort)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(sendDiSEqCMotorCommand)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT void PIJ_IMPL(setUserLocationCode)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jint PIJ_IMPL(getUserLocationCode)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(setProgramSortByType)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jint PIJ_IMPL(getUserLocationCount)(JNIEnv*, jobject) { return {}; }
PIJ_EXPORT void PIJ_IMPL(changeSetting)(JNIEnv*, jobject, jint) {}
PIJ_EXPORT jint PIJ_COMMON(getHdmiEdidVersionBySource)(JNIEnv*, jobject, jint) { return {}; }
PIJ_EXPORT jboolean PIJ_COMMON(setHdmiEdidVersionBySource)(JNIEnv*, jobject, jint, jint) { return {}; }
PIJ_EXPORT void PIJ_COMMON(clearProgramBISSKeyByNumber)(JNIEnv*, jobject, jint, jint) {}
PIJ_EXPORT jboolean PIJ_IMPL(processKey)(JNIEnv*, jobject, jint, jboolean) { return {}; }
PIJ_EXPORT jboolean PIJ_IMPL(sendMheg5Key)(JNIEnv*, jobject, jint) { return {}; }
