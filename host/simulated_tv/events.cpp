// The two-integer listener operations a scenario's timeline can name, under their names
// without the "PostEvent_" prefix (the simulator's own steps are in SimulatedTv.cpp).
#include "sim_events.h"

namespace host {
namespace sim {

namespace {

using L = PlayerImplListener;

// Two-integer listener operations, by their name without "PostEvent_".
const SimpleEvent kSimpleEvents[] = {
#define PIJ_LISTENER_OP(name, parameters)
#define PIJ_LISTENER_EVENT(name) {&#name[sizeof("PostEvent_") - 1], &L::name},
#define PIJ_LISTENER_PARCEL_EVENT(name)
#include "core/listener_operations.def"
#undef PIJ_LISTENER_OP
#undef PIJ_LISTENER_EVENT
#undef PIJ_LISTENER_PARCEL_EVENT
};

}  // namespace

const SimpleEvent* findSimpleEvent(const std::string& name) {
    for (const auto& e : kSimpleEvents) {
        if (name == e.name) return &e;
    }
    return nullptr;
}

std::vector<std::string> simpleEventNames() {
    std::vector<std::string> names;
    for (const auto& e : kSimpleEvents) names.emplace_back(e.name);
    return names;
}

}  // namespace sim
}  // namespace host
