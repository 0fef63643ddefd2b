// The thin natives: each forwards one command or query to the player and converts its
// answer. One row per handler, grouped by family (a family shares the
// failure line's exception class, and its source lines run together).
//
// Conversions, as the rows spell them out: bit0() keeps bit 0 of a proxy boolean;
// asBool() passes a managed boolean (or int) as true exactly when it is non-zero; int16
// and int64 arguments pass as received; "& 0xFF" and the uint16_t/int16_t casts are the
// narrowing queries.
#include "commands/thin_rows.h"

using android::String8;
using pij::asBool;
using pij::bit0;
using pij::byteFrom;
using pij::textFrom;
using pij::textOf;

// clang-format off

// ---- Picture, teletext, closed captions, ATV (TvIpcException) ----
ROW(jboolean, startPcModeAtuoTune, NOARGS, TRACE("startPcModeAtuoTune"),
    bit0(p.startPcModeAtuoTune()), false, 1331, TvIpc)
ROW(jboolean, closeTeletext, NOARGS, TRACE("closeTeletext"),
    bit0(p.closeTeletext()), false, 1349, TvIpc)
ROW(jboolean, stopCc, NOARGS, TRACE("stopCc"),
    bit0(p.stopCc()), false, 1367, TvIpc)
ROW(jint, getPhaseRange, NOARGS, TRACE("getPhaseRange"),
    p.getPhaseRange(), -1, 1422, TvIpc)
ROW(jint, native_getVideoStandard, NOARGS, TRACE("getVideoStandard"),
    p.getVideoStandard(), -1, 1480, TvIpc)
ROW(jint, native_getVideoStandardDetectionState, NOARGS, TRACE("getVideoStandardDetectionState"),
    p.getVideoStandardDetectionState() & 0xFF, 255, 1498, TvIpc)
ROW(jboolean, doesCcExist, NOARGS, TRACE("doesCcExist"),
    bit0(p.doesCcExist()), false, 1516, TvIpc)
ROW(jboolean, isHdmiMode, NOARGS, TRACE("isHdmiMode"),
    bit0(p.isHdmiMode()), false, 1534, TvIpc)
// No entry line: the result is logged after the call instead.
ROW_THEN_LOG(jboolean, isSignalStable, NOARGS, NO_TRACE,
    bit0(p.isSignalStable()), "isSignalStable, ret = %d", false, 1551, TvIpc)
ROW(jboolean, hasTeletextSignal, NOARGS, TRACE("hasTeletextSignal"),
    bit0(p.hasTeletextSignal()), false, 1570, TvIpc)
ROW(jboolean, hasTeletextClockSignal, NOARGS, TRACE("hasTeletextClockSignal"),
    bit0(p.hasTeletextClockSignal()), false, 1588, TvIpc)
ROW(jboolean, isTeletextDisplayed, NOARGS, TRACE("isTeletextDisplayed"),
    bit0(p.isTeletextDisplayed()), false, 1606, TvIpc)
ROW(jboolean, isTeletextSubtitleChannel, NOARGS, TRACE("isTeletextSubtitleChannel"),
    bit0(p.isTeletextSubtitleChannel()), false, 1624, TvIpc)
ROW(jboolean, native_openTeletext, ARGS(jint a), TRACE("openTeletext"),
    bit0(p.openTeletext(a)), false, 1642, TvIpc)
ROW(jboolean, native_sendTeletextCommand, ARGS(jint a), TRACE("sendTeletextCommand"),
    bit0(p.sendTeletextCommand(a)), false, 1660, TvIpc)
ROW(jboolean, setTeletextLanguageGroup, ARGS(jint a), TRACE_INFO("setTeletextLanguageGroup"),
    bit0(p.setTeletextLanguageGroup(a)), false, 1678, TvIpc)
ROW(jboolean, native_openPAT, ARGS(jint a), TRACE("openPAT"),
    bit0(p.openPAT(a)), false, 1696, TvIpc)
ROW(jboolean, setHPosition, ARGS(jint a), TRACE("setHPosition"),
    bit0(p.setHPosition(a)), false, 1714, TvIpc)
ROW(jboolean, setPhase, ARGS(jint a), TRACE("setPhase"),
    bit0(p.setPhase(a)), false, 1732, TvIpc)
ROW(jboolean, setSize, ARGS(jint a), TRACE("setSize"),
    bit0(p.setSize(a)), false, 1750, TvIpc)
ROW(jboolean, setVPosition, ARGS(jint a), TRACE("setVPosition"),
    bit0(p.setVPosition(a)), false, 1768, TvIpc)
ROW(jboolean, startCc, NOARGS, TRACE("startCc"),
    bit0(p.startCc()), false, 1786, TvIpc)
ROW(jboolean, disableAft, NOARGS, TRACE("disableAft"),
    bit0(p.disableAft()), false, 1804, TvIpc)
ROW(jboolean, enableAft, NOARGS, TRACE("enableAft"),
    bit0(p.enableAft()), false, 1822, TvIpc)
VOID_ROW(initAtvVif, NOARGS, TRACE("initAtvVif"),
    p.initAtvVif(), 1839, TvIpc)
ROW(jboolean, isAftEnabled, NOARGS, TRACE("isAftEnabled"),
    bit0(p.isAftEnabled()), false, 1857, TvIpc)
ROW(jboolean, saveAtvProgram, ARGS(jint a), TRACE("saveAtvProgram"),
    bit0(p.saveAtvProgram(a)), false, 1875, TvIpc)

// ---- Parental, country, clock, audio mode, scart, MHEG-5 (TvIpcException) ----
VOID_ROW(native_setParental, ARGS(jint a), TRACE("native_setParental"),
    p.setParental(a), 1893, TvIpc)
ROW(jstring, getLanguageCode, NOARGS, TRACE("getLanguageCode"),
    textFrom(env, "getLanguageCode", [&](String8& t) { p.getLanguageCode(t); }), nullptr, 1910, TvIpc)
ROW(jboolean, native_setCountry, ARGS(jint a), TRACE("setCountry"),
    bit0(p.setCountry(a)), false, 1929, TvIpc)
ROW(jstring, getCountryCode, NOARGS, TRACE("getCountryCode"),
    textFrom(env, "getCountryCode", [&](String8& t) { p.getCountryCode(t); }), nullptr, 1947, TvIpc)
VOID_ROW(enableAutoClock, NOARGS, TRACE("enableAutoClock"),
    p.enableAutoClock(), 1966, TvIpc)
VOID_ROW(disableAutoClock, NOARGS, TRACE("disableAutoClock"),
    p.disableAutoClock(), 1983, TvIpc)
ROW(jboolean, setAudioMode, ARGS(jint a), TRACE("setAudioMode, mode = %d", a),
    bit0(p.setAudioMode(a)), false, 2000, TvIpc)
VOID_ROW(native_setTimeZone, ARGS(jint a), TRACE("setTimeZone"),
    p.setTimeZone(a), 2016, TvIpc)
ROW(jboolean, enableAutoScartOut, NOARGS, TRACE("enableAutoScartOut"),
    bit0(p.enableAutoScartOut()), false, 2032, TvIpc)
ROW(jboolean, disableAutoScartOut, NOARGS, TRACE("disableAutoScartOut"),
    bit0(p.disableAutoScartOut()), false, 2050, TvIpc)
ROW(jboolean, sendMheg5Command, ARGS(jshort a), TRACE("sendMheg5Command"),
    bit0(p.sendMheg5Command(a)), false, 2068, TvIpc)
ROW(jboolean, sendMheg5IcsCommand, ARGS(jint a, jshort b), TRACE("sendMheg5IcsCommand"),
    bit0(p.sendMheg5IcsCommand(a, b)), false, 2158, TvIpc)
ROW(jboolean, isMheg5Running, NOARGS, TRACE("isMheg5Running"),
    bit0(p.isMheg5Running()), false, 2174, IllegalState)
ROW(jstring, getMheg5PfgContent, NOARGS, TRACE("getMheg5PfgContent"),
    textFrom(env, "getMheg5PfgContent", [&](String8& t) { p.getMheg5PfgContent(t); }), nullptr, 2190, TvIpc)
VOID_ROW(native_setChannelChangeFreezeMode, ARGS(jboolean a), TRACE("setChannelChangeFreezeMode"),
    p.setChannelChangeFreezeMode(asBool(a)), 2209, TvIpc)

// ---- DTV tuning and routes (TvIpcException) ----
ROW(jboolean, playCurrentProgram, NOARGS, TRACE("playCurrentProgram"),
    bit0(p.playCurrentProgram()), false, 2420, TvIpc)
ROW(jboolean, setManualTuneByFreq, ARGS(jint a), TRACE("setManualTuneByFreq"),
    bit0(p.setManualTuneByFreq(a)), false, 2438, TvIpc)
ROW(jboolean, setManualTuneByRf, ARGS(jshort a), TRACE("setManualTuneByRf"),
    bit0(p.setManualTuneByRf(a)), false, 2456, TvIpc)
ROW(jboolean, changeManualScanRF, ARGS(jint a), TRACE("changeManualScanRF"),
    bit0(p.changeManualScanRF(a)), false, 2474, TvIpc)
VOID_ROW(switchAudioTrack, ARGS(jint a), TRACE("switchAudioTrack"),
    p.switchAudioTrack(a), 2491, TvIpc)
ROW(jint, getDtvRouteCount, NOARGS, TRACE("getDtvRouteCount"),
    p.getDtvRouteCount(), -1, 2567, TvIpc)
VOID_ROW(setDtvRoute, ARGS(jshort a), TRACE("setDtvRoute"),
    p.setDtvRoute(a), 2642, TvIpc)
VOID_ROW(setFavoriteRegion, ARGS(jint a), TRACE("setFavoriteRegion"),
    p.setFavoriteRegion(a), 2659, TvIpc)
ROW(jboolean, switchDtvRoute, ARGS(jshort a), TRACE("switchDtvRoute"),
    bit0(p.switchDtvRoute(a)), false, 2677, TvIpc)
ROW(jboolean, unlockChannel, NOARGS, TRACE("unlockChannel"),
    bit0(p.unlockChannel()), false, 2695, TvIpc)
ROW(jboolean, setMirror, ARGS(jboolean a), TRACE("setMirror"),
    bit0(p.setMirror(asBool(a))), false, 2714, TvIpc)

// ---- Standard detection, input source, debug (mostly IllegalStateException) ----
// Bound at two rows of the native table; no entry line.
VOID_ROW(startAutoStandardDetection, NOARGS, NO_TRACE,
    p.startAutoStandardDetection(), 2725, IllegalState)
VOID_ROW(native_forceVideoStandard, ARGS(jint a), NO_TRACE,
    p.forceVideoStandard(a), 2735, IllegalState)
// The operation's second argument is always 0.
ROW(jboolean, native_detectInputSource, ARGS(jint a), TRACE("native_detectInputSource"),
    bit0(p.detectInputSource(a, 0)), false, 2824, TvIpc)
VOID_ROW(initOfflineDetection, NOARGS, TRACE("initOfflineDetection"),
    p.initOfflineDetection(), 2875, IllegalState)
VOID_ROW(setDebugMode, ARGS(jboolean a), TRACE("setDebugMode"),
    p.setDebugMode(asBool(a)), 2891, IllegalState)
ROW(jint, native_getChinaDvbcRegion, NOARGS, TRACE("native_getChinaDvbcRegion"),
    p.getChinaDvbcRegion(), -1, 2972, IllegalState)
VOID_ROW(native_setChinaDvbcRegion, ARGS(jint a), TRACE("native_setChinaDvbcRegion"),
    p.setChinaDvbcRegion(a), 2988, IllegalState)
ROW(jint, getAntennaType, NOARGS, TRACE("getAntennaType"),
    static_cast<uint16_t>(p.getAntennaType()), -1, 3004, IllegalState)

// ---- Interactive applications (IllegalStateException) ----
ROW(jboolean, autostartApplication, NOARGS, TRACE("autostartApplication"),
    bit0(p.autostartApplication()), false, 3019, IllegalState)
ROW(jboolean, startApplication, ARGS(jlong a, jlong b), TRACE("startApplication"),
    bit0(p.startApplication(a, b)), false, 3035, IllegalState)
ROW(jboolean, stopApplication, NOARGS, TRACE("stopApplication"),
    bit0(p.stopApplication()), false, 3051, IllegalState)
ROW(jboolean, enableGinga, NOARGS, TRACE("enableGinga"),
    bit0(p.enableGinga()), false, 3067, IllegalState)
ROW(jboolean, disableGigna, NOARGS, TRACE("disableGigna"),
    bit0(p.disableGigna()), false, 3083, IllegalState)
ROW(jboolean, isGingaEnabled, NOARGS, TRACE("isGingaEnabled"),
    bit0(p.isGingaEnabled()), false, 3099, IllegalState)
ROW(jboolean, isGingaRunning, NOARGS, TRACE("isGingaRunning"),
    bit0(p.isGingaRunning()), false, 3115, IllegalState)

// ---- Ratings, mute, antenna, captions, event status (IllegalStateException) ----
ROW(jboolean, setVChipGuideline, ARGS(jshort a, jshort b, jshort c, jshort d),
    TRACE("SetVChipGuideline"),
    bit0(p.setVChipGuideline(a, b, c, d)), false, 3154, IllegalState)
// Returns the byte the operation stores, whole; the operation's own result is not used.
ROW(jboolean, getCurrentVChipBlockStatus, NOARGS, TRACE("getCurrentVChipBlockStatus"),
    byteFrom([&](uint8_t& b) { p.getCurrentVChipBlockStatus(b); }), false, 3171, IllegalState)
ROW(jboolean, enterPassToUnlockUnratedByUser, ARGS(jboolean a),
    TRACE("enterPassToUnlockUnratedByUser"),
    bit0(p.enterPassToUnlockUnratedByUser(asBool(a))), false, 3189, IllegalState)
ROW(jboolean, enterPassToUnlockByUser, ARGS(jboolean a), TRACE("enterPassToUnlockByUser"),
    bit0(p.enterPassToUnlockByUser(asBool(a))), false, 3205, IllegalState)
ROW(jstring, getCurrentRatingInformation, NOARGS, TRACE("getCurrentRatingInformation"),
    textOf(env, "getCurrentRatingInformation", p.getCurrentRatingInformation()), nullptr, 3221, IllegalState)
ROW(jboolean, native_setAudioMute, ARGS(jint a, jint b), TRACE("native_setAudioMute"),
    bit0(p.setAudioMute(a, b)), false, 3237, IllegalState)
// Always true; the operation answers nothing.
ROW_OR_END(jboolean, native_atsc_setAntennaType, ARGS(jint a), TRACE("native_atsc_setAntennaType"),
    (p.atsc_setAntennaType(a), JNI_TRUE), 3254, IllegalState)
VOID_ROW_OR_END(setCcMode, ARGS(jint a), TRACE("setCcMode"),
    p.setCcMode(a), 3333, IllegalState)
ROW_OR_END(jint, getCcMode, NOARGS, TRACE("getCcMode"),
    p.getCcMode(), 3348, IllegalState)
ROW_OR_END(jint, getAirChannelType, NOARGS, TRACE("getAirChannelType"),
    p.getAirChannelType(), 3363, IllegalState)
ROW(jint, getCurrentEventStatus, ARGS(jint a), TRACE("getCurrentEventStatus"),
    p.getCurrentEventStatus(a), 0, 3527, IllegalState)
// The second managed int is the boolean status.
VOID_ROW_OR_END(setCurrentEventStatus, ARGS(jint a, jint b), TRACE("setCurrentEventStatus"),
    p.setCurrentEventStatus(a, asBool(b)), 3544, IllegalState)
ROW(jboolean, setAutoSync, ARGS(jboolean a), TRACE("setAutoSync"),
    bit0(p.setAutoSync(asBool(a))), false, 3559, IllegalState)
ROW(jboolean, createPreviewCCWin, NOARGS, TRACE("createPreviewCCWin"),
    bit0(p.createPreviewCCWin()), false, 3816, IllegalState)
ROW(jboolean, exitPreviewCCWin, NOARGS, TRACE("exitPreviewCCWin"),
    bit0(p.exitPreviewCCWin()), false, 3833, IllegalState)

// ---- Satellites, dish, user location, sorting (IllegalStateException) ----
ROW(jint, getCurrentSatelliteCount, NOARGS, TRACE("getCurrentSatelliteCount"),
    p.getCurrentSatelliteCount(), 0, 3959, IllegalState)
ROW(jint, getCurrentSatelliteNumber, NOARGS, TRACE("getCurrentSatelliteNumber"),
    p.getCurrentSatelliteNumber(), 0, 4039, IllegalState)
ROW(jboolean, setCurrentSatelliteNumber, ARGS(jint a), TRACE("setCurrentSatelliteNumber"),
    bit0(p.setCurrentSatelliteNumber(a)), false, 4054, IllegalState)
ROW(jint, getTransponderCount, ARGS(jint a), TRACE("getTransponderCount"),
    p.getTransponderCount(a), 0, 4069, IllegalState)
ROW(jint, getCurrentTransponderNumber, NOARGS, TRACE("getCurrentTransponderNumber"),
    p.getCurrentTransponderNumber(), 0, 4084, IllegalState)
ROW(jboolean, setCurrentTransponderNumber, ARGS(jint a), TRACE("setCurrentTransponderNumber"),
    bit0(p.setCurrentTransponderNumber(a)), false, 4099, IllegalState)
ROW(jboolean, deleteSatelliteInfo, ARGS(jint a), TRACE("deleteSatelliteInfo"),
    bit0(p.deleteSatelliteInfo(a)), false, 4370, IllegalState)
ROW(jboolean, deleteTransponderInfo, ARGS(jint a, jint b), TRACE("deleteTransponderInfo"),
    bit0(p.deleteTransponderInfo(a, b)), false, 4386, IllegalState)
ROW(jboolean, verifySlotFrequency, NOARGS, TRACE("verifySlotFrequency"),
    bit0(p.verifySlotFrequency()), false, 4402, IllegalState)
ROW(jboolean, setDishLNBPowerMode, ARGS(jint a), TRACE("setDishLNBPowerMode"),
    bit0(p.setDishLNBPowerMode(a)), false, 4418, IllegalState)
ROW(jboolean, setDish22KMode, ARGS(jint a), TRACE("setDish22KMode"),
    bit0(p.setDish22KMode(a)), false, 4434, IllegalState)
ROW(jboolean, setDishToneburstMode, ARGS(jint a), TRACE("setDishToneburstMode"),
    bit0(p.setDishToneburstMode(a)), false, 4450, IllegalState)
ROW(jboolean, setDiSEqCSwitchPort, ARGS(jint a, jint b), TRACE("setDiSEqCSwitchPort"),
    bit0(p.setDiSEqCSwitchPort(a, b)), false, 4466, IllegalState)
ROW(jboolean, sendDiSEqCMotorCommand, ARGS(jint a), TRACE("sendDiSEqCMotorCommand"),
    bit0(p.sendDiSEqCMotorCommand(a)), false, 4482, IllegalState)
VOID_ROW(setUserLocationCode, ARGS(jint a), TRACE("setUserLocationCode, code = %d", a),
    p.setUserLocationCode(a), 4498, IllegalState)
// No entry line: the code is logged after the call.
ROW_THEN_LOG(jint, getUserLocationCode, NOARGS, NO_TRACE,
    p.getUserLocationCode(), "getUserLocationCode, code = %d", 0, 4512, IllegalState)
ROW(jboolean, setProgramSortByType, ARGS(jint a), TRACE("setProgramSortByType, type = %d", a),
    bit0(p.setProgramSortByType(a)), false, 4654, IllegalState)
ROW(jint, getUserLocationCount, NOARGS, TRACE("getUserLocationCount"),
    p.getUserLocationCount(), 0, 4670, IllegalState)
VOID_ROW(changeSetting, ARGS(jint a), TRACE("native_changeSetting"),
    p.changeSetting(a), 4715, TvIpc)

// ---- HDMI EDID and BISS keys (com_vireo_android_tvapi_common_ names) ----
COMMON_ROW_THEN_LOG(jint, getHdmiEdidVersionBySource, ARGS(jint a),
    TRACE("getHdmiEdidVersionBySource inputSource = %d", a),
    static_cast<int16_t>(p.getHdmiEdidVersionBySource(a)), "re = %d", 0, 4732, IllegalState)
COMMON_ROW_THEN_LOG(jboolean, setHdmiEdidVersionBySource, ARGS(jint a, jint b),
    TRACE("setHdmiEdidVersionBySource inputSource = %d, hdmiEdidVersion = %d", a, b),
    bit0(p.setHdmiEdidVersionBySource(a, b)), "re = %d", false, 4751, IllegalState)
COMMON_VOID_ROW(clearProgramBISSKeyByNumber, ARGS(jint a, jint b),
    TRACE("clearProgramBISSKeyByNumber progNumber = %d, progType = %d", a, b),
    p.clearProgramBISSKeyByNumber(a, b), 4814, IllegalState)

// clang-format on
