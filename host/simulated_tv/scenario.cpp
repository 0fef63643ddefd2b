// Scenario files: the built-in default line-up and timeline, and the reader that checks a
// JSON file member by member so that a mistake is reported with its place and what was
// expected, before anything is started.
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <mutex>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <stdexcept>

#include "sim_internal.h"

namespace host {
namespace sim {

using nlohmann::json;

Scenario defaultScenario() {
    Scenario s;
    s.analogue = {{175250, "ATV 1"}, {183250, "ATV 2"}, {487250, "ATV 3"}};
    Multiplex psb1{21, 474000, 8, 9018, 4100, "PSB1", 92, 81, {}};
    psb1.channels = {
        {1, "Vireo One", 4164, 1920, 1080, 25, true, 3, true, true, {{"eng", 0}, {"gla", 1}}},
        {2, "Vireo Two", 4287, 1280, 720, 50, false, 3, true, false, {{"eng", 0}}},
    };
    Multiplex com4{35, 586000, 8, 9018, 8199, "COM4", 74, 66, {}};
    com4.channels = {
        {3, "Vireo News", 8384, 720, 576, 25, true, 2, false, false, {{"eng", 0}, {"fra", 0}}},
        {4, "Vireo Films", 8442, 3840, 2160, 50, false, 3, false, false, {{"deu", 3}}},
    };
    s.multiplexes = {psb1, com4};
    s.satellites = {{"Astra 19.2E", 192, 9750, 10600, {{11494, 22000, 0}, {12603, 22000, 1}}},
                    {"Hotbird 13E", 130, 9750, 10600, {{10992, 27500, 1}}}};
    s.locations = {{"Tokyo", 13}, {"Osaka", 27}};
    s.ewbsAreaCode = 13;
    auto step = [](int32_t at, const char* ev, int32_t e1 = 0, int32_t e2 = 0) {
        Step st;
        st.atMs = at;
        st.event = ev;
        st.ext1 = e1;
        st.ext2 = e2;
        return st;
    };
    Step ticks = step(1700, "PvrRecordTime", 1, 0);
    ticks.repeat = 3;
    ticks.everyMs = 100;
    Step hbbtv = step(2100, "HbbtvEvent", 0, 7);
    hbbtv.params = {1, 2, 3};
    hbbtv.code = 5;
    Step unstable = step(2200, "notifyCB");
    unstable.code = 0x20001023;
    s.timeline = {step(0, "AtvAutoTuning"),
                  step(500, "DtvAutoTuning"),
                  step(1100, "SignalLock"),
                  step(1150, "ProgramInfoReady", 1, 0),
                  step(1200, "EpgUpdate", 1, 0),
                  step(1250, "EpgUpdateList", 1, 0),
                  step(1300, "ChannelNameReady"),
                  ticks,
                  step(2000, "Emerency_Alert", 1, 0),
                  hbbtv,
                  unstable,
                  step(2300, "SignalLock")};
    return s;
}

namespace {

struct ScenarioError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string typeName(const json& v) {
    if (v.is_number_integer()) return "an integer";
    if (v.is_number()) return "a fractional number";
    if (v.is_string()) return "a string";
    if (v.is_boolean()) return "a boolean";
    if (v.is_array()) return "an array";
    if (v.is_object()) return "an object";
    return "null";
}

// One JSON object being read; knows its path for error messages and refuses members it
// was not asked about (a misspelt member would otherwise be silently ignored).
class Obj {
public:
    Obj(const json& v, std::string path, std::initializer_list<const char*> allowed)
        : mV(v), mPath(std::move(path)) {
        if (!v.is_object()) fail(mPath, "an object", v);
        std::set<std::string> ok(allowed.begin(), allowed.end());
        for (auto it = v.begin(); it != v.end(); ++it) {
            if (ok.count(it.key()) == 0) {
                std::string list;
                for (const char* a : allowed) list += std::string(list.empty() ? "" : ", ") + a;
                throw ScenarioError("at " + at(it.key()) + ": unknown member; expected one of " +
                                    list);
            }
        }
    }

    int32_t integer(const char* key, int32_t dflt, int64_t lo, int64_t hi) const {
        if (!mV.contains(key)) return dflt;
        const json& v = mV[key];
        if (!v.is_number_integer() || v.get<int64_t>() < lo || v.get<int64_t>() > hi) {
            fail(at(key), "an integer from " + std::to_string(lo) + " to " + std::to_string(hi), v);
        }
        return static_cast<int32_t>(v.get<int64_t>());
    }
    double number(const char* key, double dflt, double lo, double hi) const {
        if (!mV.contains(key)) return dflt;
        const json& v = mV[key];
        if (!v.is_number() || v.get<double>() < lo || v.get<double>() > hi) {
            std::ostringstream e;
            e << "a number from " << lo << " to " << hi;
            fail(at(key), e.str(), v);
        }
        return v.get<double>();
    }
    bool boolean(const char* key, bool dflt) const {
        if (!mV.contains(key)) return dflt;
        if (!mV[key].is_boolean()) fail(at(key), "true or false", mV[key]);
        return mV[key].get<bool>();
    }
    std::string text(const char* key, const std::string& dflt, size_t maxLen = 64) const {
        if (!mV.contains(key)) return dflt;
        const json& v = mV[key];
        if (!v.is_string() || v.get<std::string>().size() > maxLen) {
            fail(at(key), "a string of at most " + std::to_string(maxLen) + " characters", v);
        }
        return v.get<std::string>();
    }
    // Calls fn(element, path) for each element of an array member (absent = empty).
    template <typename F>
    void each(const char* key, F fn) const {
        if (!mV.contains(key)) return;
        const json& v = mV[key];
        if (!v.is_array()) fail(at(key), "an array", v);
        for (size_t i = 0; i < v.size(); ++i) fn(v[i], at(key) + "/" + std::to_string(i));
    }
    bool has(const char* key) const { return mV.contains(key); }
    const std::string& path() const { return mPath; }

    [[noreturn]] static void fail(const std::string& path, const std::string& expected,
                                  const json& got) {
        throw ScenarioError("at " + path + ": expected " + expected + ", got " + typeName(got));
    }

private:
    std::string at(const std::string& key) const { return mPath + "/" + key; }
    const json& mV;
    std::string mPath;
};

std::string language(const Obj& o, const char* key, const std::string& dflt) {
    std::string l = o.text(key, dflt, 3);
    bool ok = l.size() == 3;
    for (char c : l) ok = ok && c >= 'a' && c <= 'z';
    if (!ok) {
        throw ScenarioError("at " + o.path() + "/" + key +
                            ": expected a three-letter lower-case ISO 639 code, got \"" + l + "\"");
    }
    return l;
}

constexpr int64_t kMaxMs = 600000;

Channel readChannel(const json& v, const std::string& path) {
    Obj o(v, path,
          {"number", "name", "service_id", "width", "height", "frame_rate", "interlaced", "aspect",
           "teletext", "mheg5", "audio"});
    Channel c;
    c.number = o.integer("number", 0, 1, 9999);
    c.name = o.text("name", "Channel " + std::to_string(c.number));
    c.serviceId = o.integer("service_id", c.number, 0, 65535);
    c.width = o.integer("width", c.width, 1, 7680);
    c.height = o.integer("height", c.height, 1, 4320);
    c.frameRate = o.integer("frame_rate", c.frameRate, 1, 120);
    c.interlaced = o.boolean("interlaced", c.interlaced);
    c.aspect = o.integer("aspect", c.aspect, 0, 15);
    c.teletext = o.boolean("teletext", false);
    c.mheg5 = o.boolean("mheg5", false);
    o.each("audio", [&](const json& a, const std::string& p) {
        Obj t(a, p, {"language", "type"});
        c.audio.push_back({language(t, "language", "eng"), t.integer("type", 0, 0, 15)});
    });
    if (c.number == 0)
        throw ScenarioError("at " + path +
                            "/number: expected an integer from 1 "
                            "to 9999, got nothing");
    return c;
}

Step readStep(const json& v, const std::string& path) {
    Obj o(v, path,
          {"at_ms", "event", "ext1", "ext2", "repeat", "every_ms", "code", "channel", "params"});
    Step s;
    s.atMs = o.integer("at_ms", 0, 0, kMaxMs);
    if (!o.has("event"))
        throw ScenarioError("at " + path +
                            "/event: expected an event name, got "
                            "nothing");
    s.event = o.text("event", "");
    auto names = eventNames();
    bool known = false;
    for (const auto& n : names) known = known || n == s.event;
    if (!known) {
        std::string list;
        for (const auto& n : names) list += (list.empty() ? "" : ", ") + n;
        throw ScenarioError("at " + path + "/event: unknown event \"" + s.event +
                            "\"; expected one of " + list);
    }
    s.ext1 = o.integer("ext1", 0, INT32_MIN, INT32_MAX);
    s.ext2 = o.integer("ext2", 0, INT32_MIN, INT32_MAX);
    s.repeat = o.integer("repeat", 1, 1, 1000);
    s.everyMs = o.integer("every_ms", 100, 0, kMaxMs);
    s.code = o.integer("code", s.event == "notifyCB" ? 0x20001023 : 0, INT32_MIN, INT32_MAX);
    s.channel = o.integer("channel", 0, 0, 9999);
    o.each("params", [&](const json& p, const std::string& pp) {
        if (s.params.size() == 10)
            throw ScenarioError("at " + pp +
                                ": expected at most ten "
                                "parameters");
        if (!p.is_number_integer()) Obj::fail(pp, "an integer", p);
        s.params.push_back(static_cast<int32_t>(p.get<int64_t>()));
    });
    if (s.event == "Channel" && s.channel == 0) {
        throw ScenarioError("at " + path +
                            "/channel: expected the channel number to switch "
                            "to, got nothing");
    }
    return s;
}

Scenario readScenario(const json& root) {
    Obj o(root, "",
          {"name", "input_source", "country", "language", "speed", "start_channel", "analogue",
           "multiplexes", "satellites", "locations", "ewbs_area_code", "timeline"});
    Scenario s;
    s.timeline.clear();
    s.name = o.text("name", "unnamed");
    s.inputSource = o.text("input_source", "DTV");
    if (s.inputSource != "DTV" && s.inputSource != "ATV" && s.inputSource != "HDMI1" &&
        s.inputSource != "HDMI2") {
        throw ScenarioError("at /input_source: expected one of DTV, ATV, HDMI1, HDMI2, got \"" +
                            s.inputSource + "\"");
    }
    s.country = o.text("country", "GBR", 3);
    s.language = language(o, "language", "eng");
    s.speed = o.number("speed", 1.0, 0.01, 100.0);
    s.startChannel = o.integer("start_channel", 0, 0, 9999);
    s.ewbsAreaCode = o.integer("ewbs_area_code", 0, 0, 65535);
    o.each("analogue", [&](const json& v, const std::string& p) {
        Obj a(v, p, {"frequency_khz", "name"});
        s.analogue.push_back({a.integer("frequency_khz", 0, 40000, 900000),
                              a.text("name", "ATV " + std::to_string(s.analogue.size() + 1))});
    });
    o.each("multiplexes", [&](const json& v, const std::string& p) {
        Obj m(v, p,
              {"rf", "frequency_khz", "bandwidth_mhz", "onid", "tsid", "name", "quality",
               "strength", "channels"});
        Multiplex x;
        x.rf = m.integer("rf", 21, 1, 255);
        x.frequencyKHz = m.integer("frequency_khz", 306000 + 8000 * x.rf, 40000, 900000);
        x.bandwidthMHz = m.integer("bandwidth_mhz", 8, 5, 8);
        x.onid = m.integer("onid", 0, 0, 65535);
        x.tsid = m.integer("tsid", 0, 0, 65535);
        x.name = m.text("name", "RF " + std::to_string(x.rf));
        x.quality = m.integer("quality", 100, 0, 100);
        x.strength = m.integer("strength", 100, 0, 100);
        m.each("channels", [&](const json& c, const std::string& cp) {
            x.channels.push_back(readChannel(c, cp));
        });
        s.multiplexes.push_back(std::move(x));
    });
    o.each("satellites", [&](const json& v, const std::string& p) {
        Obj a(v, p, {"name", "longitude", "lnb_low_mhz", "lnb_high_mhz", "transponders"});
        Satellite sat;
        sat.name = a.text("name", "Satellite " + std::to_string(s.satellites.size() + 1));
        sat.longitude = a.integer("longitude", 0, -1800, 1800);
        sat.lnbLowMHz = a.integer("lnb_low_mhz", 9750, 0, 20000);
        sat.lnbHighMHz = a.integer("lnb_high_mhz", 10600, 0, 20000);
        a.each("transponders", [&](const json& t, const std::string& tp) {
            Obj x(t, tp, {"frequency_mhz", "symbol_rate", "polarity"});
            std::string pol = x.text("polarity", "H", 1);
            if (pol != "H" && pol != "V") {
                throw ScenarioError("at " + tp + "/polarity: expected \"H\" or \"V\", got \"" +
                                    pol + "\"");
            }
            sat.transponders.push_back({x.integer("frequency_mhz", 0, 3000, 13000),
                                        x.integer("symbol_rate", 27500, 1000, 45000),
                                        pol == "V" ? 1 : 0});
        });
        s.satellites.push_back(std::move(sat));
    });
    o.each("locations", [&](const json& v, const std::string& p) {
        Obj a(v, p, {"name", "code"});
        s.locations.push_back({a.text("name", ""), a.integer("code", 0, 0, 65535)});
    });
    o.each("timeline",
           [&](const json& v, const std::string& p) { s.timeline.push_back(readStep(v, p)); });
    // The channel to start on: the one asked for, else the first of the line-up.
    bool found = s.startChannel == 0;
    for (const auto& m : s.multiplexes) {
        for (const auto& c : m.channels) {
            if (s.startChannel == 0) s.startChannel = c.number;
            found = found || c.number == s.startChannel;
        }
    }
    if (!found) {
        throw ScenarioError(
            "at /start_channel: expected the number of a channel of the "
            "line-up, got " +
            std::to_string(s.startChannel));
    }
    return s;
}

// Line and column (1-based) of a byte offset in the text.
std::string lineColumn(const std::string& text, size_t offset) {
    size_t line = 1, col = 1;
    for (size_t i = 0; i < offset && i < text.size(); ++i) {
        if (text[i] == '\n') {
            ++line;
            col = 1;
        } else {
            ++col;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(col);
}

std::mutex gChoiceLock;
Scenario gChosen = defaultScenario();
bool gChoiceMade = false;

}  // namespace

bool loadScenarioFile(const std::string& path, Scenario& out, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "scenario " + path + ": cannot be read; expected a readable JSON file";
        return false;
    }
    std::stringstream buf;
    buf << in.rdbuf();
    std::string text = buf.str();
    json root;
    try {
        root = json::parse(text);
    } catch (const json::parse_error& e) {
        // The parser's byte is one past the offending character.
        std::string what = e.what();
        auto colon = what.find("syntax error");
        error = "scenario " + path + ": " + lineColumn(text, e.byte > 0 ? e.byte - 1 : 0) +
                ": malformed JSON: " + (colon == std::string::npos ? what : what.substr(colon));
        return false;
    }
    try {
        out = readScenario(root);
    } catch (const ScenarioError& e) {
        error = "scenario " + path + ": " + e.what();
        return false;
    } catch (const json::exception& e) {
        error = "scenario " + path + ": " + e.what();
        return false;
    }
    out.file = path;
    return true;
}

std::string useScenarioFile(const std::string& path) {
    Scenario s = defaultScenario();
    std::string error;
    if (!path.empty() && !loadScenarioFile(path, s, error)) return error;
    std::lock_guard<std::mutex> guard(gChoiceLock);
    gChosen = std::move(s);
    gChoiceMade = true;
    return {};
}

std::string scenarioFromEnvironment() {
    const char* p = std::getenv("PLAYERIMPL_SCENARIO");
    return p ? std::string(p) : std::string();
}

bool chosenScenario(Scenario& out, std::string& error) {
    std::lock_guard<std::mutex> guard(gChoiceLock);
    if (!gChoiceMade) {
        std::string path = scenarioFromEnvironment();
        if (!path.empty() && !loadScenarioFile(path, gChosen, error)) return false;
        gChoiceMade = true;
    }
    out = gChosen;
    return true;
}

}  // namespace sim
}  // namespace host
