// Shared between the simulator's files; not for users of the service library.
#pragma once

#include <string>

#include "playerimpl_host/simulator.h"

namespace host {
namespace sim {

// The scenario a newly connected simulator runs: the one chosen by useScenarioFile, else
// the file named by PLAYERIMPL_SCENARIO, else the built-in default. False (with the error
// line) when the environment names a file that is refused.
bool chosenScenario(Scenario& out, std::string& error);

// Marks the timeline of the newest simulator as running (false) or delivered (true).
void setTimelineDone(bool done);

}  // namespace sim
}  // namespace host
