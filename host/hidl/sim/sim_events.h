// The timeline's table of two-integer listener operations.
#pragma once

#include <string>

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

}  // namespace sim
}  // namespace host
