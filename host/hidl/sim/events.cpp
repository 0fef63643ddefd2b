// The events a scenario's timeline can name: every two-integer listener operation under
// its name without the "PostEvent_" prefix, plus the steps that carry a parcel or change
// the simulated state.
#include "sim_events.h"

namespace host {
namespace sim {

namespace {

using L = PlayerImplListener;

// Two-integer listener operations, by their name without "PostEvent_".
const SimpleEvent kSimpleEvents[] = {
#define PIJ_LISTENER_OP(name, parameters)
#define PIJ_LISTENER_EVENT(name) {#name + sizeof("PostEvent_") - 1, &L::name},
#define PIJ_LISTENER_PARCEL_EVENT(name)
#include "core/listener_operations.def"
#undef PIJ_LISTENER_OP
#undef PIJ_LISTENER_EVENT
#undef PIJ_LISTENER_PARCEL_EVENT
};

// Steps the simulator carries out itself (see SimulatedTv::runStep).
const char* const kSpecialSteps[] = {"AtvAutoTuning", "ManualTuning", "DtvAutoTuning",
                                     "HbbtvEvent",    "notifyCB",     "Channel"};

}  // namespace

const SimpleEvent* findSimpleEvent(const std::string& name) {
    for (const auto& e : kSimpleEvents) {
        if (name == e.name) return &e;
    }
    return nullptr;
}

std::vector<std::string> eventNames() {
    std::vector<std::string> names(std::begin(kSpecialSteps), std::end(kSpecialSteps));
    for (const auto& e : kSimpleEvents) names.emplace_back(e.name);
    return names;
}

}  // namespace sim
}  // namespace host
