// The timeline's table of two-integer listener operations.
#pragma once

#include <string>
#include <vector>

#include "core/PlayerImpl.h"
#include "playerimpl_host/simulator.h"

namespace host {
namespace sim {

struct SimpleEvent {
    const char* name;
    void (PlayerImplListener::*op)(int, int);
};

// The row for a two-integer event name, or null.
const SimpleEvent* findSimpleEvent(const std::string& name);

// Their names, in the listener's order.
std::vector<std::string> simpleEventNames();

}  // namespace sim
}  // namespace host
