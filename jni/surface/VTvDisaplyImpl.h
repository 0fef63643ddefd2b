// What the video surface binding requires of the closed display library (libtvdisplay):
// a display object whose TV video window can be opened on and closed from a Surface.
#pragma once

#include <cstdint>

#include <gui/Surface.h>
#include <utils/StrongPointer.h>

// The display library's window types. Their values belong to the display library; the
// managed side passes one through unchanged.
enum WIN_DEV : int32_t {
    WIN_DEV_MAIN = 0,
};

class VTvDisaplyImpl {
public:
    VTvDisaplyImpl();

    // Returns the window id, -1 when no window could be had.
    int32_t openTvDisplay(const android::sp<android::Surface>& surface, WIN_DEV type, bool flag);
    // A boolean answer; only its bit 0 is used.
    uint8_t closeTvDisplay(const android::sp<android::Surface>& surface);
};
