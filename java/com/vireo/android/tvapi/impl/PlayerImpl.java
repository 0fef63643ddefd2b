package com.vireo.android.tvapi.impl;

import java.lang.ref.WeakReference;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;

/**
 * The managed half of the TV player API, as the workstation builds it: every native method
 * of the device's class with its exact name and signature, the members the native library
 * reads, and event delivery to registered listeners.
 *
 * <p>The native library is loaded by the class itself: from the path in the system property
 * "playerimpl.library" when it is set, otherwise by its name "playerimpl_jni".
 */
public class PlayerImpl {
    /** Receives the events the player service raises, on the service's threads. */
    public interface OnEventListener {
        void onEvent(PlayerImpl player, int what, int ext1, int ext2, Object obj);
    }

    // Event codes; the native library reads every one of them once, in native_init.
    public static final int TVPLAYER_DTV_AUTO_TUNING_SCAN_INFO = 1000;
    public static final int TVPLAYER_ATV_MANUAL_TUNING_SCAN_INFO = 1001;
    public static final int TVPLAYER_ATV_AUTO_TUNING_SCAN_INFO = 1002;
    public static final int TVPLAYER_DTV_CHANNEL_NAME_READY = 1003;
    public static final int TVPLAYER_PROGRAM_INFO_READY = 1004;
    public static final int TVPLAYER_DTV_CHANNEL_INFO_UPDATE = 1005;
    public static final int TVPLAYER_TS_CHANGE = 1006;
    public static final int TVPLAYER_DTV_PSIP_TS_UPDATE = 1007;
    public static final int TVPLAYER_DTV_PRI_COMPONENT_MISSING = 1008;
    public static final int TVPLAYER_EPG_TIMER_SIMULCAST = 1009;
    public static final int TVPLAYER_EPG_UPDATE_LIST = 1010;
    public static final int TVPLAYER_EPG_UPDATE = 1011;
    public static final int TVPLAYER_HBBTV_STATUS_MODE = 1012;
    public static final int TVPLAYER_HBBTV_UI_EVENT = 1013;
    public static final int TVPLAYER_MHEG5_STATUS_MODE = 1014;
    public static final int TVPLAYER_MHEG5_RETURN_KEY = 1015;
    public static final int TVPLAYER_MHEG5_EVENT_HANDLER = 1016;
    public static final int TVPLAYER_DTV_AUTO_UPDATE_SCAN = 1017;
    public static final int TVPLAYER_POPUP_SCAN_DIALOG_LOSS_SIGNAL = 1018;
    public static final int TVPLAYER_POPUP_SCAN_DIALOG_NEW_MULTIPLEX = 1019;
    public static final int TVPLAYER_POPUP_SCAN_DIALOG_FREQ_CHANGE = 1020;
    public static final int TVPLAYER_CHANGE_TTX_STATUS = 1021;
    public static final int TVPLAYER_AUDIO_MODE_CHANGE = 1022;
    public static final int TVPLAYER_OAD_TIMEOUT = 1023;
    public static final int TVPLAYER_OAD_HANDLER = 1024;
    public static final int TVPLAYER_OAD_DOWNLOAD = 1025;
    public static final int TVPLAYER_GINGA_STATUS_MODE = 1026;
    public static final int TVPLAYER_SIGNAL_LOCK = 1027;
    public static final int TVPLAYER_SIGNAL_UNLOCK = 1028;
    public static final int TVPLAYER_SIGNAL_UNSTABLE = 1029;
    public static final int TVPLAYER_CI_LOAD_CREDENTIAL_FAIL = 1030;
    public static final int TVPLAYER_CI_UI_OP_REFRESH_QUERY = 1031;
    public static final int TVPLAYER_CI_UI_OP_SERVICE_LIST = 1032;
    public static final int TVPLAYER_CI_UI_OP_EXIT_SERVICE_LIST = 1033;
    public static final int TVPLAYER_SCREEN_SAVER_MODE = 1034;
    public static final int TVPLAYER_POPUP_DIALOG = 1035;
    public static final int TVPLAYER_PVR_PLAYBACK_TIME = 1036;
    public static final int TVPLAYER_PVR_PLAYBACK_SPEED_CHANGE = 1037;
    public static final int TVPLAYER_PVR_PLAYBACK_STOP = 1038;
    public static final int TVPLAYER_PVR_PLAYBACK_BEGIN = 1039;
    public static final int TVPLAYER_PVR_RECORD_TIME = 1040;
    public static final int TVPLAYER_PVR_RECORD_SIZE = 1041;
    public static final int TVPLAYER_PVR_RECORD_STOP = 1042;
    public static final int TVPLAYER_PVR_TIMESHIFT_OVERWRITE_BEFORE = 1043;
    public static final int TVPLAYER_PVR_TIMESHIFT_OVERWRITE_AFTER = 1044;
    public static final int TVPLAYER_PVR_OVERRUN = 1045;
    public static final int TVPLAYER_PVR_USB_REMOVED = 1046;
    public static final int TVPLAYER_PVR_CI_PLUS_PROTECTION = 1047;
    public static final int TVPLAYER_PVR_CI_PLUS_RETENTION_LIMIT_UPDATE = 1048;
    public static final int TVPLAYER_PVR_PARENTAL_CONTROL = 1049;
    public static final int TVPLAYER_PVR_ALWAYS_TIMESHIFT_PROGRAM_READY = 1050;
    public static final int TVPLAYER_PVR_ALWAYS_TIMESHIFT_PROGRAM_NOT_READY = 1051;
    public static final int TVPLAYER_RCT_PRESENCE = 1052;
    public static final int TVPLAYER_EMERGENCY_ALERT = 1053;
    public static final int TVPLAYER_4K_UHD_HDMI_DISABLE_PIP = 1054;
    public static final int TVPLAYER_4K_UHD_HDMI_DISABLE_POP = 1055;
    public static final int TVPLAYER_4K_UHD_HDMI_DISABLE_DUAL_VIEW = 1056;
    public static final int TVPLAYER_4K_UHD_HDMI_DISABLE_TRAVELING_MODE = 1057;
    public static final int TVPLAYER_INPUT_SOURCE_LOCK = 1058;
    public static final int TVPLAYER_DISPLAY_EMERGENCY_SYSTEM = 1059;
    public static final int TVPLAYER_CLOSE_EMERGENCY_SYSTEM = 1060;
    public static final int TVPLAYER_EVENT_EXCEED_CODEC_CAPABILITY = 1061;
    public static final int TVPLAYER_DTV_VIDEO_INFO_READY = 1062;

    // Read and written by the native library only.
    private long mNativeContext;
    private long mNativeSurfaceTexture;
    private int mPlayerContext;

    private final List<OnEventListener> mListeners = new CopyOnWriteArrayList<>();
    private static final List<OnEventListener> sGlobalListeners = new CopyOnWriteArrayList<>();

    static {
        String path = System.getProperty("playerimpl.library");
        if (path != null) {
            System.load(path);
        } else {
            System.loadLibrary("playerimpl_jni");
        }
        native_init();
    }

    public PlayerImpl() {
        native_setup(new WeakReference<PlayerImpl>(this));
    }

    /** Disconnects from the player service; later calls behave as without a player. */
    public void release() {
        native_finalize();
    }

    public void addEventListener(OnEventListener l) {
        mListeners.add(l);
    }

    public void removeEventListener(OnEventListener l) {
        mListeners.remove(l);
    }

    /** Listeners that see the events of every player object (a null player when the object is gone). */
    public static void addGlobalEventListener(OnEventListener l) {
        sGlobalListeners.add(l);
    }

    public static void removeGlobalEventListener(OnEventListener l) {
        sGlobalListeners.remove(l);
    }

    /** The name of the TVPLAYER_ field holding an event code, or null. */
    public static String eventName(int what) {
        for (java.lang.reflect.Field f : PlayerImpl.class.getFields()) {
            if (f.getName().startsWith("TVPLAYER_") && f.getType() == int.class) {
                try {
                    if (f.getInt(null) == what) {
                        return f.getName();
                    }
                } catch (IllegalAccessException e) {
                    return null;
                }
            }
        }
        return null;
    }

    @SuppressWarnings("unchecked")
    private static void postEventFromNative(Object weakThis, int what, int ext1, int ext2, Object obj) {
        PlayerImpl player = null;
        if (weakThis instanceof WeakReference) {
            player = ((WeakReference<PlayerImpl>) weakThis).get();
        }
        for (OnEventListener l : sGlobalListeners) {
            l.onEvent(player, what, ext1, ext2, obj);
        }
        if (player != null) {
            for (OnEventListener l : player.mListeners) {
                l.onEvent(player, what, ext1, ext2, obj);
            }
        }
    }

    // The native table, in registration order.
    private static native void native_init();
    private native void native_setup(Object a0);
    private native void native_finalize();
    public native void _setVideoSurface(android.view.Surface a0, int a1);
    public native boolean _destoryVideoSurface(android.view.Surface a0);
    public native boolean startPcModeAtuoTune();
    public native boolean closeTeletext();
    public native boolean stopCc();
    public native com.vireo.android.tvapi.common.vo.VideoArcInfo native_getAspectRatio();
    public native int getPhaseRange();
    public native com.vireo.android.tvapi.common.vo.VideoInfo getVideoInfo();
    public native int native_getVideoStandard();
    public native int native_getVideoStandardDetectionState();
    public native boolean doesCcExist();
    public native boolean isHdmiMode();
    public native boolean isSignalStable();
    public native boolean hasTeletextSignal();
    public native boolean hasTeletextClockSignal();
    public native boolean isTeletextDisplayed();
    public native boolean isTeletextSubtitleChannel();
    public native boolean native_openTeletext(int a0);
    public native boolean native_sendTeletextCommand(int a0);
    public native boolean setTeletextLanguageGroup(int a0);
    public native boolean native_openPAT(int a0);
    public native boolean setHPosition(int a0);
    public native boolean setPhase(int a0);
    public native boolean setSize(int a0);
    public native boolean setVPosition(int a0);
    public native boolean startCc();
    public native boolean disableAft();
    public native boolean enableAft();
    public native void initAtvVif();
    public native boolean isAftEnabled();
    public native boolean saveAtvProgram(int a0);
    public native com.vireo.android.tvapi.dtv.vo.DtvAudioInfo getAudioInfo();
    public native com.vireo.android.tvapi.dtv.vo.DtvAudioInfo getAudioInfo_ex();
    public native com.vireo.android.tvapi.dtv.vo.RfInfo native_getRfInfo(int a0, int a1);
    public native boolean playCurrentProgram();
    public native boolean setManualTuneByFreq(int a0);
    public native boolean setManualTuneByRf(short a0);
    public native boolean changeManualScanRF(int a0);
    public native void switchAudioTrack(int a0);
    public native com.vireo.android.tvapi.dtv.dvb.vo.DvbMuxInfo getCurrentMuxInfo();
    public native int getDtvRouteCount();
    public native com.vireo.android.tvapi.dtv.dvb.vo.DvbMuxInfo getMuxInfoByProgramNumber(int a0, short a1);
    public native void setDtvRoute(short a0);
    public native void setFavoriteRegion(int a0);
    public native boolean switchDtvRoute(short a0);
    public native boolean unlockChannel();
    public native boolean setMirror(boolean a0);
    public native void native_setParental(int a0);
    public native String getLanguageCode();
    public native boolean native_setCountry(int a0);
    public native String getCountryCode();
    public native void enableAutoClock();
    public native void disableAutoClock();
    public native boolean setAudioMode(int a0);
    public native void native_setTimeZone(int a0);
    public native boolean enableAutoScartOut();
    public native boolean disableAutoScartOut();
    public native boolean sendMheg5Command(short a0);
    public native boolean sendMheg5IcsCommand(int a0, short a1);
    public native boolean isMheg5Running();
    public native String getMheg5PfgContent();
    public native void native_setChannelChangeFreezeMode(boolean a0);
    public native void startAutoStandardDetection();
    public native void native_forceVideoStandard(int a0);
    public native boolean native_detectInputSource(int a0);
    public native boolean setHdmiGpio(int[] a0);
    public native void initOfflineDetection();
    public native void setDebugMode(boolean a0);
    public native com.vireo.android.tvapi.common.vo.DtvProgramSignalInfo getCurrentSignalInformation();
    public native int[] native_getNitFrequencyByDtvRegion(int a0);
    public native int native_getChinaDvbcRegion();
    public native void native_setChinaDvbcRegion(int a0);
    public native boolean autostartApplication();
    public native boolean startApplication(long a0, long a1);
    public native boolean stopApplication();
    public native boolean enableGinga();
    public native boolean disableGigna();
    public native boolean isGingaEnabled();
    public native boolean isGingaRunning();
    public native boolean processKey(int a0, boolean a1);
    public native boolean setVChipGuideline(short a0, short a1, short a2, short a3);
    public native boolean getCurrentVChipBlockStatus();
    public native boolean enterPassToUnlockUnratedByUser(boolean a0);
    public native boolean enterPassToUnlockByUser(boolean a0);
    public native String getCurrentRatingInformation();
    public native boolean native_setAudioMute(int a0, int a1);
    public native boolean native_atsc_setAntennaType(int a0);
    public native com.vireo.android.tvapi.dtv.vo.DtvDemodVersion native_getDTVDemodVersion(int a0);
    public native void setCcMode(int a0);
    public native int getCcMode();
    public native int getAirChannelType();
    public native int getAntennaType();
    public native com.vireo.android.tvapi.dtv.dvb.dvbt.DtvDemodDvbtInfo getDemodDVBTInfo();
    public native com.vireo.android.tvapi.dtv.dvb.dvbc.DtvDemodDvbcInfo getDemodDVBCInfo();
    public native int _getCurrentEventStatus(int a0);
    public native void _setCurrentEventStatus(int a0, int a1);
    public native boolean setAutoSync(boolean a0);
    public native int[] getLogoData();
    public native int[] getChannelLogoARGB();
    public native com.vireo.android.tvapi.dtv.atsc.vo.AtscScanChannelNotify getTSUpdateInfo(int a0);
    public native void setEasProgressDone();
    public native void setEasAudioDesired(boolean a0);
    public native boolean getEasProgressSatus();
    public native com.vireo.android.tvapi.dtv.vo.MwAtscEasInfo getEASInProgress();
    public native boolean createPreviewCCWin();
    public native boolean exitPreviewCCWin();
    public native boolean drawPreviewCCWin(com.vireo.android.tvapi.common.vo.CaptionOptionSetting a0);
    public native void native_getRRTInformation(android.os.Parcel a0);
    public native boolean resetRrtInformation();
    public native boolean sendMheg5Key(int a0);
    public native boolean native_getVChipRatingInfo(android.os.Parcel a0, android.os.Parcel a1);
    public native int getCurrentSatelliteCount();
    public native com.vireo.android.tvapi.dtv.dvb.dvbs.vo.SatelliteInfo getSatelliteInfo(int a0);
    public native int getCurrentSatelliteNumber();
    public native boolean setCurrentSatelliteNumber(int a0);
    public native int getTransponderCount(int a0);
    public native int getCurrentTransponderNumber();
    public native boolean setCurrentTransponderNumber(int a0);
    public native com.vireo.android.tvapi.dtv.dvb.dvbs.vo.DvbsTransponderInfo getTransponderInfo(int a0, int a1);
    public native boolean updateSatelliteInfo(int a0, com.vireo.android.tvapi.dtv.dvb.dvbs.vo.SatelliteInfo a1);
    public native boolean updateTransponderInfo(int a0, int a1, com.vireo.android.tvapi.dtv.dvb.dvbs.vo.DvbsTransponderInfo a2);
    public native boolean addSatelliteInfo(com.vireo.android.tvapi.dtv.dvb.dvbs.vo.SatelliteInfo a0);
    public native boolean addTransponderInfo(int a0, com.vireo.android.tvapi.dtv.dvb.dvbs.vo.DvbsTransponderInfo a1);
    public native boolean deleteSatelliteInfo(int a0);
    public native boolean deleteTransponderInfo(int a0, int a1);
    public native boolean verifySlotFrequency();
    public native boolean setDishLNBPowerMode(int a0);
    public native boolean setDish22KMode(int a0);
    public native boolean setDishToneburstMode(int a0);
    public native boolean setDiSEqCSwitchPort(int a0, int a1);
    public native boolean sendDiSEqCMotorCommand(int a0);
    public native void setUserLocationCode(int a0);
    public native int getUserLocationCode();
    public native boolean getEWSInfo(android.os.Parcel a0, android.os.Parcel a1);
    public native com.vireo.android.tvapi.dtv.dvb.isdb.vo.EwbsInfo getEWBSInfo(int a0);
    public native int setEWBSOpInfo(int a0, int a1);
    public native com.vireo.android.tvapi.dtv.dvb.isdb.vo.EwbsOpInfo getEWBSOpInfo(int a0);
    public native boolean setProgramSortByType(int a0);
    public native int getUserLocationCount();
    public native com.vireo.android.tvapi.dtv.dvb.dvbs.vo.LocationInfo getUserLocationInfo(int a0);
    public native void changeSetting(int a0);
    public native int getHdmiEdidVersionBySource(int a0);
    public native boolean setHdmiEdidVersionBySource(int a0, int a1);
    public native void getAllBISSProgramInfo(android.os.Parcel a0);
    public native boolean setProgramBISSKeyByNumber(int a0, int a1, String a2, int a3);
    public native void clearProgramBISSKeyByNumber(int a0, int a1);
}
