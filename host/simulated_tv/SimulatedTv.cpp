// The simulated TV: the workstation's default player service. Its state (input source,
// line-up, current channel, audio track, teletext, MHEG-5, Ginga, V-chip, satellites,
// user locations, EWBS) is changed by commands and read back by queries; its events reach
// the listener from the service threads, the timeline's and the commands' alike.
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "marshal/atsc_eas.h"
#include "marshal/audio.h"
#include "marshal/demod.h"
#include "marshal/isdb.h"
#include "marshal/multiplex.h"
#include "marshal/picture.h"
#include "marshal/satellite.h"
#include "playerimpl_host/host_player.h"
#include "sim_events.h"
#include "sim_internal.h"

namespace host {
namespace sim {
namespace {

std::atomic<bool> gTimelineDone{true};

// Player key codes the simulator answers (what the library's key table produces).
constexpr int32_t kKeyChannelUp = 0xF046;
constexpr int32_t kKeyChannelDown = 0xF047;
constexpr int32_t kKeyInfo = 0xF014;
constexpr int32_t kKeyTeletext = 0xF06A;
constexpr int32_t kKeyRecord = 0xF056;
constexpr int32_t kKeyDigit0 = 0x30;

// Native numbers of the notifyCB events the simulator raises itself.
constexpr int kVideoInfoReady = 0x20001025;

int32_t rfFrequencyKHz(int32_t rf) {
    // Band III (VHF) channels 5-12 are 7 MHz apart; UHF channels 21-69 are 8 MHz apart.
    if (rf >= 5 && rf <= 12) return 177500 + 7000 * (rf - 5);
    return 306000 + 8000 * rf;
}

// Copies text into a String8 field.
void setText(android::String8& out, const std::string& text) {
    out = android::String8(text.c_str());
}

class SimulatedTv : public HostPlayer {
public:
    explicit SimulatedTv(Scenario s) : mS(std::move(s)), mStop(std::make_shared<Stop>()) {
        for (size_t m = 0; m < mS.multiplexes.size(); ++m) {
            for (size_t c = 0; c < mS.multiplexes[m].channels.size(); ++c) {
                mLineup.push_back({m, c});
                if (mS.multiplexes[m].channels[c].number == mS.startChannel) {
                    mCurrent = mLineup.size() - 1;
                }
            }
        }
        mSource = mS.inputSource;
    }
    ~SimulatedTv() override { stopTimeline(); }

    // ---- life cycle: the timeline starts when a listener is installed ----
    void onListenerChanged() override {
        if (listener() == nullptr || mStarted.exchange(true)) return;
        gTimelineDone.store(false);
        android::sp<SimulatedTv> self(this);
        std::shared_ptr<Stop> stop = mStop;
        // Detached: it only sleeps and queues work for the service threads, holds the
        // simulator while it runs and ends as soon as the simulator is disconnected.
        std::thread([self, stop] {
            auto start = std::chrono::steady_clock::now();
            for (const Step& st : self->mS.timeline) {
                auto due = start + std::chrono::microseconds(
                                       static_cast<int64_t>(st.atMs * 1000.0 / self->mS.speed));
                if (!stop->sleepUntil(due)) break;
                self->runStep(st, *stop);
            }
            // Let the queued events drain before telling anyone the timeline is over.
            runOnServiceThread(0, [] {});
            gTimelineDone.store(true);
        }).detach();
    }
    void onDisconnect() override { stopTimeline(); }

    // ---- picture ----
    void getVideoInfo(VideoInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        const Channel* c = channel();
        if (c == nullptr || !mLocked) return;
        out.hResolution = static_cast<int16_t>(c->width);
        out.vResolution = static_cast<int16_t>(c->height);
        out.frameRate = c->frameRate;
        out.modeIndex = 0;
        out.enScanType = c->interlaced ? 1 : 0;
        out.arcDescriptionType = 0;
        out.arcType = c->aspect;
        out.afdAspectRatio = 8;
    }
    void getAspectRatio(VideoArcInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        const Channel* c = channel();
        out.arcType = c ? c->aspect : 0;
    }
    void getCurrentSignalInformation(DtvProgramSignalInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        const Multiplex* m = mux();
        if (m == nullptr) return;
        out.rfNumber = static_cast<uint16_t>(m->rf);
        out.modulationMode = 2;  // 64-QAM
        out.quality = mLocked ? m->quality : 0;
        out.strength = mLocked ? m->strength : 0;
        out.symbolRate = 0;
        setText(out.networkName, m->name);
    }
    int32_t getVideoStandard() override { return mSource == "ATV" ? 1 : 0; }
    int32_t getVideoStandardDetectionState() override { return 2; }
    int32_t getPhaseRange() override { return 31; }
    ProxyBool isSignalStable() override { return locked(); }
    ProxyBool isHdmiMode() override {
        std::lock_guard<std::mutex> g(mLock);
        return mSource.compare(0, 4, "HDMI") == 0;
    }
    ProxyBool detectInputSource(int32_t source, int32_t) override {
        static const char* const kSources[] = {"ATV", "DTV", "HDMI1", "HDMI2"};
        if (source < 0 || source > 3) return 0;
        std::lock_guard<std::mutex> g(mLock);
        mSource = kSources[source];
        return 1;
    }

    // ---- audio ----
    void getAudioInfo(DtvAudioInfoRec& out) override { fillAudio(out); }
    void getAudioInfo_ex(DtvAudioInfoRec& out) override { fillAudio(out); }
    void switchAudioTrack(int32_t track) override {
        {
            std::lock_guard<std::mutex> g(mLock);
            const Channel* c = channel();
            if (c == nullptr || track < 0 || track >= static_cast<int32_t>(c->audio.size())) {
                return;
            }
            mAudioTrack = track;
        }
        post([track](PlayerImplListener& l) { l.PostEvent_AudioModeChange(track, 0); });
    }
    ProxyBool setAudioMode(int32_t mode) override {
        mAudioMode = mode;
        return 1;
    }

    // ---- multiplex and RF ----
    void getCurrentMuxInfo(DvbMuxInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        fillMux(mux(), out);
    }
    void getMuxInfoByProgramNumber(int32_t program, int16_t, DvbMuxInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        for (const auto& e : mLineup) {
            const Channel& c = mS.multiplexes[e.mux].channels[e.ch];
            if (c.number == program || c.serviceId == program) {
                fillMux(&mS.multiplexes[e.mux], out);
                return;
            }
        }
    }
    void getRfInfo(int32_t, int32_t rf, RfInfoRec& out) override {
        out.rfPhyNum = static_cast<uint16_t>(rf);
        out.frequency = rfFrequencyKHz(rf);
        out.isVHF = rf >= 5 && rf <= 12;
        setText(out.rfName, "CH" + std::to_string(rf));
    }
    ProxyBool setManualTuneByRf(int16_t rf) override {
        size_t target = mLineup.size();
        {
            std::lock_guard<std::mutex> g(mLock);
            for (size_t i = 0; i < mLineup.size() && target == mLineup.size(); ++i) {
                if (mS.multiplexes[mLineup[i].mux].rf == rf) target = i;
            }
        }
        if (target == mLineup.size()) {
            post([](PlayerImplListener& l) { l.PostEvent_SignalUnlock(0, 0); });
            return 0;
        }
        tuneTo(target);
        return 1;
    }
    ProxyBool playCurrentProgram() override {
        size_t cur;
        {
            std::lock_guard<std::mutex> g(mLock);
            cur = mCurrent;
        }
        if (cur >= mLineup.size()) return 0;
        tuneTo(cur);
        return 1;
    }
    int32_t getDtvRouteCount() override { return 2; }
    int32_t getAntennaType() override { return 0; }
    int32_t getAirChannelType() override { return 0; }

    // ---- demodulator ----
    void getDTVDemodVersion(int32_t, DtvDemodVersionRec& out) override {
        std::memcpy(out.name, "SIMT", 4);
        out.version[0] = 1;
        out.version[1] = 2;
    }
    ProxyBool getDemodDVBTInfo(DtvDemodDvbtInfoRec& out) override {
        bool lock = locked();
        out.u16Version = 1;
        out.u16DemodState = lock ? 1 : 0;
        out.u8Fft = 2;      // 8k
        out.u8Constel = 2;  // 64-QAM
        out.u8Gi = 1;
        return lock;
    }

    // ---- teletext, MHEG-5, Ginga, subtitles ----
    ProxyBool hasTeletextSignal() override {
        std::lock_guard<std::mutex> g(mLock);
        const Channel* c = channel();
        return c && c->teletext && mLocked;
    }
    ProxyBool hasTeletextClockSignal() override { return hasTeletextSignal(); }
    ProxyBool isTeletextDisplayed() override { return mTeletextOpen.load(); }
    ProxyBool openTeletext(int32_t mode) override {
        if (!hasTeletextSignal()) return 0;
        mTeletextOpen = true;
        post([mode](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(1, mode); });
        return 1;
    }
    ProxyBool closeTeletext() override {
        bool was = mTeletextOpen.exchange(false);
        post([](PlayerImplListener& l) { l.PostEvent_ChangeTtxStatus(0, 0); });
        return was;
    }
    ProxyBool sendTeletextCommand(int32_t) override { return mTeletextOpen.load(); }
    ProxyBool isMheg5Running() override {
        std::lock_guard<std::mutex> g(mLock);
        const Channel* c = channel();
        return c && c->mheg5 && mLocked && mSource == "DTV";
    }
    ProxyBool sendMheg5Command(int16_t) override { return isMheg5Running(); }
    ProxyBool sendMheg5IcsCommand(int32_t, int16_t) override { return isMheg5Running(); }
    ProxyBool enableGinga() override {
        mGinga = true;
        post([](PlayerImplListener& l) { l.PostEvent_GingaStatusMode(1, 0); });
        return 1;
    }
    ProxyBool disableGigna() override {
        mGinga = false;
        post([](PlayerImplListener& l) { l.PostEvent_GingaStatusMode(0, 0); });
        return 1;
    }
    ProxyBool isGingaEnabled() override { return mGinga.load(); }
    ProxyBool isGingaRunning() override { return mGinga.load() && locked(); }
    void setCcMode(int32_t mode) override { mCcMode = mode; }
    int32_t getCcMode() override { return mCcMode.load(); }
    ProxyBool startPcModeAtuoTune() override { return 1; }

    // ---- keys ----
    ProxyBool processKey(int32_t key, bool) override {
        size_t n = mLineup.size();
        size_t cur;
        {
            std::lock_guard<std::mutex> g(mLock);
            cur = mCurrent;
        }
        if ((key == kKeyChannelUp || key == kKeyChannelDown) && n > 0) {
            tuneTo(key == kKeyChannelUp ? (cur + 1) % n : (cur + n - 1) % n);
        } else if (key >= kKeyDigit0 && key <= kKeyDigit0 + 9) {
            return tuneToNumber(key - kKeyDigit0);
        } else if (key == kKeyInfo) {
            post([cur](PlayerImplListener& l) {
                l.PostEvent_ProgramInfoReady(static_cast<int>(cur), 0);
            });
        } else if (key == kKeyTeletext) {
            return mTeletextOpen.load() ? closeTeletext() : openTeletext(0);
        } else if (key == kKeyRecord) {
            post([](PlayerImplListener& l) { l.PostEvent_PvrRecordTime(0, 0); });
        } else {
            return 0;
        }
        return 1;
    }

    // ---- country, language, parental ----
    void getCountryCode(android::String8& out) override {
        std::lock_guard<std::mutex> g(mLock);
        setText(out, mS.country);
    }
    void getLanguageCode(android::String8& out) override {
        std::lock_guard<std::mutex> g(mLock);
        setText(out, mS.language);
    }
    ProxyBool setVChipGuideline(int16_t a, int16_t, int16_t, int16_t) override {
        mVChipLevel = a;
        mVChipUnlocked = false;
        return 1;
    }
    void getCurrentVChipBlockStatus(uint8_t& blocked) override {
        blocked = mVChipLevel.load() > 0 && !mVChipUnlocked.load();
    }
    ProxyBool enterPassToUnlockByUser(bool unlock) override {
        mVChipUnlocked = unlock;
        return 1;
    }
    ProxyBool enterPassToUnlockUnratedByUser(bool unlock) override {
        return enterPassToUnlockByUser(unlock);
    }
    android::String8 getCurrentRatingInformation() override {
        return android::String8(mVChipLevel.load() > 0 ? "TV-14" : "TV-G");
    }
    ProxyBool unlockChannel() override {
        mVChipUnlocked = true;
        return 1;
    }

    // ---- satellites and transponders ----
    int32_t getCurrentSatelliteCount() override {
        std::lock_guard<std::mutex> g(mLock);
        return static_cast<int32_t>(mS.satellites.size());
    }
    void getSatelliteInfo(int32_t index, SatelliteInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validSat(index)) return;
        const Satellite& s = mS.satellites[index];
        setText(out.satName, s.name);
        out.lowLOF = static_cast<uint16_t>(s.lnbLowMHz);
        out.hiLOF = static_cast<uint16_t>(s.lnbHighMHz);
        out.angle = static_cast<uint16_t>(s.longitude);
        out.numberOfTp = static_cast<uint16_t>(s.transponders.size());
        out.satelliteId = static_cast<uint8_t>(index);
    }
    int32_t getCurrentSatelliteNumber() override { return mCurSat.load(); }
    ProxyBool setCurrentSatelliteNumber(int32_t n) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validSat(n)) return 0;
        mCurSat = n;
        mCurTp = 0;
        return 1;
    }
    int32_t getTransponderCount(int32_t sat) override {
        std::lock_guard<std::mutex> g(mLock);
        return validSat(sat) ? static_cast<int32_t>(mS.satellites[sat].transponders.size()) : 0;
    }
    int32_t getCurrentTransponderNumber() override { return mCurTp.load(); }
    ProxyBool setCurrentTransponderNumber(int32_t n) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validTp(mCurSat.load(), n)) return 0;
        mCurTp = n;
        return 1;
    }
    void getTransponderInfo(int32_t sat, int32_t index, DvbsTransponderInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validTp(sat, index)) return;
        const Transponder& t = mS.satellites[sat].transponders[index];
        out.frequency = t.frequencyMHz;
        out.symbolRate = static_cast<uint16_t>(t.symbolRate);
        out.polarity = static_cast<uint8_t>(t.polarity);
        out.satelliteId = static_cast<uint8_t>(sat);
        out.tpId = static_cast<uint16_t>(index);
    }
    ProxyBool updateSatelliteInfo(int32_t index, SatelliteInfoRec& in) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validSat(index)) return 0;
        copySatellite(in, mS.satellites[index]);
        return 1;
    }
    ProxyBool addSatelliteInfo(SatelliteInfoRec& in) override {
        std::lock_guard<std::mutex> g(mLock);
        if (mS.satellites.size() >= 254) return 0;
        mS.satellites.emplace_back();
        copySatellite(in, mS.satellites.back());
        return 1;
    }
    ProxyBool deleteSatelliteInfo(int32_t index) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validSat(index)) return 0;
        mS.satellites.erase(mS.satellites.begin() + index);
        if (mCurSat.load() >= static_cast<int32_t>(mS.satellites.size())) mCurSat = 0;
        return 1;
    }
    ProxyBool updateTransponderInfo(int32_t sat, int32_t index,
                                    DvbsTransponderInfoRec& in) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validTp(sat, index)) return 0;
        mS.satellites[sat].transponders[index] = {in.frequency, in.symbolRate, in.polarity};
        return 1;
    }
    ProxyBool addTransponderInfo(int32_t sat, DvbsTransponderInfoRec& in) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validSat(sat)) return 0;
        mS.satellites[sat].transponders.push_back({in.frequency, in.symbolRate, in.polarity});
        return 1;
    }
    ProxyBool deleteTransponderInfo(int32_t sat, int32_t index) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!validTp(sat, index)) return 0;
        auto& tps = mS.satellites[sat].transponders;
        tps.erase(tps.begin() + index);
        return 1;
    }

    // ---- user locations and EWBS ----
    int32_t getUserLocationCount() override {
        std::lock_guard<std::mutex> g(mLock);
        return static_cast<int32_t>(mS.locations.size());
    }
    void getUserLocationInfo(int32_t index, LocationInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        if (index < 0 || index >= static_cast<int32_t>(mS.locations.size())) return;
        setText(out.locationName, mS.locations[index].name);
    }
    void setUserLocationCode(int32_t code) override { mLocationCode = code; }
    int32_t getUserLocationCode() override { return mLocationCode.load(); }
    int32_t getEWBSInfo(int32_t area, int32_t* titleType, std::vector<int32_t>* codes) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!mAlert || area != mS.ewbsAreaCode) return 0;
        if (titleType) *titleType = 1;
        if (codes) codes->assign({area});
        return 1;
    }
    int32_t setEWBSOpInfo(int32_t op, int32_t value) override {
        std::lock_guard<std::mutex> g(mLock);
        mEwbsOps[op] = value;
        return 0;
    }
    int32_t getEWBSOpInfo(int32_t op, int32_t* value) override {
        std::lock_guard<std::mutex> g(mLock);
        auto it = mEwbsOps.find(op);
        if (value) *value = it == mEwbsOps.end() ? 0 : it->second;
        return it == mEwbsOps.end() ? -1 : 0;
    }
    void getEASInProgress(MwAtscEasInfoRec& out) override {
        std::lock_guard<std::mutex> g(mLock);
        if (!mAlert) return;
        out.u16EAS_EventID = 1;
        std::memcpy(out.au8EAS_OriginatorCode, "WXR", 3);
        std::memcpy(out.au8EAS_EventCode, "RWT", 3);
        out.u8AlertPriority = 8;
        out.u16EventDuration = 15;
    }

    int32_t getHdmiEdidVersionBySource(int32_t source) override {
        std::lock_guard<std::mutex> g(mLock);
        auto it = mEdid.find(source);
        return it == mEdid.end() ? 2 : it->second;
    }
    ProxyBool setHdmiEdidVersionBySource(int32_t source, int32_t version) override {
        std::lock_guard<std::mutex> g(mLock);
        mEdid[source] = version;
        return 1;
    }

private:
    struct Entry {
        size_t mux;
        size_t ch;
    };

    // Lets the timeline thread sleep and be woken early when the simulator goes.
    struct Stop {
        std::mutex lock;
        std::condition_variable wake;
        bool stopped = false;
        template <typename T>
        bool sleepUntil(T due) {
            std::unique_lock<std::mutex> g(lock);
            return !wake.wait_until(g, due, [this] { return stopped; });
        }
        bool sleepMs(double ms) {
            return sleepUntil(std::chrono::steady_clock::now() +
                              std::chrono::microseconds(static_cast<int64_t>(ms * 1000)));
        }
    };

    void stopTimeline() {
        std::lock_guard<std::mutex> g(mStop->lock);
        mStop->stopped = true;
        mStop->wake.notify_all();
    }

    // Queues an event for the listener on the first service thread (one thread keeps the
    // events in the order they were raised).
    void post(std::function<void(PlayerImplListener&)> fn) {
        android::sp<PlayerImplListener> l = listener();
        if (l == nullptr) return;
        postToServiceThread(0, [l, fn] { fn(*l); });
    }

    const Channel* channel() const {
        if (mCurrent >= mLineup.size()) return nullptr;
        return &mS.multiplexes[mLineup[mCurrent].mux].channels[mLineup[mCurrent].ch];
    }
    const Multiplex* mux() const {
        return mCurrent < mLineup.size() ? &mS.multiplexes[mLineup[mCurrent].mux] : nullptr;
    }
    bool locked() {
        std::lock_guard<std::mutex> g(mLock);
        return mLocked;
    }
    bool validSat(int32_t i) const {
        return i >= 0 && i < static_cast<int32_t>(mS.satellites.size());
    }
    bool validTp(int32_t s, int32_t i) const {
        return validSat(s) && i >= 0 &&
               i < static_cast<int32_t>(mS.satellites[s].transponders.size());
    }
    static void copySatellite(const SatelliteInfoRec& in, Satellite& s) {
        s.name = std::string(in.satName.c_str(), in.satName.length());
        s.lnbLowMHz = in.lowLOF;
        s.lnbHighMHz = in.hiLOF;
        s.longitude = in.angle;
    }

    void fillAudio(DtvAudioInfoRec& out) {
        std::lock_guard<std::mutex> g(mLock);
        const Channel* c = channel();
        if (c == nullptr) return;
        int n = std::min<int>(static_cast<int>(c->audio.size()), kMaxAudioTracks);
        out.audioLangNum = static_cast<int16_t>(n);
        for (int i = 0; i < n; ++i) {
            AudioInfoRec& a = out.audioInfos[i];
            a.audioPid = static_cast<uint32_t>(0x100 + i);
            a.audioType = static_cast<uint16_t>(c->audio[i].type);
            a.isoLangInfo.audioMode = static_cast<uint16_t>(c->audio[i].type);
            a.isoLangInfo.audioType = 0;
            std::memcpy(a.isoLangInfo.isoLangInfo, c->audio[i].language.data(), 3);
            a.isoLangInfo.isValid = 1;
        }
        out.currentAudioIndex = static_cast<uint16_t>(mAudioTrack);
        out.currentChannelMode = static_cast<uint16_t>(mAudioMode.load());
    }

    static void fillMux(const Multiplex* m, DvbMuxInfoRec& out) {
        if (m == nullptr) return;
        out.transportStreamId = static_cast<uint16_t>(m->tsid);
        out.originalNetworkId = static_cast<uint16_t>(m->onid);
        out.networkId = static_cast<uint16_t>(m->onid);
        out.rfNumber = static_cast<uint8_t>(m->rf);
        out.frequency = m->frequencyKHz;
        out.modulationMode = 2;  // 64-QAM
        out.bandwidth = static_cast<uint8_t>(m->bandwidthMHz);
    }

    bool tuneToNumber(int32_t number) {
        for (size_t i = 0; i < mLineup.size(); ++i) {
            if (mS.multiplexes[mLineup[i].mux].channels[mLineup[i].ch].number == number) {
                tuneTo(i);
                return true;
            }
        }
        return false;
    }

    // A channel change: the signal drops, locks on the new multiplex, then the programme
    // and channel information follow.
    void tuneTo(size_t index) {
        int32_t number;
        bool sameMux;
        {
            std::lock_guard<std::mutex> g(mLock);
            sameMux = mCurrent < mLineup.size() && mLineup[mCurrent].mux == mLineup[index].mux;
            mCurrent = index;
            mAudioTrack = 0;
            mLocked = true;
            number = channel()->number;
        }
        mTeletextOpen = false;
        post([number, sameMux](PlayerImplListener& l) {
            if (!sameMux) {
                l.PostEvent_SignalUnlock(0, 0);
                l.PostEvent_SignalLock(0, 0);
                l.PostEvent_TsChange(number, 0);
            }
            l.PostEvent_ProgramInfoReady(number, 0);
            l.PostEvent_ChannelNameReady(number, 0);
            l.PostEvent_DtvChannelInfoUpdate(number, 0);
            l.notifyCB(kVideoInfoReady, number, 0, nullptr);
        });
    }

public:
    // The timeline steps the simulator carries out itself, besides the two-integer events of
    // the listener: a new kind of step is one row here and its function (and, if it takes
    // new fields, their reading in scenario.cpp).
    struct SpecialStep {
        const char* name;
        void (SimulatedTv::*run)(const Step&, Stop&);
    };
    static const SpecialStep kSpecialSteps[6];

private:
    void runStep(const Step& st, Stop& stop) {
        for (const SpecialStep& special : kSpecialSteps) {
            if (st.event == special.name) return (this->*special.run)(st, stop);
        }
        if (const SimpleEvent* ev = findSimpleEvent(st.event)) {
            for (int i = 0; i < st.repeat; ++i) {
                if (i > 0 && !stop.sleepMs(st.everyMs / mS.speed)) return;
                applySimple(st.event);
                auto op = ev->op;
                int e1 = st.ext1 + i, e2 = st.ext2;
                post([=](PlayerImplListener& l) { (l.*op)(e1, e2); });
            }
        }
    }

    // An HbbTV event: its code, ten parameters and ext2 in a parcel.
    void hbbtvStep(const Step& st, Stop&) {
        auto p = std::make_shared<android::Parcel>();
        p->writeInt32(st.code);
        for (int i = 0; i < 10; ++i) {
            p->writeInt32(i < static_cast<int>(st.params.size()) ? st.params[i] : 0);
        }
        p->writeInt32(st.ext2);
        p->setDataPosition(0);
        post([p](PlayerImplListener& l) { l.PostEvent_HbbtvEvent(*p); });
    }

    // The service's generic callback with a native event number.
    void notifyCBStep(const Step& st, Stop&) {
        int code = st.code, e1 = st.ext1, e2 = st.ext2;
        post([=](PlayerImplListener& l) { l.notifyCB(code, e1, e2, nullptr); });
    }

    void channelStep(const Step& st, Stop&) { tuneToNumber(st.channel); }

    // What a timeline event changes in the state the queries answer from.
    void applySimple(const std::string& name) {
        std::lock_guard<std::mutex> g(mLock);
        if (name == "SignalLock") mLocked = true;
        if (name == "SignalUnlock") mLocked = false;
        if (name == "Emerency_Alert") mAlert = true;
    }

    // Analogue scan: progress in tenths through 100 %, finding the analogue line-up.
    void atvScan(const Step& st, Stop& stop) {
        bool manual = st.event == "ManualTuning";
        std::vector<AnalogueChannel> found;
        {
            std::lock_guard<std::mutex> g(mLock);
            found = mS.analogue;
        }
        const int n = static_cast<int>(found.size());
        for (int pct = 0; pct <= 100; pct += 10) {
            int seen = n * pct / 100;
            int32_t freq = seen > 0 ? found[seen - 1].frequencyKHz : 48250;
            auto p = std::make_shared<android::Parcel>();
            for (int32_t v : {pct, freq, seen, seen, pct < 100 ? 1 : 0, st.ext2}) p->writeInt32(v);
            p->setDataPosition(0);
            post([p, manual](PlayerImplListener& l) {
                if (manual) {
                    l.PostEvent_ManualTuning(*p);
                } else {
                    l.PostEvent_AtvAutoTuning(*p);
                }
            });
            if (pct < 100 && !stop.sleepMs(30 / mS.speed)) return;
        }
    }

    // Digital scan: one progress parcel per multiplex, then the final one at 100 %.
    void dtvScan(const Step& st, Stop& stop) {
        std::vector<Multiplex> muxes;
        {
            std::lock_guard<std::mutex> g(mLock);
            muxes = mS.multiplexes;
        }
        const int n = static_cast<int>(muxes.size());
        int services = 0;
        for (int i = 0; i <= n; ++i) {
            bool done = i == n;
            const Multiplex* m = done ? (n ? &muxes[n - 1] : nullptr) : &muxes[i];
            if (!done) services += static_cast<int>(m->channels.size());
            auto p = std::make_shared<android::Parcel>();
            int32_t pct = n ? (done ? 100 : (i + 1) * 100 / (n + 1)) : 100;
            int32_t freq = m ? m->frequencyKHz : 0;
            for (int32_t v : {done ? 2 : 1, m ? m->rf : 0, pct, services, 0, 0, m ? m->quality : 0,
                              m ? m->strength : 0, freq, 0, (freq > 0 && freq < 300000) ? 1 : 0}) {
                p->writeInt32(v);
            }
            p->writeString8(android::String8(m ? m->name.c_str() : ""));
            p->writeInt32(st.ext2);
            p->setDataPosition(0);
            post([p](PlayerImplListener& l) { l.PostEvent_DtvAutoTuning(*p); });
            if (!done && !stop.sleepMs(60 / mS.speed)) return;
        }
    }

    mutable std::mutex mLock;  // guards mS, mLineup, mCurrent, mSource, mLocked, mAlert, maps
    Scenario mS;
    std::vector<Entry> mLineup;
    size_t mCurrent = 0;
    std::string mSource;
    bool mLocked = false;
    bool mAlert = false;
    int32_t mAudioTrack = 0;
    std::map<int32_t, int32_t> mEwbsOps;
    std::map<int32_t, int32_t> mEdid;
    std::atomic<int32_t> mAudioMode{0};
    std::atomic<bool> mTeletextOpen{false};
    std::atomic<bool> mGinga{false};
    std::atomic<int32_t> mCcMode{0};
    std::atomic<int32_t> mVChipLevel{0};
    std::atomic<bool> mVChipUnlocked{false};
    std::atomic<int32_t> mCurSat{0};
    std::atomic<int32_t> mCurTp{0};
    std::atomic<int32_t> mLocationCode{0};
    std::atomic<bool> mStarted{false};
    std::shared_ptr<Stop> mStop;
};

const SimulatedTv::SpecialStep SimulatedTv::kSpecialSteps[6] = {
    {"AtvAutoTuning", &SimulatedTv::atvScan}, {"ManualTuning", &SimulatedTv::atvScan},
    {"DtvAutoTuning", &SimulatedTv::dtvScan}, {"HbbtvEvent", &SimulatedTv::hbbtvStep},
    {"notifyCB", &SimulatedTv::notifyCBStep}, {"Channel", &SimulatedTv::channelStep},
};

}  // namespace

std::vector<std::string> eventNames() {
    std::vector<std::string> names;
    for (const auto& special : SimulatedTv::kSpecialSteps) names.emplace_back(special.name);
    for (const std::string& simple : simpleEventNames()) names.push_back(simple);
    return names;
}

bool timelineDone() { return gTimelineDone.load(); }
void setTimelineDone(bool done) { gTimelineDone.store(done); }

}  // namespace sim

android::sp<PlayerImpl> makeSimulatedTv() {
    sim::Scenario s;
    std::string error;
    if (!sim::chosenScenario(s, error)) {
        // The service cannot start on a refused scenario: connect() fails.
        std::fprintf(stderr, "%s\n", error.c_str());
        return nullptr;
    }
    return new sim::SimulatedTv(std::move(s));
}

}  // namespace host
