// Control of the workstation's display library for tests and the simulator.
#pragma once

#include <cstdint>
#include <vector>

namespace tvdisplay_host {

struct DisplayCall {
    bool open;            // openTvDisplay, or closeTvDisplay
    const void* surface;  // the android::Surface passed (null for an empty pointer)
    int32_t type;         // openTvDisplay's window type
    bool flag;            // openTvDisplay's bool
};

// The window id the next openTvDisplay answers (default 1); the closeTvDisplay answer.
void setWindowId(int32_t id);
void setCloseResult(uint8_t result);

std::vector<DisplayCall> calls();
void clearCalls();
// How many display objects were constructed in this process.
int displaysMade();

}  // namespace tvdisplay_host
