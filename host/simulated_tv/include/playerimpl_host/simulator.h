// The simulated TV of the workstation: its line-up and timeline (a scenario), how a
// scenario file is chosen and checked, and what tests and the demonstration program can
// ask of the running simulation.
#pragma once

#include <utils/StrongPointer.h>

#include <cstdint>
#include <string>
#include <vector>

class PlayerImpl;

namespace host {
namespace sim {

struct AudioTrack {
    std::string language;  // ISO 639-2, three letters
    int32_t type = 0;      // 0 stereo, 1 mono, 2 dual mono, 3 multichannel
};

struct Channel {
    int32_t number = 0;
    std::string name;
    int32_t serviceId = 0;
    int32_t width = 1920;
    int32_t height = 1080;
    int32_t frameRate = 50;
    bool interlaced = true;
    int32_t aspect = 3;  // 2 for 4:3, 3 for 16:9
    bool teletext = false;
    bool mheg5 = false;
    std::vector<AudioTrack> audio;
};

struct Multiplex {
    int32_t rf = 0;
    int32_t frequencyKHz = 0;
    int32_t bandwidthMHz = 8;
    int32_t onid = 0;
    int32_t tsid = 0;
    std::string name;
    int32_t quality = 100;
    int32_t strength = 100;
    std::vector<Channel> channels;
};

struct AnalogueChannel {
    int32_t frequencyKHz = 0;
    std::string name;
};

struct Transponder {
    int32_t frequencyMHz = 0;
    int32_t symbolRate = 0;
    int32_t polarity = 0;  // 0 horizontal, 1 vertical
};

struct Satellite {
    std::string name;
    int32_t longitude = 0;  // tenths of a degree, east positive
    int32_t lnbLowMHz = 9750;
    int32_t lnbHighMHz = 10600;
    std::vector<Transponder> transponders;
};

struct Location {
    std::string name;
    int32_t code = 0;
};

// One entry of the timeline: an event (by the listener operation's name without its
// "PostEvent_" prefix), a scan, a notifyCB number, a channel change or an HbbTV event.
struct Step {
    int32_t atMs = 0;
    std::string event;
    int32_t ext1 = 0;
    int32_t ext2 = 0;
    int32_t repeat = 1;           // simple events: fired this many times, ext1 counting up
    int32_t everyMs = 100;        // and this far apart
    int32_t code = 0;             // notifyCB: the native event number
    int32_t channel = 0;          // Channel: the channel number to switch to
    std::vector<int32_t> params;  // HbbtvEvent: up to ten parameters
};

struct Scenario {
    std::string file;  // empty for the built-in default
    std::string name = "default";
    std::string inputSource = "DTV";
    std::string country = "GBR";
    std::string language = "eng";
    double speed = 1.0;  // the timeline runs this many times faster
    int32_t startChannel = 1;
    std::vector<AnalogueChannel> analogue;
    std::vector<Multiplex> multiplexes;
    std::vector<Satellite> satellites;
    std::vector<Location> locations;
    int32_t ewbsAreaCode = 0;
    std::vector<Step> timeline;
};

// The built-in scenario used when no file is chosen.
Scenario defaultScenario();

// Reads and checks a scenario file. On failure returns false and sets `error` to one line
// naming the file, the line or member path, and what was expected.
bool loadScenarioFile(const std::string& path, Scenario& out, std::string& error);

// Chooses the scenario of the simulators connected from now on: a file path, or empty for
// the built-in default. Returns an empty string, or the error line when the file is
// refused (the previous choice is then kept).
std::string useScenarioFile(const std::string& path);
// The scenario file named by the PLAYERIMPL_SCENARIO environment variable, or empty.
std::string scenarioFromEnvironment();

// The names a timeline step's "event" may take.
std::vector<std::string> eventNames();

// True once the timeline of the most recently connected simulator has been delivered
// (or there is no simulator).
bool timelineDone();

// A native Surface (host libgui) for binding the video window; the caller owns one
// strong reference, dropped by releaseSurface.
void* newSurface(uint64_t uniqueId);
void releaseSurface(void* surface);

}  // namespace sim
}  // namespace host
